// Copies, collation and Proof Print, and the rules that bind them to each other and to duplex and booklets.
#pragma once

#include "platform/user.h"

// Show the record when the page is created.
void InitCopies(HWND dialog);
void InitCollation(HWND dialog);

// Brings copies, collation and Proof Print in tune with what the Setup page has changed; runs at every paint of
// the page.
void CopiesCollateRule(HWND dialog);

// One copy, uncollated.
void DefaultCopies(HWND dialog);
void DefaultCollation(HWND dialog);

void OnCopiesTyped(HWND dialog);
void OnCopiesLeft(HWND dialog);
void OnCopiesNotice(HWND dialog);  // after the two above, and on any other notification
void OnUncollated(HWND dialog);
void OnCollated(HWND dialog);
void OnProofPrint(HWND dialog);
