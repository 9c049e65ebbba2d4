// What the platform's graphics tell the module while a document prints.
#pragma once

#include "platform/gdi.h"

// iEsc is one of DOCUMENTEVENT_..., in its low 16 bits. DOCUMENTEVENT_SUCCESS or DOCUMENTEVENT_UNSUPPORTED.
extern "C" QD_API int DrvDocumentEvent(HANDLE hPrinter, HDC hdc, int iEsc, ULONG cbIn, void* pvIn, ULONG cbOut,
                                       void* pvOut);
