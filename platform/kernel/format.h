// Formatting of texts as wsprintfW does it.
#pragma once

#include <cstdarg>
#include <string>

#include "platform/types.h"

namespace platform {

inline constexpr std::size_t MostFormatted = 1024;  // characters, with the terminator

// %[-0#][width][.precision][h|l|w](d i u x X p c C s S %); anything else stands as it is written. All integers
// are 32 bits wide; %hs, %hc and %S, %C are narrow.
QD_API std::u16string FormatWide(const WCHAR* format, std::va_list arguments);

}  // namespace platform
