// Copies between records of different versions and lengths. A record is as long as its dmSize and
// dmDriverExtra say, and nothing behind that is touched. Records must be aligned to 4 bytes.
#pragma once

#include "driver_dev_mode.h"

// The structure version that belongs to a record's dmSize; of an unknown size the record's own. 0 for null.
WORD RecordSpecVersion(const DEVMODEW* record);

// Copies public part and private part of source over those of target, each as far as both reach. Target keeps
// its four size fields, but dmSpecVersion follows from its size. The number of bytes copied, or -1 if either
// record is unusable.
int CopyRecordParts(const DEVMODEW* source, DEVMODEW* target);

// Hands current to a caller in the shape of the caller's own record, input; whole if input is null. output must
// have the room that this shape needs, and may be input. True on success, false also without an output.
bool CopyRecordOut(const DriverDevMode* current, const DEVMODEW* input, DEVMODEW* output);

constexpr std::size_t RecordBytes(const DEVMODEW& record) { return std::size_t{record.dmSize} + record.dmDriverExtra; }
