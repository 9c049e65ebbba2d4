#include "preview/binding_marks.h"

#include "preview/drawing_scope.h"
#include "preview/preview_layout.h"

namespace {

constexpr SHORT Portrait = 1;
constexpr SHORT ShortEdge = 3, LongEdge = 1;

constexpr int RingPen = 2, RingRadius = 7, RingWidth = 10, RingPitch = 9, PixelsPerRing = 10;

void DrawOutline(HDC context, const RECT& sheet)
{
    MoveToEx(context, sheet.left, sheet.top, nullptr);
    LineTo(context, sheet.right, sheet.top);
    LineTo(context, sheet.right, sheet.bottom);
    LineTo(context, sheet.left, sheet.bottom);
    LineTo(context, sheet.left, sheet.top);
}

void DrawFlap(HDC context, const DriverDevMode& record, const RECT& sheet)
{
    const auto [left, top, right, bottom] = sheet;
    const LONG w = right - left, h = bottom - top;
    const bool boundRight = record.dmBookletRight != 0;
    POINT flap[3];
    if (record.dmOrientation == Portrait) {
        const LONG binding = boundRight ? right : left;
        const LONG tip = boundRight ? left + w / 10 : left + w * 9 / 10;
        flap[0] = {binding, top};
        flap[1] = {tip, top - h / 12};
        flap[2] = {tip, top};
    } else {
        const LONG binding = boundRight ? left : right;
        const LONG tip = boundRight ? left - w / 14 : right + w / 14;
        flap[0] = {binding, top};
        flap[1] = {tip, top + h * 11 / 12};
        flap[2] = {binding, top + h * 11 / 12};
    }
    Polygon(context, flap, 3);
}

bool BoundAtTop(const DriverDevMode& record)
{
    const bool portrait = record.dmOrientation == Portrait;
    const SHORT atTop = portrait != SheetIsTurned(record) ? ShortEdge : LongEdge;
    return record.dmDuplexBinding == atTop;
}

void DrawRings(HDC context, const DriverDevMode& record, const RECT& sheet)
{
    const SelectedObject pen(context, CreatePen(PS_SOLID, RingPen, RGB(0, 0, 0)));
    if (BoundAtTop(record)) {
        const LONG rings = (sheet.right - sheet.left) / PixelsPerRing, y = sheet.top;
        for (LONG k = 0; k < rings; ++k) {
            const LONG x = sheet.left + RingRadius + RingPitch * k;
            Arc(context, x, y - RingRadius, x + RingWidth, y + RingRadius, x + RingWidth, y, x + RingWidth / 2,
                y + RingRadius);
        }
        return;
    }
    const LONG rings = (sheet.bottom - sheet.top) / PixelsPerRing, x = sheet.left;
    for (LONG k = 0; k < rings; ++k) {
        const LONG y = sheet.top + RingRadius + RingPitch * k;
        Arc(context, x - RingRadius, y, x + RingRadius, y + RingWidth, x, y, x + RingRadius, y + RingWidth);
    }
}

}  // namespace

void DrawBindingMarks(HDC context, const DriverDevMode& record, const RECT& sheet)
{
    if (record.dmDuplexOn != 1) return;
    if (record.dmBookletPaper != 0) {
        DrawOutline(context, sheet);
        DrawFlap(context, record, sheet);
    } else {
        DrawRings(context, record, sheet);
    }
}
