// UTF-8 and UTF-16, for everything between the layer and the rest of this machine.
#pragma once

#include <string>
#include <string_view>

#include "platform/types.h"

namespace platform {

// Broken input comes out as U+FFFD; lone surrogates come out as their three bytes and come back.
QD_API std::u16string ToWide(std::string_view utf8);
QD_API std::string ToUtf8(std::u16string_view wide);

}  // namespace platform
