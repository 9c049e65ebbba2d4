// JSON as this program writes it: one object or array a line, members in the order they were put in, ", "
// and ": " between them. Strings inside a Json are UTF-8; a lone surrogate of the layer's UTF-16 stands as
// its three bytes and is written as \udXXX, so that nothing of a hostile record is lost on the way out.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace host {

using Json = nlohmann::ordered_json;

std::string ToLine(const Json& json);  // without the line's end

Json Text(std::u16string_view text);                      // a JSON string
std::u16string UpToTerminator(std::u16string_view text);  // what stands before the first 0

std::string Hex(std::span<const std::uint8_t> bytes);                     // lower case
std::optional<std::vector<std::uint8_t>> FromHex(std::string_view text);  // absent: not pairs of digits

}  // namespace host
