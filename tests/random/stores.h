// What is stored with the printer: which button may write which value, and in which form.
#pragma once

#include <string>

#include "tests/random/start.h"

namespace random_use {

// What is wrong with what has changed since before by a control of a dialog; empty if nothing.
std::string WrongStores(const Start& start, const platform::StoredValues& before, const platform::StoredValues& after,
                        int dialogBefore, int control);

}  // namespace random_use
