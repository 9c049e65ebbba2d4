// Sines and tangents times 10000, rounded to the nearest integer: the geometry of watermarks is in integers.
#pragma once

#include <array>

#include "platform/types.h"

// Of 1 to 89 degrees; 0 and 90 are cases of their own wherever they would be needed.
inline constexpr std::array<LONG, 89> SineTable = {
    175,  349,  523,  698,  872,  1045, 1219, 1392, 1564, 1736, 1908, 2079, 2250, 2419, 2588, 2756, 2924, 3090,
    3256, 3420, 3584, 3746, 3907, 4067, 4226, 4384, 4540, 4695, 4848, 5000, 5150, 5299, 5446, 5592, 5736, 5878,
    6018, 6157, 6293, 6428, 6561, 6691, 6820, 6947, 7071, 7193, 7314, 7431, 7547, 7660, 7771, 7880, 7986, 8090,
    8192, 8290, 8387, 8480, 8572, 8660, 8746, 8829, 8910, 8988, 9063, 9135, 9205, 9272, 9336, 9397, 9455, 9511,
    9563, 9613, 9659, 9703, 9744, 9781, 9816, 9848, 9877, 9903, 9925, 9945, 9962, 9976, 9986, 9994, 9998,
};

// Of 0 to 45 degrees.
inline constexpr std::array<LONG, 46> TangentTable = {
    0,    175,  349,  524,  699,  875,  1051, 1228, 1405, 1584, 1763, 1944, 2126, 2309,  2493, 2679,
    2867, 3057, 3249, 3443, 3640, 3839, 4040, 4245, 4452, 4663, 4877, 5095, 5317, 5543,  5774, 6009,
    6249, 6494, 6745, 7002, 7265, 7536, 7813, 8098, 8391, 8693, 9004, 9325, 9657, 10000,
};

inline constexpr LONG TableUnit = 10000;

constexpr LONG SineOf(int degrees) { return SineTable[static_cast<std::size_t>(degrees - 1)]; }
constexpr LONG CosineOf(int degrees) { return SineOf(90 - degrees); }

namespace angle_tables {

inline constexpr double Pi = 3.14159265358979323846;

// By its series, which is exact far beyond four digits up to a right angle.
constexpr double Sine(double radians)
{
    double term = radians, sum = radians;
    for (int n = 1; n < 12; ++n) {
        term *= -radians * radians / ((2 * n) * (2 * n + 1));
        sum += term;
    }
    return sum;
}

constexpr bool Holds()
{
    for (int degrees = 1; degrees <= 89; ++degrees)
        if (SineOf(degrees) != static_cast<LONG>(Sine(degrees * Pi / 180) * TableUnit + 0.5)) return false;
    for (int degrees = 0; degrees <= 45; ++degrees) {
        const double tangent = Sine(degrees * Pi / 180) / Sine((90 - degrees) * Pi / 180);
        if (TangentTable[static_cast<std::size_t>(degrees)] != static_cast<LONG>(tangent * TableUnit + 0.5))
            return false;
    }
    return true;
}
static_assert(Holds());

}  // namespace angle_tables
