#include "pages/paper_copies.h"

#include <algorithm>

#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "pages/paper_number_field.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"

namespace {

constexpr PaperNumberField Copies = {IDC_COPIES, IDC_COPIES_SPIN, 1, 999};
constexpr int CollateRadios[] = {IDC_UNCOLLATED, IDC_COLLATED};

void StoreCopies() { SetOption(CopiesOption, static_cast<WORD>(SelectedCopies)); }

void ShowCollation(HWND dialog)
{
    CheckRadioButton(dialog, IDC_UNCOLLATED, IDC_COLLATED, SelectedCollate != 0 ? IDC_COLLATED : IDC_UNCOLLATED);
}

void EnableProofPrint(HWND dialog, bool enable) { EnableControl(dialog, IDC_PROOF_PRINT, enable); }

// Both sides of a sheet leave the printer together, so that pages can't be sorted by their numbers.
bool UncollatedForced()
{
    const auto duplex = GetOption<DuplexPayload>(DuplexOption);
    return duplex.on != 0 && (duplex.bookletPaper != 0 || duplex.binding != 0);
}

void ForceUncollated(HWND dialog)
{
    SelectedCollate = 0;
    SetOption(CollateOption, SelectedCollate);
    ShowCollation(dialog);
    EnableControls(dialog, CollateRadios, false);
}

void CollateRule(HWND dialog)
{
    if (SelectedCopies == 1 || UncollatedForced()) return ForceUncollated(dialog);
    SelectedCollate = GetOption<SHORT>(CollateOption);
    ShowCollation(dialog);
    EnableControls(dialog, CollateRadios, true);
}

void ForceOneCopy(HWND dialog)
{
    EnableControl(dialog, IDC_COPIES, false);
    SelectedCopies = 1;
    StoreCopies();
    ShowNumber(dialog, IDC_COPIES, SelectedCopies);
}

void CopiesRule(HWND dialog)
{
    if (GetOption<DuplexPayload>(DuplexOption).bookletPaper != 0) return ForceOneCopy(dialog);
    EnableControl(dialog, IDC_COPIES, true);
}

void ForceProofPrintOff(HWND dialog)
{
    EnableProofPrint(dialog, false);
    SetOption(ProofPrintOption, WORD{0});
    CheckControl(dialog, IDC_PROOF_PRINT, false);
}

// A proof is one collated set that comes out before the others.
void ProofPrintRule(HWND dialog)
{
    if (GetOption<WORD>(CollateOption) == 0) return ForceProofPrintOff(dialog);
    EnableProofPrint(dialog, true);
}

void PickCollation(HWND dialog, SHORT collate)
{
    SelectedCollate = collate;
    SetOption(CollateOption, SelectedCollate);
    ProofPrintRule(dialog);
    PaperChanged(dialog);
}

}  // namespace

void InitCopies(HWND dialog)
{
    SelectedCopies = GetOption<WORD>(CopiesOption);
    SetUpNumberField(dialog, Copies, SelectedCopies);
    CheckControl(dialog, IDC_PROOF_PRINT, GetOption<WORD>(ProofPrintOption) != 0);
    EnableProofPrint(dialog, SelectedCopies != 1);
}

void InitCollation(HWND dialog)
{
    SelectedCollate = GetOption<SHORT>(CollateOption);
    ShowCollation(dialog);
    if (SelectedCopies == 1) EnableControls(dialog, CollateRadios, false);
}

void CopiesCollateRule(HWND dialog)
{
    SelectedCopies = GetOption<WORD>(CopiesOption);
    CollateRule(dialog);
    CopiesRule(dialog);
    ProofPrintRule(dialog);
}

void DefaultCopies(HWND dialog)
{
    SelectedCopies = 1;
    StoreCopies();
    ShowNumber(dialog, IDC_COPIES, SelectedCopies);
    SetOption(ProofPrintOption, WORD{0});
    CheckControl(dialog, IDC_PROOF_PRINT, false);
}

void DefaultCollation(HWND dialog) { ForceUncollated(dialog); }

void OnCopiesTyped(HWND dialog)
{
    const int typed = static_cast<int>(GetDlgItemInt(dialog, IDC_COPIES, nullptr, TRUE));
    SelectedCopies = std::clamp<int>(typed, Copies.least, Copies.greatest);
    StoreCopies();
    TellSheet(dialog);
}

void OnCopiesLeft(HWND dialog) { ShowNumber(dialog, IDC_COPIES, SelectedCopies); }

// More copies do not bring Proof Print back: collating them does.
void OnCopiesNotice(HWND dialog)
{
    CollateRule(dialog);
    if (SelectedCopies == 1) ForceProofPrintOff(dialog);
}

void OnUncollated(HWND dialog) { PickCollation(dialog, 0); }
void OnCollated(HWND dialog) { PickCollation(dialog, 1); }

void OnProofPrint(HWND dialog)
{
    SetOption(ProofPrintOption, static_cast<WORD>(IsDlgButtonChecked(dialog, IDC_PROOF_PRINT)));
    TellSheet(dialog);
}
