// The Watermark dialog: list, names, New and Delete, fields, what is stored at OK, and what holds where the
// platform refuses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/watermark_sheet.h"

namespace {

using namespace testing_support;

constexpr const char* Overwrite = "The watermark name is already registered.\nOverwrite it?/";
constexpr const char* Blank = "You cannot add a blank name./";
const std::vector<StoredWatermark> Alpha = {
    {u"A", u"Alpha", u"1|20|72|1|7|8|0|3|9|Arial"       },
    {u"B", u"Beta",  u"1|20|72|0|0|0|0|0|0|Nowhere Sans"}
};

TEST(WatermarkDialog, ShowsWhatIsStoredAndStoresItAsItWas)
{
    const StoredWatermark stored = {u"A", u"Alpha", u"0|35|40|1|-37|100|3|3|-120|Courier New"};
    WatermarkSheet sheet({stored, Abc()[1]}, 1);
    EXPECT_EQ(sheet.List() + sheet.Usable(), "<NONE> [A] BNDE");
    EXPECT_TRUE(sheet.HasFocus(IDC_WM_NAME));
    EXPECT_EQ(sheet.Fields(), "35 40 -37 100 -120 Courier New BIU");
    sheet.Choose(IDC_WM_LIST, 2);
    EXPECT_EQ(sheet.Fields(), "20 72 0 0 53 Times New Roman ");
    sheet.Choose(IDC_WM_LIST, 0);
    EXPECT_EQ(sheet.List() + sheet.Usable(), "[<NONE>] A BN");
    sheet.Click(IDOK);
    EXPECT_THAT(sheet.Attributes(), testing::StartsWith(platform::ToUtf8(stored.attributes) + "/"));
    EXPECT_EQ(sheet.Names() + sheet.Texts(), "2/A/B/2/Alpha/Beta/");
}

// What is typed, and what the field shows once it is left, which the row has all the time.
TEST(WatermarkDialog, NumbersAreLimitedAtOnceAndPutRightWhenLeft)
{
    using W = WatermarkRecord;
    // clang-format off
    const std::tuple<int, SHORT W::*, const char16_t*, const char*> rows[] = {
        {IDC_WM_SIZE,       &W::wmSize,      u"201",    "200"},
        {IDC_WM_SIZE,       &W::wmSize,      u"7",      "8"},
        {IDC_WM_SIZE,       &W::wmSize,      u"08",     "08"},
        {IDC_WM_SIZE,       &W::wmSize,      u"-1x234", "123"},
        {IDC_WM_SHADING,    &W::wmShading,   u"4",      "5"},
        {IDC_WM_SHADING,    &W::wmShading,   u"101",    "100"},
        {IDC_WM_ANGLE,      &W::wmAngle,     u"-181",   "-180"},
        {IDC_WM_ANGLE,      &W::wmAngle,     u"12345",  "180"},
        {IDC_WM_ANGLE,      &W::wmAngle,     u"-",      "0"},
        {IDC_WM_ANGLE,      &W::wmAngle,     u"007",    "7"},
        {IDC_WM_VERTICAL,   &W::wmPositionY, u"-101",   "-100"},
        {IDC_WM_VERTICAL,   &W::wmPositionY, u"101",    "100"},
        {IDC_WM_HORIZONTAL, &W::wmPositionX, u"-101",   "-100"},
        {IDC_WM_HORIZONTAL, &W::wmPositionX, u"101",    "100"},
    };
    // clang-format on
    for (const auto& [control, field, typed, left] : rows) {
        WatermarkSheet sheet(Alpha, 1);
        sheet.Type(control, typed);
        EXPECT_EQ(WatermarkEdit.*field, std::stoi(left)) << control << left;
        sheet.Focus(IDC_WM_NAME);
        EXPECT_EQ(WatermarkRowAt(1)->*field, std::stoi(left)) << control << left;
        EXPECT_EQ(sheet.Field(control), left);
    }
}

TEST(WatermarkDialog, SignedFieldsPutABadTextBack)
{
    WatermarkSheet sheet(Alpha, 1);
    for (const int control : {IDC_WM_ANGLE, IDC_WM_VERTICAL, IDC_WM_HORIZONTAL}) {
        sheet.Type(control, u"42").Append(control, u"x").Paste(control, u"-1-2");
        EXPECT_EQ(sheet.Field(control), "42") << control;
        sheet.Type(control, u"0").Append(control, u"x");
        EXPECT_EQ(sheet.Field(control), "") << control;
    }
}

TEST(WatermarkDialog, ArrowsStayInTheRangeAndTheLowSizeFollowsDownwards)
{
    WatermarkSheet sheet(Alpha, 1);
    sheet.Paste(IDC_WM_SIZE, u"12").Paste(IDC_WM_SIZE, u"90");
    EXPECT_EQ(WatermarkRowAt(1)->wmSizeLow, 12);
    EXPECT_EQ(WatermarkEdit.wmSizeLow, 12);
    sheet.Type(IDC_WM_SIZE, u"199").Spin(IDC_WM_SIZE_SPIN, true, 3);
    sheet.Type(IDC_WM_ANGLE, u"-179").Spin(IDC_WM_ANGLE_SPIN, false, 3);
    sheet.Spin(IDC_WM_VERTICAL_SPIN, true).Spin(IDC_WM_HORIZONTAL_SPIN, false).Spin(IDC_WM_SHADING_SPIN, true);
    EXPECT_EQ(sheet.Fields(), "21 200 8 7 -180 Arial U");
}

TEST(WatermarkDialog, ModesSetTheAngle)
{
    WatermarkSheet sheet(Alpha, 1);
    for (const auto& [name, shown] : {
             std::pair{u"Vertical",     "90"},
             {u"User Setting", "90"},
             {u"Horizontal",   "0" },
             {u"Diagonal",     "53"},
             {u"User Setting", "53"},
    }) {
        sheet.Choose(IDC_WM_ANGLE_MODE, name);
        EXPECT_EQ(sheet.Field(IDC_WM_ANGLE), shown) << shown;
        EXPECT_EQ(std::to_string(WatermarkRowAt(1)->wmAngle), shown);
    }
}

TEST(WatermarkDialog, CenterClearsThePosition)
{
    WatermarkSheet sheet(Alpha, 1);
    sheet.Click(IDC_WM_CENTER);
    EXPECT_EQ(sheet.Fields(), "20 72 0 0 9 Arial ");
    sheet.Drawn();
    EXPECT_TRUE(sheet.Click(IDC_WM_USER_POSITION).Drawn().empty());
    sheet.Click(IDOK);
    EXPECT_THAT(sheet.Attributes(), testing::StartsWith("1|20|72|1|0|0|0|3|9|Arial/"));
}

TEST(WatermarkDialog, TextFaceAndStyleGoIntoTheRow)
{
    WatermarkSheet sheet(Alpha, 1);
    sheet.Type(IDC_WM_TEXT, std::u16string(80, u't')).Type(IDC_WM_NAME, std::u16string(80, u'n'));
    sheet.Choose(IDC_WM_FACE, u"Courier New").Click(IDC_WM_BOLD).Click(IDC_WM_ITALIC).Choose(IDC_WM_LIST, 2);
    EXPECT_EQ(sheet.Row(IDC_WM_FACE), "Courier New") << "for a face that is not there: the last one";
    sheet.Choose(IDC_WM_LIST, 1).Click(IDC_WM_BOLD).Click(IDOK);
    EXPECT_EQ(sheet.Names(), "2/" + std::string(72, 'n') + "/B/");
    EXPECT_EQ(sheet.Texts(), "2/" + std::string(72, 't') + "/Beta/");
    EXPECT_EQ(sheet.Attributes(), "1|20|72|1|7|8|1|3|9|Courier New/1|20|72|0|0|0|0|0|0|Nowhere Sans/");
}

TEST(WatermarkDialog, ANameThatCannotBeIsLeftWithASoundAndRefusedAtOkAndNew)
{
    for (const auto& [button, name, list, said] : {
             std::tuple{IDOK,       u"  ",     "<NONE> A [  ] C | <NONE> A [B] C",     Blank    },
             {IDOK,       u"C",      "<NONE> A [C] C | <NONE> A [B] C",      Overwrite},
             {IDC_WM_NEW, u"<NONE>", "<NONE> A [<NONE>] C | <NONE> A [B] C", Overwrite},
    }) {
        WatermarkSheet sheet(Abc(), 2);
        sheet.Type(IDC_WM_NAME, name).Focus(IDC_WM_TEXT);
        EXPECT_EQ(sheet.Machine().Desktop().beeps, 1);
        EXPECT_EQ(sheet.Said(), "");
        sheet.Machine().Desktop().boxAnswers = {IDCANCEL};
        sheet.Click(button);
        EXPECT_EQ(sheet.Said(), said);
        EXPECT_EQ(sheet.List(), list);
        EXPECT_EQ(sheet.Template(), IDD_WATERMARK);
        EXPECT_EQ(sheet.HasFocus(IDC_WM_NAME), said == Overwrite);
    }
}

TEST(WatermarkDialog, AnOverwrittenRowGoesAndTheOneUnderEditStaysCurrent)
{
    for (const auto& [current, name, list, stored] : {
             std::tuple{SHORT{3}, u"A", "<NONE> B [A]", "2/B/A/2/Beta/Mine/"},
             {SHORT{1}, u"C", "<NONE> [C] B", "2/C/B/2/Mine/Beta/"},
    }) {
        WatermarkSheet sheet(Abc(), current);
        sheet.Type(IDC_WM_TEXT, u"Mine").Type(IDC_WM_NAME, name).Click(IDOK);
        EXPECT_EQ(sheet.Said(), Overwrite);
        EXPECT_EQ(sheet.List(), list);
        EXPECT_TRUE(sheet.HasFocus(IDC_WM_NAME));
        sheet.Click(IDOK);
        EXPECT_EQ(sheet.Names() + sheet.Texts(), stored);
    }
}

// A row that was left with a taken name shows that name and has its own, which no other row gets without a word.
TEST(WatermarkDialog, ANameBehindAnotherTextIsTakenAllTheSame)
{
    WatermarkSheet sheet(Abc(), 1);
    sheet.Type(IDC_WM_NAME, u"C").Choose(IDC_WM_LIST, 2);
    EXPECT_EQ(sheet.List(), "<NONE> C [B] C | <NONE> A [B] C");
    sheet.Machine().Desktop().boxAnswers = {IDCANCEL};
    sheet.Type(IDC_WM_NAME, u"A").Click(IDOK);
    EXPECT_EQ(sheet.Said(), Overwrite);
    // Of two rows that show a name the one that only shows it goes.
    sheet.Type(IDC_WM_NAME, u"C").Click(IDOK);
    EXPECT_EQ(sheet.List(), "<NONE> [B] C");
    sheet.Type(IDC_WM_NAME, u"C ");
    EXPECT_EQ(sheet.List(), "<NONE> [C ] C | <NONE> [B] C") << "the row follows the focus";
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Names(), "2/C /C/");
}

