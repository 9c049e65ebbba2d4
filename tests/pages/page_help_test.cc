// Help on the page and on its controls.
#include <gtest/gtest.h>

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

bool IsHelpFile(const std::u16string& file) { return file.ends_with(u"\\3\\4820drv.HLP") && file.size() > 14; }

TEST(PageHelp, TheHelpButtonOpensTheHelpOfThePage)
{
    Sheet sheet;
    sheet.Page(u"Quality").PressHelp();

    ASSERT_EQ(sheet.HelpSeenSoFar().size(), 1u);
    const HelpSeen help = sheet.HelpSeenSoFar()[0];
    EXPECT_EQ(help.control, 0);
    EXPECT_EQ(help.command, HELP_CONTEXT);
    EXPECT_EQ(help.context, 1301u);
    EXPECT_TRUE(IsHelpFile(help.file));
}

TEST(PageHelp, EveryControlHasItsOwnHelp)
{
    Sheet sheet;
    sheet.Page(u"Quality");
    for (const ControlHelp& one : QualityHelp) {
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
