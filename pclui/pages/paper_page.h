// The Paper page: the paper of the document, scaling and fit to paper, image shift, copies, collation and
// orientation. Source and media are chosen on the Setup page, which is created first and leaves them in
// SelectedSource and SelectedMedia.
#pragma once

#include "platform/user.h"

extern "C" QD_API INT_PTR Paper_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Shows the record when the page is created.
void PaperInit(HWND dialog);

// Sets the defaults of this page. Source, media, N-up, duplex and watermark are the Setup page's and stay.
void PaperDefault(HWND dialog);
