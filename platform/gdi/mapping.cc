#include "platform/gdi/mapping.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <numeric>

namespace platform::gdi {

namespace {

using Wide = std::int64_t;

constexpr Wide Farthest = (Wide{1} << 27) - 1;

// value * factor / divisor, rounded to the nearest, halves up.
Wide Scaled(Wide value, Wide factor, Wide divisor)
{
    Wide numerator = 2 * value * factor + divisor, denominator = 2 * divisor;
    if (denominator < 0) {
        numerator = -numerator;
        denominator = -denominator;
    }
    const Wide quotient = numerator / denominator;
    return numerator % denominator < 0 ? quotient - 1 : quotient;
}

Wide Held(Wide value) { return std::clamp(value, -Farthest, Farthest); }

LONG Coordinate(LONG value, LONG windowOrigin, LONG windowExtent, LONG viewportOrigin, LONG viewportExtent)
{
    const Wide distance = Held(Wide{value} - windowOrigin);
    return static_cast<LONG>(Held(Scaled(distance, viewportExtent, windowExtent) + viewportOrigin));
}

LONG Length(LONG length, LONG windowExtent, LONG viewportExtent)
{
    const Wide scaled = Scaled(std::abs(Held(length)), std::abs(Wide{viewportExtent}), std::abs(Wide{windowExtent}));
    return static_cast<LONG>(length < 0 ? -Held(scaled) : Held(scaled));
}

// The sizes that the balance of the axes is reckoned with; larger ones count as this.
Wide Size(LONG extent) { return std::min<Wide>(std::abs(Wide{extent}), Wide{1} << 26); }

LONG WithSign(Wide size, LONG sign) { return static_cast<LONG>(sign < 0 ? -size : size); }

}  // namespace

LONG Sum(LONG a, LONG b)
{
    return static_cast<LONG>(
        std::clamp<Wide>(Wide{a} + b, std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()));
}

bool Mapping::SetMode(int mode, const Device& device)
{
    if (mode != MM_TEXT && mode != MM_ISOTROPIC && mode != MM_ANISOTROPIC) return false;
    if (mode == mode_) return true;
    mode_ = mode;
    if (mode == MM_TEXT) {
        windowExtent_ = viewportExtent_ = {1, 1};
    } else if (mode == MM_ISOTROPIC) {
        // A device that does not tell its size still has extents to divide by.
        const LONG width = std::max<LONG>(1, device.width), height = std::max<LONG>(1, device.height);
        windowExtent_ = {std::max(1, static_cast<LONG>(Scaled(width, 254, device.dotsPerInchX))),
                         std::max(1, static_cast<LONG>(Scaled(height, 254, device.dotsPerInchY)))};
        viewportExtent_ = {width, -height};
    }
    return true;
}

bool Mapping::SetWindowExtent(SIZE extent, const Device& device)
{
    if (!HasExtents()) return true;
    if (extent.cx == 0 || extent.cy == 0) return false;
    windowExtent_ = extent;
    KeepIsotropic(device);
    return true;
}

bool Mapping::SetViewportExtent(SIZE extent, const Device& device)
{
    if (!HasExtents()) return true;
    if (extent.cx == 0 || extent.cy == 0) return false;
    viewportExtent_ = extent;
    KeepIsotropic(device);
    return true;
}

void Mapping::KeepIsotropic(const Device& device)
{
    if (mode_ != MM_ISOTROPIC) return;
    // A unit is viewport / window pixels long, and a pixel 1 / dots per inch.
    const Wide common = std::gcd(device.dotsPerInchX, device.dotsPerInchY);
    const Wide dotsX = device.dotsPerInchX / common, dotsY = device.dotsPerInchY / common;
    const Wide across = Size(viewportExtent_.cx) * Size(windowExtent_.cy) * dotsY;
    const Wide down = Size(viewportExtent_.cy) * Size(windowExtent_.cx) * dotsX;
    if (across > down)
        viewportExtent_.cx =
            WithSign(std::max<Wide>(1, Scaled(down, 1, Size(windowExtent_.cy) * dotsY)), viewportExtent_.cx);
    else if (down > across)
        viewportExtent_.cy =
            WithSign(std::max<Wide>(1, Scaled(across, 1, Size(windowExtent_.cx) * dotsX)), viewportExtent_.cy);
}

POINT Mapping::ToDevice(POINT point) const
{
    return {Coordinate(point.x, windowOrigin_.x, windowExtent_.cx, viewportOrigin_.x, viewportExtent_.cx),
            Coordinate(point.y, windowOrigin_.y, windowExtent_.cy, viewportOrigin_.y, viewportExtent_.cy)};
}

RECT Mapping::ToDevice(const RECT& box) const
{
    const POINT a = ToDevice(POINT{box.left, box.top}), b = ToDevice(POINT{box.right, box.bottom});
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

int Mapping::Across(int length) const { return Length(length, windowExtent_.cx, viewportExtent_.cx); }

int Mapping::Down(int length) const { return Length(length, windowExtent_.cy, viewportExtent_.cy); }

}  // namespace platform::gdi
