// The units of custom paper sizes and what turns one into the other. Stored: tenths of a millimetre, or
// whole inches times 100 with sixteenths beside them. In paper rows: tenths of a millimetre, or hundredths
// of an inch. Integer division truncates, and so does every conversion of a double.
#pragma once

#include "settings/list_rows.h"
#include "spooler/stored_records.h"

// Whole inches times 100, and sixteenths from 0 to 15.
struct InchLength {
    int hundreds;
    int sixteenths;
    bool operator==(const InchLength&) const = default;
};

// The nearest sixteenths of what is left above whole inches, a tie going up: 0 to 16, and 16 is a carry.
int MillimetresToSixteenths(int millimetres);
int HundredthsToSixteenths(int hundredths);

InchLength InchesFromTenths(int tenthsOfMillimetre);
int TenthsFromInches(InchLength length);  // tenths of a millimetre, whole millimetres
InchLength InchesFromHundredths(int hundredths);

// The numbers of a paper row for a stored size; a unit that is neither gives zeros.
PaperSizeRecord RowSize(const CustomPaperEntry& entry);

// The stored size for the numbers of a row, without code and name.
CustomPaperEntry EntryFromRowSize(const PaperSizeRecord& size);

// The size of a new entry: the default paper of the user's country, in the unit that is used there.
CustomPaperEntry DefaultCustomPaper(bool a4);
