#include "platform/kernel/paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/kernel.h"
#include "platform/kernel/last_error.h"
#include "platform/kernel/system.h"
#include "platform/kernel/unicode.h"

namespace platform {

std::u16string FullPath(std::u16string_view path)
{
    if (path.empty()) return {};
    std::u16string whole;
    if (path.front() != u'/') {
        std::error_code error;
        whole = ToWide(std::filesystem::current_path(error).native());
        if (error || whole.empty()) return {};
        whole.push_back(u'/');
    }
    whole.append(path);

    std::u16string full;
    for (std::size_t at = 0; at < whole.size();) {
        const std::size_t end = std::min(whole.find(u'/', at), whole.size());
        const std::u16string_view part = std::u16string_view(whole).substr(at, end - at);
        at = end + 1;
        if (part == u"..")
            full.erase(std::min(full.rfind(u'/'), full.size()));
        else if (!part.empty() && part != u".")
            full.append(u"/").append(part);
    }
    if (full.empty() || whole.back() == u'/') full.push_back(u'/');
    return full;
}

}  // namespace platform

using namespace platform;

extern "C" {

DWORD GetFullPathNameW(const WCHAR* path, DWORD chars, WCHAR* full, WCHAR** filePart)
{
    if (Fault("GetFullPathNameW", ERROR_INVALID_NAME)) return 0;
    const std::u16string whole = path == nullptr ? std::u16string() : FullPath(path);
    if (whole.empty()) {
        SetError(ERROR_INVALID_NAME);
        return 0;
    }
    const DWORD length = CopyPath(whole, full, chars);
    if (length == whole.size() && filePart != nullptr)
        *filePart = whole.back() == u'/' ? nullptr : full + whole.rfind(u'/') + 1;
    return length;
}

}  // extern "C"
