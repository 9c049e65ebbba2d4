// What the left panel and the icon of the resolution draw, call by call. Colours are the desktop's classic
// ones: face 0xF0F0F0, shadow 0xA0A0A0, highlight 0xFFFFFF.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "pages/page_framework.h"
#include "platform/gdi/job.h"
#include "platform/seams/environment.h"
#include "platform/user/window.h"
#include "preview/printer_figure.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "tests/support/sheet_driver.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using testing_support::ElsewherePage;
using testing_support::Sheet;

using Lines = std::vector<std::string>;

const Lines ClearFrame = {
    "1069 GetDC []",
    "1069 GetClientRect []",
    "- CreatePen [0,1,16777215]",
    "1069 SelectObject [{pen:{style:0,width:1,color:16777215}}]",
    "- CreateSolidBrush [15790320]",
    "1069 SelectObject [{brush:{color:15790320}}]",
    "1069 Rectangle [0,0,137,161]",
    "1069 SelectObject [{stock:0}]",
    "- DeleteObject [{brush:{color:15790320}}]",
    "1069 SelectObject [{stock:7}]",
    "- DeleteObject [{pen:{style:0,width:1,color:16777215}}]",
    "1069 ReleaseDC []",
};

const Lines SunkenFrame = {
    "1069 GetDC []",
    "1069 GetClientRect []",
    "- CreateSolidBrush [15790320]",
    "1069 SelectObject [{brush:{color:15790320}}]",
    "- CreatePen [0,1,16777215]",
    "1069 SelectObject [{pen:{style:0,width:1,color:16777215}}]",
    "1069 Rectangle [0,0,137,161]",
    "1069 SelectObject [{stock:7}]",
    "- DeleteObject [{pen:{style:0,width:1,color:16777215}}]",
    "1069 SelectObject [{stock:0}]",
    "- DeleteObject [{brush:{color:15790320}}]",
    // Outer edges: shadow at top and left, highlight at right and bottom.
    "1069 SetBkColor [10526880]",
    "1069 ExtTextOutW [0,0,2,[0,0,137,1],\"\",0,null]",
    "1069 ExtTextOutW [0,0,2,[0,0,1,161],\"\",0,null]",
    "1069 SetBkColor [16777215]",
    "1069 ExtTextOutW [136,0,2,[136,0,137,161],\"\",0,null]",
    "1069 ExtTextOutW [0,160,2,[0,160,137,161],\"\",0,null]",
    "1069 SetBkColor [16777215]",
    // Inner edges: highlight at top and left, face at right and bottom.
    "1069 SetBkColor [16777215]",
    "1069 ExtTextOutW [1,1,2,[1,1,136,2],\"\",0,null]",
    "1069 ExtTextOutW [1,1,2,[1,1,2,160],\"\",0,null]",
    "1069 SetBkColor [15790320]",
    "1069 ExtTextOutW [135,1,2,[135,1,136,160],\"\",0,null]",
    "1069 ExtTextOutW [1,159,2,[1,159,136,160],\"\",0,null]",
    "1069 SetBkColor [16777215]",
    "1069 ReleaseDC []",
};

Lines Icon(int number)
{
    const std::string icon = std::to_string(number);
    return {
        "9520 GetDC []",
        "9520 GetClientRect []",
        "- CreateSolidBrush [15790320]",
        "9520 FillRect [[0,0,32,32],{brush:{color:15790320}}]",
        "- DeleteObject [{brush:{color:15790320}}]",
        "- LoadIconW [" + icon + "]",
        "9520 DrawIcon [0,0,{icon:" + icon + "}]",
        "9520 ReleaseDC []",
    };
}

template <class... Parts>
Lines Join(const Parts&... parts)
{
    Lines all;
    (all.insert(all.end(), parts.begin(), parts.end()), ...);
    return all;
}

// A drawing of the page layout without what the picture itself draws between these two.
Lines Begin(const Lines& drawn, std::size_t lines)
{
    return {drawn.begin(), drawn.begin() + std::min(lines, drawn.size())};
}
Lines End(const Lines& drawn, std::size_t lines) { return {drawn.end() - std::min(lines, drawn.size()), drawn.end()}; }

const Lines OpenPicture = {"1064 GetDC []", "1064 GetClientRect []"};
const Lines ClosePicture = {"1064 ReleaseDC []"};

void ExpectPageLayout(const Lines& drawn)
{
    const Lines before = Join(ClearFrame, OpenPicture, SunkenFrame), after = Join(ClosePicture, Icon(9521));
    EXPECT_THAT(Begin(drawn, before.size()), ElementsAreArray(before));
    EXPECT_THAT(End(drawn, after.size()), ElementsAreArray(after));
}

