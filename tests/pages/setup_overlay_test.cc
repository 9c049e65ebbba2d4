// The form overlay on the Setup page: choosing one, and the way of a new one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/overlays.h"
#include "tests/support/setup_sheet.h"
#include "watermark/overlay_list.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

const std::vector<OverlayEntry> TwoForms = {Overlay(u"Letterhead", u"/forms/head.oxl"),
                                            Overlay(u"Invoice", u"/forms/invoice.oxl")};

Sheet::Furnish Stored(std::vector<OverlayEntry> rows)
{
    return [rows = std::move(rows)](TestMachine& machine) { StoreOverlays(machine, TestPrinter, rows); };
}

Sheet::Prepare Index(SHORT index)
{
    return [index](DriverDevMode& record) { record.dmOverlayIndex = index; };
}

std::u16string File(SetupSheet& sheet) { return sheet.Settings().dmOverlayFile; }

TEST(SetupOverlay, ListsTheRowsAndNamesTheFileAtOnce)
{
    SetupSheet sheet(Index(2), Stored(TwoForms));
    EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead", u"Invoice"));
    EXPECT_EQ(sheet.Row(IDC_OVERLAY), "Invoice");
    EXPECT_TRUE(sheet.Enabled(IDC_OVERLAY_FIRST_PAGE));
    EXPECT_EQ(File(sheet), u"/forms/invoice.oxl");
    EXPECT_EQ(sheet.Settings().dmOverlayState, 1);
    EXPECT_EQ(sheet.Changes(), 0);
}

TEST(SetupOverlay, WithoutRowsThereIsNone)
{
    SetupSheet sheet;
    EXPECT_EQ(File(sheet), u"<NONE>");
    EXPECT_EQ(sheet.Settings().dmOverlayState, 0);
}

TEST(SetupOverlay, APrinterThatDoesNotOpenHasNone)
{
    SetupSheet sheet(Index(1), [](TestMachine& machine) {
        StoreOverlays(machine, TestPrinter, TwoForms);
        machine.Fail("OpenPrinterW", 2);
    });
    EXPECT_EQ(sheet.Items(IDC_OVERLAY).front(), u"<NONE>");
}

TEST(SetupOverlay, AChoiceThatIsNotThereSelectsNothing)
{
    SetupSheet sheet(Index(5), Stored(TwoForms));
    EXPECT_EQ(sheet.Selection(IDC_OVERLAY), -1);
    EXPECT_EQ(File(sheet), u"<NONE>");
    EXPECT_EQ(sheet.Settings().dmOverlayIndex, 5);
    EXPECT_EQ(sheet.Difference([](SetupSheet& self) { self.Notice(IDC_OVERLAY, CBN_SELCHANGE); }), "");
}

TEST(SetupOverlay, APickIsStored)
{
    SetupSheet sheet({}, Stored(TwoForms));
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY, u"Invoice"),
              "overlay=Invoice +overlayFirst dmOverlayState=1 dmOverlayFile=/forms/invoice.oxl dmOverlayIndex=2 told");
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY_FIRST_PAGE, nullptr), "xoverlayFirst dmOverlayFirstPage=1");
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY, u"<NONE>"),
              "overlay=<NONE> -overlayFirst dmOverlayState=0 dmOverlayFile=<NONE> dmOverlayIndex=0 told");
    EXPECT_EQ(sheet.Settings().dmOverlayFirstPage, 1) << "kept for the next choice";
}

TEST(SetupOverlay, APickLeavesThePictureAlone)
{
    SetupSheet sheet({}, Stored(TwoForms));
    sheet.Drawn();
    sheet.Choose(IDC_OVERLAY, u"Invoice");
    EXPECT_THAT(sheet.Drawn(), testing::Not(testing::Contains(testing::StartsWith("1019 "))));
}

TEST(SetupOverlay, DefaultChoosesNone)
{
    SetupSheet sheet(
        [](DriverDevMode& record) {
            record.dmOverlayIndex = record.dmOverlayFirstPage = 1;
            record.dmPaperWidthPriv = 2550;
            record.dmPaperLengthPriv = 3300;
        },
        Stored(TwoForms));
    EXPECT_EQ(sheet.Pick(IDC_DEFAULT, nullptr),
              "overlay=<NONE> -overlayFirst ooverlayFirst dmOverlayState=0 dmOverlayFile=<NONE> "
              "dmOverlayFirstPage=0 dmOverlayIndex=0 told told");
}

TEST(SetupOverlay, APendingRowOfTheStoreIsNotOffered)
{
    auto rows = TwoForms;
    rows.insert(rows.begin() + 1, Overlay(u"New", u"/forms/new.oxl", 1));
    SetupSheet sheet({}, Stored(rows));
    EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead", u"Invoice"));
    EXPECT_EQ(sheet.Ok().dmOverlayState, 0) << "it has left the list";
}

