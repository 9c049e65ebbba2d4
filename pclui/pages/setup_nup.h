// N-up on the Setup page: how many pages share a side of the sheet, the line around each, their order. N-up and
// scaling exclude each other.
#pragma once

#include "platform/user.h"
#include "settings/options.h"

// Whether pages keep their size: neither scaled nor fitted to other paper. Goes by FitChoice.
bool PagesKeepTheirSize();

void InitNup(HWND dialog);

// Locks N-up under a booklet, and turns it off where pages are scaled.
void RefreshNup(HWND dialog);
void DefaultNup(HWND dialog);

// A booklet lays two pages on a side; its end puts them on sides of their own. Both change the option that is
// given, and the controls.
void ForceTwoUp(HWND dialog, NupPayload& nup);
void EndTwoUp(HWND dialog, NupPayload& nup);

void OnNupPicked(HWND dialog);
void OnBorderLine(HWND dialog);
void OnNupStyle(HWND dialog);
