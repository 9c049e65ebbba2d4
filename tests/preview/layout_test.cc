// Where the sheet, its pages and what binds them lie. The picture is 131 by 154 pixels, as on the pages.
#include "preview_rig.h"

namespace preview_test {
namespace {

using testing::ElementsAre;

const std::string UprightSheet = "box 11,0,119,154 null ffffff", LyingSheet = "box 0,31,131,123 null ffffff";

// Every size of a grid in both orientations: the sheet, the size of a page, the origins of the first and the
// last page.
const std::tuple<std::string, std::size_t, std::string, std::string, const char*, const char*> GridRows[] = {
    {"dmNupCount=2",                   2,  LyingSheet,   "map 2480,-3507 to 64,-90",   "1,32", "65,32" },
    {"dmNupCount=4",                   4,  UprightSheet, "map 2480,-3507 to 53,-76",   "12,1", "65,77" },
    {"dmNupCount=6",                   6,  LyingSheet,   "map 2480,-3507 to 31,-45",   "7,32", "93,77" },
    {"dmNupCount=9",                   9,  UprightSheet, "map 2480,-3507 to 35,-50",   "12,1", "82,101"},
    {"dmNupCount=16",                  16, UprightSheet, "map 2480,-3507 to 26,-38",   "12,1", "90,115"},
    {"dmNupCount=1",                   1,  UprightSheet, "map 2480,-3507 to 106,-150", "12,2", "12,2"  },
    {"dmNupCount=2 dmOrientation=2",   2,  UprightSheet, "map 3507,-2480 to 106,-74",  "12,2", "12,78" },
    {"dmNupCount=4 dmOrientation=2",   4,  LyingSheet,   "map 3507,-2480 to 64,-45",   "1,32", "65,77" },
    {"dmNupCount=6 dmOrientation=2",   6,  UprightSheet, "map 3507,-2480 to 53,-38",   "12,7", "65,107"},
    {"dmNupCount=16 dmOrientation=2",  16, LyingSheet,   "map 3507,-2480 to 32,-22",   "1,32", "97,98" },
    {"dmNupCount=4 dmNupDescending=1", 4,  UprightSheet, "map 2480,-3507 to 53,-76",   "65,1", "12,77" },
 // A count without a grid: one below the other, off the sheet.
    {"dmNupCount=3",                   3,  UprightSheet, "map 2480,-3507 to 106,-150", "12,2", "12,306"},
};

TEST(Grid, LaysThePagesOutOnTheSheet)
{
    for (const auto& [fields, count, sheet, size, first, last] : GridRows) {
        const Lines drawn = Preview().Draw(A4("dmNupOn=1 " + fields), {"map", "box 11,", "box 0,"});
        ASSERT_EQ(drawn.size(), 1 + count) << fields;
        EXPECT_EQ(drawn[0], sheet) << fields;
        EXPECT_EQ(drawn[1], size + " at " + first) << fields;
        EXPECT_EQ(drawn.back(), size + " at " + last) << fields;
    }
}

// Which page stands in which cell, row by row of the sheet.
constexpr std::pair<const char*, const char*> OrderRows[] = {
    {"dmNupCount=4",                                                   "1 2 3 4"          },
    {"dmNupCount=4 dmNupVertical=1",                                   "1 3 2 4"          },
    {"dmNupCount=4 dmNupDescending=1",                                 "2 1 4 3"          },
    {"dmNupCount=4 dmNupVertical=1 dmNupDescending=1",                 "3 1 4 2"          },
    {"dmNupCount=6 dmNupVertical=1",                                   "1 3 5 2 4 6"      },
    {"dmNupCount=6 dmNupDescending=1",                                 "3 2 1 6 5 4"      },
    {"dmNupCount=6 dmNupVertical=1 dmOrientation=2",                   "1 4 2 5 3 6"      },
    {"dmNupCount=6 dmNupDescending=1 dmOrientation=2",                 "2 1 4 3 6 5"      },
    {"dmNupCount=2 dmNupDescending=1",                                 "2 1"              },
    {"dmNupCount=2 dmNupVertical=1 dmNupDescending=1 dmOrientation=2", "1 2"              },
    {"dmNupCount=9 dmNupVertical=1 dmNupDescending=1",                 "7 4 1 8 5 2 9 6 3"},
};

TEST(Grid, NumbersThePagesInTheirOrder)
{
    for (const auto& [fields, order] : OrderRows) {
        const Lines drawn = Preview().Draw(A4(std::string("dmNupOn=1 ") + fields), {"map", "text"});
        std::map<std::pair<int, int>, std::string> cells;  // the number in each, from the top and from the left
        for (std::size_t k = 0; k + 1 < drawn.size(); k += 2) {
            int x = 0, y = 0;
            std::sscanf(drawn[k].substr(drawn[k].rfind(' ')).c_str(), "%d,%d", &x, &y);
            cells[{y, x}] = drawn[k + 1].substr(drawn[k + 1].find('"') + 1, 1);
        }
        std::string found;
        for (const auto& [place, number] : cells) found += (found.empty() ? "" : " ") + number;
        EXPECT_EQ(found, order) << fields;
    }
}

// A booklet shows one page on its sheet although it is N-up as well, and one of four flaps.
TEST(Booklet, ShowsOnePageAndAFlap)
{
    const Lines upright = {UprightSheet, "line 11,0,119,0 solid0:000000", "line 119,0,119,154 solid0:000000",
                           "line 119,154,11,154 solid0:000000", "line 11,154,11,0 solid0:000000"};
    const Lines lying = {LyingSheet, "line 0,31,131,31 solid0:000000", "line 131,31,131,123 solid0:000000",
                         "line 131,123,0,123 solid0:000000", "line 0,123,0,31 solid0:000000"};
    const char map[] = "map 2480,-3507 to 106,-150 at 12,2", turned[] = "map 3507,-2480 to 127,-90 at 2,32";
    const std::tuple<std::string, Lines, const char*, const char*> rows[] = {
        {"",                                 upright, "[[11,0],[108,-12],[108,0]]",     map   },
        {"dmOrientation=2",                  lying,   "[[131,31],[140,115],[131,115]]", turned},
        {"dmBookletRight=1",                 upright, "[[119,0],[21,-12],[21,0]]",      map   },
        {"dmBookletRight=1 dmOrientation=2", lying,   "[[0,31],[-9,115],[0,115]]",      turned},
    };
    for (auto [fields, expected, flap, page] : rows) {
        expected.insert(expected.end(), {std::string("polygon ") + flap + " solid0:000000 ffffff", page});
        EXPECT_EQ(Preview().Draw(A4("dmBookletPaper=9 dmDuplexOn=1 dmNupOn=1 dmNupCount=2 " + fields),
                                 {"box 11,", "box 0,", "line", "polygon", "map", "arc"}),
                  expected)
            << fields;
    }
    EXPECT_THAT(Preview().Draw(A4("dmBookletPaper=5 dmDuplexOn=1"), {"box 19", "map"}),
                ElementsAre("box 19,0,112,154 null ffffff", "map 2480,-3507 to 91,-128 at 20,13"))
        << "in the middle of its paper";
}

TEST(Booklet, WithoutDuplexIsMarkedByNothing)
{
    EXPECT_THAT(
        Preview().Draw(A4("dmBookletPaper=9 dmNupOn=1 dmNupCount=2"), {"box 11", "line", "polygon", "arc", "map"}),
        // The sheet of a booklet is not turned; its pages are beside each other all the same.
        ElementsAre(UprightSheet, "map 2480,-3507 to 53,-74 at 12,40", "map 2480,-3507 to 53,-74 at 65,40"));
}

// How many rings there are, the first and the last one.
TEST(Rings, RunAlongTheBoundEdge)
{
    struct Edge {
        std::size_t rings;
        const char *first, *last;
    };
    constexpr Edge Top = {10, "18,-7,28,7 from 28,0 to 23,7", "99,-7,109,7 from 109,0 to 104,7"};
    constexpr Edge TopLying = {13, "7,24,17,38 from 17,31 to 12,38", "115,24,125,38 from 125,31 to 120,38"};
    constexpr Edge Left = {15, "4,7,18,17 from 11,7 to 18,17", "4,133,18,143 from 11,133 to 18,143"};
    constexpr Edge LeftLying = {9, "-7,38,7,48 from 0,38 to 7,48", "-7,110,7,120 from 0,110 to 7,120"};
    const std::pair<std::string, Edge> rows[] = {
        {"dmDuplexBinding=3",                                        Top      },
        {"dmDuplexBinding=3 dmOrientation=2",                        LeftLying},
        {"dmDuplexBinding=1",                                        Left     },
        {"dmDuplexBinding=1 dmOrientation=2",                        TopLying },
        {"dmDuplexBinding=0",                                        Left     },
 // Turned sheets, and N-up that turns nothing.
        {"dmDuplexBinding=3 dmNupOn=1 dmNupCount=2",                 LeftLying},
        {"dmDuplexBinding=3 dmNupOn=1 dmNupCount=6 dmOrientation=2", Top      },
        {"dmDuplexBinding=1 dmNupOn=1 dmNupCount=6 dmOrientation=1", TopLying },
        {"dmDuplexBinding=1 dmNupOn=1 dmNupCount=2 dmOrientation=2", Left     },
        {"dmDuplexBinding=3 dmNupOn=1 dmNupCount=4",                 Top      },
    };
    for (const auto& [fields, edge] : rows) {
        const Lines drawn = Preview().Draw(A4("dmDuplexOn=1 " + fields), {"arc"});
        ASSERT_EQ(drawn.size(), edge.rings) << fields;
        EXPECT_EQ(drawn.front(), std::string("arc ") + edge.first + " solid2:000000") << fields;
        EXPECT_EQ(drawn.back(), std::string("arc ") + edge.last + " solid2:000000") << fields;
    }
}

TEST(FitToPaper, ShowsTheDocumentBehindTheSheet)
{
    EXPECT_THAT(Preview().Draw(A4("dmFitToPaper=2 dmOutputPaper=11"), {"box 11", "line", "map"}),
                ElementsAre("box 11,0,131,77 null 404040", "line 129,75,119,154 dot1:404040", UprightSheet,
                            "map 2480,-3507 to 106,-150 at 12,1"));
    EXPECT_THAT(Preview().Draw(A4("dmFitToPaper=2 dmOutputPaper=11 dmOrientation=2"), {"box 0", "line", "map"}),
                ElementsAre("box 0,31,65,154 null 404040", "line 63,152,131,123 dot1:404040", LyingSheet,
                            "map 3507,-2480 to 127,-90 at 1,32"));
    // A page of Letter in the corner of a Legal sheet, whose aspect is the output paper's.
    EXPECT_THAT(Preview().Draw(A4("dmFitToPaper=2 dmPaperSize=1 dmOutputPaper=5"), {"box 19", "map"}),
                ElementsAre("box 19,0,131,77 null 404040", "box 19,0,112,154 null ffffff",
                            "map 2550,-3300 to 91,-118 at 20,1"));
}

}  // namespace
}  // namespace preview_test
