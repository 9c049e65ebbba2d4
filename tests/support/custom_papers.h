// Stored custom sizes for tests.
#pragma once

#include <string_view>

#include "spooler/stored_records.h"
#include "tests/support/stored_bytes.h"

namespace testing_support {

inline CustomPaperEntry Entry(SHORT code, std::u16string_view name, SHORT unit, SHORT width, SHORT height,
                              SHORT widthSixteenths = 0, SHORT heightSixteenths = 0)
{
    CustomPaperEntry entry{};
    entry.cpCode = code;
    entry.cpUnit = unit;
    entry.cpWidth = width;
    entry.cpHeight = height;
    entry.cpWidthSixteenths = widthSixteenths;
    entry.cpHeightSixteenths = heightSixteenths;
    name.copy(entry.cpName, std::size(entry.cpName));
    return entry;
}

inline void StorePapers(platform::PrinterStore& store, const platform::Bytes& bytes, DWORD length,
                        const std::u16string& printer = OfficePrinter)
{
    StoreSized(store, printer, u"CustomPaperData", bytes, length);
}
inline platform::Bytes PaperBytes(const std::vector<CustomPaperEntry>& entries) { return RowBytes(entries); }
inline void StorePapers(platform::PrinterStore& store, const std::vector<CustomPaperEntry>& entries,
                        const std::u16string& printer = OfficePrinter)
{
    StorePapers(store, PaperBytes(entries), static_cast<DWORD>(entries.size() * sizeof entries[0]), printer);
}

// What is stored, as many whole records as its size says.
inline std::vector<CustomPaperEntry> PapersOf(platform::PrinterStore& store,
                                              const std::u16string& printer = OfficePrinter)
{
    platform::Bytes bytes = StoredBytes(store, printer, u"CustomPaperData");
    bytes.resize(StoredSize(store, printer, u"CustomPaperData"));
    return RowsIn<CustomPaperEntry>(bytes);
}

}  // namespace testing_support
