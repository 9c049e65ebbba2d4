// Where the sheet, its pages and what binds them lie. The picture is 131 by 154 pixels, as on the pages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "preview/preview_layout.h"
#include "preview_rig.h"

namespace preview_test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

const std::string UprightSheet = "box 11,0,119,154 null ffffff", LyingSheet = "box 0,31,131,123 null ffffff";

// Every size of a grid in both orientations: the sheet, the size of a page, the origins of the first and the
// last page.
struct GridRow {
    int count, orientation;
    const std::string& sheet;
    const char *size, *first, *last;
};
const GridRow GridRows[] = {
    {2,  1, LyingSheet,   "map 2480,-3507 to 64,-90",   "1,32", "65,32" },
    {4,  1, UprightSheet, "map 2480,-3507 to 53,-76",   "12,1", "65,77" },
    {6,  1, LyingSheet,   "map 2480,-3507 to 31,-45",   "7,32", "93,77" },
    {9,  1, UprightSheet, "map 2480,-3507 to 35,-50",   "12,1", "82,101"},
    {16, 1, UprightSheet, "map 2480,-3507 to 26,-38",   "12,1", "90,115"},
    {1,  1, UprightSheet, "map 2480,-3507 to 106,-150", "12,2", "12,2"  },
    {2,  2, UprightSheet, "map 3507,-2480 to 106,-74",  "12,2", "12,78" },
    {4,  2, LyingSheet,   "map 3507,-2480 to 64,-45",   "1,32", "65,77" },
    {6,  2, UprightSheet, "map 3507,-2480 to 53,-38",   "12,7", "65,107"},
    {9,  2, LyingSheet,   "map 3507,-2480 to 43,-30",   "1,32", "87,92" },
    {16, 2, LyingSheet,   "map 3507,-2480 to 32,-22",   "1,32", "97,98" },
 // A count without a grid: one below the other, off the sheet.
    {3,  1, UprightSheet, "map 2480,-3507 to 106,-150", "12,2", "12,306"},
};

TEST(Grid, LaysThePagesOutOnTheSheet)
{
    for (const GridRow& row : GridRows) {
        SCOPED_TRACE(testing::Message() << row.count << "-up, orientation " << row.orientation);
        Preview preview;
        const Lines drawn = preview.Draw(A4("dmNupOn", 1, "dmNupCount", row.count, "dmOrientation", row.orientation),
                                         {"map", "box 11,", "box 0,"});
        ASSERT_EQ(drawn.size(), 1u + static_cast<std::size_t>(row.count));
        EXPECT_EQ(drawn[0], row.sheet);
        EXPECT_EQ(drawn[1], std::string(row.size) + " at " + row.first);
        EXPECT_EQ(drawn.back(), std::string(row.size) + " at " + row.last);
    }
}

// Which page stands in which cell, row by row of the sheet.
struct OrderRow {
    int count, orientation, vertical, descending;
    std::vector<int> cells;
};
const OrderRow OrderRows[] = {
    {4, 1, 0, 0, {1, 2, 3, 4}               },
    {4, 1, 1, 0, {1, 3, 2, 4}               },
    {4, 1, 0, 1, {2, 1, 4, 3}               },
    {4, 1, 1, 1, {3, 1, 4, 2}               },
    {6, 1, 0, 0, {1, 2, 3, 4, 5, 6}         },
    {6, 1, 1, 0, {1, 3, 5, 2, 4, 6}         },
    {6, 1, 0, 1, {3, 2, 1, 6, 5, 4}         },
    {6, 1, 1, 1, {5, 3, 1, 6, 4, 2}         },
    {6, 2, 1, 0, {1, 4, 2, 5, 3, 6}         },
    {6, 2, 0, 1, {2, 1, 4, 3, 6, 5}         },
    {2, 1, 0, 1, {2, 1}                     },
    {2, 2, 1, 1, {1, 2}                     },
    {9, 1, 1, 1, {7, 4, 1, 8, 5, 2, 9, 6, 3}},
};

