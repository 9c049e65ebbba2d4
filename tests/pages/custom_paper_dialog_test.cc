// The Custom Paper dialog: its list, names and states, and what OK stores.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/custom_paper_rig.h"
#include "tests/support/failing_new.h"

namespace {

using namespace testing_support;
using platform::user::Key;
using testing::ElementsAre;

class CustomPaperDialog : public CustomPaperRig {};

TEST_F(CustomPaperDialog, ComesWithTheCountrysPaper)
{
    struct CountryRow {
        int country, unit;
        std::vector<std::u16string> numbers;
        std::u16string size;
    };
    const CountryRow countries[] = {
        {Germany,      0, {u"210", u"297"},          u"[210 x 297 mm]"         },
        {UnitedStates, 1, {u"8", u"8", u"11", u"0"}, u"[8 8/16 x 11 0/16 inch]"},
    };
    for (const CountryRow& row : countries) {
        SCOPED_TRACE(row.country);
        Open({}, row.country);
        EXPECT_EQ(Dialog().Template(), IDD_CUSTOM_PAPER);
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"No Paper Selected");
        EXPECT_EQ(Usable(), "NOCH");
        EXPECT_TRUE(Listed().empty());
        EXPECT_EQ(UnitShown(), row.unit);
        EXPECT_EQ(Numbers(row.unit), row.numbers);
        Dialog().Click(IDC_CP_NEW);
        EXPECT_THAT(Listed(), ElementsAre(ElementsAre(u"New Paper0", row.size)));
        EXPECT_EQ(Usable(), "NDlnuOCH");
        EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), 0);
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"New Paper0");
        EXPECT_EQ(UnitShown(), row.unit);
        EXPECT_EQ(Numbers(row.unit), row.numbers);
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, 1);
        ASSERT_EQ(Stored().size(), 1u);
        EXPECT_EQ(Stored()[0].cpCode, 257);
        EXPECT_EQ(Stored()[0].cpUnit, row.unit);
    }
}

TEST_F(CustomPaperDialog, MakesNoNewSizeWithoutRoomInBothLists)
{
    for (const Entries& entries : {Entries{}, Three}) {
        for (const char* full : {"LVM_INSERTITEMW", ""}) {
            Open(entries);
            const std::string usable = Usable();
            Dialog().Machine().Fail(full);
            FailNew(*full ? 0 : 1);
            Dialog().Click(IDC_CP_NEW);
            FailNew(0);
            EXPECT_EQ(Listed().size(), entries.size()) << full;
            EXPECT_EQ(WorkListCount(), static_cast<int>(entries.size())) << full;
            EXPECT_EQ(Usable(), usable) << full;
            Dialog().CloseDialog();
        }
    }
}

TEST_F(CustomPaperDialog, GivesTheFirstFreeNumber)
{
    Open({});
    Dialog().Click(IDC_CP_NEW).Click(IDC_CP_NEW).Click(IDC_CP_NEW);
    Dialog().Row(IDC_CP_LIST, 1).Type(IDC_CP_NAME, u"Mine").Click(IDC_CP_NEW);
    EXPECT_EQ(Listed().back().at(0), u"New Paper1");
    EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), 3);
}

TEST_F(CustomPaperDialog, ListsTheSizesOfThePrinter)
{
    Open(Three);
    EXPECT_THAT(Listed(),
                ElementsAre(ElementsAre(u"Card", u"[100 x 150 mm]"), ElementsAre(u"Form", u"[8 8/16 x 11 0/16 inch]"),
                            ElementsAre(u"Poster", u"[216 x 356 mm]")));
    EXPECT_EQ(Usable(), "NDlnuOCH");
    const auto* list = platform::user::Find(Dialog().Handle(IDC_CP_LIST))->As<platform::user::ListViewState>();
    EXPECT_EQ(list->columns.at(0).width, 234);
    EXPECT_EQ(list->columns.at(1).width, 134);
    EXPECT_EQ(list->extendedStyle, DWORD{LVS_EX_FULLROWSELECT});
}

TEST_F(CustomPaperDialog, SelectsThePaperOfTheRecordElseTheFirst)
{
    for (const auto& [paper, selected] : {
             std::pair<SHORT, int>{9,   0},
              {257, 0},
              {259, 2},
              {260, 0}
    }) {
        Open(Three, Germany, paper);
        EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), selected) << paper;
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), Three[static_cast<std::size_t>(selected)].cpName);
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, selected + 1);
    }
}

