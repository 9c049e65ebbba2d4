// The custom paper sizes of a printer: loading them into the paper rows, and saving what was edited. The
// printer is the one named by PrinterName. At most 50 sizes are edited; what a store holds beyond that is
// loaded as it stands.
#pragma once

#include "settings/list_rows.h"
#include "spooler/stored_records.h"

inline constexpr int MostCustomPapers = LastStoredPaperCode - FirstStoredPaperCode + 1;

// Rebuilds the custom rows from what the printer holds. The number of rows in the high 16 bits, the position
// of the record's own paper in the low ones, 0xFFFF if it is none of them. A printer that cannot be opened
// leaves the rows as they are, sets error 87 and counts as empty.
DWORD LoadCustomPaperRows();
inline constexpr WORD NoCustomPaper = 0xFFFF;

// The same, with PaperRowCount, and SelectedPaperRow if the record's paper is among the rows.
void LoadCustomPaperList();

// Makes the custom row at a position equal to the entry; a row that is missing is made behind
// the last one. 0 without memory, or if the chain ends before the row in front of it.
int StoreCustomPaperRow(PaperRow& headRow, const CustomPaperEntry& entry, int position);

// Writes the first count entries of the working list to the printer and brings the rows into line. False,
// with nothing changed, if the printer cannot be opened to write (error 87) or memory is short.
bool SaveCustomPapers(int count);

// Releases every row behind this one.
void ReleaseRowsBehind(PaperRow& row);
