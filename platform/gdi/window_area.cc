#include "platform/gdi/window_area.h"

#include <algorithm>

#include "platform/user/window.h"

namespace platform::gdi {

namespace {

constexpr DWORD ClientEdge = 0x0200, StaticEdge = 0x20000;  // extended styles

bool IsControl(const user::Window& window)
{
    return window.kind != user::Kind::Dialog && window.kind != user::Kind::Sheet && window.kind != user::Kind::Owner;
}

// Pixels of a control's edge on each side.
int EdgeOf(const user::Window& window)
{
    if (!IsControl(window)) return 0;
    const int edges = (window.exStyle & ClientEdge ? 2 : 0) + (window.exStyle & StaticEdge ? 1 : 0);
    return edges > 0 ? edges : window.style & WS_BORDER ? 1 : 0;
}

}  // namespace

std::optional<int> ControlNumber(HWND window)
{
    const user::Window* found = user::Find(window);
    if (found == nullptr) return std::nullopt;
    return IsControl(*found) ? found->id : 0;
}

std::optional<RECT> ClientRectangle(HWND window)
{
    const user::Window* found = user::Find(window);
    if (found == nullptr) return std::nullopt;
    const int edge = EdgeOf(*found);
    return RECT{0, 0, std::max(0, found->Width() - 2 * edge), std::max(0, found->Height() - 2 * edge)};
}

std::optional<WindowArea> AreaOf(HWND window)
{
    const user::Window* found = user::Find(window);
    const auto client = ClientRectangle(window);
    if (found == nullptr || !client) return std::nullopt;
    WindowArea area{nullptr, *client};
    if (IsControl(*found)) {
        const int x = found->rect.left + EdgeOf(*found), y = found->rect.top + EdgeOf(*found);
        area.client = {x, y, x + client->right, y + client->bottom};
    }
    const user::Window* dialog = found->kind == user::Kind::Dialog ? found : user::Find(user::DialogOf(window));
    if (dialog != nullptr)
        if (const auto* state = dialog->As<user::DialogState>()) area.picture = state->picture;
    return area;
}

}  // namespace platform::gdi
