// The names of the Watermark dialog's rows and the list box that shows them. A row of the list box follows the
// typing at once; the watermark takes its name when the field is left, if the name is neither blank nor taken.
#pragma once

#include "platform/user.h"

// Gives the list box its rows anew if it has not taken all of them.
void FillWatermarkList(HWND dialog);

// Selects the row WatermarkIndex for editing and shows it.
void ShowWatermarkRow(HWND dialog);

// Takes a row out of the list, its names and slots and the list box.
void RemoveListedWatermark(HWND dialog, int index);

// Whether the dialog may go on with the name that the field of the row at index shows: 0 if so. 1 if it is blank,
// which is refused, or taken; then the user may have the other row removed, and acts again.
int ValidateWatermarkName(HWND dialog, int index);

// The current row takes the name in the field. The row without a watermark keeps its own.
void TakeWatermarkName(HWND dialog);

void OnWatermarkNameTyped(HWND dialog);
void OnWatermarkNameLeft(HWND dialog);
