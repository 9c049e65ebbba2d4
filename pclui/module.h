// The module itself: its handles and its entry.
#pragma once

#include "platform/kernel.h"

// Both are written by DllInitialize alone. Pages are registered under the module handle; strings, dialogs
// and pictures are loaded through the second one, which is never given back.
extern HMODULE ModuleHandle;
extern HMODULE ResourceHandle;

// Called by the loader; always 1.
extern "C" QD_API BOOL DllInitialize(HMODULE module, DWORD reason, void* reserved);
