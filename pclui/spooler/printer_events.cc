#include "spooler/printer_events.h"

#include <algorithm>
#include <cstring>

#include "boundary.h"
#include "spooler/opened_printer.h"
#include "spooler/printer_data.h"

namespace {

bool UpgradePrinterData(HANDLE hPrinter)
{
    auto block = ReadPrinterDataBlock(hPrinter);
    if (!block) return false;
    if (block->version < PrinterDataVersion) {
        if (auto current = AllocateBlock<PrinterDataBlock>(sizeof(PrinterDataBlock))) {
            std::memcpy(current.get(), block.get(), std::min<std::size_t>(block->size, sizeof(PrinterDataBlock)));
            current->version = PrinterDataVersion;
            current->size = sizeof(PrinterDataBlock);
            block = std::move(current);
        }
    }
    WritePrinterDataBlock(hPrinter, block.get(), sizeof(PrinterDataBlock));
    return true;
}

bool UpgradeCustomPapers(HANDLE hPrinter)
{
    int count = 0;
    const auto entries = ReadCustomPapers(hPrinter, &count);
    if (!entries) return false;
    WritePrinterBlob(hPrinter, entries.get(), static_cast<DWORD>(count) * sizeof(CustomPaperEntry), CustomPaperSlot);
    return true;
}

using RevertFunction = HANDLE (*)();
using ImpersonateFunction = BOOL (*)(HANDLE token);

class Library {
  public:
    explicit Library(const WCHAR* name) : module_(LoadLibraryW(name)) {}
    ~Library()
    {
        if (module_) FreeLibrary(module_);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    template <class Function>
    Function Get(const CHAR* name) const
    {
        return module_ ? reinterpret_cast<Function>(GetProcAddress(module_, name)) : nullptr;
    }

  private:
    HMODULE module_;
};

// Opens the printer and closes it again in the rights of the print subsystem.
bool RefreshCache(const WCHAR* printerName)
{
    const Library subsystem(u"spoolss.dll");
    const auto revert = subsystem.Get<RevertFunction>("RevertToPrinterSelf");
    const auto impersonate = subsystem.Get<ImpersonateFunction>("ImpersonatePrinterClient");
    if (!revert || !impersonate) return false;
    const HANDLE token = revert();
    {
        const OpenedPrinter printer(printerName, 0);
    }
    if (token) impersonate(token);
    return true;
}

}  // namespace

BOOL DrvUpgradePrinter(DWORD level, const DRIVER_UPGRADE_INFO_1W* info)
{
    return AtBoundary(FALSE, [&]() -> BOOL {
        if (level == 1 && info) {
            const OpenedPrinter printer(info->pPrinterName, PRINTER_ALL_ACCESS);
            if (printer) return UpgradePrinterData(printer.Handle()) && UpgradeCustomPapers(printer.Handle());
        }
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    });
}

BOOL DrvPrinterEvent(const WCHAR* printerName, int event, DWORD /*flags*/, LPARAM /*lParam*/)
{
    return AtBoundary(FALSE, [&]() -> BOOL {
        if (event == PRINTER_EVENT_CACHE_REFRESH) return RefreshCache(printerName);
        if (event == PRINTER_EVENT_INITIALIZE) const OpenedPrinter printer(printerName, PRINTER_ALL_ACCESS);
        return TRUE;
    });
}
