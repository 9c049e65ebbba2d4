// Conversions between the units of length, each with its rounding. Paper geometry is in dots at 300 dpi.
#pragma once

inline constexpr double DotsPerMillimetre = 300 / 25.4;

// Truncates: 2550 dots are 2159 tenths of a millimetre.
constexpr int DotsToTenths(int dots) { return dots * 254 / 300; }

// Truncates: 76 mm are 897 dots.
constexpr int MillimetresToDots(int millimetres) { return static_cast<int>(millimetres * DotsPerMillimetre); }

// Truncates.
constexpr int TenthsToDots(int tenths) { return tenths * 150 / 127; }

// Truncates: 8 8/16 inches are 215 mm. In whole numbers, so that 5 inches are 127 mm however a build computes.
constexpr int InchesToMillimetres(int inches, int sixteenths) { return (inches * 16 + sixteenths) * 254 / 160; }

static_assert(DotsToTenths(2550) == 2159 && DotsToTenths(3507) == 2969);
static_assert(MillimetresToDots(76) == 897 && MillimetresToDots(127) == 1500);
