// A dialog with one picture and the frame about it, of any size, and what is drawn on the picture as one line of
// text a shape: coordinates as the module gives them, with the pen, brush, font and colour that were in force.
// Where mapping or clip have changed, a line ahead of the shape says so:
//
//     box 11,0,119,154 null ffffff
//     map 2480,-3507 to 106,-150 at 12,1
//     text 205,50 "1" in 50,50,2409,3436 Times New Roman -1613/400 000000
//     box 50,50,2429,3456 dot1:000000 none
//
// Fonts are the built-in ones: n characters at height h are n * (h / 2) wide and h * 9 / 8 high.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "driver_dev_mode.h"
#include "platform/seams/trace.h"
#include "resources/control_numbers.h"
#include "tests/support/sheet_driver.h"

namespace platform::gdi {
struct Context;
}

namespace preview_test {

using Lines = std::vector<std::string>;

// A page of A4 at 300 dots per inch, 2480 by 3507, with a margin of 50 on each side; and fields that differ, as in
// "dmNupOn=1 dmNupCount=4".
DriverDevMode A4(const std::string& fields = {});
// The same with the watermark DRAFT, 72 points, of shading 20.
DriverDevMode Marked(const std::string& fields = {});

class DrawingLog : public platform::TraceSink {
  public:
    void Call(const platform::TraceCall& call) override;

    std::map<int, Lines> drawn;  // by control

  private:
    struct Opened {
        std::vector<std::uintptr_t> fresh, now;  // states
        std::string mapped = "map pixels", clipped = "clip none";
        POINT position{};
        std::optional<SIZE> window, viewport;  // as they were asked for
    };
    void Shape(const platform::TraceCall& call, const platform::gdi::Context& context, Opened& opened);
    std::map<std::int64_t, Opened> open_;
};

class Preview {
  public:
    explicit Preview(int width = 131, int height = 154, int picture = IDC_QUALITY_PREVIEW,
                     std::shared_ptr<platform::Surface> surface = nullptr);
    ~Preview();  // expects all contexts back, as they came, and no object alive
    Preview(const Preview&) = delete;
    Preview& operator=(const Preview&) = delete;

    // What a painting draws on the picture.
    Lines Draw(const DriverDevMode& record);
    // Only what begins with one of these words.
    Lines Draw(const DriverDevMode& record, const std::vector<std::string>& words);
    // What the last painting has drawn on the frame.
    Lines Frame() const;

    testing_support::TestMachine& Machine() { return machine_; }

  private:
    testing_support::TestMachine machine_;
    int picture_;
    HWND dialog_;
    std::shared_ptr<DrawingLog> log_;
};

}  // namespace preview_test
