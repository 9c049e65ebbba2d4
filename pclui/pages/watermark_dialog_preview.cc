#include "pages/watermark_dialog_preview.h"

#include <algorithm>

#include "events/stamping.h"
#include "preview/drawing_scope.h"
#include "preview/preview_frame.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "watermark/placement.h"
#include "watermark/watermark_list.h"

namespace {

constexpr COLORREF White = RGB(255, 255, 255), Black = RGB(0, 0, 0);
constexpr COLORREF Surround = 0x808080;
constexpr LONG UsualMargin = 50;       // dots at 300 dpi
constexpr LONG LeastFontHeight = 80;   // in units of the page, so that a small text can still be seen
constexpr LONG TableResolution = 300;  // of paper sizes and margins

// In dots of the job's resolution, as the page lies.
WatermarkPage PageOf(const DriverDevMode& record)
{
    PaperChoice = GetOption<PaperPayload>(PaperOption);
    WatermarkPage page = {PaperChoice.length, PaperChoice.width, record.dmResolution, UsualMargin, UsualMargin};
    for (const PaperEntry& paper : PaperTable.first(BuiltInPaperRows))
        if (static_cast<int>(paper.code) == record.dmPaperSize) {
            page.leftMargin = paper.portrait->leftMargin;
            page.topMargin = paper.portrait->topMargin;
            break;
        }
    if (page.resolution == 600 || page.resolution == 1200)
        for (LONG* length : {&page.height, &page.width, &page.leftMargin, &page.topMargin})
            *length *= page.resolution / TableResolution;
    if (record.dmOrientation == LandscapeOrientation) {
        std::swap(page.height, page.width);
        std::swap(page.leftMargin, page.topMargin);
    }
    return page;
}

// Where the page lies in the picture, in pixels, and how its dots become pixels.
struct PageView {
    RECT frame;
    LONG extent, pixels;  // so many dots of the page are so many pixels
    POINT shift;          // dots by which the page lies off the picture's corner
};

PageView ViewOf(const WatermarkPage& page, const RECT& client)
{
    const float down = static_cast<float>(client.bottom) / static_cast<float>(page.height);
    const float across = static_cast<float>(client.right) / static_cast<float>(page.width);
    if (down < across) {
        const auto width = static_cast<LONG>(static_cast<float>(page.width) * down);
        const LONG left = (client.right - width) / 2;
        const auto shift = static_cast<LONG>(static_cast<float>(left) / down);
        return {
            {left,           0, left + width, client.bottom},
            page.height, client.bottom, {shift, 0 }
        };
    }
    const auto height = static_cast<LONG>(static_cast<float>(page.height) * across);
    const LONG top = (client.bottom - height) / 2;
    const auto shift = static_cast<LONG>(static_cast<float>(top) / across);
    return {
        {0,             top, client.right, top + height},
        page.width, client.right, {0, shift   }
    };
}

// A white page that everything is clipped to as long as it lives.
class ClippedPage {
  public:
    ClippedPage(HDC context, const RECT& frame)
        : context_(context), region_(CreateRectRgn(frame.left, frame.top, frame.right, frame.bottom))
    {
        if (!region_) return;
        SelectClipRgn(context_, region_);
        PaintRgn(context_, region_);
    }
    ~ClippedPage()
    {
        if (!region_) return;
        PutBack([this] { return SelectClipRgn(context_, nullptr) != ERROR_REGION; });
        PutBack([this] { return DeleteObject(region_); });
    }
    ClippedPage(const ClippedPage&) = delete;
    ClippedPage& operator=(const ClippedPage&) = delete;

  private:
    HDC context_;
    HRGN region_;
};

// Coordinates are dots of the page from Begin on, as long as it lives.
class PageMapping {
  public:
    explicit PageMapping(HDC context) : context_(context) {}
    ~PageMapping()
    {
        if (begun_) PutBack([this] { return SetMapMode(context_, MM_TEXT); });
    }
    PageMapping(const PageMapping&) = delete;
    PageMapping& operator=(const PageMapping&) = delete;

    bool Begin() { return begun_ = SetMapMode(context_, MM_ANISOTROPIC) != 0; }
    void Scale(const PageView& view)
    {
        SetWindowExtEx(context_, view.extent, view.extent, nullptr);
        SetViewportExtEx(context_, view.pixels, view.pixels, nullptr);
    }

  private:
    HDC context_;
    bool begun_ = false;
};

// The context's text colour is not put back: the context itself is given back next.
void DrawText(HDC context, const WatermarkPage& page, const PageView& view, PageMapping& mapping)
{
    if (!mapping.Begin()) return;
    const SHORT shading = WatermarkEdit.wmShading;
    SetTextColor(context, shading >= 1 && shading <= 100 ? ShadingColor(shading) : White);
    WatermarkPlacement placement;
    if (ComputeWatermarkPlacement(WatermarkEdit, page, placement)) {
        LONG& height = placement.font.lfHeight;
        if (height < 0 && height > -LeastFontHeight) height = -LeastFontHeight;
        if (const HFONT made = CreateFontIndirectW(&placement.font)) {
            const SelectedObject font(context, made);
            mapping.Scale(view);
            const auto text = TextOf(WatermarkEdit);
            TextOutW(context, placement.origin.x + view.shift.x, placement.origin.y + view.shift.y, text.data(),
                     static_cast<int>(text.size()));
        }
    }
}

}  // namespace

void DrawWatermarkItem(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    if (drawItem.CtlID != IDC_WM_PREVIEW && drawItem.CtlID != IDC_WM_FRAME) return;
    {
        const WindowContext frame(GetDlgItem(dialog, IDC_WM_FRAME));
        if (frame) DrawSunkenFrame(frame.Get(), frame.ClientRect(), Surround);
    }
    if (drawItem.CtlID == IDC_WM_PREVIEW) DrawWatermarkPreview(dialog);
}

void DrawWatermarkPreview(HWND dialog)
{
    const WindowContext preview(GetDlgItem(dialog, IDC_WM_PREVIEW));
    if (!preview || !CurrentSettings) return;
    const RECT client = preview.ClientRect();
    const WatermarkPage page = PageOf(*CurrentSettings);
    if (client.right <= 0 || client.bottom <= 0 || page.width <= 0 || page.height <= 0) return;
    const PageView view = ViewOf(page, client);

    const HDC context = preview.Get();
    PageMapping mapping(context);  // the last to be put back
    const SelectedObject brush(context, CreateSolidBrush(White));
    {
        const SelectedObject pen(context, CreatePen(PS_SOLID, 1, Black));
        const RECT& frame = view.frame;
        Rectangle(context, frame.left - 1, frame.top - 1, frame.right + 1, frame.bottom + 1);
    }
    const ClippedPage paper(context, view.frame);
    DrawText(context, page, view, mapping);
}
