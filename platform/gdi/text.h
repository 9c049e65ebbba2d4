// Text on a context, its extent, and the enumeration of fonts. Both rest on the FontService that is plugged
// in; without one measuring and enumerating fail, while drawing goes on.
#pragma once

#include <string_view>

#include "platform/gdi/context.h"

namespace platform::gdi {

// With ETO_OPAQUE the rectangle (logical; may be null) is filled with the background colour first, with
// ETO_CLIPPED the text shows within it only.
bool DrawTextAt(Context& context, POINT at, UINT options, const RECT* rectangle, std::u16string_view text);

// Logical units, at the font's height as it stands.
bool MeasureText(const Context& context, std::u16string_view text, SIZE* extent);

// What the callback returned last, 1 if there was nothing to call it for; 0, with the last error set, if there
// are no fonts to enumerate. A null face: each family once; else each style of the face.
int EnumerateFonts(const WCHAR* face, FONTENUMPROCW callback, LPARAM parameter);

}  // namespace platform::gdi
