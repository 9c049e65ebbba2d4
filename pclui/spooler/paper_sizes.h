// Sizes of papers in tenths of a millimetre, built-in and stored ones.
#pragma once

#include "platform/types.h"
#include "spooler/stored_records.h"

struct PaperExtent {
    LONG width, length;  // tenths of a millimetre
    bool operator==(const PaperExtent&) const = default;
};

struct PaperEntry;

// A built-in row of the paper table; orientation makes no difference to a paper's size.
PaperExtent BuiltInPaperTenths(const PaperEntry& paper);

// Inches are turned into whole millimetres, truncating.
PaperExtent StoredPaperTenths(const CustomPaperEntry& paper);

// The size of the first paper with that code, among the stored sizes too. 1 if there is one, otherwise 0 and
// out as it was: no size is known of the custom code itself.
int PaperSizeTenths(HANDLE hPrinter, int paperCode, int model, int orientation, PaperExtent* out);
