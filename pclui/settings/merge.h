// The one place of validation: whatever an application, a store or an older driver hands in passes the merge
// before it is used, and what comes out holds a legal value in every field that the driver relies on.
#pragma once

#include "driver_dev_mode.h"

// Merges source into target, a whole record, each field by its own rule. A null source, one of another
// version or with another public size, is skipped. Reads source only as far as its size fields reach and never
// writes it. 1 if the merge was done or skipped, 0 without memory; target is then unchanged.
int MergeSettings(DriverDevMode* target, const DEVMODEW* source);
