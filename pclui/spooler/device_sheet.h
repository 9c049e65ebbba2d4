// The driver's part of the printer's own properties: one option, the page About, and the state of Tray2, which
// the sheet reads at its start and writes back at its end, whatever the result. One such sheet a process.
#pragma once

#include "spooler/ui_context.h"

// Both are written by DrvDevicePropertySheets alone.
extern DriverDevMode* DeviceSettings;  // of the sheet that was called last; null when that sheet is gone
extern int DeviceSheetOpen;            // 1 while a sheet is up

// The sheet function. 1 on success; -1 without a header, on a bad context, an unknown reason, a failed set-up,
// or while another device sheet is up.
extern "C" QD_API LONG DrvDevicePropertySheets(PROPSHEETUI_INFO* info, LPARAM lParam);

// Runs the sheet for a printer, writing "Permission" to its data as a test of the user's rights. False if the
// sheet was cancelled; true otherwise, also where it could not be shown.
extern "C" QD_API BOOL PrinterProperties(HWND window, HANDLE hPrinter);

// What the service calls for the option and for Apply. The action code.
LONG DeviceSheetCallback(CPSUICBPARAM* params);
