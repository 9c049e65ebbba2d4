// The Custom Paper dialog: its list, names and states, and what OK stores.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/custom_paper_rig.h"
#include "tests/support/failing_places.h"

namespace {

using namespace testing_support;
using platform::user::Key;
using testing::ElementsAre;

class CustomPaperDialog : public CustomPaperRig {};

struct CountryRow {
    int country;
    int unit;
    std::vector<std::u16string> numbers;
    std::u16string size;
};
// clang-format off
const CountryRow Countries[] = {
    {Germany,      0, {u"210", u"297"},            u"[210 x 297 mm]"         },
    {UnitedStates, 1, {u"8", u"8", u"11", u"0"}, u"[8 8/16 x 11 0/16 inch]"},
};
// clang-format on

TEST_F(CustomPaperDialog, OpensEmptyWithoutSizes)
{
    for (const CountryRow& row : Countries) {
        Open({}, row.country);
        EXPECT_EQ(Dialog().Template(), IDD_CUSTOM_PAPER);
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"No Paper Selected");
        EXPECT_EQ(Usable(), "NOCH");
        EXPECT_TRUE(Listed().empty());
        EXPECT_EQ(UnitShown(), row.unit);
        EXPECT_EQ(Numbers(row.unit), row.numbers);
    }
}

TEST_F(CustomPaperDialog, SavesAnEmptyListAsNothing)
{
    Open({});
    Dialog().Click(IDOK);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 1);
    EXPECT_TRUE(Stored().empty());
}

TEST_F(CustomPaperDialog, MakesANewSizeOfTheCountrysPaper)
{
    for (const CountryRow& row : Countries) {
        Open({}, row.country);
        Dialog().Click(IDC_CP_NEW);
        EXPECT_EQ(Listed(), (Cells{
                                {u"New Paper0", row.size}
        }));
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
    EXPECT_EQ(
        Listed(),
        (Cells{
            {u"Card",   u"[100 x 150 mm]"         },
            {u"Form",   u"[8 8/16 x 11 0/16 inch]"},
            {u"Poster", u"[216 x 356 mm]"         }
    }));
    EXPECT_EQ(Usable(), "NDlnuOCH");
    const auto* list = platform::user::Find(Dialog().Handle(IDC_CP_LIST))->As<platform::user::ListViewState>();
    ASSERT_EQ(list->columns.size(), 2u);
    EXPECT_EQ(list->columns[0].width, 234);
    EXPECT_EQ(list->columns[1].width, 134);
    EXPECT_EQ(list->extendedStyle, DWORD{LVS_EX_FULLROWSELECT});
}

struct PaperRowOfRecord {
    SHORT paper;
    int selected;
};

TEST_F(CustomPaperDialog, SelectsThePaperOfTheRecordElseTheFirst)
{
    for (const PaperRowOfRecord& row : {
             PaperRowOfRecord{9,   0},
             PaperRowOfRecord{257, 0},
             PaperRowOfRecord{259, 2},
             PaperRowOfRecord{260, 0}
    }) {
        Open(Three, Germany, row.paper);
        EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), row.selected) << row.paper;
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), Three[static_cast<std::size_t>(row.selected)].cpName);
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, row.selected + 1);
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

struct NameRow {
    std::u16string typed;
    bool good;
};

TEST_F(CustomPaperDialog, WaitsForAGoodName)
{
    for (const NameRow& row : {
             NameRow{u"Form",   false},
             NameRow{u"",       false},
             NameRow{u"form",   true },
             NameRow{u"Poster", true },
             NameRow{u"Forms",  true }
    }) {
        Open(Three);
        Dialog().Row(IDC_CP_LIST, 2).Type(IDC_CP_NAME, row.typed);
        EXPECT_EQ(Listed()[2][0], row.typed);
        EXPECT_EQ(Usable(), row.good ? "NDlnuOCH" : "nCH") << platform::ToUtf8(row.typed);
        if (row.good) continue;
        EXPECT_FALSE(Dialog().Enabled(IDC_CP_WIDTH_MM));
        EXPECT_EQ(Dialog().Try([](HWND page) { return platform::user::Press(page, Key::Enter); }),
                  platform::user::Outcome::Disabled);
        Dialog().Append(IDC_CP_NAME, u"x");
        EXPECT_EQ(Usable(), "NDlnuOCH");
        Dialog().Click(IDOK);
        EXPECT_EQ(StoredNames().back(), row.typed + u"x");
    }
}

