// Scaling and fit to paper, of which a page has one or the other: the controls of both, and the rules that bind
// them to each other and to pages that share a sheet.
#pragma once

#include "platform/user.h"

// The states of dmFitToPaper.
inline constexpr BYTE FitNone = 0;
inline constexpr BYTE FitScaled = 1;   // a scaling other than 100 per cent
inline constexpr BYTE FitToPaper = 2;  // sent to the output paper, at 100 per cent

// Both are written here alone and outlive a sheet.
extern SHORT ZoomChoice;  // dmZoom, per cent
extern SHORT FitOn;       // the output paper's code while "Fit to Paper" is checked, else 0

// Shows scaling and fit of the record when the page is created; out of range scaling shows as 100.
void InitFitAndScale(HWND dialog);

// Brings the controls in tune with the record, and record and controls with the rules.
void SyncFitAndScale(HWND dialog);

// Back to 100 per cent, and to the paper of the user's country for when fit to paper is checked again.
void DefaultFitAndScale(HWND dialog);

void OnFitToPaper(HWND dialog);
void OnOutputSizePicked(HWND dialog);
void OnScalingTyped(HWND dialog);
void OnScalingLeft(HWND dialog);
