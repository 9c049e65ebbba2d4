// What the print subsystem asks in its own process, without a user: the upgrade of what an older driver has
// stored with a printer, and events.
#pragma once

#include "platform/spooler.h"

// True if the printer could be opened to change it, and both its data block and its custom sizes were written
// back in the current form; a printer without custom sizes gives false. Error 87 if it could not be opened.
extern "C" QD_API BOOL DrvUpgradePrinter(DWORD level, const DRIVER_UPGRADE_INFO_1W* info);

// True, or false if the subsystem's helpers for a change of identity cannot be had.
extern "C" QD_API BOOL DrvPrinterEvent(const WCHAR* printerName, int event, DWORD flags, LPARAM lParam);
