// From logical units to device pixels: mode, origins and extents of a context. Device coordinates are held
// to 27 bits, so that nothing that is reckoned with them overflows.
#pragma once

#include "platform/gdi.h"

namespace platform::gdi {

// What a context's device is like; a screen unless a job says otherwise.
struct Device {
    int dotsPerInchX = 96, dotsPerInchY = 96;
    int width = 1024, height = 768;  // of what can be drawn on, in dots
    int bitsPerPixel = 32;
    int physicalWidth = 0, physicalHeight = 0, offsetX = 0, offsetY = 0;  // of paper, in dots
};

// a + b, held to what a LONG can be.
LONG Sum(LONG a, LONG b);

class Mapping {
  public:
    int Mode() const { return mode_; }
    POINT WindowOrigin() const { return windowOrigin_; }
    POINT ViewportOrigin() const { return viewportOrigin_; }
    SIZE WindowExtent() const { return windowExtent_; }
    SIZE ViewportExtent() const { return viewportExtent_; }

    // MM_TEXT puts the extents back to 1; MM_ISOTROPIC starts with tenths of a millimetre, y running up;
    // MM_ANISOTROPIC keeps the extents of the mode before. False: there is no such mode.
    bool SetMode(int mode, const Device& device);
    void SetWindowOrigin(POINT origin) { windowOrigin_ = origin; }
    void SetViewportOrigin(POINT origin) { viewportOrigin_ = origin; }
    // Ignored where the mode has no extents of its own; false only for an extent of 0. In MM_ISOTROPIC the
    // viewport's extent then shrinks on one axis until a unit is as long across as down.
    bool SetWindowExtent(SIZE extent, const Device& device);
    bool SetViewportExtent(SIZE extent, const Device& device);

    POINT ToDevice(POINT point) const;
    RECT ToDevice(const RECT& box) const;  // corners in order
    int Across(int length) const;          // length of a horizontal distance in pixels, sign kept
    int Down(int length) const;

  private:
    bool HasExtents() const { return mode_ != MM_TEXT; }
    void KeepIsotropic(const Device& device);

    int mode_ = MM_TEXT;
    POINT windowOrigin_{0, 0}, viewportOrigin_{0, 0};
    SIZE windowExtent_{1, 1}, viewportExtent_{1, 1};
};

}  // namespace platform::gdi
