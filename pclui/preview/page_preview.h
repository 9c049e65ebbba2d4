// The page layout: a small model of the sheet that the job prints, in the picture of a page's left panel.
// It reads nothing but the current record.
#pragma once

#include "platform/user.h"

// Draws on a context of its own on the item's window, not on that of the item.
void DrawPagePreview(HWND dialog, const DRAWITEMSTRUCT& drawItem);