TEST_F(CustomPaperDialog, DoesNotTakeASizesOwnNameForAnothers)
{
    Open(Three);
    Dialog().Row(IDC_CP_LIST, 2).Paste(IDC_CP_NAME, u"Poster");
    EXPECT_EQ(Usable(), "NDlnuOCH");
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

struct DeletedRow {
    int deleted, selected;
};

TEST_F(CustomPaperDialog, SelectsTheSizeBeforeADeletedOne)
{
    for (const DeletedRow& row : {
             DeletedRow{2, 1},
             DeletedRow{0, 0},
             DeletedRow{4, 3}
    }) {
        Open(Many(5));
        Dialog().Row(IDC_CP_LIST, row.deleted).Click(IDC_CP_DELETE);
        EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), row.selected);
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), Listed()[static_cast<std::size_t>(row.selected)][0]);
        EXPECT_EQ(Listed().size(), 4u);
    }
}

TEST_F(CustomPaperDialog, NumbersTheSizesBehindADeletedOneAnew)
{
    Open(Three);
    Dialog().Row(IDC_CP_LIST, 1).Click(IDC_CP_DELETE).Click(IDOK);
    EXPECT_EQ(result_, 1);
    ASSERT_EQ(Stored().size(), 2u);
    EXPECT_EQ(Stored()[1].cpCode, 258);
    EXPECT_EQ(StoredNames(), (std::vector<std::u16string>{u"Card", u"Poster"}));
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

// Every call of every platform function fails once, over a walk through the dialog: list view and working list
// hold the same sizes, nothing is left over, and what is stored was in the list.
TEST_F(CustomPaperDialog, SurvivesEveryCallThatFails)
{
    const auto walk = [&] {
        const auto act = [&](auto action) { Dialog().Try([action](HWND page) { return action(page); }); };
        using platform::user::Control;
        const auto click = [&](int control) {
            act([=](HWND page) { return platform::user::Click(Control(page, control)); });
        };
        act([](HWND page) { return platform::user::SelectRow(Control(page, IDC_CP_LIST), 1); });
        act([](HWND page) { return platform::user::Type(Control(page, IDC_CP_WIDTH_INCH), u"9"); });
        click(IDC_CP_UNIT_MM);
        act([](HWND page) { return platform::user::Type(Control(page, IDC_CP_NAME), u"Poster"); });
        act([](HWND page) { return platform::user::Append(Control(page, IDC_CP_NAME), u"2"); });
        click(IDC_CP_NEW);
        click(IDC_HELP);
        act([](HWND page) { return platform::user::SelectRow(Control(page, IDC_CP_LIST), 0); });
        click(IDC_CP_DELETE);
        if (result_ == -2 && Dialog().Template() == IDD_CUSTOM_PAPER) {
            EXPECT_EQ(static_cast<int>(Listed().size()), WorkListCount());
        }
        for (int i = 0; i < 2 && result_ == -2; ++i) click(IDOK);
    };
    auto& faults = platform::CurrentEnvironment().faults;
    Open(Three);
    Dialog().CloseDialog();
    faults.Clear();
    faults.CountCalls(true);
    Again();
    walk();
    EXPECT_EQ(StoredNames(), (std::vector<std::u16string>{u"Poster2", u"Poster", u"New Paper0"}));
    const auto calls = faults.Calls();
    const auto places = testing_support::FailingPlaces({calls.begin(), calls.end()}, 20);
    EXPECT_GT(places.size(), 50u);
    for (const auto& [function, call] : places) {
        SCOPED_TRACE(function + " " + std::to_string(call));
        Store(Dialog().Machine(), Three);
        faults.Clear();
        faults.Add(function, call, false);
        Again();
        walk();
        faults.Clear();
        if (result_ == -2) Dialog().CloseDialog();
        EXPECT_EQ(CustomPaperWorkList, nullptr);
        // What could not be loaded or shown is not there to be saved.
        const bool incomplete =
            function == "GetPrinterDataW" || function == "GlobalAlloc" || function == "LVM_INSERTITEMW";
        if (!incomplete) {
            EXPECT_GE(Stored().size(), 2u);
        }
        for (const CustomPaperEntry& entry : Stored()) EXPECT_GE(entry.cpCode, 257);
    }
}

}  // namespace
