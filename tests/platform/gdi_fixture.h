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
#include "platform/kernel.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/environment.h"
#include "platform/seams/fonts.h"
#include "platform/seams/surface.h"
#include "platform/seams/trace.h"
#include "platform/user.h"
#include "platform/user/windows.h"

namespace gdi_test {

using Lines = std::vector<std::string>;

inline std::string Hex(COLORREF color)
{
    constexpr char Digits[] = "0123456789abcdef";
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4) text += Digits[color >> shift & 15];
    return text;
}

// "rectangle 1,2,11,12 pen 0/1/000000 brush ffffff", one line a call.
class SurfaceLog : public platform::Surface {
  public:
    void SetClip(const std::optional<RECT>& clip) override { Add("clip " + (clip ? Text(*clip) : "none")); }
    void Line(const platform::PenSpec& pen, POINT from, POINT to) override
    {
        Add("line " + Text(from) + " to " + Text(to) + Text(pen));
    }
    void Rectangle(const platform::PenSpec& pen, const platform::BrushSpec& brush, const RECT& box) override
    {
        Add("rectangle " + Text(box) + Text(pen) + Text(brush));
    }
    void Polygon(const platform::PenSpec& pen, const platform::BrushSpec& brush, std::span<const POINT> points) override
    {
        std::string corners;
        for (const POINT& point : points) corners += " " + Text(point);
        Add("polygon" + corners + Text(pen) + Text(brush));
    }
    void Arc(const platform::PenSpec& pen, const RECT& box, POINT start, POINT end) override
    {
        Add("arc " + Text(box) + " from " + Text(start) + " to " + Text(end) + Text(pen));
    }
    void Fill(const RECT& box, COLORREF color) override { Add("fill " + Text(box) + " " + Hex(color)); }
    void Text(const platform::TextSpec& text) override
    {
        Add("text " + Text(text.origin) + " \"" + platform::ToUtf8(text.text) + "\" height " +
            std::to_string(text.font.lfHeight) + " color " + Hex(text.color) +
            (text.background ? " on " + Hex(*text.background) : "") + (text.clip ? " within " + Text(*text.clip) : ""));
    }
    void Image(const RECT& target, const platform::PixelImage& image) override
    {
        std::string pixels;
        for (const std::uint32_t pixel : image.pixels) pixels += pixel >> 24 ? " " + Hex(pixel) : " -";
        Add("image " + Text(target) + " of " + std::to_string(image.width) + "x" + std::to_string(image.height) +
            (image.pixels.size() <= 16 ? pixels : ""));
    }
    void Erase(const RECT& box) override { Add("erase " + Text(box)); }

    Lines Take() { return std::exchange(lines_, {}); }

  private:
    static std::string Text(POINT point) { return std::to_string(point.x) + "," + std::to_string(point.y); }
    static std::string Text(const RECT& box)
    {
        return Text(POINT{box.left, box.top}) + "," + Text(POINT{box.right, box.bottom});
    }
    static std::string Text(const platform::PenSpec& pen)
    {
        return " pen " + std::to_string(pen.style) + "/" + std::to_string(pen.width) + "/" + Hex(pen.color);
    }
    static std::string Text(const platform::BrushSpec& brush) { return " brush " + (brush ? Hex(*brush) : "none"); }
    void Add(std::string line) { lines_.push_back(std::move(line)); }
    Lines lines_;
};

// "dc on 7: Rectangle [4,4,120,156] = 1"; the numbers of contexts are left out.
class TraceLog : public platform::TraceSink {
  public:
    void Call(const platform::TraceCall& call) override;
    Lines Take() { return std::exchange(lines_, {}); }

  private:
    Lines lines_;
};

std::string Text(const platform::TraceValue& value);

class Drawing : public testing::Test {
  protected:
    Drawing();
    ~Drawing() override;

    // A job at 600 dots per inch whose drawing goes to page.
    HDC Job(platform::gdi::EscapeTarget* escapes = nullptr);

    std::shared_ptr<SurfaceLog> picture = std::make_shared<SurfaceLog>();  // of the dialog
    std::shared_ptr<SurfaceLog> page = std::make_shared<SurfaceLog>();
    std::shared_ptr<TraceLog> trace = std::make_shared<TraceLog>();  // listens only where a test plugs it in
    HWND dialog = nullptr, control = nullptr;

    static constexpr int ControlNumber = 7;

  private:
    std::size_t contexts_, objects_;
};

}  // namespace gdi_test
