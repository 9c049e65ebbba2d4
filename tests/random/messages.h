// The messages that may come up, each with its reason and the choice that it refuses. A beep is the message "\a".
#pragma once

#include <string>
#include <string_view>

#include "tests/random/view.h"

namespace random_use {

// What is wrong, empty if nothing.
std::string MessageWithoutReason(const View& view, std::u16string_view text);  // while it is up
std::string WrongMessage(const View& view, std::u16string_view text);          // after the step

}  // namespace random_use
