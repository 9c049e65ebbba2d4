// The way from the Setup page into the Watermark dialog and back. While the
// dialog is up, a list of its own stands in for the page's.
#pragma once

#include "platform/user.h"

// Runs the Watermark dialog and takes over the list that it made, or goes back
// to the one before. Without the right to edit, the dialog only shows.
void EditWatermark(HWND dialog, bool editable);

void OnEditWatermark(HWND dialog);
