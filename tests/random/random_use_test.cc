// Random users on the document sheet: all pages and dialogs, real and hostile records and stored data. What must
// always hold is looked at after every step. A few seeds here; tools/random_use plays as many as one likes.
#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "resources/control_numbers.h"
#include "tests/random/player.h"

namespace random_use {
namespace {

constexpr std::uint64_t UsualCount = 60;
const std::set<int> AllDialogs = {IDD_SETUP,     IDD_PAPER,        IDD_QUALITY,      IDD_DEVICE_OPTIONS, IDD_NUP_STYLE,
                                  IDD_WATERMARK, IDD_CUSTOM_PAPER, IDD_OVERLAY_LIST, IDD_OVERLAY_EDIT,   DLG_ABOUT};

std::uint64_t Number(const char* variable, std::uint64_t otherwise)
{
    const char* text = std::getenv(variable);
    if (!text) return otherwise;
    std::uint64_t number = 0;
    const char* end = text + std::strlen(text);
    if (const auto [stop, error] = std::from_chars(text, end, number); error != std::errc() || stop != end || !number)
        throw std::invalid_argument(std::string(variable) + "=" + text + " is no number from 1 on");
    return number;
}

std::string Told(std::uint64_t seed, const Played& played)
{
    std::ostringstream told;
    told << "seed " << seed << " (" << played.story << ")\n"
         << played.failure << "\n"
         << played.script << "To play this again: QD_RANDOM_STEPS=" << WordOf(played.steps) << " tools/random_use "
         << seed << " 1\n";
    return told.str();
}

// The pages and dialogs that came up.
std::set<int> Walk(std::uint64_t seed)
{
    const char* again = std::getenv("QD_RANDOM_STEPS");
    const Played played = again ? Play(seed, StepsOf(again)) : Play(seed);
    if (!played.failure.empty()) {
        std::cerr << "Fails, the shortest way follows. " << Told(seed, played);
        ADD_FAILURE() << Told(seed, again ? played : Shrink(seed, played));
    }
    return played.seen;
}

// The seeds are parted so that several processors share them.
class RandomUse : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Seeds, RandomUse, testing::Range(0, 2));

TEST_P(RandomUse, KeepsWhatAlwaysHolds)
{
    const std::uint64_t first = Number("QD_RANDOM_SEED", 1), count = Number("QD_RANDOM_COUNT", UsualCount);
    std::set<int> seen;
    for (std::uint64_t seed = first + static_cast<std::uint64_t>(GetParam()); seed < first + count; seed += 2)
        seen.merge(Walk(seed));
    for (const int dialog : AllDialogs) EXPECT_TRUE(count < UsualCount || seen.contains(dialog)) << dialog;
}

}  // namespace
}  // namespace random_use
