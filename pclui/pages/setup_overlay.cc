#include "pages/setup_overlay.h"

#include <iterator>

#include "module.h"
#include "pages/control_state.h"
#include "pages/overlay_dialogs.h"
#include "pages/page_framework.h"
#include "pages/setup_page.h"
#include "resources/control_numbers.h"
#include "settings/options.h"
#include "settings/wide_text.h"
#include "watermark/overlay_list.h"

namespace {

constexpr int NonePosition = 0;
constexpr SHORT StateNone = 0;    // dmOverlayState
constexpr SHORT StateChosen = 1;  // the job uses the overlay
constexpr SHORT StateNew = 2;     // the job makes it

bool IsPending(const OverlayEntry* row) { return row && row->ovPending == 1; }

void NameOverlayFile(const OverlayEntry* row)
{
    if (row) CopyBounded(CurrentSettings->dmOverlayFile, row->ovPath, std::size(CurrentSettings->dmOverlayFile));
}

// False if the list has no room.
bool AppendRow(HWND dialog, OverlayEntry* row)
{
    const LRESULT at = SendDlgItemMessageW(dialog, IDC_OVERLAY, CB_INSERTSTRING, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(row->ovName));
    if (at < 0) return false;
    SendDlgItemMessageW(dialog, IDC_OVERLAY, CB_SETITEMDATA, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(row));
    return true;
}

void FillOverlayCombo(HWND dialog)
{
    SendDlgItemMessageW(dialog, IDC_OVERLAY, CB_RESETCONTENT, 0, 0);
    for (OverlayEntry* row = OverlayList; row; row = NextOverlay(row))
        if (!IsPending(row) && !AppendRow(dialog, row)) break;
    SelectInCombo(dialog, IDC_OVERLAY, OverlayIndex);
    const bool chosen = OverlayIndex != NonePosition;
    EnableControl(dialog, IDC_OVERLAY_FIRST_PAGE, chosen);
    CurrentSettings->dmOverlayIndex = static_cast<SHORT>(OverlayIndex);
    CurrentSettings->dmOverlayState = chosen ? StateChosen : StateNone;
    NameOverlayFile(OverlaySelected);
    const WPARAM check = CurrentSettings->dmOverlayFirstPage != 0 ? BST_CHECKED : BST_UNCHECKED;
    SendDlgItemMessageW(dialog, IDC_OVERLAY_FIRST_PAGE, BM_SETCHECK, check, 0);
}

void DropPendingOverlay(HWND dialog)
{
    if (OverlayEntry* pending = FindPendingOverlay(OverlayList)) ReleaseOverlay(pending);
    FillOverlayCombo(dialog);
}

void ReloadOverlayList(HWND dialog)
{
    FreeOverlayEntries(OverlayList);
    LoadOverlayList(OverlayList, OverlaySelected, OverlayEditing, OverlayIndex);
    FillOverlayCombo(dialog);
}

// Null without a selection, or if the row has left the list: another sheet may have loaded it anew.
OverlayEntry* PickedOverlay(HWND dialog)
{
    const LRESULT data = SelectedItemData(dialog, IDC_OVERLAY);
    OverlayEntry* row = OverlayList;
    while (row && reinterpret_cast<LRESULT>(row) != data) row = NextOverlay(row);
    return row;
}

}  // namespace

void InitOverlays(HWND dialog)
{
    OverlayIndex = CurrentSettings->dmOverlayIndex;
    ReloadOverlayList(dialog);
    DropPendingOverlay(dialog);
}

void DefaultOverlay(HWND dialog)
{
    CurrentSettings->dmOverlayState = StateNone;
    SelectInCombo(dialog, IDC_OVERLAY, NonePosition);
    ActOnSelection(dialog, IDC_OVERLAY);
    CurrentSettings->dmOverlayFirstPage = 0;
    CheckControl(dialog, IDC_OVERLAY_FIRST_PAGE, false);
    EnableControl(dialog, IDC_OVERLAY_FIRST_PAGE, false);
}

void CommitOverlayChoice()
{
    NameOverlayFile(OverlaySelected);
    const OverlayEntry* pending = FindPendingOverlay(OverlayList);
    if (!pending) return;
    NameOverlayFile(pending);
    CurrentSettings->dmOverlayState = StateNew;
}

void FreeOverlayList()
{
    FreeOverlayEntries(OverlayList);
    OverlayList = OverlaySelected = OverlayEditing = nullptr;
}

// Shows in no picture.
void OnOverlayPicked(HWND dialog)
{
    OverlayEntry* picked = PickedOverlay(dialog);
    if (!picked) return;
    const int position = ComboSelection(dialog, IDC_OVERLAY);
    const bool chosen = position != NonePosition;
    OverlaySelected = picked;
    EnableControl(dialog, IDC_OVERLAY_FIRST_PAGE, chosen);
    CurrentSettings->dmOverlayState = chosen ? StateChosen : StateNone;
    OverlayIndex = position;
    CurrentSettings->dmOverlayIndex = static_cast<SHORT>(position);
    NameOverlayFile(picked);
    TellSheet(dialog);
}

// Goes with the overlay that is chosen; the sheet is not told.
void OnOverlayFirstPage(HWND dialog)
{
    const LRESULT check = SendDlgItemMessageW(dialog, IDC_OVERLAY_FIRST_PAGE, BM_GETCHECK, 0, 0);
    CurrentSettings->dmOverlayFirstPage = check == BST_CHECKED ? 1 : 0;
}

void OnEditOverlay(HWND dialog)
{
    DialogBoxParamW(ResourceHandle, ResourceName(IDD_OVERLAY_LIST), dialog, OverlayList_DlgProc, 0);
    ReloadOverlayList(dialog);
    if (IsPending(OverlaySelected)) {
        CurrentSettings->dmOverlayState = StateNew;
        NameOverlayFile(OverlaySelected);
    } else {
        FillOverlayCombo(dialog);
        ActOnSelection(dialog, IDC_OVERLAY);
    }
    SetupChanged(dialog);
}
