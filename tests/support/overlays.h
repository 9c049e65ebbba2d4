// Stored form overlays for tests.
#pragma once

#include <string_view>

#include "spooler/stored_records.h"
#include "tests/support/stored_bytes.h"

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

// Puts the first bytes of a list into the store, with their number as its size.
inline void StoreOverlays(platform::PrinterStore& store, const char16_t* printer, const std::vector<OverlayEntry>& rows,
                          std::size_t length = static_cast<std::size_t>(-1))
{
    platform::Bytes bytes = RowBytes(rows);
    bytes.insert(bytes.begin(), 4, 0);  // the number of the chosen row
    if (length < bytes.size()) bytes.resize(length);
    StoreSized(store, printer, u"OverlayData", bytes, static_cast<DWORD>(bytes.size()));
}

struct StoredOverlays {
    DWORD size = 0;   // as the store says
    DWORD index = 0;  // in front of the rows
    std::vector<OverlayEntry> rows;
};

inline StoredOverlays OverlaysOf(platform::PrinterStore& store, const char16_t* printer)
{
    const platform::Bytes list = StoredBytes(store, printer, u"OverlayData");
    const DWORD size = StoredSize(store, printer, u"OverlayData");
    if (size < 4 || list.size() < 4) return {size, 0, {}};
    return {size, RowsIn<DWORD>(list)[0], RowsIn<OverlayEntry>(list, 4)};
}

}  // namespace testing_support
