// How an edited record gets back to the caller: the hand-out, and what is done to the paper on its way for
// one particular kind of application.
#pragma once

#include "spooler/ui_context.h"

// If the caller wanted the record, copies it out in the shape of the caller's own, and whole if the caller's
// buffer has room for that.
void HandOutRecord(UiContext& context);

// The apply step, called by each page on PSN_APPLY. The dialog's DWL_USER holds the context. Always 1.
int ApplyPageSettings(HWND dialog);

// While an application with a window of a certain class runs, gives the record's paper by size, in tenths of a
// millimetre, instead of by code. Both arguments may be null. Always 1.
int FixUpCustomPaper(HANDLE hPrinter, DEVMODEW* record);
