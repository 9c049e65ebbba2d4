// The Custom Paper dialog: its list, names and states, and what OK stores.
#include <gtest/gtest.h>

#include "tests/support/custom_paper_rig.h"
#include "tests/support/failing_new.h"

namespace {

using namespace testing_support;

class CustomPaperDialog : public CustomPaperRig {};

TEST_F(CustomPaperDialog, ComesWithTheCountrysPaper)
{
    for (const auto& [country, unit, numbers, size] : {
             std::tuple{Germany,      0, std::string(": 210 297"), "[210 x 297 mm]"         },
             {UnitedStates, 1, ": 8 8 11 0",             "[8 8/16 x 11 0/16 inch]"}
    }) {
        Open({}, country);
        EXPECT_EQ(Editor() + " " + Usable(), "No Paper Selected" + numbers + " NO");
        Dialog().Click(IDC_CP_NEW).Click(IDC_CP_NEW).Row(IDC_CP_LIST, 0).Type(IDC_CP_NAME, u"Mine").Click(IDC_CP_NEW);
        EXPECT_EQ(Names(), "Mine/New Paper1/*New Paper0/") << "the first free number";
        Dialog().Row(IDC_CP_LIST, 0).Click(IDC_CP_DELETE).Row(IDC_CP_LIST, 0).Click(IDC_CP_DELETE);
        EXPECT_EQ(Size(), size);
        EXPECT_EQ(Editor() + " " + Usable(), "New Paper0" + numbers + " NDlnuO");
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, 1);
        ASSERT_EQ(Stored().size(), 1u);
        EXPECT_EQ(Stored()[0].cpCode, 257);
        EXPECT_EQ(Stored()[0].cpUnit, unit);
    }
}

TEST_F(CustomPaperDialog, ListsTheSizesOfThePrinter)
{
    Open(Three);
    EXPECT_EQ(Size(1), "[8 8/16 x 11 0/16 inch]");
    const auto* list = platform::user::Find(Dialog().Handle(IDC_CP_LIST))->As<platform::user::ListViewState>();
    EXPECT_EQ(list->columns.at(0).width, 234);
    EXPECT_EQ(list->columns.at(1).width, 134);
    EXPECT_EQ(list->extendedStyle, DWORD{LVS_EX_FULLROWSELECT});
    const char* const shown[] = {"Card: 100 150", "Form: 8 8 11 0", "Poster: 216 356"};
    for (int row = 0; row < 3; ++row) {
        Dialog().Row(IDC_CP_LIST, row);
        EXPECT_EQ(Editor(), shown[row]);
    }
    Dialog().Click(IDOK);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes(Three)) << "what was looked at only is as it was";
}

TEST_F(CustomPaperDialog, SelectsThePaperOfTheRecordElseTheFirst)
{
    for (const auto& [paper, shown, result] : {
             std::tuple<SHORT, const char*, int>{9,   "*Card/Form/Poster/", 1},
             {259, "Card/Form/*Poster/", 3},
             {260, "*Card/Form/Poster/", 1}
    }) {
        Open(Three, Germany, paper);
        EXPECT_EQ(Names(), shown) << paper;
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, result);
    }
}

TEST_F(CustomPaperDialog, StopsAtFiftySizes)
{
    Open(Many(49)).Click(IDC_CP_NEW);
    EXPECT_EQ(GetFocus(), Dialog().Handle(IDC_CP_DELETE));
    Dialog().Type(IDC_CP_NAME, u"Last").Send(WM_COMMAND, IDC_CP_NEW, 0);
    EXPECT_EQ(WorkListCount(), 50);
    Dialog().Click(IDOK);
    EXPECT_EQ(result_, 50);
    EXPECT_EQ(Stored().at(49).cpCode, 306);
    for (const int sizes : {50, 60}) {
        Open(Many(sizes));
        EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
        EXPECT_EQ(Dialog().Click(IDC_CP_DELETE).Enabled(IDC_CP_NEW), sizes == 50);
    }
}

TEST_F(CustomPaperDialog, WaitsForAGoodName)
{
    for (const auto& [typed, good] : {
             std::pair{u"Form",   false},
             {u"",       false},
             {u"form",   true },
             {u"Poster", true }
    }) {
        Open(Three).Row(IDC_CP_LIST, 2).Paste(IDC_CP_NAME, typed);
        EXPECT_EQ(Names(), "Card/Form/*" + platform::ToUtf8(typed) + "/");
        EXPECT_EQ(Usable(), good ? "NDlnuO" : "n");
        EXPECT_EQ(WorkListEntryAt(2)->cpName, good ? std::u16string(typed) : u"Poster");
        Dialog().Append(IDC_CP_NAME, u"x").Click(IDOK);
        EXPECT_EQ(StoredNames(), "Card/Form/" + platform::ToUtf8(typed) + "x/");
    }
    Again().Type(IDC_CP_NAME, u"1234567890123456789012");
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"1234567890123456789");
}

