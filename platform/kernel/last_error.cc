#include "platform/kernel/last_error.h"

#include "platform/kernel.h"
#include "platform/seams/environment.h"

namespace platform {

namespace {
thread_local DWORD ThreadError = ERROR_SUCCESS;
}

void SetError(DWORD code) { ThreadError = code; }
DWORD LastError() { return ThreadError; }

bool Fault(const char* function, DWORD code)
{
    if (!CurrentEnvironment().faults.Fails(function)) return false;
    SetError(code);
    return true;
}

}  // namespace platform

extern "C" {

DWORD GetLastError() { return platform::LastError(); }
void SetLastError(DWORD code) { platform::SetError(code); }

}  // extern "C"
