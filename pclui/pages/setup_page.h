// The Setup page, the first of the document sheet: N-up, watermark, duplex and booklet, paper source, media type
// and form overlay. Most rules between options meet here. It stays in tune with the Paper page by looking at
// the record at every notification.
#pragma once

#include "platform/user.h"

extern "C" QD_API INT_PTR PageLayout_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// 1 once a sheet of the shell's was opened; written by the page's initialisation, never cleared. The shell prints
// no documents, so that no overlay can be made there.
extern int ShellHosted;

// Shows the whole page as the record has it.
void SetupInit(HWND dialog);
// Brings duplex, media and N-up in tune with what the Paper page has changed.
void SetupRefresh(HWND dialog);
// Sets the defaults of this page.
void SetupDefault(HWND dialog);

// The end of a change: the picture is to be painted, the sheet is told.
void SetupChanged(HWND dialog);
