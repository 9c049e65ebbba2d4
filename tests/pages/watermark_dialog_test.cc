// The Watermark dialog: list, names, New and Delete, fields, and what is stored at OK.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/watermark_sheet.h"
#include "watermark/placement.h"

namespace {

using namespace testing_support;

constexpr const char* Overwrite = "The watermark name is already registered.\nOverwrite it?/";
constexpr const char* Blank = "You cannot add a blank name./";

TEST(WatermarkDialog, OpensOnTheJobsWatermark)
{
    WatermarkSheet none(Abc());
    EXPECT_EQ(none.List(), "[<NONE>] A B C");
    EXPECT_EQ(none.Usable(), "N");
    WatermarkSheet sheet(Abc(), 2);
    EXPECT_EQ(sheet.List(), "<NONE> A [B] C");
    EXPECT_EQ(sheet.Usable(), "NDE");
    EXPECT_TRUE(sheet.HasFocus(IDC_WM_NAME));
    EXPECT_EQ(sheet.Field(IDC_WM_NAME), "B");
    EXPECT_EQ(sheet.Field(IDC_WM_TEXT), "Beta");
    EXPECT_EQ(sheet.Field(IDC_WM_SIZE), "72");
    EXPECT_EQ(sheet.Field(IDC_WM_SHADING), "20");
    EXPECT_EQ(sheet.Field(IDC_WM_ANGLE), "53");
    EXPECT_EQ(sheet.Row(IDC_WM_FACE), "Times New Roman");
    EXPECT_EQ(sheet.Row(IDC_WM_ANGLE_MODE), "Diagonal");
    EXPECT_TRUE(sheet.Checked(IDC_WM_CENTER));
}

TEST(WatermarkDialog, AnUntouchedListIsStoredAsItWas)
{
    const StoredWatermark row = {u"A", u"Alpha", u"0|35|40|1|-37|100|3|3|-120|Courier New"};
    WatermarkSheet sheet({row}, 1);
    EXPECT_EQ(sheet.Field(IDC_WM_VERTICAL), "-37");
    EXPECT_EQ(sheet.Field(IDC_WM_HORIZONTAL), "100");
    EXPECT_TRUE(sheet.Checked(IDC_WM_BOLD) && sheet.Checked(IDC_WM_ITALIC) && sheet.Checked(IDC_WM_USER_POSITION));
    sheet.Choose(IDC_WM_LIST, 0).Choose(IDC_WM_LIST, 1).Click(IDOK);
    EXPECT_EQ(sheet.Attributes(), "0|35|40|1|-37|100|3|3|-120|Courier New/");
    EXPECT_EQ(sheet.Names(), "1/A/");
    EXPECT_EQ(sheet.Texts(), "1/Alpha/");
}

// What is typed, what the record has while it is typed, and what the field shows once it is left.
struct NumberRow {
    int control;
    SHORT WatermarkRecord::*field;
    const char16_t* typed;
    SHORT value;
    const char *typing, *left;
};
const StoredWatermark OwnSettings = {u"A", u"Alpha", u"1|20|72|1|7|8|0|3|9|Arial"};

TEST(WatermarkDialog, NumbersAreLimitedAtOnceAndPutRightWhenLeft)
{
    constexpr auto Size = &WatermarkRecord::wmSize, Shading = &WatermarkRecord::wmShading;
    constexpr auto Angle = &WatermarkRecord::wmAngle;
    constexpr auto Y = &WatermarkRecord::wmPositionY, X = &WatermarkRecord::wmPositionX;
    for (const NumberRow& row : {
             NumberRow{IDC_WM_SIZE,       Size,    u"300",    200,  "300",  "200" },
             {IDC_WM_SIZE,       Size,    u"200",    200,  "200",  "200" },
             {IDC_WM_SIZE,       Size,    u"5",      8,    "5",    "8"   },
             {IDC_WM_SIZE,       Size,    u"",       8,    "",     "8"   },
             {IDC_WM_SIZE,       Size,    u"08",     8,    "08",   "08"  },
             {IDC_WM_SIZE,       Size,    u"-1x234", 123,  "123",  "123" },
             {IDC_WM_SHADING,    Shading, u"1",      5,    "1",    "5"   },
             {IDC_WM_SHADING,    Shading, u"100",    100,  "100",  "100" },
             {IDC_WM_SHADING,    Shading, u"101",    100,  "101",  "100" },
             {IDC_WM_ANGLE,      Angle,   u"-180",   -180, "-180", "-180"},
             {IDC_WM_ANGLE,      Angle,   u"-181",   -180, "-181", "-180"},
             {IDC_WM_ANGLE,      Angle,   u"181",    180,  "181",  "180" },
             {IDC_WM_ANGLE,      Angle,   u"-",      0,    "-",    "0"   },
             {IDC_WM_ANGLE,      Angle,   u"12345",  180,  "1234", "180" },
             {IDC_WM_ANGLE,      Angle,   u"007",    7,    "007",  "7"   },
             {IDC_WM_VERTICAL,   Y,       u"-101",   -100, "-101", "-100"},
             {IDC_WM_VERTICAL,   Y,       u"100",    100,  "100",  "100" },
             {IDC_WM_HORIZONTAL, X,       u"999",    100,  "999",  "100" },
             {IDC_WM_HORIZONTAL, X,       u"-5",     -5,   "-5",   "-5"  },
    }) {
        SCOPED_TRACE(std::to_string(row.control) + " " + platform::ToUtf8(row.typed));
        WatermarkSheet sheet({OwnSettings}, 1);
        sheet.Type(row.control, row.typed);
        EXPECT_EQ(WatermarkEdit.*row.field, row.value);
        EXPECT_EQ(WatermarkRowAt(1)->*row.field, row.value);
        EXPECT_EQ(sheet.Field(row.control), row.typing);
        sheet.Focus(IDC_WM_NAME);
        EXPECT_EQ(sheet.Field(row.control), row.left);
    }
}

TEST(WatermarkDialog, SignedFieldsPutABadTextBack)
{
    for (const int control : {IDC_WM_ANGLE, IDC_WM_VERTICAL, IDC_WM_HORIZONTAL}) {
        WatermarkSheet sheet({OwnSettings}, 1);
        sheet.Type(control, u"42").Append(control, u"x");
        EXPECT_EQ(sheet.Field(control), "42") << control;
        sheet.Paste(control, u"-1-2");
        EXPECT_EQ(sheet.Field(control), "42") << control;
        sheet.Type(control, u"0").Append(control, u"x");
        EXPECT_EQ(sheet.Field(control), "") << control;
    }
}

TEST(WatermarkDialog, ArrowsStayInTheRange)
{
    WatermarkSheet sheet({OwnSettings}, 1);
    sheet.Type(IDC_WM_SIZE, u"199").Spin(IDC_WM_SIZE_SPIN, true, 3);
    EXPECT_EQ(WatermarkEdit.wmSize, 200);
    sheet.Type(IDC_WM_ANGLE, u"-179").Spin(IDC_WM_ANGLE_SPIN, false, 3);
    EXPECT_EQ(WatermarkEdit.wmAngle, -180);
    sheet.Spin(IDC_WM_VERTICAL_SPIN, true).Spin(IDC_WM_HORIZONTAL_SPIN, false);
    EXPECT_EQ(WatermarkEdit.wmPositionY, 8);
    EXPECT_EQ(WatermarkEdit.wmPositionX, 7);
}

TEST(WatermarkDialog, TheLowSizeFollowsDownwards)
{
    WatermarkSheet sheet({OwnSettings}, 1);
    sheet.Paste(IDC_WM_SIZE, u"12").Paste(IDC_WM_SIZE, u"90");
    EXPECT_EQ(WatermarkRowAt(1)->wmSizeLow, 12);
    EXPECT_EQ(WatermarkEdit.wmSizeLow, 12);
    sheet.Type(IDC_WM_SIZE, u"150");
    EXPECT_EQ(WatermarkRowAt(1)->wmSizeLow, 8) << "the 1 is typed first";
}

TEST(WatermarkDialog, TextsTake72Characters)
{
    WatermarkSheet sheet(Abc(), 1);
    sheet.Type(IDC_WM_TEXT, std::u16string(80, u't')).Type(IDC_WM_NAME, std::u16string(80, u'n')).Click(IDOK);
    EXPECT_EQ(sheet.Names(), "3/" + std::string(72, 'n') + "/B/C/");
    EXPECT_EQ(sheet.Texts(), "3/" + std::string(72, 't') + "/Beta/Gamma/");
}

struct AngleRow {
    const char16_t* mode;
    const char* shown;
    bool open;
};

TEST(WatermarkDialog, ModesSetTheAngle)
{
    WatermarkSheet sheet({OwnSettings}, 1);
    EXPECT_TRUE(sheet.Enabled(IDC_WM_ANGLE));
    SHORT mode[] = {1, 3, 0, 3, 2, 3};
    int next = 0;
    for (const AngleRow& row : {
             AngleRow{u"Vertical",     "90", false},
             {u"User Setting", "90", true },
             {u"Horizontal",   "0",  false},
             {u"User Setting", "0",  true },
             {u"Diagonal",     "53", false},
             {u"User Setting", "53", true },
    }) {
        sheet.Choose(IDC_WM_ANGLE_MODE, row.mode);
        EXPECT_EQ(sheet.Field(IDC_WM_ANGLE), row.shown) << next;
        for (const int control : {IDC_WM_ANGLE, IDC_WM_ANGLE_SPIN, IDC_WM_ANGLE_LABEL})
            EXPECT_EQ(sheet.Enabled(control), row.open) << next << " " << control;
        EXPECT_EQ(WatermarkRowAt(1)->wmAngleMode, mode[next++]);
        EXPECT_EQ(std::to_string(WatermarkRowAt(1)->wmAngle), row.shown);
    }
}

TEST(WatermarkDialog, CenterClearsThePositionAndUserSettingOpensIt)
{
    WatermarkSheet sheet({OwnSettings}, 1);
    const auto open = [&] {
        int usable = 0;
        for (const int control : {IDC_WM_HORIZONTAL_LABEL, IDC_WM_VERTICAL_LABEL, IDC_WM_VERTICAL, IDC_WM_HORIZONTAL,
                                  IDC_WM_HORIZONTAL_SPIN, IDC_WM_VERTICAL_SPIN})
            usable += sheet.Enabled(control);
        return usable;
    };
    EXPECT_EQ(open(), 6);
    sheet.Click(IDC_WM_CENTER);
    EXPECT_EQ(open(), 0);
    EXPECT_EQ(sheet.Field(IDC_WM_VERTICAL) + sheet.Field(IDC_WM_HORIZONTAL), "00");
    EXPECT_EQ(WatermarkRowAt(1)->wmPositionMode, 0);
    EXPECT_EQ(WatermarkRowAt(1)->wmPositionX, 0);
    sheet.Drawn();
    sheet.Click(IDC_WM_USER_POSITION);
    EXPECT_EQ(open(), 6);
    EXPECT_TRUE(sheet.Drawn().empty());
    EXPECT_EQ(WatermarkRowAt(1)->wmPositionMode, 1);
}

TEST(WatermarkDialog, FaceAndStyleGoIntoTheRow)
{
    WatermarkSheet sheet({OwnSettings}, 1);
    sheet.Choose(IDC_WM_FACE, u"Courier New").Click(IDC_WM_BOLD);
    EXPECT_EQ(std::u16string(WatermarkRowAt(1)->wmFaceName), u"Courier New");
    EXPECT_EQ(WatermarkRowAt(1)->wmBold, 1);
    sheet.Click(IDC_WM_BOLD).Click(IDC_WM_ITALIC).Click(IDOK);
    EXPECT_EQ(sheet.Attributes(), "1|20|72|1|7|8|1|3|9|Courier New/");
}

TEST(WatermarkDialog, AFaceThatIsNotThereLeavesTheLastOneShown)
{
    WatermarkSheet sheet(
        {
            OwnSettings, {u"B", u"b", u"1|20|72|0|0|0|0|0|0|Nowhere Sans"}
    },
        1);
    sheet.Choose(IDC_WM_LIST, 2);
    EXPECT_EQ(sheet.Row(IDC_WM_FACE), "Arial");
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Attributes(), "1|20|72|1|7|8|0|3|9|Arial/1|20|72|0|0|0|0|0|0|Nowhere Sans/");
}

