// What the printer can do, asked without a window. Each call builds a record of defaults with the caller's
// record over it, answers one capability and keeps nothing. Sizes are in tenths of a millimetre.
#pragma once

#include "platform/spooler.h"

// The answer, -1 for a capability that is not known or without memory. output and record may be null; output
// must have room for as much as the answer without output promises, and no more than that is written: no names at
// all where their number, which is told in 16 bits, comes out below 1.
extern "C" QD_API LONG DrvDeviceCapabilities(HANDLE hPrinter, const WCHAR* deviceName, WORD capability, void* output,
                                             const DEVMODEW* record);
