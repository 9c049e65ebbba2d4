#include "watermark/watermark_values.h"

#include <gtest/gtest.h>

#include <cstring>

#include "module.h"
#include "platform/kernel/memory.h"
#include "spooler/printer_data.h"
#include "tests/support/machine.h"
#include "watermark/placement.h"
#include "watermark/watermark_lines.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;

platform::Bytes Value(std::u16string_view text, std::size_t bytes = 3000)
{
    platform::Bytes value(bytes);
    std::memcpy(value.data(), text.data(), std::min(bytes, text.size() * 2));
    return value;
}

class StoredWatermarks : public testing::Test {
  protected:
    StoredWatermarks()
    {
        if (!ModuleHandle) DllInitialize(LoadLibraryW(QD_MODULE_PATH), DLL_PROCESS_ATTACH, nullptr);
        lstrcpyW(PrinterName, OfficePrinter);
        DiagonalAngle = 53;
        WatermarkSlots.fill(0);
    }
    ~StoredWatermarks() override
    {
        FreeWatermarkList();
        WatermarkCurrent = nullptr;
        EXPECT_EQ(platform::memory::BlockCount(), blocks);
    }
    void Store(std::u16string_view texts, std::u16string_view names, std::u16string_view attributes)
    {
        machine.store->SetValue(OfficePrinter, u"WatermarkText", {3, Value(texts)});
        machine.store->SetValue(OfficePrinter, u"WatermarkTextName", {3, Value(names)});
        machine.store->SetValue(OfficePrinter, u"WatermarkAttributes", {3, Value(attributes)});
    }
    std::u16string Stored(const char16_t* name)
    {
        const platform::Bytes bytes = machine.store->Value(OfficePrinter, name)->bytes;
        EXPECT_EQ(bytes.size(), 3000u);
        std::u16string text(bytes.size() / 2, u'\0');
        std::memcpy(text.data(), bytes.data(), bytes.size());
        return text.substr(0, text.find(u'\0'));
    }
    static std::vector<std::u16string> Names()
    {
        std::vector<std::u16string> names;
        for (int i = 0; const WatermarkRecord* row = WatermarkRowAt(i); ++i) names.emplace_back(row->wmName);
        return names;
    }
    // A list in memory as the dialog makes it.
    static void Make(const std::vector<std::pair<std::u16string, std::u16string>>& rows)
    {
        BuildWatermarkList();
        while (WatermarkRowAt(1)) RemoveWatermarkRow(1);
        WatermarkCount = 0;
        for (const auto& [name, text] : rows) {
            WatermarkRecord row = *WatermarkRowAt(0);
            row.wmId = static_cast<SHORT>(++WatermarkCount);
            row.wmRemovable = 1;
            CopyToField(row.wmName, 73, name);
            CopyToField(row.wmText, 73, text);
            ASSERT_EQ(AddWatermarkRow(row), 1);
        }
    }

    std::size_t blocks = platform::memory::BlockCount();
    Machine machine;
};

TEST_F(StoredWatermarks, APrinterWithoutAListHasTheReadyMadeRows)
{
    ASSERT_EQ(BuildWatermarkList(), 1);
    EXPECT_EQ(ReadStoredWatermarks(), 1);
    EXPECT_EQ(Names(), (std::vector<std::u16string>{u"<NONE>", u"CONFIDENTIAL", u"TOP SECRET", u"COPY", u"DO NOT COPY",
                                                    u"DRAFT", u"FINAL", u"PROOF"}));
    EXPECT_EQ(WatermarkRowAt(0)->wmRemovable, 0);
    EXPECT_EQ(WatermarkRowAt(0)->wmText[0], 0);
    EXPECT_EQ(WatermarkRowAt(5)->wmRemovable, 1);
    EXPECT_EQ(std::u16string(WatermarkRowAt(5)->wmText), u"DRAFT");
    EXPECT_EQ(WatermarkRowAt(5)->wmAngle, 53);
    EXPECT_EQ(WatermarkSlots[7], 1);
    EXPECT_EQ(std::u16string(WatermarkNames[7]), u"PROOF");

    FreeWatermarkList();
    Machine::Fail("OpenPrinterW");
    ASSERT_EQ(BuildWatermarkList(), 1);
    EXPECT_EQ(Names(), std::vector<std::u16string>{u"<NONE>"}) << "a printer that cannot be asked";
}

