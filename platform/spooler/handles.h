// Open printers, and what all functions on them share.
#pragma once

#include <memory>
#include <string>

#include "platform/seams/stores.h"
#include "platform/spooler/printers.h"

namespace platform::spooler {

struct OpenedPrinter {
    std::u16string name;
};

// Null for what is no open printer.
std::shared_ptr<OpenedPrinter> Find(HANDLE printer);

// The printer behind a handle as it is stored now; ERROR_INVALID_HANDLE when the handle is none, or its
// printer has been removed since. Throws StoreError.
struct Stored {
    DWORD error = ERROR_SUCCESS;
    std::shared_ptr<PrinterStore> store;
    PrinterEntry entry;
};
Stored Look(HANDLE printer);

// Runs work, which gives an error code; what a store cannot do is the platform's general failure.
template <class Work>
DWORD Guarded(Work work)
{
    try {
        return work();
    } catch (const StoreError&) {
        return ERROR_GEN_FAILURE;
    }
}

// Turns an error code into the result of a function that reports by TRUE and the last error.
BOOL Succeeded(DWORD error);

}  // namespace platform::spooler
