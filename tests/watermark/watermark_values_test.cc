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
    static std::size_t RowsRead()
    {
        const std::string names = Read();
        return static_cast<std::size_t>(std::ranges::count(names, '/')) + 1;
    }
    // Lines that are told with '/' at their ends.
    static std::u16string Ended(const std::string& lines)
    {
        std::u16string text;
        for (const char c : lines)
            text += c == '/' ? std::u16string(u"\r\n") : std::u16string(1, static_cast<WCHAR>(c));
        return text;
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
        StoreWatermarks(machine, std::vector<StoredWatermark>(), OfficePrinter);
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
    constexpr std::pair<const char*, const char*> rows[] = {
        {"1|20|72|0|0|0|0|2|7|Times New Roman",    "1|20|72|0|0|0|0|2|53|Times New Roman"},
        {"0|5|8|1|-100|100|2|0|-180|A | B",        "0|5|8|1|-100|100|2|0|-180|A | B"     },
        {"7|4|7|2|-101|101|4|4|181|x",             "1|20|72|0|0|0|0|2|53|x"              },
        {"1|100|200|1|-37|0|3|3|180|",             "1|100|200|1|-37|0|3|3|180|"          },
        {"1|101|201|1|0|0|1|1|-181|y",             "1|20|72|1|0|0|1|1|45|y"              },
        {"",                                       "1|20|72|0|0|0|0|2|53|"               },
        {"1|9999999999999|+9|1e1| 5|--5|||0x10|z", "1|20|72|0|0|0|0|2|53|z"              },
    };
    for (const auto& [line, read] : rows) {
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
    WatermarkRecord row = *WatermarkRowAt(2);
    EXPECT_EQ(row.wmId, 2);
    EXPECT_EQ(AddWatermarkRow(row), -1) << "a name is taken once";
    row.wmName[0] = u'b';
    row.wmFirstPageOnly = 1;
    EXPECT_EQ(AddWatermarkRow(row), 1);
    EXPECT_EQ(WatermarkRowAt(3)->wmFirstPageOnly, 0);
    EXPECT_EQ(SelectWatermarkRow(4) + SelectWatermarkRow(-1), -2) << "there are no such rows";
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
    // Rows, their names, texts, the last text, faces; rows left out; characters of texts and attributes, where a line
    // end counts one.
    constexpr std::size_t counts[][8] = {
        {26, 72, 72, 72, 1,  6, 3 + 20 * 73,      20 * 23},
        {21, 1,  72, 13, 1,  0, 3 + 20 * 73 + 14, 21 * 23},
        {21, 1,  72, 14, 1,  1, 3 + 20 * 73,      20 * 23},
        {30, 1,  1,  1,  31, 3, 3 + 27 * 2,       27 * 53},
    };
    for (const auto& [count, name, text, lastText, face, leftOut, texts, attributes] : counts) {
        std::vector<StoredWatermark> rows;
        for (char16_t c = u'A'; rows.size() < count; ++c)
            rows.push_back({c + std::u16string(name - 1, u'n'), std::u16string(text, u't'),
                            u"1|20|72|0|0|0|0|2|0|" + std::u16string(face, u'F')});
        rows.back().text.resize(lastText);
        Make(rows);
        EXPECT_EQ(static_cast<std::size_t>(CountWatermarksWithoutRoom()), leftOut);
        ASSERT_EQ(SaveWatermarks(), 1);
        EXPECT_EQ(static_cast<std::size_t>(WatermarksLeftOut), leftOut);
        EXPECT_EQ(StoredLines(machine, u"WatermarkText").size(), texts);
        EXPECT_EQ(StoredLines(machine, u"WatermarkAttributes").size(), attributes);
        EXPECT_TRUE(StoredLines(machine, u"WatermarkTextName").starts_with(std::to_string(count - leftOut) + "/"));
        EXPECT_EQ(RowsRead(), count - leftOut + 1);
    }
}

TEST_F(StoredWatermarks, BrokenListsEndWhereTheyBreak)
{
    std::string full(1500, '9'), many = "/", ends;
    for (char c = 'A'; c < 'A' + 40; ++c) {
        many += std::string{c, '/'};
        ends += "/";
    }
    const std::tuple<std::string, std::string, std::string, std::size_t> rows[] = {
        {"99999/a/",      "2/x/y/",       "1|20|72|0|0|0|0|2|53|F/", 2 },
        {"999" + many,    "999" + many,   ends,                      31},
        {"29" + many,     "29" + many,    ends,                      30},
        {"many/a/",       "1/x/",         "/",                       1 },
        {"2/a/b/",        "2/same/same/", "//",                      2 },
        {"2",             "2",            "",                        1 },
        {"3/a/b/c/",      "3/x/",         "///",                     2 },
        {"3/a/b/c/",      "3/x/y/z/",     "//",                      3 },
        {"1\na\n",        "1\nx\n",       "\n",                      1 },
        {"2/a/b/",        "2/<NONE>/y/",  "//",                      2 },
        {"1/no line end", "1/x",          "1",                       2 },
        {"0/",            "0/",           "",                        1 },
        {full,            full,           full,                      1 },
    };
    for (const auto& [texts, names, attributes, read] : rows) {
        StoreWatermarks(machine, Ended(texts), Ended(names), Ended(attributes));
        EXPECT_EQ(RowsRead(), read) << texts;
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(WatermarkSlots, 1)), read) << texts;
    }
}

TEST_F(StoredWatermarks, TheJobsRowTakesWhatIsStoredNow)
{
    const std::tuple<const char*, const char*, SHORT, int, SHORT, const char*> rows[] = {
        {"3/one/two/three/", "3/1/2/3/", 1,  1, 1,  "one"  }, // texts, names, id; result, id and text after it
        {"3/one/two/three/", "3/1/2/3/", 3,  1, 3,  "three"},
        {"3/one/two/three/", "3/1/2/3/", 4,  1, 3,  "three"},
        {"3/one/two/three/", "3/1/2/3/", 0,  0, 0,  "old"  },
        {"3/one/two/three/", "3/1/2/3/", -4, 0, -4, "old"  },
        {"1/new/",           "0/x/",     1,  1, 1,  "old"  },
        {"0/new/",           "1/x/",     1,  0, 1,  "old"  },
        {"x/new/",           "1/x/",     1,  0, 1,  "old"  },
    };
    for (const auto& [texts, names, id, result, idAfter, text] : rows) {
        StoreWatermarks(machine, Ended(texts), Ended(names), Ended("///"));
        WatermarkPayload option{};
        option.on = 1;
        option.watermark.wmId = id;
        option.watermark.wmFirstPageOnly = 1;
        CopyToField(option.watermark.wmText, 73, u"old");
        EXPECT_EQ(RefreshWatermark(option), result) << id;
        EXPECT_EQ(option.watermark.wmId, idAfter);
        EXPECT_EQ(platform::ToUtf8(option.watermark.wmText), text);
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
    StoreWatermarks(machine, Ended("3/a/b/c/"), Ended("3/0/1/2/"), Ended("///"));
    Machine::Fail("GlobalAlloc", 4);
    EXPECT_EQ(Load(), 1);
    EXPECT_EQ(Names(), "<NONE>/0/2");
    EXPECT_EQ(platform::ToUtf8(WatermarkNames[2]), "2");
    EXPECT_EQ(WatermarkCount, 2);
}

}  // namespace
