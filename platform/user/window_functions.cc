// What a module calls on any window.
#include <algorithm>

#include "platform/kernel/last_error.h"
#include "platform/kernel/modules.h"
#include "platform/seams/desktop.h"
#include "platform/seams/environment.h"
#include "platform/seams/system_facts.h"
#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

// Stands for the top-level window of another program; no message reaches it.
constexpr std::uintptr_t ForeignWindow = 0x7FFF0000;

// Null, with the last error set, when the call is to fail or there is no such window.
std::shared_ptr<Node> Target(const char* function, HWND window)
{
    if (Fault(function, ERROR_INVALID_WINDOW_HANDLE)) return nullptr;
    auto node = KeepNode(window);
    if (!node) SetError(ERROR_INVALID_WINDOW_HANDLE);
    return node;
}

// Messages that put something into a control fail by their own name where it has no room.
struct RoomRow {
    UINT message;
    const char* name;
    LRESULT noRoom;
};
constexpr RoomRow RoomRows[] = {
    {CB_ADDSTRING,      "CB_ADDSTRING",      CB_ERRSPACE},
    {CB_INSERTSTRING,   "CB_INSERTSTRING",   CB_ERRSPACE},
    {LB_ADDSTRING,      "LB_ADDSTRING",      LB_ERRSPACE},
    {LB_INSERTSTRING,   "LB_INSERTSTRING",   LB_ERRSPACE},
    {LVM_INSERTITEMW,   "LVM_INSERTITEMW",   -1         },
    {LVM_INSERTCOLUMNW, "LVM_INSERTCOLUMNW", -1         },
};

LRESULT SendFromModule(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto row = std::ranges::find(RoomRows, message, &RoomRow::message);
    if (row != std::end(RoomRows) && Fault(row->name, ERROR_NOT_ENOUGH_MEMORY)) return row->noRoom;
    if (!Find(window)) {
        SetError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    return Send(window, message, wParam, lParam);
}

constexpr DWORD StateStyles = WS_VISIBLE | WS_DISABLED;

DWORD StyleOf(const Window& window)
{
    return (window.style & ~StateStyles) | (window.visible ? WS_VISIBLE : 0) | (window.enabled ? 0 : WS_DISABLED);
}

// The slot's value, and the new one in its place if there is one.
LONG_PTR Slot(Node& window, int slot, const LONG_PTR* value)
{
    const auto swapped = [value](auto& place) {
        const auto before = place;
        if (value) place = static_cast<std::remove_reference_t<decltype(place)>>(*value);
        return static_cast<LONG_PTR>(before);
    };
    switch (slot) {
        case GWL_STYLE: {
            const DWORD before = StyleOf(window);
            if (value) {
                window.style = static_cast<DWORD>(*value);
                window.visible = (window.style & WS_VISIBLE) != 0;
                window.enabled = (window.style & WS_DISABLED) == 0;
                Changed(window.handle);
            }
            return static_cast<LONG_PTR>(before);
        }
        case GWL_EXSTYLE:
            return swapped(window.exStyle);
        case GWL_ID:
            return swapped(window.id);
        default:
            break;
    }
    if (DialogState* dialog = window.As<DialogState>()) {
        if (slot == DWL_MSGRESULT) return swapped(dialog->messageResult);
        if (slot == DWL_USER) return swapped(dialog->user);
        if (slot == DWL_DLGPROC) {
            const auto before = reinterpret_cast<LONG_PTR>(dialog->procedure);
            if (value) dialog->procedure = reinterpret_cast<DLGPROC>(*value);
            return before;
        }
    }
    SetError(ERROR_INVALID_PARAMETER);
    return 0;
}

bool ClassMatches(std::u16string_view a, std::u16string_view b)
{
    auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

HWND FindTopLevel(const WCHAR* className, const WCHAR* title)
{
    const bool atom = className && reinterpret_cast<ULONG_PTR>(className) <= 0xFFFF;
    if (atom) return nullptr;  // no class here has one
    HWND found = nullptr;
    for (const auto& [handle, node] : Table().windows) {
        if (TopLevelOf(handle) != handle) continue;
        if (className && !ClassMatches(node->className, className)) continue;
        if (title && node->text != title) continue;
        // The one that was made last is the topmost.
        if (!found || reinterpret_cast<std::uintptr_t>(handle) > reinterpret_cast<std::uintptr_t>(found))
            found = handle;
    }
    if (found) return found;
    // Of other programs' windows the class is all that is known.
    const bool foreign = className && !title && CurrentEnvironment().facts->WindowExists(className);
    return foreign ? reinterpret_cast<HWND>(ForeignWindow) : nullptr;
}

}  // namespace

}  // namespace platform::user

