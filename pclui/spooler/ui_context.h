// The context of one open sheet, or of one call without a user interface: the record that is edited and
// what belongs to it. It lies in a private heap of its own, which frees it and all that hangs from it.
#pragma once

#include "driver_dev_mode.h"
#include "platform/services.h"
#include "spooler/stored_records.h"

struct UiContext {
    UiContext* self;                  // the context itself; a guard
    HWND sheetWindow;                 // the dialog that the device sheet's last callback named
    DWORD canEdit;                    // 1 if the user may change the settings
    HANDLE hPrinter;                  // the caller's; not owned
    HANDLE heap;                      // the private heap
    PFNCOMPROPSHEET pfnComPropSheet;  // the service's call-in function and handle of this sheet
    DOCUMENTPROPERTYHEADER* header;   // the caller's; document sheet only
    HANDLE hComPropSheet;
    WCHAR* driverName;
    PrinterDataBlock printerData;
    DriverDevMode settings;
    UiContext* selfEnd;     // the context itself, behind the record; a guard
    UiContext* nextParked;  // the next context whose sheet is gone while another one is open
};

// A new context: the model's defaults, over them the printer's stored record, over that pdmIn, which may be
// null. Takes the printer's name into PrinterName. printerName is not used: the names come from the printer
// itself. Null if the printer cannot be asked, its name does not fit PrinterName, or memory is short.
UiContext* OpenUiContext(HANDLE hPrinter, const WCHAR* printerName, const DEVMODEW* pdmIn);

// Whether both guards of a context hold. Null does not.
bool IsWholeContext(const UiContext* context);

void CloseUiContext(UiContext* context);
