// The calls that draw shapes, texts and blocks.
#include "platform/gdi/blit.h"
#include "platform/gdi/call.h"
#include "platform/gdi/drawing.h"
#include "platform/gdi/text.h"

using namespace platform::gdi;
using platform::SetError;

namespace {

bool Valid(bool valid)
{
    if (!valid) SetError(ERROR_INVALID_PARAMETER);
    return valid;
}

std::u16string_view View(const WCHAR* text, std::int64_t length)
{
    return text != nullptr ? std::u16string_view(text, static_cast<std::size_t>(length)) : std::u16string_view();
}

}  // namespace

extern "C" {

BOOL Rectangle(HDC context, int left, int top, int right, int bottom)
{
    return Call("Rectangle", context).With(left, top, right, bottom).Run(FALSE, [&](Context& c) {
        return DrawRectangle(c, {left, top, right, bottom});
    });
}

BOOL Polygon(HDC context, const POINT* points, int count)
{
    const std::span<const POINT> corners(points, points != nullptr && count > 0 ? static_cast<std::size_t>(count) : 0);
    return Call("Polygon", context).With(corners, count).Run(FALSE, [&](Context& c) {
        return DrawPolygon(c, corners);
    });
}

BOOL MoveToEx(HDC context, int x, int y, POINT* before)
{
    const auto work = [&](Context& c) {
        if (before != nullptr) *before = c.position;
        c.position = {x, y};
        return TRUE;
    };
    return Call("MoveToEx", context).With(x, y).WithOutput(before).Run(FALSE, work, OutputOr(FALSE, before));
}

BOOL LineTo(HDC context, int x, int y)
{
    return Call("LineTo", context).With(x, y).Run(FALSE, [&](Context& c) { return DrawLineTo(c, {x, y}); });
}

BOOL Arc(HDC context, int left, int top, int right, int bottom, int startX, int startY, int endX, int endY)
{
    return Call("Arc", context).With(left, top, right, bottom, startX, startY, endX, endY).Run(FALSE, [&](Context& c) {
        return DrawArc(c, {left, top, right, bottom}, {startX, startY}, {endX, endY});
    });
}

BOOL FillRgn(HDC context, HRGN region, HBRUSH brush)
{
    return Call("FillRgn", context).With(region, brush).Run(FALSE, [&](Context& c) {
        const Region* area = FindAs<Region>(region);
        const Brush* filling = area != nullptr ? FindAs<Brush>(brush) : nullptr;
        return filling != nullptr && FillRegion(c, *area, filling->color);
    });
}

BOOL PaintRgn(HDC context, HRGN region)
{
    return Call("PaintRgn", context).With(region).Run(FALSE, [&](Context& c) {
        const Region* area = FindAs<Region>(region);
        return area != nullptr && FillRegion(c, *area, c.brush->As<Brush>()->color);
    });
}

COLORREF GetPixel(HDC context, int x, int y)
{
    return Call("GetPixel", context).With(x, y).Run(CLR_INVALID, [&](Context& c) { return PixelAt(c, {x, y}); });
}

BOOL TextOutW(HDC context, int x, int y, const WCHAR* text, int length)
{
    return Call("TextOutW", context).With(x, y, TextArgument{text, length}, length).Run(FALSE, [&](Context& c) {
        return Valid(length >= 0 && (text != nullptr || length == 0)) &&
               DrawTextAt(c, {x, y}, 0, nullptr, View(text, length));
    });
}

BOOL ExtTextOutW(HDC context, int x, int y, UINT options, const RECT* rectangle, const WCHAR* text, UINT length,
                 const INT* advances)
{
    Call call("ExtTextOutW", context);
    call.With(x, y, options, rectangle, TextArgument{text, length}, length,
              std::span(advances, advances != nullptr ? length : 0));
    return call.Run(FALSE, [&](Context& c) {
        if (!Valid(text != nullptr || length == 0)) return false;
        if (advances != nullptr && length > 0) {
            SetError(ERROR_NOT_SUPPORTED);
            return false;
        }
        return DrawTextAt(c, {x, y}, options, rectangle, View(text, length));
    });
}

BOOL GetTextExtentPointW(HDC context, const WCHAR* text, int length, SIZE* extent)
{
    const auto work = [&](Context& c) {
        return Valid(extent != nullptr && length >= 0 && (text != nullptr || length == 0)) &&
               MeasureText(c, View(text, length), extent);
    };
    return Call("GetTextExtentPointW", context)
        .With(TextArgument{text, length}, length)
        .WithOutput(extent)
        .Run(FALSE, work, OutputOr(FALSE, extent));
}

int EnumFontsW(HDC context, const WCHAR* face, FONTENUMPROCW callback, LPARAM parameter)
{
    return Call("EnumFontsW", context).With(face).Run(0, [&](Context&) {
        return EnumerateFonts(face, callback, parameter);
    });
}

BOOL StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight, DWORD operation)
{
    return Call("StretchBlt", target)
        .With(x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight, operation)
        .Run(FALSE, [&](Context& c) {
            const Context* from = FindContext(source);
            return from != nullptr && TransferBlock(c, {x, y, width, height}, *from,
                                                    {sourceX, sourceY, sourceWidth, sourceHeight}, operation);
        });
}

}  // extern "C"
