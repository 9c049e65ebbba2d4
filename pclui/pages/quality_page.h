// The Quality page: resolution, Toner Save, All Raster, Smoothtone, toner density and the use of the
// printer's TrueType fonts. All its state lives in the record; it shows the record anew each time that it
// comes to the front.
#pragma once

#include "platform/user.h"

extern "C" QD_API INT_PTR Quality_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Brings the page and the options that depend on others in tune with the record.
void QualityRefresh(HWND dialog);

// Sets the defaults of this page; whether that changed an option.
bool QualityDefault(HWND dialog);
