// What a module calls on dialogs and their controls by number.
#include <algorithm>

#include "platform/kernel/last_error.h"
#include "platform/seams/desktop.h"
#include "platform/seams/environment.h"
#include "platform/user/controls.h"
#include "platform/user/node.h"
#include "platform/user/numbers.h"

namespace platform::user {

namespace {

constexpr DWORD ERROR_CONTROL_ID_NOT_FOUND = 1421;
constexpr INT_PTR NoDialog = -1;

// Null, with the last error set, when the call is to fail or there is no such control.
HWND Item(const char* function, HWND dialog, int number)
{
    if (Fault(function, ERROR_CONTROL_ID_NOT_FOUND)) return nullptr;
    if (!Find(dialog)) {
        SetError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    const HWND control = Control(dialog, number);
    if (!control) SetError(ERROR_CONTROL_ID_NOT_FOUND);
    return control;
}

INT_PTR RunDialog(const DialogPlan& plan)
{
    if (!CurrentEnvironment().desktop) {
        SetError(ERROR_NOT_SUPPORTED);
        return NoDialog;
    }
    if (plan.parent && !Find(plan.parent)) {
        SetError(ERROR_INVALID_WINDOW_HANDLE);
        return NoDialog;
    }
    const HWND focus = FocusWindow();
    const HWND dialog = MakeDialog(plan);
    const auto kept = Keep(dialog);
    if (!kept) return NoDialog;
    RunModal(dialog);
    const DialogState* state = kept->As<DialogState>();
    const INT_PTR result = state->ended ? state->result : NoDialog;
    Destroy(dialog);
    // One that ended before it came up may still have taken the focus to itself.
    if (!FocusWindow() && Find(focus)) SetFocusSilently(focus);
    return result;
}

}  // namespace

}  // namespace platform::user

using namespace platform::user;

extern "C" {

HWND GetDlgItem(HWND dialog, int number) { return Item("GetDlgItem", dialog, number); }

BOOL SetDlgItemTextW(HWND dialog, int number, const WCHAR* text)
{
    const HWND control = Item("SetDlgItemTextW", dialog, number);
    return control && Send(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

UINT GetDlgItemTextW(HWND dialog, int number, WCHAR* text, int chars)
{
    if (text && chars > 0) text[0] = 0;
    const HWND control = Item("GetDlgItemTextW", dialog, number);
    if (!control || !text || chars <= 0) return 0;
    return static_cast<UINT>(Send(control, WM_GETTEXT, static_cast<WPARAM>(chars), reinterpret_cast<LPARAM>(text)));
}

BOOL SetDlgItemInt(HWND dialog, int number, UINT value, BOOL isSigned)
{
    const HWND control = Item("SetDlgItemInt", dialog, number);
    if (!control) return FALSE;
    const std::u16string text = FormatNumber(isSigned ? std::int64_t{static_cast<INT>(value)} : std::int64_t{value});
    return Send(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str())) > 0;
}

UINT GetDlgItemInt(HWND dialog, int number, BOOL* translated, BOOL isSigned)
{
    if (translated) *translated = FALSE;
    const auto control = Keep(Item("GetDlgItemInt", dialog, number));
    if (!control) return 0;
    const auto value = ParseNumber(control->text, isSigned != FALSE);
    if (!value) return 0;
    if (translated) *translated = TRUE;
    return static_cast<UINT>(*value);
}

BOOL CheckDlgButton(HWND dialog, int number, UINT check)
{
    const HWND button = Item("CheckDlgButton", dialog, number);
    if (!button) return FALSE;
    Send(button, BM_SETCHECK, check, 0);
    return TRUE;
}

UINT IsDlgButtonChecked(HWND dialog, int number)
{
    const HWND button = Item("IsDlgButtonChecked", dialog, number);
    return button ? static_cast<UINT>(Send(button, BM_GETCHECK, 0, 0)) : 0;
}

BOOL CheckRadioButton(HWND dialog, int first, int last, int chosen)
{
    if (platform::Fault("CheckRadioButton", ERROR_CONTROL_ID_NOT_FOUND)) return FALSE;
    const auto window = Keep(dialog);
    if (!window) {
        platform::SetError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    const std::vector<HWND> children = window->children;
    for (HWND child : children) {
        const Window* control = Find(child);
        if (control && control->id >= first && control->id <= last) Send(child, BM_SETCHECK, control->id == chosen, 0);
    }
    return TRUE;
}

INT_PTR DialogBoxParamW(HINSTANCE module, const WCHAR* templateName, HWND owner, DLGPROC procedure, LPARAM parameter)
{
    if (platform::Fault("DialogBoxParamW", ERROR_NOT_ENOUGH_MEMORY)) return NoDialog;
    const auto number = reinterpret_cast<ULONG_PTR>(templateName);
    if (number > 0xFFFF) {
        platform::SetError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return NoDialog;
    }
    return RunDialog({module, static_cast<int>(number), owner, procedure, parameter, true});
}

BOOL EndDialog(HWND dialog, INT_PTR result)
{
    if (platform::Fault("EndDialog", ERROR_INVALID_WINDOW_HANDLE)) return FALSE;
    if (End(dialog, result)) return TRUE;
    platform::SetError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
}

int MessageBoxW(HWND owner, const WCHAR* text, const WCHAR* caption, UINT style)
{
    if (platform::Fault("MessageBoxW", ERROR_NOT_ENOUGH_MEMORY)) return 0;
    const auto desktop = platform::CurrentEnvironment().desktop;
    if (!desktop) {
        platform::SetError(ERROR_NOT_SUPPORTED);
        return 0;
    }
    const Covered covered;
    return desktop->MessageBox({owner, text ? text : u"", caption ? caption : u"Error", style});
}

BOOL MessageBeep(UINT style)
{
    if (platform::Fault("MessageBeep", ERROR_NOT_SUPPORTED)) return FALSE;
    const auto desktop = platform::CurrentEnvironment().desktop;
    if (!desktop) {
        platform::SetError(ERROR_NOT_SUPPORTED);
        return FALSE;
    }
    desktop->Beep(style);
    return TRUE;
}

}  // extern "C"
