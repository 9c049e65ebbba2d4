// The rules of the Device Options Setting page, and what its Tray2 and Default do on the other pages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/about_dialog.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr char16_t DeviceOptions[] = u"Device Options Setting";
constexpr char WithTray2[] = "- LoadBitmapW [1299]", WithoutTray2[] = "- LoadBitmapW [1298]";

class DeviceSheet : public Sheet {
  public:
    explicit DeviceSheet(const char* fields = "") : Sheet(Fields(fields)) { Page(DeviceOptions); }
};

TEST(DeviceOptionsPage, ShowsEveryMemoryButTheLowerOneAsTheHigherAndKeepsItUntilOneIsPicked)
{
    for (const auto& [memory, selection] : {
             std::pair{"dmTotalMemory=16", 0},
             {"dmTotalMemory=0",  1}
    }) {
        DeviceSheet sheet(memory);
        EXPECT_THAT(sheet.Items(IDC_TOTAL_MEMORY), ElementsAre(u"16", u"144"));
        EXPECT_EQ(sheet.Selection(IDC_TOTAL_MEMORY), selection) << memory;
        EXPECT_EQ(sheet.Choose(IDC_TOTAL_MEMORY, u"144").Settings().dmTotalMemory, 144);
        EXPECT_EQ(sheet.Changes(), 1);
        EXPECT_EQ(sheet.Choose(IDC_TOTAL_MEMORY, u"16").Ok().dmTotalMemory, 16);
    }
}

TEST(DeviceOptionsPage, DefaultTakesTray2OutOfTheRecordAndTellsTheSheetEvenIfNothingChanges)
{
    DeviceSheet sheet("dmDeviceFlags=0xFF dmDefaultSource=2 dmTotalMemory=144");
    EXPECT_TRUE(sheet.Checked(IDC_TRAY2));
    sheet.Click(IDC_DEVICE_PAGE_LAYOUT);
    for (const int told : {1, 2}) {
        sheet.Drawn();
        sheet.Click(IDC_DEFAULT);
        EXPECT_EQ(sheet.Changes(), told);
        EXPECT_TRUE(sheet.Checked(IDC_DEVICE_PRINTER_FIGURE));
        EXPECT_FALSE(sheet.Checked(IDC_TRAY2));
        EXPECT_THAT(sheet.Drawn(), Contains(WithoutTray2));
    }
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmTotalMemory, 16);
    EXPECT_EQ(record.dmDeviceFlags, 0x7Fu);
    EXPECT_EQ(record.dmDefaultSource, 2);
}

TEST(DeviceOptionsPage, KeepsItsOwnPictureAndComesUpWithTheFigure)
{
    DeviceSheet sheet;
    sheet.Click(IDC_DEVICE_PAGE_LAYOUT).Drawn();
    EXPECT_EQ(DevicePreviewMode, 0);
    sheet.Click(IDC_DEVICE_PRINTER_FIGURE);
    EXPECT_THAT(sheet.Drawn(), Contains(WithoutTray2));
    sheet.Click(IDC_DEVICE_PAGE_LAYOUT).Page(ElsewherePage).Page(DeviceOptions);
    EXPECT_EQ(DevicePreviewMode, 1);
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 0);
    EXPECT_EQ(sheet.Changes(), 0);
}

TEST(DeviceOptionsPage, DecidesOnTheFigureOfEveryPageOnceItHasBeenShown)
{
    Tray2Installed = 0;
    Sheet sheet(Fields("dmDeviceFlags=128"));
    const auto figure = [&](const char16_t* page, int radio) {
        sheet.Page(page).Drawn();
        return sheet.Click(radio).Drawn();
    };
    EXPECT_THAT(figure(u"Setup", IDC_SETUP_PRINTER_FIGURE), Contains(WithoutTray2));
    sheet.Page(DeviceOptions);
    EXPECT_THAT(figure(u"Paper", IDC_PAPER_PRINTER_FIGURE), Contains(WithTray2));
    sheet.Page(DeviceOptions).Click(IDC_DEFAULT);
    EXPECT_THAT(figure(u"Quality", IDC_QUALITY_PRINTER_FIGURE), Contains(WithoutTray2));
}

// "3 5 | 16 10 E": rows of sources and media; of papers and output papers, and whether custom sizes can be edited.
std::string Lists(Sheet& sheet, bool paperFirst)
{
    const auto rows = [&](int list) { return std::to_string(sheet.Items(list).size()) + " "; };
    std::string setup, paper;
    for (const bool onPaper : {paperFirst, !paperFirst}) {
        sheet.Page(onPaper ? u"Paper" : u"Setup");
        if (onPaper)
            paper = rows(IDC_DOCUMENT_SIZE) + rows(IDC_OUTPUT_SIZE) + (sheet.Enabled(IDC_EDIT_CUSTOM) ? "E" : "e");
        else
            setup = rows(IDC_PAPER_SOURCE) + rows(IDC_MEDIA_TYPE) + "| ";
    }
    return setup + paper;
}

// The record keeps a source that is gone from the list; any flag of the device leaves the Paper page with the papers of
// that source.
TEST(DeviceOptionsPage, DefaultReachesBothPagesInEitherOrder)
{
    for (const auto& [fields, before, after] : {
             std::tuple{"dmDeviceFlags=128 dmDefaultSource=1",  "4 5 | 16 10 E", "3 5 | 16 10 E"},
             {"dmDeviceFlags=128 dmDefaultSource=2",  "4 1 | 5 5 e",   "3 5 | 16 10 E"},
             {"dmDeviceFlags=0xFF dmDefaultSource=2", "4 1 | 5 5 e",   "3 5 | 5 5 e"  },
    }) {
        for (const bool paperFirst : {false, true}) {
            PaperSheet sheet(Fields(fields));
            EXPECT_EQ(Lists(sheet, false), before) << fields;
            sheet.Page(DeviceOptions).Click(IDC_DEFAULT);
            EXPECT_EQ(Lists(sheet, paperFirst), after) << fields << paperFirst;
        }
    }
}

TEST(AboutDialog, OpensFromThePageAndClosesByOkAndEsc)
{
    AboutIsPage = 1;  // a device sheet was up before
    DeviceSheet sheet;
    EXPECT_EQ(sheet.Click(IDC_ABOUT).Text(IDC_ABOUT_VERSION), u"Version:1.20.0401.0");
    sheet.Send(WM_COMMAND, 1 << 16 | IDOK, 0);  // a notice of the button and no click
    EXPECT_EQ(sheet.Template(), DLG_ABOUT);
    EXPECT_EQ(sheet.Click(IDOK).Template(), IDD_DEVICE_OPTIONS);
    EXPECT_EQ(sheet.Click(IDC_ABOUT).Press(platform::user::Key::Escape).Template(), IDD_DEVICE_OPTIONS);
    EXPECT_EQ(sheet.Changes(), 0);
}

TEST(AboutDialog, DrawsPictureAndNameEachTimeThatItIsPainted)
{
    DeviceSheet sheet;
    sheet.Click(IDC_ABOUT);
    for (int times = 0; times < 2; ++times) {
        EXPECT_THAT(sheet.Drawn(), testing::AllOf(Contains(StartsWith("1214 StretchBlt")),
                                                  Contains("1290 SetBkMode [1]"), Contains(HasSubstr("{lfHeight:-16,")),
                                                  Contains("1290 TextOutW [0,0,\"Ordana Quillet 4820E\",20]")));
        sheet.Try([](HWND about) {
            InvalidateRect(about, nullptr, TRUE);
            platform::user::PaintPending();
            return platform::user::Outcome::Done;
        });
    }
}

}  // namespace
