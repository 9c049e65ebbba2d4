// Paper source and media type on the Setup page. Tray2 takes plain paper alone; a media brings its own paper.
#pragma once

#include "platform/user.h"

// Fills both lists anew for SelectedSource and SelectedMedia.
void RefreshSourceAndMedia(HWND dialog);
void DefaultSourceAndMedia(HWND dialog);

void OnSourcePicked(HWND dialog);
void OnMediaPicked(HWND dialog);
