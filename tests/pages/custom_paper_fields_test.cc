// The number fields of the Custom Paper dialog: typing, arrows, units.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/custom_paper_fields.h"
#include "tests/support/custom_paper_rig.h"

namespace {

using namespace testing_support;
using platform::user::Key;
using testing::ElementsAre;

class CustomPaperFields : public CustomPaperRig {};

TEST_F(CustomPaperFields, ShowsTheSelectedSizeInItsUnit)
{
    Open(Three);
    EXPECT_EQ(UnitShown(), 0);
    EXPECT_THAT(Numbers(0), ElementsAre(u"100", u"150"));
    Dialog().Row(IDC_CP_LIST, 1);
    EXPECT_EQ(UnitShown(), 1);
    EXPECT_THAT(Numbers(1), ElementsAre(u"8", u"8", u"11", u"0"));
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"Form");
    Dialog().Row(IDC_CP_LIST, 2);
    EXPECT_EQ(UnitShown(), 0);
    EXPECT_THAT(Numbers(0), ElementsAre(u"216", u"356"));
    // What was looked at only is as it was.
    Dialog().Click(IDOK);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes(Three));
}

TEST(CustomPaperFieldsOf, AUnitThatIsNeitherHasNone) { EXPECT_TRUE(NumberFieldsOf(UnitBuiltIn).empty()); }

// The list once a text is in a field, and when the field is left; then all fields. Digits are all that the keyboard
// gives; the clipboard gives anything.
struct TextRow {
    CustomPaperEntry start;
    int field;
    std::u16string text;
    std::u16string inside, left;
    std::vector<std::u16string> numbers;
};

