// A page's measures in dots of the job's resolution, as the page lies.
#pragma once

#include "driver_dev_mode.h"
#include "settings/model_tables.h"

// The handle is used only to read the printer's stored custom sizes, and may be null: a stored size is then
// that of Letter. Always 1.
int GetPaperMetrics(HANDLE hPrinter, PaperMetrics* out, const DriverDevMode& record, int orientation, int paperCode);
