// Locale, version, user, time and the system directory: what SystemFacts says, in the platform's form.
#include "platform/kernel/system.h"

#include <algorithm>
#include <cstring>

#include "platform/kernel.h"
#include "platform/kernel/last_error.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/environment.h"
#include "platform/seams/system_facts.h"

namespace platform {

namespace {

constexpr LCID LocaleSystemDefault = 0x0800;
constexpr LCTYPE NoUserOverride = 0x80000000;

SystemFacts& Facts() { return *CurrentEnvironment().facts; }

std::u16string HexWord(WORD value)
{
    std::u16string digits(4, u'0');
    for (int i = 3; i >= 0; --i, value = static_cast<WORD>(value >> 4))
        digits[static_cast<std::size_t>(i)] = u"0123456789abcdef"[value & 0xF];
    return digits;
}

// Empty for what the layer has no answer to.
std::u16string LocaleValue(LCID locale, LCTYPE type)
{
    if (locale != LOCALE_USER_DEFAULT && locale != LocaleSystemDefault && locale != 0 && locale != Facts().Language())
        return {};
    switch (type & ~NoUserOverride) {
        case LOCALE_ICOUNTRY:
            return ToWide(std::to_string(Facts().Country()));
        case LOCALE_ILANGUAGE:
            return HexWord(Facts().Language());
        default:
            return {};
    }
}

}  // namespace

std::u16string SystemDirectory() { return u"C:\\WINDOWS\\system32"; }

UINT CopyPath(std::u16string_view path, WCHAR* target, UINT chars)
{
    const UINT length = static_cast<UINT>(path.size());
    if (target == nullptr || chars <= length) return length + 1;
    std::ranges::copy(path, target);
    target[length] = u'\0';
    return length;
}

}  // namespace platform

using namespace platform;

extern "C" {

int GetLocaleInfoW(LCID locale, LCTYPE type, WCHAR* text, int chars)
{
    if (Fault("GetLocaleInfoW", ERROR_INVALID_PARAMETER)) return 0;
    const std::u16string value = LocaleValue(locale, type);
    const int needed = static_cast<int>(value.size()) + 1;
    if (value.empty() || chars < 0 || (text == nullptr && chars != 0)) {
        SetError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (chars == 0) return needed;
    if (chars < needed) {
        SetError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::copy_n(value.c_str(), needed, text);
    return needed;
}

void GetLocalTime(SYSTEMTIME* time)
{
    if (time != nullptr) *time = Facts().LocalTime();
}

BOOL GetVersionExW(OSVERSIONINFOW* info)
{
    if (Fault("GetVersionExW", ERROR_INSUFFICIENT_BUFFER)) return FALSE;
    const DWORD size = info == nullptr ? 0 : info->dwOSVersionInfoSize;
    if (size != sizeof(OSVERSIONINFOW) && size != sizeof(OSVERSIONINFOEXW)) {
        SetError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    const OsVersion version = Facts().Version();
    OSVERSIONINFOEXW full{};
    full.dwOSVersionInfoSize = size;
    full.dwMajorVersion = version.major;
    full.dwMinorVersion = version.minor;
    full.dwBuildNumber = version.build;
    full.dwPlatformId = version.platform;
    if (version.servicePack != 0) {
        const std::u16string text = ToWide("Service Pack " + std::to_string(version.servicePack));
        std::ranges::copy(text, full.szCSDVersion);
    }
    full.wServicePackMajor = version.servicePack;
    full.wProductType = 1;  // a workstation
    std::memcpy(info, &full, size);
    return TRUE;
}

BOOL GetUserNameW(WCHAR* name, DWORD* chars)
{
    if (Fault("GetUserNameW", ERROR_GEN_FAILURE)) return FALSE;
    if (chars == nullptr) {
        SetError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::u16string user = Facts().UserName();
    const DWORD room = *chars;
    *chars = static_cast<DWORD>(user.size()) + 1;
    if (name == nullptr || room < *chars) {
        SetError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::copy_n(user.c_str(), *chars, name);
    return TRUE;
}

UINT GetSystemDirectoryW(WCHAR* path, UINT chars)
{
    if (Fault("GetSystemDirectoryW", ERROR_GEN_FAILURE)) return 0;
    return CopyPath(SystemDirectory(), path, chars);
}

}  // extern "C"
