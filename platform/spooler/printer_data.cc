// The values that are stored with a printer.
#include <algorithm>

#include "platform/kernel/last_error.h"
#include "platform/seams/environment.h"
#include "platform/spooler/handles.h"
#include "platform/spooler/impersonation.h"

namespace platform::spooler {

namespace {

// A value that is there tells that its printer is, and saves the question.
std::optional<StoredValue> Known(HANDLE printer, const WCHAR* name)
{
    const auto store = CurrentEnvironment().printers;
    const auto opened = Find(printer);
    return store && opened ? store->Value(opened->name, name) : std::nullopt;
}

DWORD Read(HANDLE printer, const WCHAR* name, DWORD* type, BYTE* data, DWORD bytes, DWORD* needed)
{
    const bool sound = name != nullptr && needed != nullptr && (data != nullptr || bytes == 0);
    const auto value = sound ? Known(printer, name) : std::nullopt;
    if (!value) {
        const Stored stored = Look(printer);
        if (stored.error != ERROR_SUCCESS) return stored.error;
        return sound ? ERROR_FILE_NOT_FOUND : ERROR_INVALID_PARAMETER;
    }
    if (type != nullptr) *type = value->type;
    *needed = static_cast<DWORD>(value->bytes.size());
    if (bytes < value->bytes.size()) return ERROR_MORE_DATA;
    std::ranges::copy(value->bytes, data);
    return ERROR_SUCCESS;
}

DWORD Write(HANDLE printer, const WCHAR* name, DWORD type, const BYTE* data, DWORD bytes)
{
    const Stored stored = Look(printer);
    if (stored.error != ERROR_SUCCESS) return stored.error;
    if (name == nullptr || (data == nullptr && bytes != 0)) return ERROR_INVALID_PARAMETER;
    // The user's right to the printer counts, not the access that the handle was opened with.
    if (!stored.entry.mayChange && !ActsAsSubsystem()) return ERROR_ACCESS_DENIED;
    StoredValue value{type, {}};
    if (bytes != 0) value.bytes.assign(data, data + bytes);
    return stored.store->SetValue(stored.entry.name, name, value) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

// The code is both the result and the last error.
DWORD Reported(DWORD error)
{
    if (error != ERROR_SUCCESS) SetError(error);
    return error;
}

}  // namespace

}  // namespace platform::spooler

using namespace platform;

extern "C" {

DWORD GetPrinterDataW(HANDLE printer, WCHAR* name, DWORD* type, BYTE* data, DWORD bytes, DWORD* needed)
{
    if (Fault("GetPrinterDataW", ERROR_GEN_FAILURE)) return ERROR_GEN_FAILURE;
    return spooler::Reported(spooler::Guarded([&] { return spooler::Read(printer, name, type, data, bytes, needed); }));
}

DWORD SetPrinterDataW(HANDLE printer, WCHAR* name, DWORD type, BYTE* data, DWORD bytes)
{
    if (Fault("SetPrinterDataW", ERROR_GEN_FAILURE)) return ERROR_GEN_FAILURE;
    return spooler::Reported(spooler::Guarded([&] { return spooler::Write(printer, name, type, data, bytes); }));
}

}  // extern "C"
