// Modules as the layer and the host see them: loading with a reason for failure, entries, resources.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/kernel.h"

namespace platform::modules {

// Resource types by number.
inline constexpr int BitmapResource = 2;
inline constexpr int IconResource = 3;
inline constexpr int DialogResource = 5;
inline constexpr int StringResource = 6;
inline constexpr int IconGroupResource = 14;

// As LoadLibraryW, but outside the fault plan; *why says in words what went wrong.
QD_API HMODULE Load(const std::u16string& path, std::string* why);
QD_API bool Unload(HMODULE module);
QD_API FARPROC Entry(HMODULE module, const char* name);  // null: there is none

// The bytes of a resource; empty when the module has none of that type and number.
QD_API std::span<const std::uint8_t> Resource(HMODULE module, int type, int number);
QD_API std::u16string String(HMODULE module, unsigned number);
QD_API std::size_t LoadCount(HMODULE module);
QD_API std::u16string FileName(HMODULE module);  // empty: no module

}  // namespace platform::modules
