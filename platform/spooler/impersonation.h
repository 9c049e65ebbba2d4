// In whose rights the thread uses the print subsystem: a client's, until it asks for the subsystem's own.
// Modules get both functions from "spoolss.dll" at run time.
#pragma once

#include "platform/types.h"

namespace platform::spooler {

// The thread acts in the subsystem's own rights: it may change every printer.
QD_API bool ActsAsSubsystem();

}  // namespace platform::spooler

extern "C" {

// The client's token; null on failure, also when the thread acts as the subsystem already.
QD_API HANDLE RevertToPrinterSelf();
QD_API BOOL ImpersonatePrinterClient(HANDLE token);

}  // extern "C"
