// The integer geometry of a rotated text. Angles are counter-clockwise on a page whose y axis runs downward;
// divisions truncate toward zero.
#pragma once

#include "platform/types.h"

// The angle of a vector in tenths of a degree, 0 to 3600.
int ArcTanTenths(LONG x, LONG y);

// The angle of a page's diagonal in degrees, width and height as the page lies.
SHORT DiagonalOf(LONG width, LONG height);

// The corner at which a text of half width w and half height h begins, so that turned by a degrees it is
// centred on (cx, cy). Angles count modulo a full turn.
POINT RotateOrigin(LONG w, SHORT a, LONG h, LONG cx, LONG cy);
