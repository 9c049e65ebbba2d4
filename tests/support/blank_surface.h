// A surface that draws nothing, for walks that draw much and look at none of it.
#pragma once

#include "platform/seams/surface.h"

namespace testing_support {

class BlankSurface : public platform::Surface {
  public:
    void SetClip(const std::optional<RECT>&) override {}
    void Line(const platform::PenSpec&, POINT, POINT) override {}
    void Rectangle(const platform::PenSpec&, const platform::BrushSpec&, const RECT&) override {}
    void Polygon(const platform::PenSpec&, const platform::BrushSpec&, std::span<const POINT>) override {}
    void Arc(const platform::PenSpec&, const RECT&, POINT, POINT) override {}
    void Fill(const RECT&, COLORREF) override {}
    void Text(const platform::TextSpec&) override {}
    void Image(const RECT&, const platform::PixelImage&) override {}
    void Erase(const RECT&) override {}
};

}  // namespace testing_support
