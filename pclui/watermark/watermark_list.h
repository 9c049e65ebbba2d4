// The watermarks of a printer in memory: a chain of rows, <NONE> first, and what the dialogs show of it.
// Process-wide, used on the sheet's thread alone; a row's index is its place in the chain. The Watermark dialog
// edits a chain of its own and puts the other one back on Cancel.
#pragma once

#include <array>

#include "driver_dev_mode.h"
#include "settings/options.h"

inline constexpr int MostWatermarks = 30;  // without <NONE>
inline constexpr int WatermarkNameChars = 73;

struct WatermarkNode {
    WatermarkRecord row;
    WatermarkNode* next;
    HGLOBAL block;  // that the node lies in, locked as long as the node lives
};

extern WatermarkNode* WatermarkHead;                         // only its link counts; null while there is no list
extern WatermarkRecord* WatermarkCurrent;                    // row under edit
extern int WatermarkIndex;                                   // of that row
extern int WatermarkCount;                                   // rows without <NONE>
extern std::array<WORD, MostWatermarks + 1> WatermarkSlots;  // which wmId are in use
extern std::array<WCHAR[WatermarkNameChars], MostWatermarks + 1> WatermarkNames;  // index for index
extern WatermarkRecord WatermarkEdit;                                             // what the dialog shows
extern WatermarkPayload WatermarkOption;                                          // buffer of the job's option

// A new head with the base rows: <NONE> alone if the printer has a list of its own or cannot be asked, else
// <NONE> and the seven ready-made rows. 1, or -1 without memory.
int BuildWatermarkList();

// Whether a row of the list has the name of this one.
bool WatermarkNameTaken(const WatermarkRecord& row);

// Appends a copy of the row, without its wmFirstPageOnly. 1, or -1 without memory or if the name is taken.
int AddWatermarkRow(WatermarkRecord row);

// Unlinks and releases a row. Count, slots and names are the caller's part.
void RemoveWatermarkRow(int index);

// Points WatermarkCurrent at a row. 1; -1 if there is no such row, 0 if there are none at all.
int SelectWatermarkRow(int index);

// Copies the current row to WatermarkEdit; in the mode Diagonal with the angle of the current page.
void LoadWatermarkEdit();

// Releases all rows and the head.
void FreeWatermarkList();

// The row at an index, null if there is none.
WatermarkRecord* WatermarkRowAt(int index);

// Copies a text into a field of a record, cut to the field and zero-filled.
void CopyToField(WCHAR* field, int chars, std::u16string_view text);