TEST(SetupOverlay, APendingChoiceFallsBackOnNone)
{
    SetupSheet sheet(Index(1), Stored({Overlay(u"New", u"/forms/new.oxl", 1)}));
    EXPECT_EQ(File(sheet), u"<NONE>");
    EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>"));
}

// A file that does not exist yet, in a folder that does.
const std::u16string NewFile = (std::filesystem::temp_directory_path() / "form-of-a-test.oxl").u16string();

// Makes a new row in the dialogs; the list stays up for the caller.
void MakeNew(SetupSheet& sheet)
{
    sheet.Click(IDC_EDIT_OVERLAY).Click(IDC_OVL_NEW).Type(IDC_OVL_NAME, u"Form");
    sheet.Machine().Desktop().fileAnswers = {NewFile};
    sheet.Click(IDC_OVL_BROWSE).Click(IDOK);
}

TEST(SetupOverlay, ANewOneIsMadeByTheJobAndChosenLater)
{
    SetupSheet sheet(Index(1), Stored(TwoForms));
    const auto make = [](SetupSheet& self) {
        MakeNew(self);
        self.Click(IDOK);
    };
    EXPECT_EQ(sheet.Difference(make), "box told told") << "the choice before stays, and the new row is not offered yet";
    EXPECT_EQ(OverlaysOf(sheet.Machine(), TestPrinter).rows.size(), 3u);
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmOverlayState, 2);
    EXPECT_EQ(std::u16string(record.dmOverlayFile), NewFile);
    EXPECT_EQ(record.dmOverlayIndex, 1);
}

TEST(SetupOverlay, ANewOneGoesWithCancel)
{
    SetupSheet sheet({}, Stored(TwoForms));
    MakeNew(sheet);
    sheet.Click(IDCANCEL);
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmOverlayState, 0);
    EXPECT_EQ(std::u16string(record.dmOverlayFile), u"<NONE>");
}

TEST(SetupOverlay, ApplyDoesNotCommitANewOneYet)
{
    SetupSheet sheet({}, Stored(TwoForms));
    MakeNew(sheet);
    sheet.Click(IDOK).Apply();
    EXPECT_EQ(sheet.Published().dmOverlayState, 0);
    EXPECT_EQ(sheet.Ok().dmOverlayState, 2);
}

// The row of the choice goes, the new one moves up to its place.
TEST(SetupOverlay, ANewOneInTheChosenPlaceIsMadeAtOnce)
{
    SetupSheet sheet(Index(2), Stored(TwoForms));
    const auto replace = [](SetupSheet& self) {
        MakeNew(self);
        self.Choose(IDC_OVL_LIST, 2).Click(IDC_OVL_DELETE).Choose(IDC_OVL_LIST, 2).Click(IDOK);
    };
    EXPECT_EQ(sheet.Difference(replace),
              "overlay:2 overlay= dmOverlayState=2 dmOverlayFile=" + platform::ToUtf8(NewFile) + " box told");
}

TEST(SetupOverlay, TheDialogChoosesForThePage)
{
    SetupSheet sheet({}, Stored(TwoForms));
    const auto choose = [](SetupSheet& self) { self.Click(IDC_EDIT_OVERLAY).Choose(IDC_OVL_LIST, 2).Click(IDOK); };
    EXPECT_EQ(sheet.Difference(choose),
              "overlay=Invoice +overlayFirst dmOverlayState=1 dmOverlayFile=/forms/invoice.oxl dmOverlayIndex=2 "
              "told told");
}

TEST(SetupOverlay, DeletedRowsComeBackWithCancelAndStayAwayWithOk)
{
    for (const bool ok : {true, false}) {
        SetupSheet sheet(Index(1), Stored(TwoForms));
        sheet.Click(IDC_EDIT_OVERLAY).Choose(IDC_OVL_LIST, 1).Click(IDC_OVL_DELETE).Click(ok ? IDOK : IDCANCEL);
        if (ok)
            EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Invoice"));
        else
            EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead", u"Invoice"));
        EXPECT_EQ(File(sheet), ok ? u"/forms/invoice.oxl" : u"/forms/head.oxl");
    }
}

TEST(SetupOverlay, TheListEndsWhereThereIsNoRoom)
{
    SetupSheet sheet({}, [](TestMachine& machine) {
        StoreOverlays(machine, TestPrinter, TwoForms);
        for (int call = 1; call < 100; ++call) machine.Fail("CB_INSERTSTRING", call);
    });
    EXPECT_TRUE(sheet.Items(IDC_OVERLAY).empty());
    sheet.Notice(IDC_OVERLAY, CBN_SELCHANGE);
    EXPECT_EQ(sheet.Settings().dmOverlayState, 0);
}

TEST(SetupOverlay, TheListGoesWithTheSheet)
{
    for (const bool ok : {true, false}) {
        SetupSheet sheet({}, Stored(TwoForms));
        ok ? sheet.Ok() : sheet.Cancel();
        EXPECT_EQ(OverlayList, nullptr);
        EXPECT_EQ(OverlaySelected, nullptr);
        EXPECT_EQ(OverlayEditing, nullptr);
    }
}

}  // namespace
