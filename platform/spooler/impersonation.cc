#include "platform/spooler/impersonation.h"

#include "platform/kernel/handles.h"
#include "platform/kernel/last_error.h"

namespace platform::spooler {

namespace {

thread_local bool AsSubsystem = false;

// One client there is in a process, so one token.
HANDLE ClientToken() { return reinterpret_cast<HANDLE>(FirstTokenHandle); }

}  // namespace

bool ActsAsSubsystem() { return AsSubsystem; }

}  // namespace platform::spooler

using namespace platform;

extern "C" {

HANDLE RevertToPrinterSelf()
{
    if (Fault("RevertToPrinterSelf", ERROR_GEN_FAILURE)) return nullptr;
    if (spooler::AsSubsystem) return nullptr;
    spooler::AsSubsystem = true;
    return spooler::ClientToken();
}

BOOL ImpersonatePrinterClient(HANDLE token)
{
    if (Fault("ImpersonatePrinterClient", ERROR_INVALID_HANDLE)) return FALSE;
    if (token != spooler::ClientToken()) {
        SetError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    spooler::AsSubsystem = false;
    return TRUE;
}

}  // extern "C"
