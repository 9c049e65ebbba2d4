// A number of the Paper page: an edit field of three characters with the arrows beside it, their limits, and
// what the fields have in common.
#pragma once

#include "platform/user.h"

struct PaperNumberField {
    int edit, arrows;
    SHORT least, greatest;
};

// Shows the value and sets what can be typed and counted.
void SetUpNumberField(HWND dialog, const PaperNumberField& field, int value);

// Writes a number into a field. The field's handlers run before this returns.
void ShowNumber(HWND dialog, int control, int value);

void EnableNumberField(HWND dialog, const PaperNumberField& field, bool enable);

// What most changes of the page end with: the picture is drawn anew and the sheet is told.
void PaperChanged(HWND dialog);
