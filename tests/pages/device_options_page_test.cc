// The rules of the Device Options Setting page, driven as a user drives them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/about_dialog.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "tests/support/records.h"
#include "tests/support/sheet_driver.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using testing_support::ElsewherePage;
using testing_support::Fields;
using testing_support::Sheet;

constexpr char WithTray2[] = "- LoadBitmapW [1299]", WithoutTray2[] = "- LoadBitmapW [1298]";

class DeviceSheet : public Sheet {
  public:
    explicit DeviceSheet(const Prepare& prepare = {}) : Sheet(prepare) { Page(u"Device Options Setting"); }
};

void Tray2(DriverDevMode& record)
{
    record.dmDeviceFlags = 0xFF;
    record.dmDefaultSource = 2;
}

TEST(DeviceOptionsPage, ShowsAFreshRecord)
{
    DeviceSheet sheet;
    EXPECT_EQ(sheet.Template(), 1150);
    EXPECT_THAT(sheet.Items(IDC_TOTAL_MEMORY), ElementsAre(u"16", u"144"));
    EXPECT_EQ(sheet.Selection(IDC_TOTAL_MEMORY), 0);
    EXPECT_FALSE(sheet.Checked(IDC_TRAY2));
    EXPECT_FALSE(sheet.Enabled(IDC_TRAY2));
    EXPECT_TRUE(sheet.Checked(IDC_DEVICE_PRINTER_FIGURE));
    EXPECT_EQ(sheet.Changes(), 0);
}

TEST(DeviceOptionsPage, ShowsEveryMemoryButTheLowerOneAsTheHigherAndKeepsItUntilOneIsPicked)
{
    for (const auto& [memory, selection] : {
             std::pair<SHORT, int>{16,  0},
              {144, 1},
              {64,  1},
              {0,   1}
    }) {
        DeviceSheet sheet([memory = memory](DriverDevMode& record) { record.dmTotalMemory = memory; });
        EXPECT_EQ(sheet.Selection(IDC_TOTAL_MEMORY), selection) << memory;
        EXPECT_EQ(sheet.Settings().dmTotalMemory, memory);
        EXPECT_EQ(sheet.Choose(IDC_TOTAL_MEMORY, u"144").Settings().dmTotalMemory, 144);
        EXPECT_EQ(sheet.Changes(), 1);
        EXPECT_EQ(sheet.Choose(IDC_TOTAL_MEMORY, u"16").Ok().dmTotalMemory, 16);
    }
}

TEST(DeviceOptionsPage, TakesOverTray2WhenItIsShownAndNotBefore)
{
    Tray2Installed = 0;
    Sheet sheet(Tray2);
    EXPECT_EQ(Tray2Installed, 0);
    sheet.Page(u"Device Options Setting");
    EXPECT_TRUE(sheet.Checked(IDC_TRAY2));
    EXPECT_EQ(Tray2Installed, 128);
    EXPECT_THAT(sheet.Drawn(), Contains(WithTray2));
    sheet.Page(ElsewherePage).Change(Fields("dmDeviceFlags=0x7F"));
    sheet.Page(u"Device Options Setting");
    EXPECT_FALSE(sheet.Checked(IDC_TRAY2));
    EXPECT_EQ(Tray2Installed, 0);
    EXPECT_THAT(sheet.Drawn(), Contains(WithoutTray2));
}

TEST(DeviceOptionsPage, DefaultTakesTray2OutOfTheRecordAndLeavesTheSource)
{
    DeviceSheet sheet([](DriverDevMode& record) {
        Tray2(record);
        record.dmTotalMemory = 144;
    });
    sheet.Click(IDC_DEVICE_PAGE_LAYOUT).Drawn();
    sheet.Click(IDC_DEFAULT);
    EXPECT_TRUE(sheet.Checked(IDC_DEVICE_PRINTER_FIGURE));
    EXPECT_FALSE(sheet.Checked(IDC_TRAY2));
    EXPECT_EQ(sheet.Selection(IDC_TOTAL_MEMORY), 0);
    EXPECT_EQ(sheet.Changes(), 1);
    EXPECT_EQ(Tray2Installed, 0);
    EXPECT_THAT(sheet.Drawn(), Contains(WithoutTray2));
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmTotalMemory, 16);
    EXPECT_EQ(record.dmDeviceFlags, 0x7Fu);
    EXPECT_EQ(record.dmDefaultSource, 2);
}

