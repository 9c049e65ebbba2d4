// The Form Overlay dialogs: the list of a printer's overlays, and the editor of one row. They work on the list
// of watermark/overlay_list.h and store it at OK. Cancel stores nothing, and takes back no change of the list in
// memory: that one is to be loaded anew behind the dialog, whatever its result.
#pragma once

#include "platform/user.h"

// To be run with the templates IDD_OVERLAY_LIST and IDD_OVERLAY_EDIT; the result is 1 for OK, 0 for Cancel.
INT_PTR OverlayList_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR OverlayEdit_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
