// The watermark on the Setup page: which of the printer's watermarks the job takes.
#pragma once

#include "platform/user.h"

// Loads the printer's watermarks and selects that of the job.
void InitWatermarks(HWND dialog);
void DefaultWatermarkChoice(HWND dialog);

void OnWatermarkPicked(HWND dialog);
void OnWatermarkFirstPage(HWND dialog);
