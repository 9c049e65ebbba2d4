#include "pages/paper_shift.h"

#include "pages/page_framework.h"
#include "pages/paper_number_field.h"
#include "resources/control_numbers.h"

namespace {

struct ShiftField {
    PaperNumberField field;
    SHORT ImageShiftPayload::*points;
};
constexpr ShiftField ShiftX = {
    {IDC_SHIFT_X, IDC_SHIFT_X_SPIN, -50, 50},
    &ImageShiftPayload::x
};
constexpr ShiftField ShiftY = {
    {IDC_SHIFT_Y, IDC_SHIFT_Y_SPIN, -25, 25},
    &ImageShiftPayload::y
};

constexpr int ShiftTextChars = 16;

void EnableShift(HWND dialog, bool on)
{
    EnableNumberField(dialog, ShiftX.field, on);
    EnableNumberField(dialog, ShiftY.field, on);
}

void ShowShiftOn(HWND dialog, bool on)
{
    CheckRadioButton(dialog, IDC_SHIFT_OFF, IDC_SHIFT_ON, on ? IDC_SHIFT_ON : IDC_SHIFT_OFF);
}

void StoreShift(const ShiftField& shift, SHORT points)
{
    auto both = GetOption<ImageShiftPayload>(LayoutImageShiftOption);
    both.*shift.points = points;
    SetOption(ImageShiftOption, both);
}

// Digits, and at most one "-" wherever it stands, so that a number can be typed in any order.
bool MayBecomeNumber(HWND dialog, const ShiftField& shift)
{
    WCHAR text[ShiftTextChars] = {};
    GetDlgItemTextW(dialog, shift.field.edit, text, ShiftTextChars);
    int signs = 0;
    for (const WCHAR* c = text; *c; ++c) {
        if (*c == u'-')
            ++signs;
        else if (*c < u'0' || *c > u'9')
            return false;
    }
    return signs <= 1;
}

// Whether the text stands; what can't be a number is replaced.
bool TextStands(HWND dialog, const ShiftField& shift)
{
    if (MayBecomeNumber(dialog, shift)) return true;
    ShowNumber(dialog, shift.field.edit, 0);
    return false;
}

void TakeTyped(HWND dialog, const ShiftField& shift)
{
    if (!TextStands(dialog, shift)) return;
    const int typed = static_cast<int>(GetDlgItemInt(dialog, shift.field.edit, nullptr, TRUE));
    const bool possible = typed >= shift.field.least && typed <= shift.field.greatest;
    StoreShift(shift, possible ? static_cast<SHORT>(typed) : SHORT{0});
    if (!possible) ShowNumber(dialog, shift.field.edit, 0);
    PaperChanged(dialog);
}

void ShowStored(HWND dialog, const ShiftField& shift)
{
    if (!TextStands(dialog, shift)) return;
    ShowNumber(dialog, shift.field.edit, GetOption<ImageShiftPayload>(ImageShiftOption).*shift.points);
}

void SetShiftOn(HWND dialog, WORD on)
{
    SetOption(ImageShiftOnOption, on);
    EnableShift(dialog, on != 0);
}

}  // namespace

void InitImageShift(HWND dialog)
{
    const bool on = GetOption<WORD>(ImageShiftOnOption) != 0;
    ShowShiftOn(dialog, on);
    EnableShift(dialog, on);
    const auto shift = GetOption<ImageShiftPayload>(LayoutImageShiftOption);
    SetUpNumberField(dialog, ShiftX.field, shift.x);
    SetUpNumberField(dialog, ShiftY.field, shift.y);
}

void DefaultImageShift(HWND dialog)
{
    SetShiftOn(dialog, 0);
    ShowShiftOn(dialog, false);
    SetOption(LayoutImageShiftOption, ImageShiftPayload{0, 0});
    ShowNumber(dialog, IDC_SHIFT_X, 0);
    ShowNumber(dialog, IDC_SHIFT_Y, 0);
}

void OnShiftOff(HWND dialog)
{
    SetShiftOn(dialog, 0);
    TellSheet(dialog);
}

void OnShiftOn(HWND dialog)
{
    SetShiftOn(dialog, 1);
    TellSheet(dialog);
}

void OnShiftXTyped(HWND dialog) { TakeTyped(dialog, ShiftX); }
void OnShiftXLeft(HWND dialog) { ShowStored(dialog, ShiftX); }
void OnShiftYTyped(HWND dialog) { TakeTyped(dialog, ShiftY); }
void OnShiftYLeft(HWND dialog) { ShowStored(dialog, ShiftY); }
