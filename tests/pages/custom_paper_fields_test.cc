// The number fields of the Custom Paper dialog: typing, arrows, units.
#include <gtest/gtest.h>

#include "pages/custom_paper_fields.h"
#include "tests/support/custom_paper_rig.h"

namespace {

using namespace testing_support;
using platform::user::Key;

class CustomPaperFields : public CustomPaperRig {};

TEST(CustomPaperFieldsOf, AUnitThatIsNeitherHasNone) { EXPECT_TRUE(NumberFieldsOf(UnitBuiltIn).empty()); }

// The list once a text is in a field, and when the field is left; then all fields. Digits are all that the keyboard
// gives; the clipboard gives anything.
struct TextRow {
    CustomPaperEntry start;
    int field;
    const char16_t* text;
    std::string inside, left, fields;
};
// clang-format off
const TextRow Texts[] = {
    {Mm(1000, 1500),     IDC_CP_WIDTH_MM,   u"75",   "[76 x 150 mm]",           "",                         "A: 76 150"},
    {Mm(1000, 1500),     IDC_CP_WIDTH_MM,   u"217",  "[216 x 150 mm]",          "",                         "A: 216 150"},
    {Mm(1000, 1500),     IDC_CP_WIDTH_MM,   u"",     "[76 x 150 mm]",           "",                         "A: 76 150"},
    {Mm(1000, 1500),     IDC_CP_HEIGHT_MM,  u"126",  "[100 x 127 mm]",          "",                         "A: 100 127"},
    {Mm(1000, 1500),     IDC_CP_HEIGHT_MM,  u"357",  "[100 x 356 mm]",          "",                         "A: 100 356"},
    {Inch(5, 3, 7, 5),   IDC_CP_WIDTH_INCH, u"2",    "[3 3/16 x 7 5/16 inch]",  "",                         "A: 3 3 7 5"},
    {Inch(5, 9, 7, 5),   IDC_CP_WIDTH_INCH, u"8",    "[8 8/16 x 7 5/16 inch]",  "",                         "A: 8 8 7 5"},
    {Inch(8, 4, 7, 5),   IDC_CP_WIDTH_INCH, u"9",    "[8 4/16 x 7 5/16 inch]",  "[8 8/16 x 7 5/16 inch]",   "A: 8 8 7 5"},
    {Inch(7, 15, 7, 5),  IDC_CP_WIDTH_INCH, u"9",    "[8 15/16 x 7 5/16 inch]", "[8 8/16 x 7 5/16 inch]",   "A: 8 8 7 5"},
    {Inch(5, 3, 7, 5),   IDC_CP_HEIGHT_INCH, u"4",   "[5 3/16 x 5 5/16 inch]",  "",                         "A: 5 3 5 5"},
    {Inch(5, 3, 7, 5),   IDC_CP_HEIGHT_INCH, u"13",  "[5 3/16 x 13 5/16 inch]", "",                         "A: 5 3 13 5"},
    {Inch(5, 3, 13, 15), IDC_CP_HEIGHT_INCH, u"14",  "[5 3/16 x 14 0/16 inch]", "",                         "A: 5 3 14 0"},
    {Inch(7, 3, 7, 5),   IDC_CP_WIDTH_SIXTEENTHS,  u"16", "[7 15/16 x 7 5/16 inch]", "",                    "A: 7 15 7 5"},
    {Inch(8, 3, 7, 5),   IDC_CP_WIDTH_SIXTEENTHS,  u"8",  "[8 8/16 x 7 5/16 inch]",  "",                    "A: 8 8 7 5"},
    {Inch(8, 3, 7, 5),   IDC_CP_WIDTH_SIXTEENTHS,  u"9",  "[8 8/16 x 7 5/16 inch]",  "",                    "A: 8 8 7 5"},
    {Inch(8, 3, 7, 5),   IDC_CP_WIDTH_SIXTEENTHS,  u"",   "[8 0/16 x 7 5/16 inch]",  "",                    "A: 8  7 5"},
    {Inch(8, 3, 7, 5),   IDC_CP_HEIGHT_SIXTEENTHS, u"99", "[8 3/16 x 7 15/16 inch]", "",                    "A: 8 3 7 15"},
    {Inch(8, 3, 14, 0),  IDC_CP_HEIGHT_SIXTEENTHS, u"5",  "[8 3/16 x 14 0/16 inch]", "",                    "A: 8 3 14 0"},
};
// clang-format on

TEST_F(CustomPaperFields, LimitsANumberAtOnceAndItsTextWhenTheFieldIsLeft)
{
    for (const TextRow& row : Texts) {
        SCOPED_TRACE("field " + std::to_string(row.field) + ": " + platform::ToUtf8(row.text));
        Open({row.start}).Paste(row.field, row.text);
        EXPECT_EQ(Size(), row.inside);
        Dialog().Focus(IDC_CP_NAME);
        EXPECT_EQ(Size(), row.left.empty() ? row.inside : row.left);
        EXPECT_EQ(Editor(), row.fields);
    }
}

TEST_F(CustomPaperFields, CountsWithTheArrowsUpToTheirEnds)
{
    constexpr bool Up = true, Down = false;
    // clang-format off
    const std::tuple<CustomPaperEntry, int, bool, const char*, const char*> rows[] = {
        {Mm(760, 1500), IDC_CP_WIDTH_MM_SPIN, Down, "A: 76 150", "[76 x 150 mm]"},
        {Mm(2160, 1500), IDC_CP_WIDTH_MM_SPIN, Up, "A: 216 150", "[216 x 150 mm]"},
        {Mm(1000, 1270), IDC_CP_HEIGHT_MM_SPIN, Down, "A: 100 127", "[100 x 127 mm]"},
        {Mm(1000, 3560), IDC_CP_HEIGHT_MM_SPIN, Up, "A: 100 356", "[100 x 356 mm]"},
        {Inch(8, 8, 11, 0), IDC_CP_WIDTH_INCH_SPIN, Up, "A: 8 8 11 0", "[8 8/16 x 11 0/16 inch]"},
        {Inch(8, 8, 5, 1), IDC_CP_HEIGHT_INCH_SPIN, Down, "A: 8 8 5 1", "[8 8/16 x 5 1/16 inch]"},
        {Inch(8, 8, 13, 15), IDC_CP_HEIGHT_INCH_SPIN, Up, "A: 8 8 14 15", "[8 8/16 x 14 0/16 inch]"},
        {Inch(8, 8, 11, 0), IDC_CP_WIDTH_SIXTEENTHS_SPIN, Up, "A: 8 9 11 0", "[8 8/16 x 11 0/16 inch]"},
        {Inch(8, 8, 11, 15), IDC_CP_HEIGHT_SIXTEENTHS_SPIN, Up, "A: 8 8 11 15", "[8 8/16 x 11 15/16 inch]"},
    };
    // clang-format on
    for (const auto& [start, spin, up, fields, size] : rows) {
        Open({start}).Spin(spin, up);
        EXPECT_EQ(Editor(), fields) << spin;
        EXPECT_EQ(Size(), size) << spin;
    }
}

// A limit of the whole inches takes the sixteenths with it, and their field follows when the inches are left.
TEST_F(CustomPaperFields, KeepsTheFieldOfTheSixteenthsInTuneWithTheSize)
{
    Open({Inch(7, 15, 13, 15)});
    Dialog().Type(IDC_CP_HEIGHT_INCH, u"14").Type(IDC_CP_HEIGHT_INCH, u"13").Focus(IDC_CP_NAME);
    EXPECT_EQ(Size(), "[7 15/16 x 13 0/16 inch]");
    EXPECT_EQ(Editor(), "A: 7 15 13 0");
    Dialog().Type(IDC_CP_WIDTH_INCH, u"8").Type(IDC_CP_WIDTH_INCH, u"7").Focus(IDC_CP_NAME);
    EXPECT_EQ(Size(), "[7 8/16 x 13 0/16 inch]");
    EXPECT_EQ(Editor(), "A: 7 8 13 0");
    Dialog().Type(IDC_CP_WIDTH_SIXTEENTHS, u"9").Type(IDC_CP_WIDTH_INCH, u"9").Press(Key::Enter);
    EXPECT_EQ(Stored().at(0).cpWidth, 800);
    EXPECT_EQ(Stored().at(0).cpWidthSixteenths, 8) << "the Enter key leaves the field";
}

TEST_F(CustomPaperFields, ConvertsBetweenTheUnits)
{
    Open({Mm(2100, 2970)}).Click(IDC_CP_UNIT_INCH).Click(IDC_CP_UNIT_INCH);
    EXPECT_EQ(Editor() + " " + Size(), "A: 8 4 11 11 [8 4/16 x 11 11/16 inch]");
    Dialog().Type(IDC_CP_WIDTH_SIXTEENTHS, u"5").Click(IDC_CP_UNIT_MM);
    EXPECT_EQ(Editor() + " " + Size(), "A: 211 297 [211 x 297 mm]");
    Dialog().Click(IDC_CP_UNIT_MM).Click(IDOK);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes({Mm(2110, 2970)}));
}

}  // namespace
