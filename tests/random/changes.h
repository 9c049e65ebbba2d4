// What a step may change in the record: which control writes which field, and what.
#pragma once

#include <string>

#include "tests/random/steps.h"
#include "tests/random/view.h"

namespace random_use {

// Controls of steps: the one that the step was on, the field beside a pair of arrows; Arrival if the step has brought
// the page to the front, Elsewhere for the keyboard.
inline constexpr int Arrival = 0;
inline constexpr int Elsewhere = -1;
inline constexpr int Applied = -2;    // Apply: then the page comes to the front again
inline constexpr int Confirmed = -3;  // OK of the sheet; the record is then the published one
// What is wrong, empty if nothing.
std::string WrongChanges(const View& view);

}  // namespace random_use
