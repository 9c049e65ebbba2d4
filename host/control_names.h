// The controls' names, as the module's resources know them.
#pragma once

#include <optional>
#include <string_view>

namespace host {

// The number of a control by its IDC_ name; absent when there is none of that name.
std::optional<int> ControlNumber(std::string_view name);

}  // namespace host