struct AttributeRow {
    const char16_t* line;
    SHORT shading, size, mode, y, x;
    LONG italic, bold;
    SHORT angleMode, angle;
    const char16_t* face;
};

TEST_F(StoredWatermarks, AFieldOutsideItsRangeTakesItsSubstitute)
{
    const AttributeRow Rows[] = {
        {u"1|20|72|0|0|0|0|2|7|Times New Roman",    20,  72,  0, 0,    0,   0, 0, 2, 53,   u"Times New Roman"},
        {u"0|5|8|1|-100|100|2|0|-180|A | B",        5,   8,   1, -100, 100, 0, 1, 0, -180, u"A | B"          },
        {u"7|4|7|2|-101|101|4|4|181|x",             20,  72,  0, 0,    0,   0, 0, 2, 53,   u"x"              },
        {u"1|100|200|1|-37|0|3|3|180|",             100, 200, 1, -37,  0,   1, 1, 3, 180,  u""               },
        {u"1|101|201|1|0|0|1|1|-181|y",             20,  72,  1, 0,    0,   1, 0, 1, 45,   u"y"              },
        {u"",                                       20,  72,  0, 0,    0,   0, 0, 2, 53,   u""               },
        {u"1|9999999999999|+9|1e1| 5|--5|||0x10|z", 20,  72,  0, 0,    0,   0, 0, 2, 53,   u"z"              },
    };
    for (const AttributeRow& expected : Rows) {
        WatermarkRecord row{};
        ReadAttributes(expected.line, row);
        const std::string line = testing::PrintToString(std::u16string(expected.line));
        EXPECT_EQ(row.wmShading, expected.shading) << line;
        EXPECT_EQ(row.wmSize, expected.size) << line;
        EXPECT_EQ(row.wmSizeLow, expected.size) << line;
        EXPECT_EQ(row.wmPositionMode, expected.mode) << line;
        EXPECT_EQ(row.wmPositionY, expected.y) << line;
        EXPECT_EQ(row.wmPositionX, expected.x) << line;
        EXPECT_EQ(row.wmItalic, expected.italic) << line;
        EXPECT_EQ(row.wmBold, expected.bold) << line;
        EXPECT_EQ(row.wmAngleMode, expected.angleMode) << line;
        EXPECT_EQ(row.wmAngle, expected.angle) << line;
        EXPECT_EQ(std::u16string(row.wmFaceName), expected.face) << line;
    }
}

TEST_F(StoredWatermarks, SavesTheListToTheByte)
{
    Make({
        {u"Mine",  u"SECRET"},
        {u"Blank", u""      }
    });
    ASSERT_EQ(SaveWatermarks(), 1);
    EXPECT_EQ(Stored(u"WatermarkText"), u"2\r\nSECRET\r\n\r\n");
    EXPECT_EQ(Stored(u"WatermarkTextName"), u"2\r\nMine\r\nBlank\r\n");
    EXPECT_EQ(Stored(u"WatermarkAttributes"),
              u"1|20|72|0|0|0|0|2|53|Times New Roman\r\n1|20|72|0|0|0|0|2|53|Times New Roman\r\n");
    FreeWatermarkList();
    BuildWatermarkList();
    EXPECT_EQ(ReadStoredWatermarks(), 1);
    EXPECT_EQ(Names(), (std::vector<std::u16string>{u"<NONE>", u"Mine", u"Blank"}));
    EXPECT_EQ(WatermarkRowAt(2)->wmId, 2);
}

