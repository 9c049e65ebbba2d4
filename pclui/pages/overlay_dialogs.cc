#include "pages/overlay_dialogs.h"

#include <iterator>

#include "module.h"
#include "pages/control_state.h"
#include "pages/overlay_browse.h"
#include "pages/page_framework.h"
#include "resources/control_numbers.h"
#include "settings/wide_text.h"
#include "watermark/overlay_list.h"

namespace {

constexpr DWORD OverlayHelp = 5113;
constexpr HelpPair ListHelp[] = {
    {IDC_OVL_LIST_GROUP, OverlayHelp},
    {IDC_OVL_LIST,       OverlayHelp},
    {IDC_OVL_NEW,        OverlayHelp},
    {IDC_OVL_EDIT,       OverlayHelp},
    {IDC_OVL_DELETE,     OverlayHelp},
    {IDOK,               OverlayHelp},
    {IDCANCEL,           OverlayHelp},
    {IDC_HELP,           OverlayHelp},
    {0,                  0          },
};
constexpr HelpPair EditHelp[] = {
    {IDC_OVL_EDIT_GROUP, OverlayHelp},
    {IDC_OVL_NAME_LABEL, OverlayHelp},
    {IDC_OVL_NAME,       OverlayHelp},
    {IDC_OVL_PATH_LABEL, OverlayHelp},
    {IDC_OVL_PATH,       OverlayHelp},
    {IDC_OVL_BROWSE,     OverlayHelp},
    {IDOK,               OverlayHelp},
    {IDCANCEL,           OverlayHelp},
    {IDC_HELP,           OverlayHelp},
    {0,                  0          },
};

constexpr WPARAM LongestName = 260;  // that can be typed
constexpr int NoticeChars = 512;

bool IsPending(const OverlayEntry& row) { return row.ovPending == 1; }

LRESULT AskList(HWND dialog, UINT message, LRESULT position = 0, LPARAM lParam = 0)
{
    return SendDlgItemMessageW(dialog, IDC_OVL_LIST, message, static_cast<WPARAM>(position), lParam);
}

// -1 without a selection.
int Selection(HWND dialog) { return static_cast<int>(AskList(dialog, LB_GETCURSEL)); }

OverlayEntry* RowAt(HWND dialog, LRESULT position)
{
    const LRESULT data = AskList(dialog, LB_GETITEMDATA, position);
    return data == LB_ERR ? nullptr : reinterpret_cast<OverlayEntry*>(data);
}

// At -1 the row comes last. The position, below 0 if the list box has no room.
LRESULT ShowRow(HWND dialog, LRESULT position, OverlayEntry* row)
{
    const LRESULT at = AskList(dialog, LB_INSERTSTRING, position, reinterpret_cast<LPARAM>(row->ovName));
    if (at >= 0) AskList(dialog, LB_SETITEMDATA, at, reinterpret_cast<LPARAM>(row));
    return at;
}

void SetOverlayButtons(HWND dialog, bool enable)
{
    constexpr int Buttons[] = {IDC_OVL_EDIT, IDC_OVL_DELETE};
    EnableControls(dialog, Buttons, enable);
}

bool ListShowsPending(HWND dialog)
{
    const LRESULT count = AskList(dialog, LB_GETCOUNT);
    for (LRESULT i = 0; i < count; ++i) {
        const OverlayEntry* row = RowAt(dialog, i);
        if (row && IsPending(*row)) return true;
    }
    return false;
}

// One new overlay at a time: the next job makes it, and only then comes another one.
void RestrictOverlayButtons(HWND dialog)
{
    constexpr int Buttons[] = {IDC_OVL_EDIT, IDC_OVL_NEW};
    const bool pending = ListShowsPending(dialog);
    EnableControls(dialog, Buttons, !pending);
    if (!pending && Selection(dialog) == 0) EnableControl(dialog, IDC_OVL_EDIT, false);
}

void OnListSelected(HWND dialog)
{
    const int position = Selection(dialog);
    if (position >= 0) {
        if (OverlayEntry* row = RowAt(dialog, position)) OverlayEditing = row;
        SetOverlayButtons(dialog, position != 0);
    }
    RestrictOverlayButtons(dialog);
}

void OnListInit(HWND dialog)
{
    AskList(dialog, LB_RESETCONTENT);
    int position = 0;
    for (OverlayEntry* row = OverlayList; row; row = NextOverlay(row), ++position) {
        if (ShowRow(dialog, -1, row) < 0) break;
        if (position == OverlayIndex) OverlayEditing = row;
    }
    AskList(dialog, LB_SETCURSEL, OverlayIndex);
    SendMessageW(dialog, WM_COMMAND, MakeLong(IDC_OVL_LIST, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDC_OVL_LIST)));
    SetOverlayButtons(dialog, OverlayIndex != 0);
    RestrictOverlayButtons(dialog);
}

