// Registry keys. Functions give 0 on success and an error code on failure.
#pragma once

#include "platform/types.h"

using REGSAM = DWORD;

// A predefined key is a number, not an object; it is never closed.
inline HKEY PredefinedKey(std::uint32_t number)
{
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(number)));
}
inline const HKEY HKEY_LOCAL_MACHINE = PredefinedKey(0x80000002u);

inline constexpr DWORD REG_NONE = 0;
inline constexpr DWORD REG_SZ = 1;
inline constexpr DWORD REG_BINARY = 3;
inline constexpr DWORD REG_DWORD = 4;
inline constexpr DWORD REG_MULTI_SZ = 7;

inline constexpr REGSAM KEY_READ = 0x20019;
inline constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

extern "C" {

QD_API LONG RegOpenKeyExW(HKEY parent, const WCHAR* path, DWORD options, REGSAM access, HKEY* key);
// *bytes: room in, length out. With data null only type and length are given. ERROR_MORE_DATA when the
// room is too small: *bytes then says what is needed and data is untouched.
QD_API LONG RegQueryValueExW(HKEY key, const WCHAR* name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* bytes);
QD_API LONG RegSetValueExW(HKEY key, const WCHAR* name, DWORD reserved, DWORD type, const BYTE* data, DWORD bytes);
QD_API LONG RegCloseKey(HKEY key);

}  // extern "C"
