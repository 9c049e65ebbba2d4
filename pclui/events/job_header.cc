#include "events/job_header.h"

#include <array>

#include "events/language_codes.h"
#include "platform/kernel.h"
#include "settings/wide_text.h"

namespace {

constexpr int ShortLimit = 10, ShortSize = 20;  // characters converted, bytes sent
constexpr int LongLimit = 255, LongSize = 255;
constexpr int UserNameChars = 256;

using WideText = std::array<WCHAR, 1024>;  // as much as the platform formats at once

// Sends a text in the narrow code page; behind its terminator the payload is zero. The text is empty then, so that
// a next one that cannot be composed is sent as none and not as this one.
void SendText(HDC job, int escape, WideText& text, int limit, int size)
{
    std::array<CHAR, LongSize> payload{};
    WideToNarrow(payload.data(), text.data(), limit);
    ExtEscape(job, escape, size, payload.data(), 0, nullptr);
    text = {};
}

// The releases that are told apart. Any other of these two platforms goes by the name that all of them share.
struct SystemName {
    DWORD platform, major, minor;
    const WCHAR* name;
};
constexpr SystemName SystemNames[] = {
    {1, 4, 0,  u"Microsoft Windows 95"         },
    {1, 4, 10, u"Microsoft Windows 98"         },
    {1, 4, 90, u"Microsoft Windows Millenium"  },
    {2, 5, 0,  u"Microsoft Windows 2000"       },
    {2, 5, 1,  u"Microsoft Windows XP"         },
    {2, 5, 2,  u"Microsoft Windows Server 2003"},
};
constexpr const WCHAR* OldServerName = u"Microsoft Windows NT 4";
constexpr const WCHAR* SubsystemName = u"Microsoft Win32s";
constexpr const WCHAR* NamelessSystem = u"Microsoft Windows";
constexpr DWORD DesktopPlatform = 1, ServerPlatform = 2;

const WCHAR* SystemNameOf(const OSVERSIONINFOEXW& version)
{
    if (version.dwPlatformId != DesktopPlatform && version.dwPlatformId != ServerPlatform) return SubsystemName;
    if (version.dwPlatformId == ServerPlatform && version.dwMajorVersion <= 4) return OldServerName;
    for (const SystemName& row : SystemNames)
        if (row.platform == version.dwPlatformId && row.major == version.dwMajorVersion &&
            row.minor == version.dwMinorVersion)
            return row.name;
    return NamelessSystem;
}

// False if the system does not tell its version; version is then all zero.
bool AskVersion(OSVERSIONINFOEXW& version)
{
    for (const DWORD size : {sizeof(OSVERSIONINFOEXW), sizeof(OSVERSIONINFOW)}) {
        version = {};
        version.dwOSVersionInfoSize = size;
        if (GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&version))) return true;
    }
    version = {};
    return false;
}

void ComposeSystem(WideText& text, const WCHAR* languageCode)
{
    OSVERSIONINFOEXW version;
    if (!AskVersion(version)) {
        wsprintfW(text.data(), u"OS: %s %s", NamelessSystem, languageCode);
        return;
    }
    wsprintfW(text.data(), u"OS: %s (%d.%d.%d.%d) %s", SystemNameOf(version), version.dwMajorVersion,
              version.dwMinorVersion, version.dwBuildNumber, version.wServicePackMajor, languageCode);
}

}  // namespace

void SendJobHeader(HDC job)
{
    SYSTEMTIME time{};
    GetLocalTime(&time);
    WideText text{};
    wsprintfW(text.data(), u"%04d%02d%02d", time.wYear, time.wMonth, time.wDay);
    SendText(job, ESCAPE_JOB_DATE, text, ShortLimit, ShortSize);
    wsprintfW(text.data(), u"%02d%02d", time.wHour, time.wMinute);
    SendText(job, ESCAPE_JOB_TIME, text, ShortLimit, ShortSize);

    std::array<WCHAR, 16> language{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ILANGUAGE, language.data(), static_cast<int>(language.size()));
    ComposeSystem(text, LanguageCodeOf(language.data()));
    SendText(job, ESCAPE_JOB_SYSTEM, text, LongLimit, LongSize);

    std::array<WCHAR, UserNameChars> user{};
    DWORD chars = UserNameChars;
    GetUserNameW(user.data(), &chars);
    wsprintfW(text.data(), u"Username: %s;App Filename: ", user.data());
    SendText(job, ESCAPE_JOB_USER, text, LongLimit, LongSize);

    wsprintfW(text.data(), u";%02d/%02d/%04d;%02d:%02d", time.wDay, time.wMonth, time.wYear, time.wHour, time.wMinute);
    SendText(job, ESCAPE_JOB_STAMP, text, LongLimit, LongSize);
}
