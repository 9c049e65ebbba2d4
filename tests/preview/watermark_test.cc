// The watermark on the pages. With the built-in fonts DRAFT at 72 points is 750 by 337 dots: 5 characters of half
// the height of 300, and 9 / 8 of that height.
#include "preview/preview_watermark.h"

#include "preview_rig.h"

namespace preview_test {
namespace {

using testing::HasSubstr;
using testing::SizeIs;

DriverDevMode WithText(DriverDevMode record, std::u16string_view text)
{
    std::ranges::fill(record.dmWatermark.wmText, u'\0');
    text.copy(record.dmWatermark.wmText, std::size(record.dmWatermark.wmText));
    return record;
}

// The first page's one mark, its face left out; none where there is no such.
std::string Mark(const DriverDevMode& record)
{
    for (std::string line : Preview().Draw(record, {"text", "line"})) {
        if (std::isdigit(line[line.find('"') + 1])) continue;  // the number of a page
        if (const std::size_t face = line.find("Times New Roman "); face != line.npos) line.erase(face, 16);
        return line;
    }
    return "none";
}
std::string Mark(const std::string& fields) { return Mark(Marked(fields)); }

TEST(IntegerHypot, ReckonsInIntegerSteps)
{
    constexpr LONG Rows[][3] = {
        {0,    -7,  7   },
        {7,    0,   7   },
        {-5,   12,  13  },
        {30,   -40, 50  },
        {1000, 1,   1001},
        {100,  100, 142 },
    };
    for (const auto& [a, b, length] : Rows) EXPECT_EQ(IntegerHypot(a, b), length) << a << ' ' << b;
}

// The middle of the text is (1150, 1700) from the margins: 11 * 100 and 17 * 100 steps.
TEST(Watermark, IsTurnedShadedAndSizedAsItsFieldsSay)
{
    const std::pair<const char*, const char*> rows[] = {
        {"",                                 "text 775,1600 \"DRAFT\" in 50,50,2409,3436 -300/400 cccccc"            },
        {"wmAngle=90 wmShading=5 wmBold=1",  "text 1000,2125 \"DRAFT\" in 50,50,2409,3436 -300/700 turned 900 f2f2f2"},
        {"wmShading=100 dmTonerSave=1",      "text 775,1600 \"DRAFT\" in 50,50,2409,3436 -300/400 000000"            },
        {"wmAngleMode=2",                    "text 812,1971 \"DRAFT\" in 50,50,2409,3436 -300/400 turned 550 cccccc" },
        {"wmAngleMode=2 dmOrientation=2",    "text 1356,1242 \"DRAFT\" in 50,50,3451,2424 -300/400 turned 350 cccccc"},
        {"wmSize=11",                        "text 1095,1728 \"DRAFT\" in 50,50,2409,3436 -45/400 cccccc"            },
        {"wmSize=40 dmNupOn=1 dmNupCount=4", "text 943,1667 \"DRAFT\" in 50,50,2386,3414 -166/400 cccccc"            },
        {"wmSize=22 dmNupOn=1 dmNupCount=2", "text 1038,1705 \"DRAFT\" in 50,50,2402,3429 -91/400 cccccc"            },
    };
    for (const auto& [fields, mark] : rows) EXPECT_EQ(Mark(fields), mark) << fields;
}

// Where a text cannot be read. The line stays within the margins, what is beyond them is cut off its end.
TEST(Watermark, IsALineAsFarFromTheEdgeAsItsPositionSays)
{
    const std::string sixteen = "wmSize=8 dmNupOn=1 dmNupCount=16 ";
    const std::pair<std::string, const char*> rows[] = {
        {"wmSize=10",                                   "line 1100,1730,1280,1677 solid46:cccccc" },
        {"wmSize=39 dmNupOn=1 dmNupCount=4",            "line 948,1669,1432,1738 solid92:cccccc"  },
        {sixteen + "wmPositionX=50",                    "line 1649,1734,1729,1587 solid184:cccccc"},
        {sixteen + "wmPositionX=-50",                   "line 571,1734,627,1587 solid184:cccccc"  },
        {sixteen + "wmPositionY=50",                    "line 1110,2567,1178,2336 solid184:cccccc"},
        {sixteen + "wmPositionY=-50",                   "line 1110,901,1178,838 solid184:cccccc"  },
        {sixteen + "wmPositionX=100 wmPositionY=100",   "line 2199,3417,2269,3067 solid184:cccccc"},
        {sixteen + "wmPositionX=-100 wmPositionY=-100", "line 21,51,96,107 solid184:cccccc"       },
    };
    for (const auto& [fields, mark] : rows) EXPECT_EQ(Mark(fields), mark) << fields;
    EXPECT_THAT(Mark("wmSize=1 dmFitToPaper=1 dmZoom=32767"), HasSubstr("DRAFT")) << "a line had no width";
}

TEST(Watermark, IsOnEveryPageOrOnTheFirstOfTheSheet)
{
    EXPECT_THAT(Preview().Draw(Marked("dmNupOn=1 dmNupCount=4"), {"map", "text"}), SizeIs(12));
    const Lines drawn = Preview().Draw(Marked("wmFirstPageOnly=1 dmNupOn=1 dmNupCount=4"), {"map", "text"});
    ASSERT_THAT(drawn, SizeIs(9));
    EXPECT_THAT(drawn[2], HasSubstr("DRAFT"));
}

// 24 characters are 3600 dots as a text of 72 points, longer than the page. Down the left edge 20 are 3000, and the
// room from 250 to 3157 is 2977 with a fifth of what lies before its start; 29 are 4350, and the room from -425 to
// 3832 is 4356.
TEST(Watermark, IsCutToTheRoomAlongThePage)
{
    const std::u16string letters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ012";
    const std::tuple<const char*, std::size_t, const char*> rows[] = {
        {"dmNupOn=1 dmNupCount=16 wmAngle=0",   24, "line -650,1600,2288,1721 solid184:cccccc"           },
        {"dmNupOn=1 dmNupCount=16 wmAngle=-90", 24, "line 1300,-50,988,3321 solid184:cccccc"             },
        {"wmPositionX=-100 wmAngle=-90",        20, "text 211,250 \"ABCDEFGHIJKLMNOPQRS\" in "           },
        {"wmPositionX=-100 wmAngle=-90",        29, "text 211,-425 \"ABCDEFGHIJKLMNOPQRSTUVWXYZ012\" in "},
    };
    for (const auto& [fields, count, mark] : rows)
        EXPECT_THAT(Mark(WithText(Marked(fields), letters.substr(0, count))), testing::StartsWith(mark)) << fields;
}

TEST(Watermark, IsNotThereWithoutTextOrFace)
{
    EXPECT_EQ(Mark(WithText(Marked(), u"")), "none");
    EXPECT_EQ(Mark("dmWatermarkOn=0"), "none");
    DriverDevMode record = Marked();
    record.dmWatermark.wmFaceName[0] = u'?';
    EXPECT_EQ(Mark(record), "none");
}

}  // namespace
}  // namespace preview_test
