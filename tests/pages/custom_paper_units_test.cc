#include "pages/custom_paper_units.h"

#include <gtest/gtest.h>

namespace {

TEST(CustomPaperUnits, HundredthsOfSixteenthsComeBackAsTheSixteenths)
{
    const int hundredths[16] = {0, 6, 13, 19, 25, 31, 38, 44, 50, 56, 63, 69, 75, 81, 88, 94};
    for (int sixteenths = 0; sixteenths < 16; ++sixteenths) {
        CustomPaperEntry entry{};
        entry.cpUnit = UnitInches;
        entry.cpWidth = 300;
        entry.cpWidthSixteenths = static_cast<SHORT>(sixteenths);
        EXPECT_EQ(RowSize(entry).psWidth, 300 + hundredths[sixteenths]);
        EXPECT_EQ(HundredthsToSixteenths(hundredths[sixteenths]), sixteenths);
    }
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
        {1270, {500, 0},   1270},
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

TEST(CustomPaperUnits, DefaultsAreTheSizesOfA4AndLetterInDots)
{
    const PaperSizeRecord a4 = RowSize(DefaultCustomPaper(true));
    EXPECT_EQ(a4.psWidthDots, 2480);
    EXPECT_EQ(a4.psLengthDots, 3507);
    EXPECT_EQ(a4.psUnit, UnitMillimetres);
    const PaperSizeRecord letter = RowSize(DefaultCustomPaper(false));
    EXPECT_EQ(letter.psWidth, 850);
    EXPECT_EQ(letter.psLength, 1100);
    EXPECT_EQ(letter.psWidthDots, 2550);
    EXPECT_EQ(letter.psLengthDots, 3300);
}

TEST(CustomPaperUnits, ASizeSurvivesTheWayThroughARowUnlessItsUnitIsUnknown)
{
    CustomPaperEntry entry{};
    entry.cpUnit = UnitInches;
    entry.cpWidth = 800;
    entry.cpWidthSixteenths = 6;
    entry.cpHeight = 1300;
    entry.cpHeightSixteenths = 15;
    const CustomPaperEntry back = EntryFromRowSize(RowSize(entry));
    EXPECT_EQ(back.cpWidth, 800);
    EXPECT_EQ(back.cpWidthSixteenths, 6);
    EXPECT_EQ(back.cpHeight, 1300);
    EXPECT_EQ(back.cpHeightSixteenths, 15);
    entry.cpUnit = 2;
    EXPECT_EQ(RowSize(entry).psWidth, 0);
    EXPECT_EQ(RowSize(entry).psWidthDots, 0);
    EXPECT_EQ(RowSize(entry).psUnit, 2);
}

}  // namespace
