// The printer figure: a fixed picture of the printer, shown in place of the page layout.
#pragma once

#include "platform/user.h"

// Stretches the bitmap resource over the frame static, not over the picture button within it. What can't
// be had is left out: then the frame stays as it is.
void DrawPrinterFigure(int bitmapId, int frameId, HWND dialog);
