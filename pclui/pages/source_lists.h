// The lists of paper sources and media types that the Setup page offers. Each depends on the other, on the
// document's paper and on whether the second tray is installed. All of it works on the current record, which
// must exist, and on the rows and working copies of settings/list_rows.h.
#pragma once

#include "platform/user.h"

// Bin codes and media indices that rules name.
inline constexpr SHORT SourceAuto = 7;
inline constexpr SHORT SourceTray1 = 1;
inline constexpr SHORT SourceTray2 = 2;
inline constexpr SHORT MediaPlain = 0;
inline constexpr SHORT MediaTransparency = 1;
inline constexpr SHORT MediaEnvelope = 2;
inline constexpr SHORT MediaPostcard = 3;

extern int SourceIndex;  // row of SourceRows that holds the current source; written by RefreshSourceRows

// Decides which rows of SourceRows and of MediaRows are offered.
void RefreshSourceRows();
void RestrictMediaRows();

// Fill the combo boxes from the rows on offer and select the current one, the first if it is not among them. A
// source that is not on offer stays in the record; the media that is shown is written there.
void FillSourceCombo(HWND dialog, int control);
void FillMediaCombo(HWND dialog);

// PaperChoice becomes the paper that the selected media is made in; the record does not change.
void ForcePaperByMedia();

// The paper that is used in the user's country.
SHORT LocalePaperCode();
