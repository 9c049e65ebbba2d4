// The lists that a printer keeps, told by the names of their rows once they are found whole: a store that some save
// has left half written, or with a row that none of the dialogs makes, is a failure of the test.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/support/custom_papers.h"
#include "tests/support/overlays.h"
#include "tests/support/stored_bytes.h"
#include "tests/support/watermark_sheet.h"

namespace testing_support {

using RowNames = std::vector<std::u16string>;

inline void ExpectNamesOnce(const RowNames& names)
{
    EXPECT_EQ(std::set<std::u16string>(names.begin(), names.end()).size(), names.size());
    for (const std::u16string& name : names) EXPECT_FALSE(name.empty());
}

// Rows of one size behind a head. Where the two values may be of different saves, each of them is whole by itself.
template <class Row>
std::vector<Row> StoredRows(Machine& machine, const char16_t* sizeName, const char16_t* name, std::size_t head,
                            bool mayDiffer)
{
    const auto size = machine.store->Value(TestPrinter, sizeName), list = machine.store->Value(TestPrinter, name);
    if (!size || !list || size->bytes.size() != 4) {
        ADD_FAILURE() << "a value is missing";
        return {};
    }
    const DWORD length = RowsIn<DWORD>(size->bytes)[0];
    for (const std::size_t bytes : {std::size_t{length}, list->bytes.size()}) {
        EXPECT_TRUE(bytes == 0 || (bytes >= head && (bytes - head) % sizeof(Row) == 0)) << bytes;
    }
    EXPECT_TRUE(mayDiffer || length == list->bytes.size());
    return RowsIn<Row>(list->bytes, head);
}

inline RowNames PaperNames(Machine& machine, bool mayDiffer, bool mayRepeat)
{
    RowNames names;
    SHORT code = 257;
    for (const auto& row :
         StoredRows<CustomPaperEntry>(machine, u"CustomPaperDataSize", u"CustomPaperData", 0, mayDiffer)) {
        EXPECT_EQ(row.cpCode, code++);
        EXPECT_TRUE(row.cpUnit == 0 || row.cpUnit == 1);
        EXPECT_GT(std::min(row.cpWidth, row.cpHeight), 0);
        EXPECT_EQ(row.cpName[20], 0);
        names.emplace_back(row.cpName);
    }
    if (!mayRepeat) ExpectNamesOnce(names);
    return names;
}

inline RowNames OverlayNames(Machine& machine, bool mayDiffer)
{
    RowNames names;
    for (const auto& row : StoredRows<OverlayEntry>(machine, u"OverlayDataSize", u"OverlayData", 4, mayDiffer)) {
        EXPECT_LE(row.ovPending, 1u);
        EXPECT_EQ(row.ovName[261], 0);
        EXPECT_EQ(row.ovPath[261], 0);
        EXPECT_NE(row.ovPath[0], 0);
        names.emplace_back(row.ovName);
    }
    for (const std::u16string& name : names) EXPECT_FALSE(name.empty());
    return names;
}

// The lines of a value of 3000 bytes, each with its end.
inline RowNames LinesOf(Machine& machine, const char16_t* name)
{
    RowNames lines;
    const auto value = machine.store->Value(TestPrinter, name);
    if (!value || value->bytes.size() != 3000) {
        ADD_FAILURE() << "a value is missing or of another size";
        return {};
    }
    const auto stored = RowsIn<char16_t>(value->bytes);
    std::u16string text(stored.begin(), stored.end());
    EXPECT_EQ(text[1499], 0);
    text.resize(text.find(u'\0'));
    for (std::size_t end; (end = text.find(u"\r\n")) != text.npos; text.erase(0, end + 2))
        lines.push_back(text.substr(0, end));
    EXPECT_TRUE(text.empty());
    return lines;
}

inline RowNames WatermarkNamesStored(Machine& machine, bool mayDiffer)
{
    RowNames texts = LinesOf(machine, u"WatermarkText"), names = LinesOf(machine, u"WatermarkTextName");
    const RowNames attributes = LinesOf(machine, u"WatermarkAttributes");
    for (const std::u16string& line : attributes) EXPECT_EQ(std::count(line.begin(), line.end(), u'|'), 9);
    for (RowNames* lines : {&texts, &names}) {
        if (lines->empty()) {
            ADD_FAILURE() << "no count";
            continue;
        }
        const std::string count = std::to_string(lines->size() - 1);
        EXPECT_EQ(lines->front(), std::u16string(count.begin(), count.end()));
        lines->erase(lines->begin());
    }
    if (!mayDiffer) {
        EXPECT_EQ(names.size(), texts.size());
        EXPECT_EQ(names.size(), attributes.size());
    }
    ExpectNamesOnce(names);
    return names;
}

}  // namespace testing_support