TEST_F(StoredWatermarks, RowsThatDoNotFitAreLeftOutWholeAndCounted)
{
    std::vector<std::pair<std::u16string, std::u16string>> rows;
    for (char16_t c = u'a'; c < u'a' + 26; ++c) rows.emplace_back(std::u16string(72, c), std::u16string(72, c));
    Make(rows);
    ASSERT_EQ(SaveWatermarks(), 1);
    // A count line of 4 characters and 20 lines of 74 make 1484 of the 1499 characters.
    EXPECT_EQ(WatermarksLeftOut, 6);
    EXPECT_EQ(Stored(u"WatermarkText").substr(0, 4), u"20\r\n");
    EXPECT_EQ(Stored(u"WatermarkTextName").size(), 1484u);
    FreeWatermarkList();
    BuildWatermarkList();
    ReadStoredWatermarks();
    EXPECT_EQ(Names().size(), 21u);
}

TEST_F(StoredWatermarks, AValueKeepsRoomForItsTerminator)
{
    for (const int leftOut : {0, 1}) {
        const std::size_t lastText = leftOut ? 14 : 13;
        FreeWatermarkList();
        std::vector<std::pair<std::u16string, std::u16string>> rows;
        for (char16_t c = u'a'; c < u'a' + 20; ++c) rows.emplace_back(std::u16string(1, c), std::u16string(72, c));
        rows.emplace_back(u"last", std::u16string(lastText, u'z'));
        Make(rows);
        ASSERT_EQ(SaveWatermarks(), 1);
        EXPECT_EQ(WatermarksLeftOut, leftOut);
        EXPECT_EQ(Stored(u"WatermarkText").size(), leftOut ? 1484u : 1499u);
        FreeWatermarkList();
        BuildWatermarkList();
        ReadStoredWatermarks();
        EXPECT_EQ(Names().size(), leftOut ? 21u : 22u);
        EXPECT_EQ(std::u16string(WatermarkRowAt(20)->wmText), std::u16string(72, u't'));
    }
}

TEST_F(StoredWatermarks, LongFacesFillTheAttributesFirst)
{
    std::vector<std::pair<std::u16string, std::u16string>> rows;
    for (char16_t c = u'A'; c < u'A' + 30; ++c) rows.emplace_back(std::u16string(1, c), u"x");
    Make(rows);
    for (int i = 1; i <= 30; ++i) CopyToField(WatermarkRowAt(i)->wmFaceName, 32, std::u16string(31, u'F'));
    ASSERT_EQ(SaveWatermarks(), 1);
    // Lines of 54 characters each.
    EXPECT_EQ(WatermarksLeftOut, 3);
    EXPECT_EQ(Stored(u"WatermarkAttributes").size(), 27u * 54);
    EXPECT_TRUE(Stored(u"WatermarkText").starts_with(u"27\r\n"));
}

TEST_F(StoredWatermarks, APrinterThatCannotBeWrittenKeepsItsList)
{
    Store(u"0\r\n", u"0\r\n", u"");
    Make({
        {u"Mine", u"x"}
    });
    Machine::Fail("OpenPrinterW");
    EXPECT_EQ(SaveWatermarks(), 1);
    EXPECT_EQ(Stored(u"WatermarkText"), u"0\r\n");
    FreeWatermarkList();
    EXPECT_EQ(SaveWatermarks(), 0);
}

struct HostileRow {
    const char16_t *texts, *names, *attributes;
    std::size_t rows;
};

TEST_F(StoredWatermarks, BrokenListsEndWhereTheyBreak)
{
    const std::u16string full(1500, u'9');
    const HostileRow Rows[] = {
        {u"99999\r\na\r\n",       u"2\r\nx\r\ny\r\n",       u"1|20|72|0|0|0|0|2|53|F\r\n", 2},
        {u"many\r\na\r\n",        u"1\r\nx\r\n",            u"\r\n",                       1},
        {u"-3\r\na\r\n",          u"1\r\nx\r\n",            u"\r\n",                       1},
        {u"2\r\na\r\nb\r\n",      u"2\r\nsame\r\nsame\r\n", u"\r\n\r\n",                   2},
        {u"1\r\na\r\n",           u"0\r\nx\r\n",            u"\r\n",                       1},
        {u"2",                    u"2",                     u"",                           1},
        {u"3\r\na\r\nb\r\nc\r\n", u"3\r\nx\r\n",            u"\r\n\r\n\r\n",               2},
        {u"3\r\na\r\nb\r\nc\r\n", u"3\r\nx\r\ny\r\nz\r\n",  u"\r\n\r\n",                   3},
        {u"3\r\n",                u"3\r\nx\r\ny\r\nz\r\n",  u"\r\n\r\n\r\n",               1},
        {u"1\na\n",               u"1\nx\n",                u"\n",                         1},
        {u"2\r\na\r\nb\r\n",      u"2\r\n<NONE>\r\ny\r\n",  u"\r\n\r\n",                   2},
        {u"1\r\nno line end",     u"1\r\nx",                u"1",                          2},
        {u"0\r\n",                u"0\r\n",                 u"",                           1},
        {full.c_str(),            full.c_str(),             full.c_str(),                  1},
    };
    for (const HostileRow& row : Rows) {
        FreeWatermarkList();
        WatermarkSlots.fill(0);
        Store(row.texts, row.names, row.attributes);
        BuildWatermarkList();
        ReadStoredWatermarks();
        EXPECT_EQ(Names().size(), row.rows) << testing::PrintToString(std::u16string(row.texts));
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(WatermarkSlots, 1)), row.rows);
    }
}

