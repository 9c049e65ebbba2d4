// Brings a printer's watermarks into memory and into the control that offers them.
#pragma once

#include "platform/types.h"

// For the Setup page (its combo box of watermarks) or for the Watermark dialog (its list box): builds the list,
// fills the control and selects the job's watermark. 1, or 0 without memory.
int LoadWatermarks(HWND dialog, bool forSetupPage);

// A watermark of the job that was edited since the record was made takes its fields as they are stored now.
void RefreshJobWatermark();
