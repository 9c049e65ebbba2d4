// Numbers as fields show them: decimal digits, a minus sign where signs count.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/types.h"

namespace platform::user {

// Absent for what is no number as a whole and for what does not fit. Leading blanks are passed over.
std::optional<std::int64_t> ParseNumber(std::u16string_view text, bool isSigned);
std::u16string FormatNumber(std::int64_t value);

}  // namespace platform::user
