// All that is particular to the printer model: its papers, bins and media, and the defaults of its records.
// Constant. Lengths are in dots at 300 dpi unless a name says otherwise; names are string numbers.
#pragma once

#include <span>

#include "platform/types.h"

struct PaperMetrics {
    WORD width, height;
    WORD printableWidth, printableHeight;
    WORD leftMargin, topMargin;
    DWORD mediaCode;  // names the paper to the printer
};

struct PaperEntry {
    DWORD code;
    DWORD nameString;
    const PaperMetrics* portrait;   // null in the row of custom sizes
    const PaperMetrics* landscape;  // width and height exchanged; null in the row of custom sizes
    WORD binMask;                   // a bit per bin that takes the paper
    WORD mediaMask;                 // a bit per media that the paper comes in
};

struct BinEntry {
    DWORD code;  // as in dmDefaultSource
    DWORD nameString;
    DWORD mask;
};

struct MediaEntry {
    DWORD index;  // as in dmMediaIndex
    DWORD nameString;
    DWORD mask;
};

struct ModelEntry {
    WORD defaultTotalMemory;  // megabytes
    LONG modelParam1, modelParam2, modelParam3, modelParam4, modelParam6;
    std::span<const PaperEntry> papers;
    std::span<const BinEntry> bins;
    SHORT defaultMediaIndex;
    BYTE defaultFitToPaper;
    SHORT defaultOutputPaper;
    SHORT defaultCollateMode;
    SHORT defaultResolution;  // dots per inch
    BYTE defaultTextMode;
    BYTE defaultGraphicsMode;
    SHORT modelParam5;
    BYTE defaultModelFlag;
    LONG minCustomWidthDots, minCustomLengthDots;
    LONG maxCustomWidthDots, maxCustomLengthDots;
    SHORT minCustomWidthMm, minCustomLengthMm;
    BYTE defaultNupByte;
    SHORT defaultNupValue1, defaultNupValue2;
    std::span<const MediaEntry> media;
};

inline constexpr DWORD CustomPaperString = 1119;
inline constexpr int LetterPaperCode = 1;
inline constexpr int A4PaperCode = 9;
inline constexpr int LandscapeOrientation = 2;

extern const std::span<const PaperEntry> PaperTable;
extern const std::span<const BinEntry> BinTable;
extern const std::span<const MediaEntry> MediaTable;

// There is one model, row 0; any other index gives it too.
const ModelEntry& ModelRow(int model);

// The row of a bin code, and its mask; row 0 for a code that no row has.
const BinEntry& BinEntryByCode(int model, int binCode);
WORD BinMaskByCode(int model, int binCode);

// The bins that take a paper. Every code above the custom one counts as custom; 0 for an unknown code below.
WORD PaperBinMask(int model, int paperCode);
bool PaperFitsBin(int model, int binCode, int paperCode);

// The metrics of a built-in paper in an orientation, those of Letter for any other code. Always 1.
int PaperMetricsFor(PaperMetrics* out, int model, int orientation, int paperCode);

// Least and greatest custom size in tenths of a millimetre, width in the low and length in the high 16 bits.
DWORD MinExtent(int model);
DWORD MaxExtent(int model);
