// The page in the Watermark dialog, with the watermark under edit on it.
#pragma once

#include "platform/user.h"

// Draws the frame, and the page if the item is the picture.
void DrawWatermarkItem(HWND dialog, const DRAWITEMSTRUCT& drawItem);

// Draws on a context of its own. In the mode Diagonal the angle of the page goes into WatermarkEdit.
void DrawWatermarkPreview(HWND dialog);