TEST_F(CustomPaperDialog, StopsAtFiftySizes)
{
    Open(Many(49));
    Dialog().Click(IDC_CP_NEW);
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
    EXPECT_EQ(FocusNow(), Dialog().Handle(IDC_CP_DELETE));
    Dialog().Type(IDC_CP_NAME, u"Last");
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
    Dialog().Send(WM_COMMAND, IDC_CP_NEW, 0);
    EXPECT_EQ(Listed().size(), 50u);
    Dialog().Click(IDC_CP_DELETE);
    EXPECT_TRUE(Dialog().Enabled(IDC_CP_NEW));
    Dialog().Click(IDC_CP_NEW).Click(IDOK);
    EXPECT_EQ(result_, 50);
    ASSERT_EQ(Stored().size(), 50u);
    EXPECT_EQ(Stored()[49].cpCode, 306);
    Again();
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
}

// "Poster" is the size's own name.
TEST_F(CustomPaperDialog, WaitsForAGoodName)
{
    for (const auto& [typed, good] : {
             std::pair{u"Form",   false},
             {u"",       false},
             {u"form",   true },
             {u"Poster", true },
             {u"Forms",  true }
    }) {
        Open(Three);
        Dialog().Row(IDC_CP_LIST, 2).Paste(IDC_CP_NAME, typed);
        EXPECT_EQ(Listed()[2][0], typed);
        EXPECT_EQ(Usable(), good ? "NDlnuOCH" : "nCH") << platform::ToUtf8(typed);
        if (good) continue;
        EXPECT_FALSE(Dialog().Enabled(IDC_CP_WIDTH_MM));
        EXPECT_EQ(Dialog().Try([](HWND page) { return platform::user::Press(page, Key::Enter); }),
                  platform::user::Outcome::Disabled);
        Dialog().Append(IDC_CP_NAME, u"x");
        EXPECT_EQ(Usable(), "NDlnuOCH");
        Dialog().Click(IDOK);
        EXPECT_EQ(StoredNames().back(), typed + std::u16string(u"x"));
    }
}

TEST_F(CustomPaperDialog, KeepsTheLastGoodNameWhileTheTypedOneIsTaken)
{
    Open(Three);
    Dialog().Row(IDC_CP_LIST, 2).Type(IDC_CP_NAME, u"Form");
    EXPECT_EQ(std::u16string(WorkListEntryAt(2)->cpName), u"For");
    Dialog().Append(IDC_CP_NAME, u"s");
    EXPECT_EQ(std::u16string(WorkListEntryAt(2)->cpName), u"Forms");
    Dialog().Type(IDC_CP_NAME, u"1234567890123456789012");
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"1234567890123456789");
}

TEST_F(CustomPaperDialog, SelectsTheSizeBeforeADeletedOneAndNumbersTheRestAnew)
{
    for (const auto& [deleted, selected] : {
             std::pair{2, 1},
             {0, 0},
             {4, 3}
    }) {
        Open(Many(5));
        Dialog().Row(IDC_CP_LIST, deleted).Click(IDC_CP_DELETE);
        EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), selected);
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), Listed()[static_cast<std::size_t>(selected)][0]);
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, selected + 1);
        ASSERT_EQ(Stored().size(), 4u);
        EXPECT_EQ(Stored()[3].cpCode, 260);
        EXPECT_EQ(StoredNames().back(), deleted == 4 ? u"Size03" : u"Size04");
    }
}

TEST_F(CustomPaperDialog, IsEmptyWhenTheOnlySizeIsDeleted)
{
    Open({Three[1]}, UnitedStates);
    Dialog().Click(IDC_CP_DELETE);
    EXPECT_EQ(Usable(), "NOCH");
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"No Paper Selected");
    EXPECT_EQ(FocusNow(), Dialog().Handle(IDC_CP_NEW));
    EXPECT_EQ(UnitShown(), 1);
    Dialog().Click(IDC_CP_NEW);
    EXPECT_EQ(Usable(), "NDlnuOCH");
    Dialog().Click(IDC_CP_DELETE).Click(IDOK);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 1);
    EXPECT_TRUE(Stored().empty());
    EXPECT_EQ(CustomHeadRow.code, 0);
}

TEST_F(CustomPaperDialog, ChangesNothingWhenCancelled)
{
    Open(Three);
    Dialog().Type(IDC_CP_WIDTH_MM, u"200").Type(IDC_CP_NAME, u"Other").Click(IDC_CP_NEW);
    Dialog().Row(IDC_CP_LIST, 1).Click(IDC_CP_DELETE).Click(IDCANCEL);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 0);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes(Three));
    EXPECT_EQ(std::u16string(CustomHeadRow.name), u"Card");
    EXPECT_EQ(CustomHeadRow.size->psWidth, 1000);
}

