#include "watermark/placement.h"

#include <algorithm>
#include <iterator>

#include "platform/user.h"
#include "watermark/geometry.h"
#include "watermark/put_back.h"

SHORT DiagonalAngle = 0;

namespace {

constexpr int PositionSteps = 200;  // across the printable area
constexpr BYTE OnlyTrueType = 7;    // OUT_TT_ONLY_PRECIS
constexpr LONG BoldWeight = 700, NormalWeight = 400;

// The screen's context, given back with the object.
class ScreenContext {
  public:
    ScreenContext() : context_(GetDC(nullptr)) {}
    ~ScreenContext()
    {
        if (context_) PutBack([this] { return ReleaseDC(nullptr, context_); });
    }
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    explicit operator bool() const { return context_ != nullptr; }
    operator HDC() const { return context_; }

  private:
    HDC context_;
};

// The middle of the text along one side of the printable area.
LONG CentreOf(LONG side, LONG margin, SHORT position)
{
    return (side - 2 * margin) / PositionSteps * (position * 99 / 100 + PositionSteps / 2);
}

LONG FontHeight(SHORT points, LONG resolution)
{
    const LONG factor = resolution == 600 || resolution == 1200 ? resolution / 300 : 1;
    return points * factor * 25 / 6;
}

LOGFONTW FontOf(const WatermarkRecord& watermark, LOGFONTW font, LONG height)
{
    font.lfHeight = -height;
    font.lfWidth = 0;
    font.lfEscapement = watermark.wmAngle * 10;
    font.lfWeight = watermark.wmBold ? BoldWeight : NormalWeight;
    font.lfItalic = static_cast<BYTE>(watermark.wmItalic);
    font.lfOutPrecision = OnlyTrueType;
    return font;
}

bool FindFace(HDC context, const WatermarkRecord& watermark, FontMatch& match)
{
    WCHAR face[std::size(WatermarkRecord{}.wmFaceName) + 1] = {};
    std::copy(std::begin(watermark.wmFaceName), std::end(watermark.wmFaceName), face);
    match = {};
    const int result = EnumFontsW(context, face, KeepFontMatch, reinterpret_cast<LPARAM>(&match));
    return result != 0 && match.found;
}

// Measures the text in a font of its own; the context comes back as it was.
bool MeasureText(HDC context, const LOGFONTW& description, std::u16string_view text, SIZE& extent)
{
    const HGDIOBJ before = SelectObject(context, GetStockObject(SYSTEM_FIXED_FONT));
    const HFONT font = CreateFontIndirectW(&description);
    bool measured = false;
    if (font) {
        const HGDIOBJ fixed = SelectObject(context, font);
        measured = fixed && GetTextExtentPointW(context, text.data(), static_cast<int>(text.size()), &extent);
        if (fixed) PutBack([&] { return SelectObject(context, fixed); });
    }
    if (before) PutBack([&] { return SelectObject(context, before); });
    if (font) PutBack([&] { return DeleteObject(font); });
    return measured;
}

}  // namespace

int KeepFontMatch(const LOGFONTW* font, const TEXTMETRICW* /*metrics*/, DWORD /*fontType*/, LPARAM parameter)
{
    *reinterpret_cast<FontMatch*>(parameter) = {*font, true};
    return 1;
}

std::u16string_view TextOf(const WatermarkRecord& watermark)
{
    const auto* end = std::find(std::begin(watermark.wmText), std::end(watermark.wmText) - 1, u'\0');
    return {watermark.wmText, static_cast<std::size_t>(end - watermark.wmText)};
}

int ComputeWatermarkPlacement(WatermarkRecord& watermark, const WatermarkPage& page, WatermarkPlacement& placement)
{
    const ScreenContext context;
    if (!context) return 0;
    if (watermark.wmAngleMode == AngleModeDiagonal) {
        DiagonalAngle = DiagonalOf(page.width, page.height);
        watermark.wmAngle = DiagonalAngle;
    }
    const LONG cx = CentreOf(page.width, page.leftMargin, watermark.wmPositionX);
    const LONG cy = CentreOf(page.height, page.topMargin, watermark.wmPositionY);
    FontMatch match;
    if (!FindFace(context, watermark, match)) return 0;
    const LONG height = FontHeight(watermark.wmSize, page.resolution);
    const LOGFONTW font = FontOf(watermark, match.font, height);
    SIZE extent{};
    if (!MeasureText(context, font, TextOf(watermark), extent)) return 0;
    placement = {RotateOrigin(extent.cx / 2, watermark.wmAngle, height / 2, cx, cy), font};
    return 1;
}
