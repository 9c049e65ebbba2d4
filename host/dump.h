// What stands in a dialog or sheet, as a script's dump shows it.
#pragma once

#include "host/json.h"
#include "platform/types.h"

namespace host {

// {"template", "title", "focus", "applyEnabled", "changes", "controls"}; of a sheet its active page. The
// words about Apply are null for a dialog that has no such button.
Json Dump(HWND top);

}  // namespace host
