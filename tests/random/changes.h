// What a step may change, and what it may say: which control writes which field of the record and what, which button
// writes what is stored with the printer, and which messages go with a choice that did not come about.
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

std::string WrongStores(const Start& start, const platform::StoredValues& before, const platform::StoredValues& after,
                        int dialogBefore, int control);

std::string MessageWithoutReason(const View& view, std::u16string_view text);  // while it is up
std::string WrongMessage(const View& view, std::u16string_view text);          // after the step

}  // namespace random_use
