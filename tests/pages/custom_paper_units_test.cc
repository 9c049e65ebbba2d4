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
    const struct {
        int hundredths, sixteenths;
    } rows[] = {
        {3,  0 },
        {4,  1 },
        {9,  1 },
        {10, 2 },
        {96, 15},
        {97, 16},
        {99, 16}
    };
    for (const auto& row : rows) EXPECT_EQ(HundredthsToSixteenths(row.hundredths), row.sixteenths) << row.hundredths;
}

TEST(CustomPaperUnits, LimitsOfOneUnitAreThoseOfTheOther)
{
    const struct {
        InchLength inches;
        int tenths;
    } rows[] = {
        {{300, 0},  760 },
        {{800, 8},  2160},
        {{500, 0},  1270},
        {{1400, 0}, 3560}
    };
    for (const auto& row : rows) {
        EXPECT_EQ(InchesFromTenths(row.tenths), row.inches) << row.tenths;
        EXPECT_EQ(TenthsFromInches(row.inches), row.tenths);
    }
}

TEST(CustomPaperUnits, MillimetresAndInchesRound)
{
    EXPECT_EQ(InchesFromTenths(2100), (InchLength{800, 4}));
    EXPECT_EQ(InchesFromTenths(2970), (InchLength{1100, 11}));
    EXPECT_EQ(InchesFromTenths(3550), (InchLength{1400, 0}));
    EXPECT_EQ(InchesFromTenths(770), (InchLength{300, 1}));
    EXPECT_EQ(TenthsFromInches({300, 1}), 780);
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

TEST(CustomPaperUnits, ASizeSurvivesTheWayThroughARow)
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
}

TEST(CustomPaperUnits, AnUnknownUnitHasNoSize)
{
    CustomPaperEntry entry{};
    entry.cpUnit = 2;
    entry.cpWidth = 2100;
    const PaperSizeRecord size = RowSize(entry);
    EXPECT_EQ(size.psWidth, 0);
    EXPECT_EQ(size.psWidthDots, 0);
    EXPECT_EQ(size.psUnit, 2);
}

}  // namespace
