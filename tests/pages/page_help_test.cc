// Help on the page and on its controls.
#include <gtest/gtest.h>

#include <span>

#include "platform/services.h"
#include "resources/control_numbers.h"
#include "tests/support/sheet_driver.h"

namespace {

using testing_support::HelpSeen;
using testing_support::Sheet;

struct ControlHelp {
    int control;
    DWORD context;
};

constexpr ControlHelp QualityHelp[] = {
    {IDC_EASY_SET,               1111},
    {IDC_DEFAULT,                1111},
    {IDC_QUALITY_FRAME,          1112},
    {IDC_QUALITY_PREVIEW,        1112},
    {IDC_QUALITY_PAGE_LAYOUT,    1112},
    {IDC_QUALITY_PRINTER_FIGURE, 1112},
    {IDC_RESOLUTION_GROUP,       1311},
    {IDC_RESOLUTION_ICON,        1311},
    {IDC_RESOLUTION,             1311},
    {IDC_TONER_SAVE_GROUP,       4311},
    {IDC_TONER_SAVE_ON,          4311},
    {IDC_TONER_SAVE_OFF,         4311},
    {IDC_ADJUSTMENT_GROUP,       1313},
    {IDC_ALL_RASTER_LABEL,       1403},
    {IDC_ALL_RASTER_OFF,         1403},
    {IDC_ALL_RASTER_ON,          1403},
    {IDC_SMOOTHTONE_LABEL,       1404},
    {IDC_SMOOTHTONE,             1404},
    {IDC_TONER_DENSITY,          1405},
    {IDC_PRINTER_TRUETYPE,       1406},
};

constexpr ControlHelp PaperHelp[] = {
    {IDC_EASY_SET,             1111},
    {IDC_DEFAULT,              1111},
    {IDC_PAPER_FRAME,          1112},
    {IDC_PAPER_PREVIEW,        1112},
    {IDC_PAPER_PAGE_LAYOUT,    1112},
    {IDC_PAPER_PRINTER_FIGURE, 1112},
    {IDC_DOCUMENT_SIZE_GROUP,  1211},
    {IDC_DOCUMENT_SIZE,        1211},
    {IDC_EDIT_CUSTOM,          1211},
    {IDC_OUTPUT_SIZE_GROUP,    1212},
    {IDC_FIT_TO_PAPER,         1212},
    {IDC_OUTPUT_SIZE,          1212},
    {IDC_SCALING_LABEL,        1212},
    {IDC_SCALING,              1212},
    {IDC_SCALING_SPIN,         1212},
    {IDC_SCALING_PERCENT,      1212},
    {IDC_SCALING_RANGE,        1212},
    {IDC_COPIES_GROUP,         1213},
    {IDC_COPIES,               1213},
    {IDC_COPIES_SPIN,          1213},
    {IDC_COPIES_LABEL,         1213},
    {IDC_COPIES_RANGE,         1213},
    {IDC_COLLATE_GROUP,        1214},
    {IDC_COLLATE_ICON,         1214},
    {IDC_UNCOLLATED,           1214},
    {IDC_COLLATED,             1214},
    {IDC_PROOF_PRINT,          1214},
    {IDC_ORIENTATION_GROUP,    1216},
    {IDC_ORIENTATION_ICON,     1216},
    {IDC_PORTRAIT,             1216},
    {IDC_LANDSCAPE,            1216},
    {IDC_ROTATED,              1216},
    {IDC_SHIFT_GROUP,          1217},
    {IDC_SHIFT_OFF,            1217},
    {IDC_SHIFT_ON,             1217},
    {IDC_SHIFT_X,              1217},
    {IDC_SHIFT_X_SPIN,         1217},
    {IDC_SHIFT_Y,              1217},
    {IDC_SHIFT_Y_SPIN,         1217},
    {IDC_SHIFT_X_LABEL,        1217},
    {IDC_SHIFT_Y_LABEL,        1217},
    {IDC_SHIFT_X_RANGE,        1217},
    {IDC_SHIFT_Y_RANGE,        1217},
    {IDC_SHIFT_UNIT,           1217},
};

constexpr ControlHelp DeviceHelp[] = {
    {IDC_EASY_SET,              1111},
    {IDC_DEFAULT,               1111},
    {IDC_DEVICE_FRAME,          1112},
    {IDC_DEVICE_PREVIEW,        1112},
    {IDC_DEVICE_PAGE_LAYOUT,    1112},
    {IDC_DEVICE_PRINTER_FIGURE, 1112},
    {IDC_DEVICE_OPTIONS_GROUP,  1407},
    {IDC_TRAY2,                 1407},
    {IDC_TOTAL_MEMORY,          1408},
    {IDC_TOTAL_MEMORY_LABEL,    1408},
    {IDC_TOTAL_MEMORY_UNIT,     1408},
    {IDC_ABOUT,                 5315},
};

constexpr ControlHelp SetupHelp[] = {
    {IDC_EASY_SET,             1111},
    {IDC_DEFAULT,              1111},
    {IDC_SETUP_FRAME,          1112},
    {IDC_SETUP_PREVIEW,        1112},
    {IDC_SETUP_PAGE_LAYOUT,    1112},
    {IDC_SETUP_PRINTER_FIGURE, 1112},
    {IDC_NUP_GROUP,            1114},
    {IDC_NUP,                  1114},
    {IDC_BORDER_LINE,          1114},
    {IDC_NUP_STYLE,            1114},
    {IDC_WATERMARK_GROUP,      1115},
    {IDC_WATERMARK,            1115},
    {IDC_WATERMARK_FIRST_PAGE, 1115},
    {IDC_EDIT_WATERMARK,       1115},
    {IDC_DUPLEX_GROUP,         1116},
    {IDC_DUPLEX_ICON,          1116},
    {IDC_DUPLEX,               1116},
    {IDC_GUIDE_PAPER,          1116},
    {IDC_PAPER_SOURCE_GROUP,   1117},
    {IDC_PAPER_SOURCE,         1117},
    {IDC_MEDIA_TYPE,           5111},
    {IDC_OVERLAY_GROUP,        5112},
    {IDC_OVERLAY,              5112},
    {IDC_OVERLAY_FIRST_PAGE,   5112},
    {IDC_EDIT_OVERLAY,         5112},
};

struct PageHelpRow {
    const char16_t* title;
    DWORD context;
    std::span<const ControlHelp> controls;
};
constexpr PageHelpRow PageRows[] = {
    {u"Setup",                  1101, SetupHelp  },
    {u"Paper",                  1201, PaperHelp  },
    {u"Quality",                1301, QualityHelp},
    {u"Device Options Setting", 1401, DeviceHelp },
};

bool IsHelpFile(const std::u16string& file) { return file.ends_with(u"\\3\\4820drv.HLP") && file.size() > 14; }

TEST(PageHelp, TheHelpButtonOpensTheHelpOfThePage)
{
    for (const PageHelpRow& page : PageRows) {
        Sheet sheet;
        sheet.Page(page.title).PressHelp();

        ASSERT_EQ(sheet.HelpSeenSoFar().size(), 1u);
        const HelpSeen help = sheet.HelpSeenSoFar()[0];
        EXPECT_EQ(help.control, 0);
        EXPECT_EQ(help.command, HELP_CONTEXT);
        EXPECT_EQ(help.context, page.context);
        EXPECT_TRUE(IsHelpFile(help.file));
    }
}

TEST(PageHelp, EveryControlHasItsOwnHelp)
{
    for (const PageHelpRow& page : PageRows) {
        Sheet sheet;
        sheet.Page(page.title);
        for (const ControlHelp& one : page.controls) {
            HELPINFO info{};
            info.cbSize = sizeof info;
            info.iContextType = HELPINFO_WINDOW;
            info.iCtrlId = one.control;
            info.hItemHandle = sheet.Handle(one.control);
            EXPECT_EQ(sheet.Send(WM_HELP, 0, reinterpret_cast<LPARAM>(&info)), FALSE);
            const HelpSeen help = sheet.HelpSeenSoFar().back();
            EXPECT_EQ(help.control, one.control);
            EXPECT_EQ(help.command, HELP_WM_HELP);
            EXPECT_EQ(help.context, one.context) << one.control;
            EXPECT_TRUE(IsHelpFile(help.file));
        }
    }
}

TEST(PageHelp, AUserGetsHelpOnAControl)
{
    Sheet sheet;
    sheet.Page(u"Quality").HelpOn(IDC_TONER_DENSITY);
    ASSERT_FALSE(sheet.HelpSeenSoFar().empty());
    EXPECT_EQ(sheet.HelpSeenSoFar().back().context, 1405u);
}

TEST(PageHelp, TheContextMenuAsksForNothing)
{
    Sheet sheet;
    sheet.Page(u"Quality");
    EXPECT_EQ(sheet.Send(WM_CONTEXTMENU, 0, 0), FALSE);
    EXPECT_TRUE(sheet.HelpSeenSoFar().empty());
}

}  // namespace
