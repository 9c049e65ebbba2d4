// The watermarks as they are stored with a printer: three values of 3000 bytes, lines of wide text that end
// in "\r\n". Texts and names stand behind a line with their number, attributes in lines of their own.
#pragma once

#include "driver_dev_mode.h"
#include "settings/options.h"

inline constexpr SHORT DefaultShading = 20;        // percent
inline constexpr SHORT DefaultWatermarkSize = 72;  // points

// Whether one of the three values was never stored. A printer that cannot be asked has them.
bool PrinterHasNoWatermarks();

// Appends the stored rows to the list, with their slots and names. 1 when nothing is stored or can be read;
// else 1 if the list has rows, -1 if it has none.
int ReadStoredWatermarks();
extern int WatermarksUnread;  // rows that the last call had no memory for

// Writes the list. 1, also if the printer cannot be opened to write; 0 if the list has no rows. A row that does
// not fit any more is left out whole, and the rows before it keep their places.
int SaveWatermarks();

// Rows that the last SaveWatermarks had no room for, and those that the next one would have none for.
extern int WatermarksLeftOut;
int CountWatermarksWithoutRoom();

// Takes the fields of the stored row that the option names by wmId, as it is stored now. 1 if the option is to
// be written back, 0 if there is no such row.
int RefreshWatermark(WatermarkPayload& option);
