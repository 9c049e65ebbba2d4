// The watermarks of a printer: what is read from its stored values and written to them, the list in memory, and
// which of them is the job's.
#include "watermark/watermark_values.h"

#include "settings/defaults.h"
#include "tests/support/printer_fixture.h"
#include "tests/support/watermarks.h"
#include "watermark/placement.h"
#include "watermark/watermark_lines.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_load.h"

namespace {

using namespace testing_support;

const StoredWatermark Mine{u"Mine", u"SECRET"}, Blank{u"Blank", u""};

class StoredWatermarks : public PrinterTest {
  protected:
    StoredWatermarks()
    {
        DiagonalAngle = 53;
        BuildDefaultSettings(&record, nullptr, u"", 0);
        CurrentSettings = &record;
    }
    ~StoredWatermarks() override
    {
        WatermarkCurrent = nullptr;
        FreeWatermarkList();
    }
    // The names of the list in memory, or of what is stored.
    static std::string Names()
    {
        std::string names;
        for (int i = 0; const WatermarkRecord* row = WatermarkRowAt(i); ++i)
            names += (i ? "/" : "") + platform::ToUtf8(row->wmName);
        return names;
    }
    static std::string Read()
    {
        FreeWatermarkList();
        WatermarkSlots.fill(0);
        BuildWatermarkList();
        EXPECT_EQ(ReadStoredWatermarks(), 1);
        return Names();
    }
    // Loads for the Setup page; there are no controls to fill.
    static int Load()
    {
        FreeWatermarkList();
        return LoadWatermarks(nullptr, true);
    }
    // A list in memory as the dialog makes it.
    void Make(const std::vector<StoredWatermark>& rows)
    {
        StoreWatermarks(machine, u"0\r\n", u"0\r\n", u"");
        Read();
        WatermarkCount = 0;
        for (const StoredWatermark& stored : rows) {
            WatermarkRecord row{};
            ReadAttributes(stored.attributes, row);
            row.wmId = static_cast<SHORT>(++WatermarkCount);
            CopyToField(row.wmName, 73, stored.name);
            CopyToField(row.wmText, 73, stored.text);
            ASSERT_EQ(AddWatermarkRow(row), 1);
        }
    }

