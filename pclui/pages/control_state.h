// What the pages ask of their controls, in a word each. Positions count from 0; -1 is no selection.
#pragma once

#include "platform/user.h"

inline int ComboSelection(HWND dialog, int control)
{
    return static_cast<int>(SendDlgItemMessageW(dialog, control, CB_GETCURSEL, 0, 0));
}

// A position past the end selects nothing.
inline void SelectInCombo(HWND dialog, int control, int position)
{
    SendDlgItemMessageW(dialog, control, CB_SETCURSEL, static_cast<WPARAM>(position), 0);
}

// Item data of the selected row, CB_ERR without one.
inline LRESULT SelectedItemData(HWND dialog, int control)
{
    const int position = ComboSelection(dialog, control);
    return position < 0 ? CB_ERR
                        : SendDlgItemMessageW(dialog, control, CB_GETITEMDATA, static_cast<WPARAM>(position), 0);
}

inline void EnableControl(HWND dialog, int control, bool enable)
{
    EnableWindow(GetDlgItem(dialog, control), enable ? TRUE : FALSE);
}

inline void CheckControl(HWND dialog, int control, bool checked)
{
    CheckDlgButton(dialog, control, checked ? BST_CHECKED : BST_UNCHECKED);
}

inline bool IsChecked(HWND dialog, int control) { return IsDlgButtonChecked(dialog, control) == BST_CHECKED; }

// The page acts as if a user had picked the row that is selected; it has done so when this returns.
inline void ActOnSelection(HWND dialog, int control)
{
    SendMessageW(dialog, WM_COMMAND, MakeLong(static_cast<DWORD>(control), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, control)));
}
