#include "platform/gdi/paint.h"

#include <algorithm>

#include "platform/gdi/call.h"
#include "platform/gdi/context.h"
#include "platform/gdi/pictures.h"
#include "platform/gdi/window_area.h"
#include "platform/seams/surface.h"
#include "platform/user/window.h"

namespace platform::gdi {

namespace {

constexpr COLORREF Black = RGB(0, 0, 0), Gray = RGB(128, 128, 128), White = RGB(255, 255, 255);

struct PlainStyle {
    DWORD type;
    COLORREF color;
    bool filled;
};
constexpr PlainStyle PlainStyles[] = {
    {SS_BLACKRECT,  Black, true },
    {SS_GRAYRECT,   Gray,  true },
    {SS_WHITERECT,  White, true },
    {SS_BLACKFRAME, Black, false},
    {SS_GRAYFRAME,  Gray,  false},
    {SS_WHITEFRAME, White, false},
};

std::optional<PixelImage> ImageOf(HMODULE module, DWORD type, int number)
{
    if (type == SS_ICON) return LoadIconImage(module, number);
    if (type != SS_BITMAP) return std::nullopt;
    const auto bitmap = LoadPicture(module, number);
    if (!bitmap) return std::nullopt;
    PixelImage image{bitmap->width, bitmap->height, {}};
    for (const std::uint32_t pixel : bitmap->pixels)
        image.pixels.push_back(0xFF000000 | (bitmap->Mono() && pixel != 0 ? 0xFFFFFF : pixel));
    return image;
}

}  // namespace

HDC OpenWindowContext(HWND window)
{
    const std::lock_guard lock(DrawingLock());
    return window != nullptr ? OpenContext(window) : nullptr;
}

void CloseWindowContext(HDC context)
{
    const std::lock_guard lock(DrawingLock());
    CloseContext(context);
}

void PaintStatic(HWND control)
{
    const std::lock_guard lock(DrawingLock());
    const user::Window* window = user::Find(control);
    const auto area = AreaOf(control);
    if (window == nullptr || window->kind != user::Kind::Static || !area || !area->picture) return;
    Surface& picture = *area->picture;
    const RECT& box = area->client;
    if (box.left >= box.right || box.top >= box.bottom) return;
    const DWORD type = window->style & SS_TYPEMASK;

    const auto plain = std::ranges::find(PlainStyles, type, &PlainStyle::type);
    if (plain != std::end(PlainStyles)) {
        if (plain->filled)
            picture.Fill(box, plain->color);
        else
            picture.Rectangle({PS_SOLID, 1, plain->color}, std::nullopt, box);
        return;
    }
    const user::Window* dialog = user::Find(user::DialogOf(control));
    const auto* owner = dialog != nullptr ? dialog->As<user::DialogState>() : nullptr;
    const auto* shown = window->As<user::StaticState>();
    if (owner == nullptr || shown == nullptr || shown->resource == 0) return;
    const auto image = ImageOf(owner->module, type, shown->resource);
    if (!image) return;
    // Whole, also where the template's units leave the control a pixel too small.
    picture.Image({box.left, box.top, box.left + image->width, box.top + image->height}, *image);
}

}  // namespace platform::gdi
