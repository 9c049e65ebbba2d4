// Narrow text of the system's code page (SystemFacts::CodePage). The single-byte pages are exact tables;
// of the others only ASCII is known here, save for UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "platform/types.h"

namespace platform {

// A character without a counterpart becomes '?'.
QD_API std::u16string FromNarrow(UINT codePage, std::string_view narrow);
QD_API std::string ToNarrow(UINT codePage, std::u16string_view wide);

// In the system's code page.
QD_API std::u16string FromNarrow(std::string_view narrow);
QD_API std::string ToNarrow(std::u16string_view wide);

}  // namespace platform