// Names.

TEST(WatermarkDialog, TheListBoxFollowsTheTypingAndTheRowTheFocus)
{
    WatermarkSheet sheet(Abc(), 2);
    sheet.Type(IDC_WM_NAME, u"New");
    EXPECT_EQ(sheet.List(), "<NONE> A [New] C | <NONE> A [B] C");
    sheet.Focus(IDC_WM_TEXT);
    EXPECT_EQ(sheet.List(), "<NONE> A [New] C");
}

struct RefusedRow {
    const char16_t* name;
    const char* list;
    const char* said;
};

TEST(WatermarkDialog, ANameThatCannotBeIsLeftWithASoundAndRefusedAtOkAndNew)
{
    for (const int button : {IDOK, IDC_WM_NEW})
        for (const RefusedRow& row : {
                 RefusedRow{u"",       "<NONE> A [] C | <NONE> A [B] C",       Blank    },
                 {u"  ",     "<NONE> A [  ] C | <NONE> A [B] C",     Blank    },
                 {u"C",      "<NONE> A [C] C | <NONE> A [B] C",      Overwrite},
                 {u"<NONE>", "<NONE> A [<NONE>] C | <NONE> A [B] C", Overwrite},
        }) {
            SCOPED_TRACE(platform::ToUtf8(row.name));
            WatermarkSheet sheet(Abc(), 2);
            sheet.Type(IDC_WM_NAME, row.name).Focus(IDC_WM_TEXT);
            EXPECT_EQ(sheet.Machine().Desktop().beeps, 1);
            EXPECT_EQ(sheet.Said(), "");
            sheet.Machine().Desktop().boxAnswers = {IDCANCEL};
            sheet.Click(button);
            EXPECT_EQ(sheet.Said(), row.said);
            EXPECT_EQ(sheet.List(), row.list);
            EXPECT_EQ(sheet.Template(), IDD_WATERMARK);
            EXPECT_EQ(sheet.HasFocus(IDC_WM_NAME), row.said == Overwrite);
        }
}