TEST(DeviceOptionsPage, DefaultTellsTheSheetEvenIfNothingChanges)
{
    DeviceSheet sheet;
    EXPECT_EQ(sheet.Click(IDC_DEFAULT).Changes(), 1);
}

TEST(DeviceOptionsPage, KeepsItsOwnPictureAndComesUpWithTheFigure)
{
    DeviceSheet sheet;
    sheet.Drawn();
    sheet.Click(IDC_DEVICE_PAGE_LAYOUT);
    EXPECT_EQ(DevicePreviewMode, 0);
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 0);
    EXPECT_THAT(sheet.Drawn(), Not(Contains(WithoutTray2)));
    EXPECT_EQ(sheet.Changes(), 0);
    sheet.Click(IDC_DEVICE_PRINTER_FIGURE);
    EXPECT_EQ(DevicePreviewMode, 1);
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 0);
    EXPECT_THAT(sheet.Drawn(), Contains(WithoutTray2));
    sheet.Click(IDC_DEVICE_PAGE_LAYOUT).Page(ElsewherePage).Page(u"Device Options Setting");
    EXPECT_TRUE(sheet.Checked(IDC_DEVICE_PRINTER_FIGURE));
    EXPECT_EQ(DevicePreviewMode, 1);
}

TEST(AboutDialog, OpensFromThePageAndClosesByOkAndEsc)
{
    AboutIsPage = 1;  // a device sheet was up before
    DeviceSheet sheet;
    EXPECT_EQ(sheet.Click(IDC_ABOUT).Template(), DLG_ABOUT);
    EXPECT_TRUE(sheet.Enabled(IDOK));
    EXPECT_EQ(sheet.Text(IDC_ABOUT_VERSION), u"Version:1.20.0401.0");
    sheet.Send(WM_COMMAND, 1 << 16 | IDOK, 0);  // a notice of the button and no click
    EXPECT_EQ(sheet.Template(), DLG_ABOUT);
    EXPECT_EQ(sheet.Click(IDOK).Template(), IDD_DEVICE_OPTIONS);
    EXPECT_EQ(sheet.Click(IDC_ABOUT).Template(), DLG_ABOUT);
    EXPECT_EQ(sheet.Press(platform::user::Key::Escape).Template(), IDD_DEVICE_OPTIONS);
    EXPECT_EQ(sheet.Changes(), 0);
}

std::string FunctionOf(const std::string& line)
{
    const std::size_t begin = line.find(' ') + 1;
    return line.substr(begin, line.find(' ', begin) - begin);
}

TEST(AboutDialog, DrawsPictureAndNameEachTimeThatItIsPainted)
{
    DeviceSheet sheet;
    sheet.Drawn();
    sheet.Click(IDC_ABOUT);
    for (int times = 0; times < 2; ++times) {
        const auto drawn = sheet.Drawn();
        EXPECT_THAT(drawn, Contains(StartsWith("1214 StretchBlt")));
        EXPECT_THAT(drawn, Contains(HasSubstr("CreateFontIndirectW [{font:{lfHeight:-16,")));
        EXPECT_THAT(drawn, Contains("1290 TextOutW [0,0,\"Ordana Quillet 4820E\",20]"));
        std::vector<std::string> name;  // behind the picture
        for (const std::string& line : drawn)
            if (!name.empty() || line.starts_with("1290 GetDC")) name.push_back(FunctionOf(line));
        EXPECT_THAT(name, ElementsAre("GetDC", "SetBkMode", "GetStockObject", "SelectObject", "GetObjectW",
                                      "GetDeviceCaps", "CreateFontIndirectW", "SelectObject", "TextOutW", "SetBkMode",
                                      "SelectObject", "DeleteObject", "ReleaseDC", "ReleaseDC"));
        sheet.Try([](HWND about) {
            InvalidateRect(about, nullptr, TRUE);
            platform::user::PaintPending();
            return platform::user::Outcome::Done;
        });
    }
}

}  // namespace
