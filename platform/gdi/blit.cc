#include "platform/gdi/blit.h"

#include "platform/gdi/drawing.h"
#include "platform/kernel/last_error.h"

namespace platform::gdi {

namespace {

Block ToDevice(const Mapping& mapping, const Block& block)
{
    const POINT start = mapping.ToDevice(POINT{block.x, block.y});
    const POINT end = mapping.ToDevice(POINT{Sum(block.x, block.width), Sum(block.y, block.height)});
    return {start.x, start.y, end.x - start.x, end.y - start.y};
}

}  // namespace

bool TransferBlock(Context& target, const Block& to, const Context& source, const Block& from, DWORD operation)
{
    if (source.kind != ContextKind::Memory || !IsTransferOperation(operation)) {
        SetError(ERROR_NOT_SUPPORTED);
        return false;
    }
    const Block targetBlock = ToDevice(target.mapping, to), sourceBlock = ToDevice(source.mapping, from);
    const Bitmap& pixels = *source.bitmap->As<Bitmap>();
    const MonoColors colors{source.backgroundColor, target.textColor, target.backgroundColor};
    if (target.kind == ContextKind::Memory) {
        Transfer(*target.bitmap->As<Bitmap>(), targetBlock, target.clip, pixels, sourceBlock, operation, colors);
        return true;
    }
    if (operation != SRCCOPY) {
        SetError(ERROR_NOT_SUPPORTED);
        return false;
    }
    OnSurface(target, [&](Surface& surface, POINT offset) {
        if (const auto picture = Extract(pixels, sourceBlock, targetBlock, colors))
            surface.Image(Moved(picture->target, offset), picture->image);
    });
    return true;
}

COLORREF PixelAt(const Context& context, POINT at)
{
    if (context.kind != ContextKind::Memory) {
        SetError(ERROR_NOT_SUPPORTED);
        return CLR_INVALID;
    }
    const Bitmap& bitmap = *context.bitmap->As<Bitmap>();
    const POINT pixel = context.mapping.ToDevice(at);
    if (!bitmap.Contains(pixel.x, pixel.y)) return CLR_INVALID;
    return ColorOf(bitmap, bitmap.At(pixel.x, pixel.y));
}

}  // namespace platform::gdi
