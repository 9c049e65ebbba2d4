// A bitmap as a plain array of pixels, and what is done on it without a surface: fills and block transfers.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/gdi.h"
#include "platform/seams/surface.h"

namespace platform::gdi {

// At most this many pixels; a larger one counts as lack of memory.
inline constexpr std::int64_t MostPixels = std::int64_t{1} << 26;

struct Bitmap {
    Bitmap() = default;
    Bitmap(int bitmapWidth, int bitmapHeight, int bitsPerPixel)
        : width(bitmapWidth),
          height(bitmapHeight),
          bits(bitsPerPixel),
          pixels(static_cast<std::size_t>(bitmapWidth) * static_cast<std::size_t>(bitmapHeight))
    {
    }

    int id = 0;  // resource that it comes from; 0: none
    int width = 0, height = 0;
    int bits = 32;                      // per pixel: 1 or 32
    std::vector<std::uint32_t> pixels;  // rows from the top; 0 or 1, or 0x00RRGGBB

    bool Mono() const { return bits == 1; }
    bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    std::uint32_t& At(int x, int y)
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
    std::uint32_t At(int x, int y) const { return const_cast<Bitmap*>(this)->At(x, y); }
};

// What a pixel of this bitmap holds for a colour (monochrome: 1 for the lighter ones), and back.
std::uint32_t PixelOf(const Bitmap& bitmap, COLORREF color);
COLORREF ColorOf(const Bitmap& bitmap, std::uint32_t pixel);

// Bytes of a row as a program gives pixels: rows from the top, padded to 2 bytes, the leftmost of eight
// monochrome pixels in the highest bit, coloured ones as blue, green, red and one unused byte.
int RowBytes(int width, int bitsPerPixel);
void SetBits(Bitmap& bitmap, const std::uint8_t* bits);

// Absent clip: the whole bitmap.
void FillPixels(Bitmap& bitmap, RECT box, const std::optional<RECT>& clip, COLORREF color);
void DrawPixels(Bitmap& bitmap, POINT at, const std::optional<RECT>& clip, const PixelImage& image);

// A block; a width or height below 0 runs to the left or up and so mirrors.
struct Block {
    int x, y, width, height;
};

// Between a monochrome and a coloured bitmap: what equals background becomes 1, all else 0; and 0 becomes
// text, 1 background.
struct MonoColors {
    COLORREF sourceBackground, targetText, targetBackground;
};

bool IsTransferOperation(DWORD operation);  // SRCCOPY, SRCAND, SRCPAINT, SRCINVERT

// Stretches by taking the nearest pixel; what lies outside the source stays as it was.
void Transfer(Bitmap& target, const Block& to, const std::optional<RECT>& clip, const Bitmap& source, const Block& from,
              DWORD operation, const MonoColors& colors);

// What of the block lies within the source, as an image, and the part of the target (corners in order) that
// it goes to. Absent: nothing.
struct Picture {
    PixelImage image;
    RECT target;
};
std::optional<Picture> Extract(const Bitmap& source, const Block& from, const Block& to, const MonoColors& colors);

}  // namespace platform::gdi
