// Receives drawing in device pixels, after mapping. Rectangles exclude right and bottom. A pen of width 0
// or 1 is one pixel wide; wider pens are centred on their line.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/gdi.h"

namespace platform {

struct PenSpec {
    int style = PS_SOLID;  // PS_NULL draws nothing
    int width = 1;
    COLORREF color = 0;
    bool operator==(const PenSpec&) const = default;
};

// Absent: hollow.
using BrushSpec = std::optional<COLORREF>;

// Pixels as 0xAARRGGBB, rows from the top; alpha is 0 or 255.
struct PixelImage {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels;
};

struct TextSpec {
    LOGFONTW font{};  // lfHeight in device pixels; lfEscapement turns about the reference point
    POINT origin{};   // reference point of the alignment
    UINT align = 0;   // TA_ flags
    COLORREF color = 0;
    std::optional<COLORREF> background;  // behind the text, when the background mode is opaque
    std::optional<RECT> clip;            // beside the surface's clip
    std::u16string text;
};

class QD_API Surface {
  public:
    virtual ~Surface() = default;
    virtual void SetClip(const std::optional<RECT>& clip) = 0;        // holds for all that follows
    virtual void Line(const PenSpec& pen, POINT from, POINT to) = 0;  // the last point is left out
    virtual void Rectangle(const PenSpec& pen, const BrushSpec& brush, const RECT& box) = 0;
    virtual void Polygon(const PenSpec& pen, const BrushSpec& brush, std::span<const POINT> points) = 0;
    virtual void Arc(const PenSpec& pen, const RECT& box, POINT start, POINT end) = 0;  // counter-clockwise
    virtual void Fill(const RECT& box, COLORREF color) = 0;
    virtual void Text(const TextSpec& text) = 0;
    virtual void Image(const RECT& target, const PixelImage& image) = 0;  // stretched to target
    virtual void Erase(const RECT& box) = 0;                              // back to the bare dialog; on paper: nothing
};

// Keeps what it is told and can tell it again: the picture of a dialog that no window system shows yet.
// What a later opaque call hides whole is forgotten, so repainting does not make it grow.
class QD_API RecordingSurface : public Surface {
  public:
    void SetClip(const std::optional<RECT>& clip) override;
    void Line(const PenSpec& pen, POINT from, POINT to) override;
    void Rectangle(const PenSpec& pen, const BrushSpec& brush, const RECT& box) override;
    void Polygon(const PenSpec& pen, const BrushSpec& brush, std::span<const POINT> points) override;
    void Arc(const PenSpec& pen, const RECT& box, POINT start, POINT end) override;
    void Fill(const RECT& box, COLORREF color) override;
    void Text(const TextSpec& text) override;
    void Image(const RECT& target, const PixelImage& image) override;
    void Erase(const RECT& box) override;

    void ReplayOn(Surface& target) const;
    bool Same(const RecordingSurface& other) const;        // whether both show the same, by the same calls
    std::size_t Count() const { return entries_.size(); }  // drawing calls that are kept
    void Clear() { entries_.clear(); }                     // the clip stays

  private:
    struct LineCall {
        PenSpec pen;
        POINT from, to;
    };
    struct RectangleCall {
        PenSpec pen;
        BrushSpec brush;
        RECT box;
    };
    struct PolygonCall {
        PenSpec pen;
        BrushSpec brush;
        std::vector<POINT> points;
    };
    struct ArcCall {
        PenSpec pen;
        RECT box;
        POINT start, end;
    };
    struct FillCall {
        RECT box;
        COLORREF color;
    };
    struct TextCall {
        TextSpec text;
    };
    struct ImageCall {
        RECT target;
        PixelImage image;
    };
    struct EraseCall {
        RECT box;
    };
    using Call = std::variant<LineCall, RectangleCall, PolygonCall, ArcCall, FillCall, TextCall, ImageCall, EraseCall>;
    struct Entry {
        Call call;
        RECT bounds;  // nothing of it shows outside
        std::optional<RECT> clip;
    };
    enum class Cover { Nothing, Bounds };
    void Add(Call call, RECT bounds, Cover cover);
    std::vector<Entry> entries_;
    std::optional<RECT> clip_;
};

}  // namespace platform