TEST(WatermarkDialog, NewRowsCountTheirNames)
{
    WatermarkSheet sheet({
        {u"Watermark",  u"x"},
        {u"Watermark2", u"y"}
    });
    sheet.Click(IDC_WM_NEW);
    EXPECT_EQ(sheet.List() + sheet.Usable(), "<NONE> Watermark Watermark2 [Watermark1]NDE");
    EXPECT_TRUE(sheet.HasFocus(IDC_WM_NAME));
    sheet.Type(IDC_WM_NAME, u"Mine").Notice(IDC_WM_NEW, BN_CLICKED);  // the name field keeps the focus
    EXPECT_EQ(sheet.List(), "<NONE> Watermark Watermark2 Mine [Watermark1]") << "the name before is taken";
    sheet.Click(IDC_WM_NEW).Type(IDC_WM_TEXT, u"TEXT").Click(IDOK);
    EXPECT_EQ(sheet.Names(), "5/Watermark/Watermark2/Mine/Watermark1/Watermark3/");
    EXPECT_EQ(sheet.Texts(), "5/x/y/Watermark/Watermark/TEXT/");
    EXPECT_THAT(sheet.Attributes(), testing::EndsWith("/1|20|72|0|0|0|0|2|53|Times New Roman/"));
}

TEST(WatermarkDialog, ThirtyRowsAreTheMostAndFreeSlotsAreUsedAgain)
{
    std::vector<StoredWatermark> rows;
    for (char16_t c = u'A'; rows.size() < 29; ++c) rows.push_back({{c}, u"t"});
    WatermarkSheet sheet(rows, 29);
    sheet.Click(IDC_WM_NEW);
    EXPECT_EQ(sheet.Usable(), "DE");
    EXPECT_EQ(WatermarkEdit.wmId, 30);
    sheet.Click(IDOK).Click(IDC_EDIT_WATERMARK).Choose(IDC_WM_LIST, 5).Click(IDC_WM_DELETE).Click(IDC_WM_NEW);
    EXPECT_EQ(WatermarkRowAt(30)->wmId, 5);
}

