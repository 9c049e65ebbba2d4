#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "platform/seams/surface.h"

namespace platform {

namespace {

constexpr LONG Bounded(std::int64_t value)
{
    return static_cast<LONG>(
        std::clamp<std::int64_t>(value, std::numeric_limits<LONG>::min() / 2, std::numeric_limits<LONG>::max() / 2));
}

constexpr RECT Grown(const RECT& box, std::int64_t by)
{
    return {Bounded(box.left - by), Bounded(box.top - by), Bounded(box.right + by), Bounded(box.bottom + by)};
}

constexpr bool Empty(const RECT& box) { return box.left >= box.right || box.top >= box.bottom; }

constexpr bool Within(const RECT& inner, const RECT& outer)
{
    return Empty(inner) || (inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
                            inner.bottom <= outer.bottom);
}

constexpr RECT Common(const RECT& a, const RECT& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

constexpr RECT Ordered(const RECT& box)
{
    return {std::min(box.left, box.right), std::min(box.top, box.bottom), std::max(box.left, box.right),
            std::max(box.top, box.bottom)};
}

// By how much a pen reaches out of the shape that it draws.
constexpr std::int64_t Reach(const PenSpec& pen) { return pen.width > 1 ? (std::int64_t{pen.width} + 1) / 2 : 0; }

RECT Around(std::span<const POINT> points)
{
    if (points.empty()) return {};
    RECT box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const POINT& point : points) {
        box.left = std::min(box.left, point.x);
        box.top = std::min(box.top, point.y);
        box.right = std::max(box.right, point.x);
        box.bottom = std::max(box.bottom, point.y);
    }
    return {box.left, box.top, Bounded(std::int64_t{box.right} + 1), Bounded(std::int64_t{box.bottom} + 1)};
}

// No glyph is wider than twice the height; the text may be turned any way about its origin.
RECT Around(const TextSpec& text)
{
    const std::int64_t height = std::max<std::int64_t>(std::abs(std::int64_t{text.font.lfHeight}), 16);
    const std::int64_t width = std::max<std::int64_t>(2 * height, 2 * std::abs(std::int64_t{text.font.lfWidth}));
    const std::int64_t characters = static_cast<std::int64_t>(std::min<std::size_t>(text.text.size(), 0x10000));
    const RECT box = Grown({text.origin.x, text.origin.y, text.origin.x, text.origin.y}, (characters + 1) * width);
    return text.clip ? Common(box, *text.clip) : box;
}

bool Opaque(const PixelImage& image)
{
    return !image.pixels.empty() && std::ranges::all_of(image.pixels, [](auto pixel) { return pixel >> 24 == 0xFF; });
}

// Plain structures without padding are the same when their bytes are.
template <class T>
requires std::has_unique_object_representations_v<T>
bool Same(const T& a, const T& b) { return std::memcmp(&a, &b, sizeof(T)) == 0; }

template <class T>
bool Same(const std::optional<T>& a, const std::optional<T>& b)
{
    return a && b ? Same(*a, *b) : !a && !b;
}

bool Same(std::span<const POINT> a, std::span<const POINT> b)
{
    return std::ranges::equal(a, b, [](const POINT& p, const POINT& q) { return Same(p, q); });
}

bool Same(const TextSpec& a, const TextSpec& b)
{
    return a.text == b.text && Same(a.font, b.font) && Same(a.origin, b.origin) && a.align == b.align &&
           a.color == b.color && a.background == b.background && Same(a.clip, b.clip);
}

template <class... Parts>
struct Overloaded : Parts... {
    using Parts::operator()...;
};
template <class... Parts>
Overloaded(Parts...) -> Overloaded<Parts...>;

}  // namespace

void RecordingSurface::Add(Call call, RECT bounds, Cover cover)
{
    if (clip_) bounds = Common(bounds, *clip_);
    if (Empty(bounds)) return;
    if (cover == Cover::Bounds) std::erase_if(entries_, [&](const Entry& e) { return Within(e.bounds, bounds); });
    entries_.push_back({std::move(call), bounds, clip_});
}

void RecordingSurface::SetClip(const std::optional<RECT>& clip) { clip_ = clip; }

void RecordingSurface::Line(const PenSpec& pen, POINT from, POINT to)
{
    Add(LineCall{pen, from, to}, Grown(Around(std::array{from, to}), Reach(pen)), Cover::Nothing);
}

void RecordingSurface::Rectangle(const PenSpec& pen, const BrushSpec& brush, const RECT& box)
{
    // A thin solid outline and its filling leave no pixel of the box as it was.
    const bool opaque = brush && pen.style == PS_SOLID && pen.width <= 1;
    Add(RectangleCall{pen, brush, box}, Grown(Ordered(box), Reach(pen)), opaque ? Cover::Bounds : Cover::Nothing);
}

void RecordingSurface::Polygon(const PenSpec& pen, const BrushSpec& brush, std::span<const POINT> points)
{
    // Mitred corners may reach far out of the shape.
    Add(
        PolygonCall{
            pen, brush, {points.begin(), points.end()}
    },
        Grown(Around(points), 8 * Reach(pen)), Cover::Nothing);
}

void RecordingSurface::Arc(const PenSpec& pen, const RECT& box, POINT start, POINT end)
{
    Add(ArcCall{pen, box, start, end}, Grown(Ordered(box), Reach(pen)), Cover::Nothing);
}

void RecordingSurface::Fill(const RECT& box, COLORREF color) { Add(FillCall{box, color}, box, Cover::Bounds); }

void RecordingSurface::Text(const TextSpec& text) { Add(TextCall{text}, Around(text), Cover::Nothing); }

void RecordingSurface::Image(const RECT& target, const PixelImage& image)
{
    Add(ImageCall{target, image}, Ordered(target), Opaque(image) ? Cover::Bounds : Cover::Nothing);
}

void RecordingSurface::Erase(const RECT& box) { Add(EraseCall{box}, box, Cover::Bounds); }

void RecordingSurface::ReplayOn(Surface& target) const
{
    std::optional<RECT> clip;
    auto clipTo = [&](const std::optional<RECT>& wanted) {
        if (!platform::Same(clip, wanted)) target.SetClip(clip = wanted);
    };
    for (const Entry& entry : entries_) {
        clipTo(entry.clip);
        std::visit(Overloaded{
                       [&](const LineCall& c) { target.Line(c.pen, c.from, c.to); },
                       [&](const RectangleCall& c) { target.Rectangle(c.pen, c.brush, c.box); },
                       [&](const PolygonCall& c) { target.Polygon(c.pen, c.brush, c.points); },
                       [&](const ArcCall& c) { target.Arc(c.pen, c.box, c.start, c.end); },
                       [&](const FillCall& c) { target.Fill(c.box, c.color); },
                       [&](const TextCall& c) { target.Text(c.text); },
                       [&](const ImageCall& c) { target.Image(c.target, c.image); },
                       [&](const EraseCall& c) { target.Erase(c.box); },
                   },
                   entry.call);
    }
    clipTo(clip_);
}

bool RecordingSurface::Same(const RecordingSurface& other) const
{
    const Overloaded sameCall{
        [](const LineCall& a, const LineCall& b) { return platform::Same(a, b); },
        [](const RectangleCall& a, const RectangleCall& b) {
            return a.pen == b.pen && a.brush == b.brush && platform::Same(a.box, b.box);
        },
        [](const PolygonCall& a, const PolygonCall& b) {
            return a.pen == b.pen && a.brush == b.brush && platform::Same(std::span(a.points), std::span(b.points));
        },
        [](const ArcCall& a, const ArcCall& b) { return platform::Same(a, b); },
        [](const FillCall& a, const FillCall& b) { return platform::Same(a, b); },
        [](const TextCall& a, const TextCall& b) { return platform::Same(a.text, b.text); },
        [](const ImageCall& a, const ImageCall& b) {
            return platform::Same(a.target, b.target) && a.image.width == b.image.width &&
                   a.image.height == b.image.height && a.image.pixels == b.image.pixels;
        },
        [](const EraseCall& a, const EraseCall& b) { return platform::Same(a, b); },
        [](const auto&, const auto&) { return false; },
    };
    return std::ranges::equal(entries_, other.entries_, [&](const Entry& a, const Entry& b) {
        return platform::Same(a.clip, b.clip) && std::visit(sameCall, a.call, b.call);
    });
}

}  // namespace platform
