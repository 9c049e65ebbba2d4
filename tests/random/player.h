// Plays a random user in a process of its own, so that the module starts as a fresh one does and a crash or an endless
// loop is a finding like any other.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/random/steps.h"

namespace random_use {

inline constexpr int MostSteps = 160;

struct Played {
    std::vector<Step> steps;
    std::string failure;  // empty: everything held
    std::set<int> seen;   // the templates of the pages and dialogs that came up
    std::string story;    // of the start
    std::string script;
};

// Draws the steps, or plays those that are given. The start follows from the seed. A walk that takes longer has failed.
Played Play(std::uint64_t seed, const std::optional<std::vector<Step>>& steps = {}, unsigned seconds = 60);

// The shortest way to a failure that leaving out steps leads to, as far as two minutes go.
Played Shrink(std::uint64_t seed, const Played& failed);

}  // namespace random_use