TEST(WatermarkDialog, DeleteGoesToTheNextRowAndFromTheLastOneBack)
{
    WatermarkSheet sheet(Abc(), 2);
    for (const auto& [list, focus] : {
             std::pair{"<NONE> A [C]", IDC_WM_NAME},
             {"<NONE> [A]",   IDC_WM_NAME},
             {"[<NONE>]",     IDC_WM_NEW },
    }) {
        sheet.Click(IDC_WM_DELETE);
        EXPECT_EQ(sheet.List(), list);
        EXPECT_TRUE(sheet.HasFocus(focus));
    }
    sheet.Notice(IDC_WM_DELETE, 0);
    EXPECT_EQ(sheet.List(), "[<NONE>]");
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Names() + sheet.Texts() + sheet.Attributes(), "0/0/");
}

TEST(WatermarkDialog, AUserWithoutRightsLooksAndChoosesOnly)
{
    WatermarkSheet sheet(Alpha, 1, false);
    sheet.Notice(IDC_WM_NEW, 0);
    sheet.Notice(IDC_WM_DELETE, 0);
    EXPECT_EQ(sheet.List() + sheet.Usable(), "<NONE> [A] B");
}

TEST(WatermarkDialog, AsksBeforeRowsAreLostForWantOfRoom)
{
    std::vector<StoredWatermark> rows;
    for (char16_t c = u'a'; rows.size() < 20; ++c) rows.push_back({std::u16string(71, c), u"t"});
    WatermarkSheet sheet(rows, 20);
    sheet.Click(IDC_WM_NEW).Type(IDC_WM_NAME, std::u16string(72, u'1'));
    const std::string before = sheet.Names();
    sheet.Machine().Desktop().boxAnswers = {IDCANCEL};
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Said(),
              "The printer has no room to store all watermarks. Lost at the end of the list: 1.\nGo on without them?/");
    EXPECT_EQ(sheet.Names(), before);
    EXPECT_EQ(sheet.Click(IDOK).Template(), IDD_SETUP);
    EXPECT_THAT(sheet.Names(), testing::StartsWith("20/"));
}

// The head, the row without a watermark, and three rows need memory each.
TEST(WatermarkDialog, HalfAListIsNotStored)
{
    for (std::uint64_t call = 1; call <= 5; ++call) {
        WatermarkSheet sheet(Abc(), 1);
        sheet.Click(IDCANCEL);
        sheet.Machine().Fail("GlobalAlloc", call);
        sheet.Click(IDC_EDIT_WATERMARK);
        EXPECT_EQ(sheet.Template(), IDD_SETUP) << call;
        EXPECT_EQ(sheet.Names(), "3/A/B/C/");
    }
}

}  // namespace
