#include "preview/preview_frame.h"

#include "preview/drawing_scope.h"
#include "resources/control_numbers.h"

namespace {

struct FramedPicture {
    UINT picture;
    int frame;
};

constexpr FramedPicture FramedPictures[] = {
    {IDC_PAPER_PREVIEW,   IDC_PAPER_FRAME  },
    {IDC_SETUP_PREVIEW,   IDC_SETUP_FRAME  },
    {IDC_QUALITY_PREVIEW, IDC_QUALITY_FRAME},
};

// An opaque text background is the cheapest way to fill: it needs no brush.
void FillStrip(HDC context, const RECT& strip)
{
    ExtTextOutW(context, strip.left, strip.top, ETO_OPAQUE, &strip, u"", 0, nullptr);
}

}  // namespace

void DrawFrameEdges(HDC context, const RECT& rectangle, COLORREF first, COLORREF second)
{
    const auto [left, top, right, bottom] = rectangle;
    COLORREF before = SetBkColor(context, first);
    FillStrip(context, {left, top, right, top + 1});
    FillStrip(context, {left, top, left + 1, bottom});
    const COLORREF replaced = SetBkColor(context, second);
    if (before == CLR_INVALID) before = replaced;
    FillStrip(context, {right - 1, top, right, bottom});
    FillStrip(context, {left, bottom - 1, right, bottom});
    PutBkColorBack(context, before);
}

void DrawSunkenFrame(HDC context, const RECT& rectangle, COLORREF fill)
{
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    const COLORREF highlight = GetSysColor(COLOR_BTNHIGHLIGHT);
    {
        const SelectedObject brush(context, CreateSolidBrush(fill));
        const SelectedObject pen(context, CreatePen(PS_SOLID, 1, highlight));
        Rectangle(context, rectangle.left, rectangle.top, rectangle.right, rectangle.bottom);
    }
    DrawFrameEdges(context, rectangle, shadow, highlight);
    const RECT inner = {rectangle.left + 1, rectangle.top + 1, rectangle.right - 1, rectangle.bottom - 1};
    DrawFrameEdges(context, inner, highlight, GetSysColor(COLOR_BTNFACE));
}

void DrawPreviewFrame(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    for (const FramedPicture& framed : FramedPictures) {
        if (framed.picture != drawItem.CtlID) continue;
        const WindowContext frame(GetDlgItem(dialog, framed.frame));
        if (frame) DrawSunkenFrame(frame.Get(), frame.ClientRect(), GetSysColor(COLOR_BTNFACE));
        return;
    }
}
