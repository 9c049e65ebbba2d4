// Paths of this machine: slashes part them, a backslash is a character like any other.
#pragma once

#include <string>
#include <string_view>

#include "platform/types.h"

namespace platform {

// Absolute, without empty, "." and ".." parts; a slash at the end stays, and none is added. Empty for an empty path or
// when the current directory is gone.
QD_API std::u16string FullPath(std::u16string_view path);

}  // namespace platform
