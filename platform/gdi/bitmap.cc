#include "platform/gdi/bitmap.h"

#include <algorithm>
#include <cstdlib>

namespace platform::gdi {

namespace {

using Wide = std::int64_t;

// COLORREF has red lowest, pixels have blue lowest.
constexpr std::uint32_t Swapped(std::uint32_t color)
{
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

RECT Common(const RECT& a, const RECT& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

RECT Visible(const Bitmap& bitmap, const RECT& box, const std::optional<RECT>& clip)
{
    const RECT inside = Common(box, {0, 0, bitmap.width, bitmap.height});
    return clip ? Common(inside, *clip) : inside;
}

// One axis of a block: where it begins and how many pixels it has, in rising order.
struct Span {
    Wide first, count;
    bool reversed;
};

Span SpanOf(int start, int length)
{
    if (length >= 0) return {start, length, false};
    return {Wide{start} + length, -Wide{length}, true};
}

// The source position of a target position: the one whose middle is nearest.
Wide Nearest(Wide position, const Span& to, const Span& from)
{
    const Wide offset = position - to.first;
    const Wide step = to.reversed != from.reversed ? to.count - 1 - offset : offset;
    return from.first + (2 * step + 1) * from.count / (2 * to.count);
}

std::uint32_t Combined(DWORD operation, std::uint32_t target, std::uint32_t source)
{
    switch (operation) {
        case SRCAND:
            return target & source;
        case SRCPAINT:
            return target | source;
        case SRCINVERT:
            return target ^ source;
        default:
            return source;
    }
}

std::uint32_t Converted(const Bitmap& source, std::uint32_t pixel, bool toMono, const MonoColors& colors)
{
    if (source.Mono() == toMono) return pixel;
    if (toMono) return pixel == Swapped(colors.sourceBackground) ? 1 : 0;
    return Swapped(pixel != 0 ? colors.targetBackground : colors.targetText);
}

// Cuts the source span to 0..limit and the target span in proportion.
bool Cut(Span& from, Span& to, Wide limit)
{
    const Wide low = std::max<Wide>(from.first, 0), high = std::min(from.first + from.count, limit);
    if (low >= high || to.count == 0) return false;
    Wide before = (low - from.first) * to.count / from.count;
    Wide behind = (from.first + from.count - high) * to.count / from.count;
    if (to.reversed != from.reversed) std::swap(before, behind);
    to.first += before;
    to.count -= before + behind;
    from.first = low;
    from.count = high - low;
    return to.count > 0;
}

}  // namespace

std::uint32_t PixelOf(const Bitmap& bitmap, COLORREF color)
{
    if (!bitmap.Mono()) return Swapped(color);
    const std::uint32_t red = color & 0xFF, green = color >> 8 & 0xFF, blue = color >> 16 & 0xFF;
    return (red * 30 + green * 59 + blue * 11) / 100 >= 128 ? 1 : 0;
}

COLORREF ColorOf(const Bitmap& bitmap, std::uint32_t pixel)
{
    if (bitmap.Mono()) return pixel != 0 ? RGB(255, 255, 255) : RGB(0, 0, 0);
    return Swapped(pixel);
}

int RowBytes(int width, int bitsPerPixel) { return static_cast<int>((Wide{width} * bitsPerPixel + 15) / 16 * 2); }

void SetBits(Bitmap& bitmap, const std::uint8_t* bits)
{
    const int stride = RowBytes(bitmap.width, bitmap.bits);
    for (int y = 0; y < bitmap.height; ++y, bits += stride) {
        for (int x = 0; x < bitmap.width; ++x) {
            if (bitmap.Mono())
                bitmap.At(x, y) = bits[x / 8] >> (7 - x % 8) & 1;
            else
                bitmap.At(x, y) =
                    bits[4 * x] | std::uint32_t{bits[4 * x + 1]} << 8 | std::uint32_t{bits[4 * x + 2]} << 16;
        }
    }
}

void FillPixels(Bitmap& bitmap, RECT box, const std::optional<RECT>& clip, COLORREF color)
{
    const RECT area = Visible(bitmap, box, clip);
    const std::uint32_t pixel = PixelOf(bitmap, color);
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) bitmap.At(x, y) = pixel;
}

void DrawPixels(Bitmap& bitmap, POINT at, const std::optional<RECT>& clip, const PixelImage& image)
{
    const RECT area = Visible(bitmap, {at.x, at.y, at.x + image.width, at.y + image.height}, clip);
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const auto row = static_cast<std::size_t>(y - at.y) * static_cast<std::size_t>(image.width);
            const std::uint32_t pixel = image.pixels[row + static_cast<std::size_t>(x - at.x)];
            if (pixel >> 24 != 0) bitmap.At(x, y) = PixelOf(bitmap, Swapped(pixel));
        }
    }
}

