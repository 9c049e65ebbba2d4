// The exported entries of the module that this program calls, by their types.
#pragma once

#include <cstddef>

#include "platform/services.h"
#include "platform/spooler.h"

namespace host {

using DocumentPropertySheetsEntry = LONG(PROPSHEETUI_INFO* info, LPARAM lParam);
using DocumentPropertiesEntry = LONG(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* out, DEVMODEW* in,
                                     DWORD mode);
using AdvancedDocumentPropertiesEntry = LONG(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* out,
                                             DEVMODEW* in);
using DevicePropertySheetsEntry = LONG(PROPSHEETUI_INFO* info, LPARAM lParam);
using DeviceCapabilitiesEntry = LONG(HANDLE printer, const WCHAR* deviceName, WORD capability, void* output,
                                     const DEVMODEW* record);
// Between two questions other programs may store sizes: room for so many rows more than a list has promised.
inline constexpr std::size_t MostSizesStoredMeanwhile = 0x10000;
using ConvertDevModeEntry = BOOL(const WCHAR* printer, const DEVMODEW* in, DEVMODEW* out, LONG* needed, DWORD mode);
using QueryPrintEntry = BOOL(DEVQUERYPRINT_INFO* info);
using UpgradePrinterEntry = BOOL(DWORD level, const DRIVER_UPGRADE_INFO_1W* info);
using PrinterEventEntry = BOOL(const WCHAR* printer, int event, DWORD flags, LPARAM lParam);
using DocumentEventEntry = int(HANDLE printer, HDC context, int event, ULONG inputBytes, void* input, ULONG outputBytes,
                               void* output);
using PrinterPropertiesEntry = BOOL(HWND window, HANDLE printer);

}  // namespace host
