// N-up Style: in which order the pages follow each other on a sheet.
#pragma once

#include "platform/user.h"

// To be run with the template IDD_NUP_STYLE. The result is 1 for OK and for Cancel; OK writes the order.
extern "C" QD_API INT_PTR DetailNup_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
