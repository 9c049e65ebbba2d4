// How arguments and results of drawing calls stand in the trace: objects by what they are, rectangles and
// points as arrays, texts of the given length, input of escapes as bytes, null as nothing.
#pragma once

#include <span>

#include "platform/gdi.h"
#include "platform/seams/trace.h"

namespace platform::gdi {

// A text argument, with the length that stands beside it.
struct TextArgument {
    const WCHAR* text;
    std::int64_t length;
};
struct BytesArgument {
    const void* bytes;
    std::int64_t count;
};
struct ResourceArgument {
    const WCHAR* name;  // a number in the place of an address
};

TraceValue Show(int value);
TraceValue Show(DWORD value);
TraceValue Show(HGDIOBJ object);           // a handle that is none: its number
TraceValue ShowDescribed(HGDIOBJ object);  // the same, but stock objects by their description too
TraceValue Show(HDC context);              // its number; nothing for a handle that is none
TraceValue Show(HICON icon);
TraceValue Show(const RECT* box);
TraceValue Show(const RECT& box);
TraceValue Show(POINT point);
TraceValue Show(SIZE size);
TraceValue Show(std::span<const POINT> points);
TraceValue Show(std::span<const INT> numbers);
TraceValue Show(const LOGFONTW* font);
TraceValue Show(const TextArgument& argument);
TraceValue Show(const WCHAR* text);  // up to its terminator
TraceValue Show(const BytesArgument& argument);
TraceValue Show(const ResourceArgument& argument);

inline TraceValue Show(HPEN pen) { return Show(static_cast<HGDIOBJ>(pen)); }
inline TraceValue Show(HBRUSH brush) { return Show(static_cast<HGDIOBJ>(brush)); }
inline TraceValue Show(HFONT font) { return Show(static_cast<HGDIOBJ>(font)); }
inline TraceValue Show(HBITMAP bitmap) { return Show(static_cast<HGDIOBJ>(bitmap)); }
inline TraceValue Show(HRGN region) { return Show(static_cast<HGDIOBJ>(region)); }

}  // namespace platform::gdi
