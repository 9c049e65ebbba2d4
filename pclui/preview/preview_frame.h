// The sunken frame about a picture. Rectangles are pixels of the window and exclude right and bottom.
#pragma once

#include "platform/user.h"

// The frame about the picture of the page's left panel, by the picture that is drawn. The picture of the
// device options page has none.
void DrawPreviewFrame(HWND dialog, const DRAWITEMSTRUCT& drawItem);

// A field of the colour fill within two edges.
void DrawSunkenFrame(HDC context, const RECT& rectangle, COLORREF fill);

// One-pixel edges: top and left in first, right and bottom in second.
void DrawFrameEdges(HDC context, const RECT& rectangle, COLORREF first, COLORREF second);
