#include <algorithm>

#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

LRESULT DialogMessage(Node& dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    DialogState& state = *dialog.As<DialogState>();
    state.messageResult = 0;
    const INT_PTR handled = state.procedure ? state.procedure(dialog.handle, message, wParam, lParam) : 0;
    // The one message whose result is the procedure's own.
    if (message == WM_INITDIALOG) return handled;
    return handled ? state.messageResult : CommonMessage(dialog, message, wParam, lParam);
}

}  // namespace

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    // Held until the message is done, since handling it may destroy the window.
    const auto node = KeepNode(window);
    if (!node) return 0;
    if (node->handler) return node->handler(window, message, wParam, lParam);
    switch (node->kind) {
        case Kind::Dialog:
            return DialogMessage(*node, message, wParam, lParam);
        case Kind::Button:
            return ButtonMessage(*node, message, wParam, lParam);
        case Kind::Edit:
            return EditMessage(*node, message, wParam, lParam);
        case Kind::ComboBox:
        case Kind::ListBox:
            return ListMessage(*node, message, wParam, lParam);
        case Kind::UpDown:
            return UpDownMessage(*node, message, wParam, lParam);
        case Kind::ListView:
            return ListViewMessage(*node, message, wParam, lParam);
        case Kind::Static:
        case Kind::TreeView:
        case Kind::Sheet:
        case Kind::Owner:
            break;
    }
    return CommonMessage(*node, message, wParam, lParam);
}

void NotifyParent(HWND control, WORD code)
{
    const Window* from = Find(control);
    if (!from) return;
    const DWORD id = static_cast<DWORD>(from->id);
    Send(from->parent, WM_COMMAND, MakeLong(id, code), reinterpret_cast<LPARAM>(control));
}

LRESULT Notify(HWND dialog, NMHDR& header)
{
    return Send(dialog, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

int CopyText(std::u16string_view text, WCHAR* target, std::size_t room)
{
    if (!target || room == 0) return 0;
    const std::size_t length = std::min(text.size(), room - 1);
    std::copy_n(text.data(), length, target);
    target[length] = 0;
    return static_cast<int>(length);
}

LRESULT CommonMessage(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
        case WM_SETTEXT: {
            if (window.kind == Kind::ComboBox) return CB_ERR;  // it shows a row, nothing else
            const auto* text = reinterpret_cast<const WCHAR*>(lParam);
            SetText(window.handle, text ? std::u16string(text) : std::u16string());
            return TRUE;
        }
        case WM_GETTEXT:
            return CopyText(window.text, reinterpret_cast<WCHAR*>(lParam), wParam);
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(window.text.size());
        case WM_SETREDRAW:
            window.redraw = wParam != 0;
            if (window.redraw) Changed(window.handle);
            return 0;
        default:
            return 0;
    }
}

void SetText(HWND window, std::u16string_view text)
{
    const auto node = KeepNode(window);
    if (!node || node->kind == Kind::ComboBox) return;
    node->text = text;
    if (EditState* edit = node->As<EditState>()) edit->caret = edit->anchor = 0;
    Touch(*node);
    if (node->kind == Kind::Edit) NotifyParent(window, EN_CHANGE);
}

}  // namespace platform::user
