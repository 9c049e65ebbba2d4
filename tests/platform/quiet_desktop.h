// A desktop that shows nothing and leaves what a test cares about to the test.
#pragma once

#include <vector>

#include "platform/seams/environment.h"
#include "tests/support/idle_desktop.h"

namespace testing_support {

class QuietDesktop : public IdleDesktop {
  public:
    std::function<void()> opened;
    std::function<void(HWND top)> run;  // what the user does while a dialog or sheet is up
    std::function<std::optional<std::u16string>(const platform::FileDialogRequest&)> pick;
    int answer = IDCANCEL;  // to message boxes that have a choice
    std::vector<platform::MessageBoxRequest> boxes;

    void Opened(HWND) override
    {
        if (opened) opened();
    }
    void Run(HWND top) override
    {
        if (run) run(top);
    }
    int MessageBox(const platform::MessageBoxRequest& request) override
    {
        boxes.push_back(request);
        return (request.style & 0x0F) == MB_OK ? IDOK : answer;
    }
    std::optional<std::u16string> PickFile(const platform::FileDialogRequest& request) override
    {
        return pick ? pick(request) : std::nullopt;
    }
};

// Plugs one in for as long as it lives.
class QuietDesktopPlugged {
  public:
    QuietDesktopPlugged() { platform::CurrentEnvironment().desktop = desktop_; }
    ~QuietDesktopPlugged() { platform::CurrentEnvironment().desktop.reset(); }
    QuietDesktopPlugged(const QuietDesktopPlugged&) = delete;
    QuietDesktopPlugged& operator=(const QuietDesktopPlugged&) = delete;
    QuietDesktop* operator->() const { return desktop_.get(); }

  private:
    std::shared_ptr<QuietDesktop> desktop_ = std::make_shared<QuietDesktop>();
};

}  // namespace testing_support
