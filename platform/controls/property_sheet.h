// The property sheet: a row of tabs, the page of the chosen tab, and the buttons OK, Cancel, Apply and Help.
// A page is made when it is first shown. It is told PSN_SETACTIVE and then PSN_QUERYINITIALFOCUS each time
// that it comes to the front, PSN_KILLACTIVE when it is to be left, PSN_APPLY, PSN_RESET and PSN_HELP by the
// buttons, and nothing else.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace platform::controls {

struct SheetPagePlan {
    std::u16string title;                  // of the tab
    bool help = false;                     // whether the Help button serves this page
    std::function<HWND(HWND sheet)> make;  // the page's dialog, hidden; null on failure
};

struct SheetPlan {
    HWND owner = nullptr;
    std::u16string title;
    std::vector<SheetPagePlan> pages;
};

// The page that the structure describes; its dialog gets the address of a copy of the structure with
// WM_INITDIALOG, which lives as long as the plan and the sheets that are made from it. Absent when the structure
// is too short or names no whole dialog template.
QD_API std::optional<SheetPagePlan> PlanPage(const PROPSHEETPAGEW& page);

// Brings the sheet up with its first page and returns CPSUI_OK or CPSUI_CANCEL when it has ended; below 0
// when it cannot be brought up (no page, no desktop, a first page that cannot be made).
QD_API LONG RunPropertySheet(const SheetPlan& plan);

}  // namespace platform::controls
