// The calls that lend contexts of windows, fetch pictures, and draw by system colours and brushes.
#include "platform/gdi/call.h"
#include "platform/gdi/drawing.h"
#include "platform/gdi/pictures.h"
#include "platform/gdi/system_colors.h"
#include "platform/gdi/window_area.h"
#include "platform/kernel/last_error.h"
#include "platform/user.h"

using namespace platform::gdi;
using platform::SetError;

namespace {

// The number that stands in the place of a resource's name; absent for a name.
std::optional<int> NumberOf(const WCHAR* name)
{
    const auto value = reinterpret_cast<std::uintptr_t>(name);
    if (value != 0 && value <= 0xFFFF) return static_cast<int>(value);
    SetError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return std::nullopt;
}

}  // namespace

extern "C" {

HDC GetDC(HWND window)
{
    Call call("GetDC");
    call.On(window);
    return call.Run(HDC{}, [&] { return call.Made(OpenContext(window)); });
}

int ReleaseDC(HWND, HDC context)
{
    return Call("ReleaseDC", context).Run(0, [&](Context&) { return CloseContext(context) ? 1 : 0; });
}

BOOL GetClientRect(HWND window, RECT* rectangle)
{
    const auto work = [&] {
        const auto client = ClientRectangle(window);
        if (!client || rectangle == nullptr) {
            SetError(rectangle == nullptr ? ERROR_INVALID_PARAMETER : ERROR_INVALID_WINDOW_HANDLE);
            return FALSE;
        }
        *rectangle = *client;
        return TRUE;
    };
    return Call("GetClientRect").On(window).WithOutput(rectangle).Run(FALSE, work, OutputOr(FALSE, rectangle));
}

DWORD GetSysColor(int index) { return platform::Fault("GetSysColor", ERROR_GEN_FAILURE) ? 0 : SystemColor(index); }

int FillRect(HDC context, const RECT* rectangle, HBRUSH brush)
{
    return Call("FillRect", context).With(rectangle, brush).Run(0, [&](Context& c) {
        if (rectangle == nullptr) {
            SetError(ERROR_INVALID_PARAMETER);
            return false;
        }
        const Brush* filling = FindAs<Brush>(brush);
        return filling != nullptr && FillRectangle(c, *rectangle, filling->color);
    });
}

BOOL CopyRect(RECT* target, const RECT* source)
{
    if (platform::Fault("CopyRect", ERROR_GEN_FAILURE)) return FALSE;
    if (target == nullptr || source == nullptr) {
        SetError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *target = *source;
    return TRUE;
}

HICON LoadIconW(HINSTANCE module, const WCHAR* name)
{
    return Call("LoadIconW").With(ResourceArgument{name}).Run(HICON{}, [&] {
        const auto number = NumberOf(name);
        return number ? LoadSharedIcon(module, *number) : nullptr;
    });
}

HBITMAP LoadBitmapW(HINSTANCE module, const WCHAR* name)
{
    return Call("LoadBitmapW").With(ResourceArgument{name}).Run(HBITMAP{}, [&]() -> HGDIOBJ {
        const auto number = NumberOf(name);
        auto bitmap = number ? LoadPicture(module, *number) : std::nullopt;
        return bitmap ? AddObject(std::move(*bitmap)) : nullptr;
    });
}

BOOL DrawIcon(HDC context, int x, int y, HICON icon)
{
    return Call("DrawIcon", context).With(x, y, icon).Run(FALSE, [&](Context& c) {
        const Icon* picture = FindIcon(icon);
        return picture != nullptr && DrawImageAt(c, {x, y}, picture->image);
    });
}

}  // extern "C"
