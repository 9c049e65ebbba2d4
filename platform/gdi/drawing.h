// Shapes on a context. What belongs to a window or a job goes to its surface in device pixels; a memory
// context takes filled boxes, thin rectangles and icons on its bitmap, and no more; the screen takes nothing
// and says that all is done. Each gives false, with the last error set, for what it cannot draw.
#pragma once

#include <functional>
#include <span>

#include "platform/gdi/context.h"

namespace platform::gdi {

bool DrawRectangle(Context& context, const RECT& box);
bool DrawPolygon(Context& context, std::span<const POINT> points);
bool DrawLineTo(Context& context, POINT to);
bool DrawArc(Context& context, const RECT& box, POINT start, POINT end);
bool FillRectangle(Context& context, const RECT& box, const BrushSpec& brush);  // logical; ignores the raster mode
bool FillRegion(Context& context, const Region& region, const BrushSpec& brush);
bool DrawImageAt(Context& context, POINT at, const PixelImage& image);  // its pixels are the device's

// Runs draw with the surface, clipped, and with what turns device coordinates of the context into the
// surface's; not at all when there is no surface or nothing can be seen. The clip is taken off again.
using SurfaceWork = std::function<void(Surface& surface, POINT offset)>;
void OnSurface(Context& context, const SurfaceWork& draw);

RECT Moved(const RECT& box, POINT by);
POINT Moved(POINT point, POINT by);

bool NotOnMemory(const Context& context);  // false, with the last error set, for a memory context

}  // namespace platform::gdi