TEST(WatermarkDialog, ABlankAtTheEndMakesAName)
{
    WatermarkSheet sheet(Abc(), 2);
    sheet.Type(IDC_WM_NAME, u"C ").Click(IDOK);
    EXPECT_EQ(sheet.Names(), "3/A/C /C/");
}

struct OverwriteRow {
    SHORT current;
    const char16_t* name;
    const char *list, *names, *texts;
};

TEST(WatermarkDialog, AnOverwrittenRowGoesAndTheOneUnderEditStaysCurrent)
{
    for (const OverwriteRow& row : {
             OverwriteRow{2, u"C", "<NONE> A [C]", "2/A/C/", "2/Alpha/Mine/"},
             {2, u"A", "<NONE> [A] C", "2/A/C/", "2/Mine/Gamma/"},
             {3, u"A", "<NONE> B [A]", "2/B/A/", "2/Beta/Mine/" },
             {1, u"C", "<NONE> [C] B", "2/C/B/", "2/Mine/Beta/" },
    }) {
        SCOPED_TRACE(row.list);
        WatermarkSheet sheet(Abc(), row.current);
        sheet.Type(IDC_WM_TEXT, u"Mine").Type(IDC_WM_NAME, row.name).Click(IDOK);
        EXPECT_EQ(sheet.Said(), Overwrite);
        EXPECT_EQ(sheet.List(), row.list);
        EXPECT_EQ(sheet.Usable(), "NDE");
        EXPECT_EQ(sheet.Field(IDC_WM_NAME), platform::ToUtf8(row.name));
        EXPECT_EQ(sheet.Field(IDC_WM_TEXT), "Mine");
        EXPECT_TRUE(sheet.HasFocus(IDC_WM_NAME));
        sheet.Click(IDOK);
        EXPECT_EQ(sheet.Said(), "");
        EXPECT_EQ(sheet.Names(), row.names);
        EXPECT_EQ(sheet.Texts(), row.texts);
    }
}