TEST(Grid, NumbersThePagesInTheirOrder)
{
    for (const OrderRow& row : OrderRows) {
        const DriverDevMode record = A4("dmNupOn", 1, "dmNupCount", row.count, "dmOrientation", row.orientation,
                                        "dmNupVertical", row.vertical, "dmNupDescending", row.descending);
        const PageGrid grid = GridOf(record);
        PageCells cells{};
        cells.cellWidth = cells.cellHeight = 1;
        std::vector<int> found(row.cells.size());
        for (int page = 0; page < row.count; ++page) {
            const POINT at = cells.Origin(grid, page);
            found.at(static_cast<std::size_t>(at.y * grid.columns + at.x)) = page + 1;
        }
        EXPECT_EQ(found, row.cells) << row.count << " " << row.orientation << row.vertical << row.descending;
    }
}

TEST(Grid, TheOrderShowsInTheNumbers)
{
    Preview preview;
    const std::string within = " in 50,50,2386,3414 Times New Roman -1613/400 000000",
                      map = "map 2480,-3507 to 53,-76 at ";
    EXPECT_THAT(
        preview.Draw(A4("dmNupOn", 1, "dmNupCount", 4, "dmNupVertical", 1, "dmNupDescending", 1), {"map", "text"}),
        ElementsAre(map + "65,1", "text 205,50 \"1\"" + within, map + "65,77", "text 205,50 \"2\"" + within,
                    map + "12,1", "text 205,50 \"3\"" + within, map + "12,77", "text 205,50 \"4\"" + within));
}

// The four flaps. A booklet shows one page on its sheet although it is N-up as well.
struct FlapRow {
    int right, orientation;
    const char* flap;
};
const FlapRow FlapRows[] = {
    {0, 1, "polygon [[11,0],[108,-12],[108,0]]"    },
    {0, 2, "polygon [[131,31],[140,115],[131,115]]"},
    {1, 1, "polygon [[119,0],[21,-12],[21,0]]"     },
    {1, 2, "polygon [[0,31],[-9,115],[0,115]]"     },
};

TEST(Booklet, ShowsOnePageAndAFlap)
{
    for (const FlapRow& row : FlapRows) {
        Preview preview;
        const Lines drawn = preview.Draw(A4("dmBookletPaper", 9, "dmDuplexOn", 1, "dmNupOn", 1, "dmNupCount", 2,
                                            "dmBookletRight", row.right, "dmOrientation", row.orientation),
                                         {"box 11,", "box 0,", "line", "polygon", "map", "arc"});
        const bool upright = row.orientation == 1;
        const Lines outline =
            upright ? Lines{"line 11,0,119,0", "line 119,0,119,154", "line 119,154,11,154", "line 11,154,11,0"}
                    : Lines{"line 0,31,131,31", "line 131,31,131,123", "line 131,123,0,123", "line 0,123,0,31"};
        Lines expected = {upright ? UprightSheet : LyingSheet};
        for (const std::string& line : outline) expected.push_back(line + " solid0:000000");
        expected.push_back(std::string(row.flap) + " solid0:000000 ffffff");
        expected.push_back(upright ? "map 2480,-3507 to 106,-150 at 12,2" : "map 3507,-2480 to 127,-90 at 2,32");
        EXPECT_THAT(drawn, ElementsAreArray(expected)) << row.right << row.orientation;
    }
}

TEST(Booklet, HasItsPageInTheMiddleOfItsPaper)
{
    Preview preview;
    EXPECT_THAT(preview.Draw(A4("dmBookletPaper", 5, "dmDuplexOn", 1), {"box 19", "map"}),
                ElementsAre("box 19,0,112,154 null ffffff", "map 2480,-3507 to 91,-128 at 20,13"));
}

TEST(Booklet, WithoutDuplexIsMarkedByNothing)
{
    Preview preview;
    EXPECT_THAT(preview.Draw(A4("dmBookletPaper", 9, "dmNupOn", 1, "dmNupCount", 2),
                             {"box 11", "line", "polygon", "arc", "map"}),
                // The sheet of a booklet is not turned; its pages are beside each other all the same.
                ElementsAre(UprightSheet, "map 2480,-3507 to 53,-74 at 12,40", "map 2480,-3507 to 53,-74 at 65,40"));
}