TEST_F(CustomPaperDialog, SelectsTheSizeBeforeADeletedOneAndNumbersTheRestAnew)
{
    for (const auto& [deleted, names, result] : {
             std::tuple{2, "Size10/*Size11/Size13/", 2},
             {0, "*Size11/Size12/Size13/", 1},
             {3, "Size10/Size11/*Size12/", 3}
    }) {
        Open(Many(4)).Row(IDC_CP_LIST, deleted).Click(IDC_CP_DELETE);
        EXPECT_EQ(Names(), names);
        EXPECT_EQ(Usable(), "NDlnuO");
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, result);
        EXPECT_EQ(Stored().back().cpCode, 259);
    }
}

TEST_F(CustomPaperDialog, IsEmptyWhenTheOnlySizeIsDeleted)
{
    Open({Three[1]}, UnitedStates).Click(IDC_CP_DELETE);
    EXPECT_EQ(Usable() + Editor(), "NONo Paper Selected: 8 8 11 0");
    EXPECT_EQ(GetFocus(), Dialog().Handle(IDC_CP_NEW));
    Dialog().Click(IDOK);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 1);
    EXPECT_TRUE(Stored().empty());
    EXPECT_EQ(CustomHeadRow.code, 0);
}

TEST_F(CustomPaperDialog, ChangesNothingWhenCancelled)
{
    Open(Three).Type(IDC_CP_WIDTH_MM, u"200").Type(IDC_CP_NAME, u"Other").Click(IDC_CP_NEW);
    Dialog().Row(IDC_CP_LIST, 1).Click(IDC_CP_DELETE).Click(IDCANCEL);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 0);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes(Three));
    EXPECT_EQ(std::u16string(CustomHeadRow.name), u"Card");
}

// A store may hold anything: units that there are not, names twice or without an end.
TEST_F(CustomPaperDialog, PutsHostileSizesRight)
{
    Open({Entry(257, std::u16string(21, u'n'), 7, -5, 30000, 77, -8), Inch(99, 200, 1, -3), Three[0], Three[0]});
    EXPECT_EQ(Size(), "[0 x 0 mm]");
    Dialog().Focus(IDC_CP_WIDTH_MM).Focus(IDC_CP_HEIGHT_MM).Focus(IDC_CP_NAME);
    EXPECT_EQ(Size(), "[76 x 127 mm]");
    Dialog().Row(IDC_CP_LIST, 1);
    for (const int field :
         {IDC_CP_WIDTH_INCH, IDC_CP_WIDTH_SIXTEENTHS, IDC_CP_HEIGHT_INCH, IDC_CP_HEIGHT_SIXTEENTHS, IDC_CP_NAME})
        Dialog().Focus(field);
    EXPECT_EQ(Size(1), "[8 8/16 x 5 13/16 inch]");
    Dialog().Click(IDOK);
    EXPECT_EQ(std::u16string(Stored()[0].cpName), std::u16string(20, u'n'));
    EXPECT_EQ(Stored()[0].cpUnit, 0);
}

TEST_F(CustomPaperDialog, AnswersCommandsAndNotices)
{
    Open(Three);
    EXPECT_EQ(Dialog().Notice(IDC_CP_WIDTH_MM, EN_SETFOCUS), TRUE);
    EXPECT_EQ(Dialog().Notice(9999, 0), FALSE);
    NMLISTVIEW other{};
    other.hdr = {nullptr, IDC_CP_LIST, LVN_ITEMCHANGED};
    other.iItem = 17;
    other.uNewState = LVIS_SELECTED;
    EXPECT_EQ(Dialog().Send(WM_NOTIFY, IDC_CP_LIST, reinterpret_cast<LPARAM>(&other)), FALSE);
    EXPECT_EQ(Editor(), "Card: 100 150");
}

// Each size is a row of the list view and an entry of the working list, or neither.
TEST_F(CustomPaperDialog, KeepsListAndEntriesTogetherWhateverFails)
{
    for (const Entries& entries : {Entries{}, Three})
        for (const char* full : {"LVM_INSERTITEMW", ""}) {
            Open(entries);
            const std::string before = Names() + Usable();
            Dialog().Machine().Fail(full);
            FailNew(*full ? 0 : 1);
            Dialog().Click(IDC_CP_NEW);
            FailNew(0);
            EXPECT_EQ(Names() + Usable(), before) << full;
        }
    constexpr int TheDeletion = 2;  // behind the question for the selected row
    Open(Three).Row(IDC_CP_LIST, 1);
    Dialog().Machine().Fail("SendDlgItemMessageW", TheDeletion);
    Dialog().Click(IDC_CP_DELETE);
    EXPECT_EQ(Names(), "Card/*Form/Poster/");
    Dialog().Click(IDCANCEL);
    Dialog().Machine().Fail("LVM_INSERTITEMW", 2);
    Again();
    EXPECT_NE(Dialog().Template(), IDD_CUSTOM_PAPER) << "a list that cannot be shown whole is not edited";
    EXPECT_EQ(CustomPaperAccepted, 0);
}

}  // namespace
