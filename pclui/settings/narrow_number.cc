#include "settings/narrow_number.h"

#include <charconv>

int DecimalNumber(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} ? number : 0;
}
