// The form overlay on the Setup page: choosing one, and the way of a new one, which is made in the dialogs, taken
// along by the sheet's OK, made by a job, and then there to be chosen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "events/document_event.h"
#include "platform/user.h"
#include "tests/support/overlay_sheet.h"

namespace {

using namespace testing_support;

const std::vector<OverlayEntry> TwoForms = {Overlay(u"Letterhead", u"/forms/head.oxl"),
                                            Overlay(u"Invoice", u"/forms/invoice.oxl")};

TEST(SetupOverlay, ListsTheRowsThatHaveBeenMadeAndNamesTheFileOfTheChoiceAtOnce)
{
    for (const auto& [index, selected, file, state] : {
             std::tuple{2,  2,  u"/forms/invoice.oxl", 1},
             {3,  -1, u"<NONE>",             1}, // the pending one
             {-1, -1, u"<NONE>",             1},
    }) {
        OverlaySheet sheet({TwoForms[0], TwoForms[1], Overlay(u"New", u"/forms/new.oxl", 1)}, index);
        EXPECT_EQ(sheet.Items(IDC_OVERLAY), (Names{u"<NONE>", u"Letterhead", u"Invoice"}));
        EXPECT_EQ(sheet.Selection(IDC_OVERLAY), selected) << index;
        EXPECT_EQ(sheet.File(), file) << index;
        EXPECT_EQ(sheet.Settings().dmOverlayState, state) << index;
        sheet.Click(IDC_EDIT_OVERLAY).Click(IDOK);
        EXPECT_EQ(sheet.StoredNames(), (Names{u"Letterhead", u"Invoice"})) << "a sheet without a job";
    }
}

TEST(SetupOverlay, APickIsStoredAndDefaultChoosesNone)
{
    OverlaySheet sheet(TwoForms);
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY, u"Invoice"),
              "overlay=Invoice +overlayFirst dmOverlayState=1 dmOverlayFile=/forms/invoice.oxl dmOverlayIndex=2 told");
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY_FIRST_PAGE), "xoverlayFirst dmOverlayFirstPage=1");
    EXPECT_EQ(sheet.Pick(IDC_OVERLAY, u"<NONE>"),
              "overlay=<NONE> -overlayFirst dmOverlayState=0 dmOverlayFile=<NONE> dmOverlayIndex=0 told")
        << "the first page is kept for the next choice";
    sheet.Choose(IDC_OVERLAY, 1).Change(Fields("dmPaperWidthPriv=2550 dmPaperLengthPriv=3300"));
    EXPECT_EQ(sheet.Pick(IDC_DEFAULT),
              "overlay=<NONE> -overlayFirst ooverlayFirst dmOverlayState=0 dmOverlayFile=<NONE> "
              "dmOverlayFirstPage=0 dmOverlayIndex=0 told told");
}

// Makes a new row in the dialogs; the list stays up for the caller.
OverlaySheet& MakeContract(OverlaySheet& sheet)
{
    sheet.Click(IDC_EDIT_OVERLAY);
    return sheet.Add(u"Contract", u"contract.oxl");
}

TEST(SetupOverlay, ANewOneIsMadeByTheJobAndThenListed)
{
    OverlaySheet sheet(TwoForms, 1);
    EXPECT_EQ(sheet.Difference([&] { MakeContract(sheet).Click(IDOK); }), "box told told")
        << "the choice stays, and the new row is not offered yet";
    sheet.Apply();
    EXPECT_EQ(sheet.Published().dmOverlayState, 1) << "which Apply does not commit";
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmOverlayState, 2);
    EXPECT_EQ(record.dmOverlayFile, sheet.Path(u"contract.oxl"));
    EXPECT_EQ(record.dmOverlayIndex, 1);
    DrvDocumentEvent(nullptr, nullptr, DOCUMENTEVENT_ENDDOC, 0, nullptr, 0, nullptr);
    ASSERT_EQ(sheet.StoredNames().size(), 3u);
    EXPECT_EQ(sheet.Stored().rows[2].ovPending, 0u);
}

// The row of the choice goes, the new one moves up to its place.
TEST(SetupOverlay, ANewOneInTheChosenPlaceIsMadeAtOnce)
{
    OverlaySheet sheet(TwoForms, 2);
    const auto replace = [&] {
        MakeContract(sheet).Choose(IDC_OVL_LIST, 2).Click(IDC_OVL_DELETE).Choose(IDC_OVL_LIST, 2).Click(IDOK);
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
