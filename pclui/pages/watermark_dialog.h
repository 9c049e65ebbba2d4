// The Watermark dialog: makes, edits and deletes the watermarks of the printer named by PrinterName. It builds a
// list of its own behind WatermarkHead and never frees one: the caller keeps the list of before, to be freed
// after OK or put back after Cancel.
#pragma once

#include "platform/user.h"

// To be run with the template IDD_WATERMARK. The parameter says whether the user may change anything. The result
// is 1 if OK has stored the list; 0 after Cancel, and when there was no memory for a list.
INT_PTR Watermark_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
