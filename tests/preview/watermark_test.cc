// The watermark on the pages. With the built-in fonts DRAFT at 72 points is 750 by 337 dots: 5 characters of half
// the height of 300, and 9 / 8 of that height.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "preview/preview_watermark.h"
#include "preview_rig.h"

namespace preview_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

// All texts and lines but the numbers of the pages.
Lines Marks(const DriverDevMode& record)
{
    Lines drawn = Preview().Draw(record, {"text", "line"});
    std::erase_if(drawn, [](const std::string& line) {
        return line.starts_with("text 205,50 ") || line.starts_with("text 251,93 ");
    });
    return drawn;
}

DriverDevMode WithText(DriverDevMode record, std::u16string_view text)
{
    std::fill(std::begin(record.dmWatermark.wmText), std::end(record.dmWatermark.wmText), u'\0');
    text.copy(record.dmWatermark.wmText, std::size(record.dmWatermark.wmText));
    return record;
}

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
TEST(Watermark, StandsInTheMiddleInItsOwnShade)
{
    EXPECT_THAT(Marks(Marked()),
                ElementsAre("text 775,1600 \"DRAFT\" in 50,50,2409,3436 Times New Roman -300/400 cccccc"));
}

TEST(Watermark, IsTurnedAndShaded)
{
    EXPECT_THAT(Marks(Marked("wmAngle=90 wmShading=5 wmBold=1")),
                ElementsAre("text 1000,2125 \"DRAFT\" in 50,50,2409,3436 Times New Roman -300/700 turned 900 f2f2f2"));
    EXPECT_THAT(Marks(Marked("wmShading=100 dmTonerSave=1")), ElementsAre(HasSubstr(" 000000")));
}

TEST(Watermark, OfTheDiagonalFollowsThePage)
{
    EXPECT_THAT(Marks(Marked("wmAngleMode=2")), ElementsAre(HasSubstr("text 812,1971 \"DRAFT\" in 50,50,2409,3436 "
                                                                      "Times New Roman -300/400 turned 550 ")));
    Preview preview;
    EXPECT_THAT(preview.Draw(Marked("wmAngleMode=2 dmOrientation=2"), {"text 1356"}),
                ElementsAre("text 1356,1242 \"DRAFT\" in 50,50,3451,2424 Times New Roman -300/400 turned 350 cccccc"));
}

TEST(Watermark, IsOnEveryPageOrOnTheFirstOfTheSheet)
{
    const std::string mark = "text 775,1600 \"DRAFT\" in 50,50,2386,3414 Times New Roman -300/400 cccccc";
    EXPECT_THAT(Marks(Marked("dmNupOn=1 dmNupCount=4")), ElementsAre(mark, mark, mark, mark));
    EXPECT_THAT(Marks(Marked("wmFirstPageOnly=1 dmNupOn=1 dmNupCount=4")), ElementsAre(mark));

    Preview preview;
    const Lines drawn = preview.Draw(Marked("wmFirstPageOnly=1 dmNupOn=1 dmNupCount=4"), {"map", "text"});
    ASSERT_THAT(drawn, SizeIs(9));
    EXPECT_EQ(drawn[2], mark);
}

// Two pixels of height can be read; four with many pages on a sheet. Below that a line stands for the text.
TEST(Watermark, IsALineWhereItsTextCannotBeRead)
{
    for (const auto& [fields, mark] : {
             std::pair{"wmSize=10",                        "line 1100,1730,1280,1677 solid46:cccccc"                                   },
             {"wmSize=11",                        "text 1095,1728 \"DRAFT\" in 50,50,2409,3436 Times New Roman -45/400 cccccc"},
             {"wmSize=39 dmNupOn=1 dmNupCount=4", "line 948,1669,1432,1738 solid92:cccccc"                                    },
             {"wmSize=40 dmNupOn=1 dmNupCount=4",
                       "text 943,1667 \"DRAFT\" in 50,50,2386,3414 Times New Roman -166/400 cccccc"                                    },
             {"wmSize=22 dmNupOn=1 dmNupCount=2",
                       "text 1038,1705 \"DRAFT\" in 50,50,2402,3429 Times New Roman -91/400 cccccc"                                    },
    })
        EXPECT_THAT(Marks(Marked(std::string("wmFirstPageOnly=1 ") + fields)), ElementsAre(mark)) << fields;
}