bool IsTransferOperation(DWORD operation)
{
    return operation == SRCCOPY || operation == SRCAND || operation == SRCPAINT || operation == SRCINVERT;
}

void Transfer(Bitmap& target, const Block& to, const std::optional<RECT>& clip, const Bitmap& source, const Block& from,
              DWORD operation, const MonoColors& colors)
{
    if (&target == &source) {
        // Both blocks may overlap.
        const Bitmap copy = source;
        Transfer(target, to, clip, copy, from, operation, colors);
        return;
    }
    const Span toX = SpanOf(to.x, to.width), toY = SpanOf(to.y, to.height);
    const Span fromX = SpanOf(from.x, from.width), fromY = SpanOf(from.y, from.height);
    RECT area{0, 0, target.width, target.height};
    area.left = static_cast<LONG>(std::clamp<Wide>(toX.first, 0, target.width));
    area.right = static_cast<LONG>(std::clamp<Wide>(toX.first + toX.count, 0, target.width));
    area.top = static_cast<LONG>(std::clamp<Wide>(toY.first, 0, target.height));
    area.bottom = static_cast<LONG>(std::clamp<Wide>(toY.first + toY.count, 0, target.height));
    area = Visible(target, area, clip);
    for (int y = area.top; y < area.bottom; ++y) {
        const Wide sourceY = Nearest(y, toY, fromY);
        if (sourceY < 0 || sourceY >= source.height) continue;
        for (int x = area.left; x < area.right; ++x) {
            const Wide sourceX = Nearest(x, toX, fromX);
            if (sourceX < 0 || sourceX >= source.width) continue;
            std::uint32_t& pixel = target.At(x, y);
            const std::uint32_t value = source.At(static_cast<int>(sourceX), static_cast<int>(sourceY));
            pixel = Combined(operation, pixel, Converted(source, value, target.Mono(), colors));
        }
    }
}

std::optional<Picture> Extract(const Bitmap& source, const Block& from, const Block& to, const MonoColors& colors)
{
    Span fromX = SpanOf(from.x, from.width), fromY = SpanOf(from.y, from.height);
    Span toX = SpanOf(to.x, to.width), toY = SpanOf(to.y, to.height);
    if (!Cut(fromX, toX, source.width) || !Cut(fromY, toY, source.height)) return std::nullopt;

    Picture picture;
    picture.target = {static_cast<LONG>(toX.first), static_cast<LONG>(toY.first),
                      static_cast<LONG>(toX.first + toX.count), static_cast<LONG>(toY.first + toY.count)};
    picture.image.width = static_cast<int>(fromX.count);
    picture.image.height = static_cast<int>(fromY.count);
    picture.image.pixels.reserve(static_cast<std::size_t>(fromX.count * fromY.count));
    const bool mirrorX = fromX.reversed != toX.reversed, mirrorY = fromY.reversed != toY.reversed;
    for (Wide row = 0; row < fromY.count; ++row) {
        const int y = static_cast<int>(fromY.first + (mirrorY ? fromY.count - 1 - row : row));
        for (Wide column = 0; column < fromX.count; ++column) {
            const int x = static_cast<int>(fromX.first + (mirrorX ? fromX.count - 1 - column : column));
            picture.image.pixels.push_back(0xFF000000 | Converted(source, source.At(x, y), false, colors));
        }
    }
    return picture;
}

}  // namespace platform::gdi