// clang-format off
const TextRow Texts[] = {
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"75", u"[76 x 150 mm]", u"[76 x 150 mm]", {u"76", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"216", u"[216 x 150 mm]", u"[216 x 150 mm]", {u"216", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"217", u"[216 x 150 mm]", u"[216 x 150 mm]", {u"216", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"", u"[76 x 150 mm]", u"[76 x 150 mm]", {u"76", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"-99", u"[76 x 150 mm]", u"[76 x 150 mm]", {u"76", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"abc", u"[76 x 150 mm]", u"[76 x 150 mm]", {u"76", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"2109", u"[210 x 150 mm]", u"[210 x 150 mm]", {u"210", u"150"}},
    {Mm(1000, 1500), IDC_CP_HEIGHT_MM, u"126", u"[100 x 127 mm]", u"[100 x 127 mm]", {u"100", u"127"}},
    {Mm(1000, 1500), IDC_CP_HEIGHT_MM, u"356", u"[100 x 356 mm]", u"[100 x 356 mm]", {u"100", u"356"}},
    {Mm(1000, 1500), IDC_CP_HEIGHT_MM, u"357", u"[100 x 356 mm]", u"[100 x 356 mm]", {u"100", u"356"}},
    {Inch(5, 3, 7, 5), IDC_CP_WIDTH_INCH, u"2", u"[3 3/16 x 7 5/16 inch]", u"[3 3/16 x 7 5/16 inch]", {u"3", u"3", u"7", u"5"}},
    {Inch(5, 3, 7, 5), IDC_CP_WIDTH_INCH, u"-", u"[3 3/16 x 7 5/16 inch]", u"[3 3/16 x 7 5/16 inch]", {u"3", u"3", u"7", u"5"}},
    {Inch(5, 8, 7, 5), IDC_CP_WIDTH_INCH, u"8", u"[8 8/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(5, 9, 7, 5), IDC_CP_WIDTH_INCH, u"8", u"[8 8/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(8, 4, 7, 5), IDC_CP_WIDTH_INCH, u"9", u"[8 4/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(7, 15, 7, 5), IDC_CP_WIDTH_INCH, u"9", u"[8 15/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(5, 3, 7, 5), IDC_CP_HEIGHT_INCH, u"2", u"[5 3/16 x 5 5/16 inch]", u"[5 3/16 x 5 5/16 inch]", {u"5", u"3", u"5", u"5"}},
    {Inch(5, 3, 7, 5), IDC_CP_HEIGHT_INCH, u"-9", u"[5 3/16 x 5 5/16 inch]", u"[5 3/16 x 5 5/16 inch]", {u"5", u"3", u"5", u"5"}},
    {Inch(5, 3, 7, 5), IDC_CP_HEIGHT_INCH, u"13", u"[5 3/16 x 13 5/16 inch]", u"[5 3/16 x 13 5/16 inch]", {u"5", u"3", u"13", u"5"}},
    {Inch(5, 3, 13, 15), IDC_CP_HEIGHT_INCH, u"14", u"[5 3/16 x 14 0/16 inch]", u"[5 3/16 x 14 0/16 inch]", {u"5", u"3", u"14", u"0"}},
    {Inch(5, 3, 13, 15), IDC_CP_HEIGHT_INCH, u"15", u"[5 3/16 x 14 0/16 inch]", u"[5 3/16 x 14 0/16 inch]", {u"5", u"3", u"14", u"0"}},
    {Inch(7, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"15", u"[7 15/16 x 7 5/16 inch]", u"[7 15/16 x 7 5/16 inch]", {u"7", u"15", u"7", u"5"}},
    {Inch(7, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"16", u"[7 15/16 x 7 5/16 inch]", u"[7 15/16 x 7 5/16 inch]", {u"7", u"15", u"7", u"5"}},
    {Inch(8, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"8", u"[8 8/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(8, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"9", u"[8 8/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(8, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"", u"[8 0/16 x 7 5/16 inch]", u"[8 0/16 x 7 5/16 inch]", {u"8", u"", u"7", u"5"}},
    {Inch(5, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"-5", u"[5 0/16 x 7 5/16 inch]", u"[5 0/16 x 7 5/16 inch]", {u"5", u"0", u"7", u"5"}},
    {Inch(8, 3, 7, 5), IDC_CP_HEIGHT_SIXTEENTHS, u"99", u"[8 3/16 x 7 15/16 inch]", u"[8 3/16 x 7 15/16 inch]", {u"8", u"3", u"7", u"15"}},
    {Inch(8, 3, 14, 0), IDC_CP_HEIGHT_SIXTEENTHS, u"5", u"[8 3/16 x 14 0/16 inch]", u"[8 3/16 x 14 0/16 inch]", {u"8", u"3", u"14", u"0"}},
    {Inch(8, 3, 14, 0), IDC_CP_HEIGHT_SIXTEENTHS, u"", u"[8 3/16 x 14 0/16 inch]", u"[8 3/16 x 14 0/16 inch]", {u"8", u"3", u"14", u"0"}},
    {Inch(8, 3, 14, 0), IDC_CP_HEIGHT_SIXTEENTHS, u"-1", u"[8 3/16 x 14 0/16 inch]", u"[8 3/16 x 14 0/16 inch]", {u"8", u"3", u"14", u"0"}},
};
// clang-format on

TEST_F(CustomPaperFields, LimitsANumberAtOnceAndItsTextWhenTheFieldIsLeft)
{
    for (const TextRow& row : Texts) {
        SCOPED_TRACE("field " + std::to_string(row.field) + " \"" + platform::ToUtf8(row.text) + '"');
        const int unit = row.start.cpUnit;
        Open({row.start}, Germany);
        Dialog().Paste(row.field, row.text);
        EXPECT_EQ(Size(), row.inside);
        Dialog().Focus(IDC_CP_NAME);
        EXPECT_EQ(Size(), row.left);
        EXPECT_EQ(Numbers(unit), row.numbers);
        EXPECT_EQ(UnitShown(), unit);
    }
}

TEST_F(CustomPaperFields, FollowsEveryDigit)
{
    Open({Mm(1000, 1500)});
    Dialog().Type(IDC_CP_WIDTH_MM, u"2");
    EXPECT_EQ(Size(), u"[76 x 150 mm]");
    EXPECT_EQ(Dialog().Text(IDC_CP_WIDTH_MM), u"2");
    Dialog().Append(IDC_CP_WIDTH_MM, u"-10");
    EXPECT_EQ(Size(), u"[210 x 150 mm]");
}

struct SpinRow {
    CustomPaperEntry start;
    int spin, field;
    bool up;
    std::u16string shown, size;
};

TEST_F(CustomPaperFields, CountsWithTheArrowsUpToTheirEnds)
{
    // clang-format off
    const SpinRow Rows[] = {
        {Mm(770, 1500),      IDC_CP_WIDTH_MM_SPIN,          IDC_CP_WIDTH_MM,          false, u"76",  u"[76 x 150 mm]"          },
        {Mm(760, 1500),      IDC_CP_WIDTH_MM_SPIN,          IDC_CP_WIDTH_MM,          false, u"76",  u"[76 x 150 mm]"          },
        {Mm(2160, 1500),     IDC_CP_WIDTH_MM_SPIN,          IDC_CP_WIDTH_MM,          true,  u"216", u"[216 x 150 mm]"         },
        {Mm(1000, 1270),     IDC_CP_HEIGHT_MM_SPIN,         IDC_CP_HEIGHT_MM,         false, u"127", u"[100 x 127 mm]"         },
        {Mm(1000, 3560),     IDC_CP_HEIGHT_MM_SPIN,         IDC_CP_HEIGHT_MM,         true,  u"356", u"[100 x 356 mm]"         },
        {Inch(8, 8, 11, 0),  IDC_CP_WIDTH_INCH_SPIN,        IDC_CP_WIDTH_INCH,        false, u"7",   u"[7 8/16 x 11 0/16 inch]"},
        {Inch(8, 8, 11, 0),  IDC_CP_WIDTH_INCH_SPIN,        IDC_CP_WIDTH_INCH,        true,  u"8",   u"[8 8/16 x 11 0/16 inch]"},
        {Inch(3, 8, 11, 0),  IDC_CP_WIDTH_INCH_SPIN,        IDC_CP_WIDTH_INCH,        false, u"3",   u"[3 8/16 x 11 0/16 inch]"},
        {Inch(8, 8, 5, 1),   IDC_CP_HEIGHT_INCH_SPIN,       IDC_CP_HEIGHT_INCH,       false, u"5",   u"[8 8/16 x 5 1/16 inch]" },
        {Inch(8, 8, 13, 15), IDC_CP_HEIGHT_INCH_SPIN,       IDC_CP_HEIGHT_INCH,       true,  u"14",  u"[8 8/16 x 14 0/16 inch]"},
        {Inch(8, 8, 11, 0),  IDC_CP_WIDTH_SIXTEENTHS_SPIN,  IDC_CP_WIDTH_SIXTEENTHS,  true,  u"9",   u"[8 8/16 x 11 0/16 inch]"},
        {Inch(7, 15, 11, 0), IDC_CP_WIDTH_SIXTEENTHS_SPIN,  IDC_CP_WIDTH_SIXTEENTHS,  true,  u"15",  u"[7 15/16 x 11 0/16 inch]"},
        {Inch(8, 8, 11, 0),  IDC_CP_HEIGHT_SIXTEENTHS_SPIN, IDC_CP_HEIGHT_SIXTEENTHS, false, u"0",   u"[8 8/16 x 11 0/16 inch]"},
        {Inch(8, 8, 11, 15), IDC_CP_HEIGHT_SIXTEENTHS_SPIN, IDC_CP_HEIGHT_SIXTEENTHS, true,  u"15",  u"[8 8/16 x 11 15/16 inch]"},
    };
    // clang-format on
    for (const SpinRow& row : Rows) {
        Open({row.start});
        Dialog().Spin(row.spin, row.up);
        EXPECT_EQ(Dialog().Text(row.field), row.shown) << row.spin;
        EXPECT_EQ(Size(), row.size) << row.spin;
    }
}

// A limit of the whole inches takes the sixteenths with it, and their field follows when the inches are left.
TEST_F(CustomPaperFields, KeepsTheFieldOfTheSixteenthsInTuneWithTheSize)
{
    Open({Inch(7, 15, 13, 15)});
    Dialog().Type(IDC_CP_HEIGHT_INCH, u"14").Type(IDC_CP_HEIGHT_INCH, u"13").Focus(IDC_CP_NAME);
    EXPECT_EQ(Size(), u"[7 15/16 x 13 0/16 inch]");
    EXPECT_EQ(Dialog().Text(IDC_CP_HEIGHT_SIXTEENTHS), u"0");
    Dialog().Type(IDC_CP_WIDTH_INCH, u"8").Type(IDC_CP_WIDTH_INCH, u"7").Focus(IDC_CP_NAME);
    EXPECT_EQ(Size(), u"[7 8/16 x 13 0/16 inch]");
    EXPECT_EQ(Dialog().Text(IDC_CP_WIDTH_SIXTEENTHS), u"8");
}

TEST_F(CustomPaperFields, LeavesTheFieldThatTheEnterKeyIsPressedIn)
{
    Open({Inch(7, 15, 7, 5)});
    Dialog().Type(IDC_CP_WIDTH_INCH, u"9").Press(Key::Enter);
    ASSERT_EQ(Stored().size(), 1u);
    EXPECT_EQ(Stored()[0].cpWidth, 800);
    EXPECT_EQ(Stored()[0].cpWidthSixteenths, 8);
}

struct ConversionRow {
    CustomPaperEntry start;
    std::u16string converted, back;
};

TEST_F(CustomPaperFields, ConvertsBetweenTheUnits)
{
    // clang-format off
    const ConversionRow Rows[] = {
        {Mm(760, 1270),        u"[3 0/16 x 5 0/16 inch]",   u"[76 x 127 mm]"         },
        {Mm(2160, 3560),       u"[8 8/16 x 14 0/16 inch]",  u"[216 x 356 mm]"        },
        {Mm(2100, 2970),       u"[8 4/16 x 11 11/16 inch]", u"[210 x 297 mm]"        },
        {Mm(770, 3550),        u"[3 1/16 x 14 0/16 inch]",  u"[78 x 356 mm]"         },
        {Inch(3, 0, 5, 0),     u"[76 x 127 mm]",            u"[3 0/16 x 5 0/16 inch]"},
        {Inch(8, 8, 14, 0),    u"[216 x 356 mm]",           u"[8 8/16 x 14 0/16 inch]"},
        {Inch(3, 9, 11, 0),    u"[91 x 279 mm]",            u"[3 9/16 x 11 0/16 inch]"},
    };
    // clang-format on
    for (const ConversionRow& row : Rows) {
        const bool inches = row.start.cpUnit == 1;
        Open({row.start});
        Dialog().Click(inches ? IDC_CP_UNIT_INCH : IDC_CP_UNIT_MM);
        EXPECT_EQ(UnitShown(), inches);
        Dialog().Click(inches ? IDC_CP_UNIT_MM : IDC_CP_UNIT_INCH);
        EXPECT_EQ(UnitShown(), !inches);
        EXPECT_EQ(Size(), row.converted);
        Dialog().Click(inches ? IDC_CP_UNIT_INCH : IDC_CP_UNIT_MM);
        EXPECT_EQ(Size(), row.back);
    }
}

TEST_F(CustomPaperFields, ShowsTheNumbersOfTheOtherUnit)
{
    Open({Mm(2100, 2970)});
    Dialog().Click(IDC_CP_UNIT_INCH);
    EXPECT_THAT(Numbers(1), ElementsAre(u"8", u"4", u"11", u"11"));
    Dialog().Type(IDC_CP_WIDTH_SIXTEENTHS, u"5").Click(IDC_CP_UNIT_MM);
    EXPECT_THAT(Numbers(0), ElementsAre(u"211", u"297"));
    Dialog().Click(IDOK);
    EXPECT_EQ(Stored()[0].cpWidth, 2110);
    EXPECT_EQ(Stored()[0].cpWidthSixteenths, 0);
}

}  // namespace
