// Drawing a bitmap whose background shows through: every pixel of the colour of its top-left one.
#pragma once

#include "platform/gdi.h"

// With this colour, the pixels of the target itself are the background.
inline constexpr COLORREF TargetShowsThrough = 0x010101;

// Draws a bitmap of the module, stretched to the target rectangle; nothing if it can't be loaded. With any other
// colour the background is that of dialogs.
void DrawTransparentBitmap(int bitmapId, const RECT& target, HDC context, COLORREF background);
