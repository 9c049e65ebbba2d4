// Duplex and booklets on the Setup page. Both need paper from Tray1 and exclude transparencies; a booklet
// lays two pages on each side and needs pages of their own size.
#pragma once

#include "platform/user.h"

// Show duplex as the record has it. The working copies of fit, copies, collation and source are to be up to date.
void InitDuplex(HWND dialog);
// Offers the booklets or takes them away, and lets the transparency rule act.
void RefreshDuplex(HWND dialog);
void DefaultDuplex(HWND dialog);

// Copies of a booklet that are not collated: one is all that there is.
void BookletCopiesRule();

// Transparencies are printed on one side: takes duplex off the record and locks it, or unlocks it.
void TransparencyRule(HWND dialog);

// The refusal of a source or a binding that don't go together.
void RefuseSourceForDuplex(HWND dialog);

void OnDuplexPicked(HWND dialog);
void OnGuidePaper(HWND dialog);

// Draws the icon of the selected binding; those of the booklets only while the source can print them.
void DrawBinding(HWND dialog);
