// The entries by which applications reach the document's settings, with or without the sheet. Records that
// they hand in may be short; the room of pdmOut is what its caller's record says, or whole without one.
#pragma once

#include "driver_dev_mode.h"
#include "platform/services.h"

// 1848, the size of a record, if fMode is 0 or pdmOut null. Otherwise IDOK, IDCANCEL, or below 0 on failure.
extern "C" QD_API LONG DrvDocumentProperties(HWND window, HANDLE hPrinter, WCHAR* deviceName, DEVMODEW* pdmOut,
                                             DEVMODEW* pdmIn, DWORD fMode);

// 1848 if pdmOut is null. Otherwise whether the user has confirmed the sheet.
extern "C" QD_API LONG DrvAdvancedDocumentProperties(HWND window, HANDLE hPrinter, WCHAR* deviceName, DEVMODEW* pdmOut,
                                                     DEVMODEW* pdmIn);

// Runs the sheet if fMode asks for it: above 0 confirmed, 0 cancelled, below 0 failed. Otherwise as
// DocumentPropertiesNoUi.
LONG DocumentPropertiesCore(HWND window, HANDLE hPrinter, WCHAR* deviceName, DEVMODEW* pdmOut, DEVMODEW* pdmIn,
                            DWORD fMode);

// Merges the header's input and hands the record out. 1, or 1848 if only the size was asked for, or -1.
LONG DocumentPropertiesNoUi(DOCUMENTPROPERTYHEADER* header);

// Runs a sheet function through the common property sheet service, which is loaded for this call only. What
// the service gives, or -1 with result untouched if it can't be had.
LONG RunPropertySheet(HWND window, PFNPROPSHEETUI sheetFunction, LPARAM lParam, DWORD* result);
