// Random users on the document sheet: all pages and dialogs, real and hostile records and stored data. What must
// always hold is looked at after every step. A few seeds here; tools/random_use plays as many as one likes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "tests/random/player.h"

namespace random_use {
namespace {

std::uint64_t Number(const char* variable, std::uint64_t otherwise)
{
    const char* text = std::getenv(variable);
    return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

void Walk(std::uint64_t seed)
{
    const char* again = std::getenv("QD_RANDOM_STEPS");
    const Played played = again ? Play(seed, StepsOf(again)) : Play(seed);
    if (played.failure.empty()) return;
    const Played shortest = again ? played : Shrink(seed, played);
    ADD_FAILURE() << "seed " << seed << " (" << played.story << ")\n"
                  << shortest.failure << "\n"
                  << shortest.script << "To play this again: QD_RANDOM_STEPS=" << WordOf(shortest.steps)
                  << " tools/random_use " << seed << " 1\n";
}

// The seeds are parted so that several processors share them.
class RandomUse : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Seeds, RandomUse, testing::Range(0, 4));

TEST_P(RandomUse, KeepsWhatAlwaysHolds)
{
    const std::uint64_t first = Number("QD_RANDOM_SEED", 1), count = Number("QD_RANDOM_COUNT", 60);
    for (std::uint64_t seed = first + static_cast<std::uint64_t>(GetParam()); seed < first + count; seed += 4)
        Walk(seed);
}

}  // namespace
}  // namespace random_use
