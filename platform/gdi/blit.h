// Block transfers from memory contexts, onto memory contexts and onto surfaces.
#pragma once

#include "platform/gdi/bitmap.h"
#include "platform/gdi/context.h"

namespace platform::gdi {

// Logical units on both sides. False, with the last error set, if the source is no memory context, or if the
// operation needs what is on a surface already: that cannot be read back.
bool TransferBlock(Context& target, const Block& to, const Context& source, const Block& from, DWORD operation);

// CLR_INVALID outside; with the last error set on anything but a memory context.
COLORREF PixelAt(const Context& context, POINT at);

}  // namespace platform::gdi
