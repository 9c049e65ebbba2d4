// The system directory and how functions of the layer hand out paths.
#pragma once

#include <string>
#include <string_view>

#include "platform/types.h"

namespace platform {

QD_API std::u16string SystemDirectory();

// Copies a path with its terminator and gives its length without it; where it does not fit, nothing is
// written and the room that it needs, terminator included, is given. Both in characters.
UINT CopyPath(std::u16string_view path, WCHAR* target, UINT chars);

}  // namespace platform
