#include "pages/paper_number_field.h"

#include "pages/page_framework.h"
#include "resources/control_numbers.h"

namespace {

constexpr WPARAM TextLimit = 3;  // characters

}  // namespace

void SetUpNumberField(HWND dialog, const PaperNumberField& field, int value)
{
    SendDlgItemMessageW(dialog, field.edit, EM_LIMITTEXT, TextLimit, 0);
    ShowNumber(dialog, field.edit, value);
    const DWORD range = MakeLong(static_cast<WORD>(field.greatest), static_cast<WORD>(field.least));
    SendDlgItemMessageW(dialog, field.arrows, UDM_SETRANGE, 0, static_cast<LPARAM>(range));
}

void ShowNumber(HWND dialog, int control, int value) { SetDlgItemInt(dialog, control, static_cast<UINT>(value), TRUE); }

void EnableNumberField(HWND dialog, const PaperNumberField& field, bool enable)
{
    const int controls[] = {field.edit, field.arrows};
    EnableControls(dialog, controls, enable);
}

void PaperChanged(HWND dialog)
{
    InvalidateControl(dialog, IDC_PAPER_PREVIEW);
    TellSheet(dialog);
}