    DriverDevMode record{};
};

TEST_F(StoredWatermarks, APrinterWithoutAListHasTheReadyMadeRows)
{
    EXPECT_EQ(Read(), "<NONE>/CONFIDENTIAL/TOP SECRET/COPY/DO NOT COPY/DRAFT/FINAL/PROOF");
    EXPECT_EQ(WatermarkRowAt(0)->wmRemovable, 0);
    EXPECT_EQ(WatermarkRowAt(0)->wmText[0], 0);
    EXPECT_EQ(platform::ToUtf8(AttributeLine(*WatermarkRowAt(5))), "1|20|72|0|0|0|0|2|53|Times New Roman\r\n");
    EXPECT_EQ(WatermarkSlots[7], 1);
    EXPECT_EQ(platform::ToUtf8(WatermarkNames[7]), "PROOF");
    FreeWatermarkList();
    Machine::Fail("OpenPrinterW");
    BuildWatermarkList();
    EXPECT_EQ(Names(), "<NONE>") << "a printer that cannot be asked";
}

TEST_F(StoredWatermarks, AFieldOutsideItsRangeTakesItsSubstitute)
{
    for (const auto& [line, read] : {
             std::pair{"1|20|72|0|0|0|0|2|7|Times New Roman",    "1|20|72|0|0|0|0|2|53|Times New Roman"},
             {"0|5|8|1|-100|100|2|0|-180|A | B",        "0|5|8|1|-100|100|2|0|-180|A | B"     },
             {"7|4|7|2|-101|101|4|4|181|x",             "1|20|72|0|0|0|0|2|53|x"              },
             {"1|100|200|1|-37|0|3|3|180|",             "1|100|200|1|-37|0|3|3|180|"          },
             {"1|101|201|1|0|0|1|1|-181|y",             "1|20|72|1|0|0|1|1|45|y"              },
             {"",                                       "1|20|72|0|0|0|0|2|53|"               },
             {"1|9999999999999|+9|1e1| 5|--5|||0x10|z", "1|20|72|0|0|0|0|2|53|z"              },
    }) {
        WatermarkRecord row{};
        ReadAttributes(platform::ToWide(line), row);
        EXPECT_EQ(platform::ToUtf8(AttributeLine(row)), std::string(read) + "\r\n") << line;
        EXPECT_EQ(row.wmSizeLow, row.wmSize);
    }
}

TEST_F(StoredWatermarks, SavesTheListToTheByte)
{
    Make({Mine, Blank});
    ASSERT_EQ(SaveWatermarks(), 1);
    EXPECT_EQ(StoredLines(machine, u"WatermarkText"), "2/SECRET//");
    EXPECT_EQ(StoredLines(machine, u"WatermarkTextName"), "2/Mine/Blank/");
    EXPECT_EQ(StoredLines(machine, u"WatermarkAttributes"),
              "1|20|72|0|0|0|0|2|53|Times New Roman/1|20|72|0|0|0|0|2|53|Times New Roman/");
    EXPECT_EQ(Read(), "<NONE>/Mine/Blank");
    EXPECT_EQ(WatermarkRowAt(2)->wmId, 2);
    Make({});
    Machine::Fail("OpenPrinterW");
    EXPECT_EQ(SaveWatermarks(), 1) << "the printer cannot be written";
    EXPECT_EQ(StoredLines(machine, u"WatermarkText"), "0/");
    FreeWatermarkList();
    EXPECT_EQ(SaveWatermarks(), 0);
}

// A value has room for 1,499 characters and its terminator; each line ends with two.
TEST_F(StoredWatermarks, RowsThatDoNotFitAreLeftOutWholeAndCounted)
{
    struct Row {
        std::size_t rows, name, text, lastText, face;
        int leftOut;
        std::size_t texts, attributes;  // characters, where a line end counts one
    };
    for (const Row& row : {
             Row{26, 72, 72, 72, 1,  6, 3 + 20 * 73,      20 * 23},
             {21, 1,  72, 13, 1,  0, 3 + 20 * 73 + 14, 21 * 23},
             {21, 1,  72, 14, 1,  1, 3 + 20 * 73,      20 * 23},
             {30, 1,  1,  1,  31, 3, 3 + 27 * 2,       27 * 53},
    }) {
        std::vector<StoredWatermark> rows;
        for (char16_t c = u'A'; rows.size() < row.rows; ++c)
            rows.push_back({c + std::u16string(row.name - 1, u'n'), std::u16string(row.text, u't'),
                            u"1|20|72|0|0|0|0|2|0|" + std::u16string(row.face, u'F')});
        rows.back().text.resize(row.lastText);
        Make(rows);
        EXPECT_EQ(CountWatermarksWithoutRoom(), row.leftOut);
        ASSERT_EQ(SaveWatermarks(), 1);
        EXPECT_EQ(WatermarksLeftOut, row.leftOut);
        EXPECT_EQ(StoredLines(machine, u"WatermarkText").size(), row.texts);
        EXPECT_EQ(StoredLines(machine, u"WatermarkAttributes").size(), row.attributes);
        const std::string names = Read();
        const auto ends = std::ranges::count(names, '/');
        EXPECT_EQ(static_cast<std::size_t>(ends), row.rows - static_cast<std::size_t>(row.leftOut));
        EXPECT_TRUE(StoredLines(machine, u"WatermarkTextName").starts_with(std::to_string(ends) + "/"));
    }
}

TEST_F(StoredWatermarks, BrokenListsEndWhereTheyBreak)
{
    std::u16string full(1500, u'9'), names = u"\r\n", ends;
    for (char16_t c = u'A'; c < u'A' + 40; ++c) {
        names += std::u16string{c, u'\r', u'\n'};
        ends += u"\r\n";
    }
    const struct {
        std::u16string texts, names, attributes;
        std::size_t rows;
    } Rows[] = {
        {u"99999\r\na\r\n",       u"2\r\nx\r\ny\r\n",       u"1|20|72|0|0|0|0|2|53|F\r\n", 2 },
        {u"999" + names,          u"999" + names,           ends,                          31},
        {u"29" + names,           u"29" + names,            ends,                          30},
        {u"many\r\na\r\n",        u"1\r\nx\r\n",            u"\r\n",                       1 },
        {u"2\r\na\r\nb\r\n",      u"2\r\nsame\r\nsame\r\n", u"\r\n\r\n",                   2 },
        {u"2",                    u"2",                     u"",                           1 },
        {u"3\r\na\r\nb\r\nc\r\n", u"3\r\nx\r\n",            u"\r\n\r\n\r\n",               2 },
        {u"3\r\na\r\nb\r\nc\r\n", u"3\r\nx\r\ny\r\nz\r\n",  u"\r\n\r\n",                   3 },
        {u"1\na\n",               u"1\nx\n",                u"\n",                         1 },
        {u"2\r\na\r\nb\r\n",      u"2\r\n<NONE>\r\ny\r\n",  u"\r\n\r\n",                   2 },
        {u"1\r\nno line end",     u"1\r\nx",                u"1",                          2 },
        {u"0\r\n",                u"0\r\n",                 u"",                           1 },
        {full,                    full,                     full,                          1 },
    };
    for (const auto& row : Rows) {
        StoreWatermarks(machine, row.texts, row.names, row.attributes);
        const std::string read = Read();
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(read, '/')) + 1, row.rows) << platform::ToUtf8(row.texts);
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(WatermarkSlots, 1)), row.rows);
    }
}

