#include "host/arguments.h"

#include <charconv>

namespace host {

std::optional<std::int64_t> NumberOf(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (hexadecimal) text.remove_prefix(2);
    std::uint32_t magnitude = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return negative ? -std::int64_t{magnitude} : std::int64_t{magnitude};
}

CLI::Validator WholeNumber(std::int64_t least, std::int64_t greatest)
{
    // The parser would take a leading zero for octal: it is given the plain decimal form.
    const auto take = [least, greatest](std::string& text) -> std::string {
        const auto number = NumberOf(text);
        if (!number || *number < least || *number > greatest) {
            return text + " is not a number from " + std::to_string(least) + " to " + std::to_string(greatest);
        }
        text = std::to_string(*number);
        return {};
    };
    return CLI::Validator(take, {});
}

CLI::Validator FileName()
{
    const auto check = [](const std::string& path) -> std::string { return path.empty() ? "a file is wanted" : ""; };
    return CLI::Validator(check, {});
}

}  // namespace host
