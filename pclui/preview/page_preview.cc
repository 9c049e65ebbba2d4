#include "preview/page_preview.h"

#include <optional>

#include "module.h"
#include "preview/binding_marks.h"
#include "preview/drawing_scope.h"
#include "preview/preview_frame.h"
#include "preview/preview_layout.h"
#include "preview/preview_watermark.h"
#include "resources/control_numbers.h"
#include "settings/options.h"

namespace {

constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Shade = RGB(0x40, 0x40, 0x40);
constexpr COLORREF Ink = RGB(0, 0, 0);
constexpr COLORREF SavedInk = RGB(0x7F, 0x7F, 0x7F);
constexpr BYTE ScaledByZoom = 1, FitToSheet = 2;
constexpr LONG NormalWeight = 400;

void FillRectangle(HDC context, const RECT& box, COLORREF color)
{
    const SelectedStock pen(context, NULL_PEN);
    const SelectedObject brush(context, CreateSolidBrush(color));
    Rectangle(context, box.left, box.top, box.right, box.bottom);
}

// The sheet, what stands out behind it, and the marks of two-sided printing.
void DrawSheet(HDC context, const DriverDevMode& record, const RECT& sheet, const RECT& client)
{
    if (record.dmFitToPaper == FitToSheet) {
        const RECT shape = ShapeBehind(sheet, client);
        FillRectangle(context, shape, Shade);
        const SelectedObject pen(context, CreatePen(PS_DOT, 1, Shade));
        MoveToEx(context, shape.right - 2, shape.bottom - 2, nullptr);
        LineTo(context, sheet.right, sheet.bottom);
    }
    FillRectangle(context, sheet, White);
    DrawBindingMarks(context, record, sheet);
}

// The decimals of a page's number, two at most: no sheet holds a hundred pages.
class PageNumber {
  public:
    explicit PageNumber(int number)
    {
        while (number > 99) number /= 10;
        if (number > 9) text_[length_++] = static_cast<WCHAR>(u'0' + number / 10);
        text_[length_++] = static_cast<WCHAR>(u'0' + number % 10);
    }
    const WCHAR* Text() const { return text_; }
    UINT Length() const { return length_; }

  private:
    WCHAR text_[2];
    UINT length_ = 0;
};

// A page that is scaled above its cell is cut off there.
struct CellClip {
    LONG width, height, x, y;
    RECT At(POINT origin) const
    {
        return {origin.x, origin.y, origin.x - 2 * x + width + 2, origin.y - 2 * y + height + 2};
    }
};

// Lets coordinates be in the dots of the document page while it lives; all modes come back at its end.
class PageMapping {
  public:
    PageMapping(HDC context, const PageMeasures& document, LONG pageWidth, LONG pageHeight) : context_(context)
    {
        rasterMode_ = SetROP2(context, R2_COPYPEN);
        mapMode_ = SetMapMode(context, MM_ISOTROPIC);
        originSet_ = SetWindowOrgEx(context, 0, 0, &origin_);
        windowSet_ = SetWindowExtEx(context, document.w, -document.h, &window_);
        viewportSet_ = SetViewportExtEx(context, pageWidth, -pageHeight, &viewport_);
    }
    ~PageMapping()
    {
        if (viewportSet_) PutBack([this] { return SetViewportExtEx(context_, viewport_.cx, viewport_.cy, nullptr); });
        if (windowSet_) PutBack([this] { return SetWindowExtEx(context_, window_.cx, window_.cy, nullptr); });
        if (originSet_) PutBack([this] { return SetWindowOrgEx(context_, origin_.x, origin_.y, nullptr); });
        if (mapMode_) PutBack([this] { return SetMapMode(context_, mapMode_); });
        if (rasterMode_) PutBack([this] { return SetROP2(context_, rasterMode_); });
    }
    PageMapping(const PageMapping&) = delete;
    PageMapping& operator=(const PageMapping&) = delete;

  private:
    HDC context_;
    int rasterMode_, mapMode_;
    BOOL originSet_, windowSet_, viewportSet_;
    POINT origin_{};
    SIZE window_{}, viewport_{};
};

// The pages of one sheet, drawn one by one.
class PagePainter {
  public:
    PagePainter(HDC context, const DriverDevMode& record, const PageMeasures& document, std::optional<PreviewMark> mark)
        : context_(context), record_(record), document_(document), mark_(mark)
    {
    }
    void DrawAll(const RECT& sheet);

  private:
    std::optional<CellClip> Scale(PageCells& cells) const;
    void DrawPage(int page, POINT origin, const PageContents& contents, int lines, const std::optional<CellClip>& clip);
    void DrawNumber(int page, const PageContents& contents);
    void DrawWatermark(const PageContents& contents);
    void DrawBars(const PageContents& contents, int lines);
    void DrawFrame(const PageContents& contents);
    COLORREF InkColor() const { return record_.dmTonerSave == 1 ? SavedInk : Ink; }

