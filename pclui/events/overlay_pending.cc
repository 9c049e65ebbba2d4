#include "events/overlay_pending.h"

#include <cstring>

#include "spooler/opened_printer.h"
#include "spooler/printer_data.h"

namespace {

constexpr std::size_t PendingOffset = offsetof(OverlayEntry, ovPending);

// The access to ask for; it stays at writing once a list had to be written.
DWORD PrinterAccess = PRINTER_READ;

// Clears the flags and tells whether one was set. A damaged list may end within a row: what reaches the flag
// counts, and every byte stays.
bool ClearFlags(BYTE* list, std::size_t bytes)
{
    bool changed = false;
    for (std::size_t at = OverlayHeaderBytes; at + PendingOffset + sizeof(DWORD) <= bytes; at += sizeof(OverlayEntry)) {
        DWORD pending = 0;
        std::memcpy(&pending, list + at + PendingOffset, sizeof(pending));
        if (pending == 0) continue;
        std::memset(list + at + PendingOffset, 0, sizeof(pending));
        changed = true;
    }
    return changed;
}

int FailToOpen()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

}  // namespace

int ResetOverlayPending()
{
    DWORD bytes = 0;
    GlobalBlock<BYTE[]> list;
    {
        const OpenedPrinter printer(PrinterName, PrinterAccess);
        if (!printer) return FailToOpen();
        list = ReadOverlayBlob(printer.Handle(), &bytes);
    }
    if (!list || !ClearFlags(list.get(), bytes)) return 1;
    PrinterAccess = PRINTER_ALL_ACCESS;
    const OpenedPrinter printer(PrinterName, PrinterAccess);
    if (!printer) return FailToOpen();
    WritePrinterBlob(printer.Handle(), list.get(), bytes, OverlaySlot);
    return 1;
}
