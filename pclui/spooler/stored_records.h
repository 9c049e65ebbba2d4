// The records that are stored with a printer, little-endian as they stand there. What a store holds is not
// checked by reading it.
#pragma once

#include <cstddef>
#include <type_traits>

#include "platform/types.h"

struct [[gnu::may_alias]] PrinterDataBlock {
    WORD version;
    WORD size;
    DWORD flags;  // carried; nothing tests them
};
static_assert(sizeof(PrinterDataBlock) == 8 && std::is_trivial_v<PrinterDataBlock>);

inline constexpr WORD PrinterDataVersion = 1024;
inline constexpr DWORD PrinterDataUsesA4 = 0x1;         // the default block was made under such a locale
inline constexpr DWORD PrinterDataOtherCodePage = 0x4;  // ... under another code page than 1252

// A custom paper size. Height stands before width.
struct [[gnu::may_alias]] CustomPaperEntry {
    SHORT cpCode;    // 257 and its position in the list
    SHORT cpHeight;  // tenths of a millimetre (unit 0) or whole inches times 100 (unit 1)
    SHORT cpWidth;
    SHORT cpHeightSixteenths;  // sixteenths of an inch that add to the height
    SHORT cpWidthSixteenths;
    SHORT cpUnit;  // 0 millimetres, 1 inches
    SHORT cpReserved;
    WCHAR cpName[21];  // at most 20 characters and the terminator
};
static_assert(sizeof(CustomPaperEntry) == 56 && std::is_trivial_v<CustomPaperEntry>);
static_assert(offsetof(CustomPaperEntry, cpHeight) == 2 && offsetof(CustomPaperEntry, cpWidth) == 4 &&
              offsetof(CustomPaperEntry, cpHeightSixteenths) == 6 &&
              offsetof(CustomPaperEntry, cpWidthSixteenths) == 8 && offsetof(CustomPaperEntry, cpUnit) == 10 &&
              offsetof(CustomPaperEntry, cpName) == 14);

// A form overlay: a page image in a file, under a name to choose it by. The stored list is a 32-bit number that
// nothing reads, then the rows.
struct [[gnu::may_alias]] OverlayEntry {
    WCHAR ovName[262];  // at most 261 characters and the terminator, here and in the path
    WCHAR ovPath[262];
    DWORD ovPending;   // 1: the next job makes the file
    DWORD ovPrevious;  // neighbours in memory (handles); without meaning in stored rows
    DWORD ovNext;
};
static_assert(sizeof(OverlayEntry) == 1060 && std::is_trivial_v<OverlayEntry>);
static_assert(offsetof(OverlayEntry, ovPath) == 524 && offsetof(OverlayEntry, ovPending) == 1048 &&
              offsetof(OverlayEntry, ovPrevious) == 1052 && offsetof(OverlayEntry, ovNext) == 1056);

inline constexpr std::size_t OverlayHeaderBytes = 4;
inline constexpr int OverlayTextChars = 262;

inline constexpr int CustomPaperCode = 256;       // a size given by length and width alone
inline constexpr int FirstStoredPaperCode = 257;  // codes of stored custom sizes
inline constexpr int LastStoredPaperCode = 306;