TEST_F(StoredWatermarks, ANameIsTakenOnce)
{
    Make({Mine});
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

TEST_F(StoredWatermarks, TheJobsRowTakesWhatIsStoredNow)
{
    constexpr const char16_t *Three = u"3\r\none\r\ntwo\r\nthree\r\n", *Names = u"3\r\n1\r\n2\r\n3\r\n";
    const struct {
        const char16_t *texts, *names;
        SHORT id;
        int result;
        SHORT idAfter;
        const char* text;
    } rows[] = {
        {Three,           Names,         1,  1, 1,  "one"  },
        {Three,           Names,         3,  1, 3,  "three"},
        {Three,           Names,         4,  1, 3,  "three"},
        {Three,           Names,         0,  0, 0,  "old"  },
        {Three,           Names,         -4, 0, -4, "old"  },
        {u"1\r\nnew\r\n", u"0\r\nx\r\n", 1,  1, 1,  "old"  },
        {u"0\r\nnew\r\n", u"1\r\nx\r\n", 1,  0, 1,  "old"  },
        {u"x\r\nnew\r\n", u"1\r\nx\r\n", 1,  0, 1,  "old"  },
    };
    for (const auto& row : rows) {
        StoreWatermarks(machine, row.texts, row.names, u"\r\n\r\n\r\n");
        WatermarkPayload option{};
        option.on = 1;
        option.watermark.wmId = row.id;
        option.watermark.wmFirstPageOnly = 1;
        CopyToField(option.watermark.wmText, 73, u"old");
        EXPECT_EQ(RefreshWatermark(option), row.result) << row.id;
        EXPECT_EQ(option.watermark.wmId, row.idAfter);
        EXPECT_EQ(platform::ToUtf8(option.watermark.wmText), row.text);
        EXPECT_EQ(option.watermark.wmFirstPageOnly, 1);
    }
}

TEST_F(StoredWatermarks, TheJobsRowIsChosenAndTakesTheDiagonalOfNow)
{
    for (const int id : {8, 5}) {
        SetFields(record, "dmOrientation=2 dmWatermarkOn=5 wmId=" + std::to_string(id));
        ASSERT_EQ(Load(), 1);
        EXPECT_EQ(WatermarkIndex, id == 5 ? 5 : 0) << "there are seven rows";
        EXPECT_EQ(WatermarkOption.on, id == 5 ? 1u : 0u);
    }
    EXPECT_EQ(WatermarkEdit.wmAngle, 37);
    DiagonalAngle = 12;
    LoadWatermarkEdit();
    EXPECT_EQ(WatermarkEdit.wmAngle, 12);
    WatermarkCurrent->wmAngleMode = 3;
    LoadWatermarkEdit();
    EXPECT_EQ(WatermarkEdit.wmAngle, 37);
}

// A list has a head and <NONE> ahead of its rows.
TEST_F(StoredWatermarks, WithoutMemoryRowsAreMissingAndNoReadyMadeOnes)
{
    for (std::uint64_t call = 1; call <= 9; ++call) {
        Machine::Fail("GlobalAlloc", call);
        EXPECT_EQ(Load(), 0) << call;
        platform::CurrentEnvironment().faults.Clear();
    }
    StoreWatermarks(machine, u"3\r\na\r\nb\r\nc\r\n", u"3\r\n0\r\n1\r\n2\r\n", u"\r\n\r\n\r\n");
    Machine::Fail("GlobalAlloc", 4);
    EXPECT_EQ(Load(), 1);
    EXPECT_EQ(Names(), "<NONE>/0/2");
    EXPECT_EQ(platform::ToUtf8(WatermarkNames[2]), "2");
    EXPECT_EQ(WatermarkCount, 2);
}

}  // namespace
