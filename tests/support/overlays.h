// Stored form overlays for tests.
#pragma once

#include <cstring>
#include <string_view>
#include <vector>

#include "spooler/stored_records.h"
#include "tests/support/machine.h"

namespace testing_support {

inline OverlayEntry Overlay(std::u16string_view name, std::u16string_view path, DWORD pending = 0)
{
    OverlayEntry row{};
    name.copy(row.ovName, std::size(row.ovName));
    path.copy(row.ovPath, std::size(row.ovPath));
    row.ovPending = pending;
    row.ovPrevious = row.ovNext = 0xDEADBEEF;
    return row;
}

// The list as it is stored: the number in front, then the rows.
inline platform::Bytes OverlayBytes(const std::vector<OverlayEntry>& rows, DWORD index = 0)
{
    platform::Bytes bytes(4 + rows.size() * sizeof(OverlayEntry));
    std::memcpy(bytes.data(), &index, 4);
    if (!rows.empty()) std::memcpy(bytes.data() + 4, rows.data(), rows.size() * sizeof(OverlayEntry));
    return bytes;
}

// Puts the first bytes of a list into the store, with their number as its size.
inline void StoreOverlays(platform::PrinterStore& store, const char16_t* printer, const std::vector<OverlayEntry>& rows,
                          std::size_t length = static_cast<std::size_t>(-1))
{
    platform::Bytes bytes = OverlayBytes(rows);
    if (length < bytes.size()) bytes.resize(length);
    const auto size = static_cast<DWORD>(bytes.size());
    platform::Bytes sizeBytes(4);
    std::memcpy(sizeBytes.data(), &size, 4);
    store.SetValue(printer, u"OverlayDataSize", {4, sizeBytes});
    store.SetValue(printer, u"OverlayData", {3, bytes});
}
inline void StoreOverlays(Machine& machine, const char16_t* printer, const std::vector<OverlayEntry>& rows,
                          std::size_t length = static_cast<std::size_t>(-1))
{
    StoreOverlays(*machine.store, printer, rows, length);
}

struct StoredOverlays {
    DWORD size = 0;   // as the store says
    DWORD index = 0;  // in front of the rows
    std::vector<OverlayEntry> rows;
};

inline StoredOverlays OverlaysOf(Machine& machine, const char16_t* printer)
{
    StoredOverlays stored;
    const auto size = machine.store->Value(printer, u"OverlayDataSize");
    const auto list = machine.store->Value(printer, u"OverlayData");
    if (size && size->bytes.size() == 4) std::memcpy(&stored.size, size->bytes.data(), 4);
    if (!list || list->bytes.size() < 4 || stored.size < 4) return stored;
    std::memcpy(&stored.index, list->bytes.data(), 4);
    stored.rows.resize((list->bytes.size() - 4) / sizeof(OverlayEntry));
    if (!stored.rows.empty())
        std::memcpy(stored.rows.data(), list->bytes.data() + 4, stored.rows.size() * sizeof(OverlayEntry));
    return stored;
}

}  // namespace testing_support