TEST(WatermarkDialog, NoneIsNotOverwritten)
{
    WatermarkSheet sheet(Abc(), 2);
    sheet.Type(IDC_WM_NAME, u"<NONE>").Click(IDOK);
    EXPECT_EQ(sheet.Said(), Overwrite);
    EXPECT_EQ(sheet.List(), "<NONE> A [<NONE>] C | <NONE> A [B] C");
    EXPECT_TRUE(sheet.HasFocus(IDC_WM_NAME));
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
    sheet.Type(IDC_WM_NAME, u"B").Choose(IDC_WM_LIST, 1).Click(IDOK);
    EXPECT_EQ(sheet.Names(), "3/A/B/C/");
}

TEST(WatermarkDialog, NoTwoRowsEndWithOneName)
{
    WatermarkSheet sheet(Abc(), 1);
    sheet.Type(IDC_WM_NAME, u"C").Choose(IDC_WM_LIST, 2).Type(IDC_WM_NAME, u"C").Click(IDOK);
    EXPECT_EQ(sheet.Said(), Overwrite);
    // The row that only showed the name is gone; the one that has it is still there.
    EXPECT_EQ(sheet.List(), "<NONE> [B] C");
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Names(), "2/B/C/");
}

// New and Delete.

TEST(WatermarkDialog, NewRowsCountTheirNames)
{
    WatermarkSheet sheet({
        {u"Watermark",  u"x"},
        {u"Watermark2", u"y"}
    });
    sheet.Click(IDC_WM_NEW);
    EXPECT_EQ(sheet.List(), "<NONE> Watermark Watermark2 [Watermark1]");
    EXPECT_EQ(sheet.Usable(), "NDE");
    EXPECT_TRUE(sheet.HasFocus(IDC_WM_NAME));
    sheet.Click(IDC_WM_NEW);
    EXPECT_EQ(sheet.List(), "<NONE> Watermark Watermark2 Watermark1 [Watermark3]");
    EXPECT_EQ(WatermarkEdit.wmId, 4);
    for (const int control : {IDC_WM_ANGLE, IDC_WM_ANGLE_LABEL, IDC_WM_VERTICAL, IDC_WM_HORIZONTAL})
        EXPECT_FALSE(sheet.Enabled(control)) << control;
    sheet.Type(IDC_WM_NAME, u"Mine").Type(IDC_WM_TEXT, u"TEXT").Click(IDOK);
    EXPECT_EQ(sheet.Names(), "4/Watermark/Watermark2/Watermark1/Mine/");
    EXPECT_EQ(sheet.Texts(), "4/x/y/Watermark/TEXT/");
    EXPECT_THAT(sheet.Attributes(), testing::EndsWith("/1|20|72|0|0|0|0|2|53|Times New Roman/"));
}

