// The record that every other is merged into: the defaults of the model, of the user's country and of the
// printer's equipment.
#pragma once

#include "driver_dev_mode.h"

inline constexpr DWORD PrivateSignature = 0x56495250;  // "PRIV" in memory order
inline constexpr DWORD Tray2Flag = 0x80;               // bit 7 of dmDeviceFlags
inline constexpr DWORD DefaultFields =
    DM_ORIENTATION | DM_PAPERSIZE | DM_COPIES | DM_DEFAULTSOURCE | DM_PRINTQUALITY | DM_COLOR | DM_TTOPTION;
static_assert(DefaultFields == 20227);

// Fills the record. deviceName may be null, printerName empty; what can't be read of the printer or the
// locale counts as not there. Always 1.
int BuildDefaultSettings(DriverDevMode* record, const WCHAR* deviceName, const WCHAR* printerName, int modelIndex);

// Printer memory that is left for a job, in kilobytes, in the record's 16 bits.
constexpr SHORT AvailableMemory(int totalMegabytes) { return static_cast<SHORT>(totalMegabytes * 945 - 245); }
static_assert(AvailableMemory(16) == 14875 && AvailableMemory(144) == 4763);
