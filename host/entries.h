// The exported entries of the module that this program calls, by their types.
#pragma once

#include "platform/services.h"
#include "platform/spooler.h"

namespace host {

using DocumentPropertySheetsEntry = LONG(PROPSHEETUI_INFO* info, LPARAM lParam);
using DocumentPropertiesEntry = LONG(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* out, DEVMODEW* in,
                                     DWORD mode);
using AdvancedDocumentPropertiesEntry = LONG(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* out,
                                             DEVMODEW* in);
using DevicePropertySheetsEntry = LONG(PROPSHEETUI_INFO* info, LPARAM lParam);
using PrinterPropertiesEntry = BOOL(HWND window, HANDLE printer);

}  // namespace host
