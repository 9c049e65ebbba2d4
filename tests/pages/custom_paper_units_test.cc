#include "pages/custom_paper_units.h"

#include <gtest/gtest.h>

#include "tests/support/custom_papers.h"

namespace {

using testing_support::Entry;

TEST(CustomPaperUnits, HundredthsOfSixteenthsComeBackAsTheSixteenths)
{
    const SHORT hundredths[16] = {0, 6, 13, 19, 25, 31, 38, 44, 50, 56, 63, 69, 75, 81, 88, 94};
    for (SHORT sixteenths = 0; sixteenths < 16; ++sixteenths) {
        const PaperSizeRecord size = RowSize(Entry(257, u"", UnitInches, 300, 500, sixteenths, sixteenths));
        EXPECT_EQ(size.psWidth, 300 + hundredths[sixteenths]);
        EXPECT_EQ(size.psLength, 500 + hundredths[sixteenths]);
        const CustomPaperEntry back = EntryFromRowSize(size);
        EXPECT_EQ(back.cpWidth, 300);
        EXPECT_EQ(back.cpWidthSixteenths, sixteenths);
        EXPECT_EQ(back.cpHeight, 500);
        EXPECT_EQ(back.cpHeightSixteenths, sixteenths);
    }
    EXPECT_EQ(RowSize(Entry(257, u"", 2, 800, 1300)).psWidth, 0) << "of a unit that is unknown";
    EXPECT_EQ(RowSize(Entry(257, u"", 2, 800, 1300)).psUnit, 2);
}

TEST(CustomPaperUnits, SixteenthsRoundToTheNearestAndTiesGoUp)
{
    for (const auto& [hundredths, sixteenths] : {
             std::pair{3,  0 },
             {4,  1 },
             {9,  1 },
             {10, 2 },
             {96, 15},
             {97, 16},
             {99, 16}
    })
        EXPECT_EQ(HundredthsToSixteenths(hundredths), sixteenths) << hundredths;
}

TEST(CustomPaperUnits, MillimetresAndInchesRound)
{
    const struct {
        int tenths;
        InchLength inches;
        int back;
    } rows[] = {
        {760,  {300, 0},   760 },
        {770,  {300, 1},   780 },
        {2100, {800, 4},   2100},
        {2160, {800, 8},   2160},
        {2970, {1100, 11}, 2970},
        {3550, {1400, 0},  3560},
        {3560, {1400, 0},  3560},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(InchesFromTenths(row.tenths), row.inches) << row.tenths;
        EXPECT_EQ(TenthsFromInches(row.inches), row.back) << row.tenths;
    }
    EXPECT_EQ(TenthsFromInches({300, 9}), 910);
}

}  // namespace
