// Values of a printer that are bytes with their number beside them.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "tests/support/machine.h"

namespace testing_support {

template <class Row>
platform::Bytes RowBytes(const std::vector<Row>& rows)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(rows.data());
    return {bytes, bytes + rows.size() * sizeof(Row)};
}

// As many whole ones as there are behind the first bytes.
template <class Row>
std::vector<Row> RowsIn(const platform::Bytes& bytes, std::size_t from = 0)
{
    std::vector<Row> rows(bytes.size() < from ? 0 : (bytes.size() - from) / sizeof(Row));
    if (!rows.empty()) std::memcpy(rows.data(), bytes.data() + from, rows.size() * sizeof(Row));
    return rows;
}

inline platform::Bytes DwordBytes(DWORD value) { return RowBytes(std::vector{value}); }

// Puts bytes there as they are, with a length of their own.
inline void StoreSized(platform::PrinterStore& store, const std::u16string& printer, const std::u16string& name,
                       const platform::Bytes& bytes, DWORD length)
{
    store.SetValue(printer, name + u"Size", {4, DwordBytes(length)});
    store.SetValue(printer, name, {3, bytes});
}

inline platform::Bytes StoredBytes(platform::PrinterStore& store, const std::u16string& printer,
                                   const std::u16string& name)
{
    const auto value = store.Value(printer, name);
    return value ? value->bytes : platform::Bytes();
}
inline DWORD StoredSize(platform::PrinterStore& store, const std::u16string& printer, const std::u16string& name)
{
    const auto size = RowsIn<DWORD>(StoredBytes(store, printer, name + u"Size"));
    return size.empty() ? 0 : size[0];
}

}  // namespace testing_support
