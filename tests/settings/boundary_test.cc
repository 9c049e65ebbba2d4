#include "boundary.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

TEST(Boundary, TurnsWhatIsThrownIntoTheFailingResult)
{
    EXPECT_EQ(AtBoundary(-1, [] { return 5; }), 5);
    EXPECT_EQ(AtBoundary(-1, []() -> int { throw std::runtime_error("full"); }), -1);
}

}  // namespace