TEST(WatermarkDialog, NewTakesTheNameOfTheRowBefore)
{
    WatermarkSheet sheet(Abc(), 1);
    sheet.Type(IDC_WM_NAME, u"Mine").Press(platform::user::Key::Tab).Click(IDC_WM_NEW);
    EXPECT_EQ(sheet.List(), "<NONE> Mine B C [Watermark]");
}

TEST(WatermarkDialog, FreeSlotsAreUsedAgain)
{
    WatermarkSheet sheet(Abc(), 2);
    sheet.Click(IDC_WM_DELETE).Click(IDC_WM_NEW);
    EXPECT_EQ(sheet.List(), "<NONE> A C [Watermark]");
    EXPECT_EQ(WatermarkEdit.wmId, 2);
    EXPECT_EQ(WatermarkRowAt(3)->wmId, 2);
}

TEST(WatermarkDialog, ThirtyRowsAreTheMost)
{
    std::vector<StoredWatermark> rows;
    for (int i = 1; i <= 29; ++i) rows.push_back({u"n" + std::u16string(static_cast<std::size_t>(i), u'.'), u"t"});
    for (auto& row : rows) row.attributes = u"1|20|72|0|0|0|0|2|0|Arial";
    WatermarkSheet sheet(rows, 29);
    EXPECT_EQ(sheet.Usable(), "NDE");
    sheet.Click(IDC_WM_NEW);
    EXPECT_EQ(sheet.Usable(), "DE");
    EXPECT_EQ(WatermarkEdit.wmId, 30);
    EXPECT_EQ(WatermarkCount, 30);
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Said(), "");
    sheet.Click(IDC_EDIT_WATERMARK);
    EXPECT_EQ(sheet.Usable(), "DE");
    sheet.Choose(IDC_WM_LIST, 5).Click(IDC_WM_DELETE);
    EXPECT_EQ(sheet.Usable(), "NDE");
    EXPECT_EQ(sheet.Items(IDC_WM_LIST).size(), 30u);
}

TEST(WatermarkDialog, DeleteGoesToTheNextRowAndFromTheLastOneBack)
{
    WatermarkSheet sheet(Abc(), 2);
    sheet.Click(IDC_WM_DELETE);
    EXPECT_EQ(sheet.List(), "<NONE> A [C]");
    EXPECT_TRUE(sheet.HasFocus(IDC_WM_NAME));
    EXPECT_FALSE(sheet.Enabled(IDC_WM_ANGLE));
    sheet.Click(IDC_WM_DELETE);
    EXPECT_EQ(sheet.List(), "<NONE> [A]");
    sheet.Click(IDC_WM_DELETE);
    EXPECT_EQ(sheet.List(), "[<NONE>]");
    EXPECT_EQ(sheet.Usable(), "N");
    EXPECT_TRUE(sheet.HasFocus(IDC_WM_NEW));
    sheet.Notice(IDC_WM_DELETE, 0);
    EXPECT_EQ(sheet.List(), "[<NONE>]");
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Names(), "0/");
    EXPECT_EQ(sheet.Texts(), "0/");
    EXPECT_EQ(sheet.Attributes(), "");
}

