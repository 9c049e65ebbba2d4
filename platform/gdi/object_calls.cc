// The calls that make, describe, select and delete objects.
#include <cstring>

#include "platform/gdi/call.h"
#include "platform/gdi/objects.h"

using namespace platform::gdi;
using platform::SetError;
using platform::TraceValue;

namespace {

template <class Handle>
Handle Invalid()
{
    SetError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

HPEN MakePen(int style, int width, COLORREF color)
{
    if (style != PS_SOLID && style != PS_DASH && style != PS_DOT && style != PS_NULL) return Invalid<HPEN>();
    const int size = width < 0 ? -std::max(width, -32768) : width;
    // Only lines of one pixel can be broken.
    const bool broken = style == PS_DASH || style == PS_DOT;
    return static_cast<HPEN>(AddObject(Pen{broken && size > 1 ? PS_SOLID : style, size, color}));
}

HRGN MakeRegion(int left, int top, int right, int bottom)
{
    Region region{
        {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)}
    };
    if (region.Empty()) region.box = {};
    return static_cast<HRGN>(AddObject(region));
}

HBITMAP MakeBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
{
    if (width < 0 || height < 0 || planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 32)) return Invalid<HBITMAP>();
    if (width == 0 || height == 0) return static_cast<HBITMAP>(DefaultBitmap()->handle);
    if (std::int64_t{width} * height > MostPixels) {
        SetError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    Bitmap bitmap(width, height, static_cast<int>(bitsPerPixel));
    if (bits != nullptr) SetBits(bitmap, static_cast<const std::uint8_t*>(bits));
    return static_cast<HBITMAP>(AddObject(std::move(bitmap)));
}

// What a pointer of bits refers to, for the trace.
BytesArgument BitsOf(int width, int height, UINT bitsPerPixel, const void* bits)
{
    if (width < 0 || height < 0 || std::int64_t{width} * height > MostPixels) return {nullptr, 0};
    return {bits, std::int64_t{height} * RowBytes(width, static_cast<int>(bitsPerPixel))};
}

int Describe(Bitmap& bitmap, int bytes, void* description)
{
    if (description == nullptr) return sizeof(BITMAP);
    if (bytes < static_cast<int>(sizeof(BITMAP))) {
        SetError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    BITMAP told{};
    told.bmWidth = bitmap.width;
    told.bmHeight = bitmap.height;
    told.bmWidthBytes = RowBytes(bitmap.width, bitmap.bits);
    told.bmPlanes = 1;
    told.bmBitsPixel = static_cast<WORD>(bitmap.bits);
    std::memcpy(description, &told, sizeof told);
    return sizeof told;
}

int Describe(const Font& font, int bytes, void* description)
{
    if (description == nullptr) return sizeof(LOGFONTW);
    const int count = std::min<int>(bytes, sizeof(LOGFONTW));
    if (count <= 0) {
        SetError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(description, &font.description, static_cast<std::size_t>(count));
    return count;
}

}  // namespace

extern "C" {

HPEN CreatePen(int style, int width, COLORREF color)
{
    return Call("CreatePen").With(style, width, color).Run(HPEN{}, [&] { return MakePen(style, width, color); });
}

HBRUSH CreateSolidBrush(COLORREF color)
{
    return Call("CreateSolidBrush").With(color).Run(HBRUSH{}, [&] { return AddObject(Brush{color}); });
}

HFONT CreateFontIndirectW(const LOGFONTW* font)
{
    return Call("CreateFontIndirectW").With(font).Run(HFONT{}, [&] {
        return font != nullptr ? AddObject(Font{*font}) : Invalid<HGDIOBJ>();
    });
}

HRGN CreateRectRgn(int left, int top, int right, int bottom)
{
    return Call("CreateRectRgn").With(left, top, right, bottom).Run(HRGN{}, [&] {
        return MakeRegion(left, top, right, bottom);
    });
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
{
    return Call("CreateBitmap")
        .With(width, height, planes, bitsPerPixel, BitsOf(width, height, bitsPerPixel, bits))
        .Run(HBITMAP{}, [&] { return MakeBitmap(width, height, planes, bitsPerPixel, bits); });
}

HGDIOBJ GetStockObject(int index)
{
    return Call("GetStockObject").With(index).Run(HGDIOBJ{}, [&] {
        const auto object = StockObject(index);
        return object ? object->handle : Invalid<HGDIOBJ>();
    });
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object)
{
    // A region gives no object but the kind of the clip.
    const auto known = PeekObject(object);
    const bool region = known && known->As<Region>() != nullptr;
    const auto shown = [region](HGDIOBJ result) {
        return region && result != nullptr ? Show(static_cast<int>(reinterpret_cast<std::intptr_t>(result)))
                                           : Show(result);
    };
    return Call("SelectObject", context)
        .With(object)
        .Run(
            HGDIOBJ{}, [&](Context& c) { return Select(c, object); }, shown);
}

BOOL DeleteObject(HGDIOBJ object)
{
    return Call("DeleteObject").With(object).Run(FALSE, [&] { return RemoveObject(object); });
}

int GetObjectW(HGDIOBJ object, int bytes, void* description)
{
    const auto work = [&] {
        const auto found = FindObject(object);
        if (!found) return 0;
        if (Bitmap* bitmap = found->As<Bitmap>()) return Describe(*bitmap, bytes, description);
        if (const Font* font = found->As<Font>()) return Describe(*font, bytes, description);
        SetError(ERROR_NOT_SUPPORTED);
        return 0;
    };
    const auto shown = [&](int result) {
        if (description == nullptr) return Show(result);
        if (result == 0) return TraceValue();
        return ShowDescribed(object);
    };
    return Call("GetObjectW").With(object, bytes).WithOutput(description).Run(0, work, shown);
}

}  // extern "C"
