// The file dialog of the overlay editor: a file to be made is named in a save dialog, one that exists is
// picked in an open dialog.
#pragma once

#include "platform/user.h"

// Lets the user pick a file, starting from the path that this field shows, and puts the whole path there.
// A dialog that is cancelled or fails leaves the field as it is.
void BrowseForOverlay(HWND dialog, int pathField, bool makesFile);

// The hook: refuses paths that a row has no room for.
UINT_PTR OverlayBrowseHook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