bool RunEditor(HWND dialog, bool isNew)
{
    OverlayIsNew = isNew ? 1 : 0;
    return DialogBoxParamW(ResourceHandle, ResourceName(IDD_OVERLAY_EDIT), dialog, OverlayEdit_DlgProc, 0) == 1;
}

void TakeEdited(OverlayEntry& row)
{
    CopyBounded(row.ovName, OverlayNewName, OverlayTextChars);
    CopyBounded(row.ovPath, OverlayNewPath, OverlayTextChars);
}

// The row joins the list in memory at once, so that it is released with the list after Cancel too.
void AddNewRow(HWND dialog)
{
    OverlayEntry* last = OverlayList;
    while (OverlayEntry* next = NextOverlay(last)) last = next;
    OverlayEntry* row = last ? MakeOverlay() : nullptr;
    if (!row) return;
    TakeEdited(*row);
    row->ovPending = 1;
    LinkOverlay(last, row);
    const LRESULT position = ShowRow(dialog, -1, row);
    if (position < 0) return ReleaseOverlay(row);
    AskList(dialog, LB_SETCURSEL, position);
    OverlayEditing = row;
    SetOverlayButtons(dialog, true);
}

void OnNew(HWND dialog)
{
    if (RunEditor(dialog, true)) AddNewRow(dialog);
    RestrictOverlayButtons(dialog);
}

void OnEdit(HWND dialog)
{
    const int position = Selection(dialog);
    OverlayEntry* selected = position >= 0 ? RowAt(dialog, position) : nullptr;
    if (selected) OverlayEditing = selected;
    // A choice that the list does not have selects nothing: the head is under edit then, and keeps its place.
    OverlayEntry* row = OverlayEditing;
    if (row && RunEditor(dialog, false)) {
        TakeEdited(*row);
        // The row is in the list box once at most, whatever becomes of the messages.
        if (selected && AskList(dialog, LB_DELETESTRING, position) > 0 && ShowRow(dialog, position, row) >= 0)
            AskList(dialog, LB_SETCURSEL, position);
    }
    RestrictOverlayButtons(dialog);
}

void OnDelete(HWND dialog)
{
    int position = Selection(dialog);
    OverlayEntry* row = position > 0 ? RowAt(dialog, position) : nullptr;
    if (!row) return;
    // The list box lets go of the row before it is released.
    const LRESULT left = AskList(dialog, LB_DELETESTRING, position);
    if (left <= 0) return;
    ReleaseOverlay(row);
    if (position >= left) --position;
    AskList(dialog, LB_SETCURSEL, position);
    if (OverlayEntry* selected = RowAt(dialog, position)) OverlayEditing = selected;
    SetOverlayButtons(dialog, position != 0);
    RestrictOverlayButtons(dialog);
}

// Brings the list into the order of the list box. The last row that it shows; behind it stand those that it has no
// room for. Null without a list.
OverlayEntry* LinkShownRows(HWND dialog)
{
    OverlayEntry* last = OverlayList;
    const LRESULT count = last ? AskList(dialog, LB_GETCOUNT) : 0;
    bool told = count > 0;
    for (LRESULT i = 0; i < count; ++i) {
        OverlayEntry* row = RowAt(dialog, i);
        if (!row) told = false;
        if (!row || row == OverlayList) continue;
        UnlinkOverlay(row);
        LinkOverlay(last, row);
        last = row;
    }
    // A list box that does not even show "<NONE>", or does not tell one of its rows, lets none of them go.
    while (OverlayEntry* next = told ? nullptr : NextOverlay(last)) last = next;
    return last;
}

