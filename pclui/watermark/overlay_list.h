// The form overlays of a printer in memory: a chain of rows behind a head "<NONE>", and what the dialogs show
// of it. A row's index is its place in the chain, 0 for the head. The printer is the one named by PrinterName.
// Process-wide, used on the sheet's thread alone.
#pragma once

#include "spooler/stored_records.h"

extern OverlayEntry* OverlayList;      // the head; null while there is no list
extern OverlayEntry* OverlaySelected;  // chosen on the Setup page
extern OverlayEntry* OverlayEditing;   // selected in the list dialog
extern int OverlayIndex;               // of the chosen row
extern int OverlayIsNew;               // 1 while the edit dialog makes a new row
// What the edit dialog hands over at its OK.
extern WCHAR OverlayNewName[OverlayTextChars];
extern WCHAR OverlayNewPath[OverlayTextChars];

// Builds a list from what the printer holds. selected and editing are the row at the index, the head if there
// is none. 0, with the head alone and error 87, if the printer cannot be opened. The head itself is null
// without memory.
int LoadOverlayList(OverlayEntry*& head, OverlayEntry*& selected, OverlayEntry*& editing, int& index);

// Writes the rows behind the head to the printer. 0 if it cannot be opened or memory is short.
int SaveOverlayList(const OverlayEntry* head, int index);
int SaveOverlayChoice();  // of the dialogs' list

// Releases all rows from this one on; null is allowed.
void FreeOverlayEntries(OverlayEntry* head);

OverlayEntry* FindPendingOverlay(OverlayEntry* head);  // the first one, or null
OverlayEntry* NextOverlay(const OverlayEntry* row);    // null behind the last, and for null

// A new row of its own, zeroed; null without memory.
OverlayEntry* MakeOverlay();
// Hangs a row, which is in no list, behind another one; what hung there hangs behind the new row.
void LinkOverlay(OverlayEntry* before, OverlayEntry* row);
// Takes a row out of its list, which keeps its other rows.
void UnlinkOverlay(OverlayEntry* row);
// Cuts a list behind a row and hangs what was cut off behind a last row again; null is allowed everywhere.
OverlayEntry* CutOverlaysBehind(OverlayEntry* row);
void AppendOverlays(OverlayEntry* last, OverlayEntry* rows);
// Unlinks and releases a row that is not the head. A choice of that row falls back on the head.
void ReleaseOverlay(OverlayEntry* row);
