// Stored custom sizes for tests.
#pragma once

#include <cstring>
#include <initializer_list>
#include <string_view>

#include "spooler/stored_records.h"
#include "tests/support/machine.h"

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

inline platform::Bytes DwordBytes(DWORD value)
{
    platform::Bytes bytes(4);
    std::memcpy(bytes.data(), &value, 4);
    return bytes;
}

// Puts bytes into the slot as they are, with a length of their own.
inline void StorePapers(Machine& machine, const platform::Bytes& bytes, DWORD length,
                        const std::u16string& printer = OfficePrinter)
{
    machine.store->SetValue(printer, u"CustomPaperDataSize", {4, DwordBytes(length)});
    machine.store->SetValue(printer, u"CustomPaperData", {3, bytes});
}

inline platform::Bytes PaperBytes(const std::vector<CustomPaperEntry>& entries)
{
    platform::Bytes bytes(entries.size() * sizeof(CustomPaperEntry));
    if (!entries.empty()) std::memcpy(bytes.data(), entries.data(), bytes.size());
    return bytes;
}

inline void StorePapers(Machine& machine, const std::vector<CustomPaperEntry>& entries,
                        const std::u16string& printer = OfficePrinter)
{
    const platform::Bytes bytes = PaperBytes(entries);
    StorePapers(machine, bytes, static_cast<DWORD>(bytes.size()), printer);
}

// What is stored, as many whole records as its size says.
inline std::vector<CustomPaperEntry> PapersOf(Machine& machine, const std::u16string& printer = OfficePrinter)
{
    const platform::Bytes size = machine.store->Value(printer, u"CustomPaperDataSize").value().bytes;
    const platform::Bytes bytes = machine.store->Value(printer, u"CustomPaperData").value().bytes;
    DWORD length = 0;
    std::memcpy(&length, size.data(), sizeof length);
    std::vector<CustomPaperEntry> entries(length / sizeof(CustomPaperEntry));
    if (!entries.empty()) std::memcpy(entries.data(), bytes.data(), length);
    return entries;
}

}  // namespace testing_support
