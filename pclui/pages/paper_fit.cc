#include "pages/paper_fit.h"

#include <algorithm>

#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "pages/paper_combo.h"
#include "pages/paper_number_field.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "settings/user_locale.h"

SHORT ZoomChoice = 0;
SHORT FitOn = 0;

namespace {

constexpr PaperNumberField Scaling = {IDC_SCALING, IDC_SCALING_SPIN, 20, 400};  // per cent
constexpr SHORT Unscaled = 100;

void StoreZoom() { SetOption(ZoomOption, ZoomChoice); }
void StoreFit() { SetOption(FitOption, FitChoice); }

void CheckFit(HWND dialog, bool checked) { CheckControl(dialog, IDC_FIT_TO_PAPER, checked); }

void EnableOutputSize(HWND dialog, bool enable) { EnableControl(dialog, IDC_OUTPUT_SIZE, enable); }

void EnableFit(HWND dialog, bool fit, bool output)
{
    EnableControl(dialog, IDC_FIT_TO_PAPER, fit);
    EnableOutputSize(dialog, output);
}

// N-up and booklets lay pages out by themselves.
bool PagesShareSheets()
{
    return GetOption<DuplexPayload>(DuplexOption).bookletPaper != 0 || GetOption<NupPayload>(NupOption).on != 0;
}

// The scaling keeps its value, for when pages have their sheets to themselves again.
void LockFitAndScale(HWND dialog)
{
    CheckFit(dialog, false);
    EnableFit(dialog, false, false);
    FitChoice.fit = FitNone;
    FitOn = 0;
    StoreFit();
    EnableNumberField(dialog, Scaling, false);
    InvalidateControl(dialog, IDC_SCALING_SPIN);
}

void ShowUnscaled(HWND dialog)
{
    CheckFit(dialog, false);
    EnableFit(dialog, true, false);
    EnableNumberField(dialog, Scaling, true);
    InvalidateControl(dialog, IDC_SCALING_SPIN);
    ZoomChoice = Unscaled;
    FitOn = 0;
    StoreZoom();
    // The field may still show a scaling from before other pages shared the sheet.
    if (GetDlgItemInt(dialog, IDC_SCALING, nullptr, FALSE) != Unscaled) ShowNumber(dialog, IDC_SCALING, Unscaled);
}

void ShowScaled(HWND dialog)
{
    CheckFit(dialog, false);
    EnableFit(dialog, false, false);
    FitOn = 0;
    EnableNumberField(dialog, Scaling, true);
}

void ShowFitted(HWND dialog)
{
    EnableFit(dialog, true, true);
    CheckFit(dialog, true);
    ZoomChoice = Unscaled;
    FitOn = FitChoice.outputPaper;
    StoreZoom();
    EnableNumberField(dialog, Scaling, false);
}

// Scaling decides whether a page can be fitted.
void FollowScaling(HWND dialog)
{
    const bool unscaled = ZoomChoice == Unscaled;
    const bool fitted = unscaled && FitOn != 0;
    FitChoice.fit = fitted ? FitToPaper : unscaled ? FitNone : FitScaled;
    EnableFit(dialog, unscaled, fitted);
    StoreFit();
}

// A list without a selection, or without the code of what is selected, leaves the paper as it was.
void TakeOutputPaper(HWND dialog)
{
    const LRESULT code = SelectedItemData(dialog, IDC_OUTPUT_SIZE);
    if (code <= 0) return;
    FitOn = static_cast<SHORT>(code);
    FitChoice.outputPaper = FitOn;
}

}  // namespace

void InitFitAndScale(HWND dialog)
{
    const FitPayload fit = FitChoice = GetOption<FitPayload>(FitOption);
    const SHORT zoom = ZoomChoice = GetOption<SHORT>(ZoomOption);
    FillOutputPaperCombo(dialog, CurrentSettings ? CurrentSettings->dmDefaultSource : 0);
    if (ZoomChoice < Scaling.least || ZoomChoice > Scaling.greatest) ZoomChoice = Unscaled;
    SetUpNumberField(dialog, Scaling, ZoomChoice);
    // Writing the field ran its handler; showing a record must not change it.
    SetOption(FitOption, fit);
    SetOption(ZoomOption, zoom);
    SyncFitAndScale(dialog);
}

void SyncFitAndScale(HWND dialog)
{
    ZoomChoice = GetOption<SHORT>(ZoomOption);
    FitChoice = GetOption<FitPayload>(FitOption);
    if (PagesShareSheets()) return LockFitAndScale(dialog);
    switch (FitChoice.fit) {
        case FitNone:
            return ShowUnscaled(dialog);
        case FitScaled:
            return ShowScaled(dialog);
        case FitToPaper:
            return ShowFitted(dialog);
        default:
            return;
    }
}

void DefaultFitAndScale(HWND dialog)
{
    ZoomChoice = Unscaled;
    StoreZoom();
    EnableNumberField(dialog, Scaling, true);
    ShowNumber(dialog, IDC_SCALING, Unscaled);
    FitChoice.fit = FitNone;
    FitChoice.outputPaper = static_cast<SHORT>(LocaleUsesA4() ? A4PaperCode : LetterPaperCode);
    FitOn = 0;
    StoreFit();
    CheckFit(dialog, false);
    EnableFit(dialog, true, false);
    FillOutputPaperCombo(dialog, SelectedSource);
    SyncFitAndScale(dialog);
}

void OnFitToPaper(HWND dialog)
{
    FitOn = static_cast<SHORT>(IsDlgButtonChecked(dialog, IDC_FIT_TO_PAPER));
    ZoomChoice = GetOption<SHORT>(ZoomOption);
    if (FitOn == 0) {
        FitChoice.fit = ZoomChoice != Unscaled ? FitScaled : FitNone;
        EnableNumberField(dialog, Scaling, true);
        EnableOutputSize(dialog, false);
    } else {
        FitChoice.fit = FitToPaper;
        EnableOutputSize(dialog, true);
        ShowNumber(dialog, IDC_SCALING, Unscaled);
        EnableNumberField(dialog, Scaling, false);
        TakeOutputPaper(dialog);
    }
    StoreFit();
    PaperChanged(dialog);
}

void OnOutputSizePicked(HWND dialog)
{
    TakeOutputPaper(dialog);
    StoreFit();
    PaperChanged(dialog);
}

void OnScalingTyped(HWND dialog)
{
    const auto typed = static_cast<SHORT>(GetDlgItemInt(dialog, IDC_SCALING, nullptr, FALSE));
    ZoomChoice = std::clamp(typed, Scaling.least, Scaling.greatest);
    // Too small a number may be the beginning of a good one; too great a one never is.
    if (typed > Scaling.greatest) ShowNumber(dialog, IDC_SCALING, Scaling.greatest);
    StoreZoom();
    FollowScaling(dialog);
    PaperChanged(dialog);
}

void OnScalingLeft(HWND dialog) { ShowNumber(dialog, IDC_SCALING, ZoomChoice); }
