#include "preview/preview_watermark.h"

#include <algorithm>
#include <cstdlib>

#include "events/stamping.h"
#include "preview/drawing_scope.h"
#include "watermark/placement.h"

namespace {

// From here on a text counts as readable, in pixels of the picture; the second one with many pages on a sheet.
constexpr LONG ReadableHeight = 2, ReadableHeightManyPages = 4;

// Where the text ends along one side, seen from its origin: the printable side is cut back as far as the
// position is from the middle.
LONG EndOf(LONG printable, SHORT position, LONG origin)
{
    if (position == 0) return printable - origin;
    const LONG reach = Scaled((105 - std::abs(position)) * 2, printable, 210);
    if (position < 0) return reach - origin;
    return reach + 2 * (printable - reach) - origin;
}

}  // namespace

LONG IntegerHypot(LONG a, LONG b)
{
    const std::int64_t x = std::abs(std::int64_t{a}), y = std::abs(std::int64_t{b});
    std::int64_t r = std::max(x, y);
    const std::int64_t m = std::min(x, y) * std::min(x, y);
    for (std::int64_t s = 0; s < m; ++r) s += 2 * r + 1;
    return static_cast<LONG>(r);
}

bool PlaceMark(const DriverDevMode& record, const PageMeasures& document, PreviewMark& mark)
{
    mark.text = TextOf(record.dmWatermark);
    if (record.dmWatermarkOn == 0 || mark.text.empty()) return false;
    // Drawing changes no record: the angle of the diagonal goes into a copy.
    WatermarkRecord watermark = record.dmWatermark;
    const WatermarkPage page{document.h, document.w, record.dmResolution, document.mx, document.my};
    WatermarkPlacement placement;
    if (!ComputeWatermarkPlacement(watermark, page, placement)) return false;
    mark.origin = {placement.origin.x + document.mx, placement.origin.y + document.my};
    mark.font = placement.font;
    mark.color = ShadingColor(watermark.wmShading);
    return true;
}

void FitWatermarkText(HDC context, const DriverDevMode& record, const PageMeasures& document, LONG pageHeight,
                      PreviewMark& mark)
{
    mark.lineWidth = 0;
    const bool manyPages = record.dmNupOn == 1 && record.dmNupCount >= 3;
    const HFONT font = CreateFontIndirectW(&mark.font);
    if (!font) return;
    const SelectedObject selected(context, font);
    const UINT alignment = GetTextAlign(context);
    SetTextAlign(context, TA_LEFT | TA_TOP);
    SIZE extent{};
    const int length = static_cast<int>(mark.text.size());
    GetTextExtentPointW(context, mark.text.data(), length, &extent);
    const auto [wx, wy] = mark.origin;
    mark.end = {EndOf(document.pw, record.dmWatermark.wmPositionX, wx),
                EndOf(document.ph, record.dmWatermark.wmPositionY, wy)};
    if (Scaled(extent.cy, pageHeight, document.h) >= (manyPages ? ReadableHeightManyPages : ReadableHeight)) {
        const LONG room = IntegerHypot(std::min(mark.end.x, wx), std::min(mark.end.y, wy)) / 5 +
                          IntegerHypot(mark.end.x - wx, wy - mark.end.y);
        if (room < extent.cx)
            mark.text = mark.text.substr(0, static_cast<std::size_t>(Scaled(length, room, extent.cx)));
    } else {
        mark.lineWidth = document.h / pageHeight * 2;
        mark.end.x = std::min(std::max(mark.end.x, document.mx), document.pw);
        mark.end.y = std::min(std::max(mark.end.y, document.my), document.ph);
    }
    PutTextAlignBack(context, alignment);
}

void DrawWatermarkText(HDC context, const PreviewMark& mark, const RECT& rectangle)
{
    const HFONT font = CreateFontIndirectW(&mark.font);
    if (!font) return;
    const SelectedObject selected(context, font);
    const COLORREF color = SetTextColor(context, mark.color);
    const UINT alignment = GetTextAlign(context);
    SetTextAlign(context, TA_LEFT | TA_TOP);
    ExtTextOutW(context, mark.origin.x, mark.origin.y, ETO_CLIPPED, &rectangle, mark.text.data(),
                static_cast<UINT>(mark.text.size()), nullptr);
    PutTextColorBack(context, color);
    PutTextAlignBack(context, alignment);
}

void DrawMark(HDC context, const PreviewMark& mark, const RECT& rectangle)
{
    if (mark.lineWidth == 0) {
        DrawWatermarkText(context, mark, rectangle);
        return;
    }
    const SelectedObject pen(context, CreatePen(PS_SOLID, mark.lineWidth, mark.color));
    MoveToEx(context, mark.origin.x, mark.origin.y, nullptr);
    LineTo(context, mark.end.x, mark.end.y);
}