// Where the line ends, by the position; it stays within the margins, what is beyond them is cut off its end.
TEST(Watermark, EndsAsFarFromTheEdgeAsItsPositionSays)
{
    const std::string line = "wmSize=8 wmFirstPageOnly=1 dmNupOn=1 dmNupCount=16 ";
    for (const auto& [fields, ends] : {
             std::pair{"wmPositionX=50",                    "line 1649,1734,1729,1587"},
             {"wmPositionX=-50",                   "line 571,1734,627,1587"  },
             {"wmPositionY=50",                    "line 1110,2567,1178,2336"},
             {"wmPositionY=-50",                   "line 1110,901,1178,838"  },
             {"wmPositionX=100 wmPositionY=100",   "line 2199,3417,2269,3067"},
             {"wmPositionX=-100 wmPositionY=-100", "line 21,51,96,107"       },
    })
        EXPECT_THAT(Marks(Marked(line + fields)), ElementsAre(ends + std::string(" solid184:cccccc"))) << fields;
}

// 24 characters are 3600 dots, longer than the page.
TEST(Watermark, EndsWithinTheMargins)
{
    for (const auto& [angle, line] : {std::pair("wmAngle=0", "line -650,1600,2288,1721 solid184:cccccc"),
                                      std::pair("wmAngle=-90", "line 1300,-50,988,3321 solid184:cccccc")})
        EXPECT_THAT(Marks(WithText(Marked(std::string("wmFirstPageOnly=1 dmNupOn=1 dmNupCount=16 ") + angle),
                                   u"ABCDEFGHIJKLMNOPQRSTUVWX")),
                    ElementsAre(line));
}

// Scaled up so far that a line has no width, the text is drawn however small it is.
TEST(Watermark, IsATextWhereALineHadNoWidth)
{
    EXPECT_THAT(Marks(Marked("wmSize=1 dmFitToPaper=1 dmZoom=32767")), ElementsAre(HasSubstr(" \"DRAFT\" ")));
}

// Down the left edge: 20 characters of 150 dots are 3000, and the room from 250 to 3157 is 2977 with a fifth of
// what lies before its start. 29 characters are 4350, and the room from -425 to 3832 is 4356.
TEST(Watermark, IsCutToTheRoomAlongThePage)
{
    const DriverDevMode record = Marked("wmPositionX=-100 wmAngle=-90");
    EXPECT_THAT(Marks(WithText(record, u"ABCDEFGHIJKLMNOPQRST")),
                ElementsAre(HasSubstr("text 211,250 \"ABCDEFGHIJKLMNOPQRS\" in ")));
    EXPECT_THAT(Marks(WithText(record, u"ABCDEFGHIJKLMNOPQRSTUVWXYZ012")),
                ElementsAre(HasSubstr("text 211,-425 \"ABCDEFGHIJKLMNOPQRSTUVWXYZ012\" in ")));
}

TEST(Watermark, IsNotThereWithoutTextOrFace)
{
    EXPECT_THAT(Marks(WithText(Marked(), u"")), IsEmpty());
    DriverDevMode record = Marked();
    record.dmWatermarkOn = 0;
    EXPECT_THAT(Marks(record), IsEmpty());
    record = Marked();
    record.dmWatermark.wmFaceName[0] = u'?';
    EXPECT_THAT(Marks(record), IsEmpty());
}

TEST(Watermark, IsFittedOnceAPainting)
{
    Preview preview;
    preview.Draw(Marked("dmNupOn=1 dmNupCount=16"));
    // Once to place it, once to fit it.
    EXPECT_EQ(preview.Calls("GetTextExtentPointW"), 2);
}

}  // namespace
}  // namespace preview_test
