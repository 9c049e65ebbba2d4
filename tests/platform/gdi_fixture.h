// What the tests of drawing share: a surface and a trace that tell what they get in text, and a dialog (100 by
// 80 pixels) with one control, number 7, that takes the part from 10, 20 to 60, 50.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/gdi/job.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/surface.h"
#include "platform/user.h"
#include "platform/user/windows.h"
#include "tests/platform/fresh_environment.h"
#include "tests/support/trace_text.h"

namespace gdi_test {

using platform::Refusal;
using testing_support::TraceLines;
using Lines = std::vector<std::string>;

std::string Hex(COLORREF color);  // "00ff00"

// "rectangle 1,2,11,12 pen 0/1/000000 brush ffffff", one line a call: pens by style, width and colour.
class SurfaceLog : public platform::Surface {
  public:
    void SetClip(const std::optional<RECT>& clip) override;
    void Line(const platform::PenSpec& pen, POINT from, POINT to) override;
    void Rectangle(const platform::PenSpec& pen, const platform::BrushSpec& brush, const RECT& box) override;
    void Polygon(const platform::PenSpec& pen, const platform::BrushSpec& brush,
                 std::span<const POINT> points) override;
    void Arc(const platform::PenSpec& pen, const RECT& box, POINT start, POINT end) override;
    void Fill(const RECT& box, COLORREF color) override;
    void Text(const platform::TextSpec& text) override;
    void Image(const RECT& target, const platform::PixelImage& image) override;
    void Erase(const RECT& box) override;

    Lines Take() { return std::exchange(lines_, {}); }

  private:
    template <class... Parts>
    void Add(const Parts&... parts);
    Lines lines_;
};

class Drawing : public platform::FreshEnvironment {
  protected:
    Drawing();
    ~Drawing() override;

    // A job at 600 dots per inch whose drawing goes to page; like all that is made with these, it goes with the test.
    HDC Job(platform::gdi::EscapeTarget* escapes = nullptr);
    HDC Context(HWND window);
    HDC Memory(int width, int height, UINT bits, const void* pixels = nullptr);  // with a bitmap of its own
    template <class Object>
    Object Own(Object object)
    {
        owned_.push_back(object);
        return object;
    }

    std::shared_ptr<SurfaceLog> picture = std::make_shared<SurfaceLog>();  // of the dialog
    std::shared_ptr<SurfaceLog> page = std::make_shared<SurfaceLog>();
    // Listens only where a test plugs it in.
    std::shared_ptr<TraceLines> trace = std::make_shared<TraceLines>(true);
    HWND dialog = nullptr, control = nullptr;

    static constexpr int ControlNumber = 7;

  private:
    std::size_t contexts_, objects_;
    std::vector<HDC> jobs_, memories_;
    std::vector<std::pair<HWND, HDC>> taken_;
    std::vector<HGDIOBJ> owned_;
};

}  // namespace gdi_test
