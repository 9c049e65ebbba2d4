// The pages of a device sheet that describes itself by options instead of by plain pages: one page with the
// options, then the caller's own dialog pages.
#pragma once

#include <vector>

#include "platform/controls/property_sheet.h"
#include "platform/services.h"

namespace platform::services {

// What the structure refers to must live as long as the sheet. Empty when the structure is not whole, holds
// an option of a type that is not offered (push buttons alone are), or a page that cannot be made.
std::vector<controls::SheetPagePlan> PlanOptionPages(const COMPROPSHEETUI& sheet);

}  // namespace platform::services
