// What the pages answer to messages, notices of controls and notifications of the sheet.
#include <gtest/gtest.h>

#include "pages/setup_page.h"
#include "platform/controls.h"
#include "resources/control_numbers.h"
#include "settings/options.h"
#include "tests/support/records.h"
#include "tests/support/sheet_driver.h"

namespace {

using testing_support::Fields;
using testing_support::Sheet;

struct PageRow {
    const char16_t* title;
    std::vector<int> lists;    // and fields
    std::vector<int> foreign;  // controls of other pages, and statics
};
const PageRow Pages[] = {
    {u"Setup",
     {IDC_NUP, IDC_WATERMARK, IDC_DUPLEX, IDC_PAPER_SOURCE, IDC_MEDIA_TYPE, IDC_OVERLAY},
     {IDC_DUPLEX_ICON, IDC_NUP_GROUP, IDC_QUALITY_PAGE_LAYOUT, IDC_STATIC}                                          },
    {u"Paper",
     {IDC_DOCUMENT_SIZE, IDC_OUTPUT_SIZE, IDC_SCALING, IDC_SHIFT_X, IDC_SHIFT_Y, IDC_COPIES},
     {IDC_SCALING_LABEL, IDC_QUALITY_PAGE_LAYOUT}                                                                   },
    {u"Quality", {IDC_RESOLUTION, IDC_SMOOTHTONE, IDC_TONER_DENSITY},                         {IDC_RESOLUTION_GROUP}},
};

TEST(PageMessages, OnlyAPickOfAListCounts)
{
    constexpr int CloseUp = 8;
    for (const PageRow& page : Pages) {
        Sheet sheet;
        const int before = sheet.Page(page.title).Changes();
        for (const int control : page.lists) EXPECT_EQ(sheet.Notice(control, CloseUp), TRUE) << control;
        for (const int control : page.foreign) EXPECT_EQ(sheet.Notice(control, BN_CLICKED), FALSE) << control;
        EXPECT_EQ(sheet.Changes(), before);
    }
    Sheet sheet;
    EXPECT_EQ(sheet.Page(u"Setup").Notice(IDC_GUIDE_PAPER, CloseUp), TRUE);
    EXPECT_EQ(sheet.Changes(), 1) << "any notice of a check box counts";
}

TEST(PageMessages, OthersAreLeftToTheDialog)
{
    DRAWITEMSTRUCT item{};
    for (const PageRow& page : Pages) {
        Sheet sheet;
        sheet.Page(page.title);
        for (const UINT message : {WM_PAINT, WM_CONTEXTMENU, WM_DESTROY, WM_SETFONT})
            EXPECT_EQ(sheet.Send(message, 0, 0), FALSE) << message;
        for (const UINT code : {PSN_KILLACTIVE, PSN_QUERYCANCEL, PSN_RESET, PSN_QUERYINITIALFOCUS}) {
            NMHDR notification{nullptr, 0, code};
            EXPECT_EQ(sheet.Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification)), FALSE) << code;
        }
        EXPECT_EQ(sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item)), page.title == std::u16string(u"Paper"));
    }
}

TEST(PageMessages, NotificationsRefreshTheSetupPageButForThoseOfItsEnd)
{
    Sheet sheet;
    sheet.Page(u"Setup").Change(Fields("dmZoom=50"));
    for (const auto& [code, bindings] : {
             std::pair(PSN_KILLACTIVE, 5u), {PSN_QUERYCANCEL, 5u},
               {UINT{1234},      3u}
    }) {
        NMHDR notification{nullptr, 0, code};
        sheet.Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
        EXPECT_EQ(sheet.Items(IDC_DUPLEX).size(), bindings) << code;
    }
}

TEST(PageMessages, WithoutASheetTheSetupPageDoesNothing)
{
    DriverDevMode* const open = CurrentSettings;
    CurrentSettings = nullptr;
    for (const UINT message : {WM_INITDIALOG, WM_COMMAND, WM_NOTIFY, WM_DRAWITEM, WM_PAINT, WM_HELP})
        EXPECT_EQ(PageLayout_DlgProc(nullptr, message, 0, 0), FALSE);
    CurrentSettings = open;
}

}  // namespace