TEST_F(CustomPaperDialog, EndsAsIfCancelledWhenThePrinterCannotBeWritten)
{
    Open(Three);
    Dialog().Click(IDC_CP_NEW);
    Dialog().Machine().Fail("OpenPrinterW");
    EXPECT_EQ(Dialog().Send(WM_COMMAND, IDOK, 0), FALSE);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 0);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes(Three));
}

// A store may hold anything: units that there are not, names twice or without an end, more sizes than fit.
TEST_F(CustomPaperDialog, PutsHostileSizesRight)
{
    CustomPaperEntry odd = Entry(257, std::u16string(21, u'n'), 7, -5, 30000, 77, -8);
    Open({odd, Inch(99, 200, 1, -3), Three[0], Three[0]});
    EXPECT_EQ(Listed()[0][1], u"[0 x 0 mm]");
    EXPECT_EQ(UnitShown(), 0);
    Dialog().Focus(IDC_CP_WIDTH_MM).Focus(IDC_CP_HEIGHT_MM).Focus(IDC_CP_NAME);
    EXPECT_EQ(Listed()[0][1], u"[76 x 127 mm]");
    Dialog().Row(IDC_CP_LIST, 1);
    for (const int field :
         {IDC_CP_WIDTH_INCH, IDC_CP_WIDTH_SIXTEENTHS, IDC_CP_HEIGHT_INCH, IDC_CP_HEIGHT_SIXTEENTHS, IDC_CP_NAME})
        Dialog().Focus(field);
    EXPECT_EQ(Listed()[1][1], u"[8 8/16 x 5 13/16 inch]");
    Dialog().Click(IDOK);
    EXPECT_EQ(std::u16string(Stored()[0].cpName), std::u16string(20, u'n'));
    EXPECT_EQ(Stored()[0].cpUnit, 0);

    Open(Many(60));
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
    Dialog().Click(IDC_CP_DELETE);
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
}

TEST_F(CustomPaperDialog, AnswersWithHelp)
{
    Open(Three);
    Dialog().Click(IDC_HELP).HelpOn(IDC_CP_NEW).HelpOn(IDC_CP_HEIGHT_LABEL);
    std::vector<std::tuple<int, UINT, DWORD>> seen;
    for (const HelpSeen& one : Dialog().HelpSeenSoFar()) seen.emplace_back(one.control, one.command, one.context);
    EXPECT_THAT(seen, ElementsAre(std::tuple(0, HELP_CONTEXT, 1202), std::tuple(IDC_CP_NEW, HELP_WM_HELP, 1221),
                                  std::tuple(IDC_CP_HEIGHT_LABEL, HELP_WM_HELP, 1222)));
}

TEST_F(CustomPaperDialog, AnswersCommandsAndNotices)
{
    Open(Three);
    EXPECT_EQ(Dialog().Notice(IDC_CP_NAME, EN_KILLFOCUS), TRUE);
    EXPECT_EQ(Dialog().Notice(IDC_CP_WIDTH_MM, EN_SETFOCUS), TRUE);
    EXPECT_EQ(Dialog().Notice(9999, 0), FALSE);
    NMLISTVIEW other{};
    other.hdr = {nullptr, IDC_CP_LIST, LVN_ITEMCHANGED};
    other.iItem = 17;
    other.uNewState = LVIS_SELECTED;
    EXPECT_EQ(Dialog().Send(WM_NOTIFY, IDC_CP_LIST, reinterpret_cast<LPARAM>(&other)), FALSE);
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"Card");
}

// Each size is a row of the list view and an entry of the working list, or neither.
TEST_F(CustomPaperDialog, KeepsListAndEntriesTogetherWhateverFails)
{
    constexpr int TheDeletion = 2;  // behind the question for the selected row
    Open(Three);
    Dialog().Row(IDC_CP_LIST, 1);
    Dialog().Machine().Fail("SendDlgItemMessageW", TheDeletion);
    Dialog().Click(IDC_CP_DELETE);
    EXPECT_EQ(Listed().size(), 3u);
    EXPECT_EQ(WorkListCount(), 3);
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"Form");
    Dialog().Machine().Fail("LVM_INSERTITEMW");
    Dialog().Click(IDC_CP_NEW);
    EXPECT_EQ(Listed().size(), 3u);
    EXPECT_EQ(WorkListCount(), 3);
    Dialog().Machine().Fail("EndDialog");
    Dialog().Click(IDOK).Click(IDOK);
    EXPECT_EQ(StoredNames(), (std::vector<std::u16string>{u"Card", u"Form", u"Poster"}));

    Open({});
    Dialog().Machine().Fail("LVM_INSERTITEMW");
    Dialog().Click(IDC_CP_NEW);
    EXPECT_EQ(Usable(), "NOCH") << "still empty";
}

}  // namespace
