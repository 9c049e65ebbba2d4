// What shows on the sheet of the page layout preview that it is printed on both sides: the flap of a booklet,
// or binding rings along an edge.
#pragma once

#include "driver_dev_mode.h"
#include "platform/gdi.h"

// Draws with the context's own pen and brush, or with a pen that it makes.
void DrawBindingMarks(HDC context, const DriverDevMode& record, const RECT& sheet);
