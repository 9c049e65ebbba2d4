// Whether Tray2 is installed, as the printer's registry key keeps it: the value "tray2", a number in up to four
// bytes of text. What can't be read counts as not installed, and what can't be written is not.
#pragma once

#include "platform/types.h"

// printerName may be null or empty; no key has such a path.
bool ReadTray2(const WCHAR* printerName);
void WriteTray2(const WCHAR* printerName, bool installed);