TEST(LeftPanel, DrawsTheFrameOfThePageLayoutAndTheIcon)
{
    Sheet sheet;
    sheet.Page(u"Quality");
    ExpectPageLayout(sheet.Drawn());
}

TEST(LeftPanel, DrawsThePrinterFigureOverTheFrame)
{
    Sheet sheet;
    sheet.Page(u"Quality").Drawn();
    sheet.Click(IDC_QUALITY_PRINTER_FIGURE);
    const Lines drawn = sheet.Drawn();

    ASSERT_EQ(drawn.size(), 11 + Icon(0).size());
    EXPECT_THAT(
        Lines(drawn.begin(), drawn.begin() + 11),
        ElementsAre("1069 GetDC []", "1069 GetClientRect []", "1069 CreateCompatibleDC []", "- LoadBitmapW [1298]",
                    "- GetObjectW [{bitmap:{id:1298,width:137,height:161}}," + std::to_string(sizeof(BITMAP)) + "]",
                    "- SelectObject [{bitmap:{id:1298,width:137,height:161}}]",
                    StartsWith("1069 StretchBlt [0,0,137,161,"), StartsWith("- SelectObject [{bitmap:{id:null"),
                    "- DeleteDC []", "- DeleteObject [{bitmap:{id:1298,width:137,height:161}}]", "1069 ReleaseDC []"));
    EXPECT_THAT(drawn[6], HasSubstr(",0,0,137,161,13369376]"));
    EXPECT_THAT(Lines(drawn.begin() + 11, drawn.end()), ElementsAreArray(Icon(IDI_RESOLUTION_600)));
}

TEST(LeftPanel, ShowsTheSecondTrayWhereThereIsOne)
{
    Sheet sheet;
    sheet.Page(u"Quality").Change([](DriverDevMode&) { Tray2Installed = 128; }).Drawn();
    sheet.Click(IDC_QUALITY_PRINTER_FIGURE);
    EXPECT_THAT(sheet.Drawn(), Contains("- LoadBitmapW [1299]"));
    sheet.Change([](DriverDevMode&) { Tray2Installed = 0; });
}

TEST(LeftPanel, GoesBackToThePageLayoutWithThePage)
{
    Sheet sheet;
    sheet.Page(u"Quality").Click(IDC_QUALITY_PRINTER_FIGURE).Page(ElsewherePage).Drawn();
    sheet.Page(u"Quality");
    ExpectPageLayout(sheet.Drawn());
}

TEST(LeftPanel, DrawsNothingInAModeThatItDoesNotKnow)
{
    Sheet sheet;
    sheet.Page(u"Quality").Change([](DriverDevMode& record) { record.dmPreviewMode = 7; }).Drawn();
    sheet.Choose(IDC_RESOLUTION, 2);
    EXPECT_THAT(sheet.Drawn(), ElementsAreArray(Icon(IDI_RESOLUTION_1200)));
}

TEST(ResolutionIcon, FollowsTheSelection)
{
    Sheet sheet;
    sheet.Page(u"Quality");
    constexpr int Icons[] = {9521, 9521, 9522};
    for (int row : {2, 1, 0}) {
        sheet.Drawn();
        sheet.Choose(IDC_RESOLUTION, row);
        EXPECT_THAT(sheet.Drawn(), Contains("- LoadIconW [" + std::to_string(Icons[row]) + "]")) << row;
    }
}

TEST(ResolutionIcon, IsNotDrawnWithoutASelection)
{
    Sheet sheet([](DriverDevMode& record) {
        record.dmTonerSave = 1;
        record.dmPrintQuality = 1200;
    });
    sheet.Page(u"Quality");
    EXPECT_THAT(sheet.Drawn(), Not(Contains(HasSubstr("LoadIconW"))));
}

// The item names the control that is to be painted; the picture is drawn whatever it is, but the frame is
// sunken for pictures alone.
TEST(LeftPanel, DrawsForWhateverItemIsNamed)
{
    Sheet sheet;
    sheet.Page(u"Quality").Drawn();
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = IDC_DEFAULT;
    item.hwndItem = sheet.Handle(IDC_DEFAULT);
    EXPECT_EQ(sheet.Send(WM_DRAWITEM, IDC_DEFAULT, reinterpret_cast<LPARAM>(&item)), FALSE);
    EXPECT_THAT(sheet.Drawn(), ElementsAreArray(Join(ClearFrame, Icon(IDI_RESOLUTION_600))));
}

