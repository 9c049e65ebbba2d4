#include <algorithm>

#include "platform/kernel/last_error.h"
#include "platform/kernel/modules.h"
#include "platform/user.h"

extern "C" {

int LoadStringW(HINSTANCE module, UINT number, WCHAR* text, int chars)
{
    if (platform::Fault("LoadStringW", ERROR_RESOURCE_NAME_NOT_FOUND)) return 0;
    if (text == nullptr || chars <= 0) {
        platform::SetError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::u16string found = platform::modules::String(module, number);
    const std::size_t length = std::min(found.size(), static_cast<std::size_t>(chars) - 1);
    std::copy_n(found.begin(), length, text);
    text[length] = u'\0';
    if (found.empty()) platform::SetError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return static_cast<int>(length);
}

}  // extern "C"
