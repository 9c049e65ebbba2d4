// The form overlay on the Setup page: choosing one, and the way of a new one, which is made in the dialogs, taken
// along by the sheet's OK, made by a job, and then there to be chosen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "events/document_event.h"
#include "platform/user.h"
#include "tests/support/overlay_sheet.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

const std::vector<OverlayEntry> TwoForms = {Overlay(u"Letterhead", u"/forms/head.oxl"),
                                            Overlay(u"Invoice", u"/forms/invoice.oxl")};
const OverlayEntry PendingForm = Overlay(u"New", u"/forms/new.oxl", 1);

TEST(SetupOverlay, ListsTheRowsThatHaveBeenMadeAndNamesTheFileOfTheChoiceAtOnce)
{
    for (const auto& [index, selected, file, state] : {
             std::tuple{2,  2,  u"/forms/invoice.oxl", 1},
             {0,  0,  u"<NONE>",             0},
             {3,  -1, u"<NONE>",             1}, // the pending one
             {-1, -1, u"<NONE>",             1},
    }) {
        OverlaySheet sheet({TwoForms[0], TwoForms[1], PendingForm}, index);
        EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead", u"Invoice"));
        EXPECT_EQ(sheet.Selection(IDC_OVERLAY), selected) << index;
        EXPECT_EQ(sheet.File(), file) << index;
        EXPECT_EQ(sheet.Settings().dmOverlayState, state) << index;
        EXPECT_EQ(sheet.Enabled(IDC_OVERLAY_FIRST_PAGE), state == 1) << index;
        EXPECT_EQ(sheet.Changes(), 0);
        sheet.Click(IDC_EDIT_OVERLAY).Click(IDOK);
        EXPECT_EQ(sheet.StoredNames(), (Names{u"Letterhead", u"Invoice"})) << "a sheet without a job";
    }
}

TEST(SetupOverlay, APickIsStoredAndDefaultChoosesNone)
{
    OverlaySheet sheet(TwoForms);
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY, u"Invoice"),
              "overlay=Invoice +overlayFirst dmOverlayState=1 dmOverlayFile=/forms/invoice.oxl dmOverlayIndex=2 told");
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY_FIRST_PAGE, nullptr), "xoverlayFirst dmOverlayFirstPage=1");
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY, u"<NONE>"),
              "overlay=<NONE> -overlayFirst dmOverlayState=0 dmOverlayFile=<NONE> dmOverlayIndex=0 told");
    EXPECT_EQ(sheet.Settings().dmOverlayFirstPage, 1) << "kept for the next choice";
    sheet.Choose(IDC_OVERLAY, 1).Change(Fields("dmPaperWidthPriv=2550 dmPaperLengthPriv=3300"));
    EXPECT_EQ(sheet.Pick(IDC_DEFAULT),
              "overlay=<NONE> -overlayFirst ooverlayFirst dmOverlayState=0 dmOverlayFile=<NONE> "
              "dmOverlayFirstPage=0 dmOverlayIndex=0 told told");
}

// Makes a new row in the dialogs; the list stays up for the caller.
void MakeContract(OverlaySheet& sheet)
{
    sheet.Click(IDC_EDIT_OVERLAY);
    sheet.Add(u"Contract", u"contract.oxl");
}

TEST(SetupOverlay, ANewOneIsMadeByTheJobAndChosenLater)
{
    std::vector<OverlayEntry> stored;
    std::u16string made;
    {
        OverlaySheet sheet(TwoForms, 1);
        made = sheet.Path(u"contract.oxl");
        const auto make = [&] {
            MakeContract(sheet);
            sheet.Click(IDOK);
        };
        EXPECT_EQ(sheet.Difference(make), "box told told") << "the choice stays, and the new row is not offered yet";
        EXPECT_EQ(sheet.File(), u"/forms/head.oxl");
        sheet.Apply();
        EXPECT_EQ(sheet.Published().dmOverlayState, 1) << "which Apply does not commit";
        const DriverDevMode record = sheet.Ok();
        EXPECT_EQ(record.dmOverlayState, 2);
        EXPECT_EQ(record.dmOverlayFile, made);
        EXPECT_EQ(record.dmOverlayIndex, 1);
        DrvDocumentEvent(nullptr, nullptr, DOCUMENTEVENT_ENDDOC, 0, nullptr, 0, nullptr);
        stored = sheet.Stored().rows;
    }
    OverlaySheet sheet(stored);
    EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead", u"Invoice", u"Contract"));
    const DriverDevMode chosen = sheet.Choose(IDC_OVERLAY, u"Contract").Ok();
    EXPECT_EQ(chosen.dmOverlayState, 1);
    EXPECT_EQ(chosen.dmOverlayIndex, 3);
    EXPECT_EQ(chosen.dmOverlayFile, made);
}

// The row of the choice goes, the new one moves up to its place.
TEST(SetupOverlay, ANewOneInTheChosenPlaceIsMadeAtOnce)
{
    OverlaySheet sheet(TwoForms, 2);
    const auto replace = [&] {
        MakeContract(sheet);
        sheet.Choose(IDC_OVL_LIST, 2).Click(IDC_OVL_DELETE).Choose(IDC_OVL_LIST, 2).Click(IDOK);
    };
    EXPECT_EQ(sheet.Difference(replace), "overlay:2 overlay= dmOverlayState=2 dmOverlayFile=" +
                                             platform::ToUtf8(sheet.Path(u"contract.oxl")) + " box told");
}

TEST(SetupOverlay, TheDialogChoosesForThePage)
{
    OverlaySheet sheet(TwoForms);
    EXPECT_EQ(sheet.Difference([&] { sheet.Click(IDC_EDIT_OVERLAY).Choose(IDC_OVL_LIST, 2).Click(IDOK); }),
              "overlay=Invoice +overlayFirst dmOverlayState=1 dmOverlayFile=/forms/invoice.oxl dmOverlayIndex=2 "
              "told told");
    EXPECT_EQ(sheet.Difference(
                  [&] { sheet.Click(IDC_EDIT_OVERLAY).Choose(IDC_OVL_LIST, 1).Click(IDC_OVL_DELETE).Click(IDOK); }),
              "overlay:2 dmOverlayIndex=1 told told")
        << "the row that follows";
}

}  // namespace