TEST(LeftPanel, ThePictureOfTheDeviceOptionsHasNoFrame)
{
    Sheet sheet;
    sheet.Page(u"Quality").Drawn();
    DRAWITEMSTRUCT item{};
    item.CtlID = IDC_DEVICE_PREVIEW;
    item.hwndItem = sheet.Handle(IDC_QUALITY_PREVIEW);
    sheet.Send(WM_DRAWITEM, IDC_DEVICE_PREVIEW, reinterpret_cast<LPARAM>(&item));
    const Lines drawn = sheet.Drawn();
    EXPECT_THAT(Begin(drawn, ClearFrame.size()), ElementsAreArray(ClearFrame));
    EXPECT_THAT(Lines(drawn.begin() + ClearFrame.size(), drawn.end()), Each(Not(StartsWith("1069 "))));
}

TEST(LeftPanel, DrawingTwiceDrawsTheSameAndChangesNothing)
{
    Sheet sheet;
    sheet.Page(u"Quality").Drawn();
    const DriverDevMode before = sheet.Settings();
    Lines drawings[2];
    for (Lines& drawing : drawings) {
        DRAWITEMSTRUCT item{};
        item.CtlID = IDC_QUALITY_PREVIEW;
        item.hwndItem = sheet.Handle(IDC_QUALITY_PREVIEW);
        sheet.Send(WM_DRAWITEM, IDC_QUALITY_PREVIEW, reinterpret_cast<LPARAM>(&item));
        drawing = sheet.Drawn();
    }
    EXPECT_EQ(drawings[0], drawings[1]);
    const DriverDevMode after = sheet.Settings();
    EXPECT_EQ(std::memcmp(&before, &after, sizeof before), 0);
}

TEST(LeftPanel, DrawsNothingOnControlsThatAreNotThere)
{
    Sheet sheet;
    sheet.Page(u"Quality").Drawn();
    sheet.Try([](HWND page) {
        DrawPageIcon(nullptr, IDI_RESOLUTION_600);
        ClearPreviewFrame(IDC_PAPER_FRAME, page);
        DrawPrinterFigure(IDB_PRINTER, IDC_PAPER_FRAME, page);
        return platform::user::Outcome::Done;
    });
    EXPECT_EQ(sheet.Drawn(), Lines{});
}

// Every call that the page makes, failing once at each place of a run over both pictures.
class EveryCallFails : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(LeftPanel, EveryCallFails,
                         testing::Values("GetDC", "ReleaseDC", "GetClientRect", "GetDlgItem", "CreatePen",
                                         "CreateSolidBrush", "SelectObject", "DeleteObject", "Rectangle", "FillRect",
                                         "SetBkColor", "ExtTextOutW", "CreateCompatibleDC", "DeleteDC", "LoadBitmapW",
                                         "GetObjectW", "StretchBlt", "LoadIconW", "DrawIcon", "LoadStringW",
                                         "SendDlgItemMessageW", "CB_INSERTSTRING", "CheckRadioButton", "CheckDlgButton",
                                         "GetPrinterDriverDirectoryW", "WinHelpW"),
                         [](const auto& test) { return std::string(test.param); });

void WalkThePage(Sheet& sheet)
{
    sheet.Page(u"Quality").Click(IDC_QUALITY_PRINTER_FIGURE).Click(IDC_QUALITY_PAGE_LAYOUT).PressHelp();
}

// What is left behind by calls that give back is the platform's to say, not the page's.
bool GivesBack(std::string_view function)
{
    return function == "ReleaseDC" || function == "DeleteObject" || function == "DeleteDC" ||
           function == "SelectObject";
}

TEST_P(EveryCallFails, AndThePageGoesOn)
{
    const std::size_t contexts = platform::gdi::ContextCount(), objects = platform::gdi::ObjectCount();
    std::uint64_t calls = 0;
    {
        Sheet sheet;
        platform::CurrentEnvironment().faults.CountCalls(true);
        WalkThePage(sheet);
        const auto& counted = platform::CurrentEnvironment().faults.Calls();
        const auto found = counted.find(GetParam());
        calls = found == counted.end() ? 0 : found->second;
        sheet.Ok();
    }
    ASSERT_GT(calls, 0u) << "the page does not call it";
    for (std::uint64_t call = 1; call <= calls; ++call) {
        Sheet sheet;
        platform::CurrentEnvironment().faults.Add(GetParam(), call, false);
        WalkThePage(sheet);
        platform::CurrentEnvironment().faults.Clear();
        EXPECT_EQ(sheet.Ok().dmTonerDensity, 3);
    }
    if (!GivesBack(GetParam())) {
        EXPECT_EQ(platform::gdi::ContextCount(), contexts);
        EXPECT_EQ(platform::gdi::ObjectCount(), objects);
    }
}

}  // namespace
