// What the words of the command line may be.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host {

// The number that the text is, decimal or behind 0x hexadecimal; leading zeros mean nothing. None for any other text.
std::optional<std::int64_t> NumberOf(std::string_view text);

// For an option's transform: a number from least to greatest, both among them.
CLI::Validator WholeNumber(std::int64_t least, std::int64_t greatest);

// For an option's check: the name of a file, which is not empty. "-" is one.
CLI::Validator FileName();

}  // namespace host
