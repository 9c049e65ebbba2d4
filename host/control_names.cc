#include "host/control_names.h"

#include <algorithm>
#include <iterator>

namespace host {

namespace {

struct ControlName {
    std::string_view name;
    int number;
};

// Made from the header that the resource script uses.
constexpr ControlName ControlNames[] = {
#include "control_names.inc"
};

}  // namespace

std::optional<int> ControlNumber(std::string_view name)
{
    const auto found = std::ranges::find(ControlNames, name, &ControlName::name);
    if (found == std::end(ControlNames)) return std::nullopt;
    return found->number;
}

}  // namespace host