using namespace platform::user;

extern "C" {

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (platform::Fault("SendMessageW", ERROR_INVALID_WINDOW_HANDLE)) return 0;
    return SendFromModule(window, message, wParam, lParam);
}

LRESULT SendDlgItemMessageW(HWND dialog, int number, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (platform::Fault("SendDlgItemMessageW", ERROR_INVALID_WINDOW_HANDLE)) return 0;
    return SendFromModule(Control(dialog, number), message, wParam, lParam);
}

HWND GetParent(HWND window)
{
    const auto node = Target("GetParent", window);
    return node ? node->parent : nullptr;
}

HWND SetFocus(HWND window)
{
    if (platform::Fault("SetFocus", ERROR_INVALID_WINDOW_HANDLE)) return nullptr;
    const HWND before = FocusWindow();
    if (window) {
        const Window* target = Find(window);
        if (!target) {
            platform::SetError(ERROR_INVALID_WINDOW_HANDLE);
            return nullptr;
        }
        if (!target->enabled) return nullptr;
    }
    TakeFocus(window);
    return before;
}

HWND GetFocus() { return platform::Fault("GetFocus", ERROR_INVALID_WINDOW_HANDLE) ? nullptr : FocusWindow(); }

BOOL EnableWindow(HWND window, BOOL enable)
{
    const auto node = Target("EnableWindow", window);
    if (!node) return FALSE;
    const bool before = node->enabled;
    Enable(window, enable != FALSE);
    return !before;
}

BOOL IsWindowEnabled(HWND window)
{
    const auto node = Target("IsWindowEnabled", window);
    return node && node->enabled;
}

BOOL ShowWindow(HWND window, int command)
{
    const auto node = Target("ShowWindow", window);
    if (!node) return FALSE;
    const bool before = node->visible;
    Show(window, command != SW_HIDE);
    return before;
}

LONG_PTR GetWindowLongW(HWND window, int slot)
{
    const auto node = Target("GetWindowLongW", window);
    return node ? Slot(*node, slot, nullptr) : 0;
}

LONG_PTR SetWindowLongW(HWND window, int slot, LONG_PTR value)
{
    const auto node = Target("SetWindowLongW", window);
    return node ? Slot(*node, slot, &value) : 0;
}

BOOL SetWindowTextW(HWND window, const WCHAR* text)
{
    if (!Target("SetWindowTextW", window)) return FALSE;
    return Send(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

int GetWindowTextW(HWND window, WCHAR* text, int chars)
{
    if (text && chars > 0) text[0] = 0;
    if (!Target("GetWindowTextW", window) || !text || chars <= 0) return 0;
    return static_cast<int>(Send(window, WM_GETTEXT, static_cast<WPARAM>(chars), reinterpret_cast<LPARAM>(text)));
}

BOOL InvalidateRect(HWND window, const RECT*, BOOL erase)
{
    // A window is always painted whole.
    if (!Target("InvalidateRect", window)) return FALSE;
    Invalidate(window, erase != FALSE);
    return TRUE;
}

HWND FindWindowW(const WCHAR* className, const WCHAR* title)
{
    if (platform::Fault("FindWindowW", ERROR_FILE_NOT_FOUND)) return nullptr;
    const HWND found = FindTopLevel(className, title);
    if (!found) platform::SetError(ERROR_FILE_NOT_FOUND);
    return found;
}

UINT GetWindowModuleFileNameW(HWND window, WCHAR* path, UINT chars)
{
    const auto node = Target("GetWindowModuleFileNameW", window);
    if (!node || !path || chars == 0) return 0;
    std::u16string file;
    if (node->kind == Kind::Owner) file = platform::CurrentEnvironment().facts->OwnerModule();
    if (const DialogState* dialog = node->As<DialogState>()) file = platform::modules::FileName(dialog->module);
    if (file.empty()) {
        platform::SetError(ERROR_MOD_NOT_FOUND);
        path[0] = 0;
        return 0;
    }
    CopyText(file, path, chars);
    // A path that is cut fills the room whole.
    return static_cast<UINT>(std::min<std::size_t>(file.size(), chars));
}

}  // extern "C"
