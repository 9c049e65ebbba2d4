// Device-independent bitmaps as resources and icons hold them: a header of 40 bytes or more, a colour table,
// rows of pixels padded to 4 bytes, from the bottom up unless the height is negative. The bytes are not trusted.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/seams/surface.h"

namespace platform::gdi {

struct Dib {
    PixelImage image;         // alpha is 255
    bool monochrome = false;  // one bit a pixel, black and white in its table
};

// Uncompressed pixels of 1, 4, 8, 24 or 32 bits. Absent for anything else; *why then says what is wrong.
QD_API std::optional<Dib> ParseDib(std::span<const std::uint8_t> bytes, std::string* why);

// An icon's picture: the header's height counts the picture and the mask that follows it. Where the mask is
// set the picture is transparent; 32-bit pictures with an alpha channel go by that.
QD_API std::optional<PixelImage> ParseIconImage(std::span<const std::uint8_t> bytes, std::string* why);

// One picture of an icon group, by the number of its resource.
struct IconEntry {
    int width, height, bitsPerPixel;
    int resource;
};
QD_API std::optional<std::vector<IconEntry>> ParseIconGroup(std::span<const std::uint8_t> bytes, std::string* why);

}  // namespace platform::gdi
