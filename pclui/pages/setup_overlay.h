// The form overlay on the Setup page: which of the printer's overlays the job takes, or which one it makes.
#pragma once

#include "platform/user.h"

// Load the printer's overlays and select that of the record. A new one that no job has made is dropped.
void InitOverlays(HWND dialog);
void DefaultOverlay(HWND dialog);

// A new overlay that is still to be made goes before the one that is chosen.
void CommitOverlayChoice();
void FreeOverlayList();

void OnOverlayPicked(HWND dialog);
void OnOverlayFirstPage(HWND dialog);
void OnEditOverlay(HWND dialog);
