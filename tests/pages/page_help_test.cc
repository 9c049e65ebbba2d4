// Help on the pages, the dialogs and their controls: which number each asks for, and that every number has a topic.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "platform/services.h"
#include "platform/user/window.h"
#include "resources/control_numbers.h"
#include "tests/support/records.h"
#include "tests/support/sheet_driver.h"

namespace {

using testing_support::HelpSeen;
using testing_support::Sheet;

// A help number and the controls that ask for it.
using Topics = std::vector<std::pair<DWORD, std::vector<int>>>;

// clang-format off

const Topics QualityHelp = {
    {1111, {IDC_EASY_SET, IDC_DEFAULT}},
    {1112, {IDC_QUALITY_FRAME, IDC_QUALITY_PREVIEW, IDC_QUALITY_PAGE_LAYOUT, IDC_QUALITY_PRINTER_FIGURE}},
    {1311, {IDC_RESOLUTION_GROUP, IDC_RESOLUTION_ICON, IDC_RESOLUTION}},
    {4311, {IDC_TONER_SAVE_GROUP, IDC_TONER_SAVE_ON, IDC_TONER_SAVE_OFF}},
    {1313, {IDC_ADJUSTMENT_GROUP}},
    {1403, {IDC_ALL_RASTER_LABEL, IDC_ALL_RASTER_OFF, IDC_ALL_RASTER_ON}},
    {1404, {IDC_SMOOTHTONE_LABEL, IDC_SMOOTHTONE}},
    {1405, {IDC_TONER_DENSITY}},
    {1406, {IDC_PRINTER_TRUETYPE}},
};

const Topics PaperHelp = {
    {1111, {IDC_EASY_SET, IDC_DEFAULT}},
    {1112, {IDC_PAPER_FRAME, IDC_PAPER_PREVIEW, IDC_PAPER_PAGE_LAYOUT, IDC_PAPER_PRINTER_FIGURE}},
    {1211, {IDC_DOCUMENT_SIZE_GROUP, IDC_DOCUMENT_SIZE, IDC_EDIT_CUSTOM}},
    {1212, {IDC_OUTPUT_SIZE_GROUP, IDC_FIT_TO_PAPER, IDC_OUTPUT_SIZE, IDC_SCALING_LABEL, IDC_SCALING, IDC_SCALING_SPIN, IDC_SCALING_PERCENT, IDC_SCALING_RANGE}},
    {1213, {IDC_COPIES_GROUP, IDC_COPIES, IDC_COPIES_SPIN, IDC_COPIES_LABEL, IDC_COPIES_RANGE}},
    {1214, {IDC_COLLATE_GROUP, IDC_COLLATE_ICON, IDC_UNCOLLATED, IDC_COLLATED, IDC_PROOF_PRINT}},
    {1216, {IDC_ORIENTATION_GROUP, IDC_ORIENTATION_ICON, IDC_PORTRAIT, IDC_LANDSCAPE, IDC_ROTATED}},
    {1217, {IDC_SHIFT_GROUP, IDC_SHIFT_OFF, IDC_SHIFT_ON, IDC_SHIFT_X, IDC_SHIFT_X_SPIN, IDC_SHIFT_Y, IDC_SHIFT_Y_SPIN, IDC_SHIFT_X_LABEL, IDC_SHIFT_Y_LABEL, IDC_SHIFT_X_RANGE, IDC_SHIFT_Y_RANGE, IDC_SHIFT_UNIT}},
};

const Topics DeviceHelp = {
    {1111, {IDC_EASY_SET, IDC_DEFAULT}},
    {1112, {IDC_DEVICE_FRAME, IDC_DEVICE_PREVIEW, IDC_DEVICE_PAGE_LAYOUT, IDC_DEVICE_PRINTER_FIGURE}},
    {1407, {IDC_DEVICE_OPTIONS_GROUP, IDC_TRAY2}},
    {1408, {IDC_TOTAL_MEMORY, IDC_TOTAL_MEMORY_LABEL, IDC_TOTAL_MEMORY_UNIT}},
    {5315, {IDC_ABOUT}},
};

const Topics SetupHelp = {
    {1111, {IDC_EASY_SET, IDC_DEFAULT}},
    {1112, {IDC_SETUP_FRAME, IDC_SETUP_PREVIEW, IDC_SETUP_PAGE_LAYOUT, IDC_SETUP_PRINTER_FIGURE}},
    {1114, {IDC_NUP_GROUP, IDC_NUP, IDC_BORDER_LINE, IDC_NUP_STYLE}},
    {1115, {IDC_WATERMARK_GROUP, IDC_WATERMARK, IDC_WATERMARK_FIRST_PAGE, IDC_EDIT_WATERMARK}},
    {1116, {IDC_DUPLEX_GROUP, IDC_DUPLEX_ICON, IDC_DUPLEX, IDC_GUIDE_PAPER}},
    {1117, {IDC_PAPER_SOURCE_GROUP, IDC_PAPER_SOURCE}},
    {5111, {IDC_MEDIA_TYPE}},
    {5112, {IDC_OVERLAY_GROUP, IDC_OVERLAY, IDC_OVERLAY_FIRST_PAGE, IDC_EDIT_OVERLAY}},
};

const Topics CustomPaperHelp = {
    {1221, {IDC_CP_NAME_HEADER, IDC_CP_SIZE_HEADER, IDC_CP_LIST, IDC_CP_NEW, IDC_CP_DELETE}},
    {0, {IDOK, IDCANCEL, IDC_HELP}},
};
const Topics WatermarkHelp = {{1151, {IDC_WM_PREVIEW, IDC_WM_FRAME}}};

// clang-format on

// A page, the button on it that opens a dialog (0: the page itself) and the one in that dialog that opens another.
struct Place {
    const char16_t* page;
    int button, second;
    DWORD context;
    Topics topics;
    DWORD others = 0;  // what every other control of the dialog asks for
};
// clang-format off
const Place Places[] = {
    {u"Setup",                  0,                  0,                1101, SetupHelp},
    {u"Setup",                  IDC_NUP_STYLE,      0,                1141, {}},
    {u"Setup",                  IDC_EDIT_WATERMARK, 0,                1103, WatermarkHelp, 1152},
    {u"Setup",                  IDC_EDIT_OVERLAY,   0,                5113, {}, 5113},
    {u"Setup",                  IDC_EDIT_OVERLAY,   IDC_OVL_NEW,      5113, {}, 5113},
    {u"Paper",                  0,                  0,                1201, PaperHelp},
    {u"Paper",                  IDC_EDIT_CUSTOM,    0,                1202, CustomPaperHelp, 1222},
    {u"Quality",                0,                  0,                1301, QualityHelp},
    {u"Device Options Setting", 0,                  0,                1401, DeviceHelp},
};
// clang-format on

std::set<DWORD> TopicsOfTheFile()
{
    std::set<DWORD> topics;
    std::ifstream in(QD_HELP_TOPICS);
    for (std::string line; std::getline(in, line);)
        if (line.starts_with("## ")) {
            EXPECT_TRUE(topics.insert(std::stoul(line.substr(3))).second) << line;
        }
    return topics;
}

TEST(Help, EveryPageDialogAndControlHasItsTopic)
{
    std::set<DWORD> asked;
    for (const Place& place : Places) {
        Sheet sheet(testing_support::Fields("dmNupOn=1 dmNupCount=2"));
        sheet.Page(place.page);
        if (place.button) sheet.Click(place.button);
        if (place.second) sheet.Click(place.second);
        place.button ? sheet.Click(IDC_HELP) : sheet.PressHelp();
        ASSERT_EQ(sheet.HelpSeenSoFar().size(), 1u);
        const HelpSeen whole = sheet.HelpSeenSoFar()[0];
        EXPECT_EQ(whole.command, place.button ? whole.command : HELP_CONTEXT);
        EXPECT_EQ(whole.context, place.context);
        EXPECT_TRUE(whole.file.ends_with(u"\\3\\4820drv.HLP") && whole.file.size() > 14);
        std::map<int, DWORD> expected;
        sheet.Try([&](HWND dialog) {
            const std::vector<HWND> children = platform::user::Find(dialog)->children;
            for (const HWND child : children) {
                const auto* control = platform::user::Find(child);
                if (control->id <= 0) continue;
                if (place.others && control->visible) expected[control->id] = place.others;
                platform::user::ContextHelp(child);
            }
            return platform::user::Outcome::Done;
        });
        for (const auto& [context, controls] : place.topics)
            for (const int control : controls) expected[control] = context;
        for (const auto& [control, context] : expected) {
            sheet.HelpOn(control);
            EXPECT_EQ(sheet.HelpSeenSoFar().back(), (HelpSeen{control, whole.file, HELP_WM_HELP, context}));
        }
        for (const HelpSeen& seen : sheet.HelpSeenSoFar()) asked.insert(seen.context);
    }
    asked.erase(0);
    EXPECT_EQ(asked, TopicsOfTheFile());
}

}  // namespace
