// Records from outside: whether a job with one can print, and the translation of one between the current
// format, the format of platform version 3.51 (300 bytes) and the driver's default.
#pragma once

#include "platform/spooler.h"

// What the conversion of a record goes by.
struct RecordSizes {
    WORD currentDriverVersion;  // not consulted
    WORD currentDriverExtra;
    WORD oldDriverVersion;
    WORD oldDriverExtra;
};
inline constexpr RecordSizes ConversionSizes = {1024, 1628, 848, 112};

enum class Conversion { Failed = 0, Done = 1, CallerFinishes = 2 };

// The part of the conversion that needs no printer. *pcbNeeded: bytes that pdmOut has room for, then the bytes
// used or needed. Sets the last error when it fails: 87 for bad arguments, 122 for too little room.
Conversion ConvertRecord(const WCHAR* printerName, const DEVMODEW* pdmIn, DEVMODEW* pdmOut, LONG* pcbNeeded, DWORD mode,
                         const RecordSizes& sizes);

// True on success; the last error is that of ConvertRecord.
extern "C" QD_API BOOL DrvConvertDevMode(const WCHAR* printerName, const DEVMODEW* pdmIn, DEVMODEW* pdmOut,
                                         LONG* pcbNeeded, DWORD mode);

// 1 if the job can print, else 0 with a message in info. Only a lack of memory keeps a job from printing:
// a record of another version is not used and does no harm.
extern "C" QD_API BOOL DevQueryPrintEx(DEVQUERYPRINT_INFO* info);
