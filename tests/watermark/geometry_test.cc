#include "watermark/geometry.h"

#include <gtest/gtest.h>

namespace {

TEST(ArcTan, GivesTenthsOfADegree)
{
    constexpr LONG Rows[][3] = {
        {1,    1,    450 },
        {100,  0,    0   },
        {0,    100,  900 },
        {-100, 0,    1800},
        {100,  -100, 3150},
        {3,    4,    531 },
        {4,    3,    369 },
        {0,    0,    0   },
    };
    for (const auto& [x, y, tenths] : Rows) EXPECT_EQ(ArcTanTenths(x, y), tenths) << x << ", " << y;
}

// Half width 300, half height 100, centre (1000, 2000).
TEST(Rotation, TurnsTheCornerAboutTheCentre)
{
    constexpr SHORT Rows[][3] = {
        {0,    700,  1900},
        {90,   900,  2300},
        {180,  1300, 2100},
        {-180, 1300, 2100},
        {-90,  1100, 1700},
        {30,   690,  2063},
        {150,  1209, 2236},
        {-150, 1309, 1936},
        {-30,  790,  1763},
        {390,  690,  2063},
    };
    for (const auto& [angle, x, y] : Rows) {
        const POINT origin = RotateOrigin(300, angle, 100, 1000, 2000);
        EXPECT_EQ(origin.x, x) << angle;
        EXPECT_EQ(origin.y, y) << angle;
    }
}

}  // namespace