    HDC context_;
    const DriverDevMode& record_;
    PageMeasures document_;
    std::optional<PreviewMark> mark_;  // absent: none, or none any more
    bool fitted_ = false;
    LONG pageHeight_ = 0;
};

std::optional<CellClip> PagePainter::Scale(PageCells& cells) const
{
    std::optional<CellClip> clip;
    const LONG zoom = record_.dmZoom;
    if (record_.dmFitToPaper != ScaledByZoom || zoom == 100) return clip;
    if (zoom > 100)
        clip = {cells.pageWidth, cells.pageHeight, Scaled(document_.mx, cells.pageWidth, document_.w),
                Scaled(document_.my, cells.pageHeight, document_.h)};
    cells.pageWidth = Scaled(cells.pageWidth, zoom, 100);
    cells.pageHeight = Scaled(cells.pageHeight, zoom, 100);
    return clip;
}

void PagePainter::DrawAll(const RECT& sheet)
{
    const PageGrid grid = GridOf(record_);
    PageCells cells = CellsOf(record_, sheet, grid, document_);
    // A picture of a few pixels has no room for pages.
    if (cells.pageWidth < 1 || cells.pageHeight < 1) return;
    KeepMarginsVisible(document_, cells.pageWidth, cells.pageHeight);
    const std::optional<CellClip> clip = Scale(cells);
    if (cells.pageWidth < 1 || cells.pageHeight < 1) return;
    pageHeight_ = cells.pageHeight;

    const PageMapping mapping(context_, document_, cells.pageWidth, cells.pageHeight);
    const PageContents contents = ContentsOf(document_, cells.pageWidth, cells.pageHeight, grid.lines);
    LOGFONTW font{};
    font.lfHeight = contents.barTop - document_.h;
    font.lfWeight = NormalWeight;
    LoadStringW(ResourceHandle, IDS_DEFAULT_FACE, font.lfFaceName, LF_FACESIZE);
    const SelectedObject numbers(context_, CreateFontIndirectW(&font));
    for (int page = 0; page < grid.count; ++page) DrawPage(page, cells.Origin(grid, page), contents, grid.lines, clip);
    if (clip) PutBack([this] { return SelectClipRgn(context_, nullptr); });
}

void PagePainter::DrawPage(int page, POINT origin, const PageContents& contents, int lines,
                           const std::optional<CellClip>& clip)
{
    POINT before{};
    const BOOL moved = SetViewportOrgEx(context_, origin.x, origin.y, &before);
    HRGN region = nullptr;
    if (clip) {
        const RECT box = clip->At(origin);
        region = CreateRectRgn(box.left, box.top, box.right, box.bottom);
        if (region) SelectClipRgn(context_, region);
    }
    DrawNumber(page, contents);
    DrawWatermark(contents);
    DrawBars(contents, lines);
    DrawFrame(contents);
    if (region) PutBack([&] { return DeleteObject(region); });
    if (moved) PutBack([&] { return SetViewportOrgEx(context_, before.x, before.y, nullptr); });
}

void PagePainter::DrawNumber(int page, const PageContents& contents)
{
    const COLORREF color = SetTextColor(context_, InkColor());
    const PageNumber number(page + 1);
    ExtTextOutW(context_, contents.numberX, document_.my, ETO_CLIPPED, &contents.text, number.Text(), number.Length(),
                nullptr);
    PutTextColorBack(context_, color);
}

void PagePainter::DrawWatermark(const PageContents& contents)
{
    if (!mark_) return;
    if (!fitted_) FitWatermarkText(context_, record_, document_, pageHeight_, *mark_);
    fitted_ = true;
    DrawMark(context_, *mark_, contents.text);
    if (record_.dmWatermark.wmFirstPageOnly == 1) mark_.reset();
}

void PagePainter::DrawBars(const PageContents& contents, int lines)
{
    const SelectedStock pen(context_, NULL_PEN);
    const SelectedObject brush(context_, CreateSolidBrush(InkColor()));
    for (int line = 0; line < lines; ++line) {
        const LONG y = contents.barTop + line * 2 * contents.barHeight;
        Rectangle(context_, contents.barLeft, y, contents.barRight, y + contents.barHeight);
    }
}

void PagePainter::DrawFrame(const PageContents& contents)
{
    const SelectedStock brush(context_, NULL_BRUSH);
    const SelectedObject pen(context_, CreatePen(record_.dmNupBorder ? PS_SOLID : PS_DOT, 1, Ink));
    const auto [left, top, right, bottom] = contents.frame;
    Rectangle(context_, left, top, right, bottom);
}

}  // namespace

void DrawPagePreview(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    if (!CurrentSettings) return;
    const DriverDevMode& record = *CurrentSettings;
    const WindowContext picture(drawItem.hwndItem);
    if (!picture) return;
    const RECT client = picture.ClientRect();
    if (client.right - client.left < 1 || client.bottom - client.top < 1) return;
    DrawPreviewFrame(dialog, drawItem);
    PageMeasures document, sheetPaper;
    if (!GetPreviewMetrics(record, document, sheetPaper)) return;
    PreviewMark mark{};
    const bool marked = PlaceMark(record, document, mark);

    const HDC context = picture.Get();
    const RECT sheet = PlaceSheet(client, sheetPaper);
    const int background = SetBkMode(context, TRANSPARENT);
    DrawSheet(context, record, sheet, client);
    PagePainter(context, record, document, marked ? std::optional(mark) : std::nullopt).DrawAll(sheet);
    if (background) PutBack([&] { return SetBkMode(context, background); });
}
