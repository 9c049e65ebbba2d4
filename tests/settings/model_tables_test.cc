#include "settings/model_tables.h"

#include <cstring>

#include "settings/lengths.h"

namespace {

TEST(PaperMetrics, AreThoseOfThePaperInItsOrientation)
{
    constexpr std::tuple<int, int, PaperMetrics> rows[] = {
        {1, 1,   {2550, 3300, 2449, 3199, 50, 50, 0}  },
        {2, 1,   {3300, 2550, 3199, 2449, 50, 50, 0}  },
        {1, 9,   {2480, 3507, 2380, 3407, 50, 50, 2}  },
        {0, 9,   {2480, 3507, 2380, 3407, 50, 50, 2}  },
        {2, 223, {2362, 1748, 2262, 1648, 50, 50, 132}},
        {1, 310, {2149, 3035, 2049, 2935, 50, 50, 11} },
        {2, 100, {3300, 2550, 3199, 2449, 50, 50, 0}  }, // unknown: Letter
        {1, 256, {2550, 3300, 2449, 3199, 50, 50, 0}  }, // no metrics of its own
    };
    for (const auto& [orientation, code, expected] : rows) {
        PaperMetrics metrics{};
        EXPECT_EQ(PaperMetricsFor(&metrics, 0, orientation, code), 1);
        EXPECT_EQ(std::memcmp(&metrics, &expected, sizeof metrics), 0) << orientation << ' ' << code;
    }
}

TEST(PaperFitsBin, AsTheMasksSay)
{
    constexpr int rows[][3] = {
        {2, 11,  0},
        {1, 11,  1},
        {2, 1,   1},
        {2, 310, 1},
        {4, 223, 1},
        {2, 223, 0},
        {2, 256, 0},
        {1, 256, 1},
        {2, 257, 0},
        {7, 257, 1},
        {1, 306, 1},
        {4, 999, 1},
        {1, 100, 0},
        {7, 0,   0},
        {7, 255, 0},
        {3, 9,   1}, // bin 3 counts as the first row
    };
    for (const auto& [bin, paper, fits] : rows)
        EXPECT_EQ(PaperFitsBin(0, bin, paper), fits != 0) << bin << ' ' << paper;
}

TEST(BinEntryByCode, GivesTheFirstRowForAnUnknownCode)
{
    for (int code : {3, 5, 6, -1, 100}) EXPECT_EQ(BinEntryByCode(0, code).nameString, 4070u) << code;
    EXPECT_EQ(BinEntryByCode(0, 4).nameString, 4073u);
    EXPECT_EQ(BinMaskByCode(0, 2), 4);
}

TEST(Lengths, Truncate)
{
    EXPECT_EQ(DotsToTenths(3807), 3223);
    EXPECT_EQ(MillimetresToDots(216), 2551);
    EXPECT_EQ(TenthsToDots(2100), 2480);
    EXPECT_EQ(TenthsToDots(-1), -1);
}

}  // namespace
