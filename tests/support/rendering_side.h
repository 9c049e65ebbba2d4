// What stands behind a job's context in tests: a rendering side that keeps the escapes that it gets, and
// a page that keeps the texts that are drawn on it. Both write one log, in the order in which things come:
//
//     "20736 in 20", "5001 out 1848", "mark 2829625512", "text COPY at 900,1450"
#pragma once

#include <gmock/gmock.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "driver_dev_mode.h"
#include "platform/gdi/context.h"
#include "platform/gdi/job.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/environment.h"
#include "platform/seams/surface.h"

namespace testing_support {

using Log = std::vector<std::string>;

class Page : public platform::RecordingSurface {
  public:
    explicit Page(Log& log) : log_(log) {}
    void Text(const platform::TextSpec& text) override
    {
        log_.push_back("text " + platform::ToUtf8(text.text) + " at " + std::to_string(text.origin.x) + "," +
                       std::to_string(text.origin.y));
    }

  private:
    Log& log_;
};

class RenderingSide : public platform::gdi::EscapeTarget {
  public:
    RenderingSide() { job = platform::gdi::CreateJobContext({}, std::make_shared<Page>(log), this); }
    ~RenderingSide() override
    {
        platform::gdi::DeleteJobContext(job);
        if (!leavesNothing) return;
        EXPECT_EQ(platform::gdi::ObjectCount(), 0u);
        EXPECT_EQ(platform::gdi::ContextCount(), 0u);
    }
    RenderingSide(const RenderingSide&) = delete;
    RenderingSide& operator=(const RenderingSide&) = delete;

    int Escape(int code, std::span<const std::uint8_t> input, std::span<std::uint8_t> output) override
    {
        std::string line = std::to_string(code);
        if (static_cast<unsigned>(code) == 0xA8A8A8A8 && input.size() == 4) {
            DWORD mark = 0;
            std::memcpy(&mark, input.data(), sizeof mark);
            line = "mark " + std::to_string(mark);
        } else {
            inputs.emplace_back(input.begin(), input.end());
            if (!input.empty()) line += " in " + std::to_string(input.size());
        }
        if (!output.empty()) line += " out " + std::to_string(output.size());
        log.push_back(line);
        if (code == 5001 && answer >= 0) std::memcpy(output.data(), &held, std::min(output.size(), sizeof held));
        return answer;
    }
    Log Take() { return std::exchange(log, {}); }

    Log log;
    std::vector<std::string> inputs;  // of all escapes but the marks
    DriverDevMode held{};             // what the rendering side tells of the settings
    int answer = 1;
    bool leavesNothing = true;  // checked at the end
    HDC job = nullptr;
};

// All that a context's drawing goes by but the position of its pen, as numbers.
inline std::vector<std::uintptr_t> StateOf(HDC handle)
{
    const platform::gdi::Context& c = *platform::gdi::PeekContext(handle);
    const auto number = [](auto value) { return static_cast<std::uintptr_t>(value); };
    const auto address = [](const void* value) { return reinterpret_cast<std::uintptr_t>(value); };
    const POINT window = c.mapping.WindowOrigin(), viewport = c.mapping.ViewportOrigin();
    const SIZE windowExtent = c.mapping.WindowExtent(), viewportExtent = c.mapping.ViewportExtent();
    const RECT clip = c.clip.value_or(RECT{});
    return {address(c.pen.get()),      address(c.brush.get()),     address(c.font.get()),   number(c.textColor),
            number(c.backgroundColor), number(c.backgroundMode),   number(c.rasterMode),    number(c.textAlign),
            number(c.mapping.Mode()),  number(window.x),           number(window.y),        number(viewport.x),
            number(viewport.y),        number(windowExtent.cx),    number(windowExtent.cy), number(viewportExtent.cx),
            number(viewportExtent.cy), number(c.clip.has_value()), number(clip.left),       number(clip.top),
            number(clip.right),        number(clip.bottom)};
}

}  // namespace testing_support
