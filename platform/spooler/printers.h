// Printer handles for the host: as OpenPrinterW and ClosePrinter, but outside the fault plan.
#pragma once

#include <string>

#include "platform/spooler.h"

namespace platform::spooler {

// Null with the last error set on failure. access 0 opens for use.
QD_API HANDLE Open(const std::u16string& printer, DWORD access);
QD_API bool Close(HANDLE printer);
QD_API std::size_t OpenCount();  // handles that are not closed, for leak tests

}  // namespace platform::spooler
