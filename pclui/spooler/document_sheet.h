// The document property sheet: what the common property sheet service calls to set the sheet up, to name it,
// to take its result and to end it. Everything runs on the caller's thread without a lock; one sheet at a time
// is what the process-wide state rests on.
#pragma once

#include <span>

#include "spooler/ui_context.h"

struct SheetPageRow {
    int dialogTemplate;
    DLGPROC procedure;
};

// The pages in the order of their tabs. The titles are those of the dialog templates.
extern const std::span<const SheetPageRow> PageTable;

// All three are written by DrvDocumentPropertySheets alone.
inline constexpr int MostDocumentPages = 4;
extern PROPSHEETPAGEW DocumentPages[MostDocumentPages];  // rebuilt at every set-up
extern int DocumentSheetCount;                           // sheets set up and not yet destroyed
// Contexts whose own sheet is gone while another one is open: its pages may still edit their records. They
// go with the last sheet.
extern UiContext* ParkedContexts;

// The sheet function. 1 on success; -1 without a header, on a bad context, an unknown reason or a failed
// set-up. With info null, lParam is the header of a call without a user interface, and the result that call's.
extern "C" QD_API LONG DrvDocumentPropertySheets(PROPSHEETUI_INFO* info, LPARAM lParam);
