// The device sheet as the common property sheet service wants it described: one option of its option tree, a
// push button for colour adjustment, and one page. All blocks come from the heap of the context.
#pragma once

#include "spooler/ui_context.h"

// page, and the texts that it refers to, must live as long as the context. Null without memory.
COMPROPSHEETUI* BuildOptionSheet(UiContext& context, DLGPAGE* page);

// The path of the printer's help file from the heap, or null.
WCHAR* HelpFilePath(HANDLE hPrinter, HANDLE heap);
