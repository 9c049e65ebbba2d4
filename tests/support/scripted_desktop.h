// A desktop without windows whose user does what a function says, in the modal loop of each sheet or dialog
// and on the thread of the module. What is still open when the function returns is closed.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/seams/desktop.h"
#include "platform/seams/surface.h"
#include "platform/user.h"
#include "platform/user/actions.h"
#include "platform/user/window.h"

namespace testing_support {

class ScriptedDesktop : public platform::Desktop {
  public:
    explicit ScriptedDesktop(std::function<void(HWND top)> user) : user_(std::move(user)) {}
    void Opened(HWND) override {}
    void Closed(HWND) override {}
    void Run(HWND top) override
    {
        user_(top);
        if (!platform::user::Ended(top)) platform::user::Close(top);
    }
    void Changed(HWND) override {}
    std::shared_ptr<platform::Surface> MakePicture(HWND, int, int) override
    {
        return std::make_shared<platform::RecordingSurface>();
    }
    int MessageBox(const platform::MessageBoxRequest&) override { return IDOK; }
    std::optional<std::u16string> PickFile(const platform::FileDialogRequest&) override { return std::nullopt; }
    void Help(const platform::HelpRequest&) override {}
    void Beep(UINT) override {}

  private:
    std::function<void(HWND top)> user_;
};

// Shows the page of that title.
inline bool ShowPage(HWND sheet, std::u16string_view title)
{
    const auto* window = platform::user::Find(sheet);
    const auto* state = window ? window->As<platform::user::SheetState>() : nullptr;
    for (std::size_t k = 0; state && k < state->pages.size(); ++k) {
        if (state->pages[k].title == title) {
            return platform::user::ShowPage(sheet, static_cast<int>(k)) == platform::user::Outcome::Done;
        }
    }
    return false;
}

}  // namespace testing_support