struct RingRow {
    int binding, orientation, count;
    const char *first, *last;
    std::size_t rings;
};
const RingRow RingRows[] = {
    {3, 1, 0, "18,-7,28,7 from 28,0 to 23,7",   "99,-7,109,7 from 109,0 to 104,7",     10},
    {3, 2, 0, "-7,38,7,48 from 0,38 to 7,48",   "-7,110,7,120 from 0,110 to 7,120",    9 },
    {1, 1, 0, "4,7,18,17 from 11,7 to 18,17",   "4,133,18,143 from 11,133 to 18,143",  15},
    {1, 2, 0, "7,24,17,38 from 17,31 to 12,38", "115,24,125,38 from 125,31 to 120,38", 13},
    {0, 1, 0, "4,7,18,17 from 11,7 to 18,17",   "4,133,18,143 from 11,133 to 18,143",  15},
 // Turned sheets.
    {3, 1, 2, "-7,38,7,48 from 0,38 to 7,48",   "-7,110,7,120 from 0,110 to 7,120",    9 },
    {3, 2, 6, "18,-7,28,7 from 28,0 to 23,7",   "99,-7,109,7 from 109,0 to 104,7",     10},
    {1, 1, 6, "7,24,17,38 from 17,31 to 12,38", "115,24,125,38 from 125,31 to 120,38", 13},
    {1, 2, 2, "4,7,18,17 from 11,7 to 18,17",   "4,133,18,143 from 11,133 to 18,143",  15},
 // N-up that turns nothing.
    {3, 1, 4, "18,-7,28,7 from 28,0 to 23,7",   "99,-7,109,7 from 109,0 to 104,7",     10},
};

TEST(Rings, RunAlongTheBoundEdge)
{
    for (const RingRow& row : RingRows) {
        Preview preview;
        const Lines drawn = preview.Draw(A4("dmDuplexOn", 1, "dmDuplexBinding", row.binding, "dmOrientation",
                                            row.orientation, "dmNupOn", row.count > 0 ? 1 : 0, "dmNupCount", row.count),
                                         {"arc"});
        ASSERT_EQ(drawn.size(), row.rings) << row.binding << row.orientation << row.count;
        EXPECT_EQ(drawn.front(), std::string("arc ") + row.first + " solid2:000000");
        EXPECT_EQ(drawn.back(), std::string("arc ") + row.last + " solid2:000000");
    }
}

TEST(FitToPaper, ShowsTheDocumentBehindTheSheet)
{
    Preview preview;
    EXPECT_THAT(preview.Draw(A4("dmFitToPaper", 2, "dmOutputPaper", 11), {"box 11", "line", "map"}),
                ElementsAre("box 11,0,131,77 null 404040", "line 129,75,119,154 dot1:404040", UprightSheet,
                            "map 2480,-3507 to 106,-150 at 12,1"));
    EXPECT_THAT(preview.Draw(A4("dmFitToPaper", 2, "dmOutputPaper", 11, "dmOrientation", 2), {"box 0", "line", "map"}),
                ElementsAre("box 0,31,65,154 null 404040", "line 63,152,131,123 dot1:404040", LyingSheet,
                            "map 3507,-2480 to 127,-90 at 1,32"));
}

// The aspect of the sheet is the output paper's: a page of Letter in the corner of a Legal sheet.
TEST(FitToPaper, LeavesThePageInTheCornerOfItsSheet)
{
    Preview preview;
    EXPECT_THAT(preview.Draw(A4("dmFitToPaper", 2, "dmPaperSize", 1, "dmOutputPaper", 5), {"box 19", "map"}),
                ElementsAre("box 19,0,131,77 null 404040", "box 19,0,112,154 null ffffff",
                            "map 2550,-3300 to 91,-118 at 20,1"));
}

}  // namespace
}  // namespace preview_test
