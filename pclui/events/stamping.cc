#include "events/stamping.h"

#include <algorithm>

#include "events/paper_metrics.h"
#include "platform/kernel.h"
#include "watermark/placement.h"
#include "watermark/put_back.h"

LOGFONTW StampFont;
LONG StampX, StampY;
LONG StampExtentX, StampExtentY;
std::array<WCHAR, 74> StampText;
COLORREF StampColor;
WORD StampFirstPageOnly;
DWORD StampPageCount;
bool StampReady;
bool StampRepeat;

namespace {

constexpr int EscapeWatermarkMark = static_cast<int>(0xA8A8A8A8);
constexpr DWORD MarkBegin = 0xA8A8A8A8;
constexpr DWORD MarkEnd = 0;
constexpr int RepeatedDraws = 4;

void SendMark(HDC context, DWORD mark)
{
    ExtEscape(context, EscapeWatermarkMark, sizeof(mark), reinterpret_cast<const CHAR*>(&mark), 0, nullptr);
}

void DrawText(HDC context)
{
    const UINT length = static_cast<UINT>(lstrlenW(StampText.data()));
    SendMark(context, MarkBegin);
    for (int i = 0; i < (StampRepeat ? RepeatedDraws : 1); ++i)
        ExtTextOutW(context, StampX, StampY, 0, nullptr, StampText.data(), length, nullptr);
    SendMark(context, MarkEnd);
}

// Sets the context up so that a logical unit is a dot, draws, and puts everything back in the reverse order.
// What could not be set was not changed, and is not put back.
void DrawStamp(HDC context)
{
    const COLORREF color = SetTextColor(context, StampColor);
    const int background = SetBkMode(context, TRANSPARENT);
    const int rasterMode = SetROP2(context, R2_COPYPEN);
    const int mapMode = SetMapMode(context, MM_ISOTROPIC);
    POINT windowOrigin{}, viewportOrigin{};
    SIZE windowExtent{}, viewportExtent{};
    const BOOL windowMoved = SetWindowOrgEx(context, 0, 0, &windowOrigin);
    const BOOL viewportMoved = SetViewportOrgEx(context, 0, 0, &viewportOrigin);
    const BOOL windowScaled = SetWindowExtEx(context, StampExtentX, -StampExtentY, &windowExtent);
    const BOOL viewportScaled = SetViewportExtEx(context, StampExtentX, -StampExtentY, &viewportExtent);
    const UINT toldAlignment = GetTextAlign(context);
    const UINT alignment = SetTextAlign(context, TA_LEFT | TA_TOP);

    DrawText(context);

    if (alignment != GDI_ERROR)
        PutBack(
            [&] { return SetTextAlign(context, toldAlignment != GDI_ERROR ? toldAlignment : alignment) != GDI_ERROR; });
    if (viewportScaled)
        PutBack([&] { return SetViewportExtEx(context, viewportExtent.cx, viewportExtent.cy, nullptr); });
    if (windowScaled) PutBack([&] { return SetWindowExtEx(context, windowExtent.cx, windowExtent.cy, nullptr); });
    if (viewportMoved) PutBack([&] { return SetViewportOrgEx(context, viewportOrigin.x, viewportOrigin.y, nullptr); });
    if (windowMoved) PutBack([&] { return SetWindowOrgEx(context, windowOrigin.x, windowOrigin.y, nullptr); });
    if (mapMode) PutBack([&] { return SetMapMode(context, mapMode); });
    if (rasterMode) PutBack([&] { return SetROP2(context, rasterMode); });
    if (background) PutBack([&] { return SetBkMode(context, background); });
    if (color != CLR_INVALID) PutBack([&] { return SetTextColor(context, color) != CLR_INVALID; });
}

}  // namespace

int PrepareWatermark(HANDLE hPrinter, DriverDevMode& record)
{
    PaperMetrics metrics{};
    GetPaperMetrics(hPrinter, &metrics, record, record.dmOrientation, record.dmPaperSize);
    const WatermarkPage page{metrics.height, metrics.width, record.dmPrintQuality, metrics.leftMargin,
                             metrics.topMargin};
    WatermarkPlacement placement;
    if (!ComputeWatermarkPlacement(record.dmWatermark, page, placement)) return 0;
    StampX = placement.origin.x;
    StampY = placement.origin.y;
    StampFont = placement.font;
    StampExtentX = metrics.printableWidth;
    StampExtentY = metrics.printableHeight;
    StampReady = true;
    StampText.fill(0);
    std::ranges::copy(TextOf(record.dmWatermark), StampText.begin());
    StampColor = ShadingColor(record.dmWatermark.wmShading);
    StampFirstPageOnly = static_cast<WORD>(record.dmWatermark.wmFirstPageOnly);
    StampRepeat = record.dmNupOn == 1 && record.dmNupCount != 1;
    return 1;
}

int StampPage(HDC context)
{
    if (StampFirstPageOnly == 1 && StampPageCount != 0) return 1;
    ++StampPageCount;
    const HFONT font = CreateFontIndirectW(&StampFont);
    if (!font) return 0;
    if (const HGDIOBJ before = SelectObject(context, font)) {
        DrawStamp(context);
        PutBack([&] { return SelectObject(context, before); });
    }
    PutBack([&] { return DeleteObject(font); });
    return 1;
}
