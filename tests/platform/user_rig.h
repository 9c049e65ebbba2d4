// A dialog that a test builds in memory and drives as a user does, without a window system. What the dialog
// procedure is told stands in the rig's log, one short line a message:
//
//     "change 10", "killfocus 10", "click 1", "pick 12", "command 2" (without a control), "on 13:2", "off 13:0",
//     "paint", "draw 20", "help 10", "destroy", "init"
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/user/windows.h"
#include "tests/platform/gdi_fixture.h"
#include "tests/platform/quiet_desktop.h"

namespace user_tests {

using namespace platform::user;

class RigDesktop : public testing_support::QuietDesktop {
  public:
    void Run(HWND top) override;  // takes the next of runs; without one it gives up
    std::shared_ptr<platform::Surface> MakePicture(HWND, int, int) override { return picture; }
    void Beep(UINT style) override { beeps.push_back(style); }

    std::vector<std::function<void(HWND top)>> runs;
    std::vector<UINT> beeps;
    std::shared_ptr<gdi_test::SurfaceLog> picture = std::make_shared<gdi_test::SurfaceLog>();  // of every dialog
};

constexpr DWORD Shown = WS_CHILD | WS_VISIBLE;
constexpr DWORD Stop = Shown | WS_TABSTOP;
constexpr DWORD Gone = WS_CHILD | WS_TABSTOP;
constexpr DWORD Grey = Stop | WS_DISABLED;

ControlTemplate Make(std::u16string className, int id, DWORD style, std::u16string text = {});

class Rig {
  public:
    // Answers a message before it is logged; the result goes back to the sender.
    using Answer = std::function<INT_PTR(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)>;

    explicit Rig(std::vector<ControlTemplate> controls, Answer answer = {});
    ~Rig();
    Rig(const Rig&) = delete;
    Rig& operator=(const Rig&) = delete;

    // The dialog is up while the body runs; behind it the dialog is ended.
    void Up(const std::function<void()>& body);
    HWND operator[](int id) const { return Control(dialog, id); }
    std::vector<std::string> Log() { return std::exchange(log, {}); }
    static std::u16string Text(HWND window);

    RigDesktop* desktop;
    HWND dialog = nullptr;
    DialogTemplate layout;
    std::vector<std::string> log;
    Answer answer;
};

// The procedure of every dialog of a rig.
INT_PTR RigProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace user_tests