void OnListOk(HWND dialog)
{
    OverlayEntry* last = LinkShownRows(dialog);
    OverlaySelected = OverlayEditing = OverlayList;
    const int position = Selection(dialog);
    OverlayEntry* row = position >= 0 ? RowAt(dialog, position) : nullptr;
    if (row) {
        OverlayEditing = row;
        if (!IsPending(*row)) OverlayIndex = position;
    }
    // Rows that are not shown are not stored, but go with the list when it is released.
    OverlayEntry* hidden = CutOverlaysBehind(last);
    SaveOverlayChoice();
    AppendOverlays(last, hidden);
    EndDialog(dialog, 1);
}

void OnCancel(HWND dialog) { EndDialog(dialog, 0); }
void OnHelp(HWND dialog) { ShowHelpContext(dialog, OverlayHelp); }

constexpr Command ListCommands[] = {
    {IDC_OVL_LIST,   LBN_SELCHANGE, OnListSelected},
    {IDC_OVL_NEW,    AnyCode,       OnNew         },
    {IDC_OVL_EDIT,   AnyCode,       OnEdit        },
    {IDC_OVL_DELETE, AnyCode,       OnDelete      },
    {IDOK,           AnyCode,       OnListOk      },
    {IDCANCEL,       AnyCode,       OnCancel      },
    {IDC_HELP,       AnyCode,       OnHelp        },
};
constexpr ModalDialog ListDialog = {ListHelp, ListCommands, OnListInit};

void OnEditInit(HWND dialog)
{
    if (!OverlayEditing) return;
    SetDlgItemTextW(dialog, IDC_OVL_NAME, OverlayIsNew ? u"" : OverlayEditing->ovName);
    SetDlgItemTextW(dialog, IDC_OVL_PATH, OverlayIsNew ? u"" : OverlayEditing->ovPath);
    SendDlgItemMessageW(dialog, IDC_OVL_NAME, EM_LIMITTEXT, LongestName, 0);
}

// A name for who gives none, to be confirmed.
void SuggestName(HWND dialog)
{
    WCHAR name[OverlayTextChars] = {};
    wsprintfW(name, u"%s-%d-", LoadResString(IDS_OVERLAY_DEFAULT_NAME, 0),
              static_cast<int>(AskList(GetParent(dialog), LB_GETCOUNT)));
    SetDlgItemTextW(dialog, IDC_OVL_NAME, name);
}

void OnEditOk(HWND dialog)
{
    WCHAR name[OverlayTextChars] = {}, path[OverlayTextChars] = {};
    GetDlgItemTextW(dialog, IDC_OVL_NAME, name, OverlayTextChars);
    GetDlgItemTextW(dialog, IDC_OVL_PATH, path, OverlayTextChars);
    if (!name[0]) return SuggestName(dialog);
    if (!path[0]) {
        MessageBoxW(dialog, LoadResString(IDS_OVERLAY_NOT_FOUND, 0), LoadResString(IDS_OVERLAY_WARNING, 1), MB_OK);
        return;
    }
    CopyBounded(OverlayNewName, name, OverlayTextChars);
    CopyBounded(OverlayNewPath, path, OverlayTextChars);
    EndDialog(dialog, 1);
    if (!OverlayIsNew) return;
    WCHAR notice[NoticeChars] = {};
    LoadStringW(ResourceHandle, IDS_OVERLAY_MADE_BY_JOB, notice, NoticeChars);
    MessageBoxW(dialog, notice, LoadResString(IDS_OVERLAY_NOTICE, 0), MB_OK);
}

void OnBrowse(HWND dialog) { BrowseForOverlay(dialog, IDC_OVL_PATH, OverlayIsNew != 0); }

void OnEditNotified(HWND dialog, const NMHDR& notification)
{
    if (notification.code == PSN_HELP) ShowHelpTopics(dialog);
}

constexpr Command EditCommands[] = {
    {IDC_OVL_BROWSE, AnyCode, OnBrowse},
    {IDOK,           AnyCode, OnEditOk},
    {IDCANCEL,       AnyCode, OnCancel},
    {IDC_HELP,       AnyCode, OnHelp  },
};
constexpr ModalDialog EditDialog = {EditHelp, EditCommands, OnEditInit, OnEditNotified};

}  // namespace

INT_PTR OverlayList_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AnswerDialogMessage(ListDialog, dialog, message, wParam, lParam);
}

INT_PTR OverlayEdit_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AnswerDialogMessage(EditDialog, dialog, message, wParam, lParam);
}
