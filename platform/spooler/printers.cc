// Opening and closing printers.
#include "platform/spooler/printers.h"

#include "platform/kernel/handles.h"
#include "platform/kernel/last_error.h"
#include "platform/seams/environment.h"
#include "platform/spooler/handles.h"
#include "platform/spooler/impersonation.h"

namespace platform::spooler {

namespace {

HandleTable<OpenedPrinter>& Printers()
{
    static auto* printers = new HandleTable<OpenedPrinter>(FirstPrinterHandle, 4);
    return *printers;
}

DWORD OpenInto(std::u16string_view name, DWORD access, HANDLE* printer)
{
    const auto store = CurrentEnvironment().printers;
    const auto entry = store == nullptr ? std::nullopt : store->Find(name);
    if (!entry) return ERROR_INVALID_PRINTER_NAME;
    const bool administer = (access & PRINTER_ACCESS_ADMINISTER) != 0;
    if (administer && !entry->mayChange && !ActsAsSubsystem()) return ERROR_ACCESS_DENIED;
    *printer = reinterpret_cast<HANDLE>(Printers().Add(std::make_shared<OpenedPrinter>(OpenedPrinter{entry->name})));
    return ERROR_SUCCESS;
}

}  // namespace

std::shared_ptr<OpenedPrinter> Find(HANDLE printer) { return Printers().Find(printer); }

Stored Look(HANDLE printer)
{
    Stored stored;
    stored.error = ERROR_INVALID_HANDLE;
    stored.store = CurrentEnvironment().printers;
    const auto opened = Find(printer);
    if (opened == nullptr || stored.store == nullptr) return stored;
    if (auto entry = stored.store->Find(opened->name)) {
        stored.entry = std::move(*entry);
        stored.error = ERROR_SUCCESS;
    }
    return stored;
}

BOOL Succeeded(DWORD error)
{
    if (error == ERROR_SUCCESS) return TRUE;
    SetError(error);
    return FALSE;
}

HANDLE Open(const std::u16string& printer, DWORD access)
{
    HANDLE handle = nullptr;
    return Succeeded(Guarded([&] { return OpenInto(printer, access, &handle); })) ? handle : nullptr;
}

bool Close(HANDLE printer) { return Succeeded(Printers().Take(printer) != nullptr ? 0 : ERROR_INVALID_HANDLE); }

std::size_t OpenCount() { return Printers().Count(); }

}  // namespace platform::spooler

using namespace platform;

extern "C" {

BOOL OpenPrinterW(WCHAR* name, HANDLE* printer, PRINTER_DEFAULTSW* defaults)
{
    if (Fault("OpenPrinterW", ERROR_INVALID_PRINTER_NAME)) return FALSE;
    if (printer == nullptr) return spooler::Succeeded(ERROR_INVALID_PARAMETER);
    if (name == nullptr) return spooler::Succeeded(ERROR_INVALID_PRINTER_NAME);
    HANDLE opened = spooler::Open(name, defaults == nullptr ? 0 : defaults->DesiredAccess);
    if (opened == nullptr) return FALSE;
    *printer = opened;
    return TRUE;
}

BOOL ClosePrinter(HANDLE printer)
{
    if (Fault("ClosePrinter", ERROR_INVALID_HANDLE)) return FALSE;
    return spooler::Close(printer);
}

}  // extern "C"
