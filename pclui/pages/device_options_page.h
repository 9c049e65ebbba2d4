// The Device Options Setting page: whether Tray2 is installed, how much memory the printer holds, and the About
// dialog. Tray2 is shown and not edited; Default alone takes it out of the record.
#pragma once

#include "platform/user.h"

extern "C" QD_API INT_PTR DeviceOption_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Brings the page and Tray2Installed in tune with the record.
void DeviceRefresh(HWND dialog);

// Sets the defaults of this page.
void DeviceDefault(HWND dialog);
