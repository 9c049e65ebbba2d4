// Bitmaps and icons out of a module's resources. Each gives nothing, with the last error set, when the module
// has none of that number or when it is damaged.
#pragma once

#include <optional>

#include "platform/gdi/bitmap.h"

namespace platform::gdi {

// Monochrome if it is one bit a pixel in black and white; else as many bits as the screen has.
std::optional<Bitmap> LoadPicture(HMODULE module, int number);

// Icons belong to nobody and are never given back: asking again for the same one gives the same handle.
struct Icon {
    int number;
    PixelImage image;
};
HICON LoadSharedIcon(HMODULE module, int number);
const Icon* PeekIcon(HICON handle);  // null for what is none
const Icon* FindIcon(HICON handle);  // the same, with the last error set

// The image that suits 32 by 32 pixels best.
std::optional<PixelImage> LoadIconImage(HMODULE module, int number);

}  // namespace platform::gdi
