// Pictures of dialogs and sheets as they would look in a window; needs no screen.
#pragma once

#include <string>

#include "platform/types.h"

namespace desktop {

// A PNG of the dialog or sheet. On failure false, and *why says what went wrong.
bool Snapshot(HWND top, const std::string& pngFile, std::string* why);

}  // namespace desktop