TEST_F(StoredWatermarks, TheJobsRowTakesWhatIsStoredNow)
{
    Store(u"3\r\none\r\ntwo\r\nthree\r\n", u"3\r\n1\r\n2\r\n3\r\n",
          u"1|30|9|0|0|0|0|0|0|F\r\n1|40|9|0|0|0|0|0|0|F\r\n1|50|9|0|0|0|0|2|0|F\r\n");
    const struct {
        SHORT id;
        int result;
        SHORT idAfter;
        const char16_t* text;
    } rows[] = {
        {1,  1, 1,  u"one"  },
        {3,  1, 3,  u"three"},
        {4,  1, 3,  u"three"},
        {0,  0, 0,  u"old"  },
        {-4, 0, -4, u"old"  },
    };
    for (const auto& row : rows) {
        WatermarkPayload option{};
        option.on = 1;
        option.watermark.wmId = row.id;
        option.watermark.wmFirstPageOnly = 1;
        CopyToField(option.watermark.wmText, 73, u"old");
        EXPECT_EQ(RefreshWatermark(option), row.result) << row.id;
        EXPECT_EQ(option.watermark.wmId, row.idAfter);
        EXPECT_EQ(std::u16string(option.watermark.wmText), row.text);
        EXPECT_EQ(option.watermark.wmFirstPageOnly, 1);
    }
}

TEST_F(StoredWatermarks, ARowOfAnEmptyListStays)
{
    const struct {
        const char16_t *texts, *names;
        int result;
    } rows[] = {
        {u"0\r\n",        u"0\r\n",      1},
        {u"1\r\nnew\r\n", u"0\r\nx\r\n", 1},
        {u"0\r\nnew\r\n", u"1\r\nx\r\n", 0},
        {u"x\r\nnew\r\n", u"1\r\nx\r\n", 0},
    };
    for (const auto& row : rows) {
        Store(row.texts, row.names, u"1|20|72|0|0|0|0|2|53|F\r\n");
        WatermarkPayload option{};
        option.watermark.wmId = 1;
        EXPECT_EQ(RefreshWatermark(option), row.result) << testing::PrintToString(std::u16string(row.texts));
        EXPECT_EQ(option.watermark.wmText[0], 0);
    }
}

TEST_F(StoredWatermarks, ANameIsTakenOnce)
{
    Make({
        {u"Mine", u"x"}
    });
    WatermarkRecord row = *WatermarkRowAt(1);
    EXPECT_EQ(AddWatermarkRow(row), -1);
    row.wmName[0] = u'm';
    row.wmFirstPageOnly = 1;
    EXPECT_EQ(AddWatermarkRow(row), 1);
    EXPECT_EQ(WatermarkRowAt(2)->wmFirstPageOnly, 0);
    EXPECT_EQ(SelectWatermarkRow(3), -1);
    EXPECT_EQ(SelectWatermarkRow(-1), -1);
    EXPECT_EQ(SelectWatermarkRow(2), 1);
    EXPECT_EQ(WatermarkCurrent, WatermarkRowAt(2));
}

}  // namespace
