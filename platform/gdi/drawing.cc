#include "platform/gdi/drawing.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/gdi/window_area.h"
#include "platform/kernel/last_error.h"

namespace platform::gdi {

namespace {

constexpr bool Empty(const RECT& box) { return box.left >= box.right || box.top >= box.bottom; }

constexpr RECT Common(const RECT& a, const RECT& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

COLORREF Inked(const Context& context, COLORREF color)
{
    if (context.rasterMode == R2_BLACK) return RGB(0, 0, 0);
    if (context.rasterMode == R2_WHITE) return RGB(255, 255, 255);
    return color & 0xFFFFFF;
}

PenSpec PenOf(const Context& context)
{
    const Pen& pen = *context.pen->As<Pen>();
    return {pen.style, std::max(1, std::abs(context.mapping.Across(pen.width))), Inked(context, pen.color)};
}

BrushSpec BrushOf(const Context& context)
{
    const BrushSpec& brush = context.brush->As<Brush>()->color;
    return brush ? BrushSpec(Inked(context, *brush)) : std::nullopt;
}

// The gaps of a broken line show the background colour when the background is opaque.
std::optional<PenSpec> GapsOf(const Context& context, const PenSpec& pen)
{
    const bool broken = pen.style != PS_SOLID && pen.style != PS_NULL;
    if (!broken || context.backgroundMode != OPAQUE) return std::nullopt;
    return PenSpec{PS_SOLID, pen.width, context.backgroundColor & 0xFFFFFF};
}

bool NotSupported()
{
    SetError(ERROR_NOT_SUPPORTED);
    return false;
}

bool RectangleOnBitmap(Context& context, const RECT& box, const PenSpec& pen, const BrushSpec& brush)
{
    Bitmap& bitmap = *context.bitmap->As<Bitmap>();
    if (pen.style != PS_SOLID || pen.width > 1) return NotSupported();
    if (Empty(box)) return true;
    if (brush) FillPixels(bitmap, box, context.clip, *brush);
    const RECT edges[] = {
        {box.left,      box.top,        box.right,    box.top + 1},
        {box.left,      box.bottom - 1, box.right,    box.bottom },
        {box.left,      box.top,        box.left + 1, box.bottom },
        {box.right - 1, box.top,        box.right,    box.bottom },
    };
    for (const RECT& edge : edges) FillPixels(bitmap, edge, context.clip, pen.color);
    return true;
}

bool FillBox(Context& context, const RECT& box, const BrushSpec& brush)
{
    if (!brush || Empty(box)) return true;
    const COLORREF color = *brush & 0xFFFFFF;
    if (context.kind == ContextKind::Memory) {
        FillPixels(*context.bitmap->As<Bitmap>(), box, context.clip, color);
        return true;
    }
    OnSurface(context, [&](Surface& surface, POINT offset) { surface.Fill(Moved(box, offset), color); });
    return true;
}

}  // namespace

POINT Moved(POINT point, POINT by) { return {Sum(point.x, by.x), Sum(point.y, by.y)}; }

RECT Moved(const RECT& box, POINT by)
{
    return {Sum(box.left, by.x), Sum(box.top, by.y), Sum(box.right, by.x), Sum(box.bottom, by.y)};
}

bool NotOnMemory(const Context& context) { return context.kind != ContextKind::Memory || NotSupported(); }

void OnSurface(Context& context, const SurfaceWork& draw)
{
    std::shared_ptr<Surface> surface = context.surface;
    std::optional<RECT> clip = context.clip;
    POINT offset{0, 0};
    if (context.kind == ContextKind::Window) {
        const auto area = AreaOf(context.window);
        if (!area) return;
        surface = area->picture;
        offset = {area->client.left, area->client.top};
        clip = clip ? Common(Moved(*clip, offset), area->client) : area->client;
    }
    if (!surface || (clip && Empty(*clip))) return;
    // Others draw on the same picture: they find it as it was.
    if (clip) surface->SetClip(clip);
    draw(*surface, offset);
    if (clip) surface->SetClip(std::nullopt);
    context.drawn = true;
}

bool DrawRectangle(Context& context, const RECT& box)
{
    const PenSpec pen = PenOf(context);
    const BrushSpec brush = BrushOf(context);
    RECT pixels = context.mapping.ToDevice(box);
    if (pen.style == PS_NULL) {
        // Without an outline the last column and row of the filling go too.
        --pixels.right;
        --pixels.bottom;
        return FillBox(context, pixels, brush);
    }
    if (context.kind == ContextKind::Memory) return RectangleOnBitmap(context, pixels, pen, brush);
    if (Empty(pixels)) return true;
    OnSurface(context, [&](Surface& surface, POINT offset) {
        const auto gaps = GapsOf(context, pen);
        if (gaps) surface.Rectangle(*gaps, brush, Moved(pixels, offset));
        surface.Rectangle(pen, gaps ? std::nullopt : brush, Moved(pixels, offset));
    });
    return true;
}

bool DrawPolygon(Context& context, std::span<const POINT> points)
{
    if (points.size() < 2) {
        SetError(ERROR_INVALID_PARAMETER);
        return false;
    }
    if (!NotOnMemory(context)) return false;
    OnSurface(context, [&](Surface& surface, POINT offset) {
        std::vector<POINT> pixels;
        pixels.reserve(points.size());
        for (const POINT& point : points) pixels.push_back(Moved(context.mapping.ToDevice(point), offset));
        const PenSpec pen = PenOf(context);
        const BrushSpec brush = BrushOf(context);
        const auto gaps = GapsOf(context, pen);
        if (gaps) surface.Polygon(*gaps, brush, pixels);
        surface.Polygon(pen, gaps ? std::nullopt : brush, pixels);
    });
    return true;
}

bool DrawLineTo(Context& context, POINT to)
{
    if (!NotOnMemory(context)) return false;
    const PenSpec pen = PenOf(context);
    if (pen.style != PS_NULL) {
        OnSurface(context, [&](Surface& surface, POINT offset) {
            const POINT start = Moved(context.mapping.ToDevice(context.position), offset);
            const POINT end = Moved(context.mapping.ToDevice(to), offset);
            if (const auto gaps = GapsOf(context, pen)) surface.Line(*gaps, start, end);
            surface.Line(pen, start, end);
        });
    }
    context.position = to;
    return true;
}

bool DrawArc(Context& context, const RECT& box, POINT start, POINT end)
{
    if (!NotOnMemory(context)) return false;
    const PenSpec pen = PenOf(context);
    const RECT pixels = context.mapping.ToDevice(box);
    if (pen.style == PS_NULL || Empty(pixels)) return true;
    OnSurface(context, [&](Surface& surface, POINT offset) {
        const POINT from = Moved(context.mapping.ToDevice(start), offset);
        const POINT to = Moved(context.mapping.ToDevice(end), offset);
        if (const auto gaps = GapsOf(context, pen)) surface.Arc(*gaps, Moved(pixels, offset), from, to);
        surface.Arc(pen, Moved(pixels, offset), from, to);
    });
    return true;
}

bool FillRectangle(Context& context, const RECT& box, const BrushSpec& brush)
{
    return FillBox(context, context.mapping.ToDevice(box), brush);
}

bool FillRegion(Context& context, const Region& region, const BrushSpec& brush)
{
    if (region.Empty()) return true;
    return FillBox(context, context.mapping.ToDevice(region.box), brush);
}

bool DrawImageAt(Context& context, POINT at, const PixelImage& image)
{
    const POINT corner = context.mapping.ToDevice(at);
    if (context.kind == ContextKind::Memory) {
        DrawPixels(*context.bitmap->As<Bitmap>(), corner, context.clip, image);
        return true;
    }
    OnSurface(context, [&](Surface& surface, POINT offset) {
        surface.Image(Moved({corner.x, corner.y, corner.x + image.width, corner.y + image.height}, offset), image);
    });
    return true;
}

}  // namespace platform::gdi
