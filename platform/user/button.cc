#include <algorithm>

#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

DWORD TypeOf(const Window& button) { return button.style & BS_TYPEMASK; }

bool HasCheck(const Window& button)
{
    const DWORD type = TypeOf(button);
    return button.kind == Kind::Button && (type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || IsRadioButton(button));
}

}  // namespace

bool IsRadioButton(const Window& window)
{
    return window.kind == Kind::Button && (TypeOf(window) == BS_RADIOBUTTON || TypeOf(window) == BS_AUTORADIOBUTTON);
}

bool IsOwnerDrawn(const Window& window) { return window.kind == Kind::Button && TypeOf(window) == BS_OWNERDRAW; }

bool IsPushButton(const Window& window)
{
    return window.kind == Kind::Button &&
           (TypeOf(window) == BS_PUSHBUTTON || TypeOf(window) == BS_DEFPUSHBUTTON || TypeOf(window) == BS_OWNERDRAW);
}

void SetCheck(HWND button, UINT check)
{
    Window* window = Get(button);
    if (!window || !HasCheck(*window)) return;
    window->As<ButtonState>()->check = check ? BST_CHECKED : BST_UNCHECKED;
    Touch(*window);
}

void PressControl(HWND button)
{
    const auto window = Keep(button);
    if (!window) return;
    if (const ButtonState* state = window->As<ButtonState>()) {
        if (TypeOf(*window) == BS_AUTOCHECKBOX) SetCheck(button, state->check == BST_UNCHECKED);
        if (TypeOf(*window) == BS_AUTORADIOBUTTON) {
            for (HWND other : GroupOf(*window)) {
                const Window* member = Find(other);
                if (other != button && member && IsRadioButton(*member)) SetCheck(other, BST_UNCHECKED);
            }
            SetCheck(button, BST_CHECKED);
        }
    }
    NotifyParent(button, BN_CLICKED);
}

LRESULT ButtonMessage(Window& button, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
        case BM_GETCHECK:
            return button.As<ButtonState>()->check;
        case BM_SETCHECK:
            SetCheck(button.handle, wParam != 0);
            return 0;
        case BM_CLICK:
            if (TypeOf(button) != BS_GROUPBOX && button.enabled) {
                TakeFocus(button.handle);
                PressControl(button.handle);
            }
            return 0;
        default:
            return CommonMessage(button, message, wParam, lParam);
    }
}

}  // namespace platform::user
