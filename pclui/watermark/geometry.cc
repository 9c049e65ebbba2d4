#include "watermark/geometry.h"

#include <cstdint>
#include <cstdlib>
#include <utility>

#include "watermark/angle_tables.h"

namespace {

constexpr LONG DiagonalStep = 30;  // dots to a unit of the diagonal's vector

// The angle whose tangent is r / TableUnit, in tenths of a degree, up to 450.
int TenthsOfTangent(LONG r)
{
    std::size_t degree = 0;
    while (degree < 45 && r > TangentTable[degree + 1]) ++degree;
    const int angle = static_cast<int>(degree) * 10;
    const LONG low = TangentTable[degree];
    if (degree == 45 || r <= low) return angle;
    const LONG high = TangentTable[degree + 1];
    if (r == high) return angle + 10;
    return angle + (((high - low + 1) >> 1) + (r - low) * 10) / (high - low);
}

// An angle from a record nobody checked, brought to -180 .. 180.
int Reduced(int degrees)
{
    degrees %= 360;
    if (degrees > 180) return degrees - 360;
    if (degrees < -180) return degrees + 360;
    return degrees;
}

POINT ToPoint(std::int64_t x, std::int64_t y)
{
    return {static_cast<LONG>(x / TableUnit), static_cast<LONG>(y / TableUnit)};
}

}  // namespace

int ArcTanTenths(LONG x, LONG y)
{
    const bool left = x < 0, below = y < 0;
    LONG lesser = std::abs(y), greater = std::abs(x);
    const bool exchanged = lesser > greater;
    if (exchanged) std::swap(lesser, greater);
    // A page without any extent comes from a record that nobody checked; it has no diagonal.
    int angle = greater == 0 ? 0 : TenthsOfTangent(TableUnit / greater * lesser);
    if (exchanged) angle = 900 - angle;
    if (left) angle = 1800 - angle;
    if (below) angle = 3600 - angle;
    return angle;
}

SHORT DiagonalOf(LONG width, LONG height)
{
    return static_cast<SHORT>((ArcTanTenths(width / DiagonalStep, height / DiagonalStep) + 5) / 10);
}

POINT RotateOrigin(LONG w, SHORT a, LONG h, LONG cx, LONG cy)
{
    const int angle = Reduced(a);
    switch (angle) {
        case 0:
            return {cx - w, cy - h};
        case 90:
            return {cx - h, cy + w};
        case 180:
        case -180:
            return {cx + w, cy + h};
        case -90:
            return {cx + h, cy - w};
        default:
            break;
    }
    // 64 bits, since the measures of a record that nobody checked may be of any size.
    const std::int64_t x = std::int64_t{cx} * TableUnit, y = std::int64_t{cy} * TableUnit;
    const int acute = std::abs(angle) < 90 ? std::abs(angle) : 180 - std::abs(angle);
    const std::int64_t s = SineOf(acute), c = CosineOf(acute);
    if (angle > 0 && angle < 90) return ToPoint(x - c * w - s * h, s * w - c * h + y);
    if (angle > 90) return ToPoint(c * w - s * h + x, s * w + c * h + y);
    if (angle < -90) return ToPoint(c * w + s * h + x, c * h - s * w + y);
    return ToPoint(s * h - c * w + x, y - s * w - c * h);
}
