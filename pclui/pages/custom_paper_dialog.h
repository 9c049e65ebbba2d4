// The Custom Paper dialog: makes, names, sizes and deletes the custom paper sizes of the printer named by
// PrinterName. It edits the working list and saves it at OK; Cancel changes nothing.
#pragma once

#include "platform/user.h"

// Set when the dialog ends: 1 if OK has saved.
extern int CustomPaperAccepted;

// To be run with the template IDD_CUSTOM_PAPER. The result is the position of the selected size plus 1 if OK has
// saved, else 0; an empty list that was saved gives 0 too.
INT_PTR CustomPaper_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
