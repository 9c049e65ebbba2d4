#include "pages/setup_nup.h"

#include <algorithm>
#include <iterator>

#include "module.h"
#include "pages/control_state.h"
#include "pages/nup_style_dialog.h"
#include "pages/page_framework.h"
#include "pages/setup_page.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"

namespace {

constexpr WORD FullSize = 100;  // percent
constexpr int OffPosition = 0;
constexpr int TwoUpPosition = 1;
constexpr SHORT PagesByPosition[] = {1, 2, 4, 6, 9, 16};

// What a page alone on its side has no use for.
constexpr int NupDetails[] = {IDC_BORDER_LINE, IDC_NUP_STYLE};

void TurnOff(NupPayload& nup)
{
    nup.on = 0;
    nup.count = 1;
    nup.border = 0;
}

void TurnOffWithOrder(NupPayload& nup)
{
    TurnOff(nup);
    nup.vertical = nup.descending = 0;
}

void LockBorderLine(HWND dialog)
{
    CheckControl(dialog, IDC_BORDER_LINE, false);
    EnableControl(dialog, IDC_BORDER_LINE, false);
}

// A count that does not exist selects nothing.
void ShowCount(HWND dialog, SHORT count)
{
    const auto found = std::ranges::find(PagesByPosition, count);
    if (found == std::end(PagesByPosition)) return;
    SelectInCombo(dialog, IDC_NUP, static_cast<int>(found - std::begin(PagesByPosition)));
    if (count == PagesByPosition[OffPosition]) EnableControls(dialog, NupDetails, false);
}

void ForgetNup(HWND dialog)
{
    auto nup = GetOption<NupPayload>(NupOption);
    TurnOffWithOrder(nup);
    SetOption(NupOption, nup);
    SelectInCombo(dialog, IDC_NUP, OffPosition);
}

}  // namespace

bool PagesKeepTheirSize() { return GetOption<WORD>(ZoomOption) == FullSize && FitChoice.fit == 0; }

void InitNup(HWND dialog)
{
    NupPayload nup{};
    FillComboFromStrings(dialog, IDC_NUP, IDS_NUP_FIRST, IDS_NUP_LAST, NupOption, &nup);
    ShowCount(dialog, nup.count);
    if (nup.border != 0) CheckControl(dialog, IDC_BORDER_LINE, true);
}

void RefreshNup(HWND dialog)
{
    if (!PagesKeepTheirSize()) {
        ForgetNup(dialog);
        EnableControl(dialog, IDC_NUP, false);
        EnableControls(dialog, NupDetails, false);
    } else if (CurrentSettings->dmBookletPaper != 0) {
        EnableControl(dialog, IDC_NUP, false);
        EnableControl(dialog, IDC_NUP_STYLE, false);
        CurrentSettings->dmImageShiftX = CurrentSettings->dmImageShiftY = 0;
    } else {
        EnableControl(dialog, IDC_NUP, true);
    }
}

void DefaultNup(HWND dialog)
{
    ForgetNup(dialog);
    LockBorderLine(dialog);
    EnableControl(dialog, IDC_NUP_STYLE, false);
    EnableControl(dialog, IDC_NUP, PagesKeepTheirSize());
}

void ForceTwoUp(HWND dialog, NupPayload& nup)
{
    nup.on = 1;
    nup.count = PagesByPosition[TwoUpPosition];
    EnableControl(dialog, IDC_NUP, false);
    EnableControl(dialog, IDC_NUP_STYLE, false);
    SelectInCombo(dialog, IDC_NUP, TwoUpPosition);
}

void EndTwoUp(HWND dialog, NupPayload& nup)
{
    TurnOff(nup);
    SelectInCombo(dialog, IDC_NUP, OffPosition);
    LockBorderLine(dialog);
}

void OnNupPicked(HWND dialog)
{
    const int position = ComboSelection(dialog, IDC_NUP);
    if (position < 0 || position >= static_cast<int>(std::size(PagesByPosition))) return;
    auto nup = GetOption<NupPayload>(NupOption);
    if (position == OffPosition) {
        LockBorderLine(dialog);
        EnableControl(dialog, IDC_NUP_STYLE, false);
        TurnOffWithOrder(nup);
    } else {
        nup.on = 1;
        nup.count = PagesByPosition[position];
        EnableControls(dialog, NupDetails, true);
    }
    SetOption(NupOption, nup);
    SetupChanged(dialog);
}

void OnBorderLine(HWND dialog)
{
    auto nup = GetOption<NupPayload>(NupOption);
    nup.border = IsChecked(dialog, IDC_BORDER_LINE) ? 1 : 0;
    SetOption(NupOption, nup);
    SetupChanged(dialog);
}

// The dialog has written what it was to write, whatever its result.
void OnNupStyle(HWND dialog)
{
    DialogBoxParamW(ResourceHandle, ResourceName(IDD_NUP_STYLE), dialog, DetailNup_DlgProc, 0);
    SetupChanged(dialog);
}