// OK, Cancel, rights.

TEST(WatermarkDialog, CancelStoresNothing)
{
    for (const bool box : {false, true}) {
        WatermarkSheet sheet(Abc(), 1);
        sheet.Type(IDC_WM_TEXT, u"Other").Choose(IDC_WM_LIST, 2).Click(IDC_WM_DELETE).Click(IDC_WM_NEW);
        box ? sheet.CloseDialog() : sheet.Click(IDCANCEL);
        EXPECT_EQ(sheet.Names(), "3/A/B/C/");
        EXPECT_EQ(sheet.Texts(), "3/Alpha/Beta/Gamma/");
        EXPECT_EQ(sheet.Items(IDC_WATERMARK).size(), 4u);
    }
}

TEST(WatermarkDialog, EnterInAFieldTakesWhatIsTyped)
{
    WatermarkSheet sheet(Abc(), 1);
    sheet.Type(IDC_WM_SIZE, u"300").Press(platform::user::Key::Enter);
    EXPECT_EQ(sheet.Template(), IDD_SETUP);
    EXPECT_THAT(sheet.Attributes(), testing::StartsWith("1|20|200|"));
}

TEST(WatermarkDialog, AUserWithoutRightsLooksOnly)
{
    WatermarkSheet sheet(
        {
            OwnSettings, {u"B", u"Beta"}
    },
        1, false);
    for (const int row : {1, 2, 0, 1}) {
        EXPECT_EQ(sheet.Usable(), "") << row;
        for (const int control : {IDC_WM_TEXT, IDC_WM_FACE, IDC_WM_SIZE, IDC_WM_BOLD, IDC_WM_SHADING, IDC_WM_ANGLE_MODE,
                                  IDC_WM_ANGLE, IDC_WM_ANGLE_SPIN, IDC_WM_CENTER, IDC_WM_USER_POSITION, IDC_WM_VERTICAL,
                                  IDC_WM_HORIZONTAL, IDC_WM_VERTICAL_SPIN, IDC_WM_HORIZONTAL_SPIN})
            EXPECT_FALSE(sheet.Enabled(control)) << row << " " << control;
        sheet.Choose(IDC_WM_LIST, row);
    }
    sheet.Notice(IDC_WM_NEW, 0);
    sheet.Notice(IDC_WM_DELETE, 0);
    EXPECT_EQ(sheet.List(), "<NONE> [A] B");
}

TEST(WatermarkDialog, AsksBeforeRowsAreLostForWantOfRoom)
{
    std::vector<StoredWatermark> rows;
    for (int i = 0; i < 20; ++i) rows.push_back({std::u16string(60, static_cast<char16_t>(u'a' + i)), u"t"});
    WatermarkSheet sheet(rows, 20);
    sheet.Click(IDC_WM_NEW).Type(IDC_WM_NAME, std::u16string(72, u'1'));
    for (int i = 2; i <= 4; ++i) {
        sheet.Click(IDC_WM_NEW).Type(IDC_WM_NAME, std::u16string(72, static_cast<char16_t>(u'0' + i)));
    }
    const std::string before = sheet.Names();
    sheet.Machine().Desktop().boxAnswers = {IDCANCEL};
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Said(),
              "The printer has no room to store all watermarks. Lost at the end of the list: 1.\nGo on without them?/");
    EXPECT_EQ(sheet.Template(), IDD_WATERMARK);
    EXPECT_EQ(sheet.Names(), before);
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Template(), IDD_SETUP);
    EXPECT_EQ(sheet.Names().substr(0, 3), "23/");
}

TEST(WatermarkDialog, AnswersWithHelp)
{
    WatermarkSheet sheet(Abc(), 1);
    sheet.Click(IDC_HELP).HelpOn(IDC_WM_PREVIEW).HelpOn(IDC_WM_FRAME).HelpOn(IDC_WM_ANGLE_RANGE).HelpOn(IDCANCEL);
    std::vector<DWORD> contexts;
    for (const HelpSeen& seen : sheet.HelpSeenSoFar()) contexts.push_back(seen.context);
    EXPECT_THAT(contexts, testing::ElementsAre(1103, 1151, 1151, 1152, 1152));
}

}  // namespace
