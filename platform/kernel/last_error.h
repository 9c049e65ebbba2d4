// The thread's last error, and how a function of the layer begins: by asking the fault plan.
#pragma once

#include "platform/types.h"

namespace platform {

QD_API void SetError(DWORD code);
QD_API DWORD LastError();

// Whether the fault plan makes this call of the function fail; the last error is then set to code.
QD_API bool Fault(const char* function, DWORD code);

}  // namespace platform
