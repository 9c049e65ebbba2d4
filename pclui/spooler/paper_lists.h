// The lists of papers and bins that the capabilities give. All paper lists have the same length and order:
// the built-in papers, the printer's stored sizes, the Custom row last. Each function gives the length of its
// list and writes nothing when output is null. A store may claim more sizes than any printer has: the names are
// written as far as the answer promises room for them.
#pragma once

#include "platform/spooler.h"

inline constexpr int PaperNameSlot = 64;  // characters, with the terminator
inline constexpr int BinNameSlot = 24;

// What a list of names of that length is told to a caller: the length in 16 bits with a sign. Rows from there on
// are not written, none below 1.
constexpr LONG PromisedNames(LONG length) { return static_cast<SHORT>(length); }

LONG PaperCodeList(HANDLE hPrinter, int model, void* output);                   // 16-bit codes
LONG PaperSizeList(HANDLE hPrinter, int model, int orientation, void* output);  // pairs of LONG, width first
LONG PaperNameList(HANDLE hPrinter, int model, void* output);                   // slots of PaperNameSlot
LONG BinCodeList(int model, void* output);                                      // 16-bit codes
LONG BinNameList(int model, void* output);                                      // slots of BinNameSlot
