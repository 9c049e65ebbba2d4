#include "platform/user/numbers.h"

#include <limits>

namespace platform::user {

std::optional<std::int64_t> ParseNumber(std::u16string_view text, bool isSigned)
{
    while (!text.empty() && (text.front() == u' ' || text.front() == u'\t')) text.remove_prefix(1);
    const bool negative = isSigned && !text.empty() && text.front() == u'-';
    if (negative) text.remove_prefix(1);
    if (text.empty()) return std::nullopt;

    const std::int64_t greatest = !isSigned  ? std::numeric_limits<UINT>::max()
                                  : negative ? std::int64_t{std::numeric_limits<INT>::max()} + 1
                                             : std::numeric_limits<INT>::max();
    std::int64_t value = 0;
    for (char16_t c : text) {
        if (c < u'0' || c > u'9') return std::nullopt;
        value = value * 10 + (c - u'0');
        if (value > greatest) return std::nullopt;
    }
    return negative ? -value : value;
}

std::u16string FormatNumber(std::int64_t value)
{
    const std::string digits = std::to_string(value);
    return {digits.begin(), digits.end()};
}

}  // namespace platform::user
