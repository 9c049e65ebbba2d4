// Desktops that show nothing and whose pictures keep nothing, for tests that look at neither.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/seams/desktop.h"
#include "platform/seams/surface.h"
#include "platform/user.h"
#include "platform/user/actions.h"
#include "platform/user/window.h"

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

// Whose user says OK to every box and does nothing else.
class IdleDesktop : public platform::Desktop {
  public:
    void Opened(HWND) override {}
    void Closed(HWND) override {}
    void Run(HWND) override {}
    void Changed(HWND) override {}
    std::shared_ptr<platform::Surface> MakePicture(HWND, int, int) override { return std::make_shared<BlankSurface>(); }
    int MessageBox(const platform::MessageBoxRequest&) override { return IDOK; }
    std::optional<std::u16string> PickFile(const platform::FileDialogRequest&) override { return std::nullopt; }
    void Help(const platform::HelpRequest&) override {}
    void Beep(UINT) override {}
};

// Whose user does what a function says, in the modal loop of each sheet or dialog and on the thread of the module.
// What is still open when the function returns is closed.
class ScriptedDesktop : public IdleDesktop {
  public:
    explicit ScriptedDesktop(std::function<void(HWND top)> user) : user_(std::move(user)) {}
    void Run(HWND top) override
    {
        user_(top);
        if (!platform::user::Ended(top)) platform::user::Close(top);
    }

  private:
    std::function<void(HWND top)> user_;
};

// Shows the page of that title.
inline platform::user::Outcome ShowPage(HWND sheet, std::u16string_view title)
{
    const auto* window = platform::user::Find(sheet);
    const auto* state = window ? window->As<platform::user::SheetState>() : nullptr;
    for (std::size_t k = 0; state && k < state->pages.size(); ++k)
        if (state->pages[k].title == title) return platform::user::ShowPage(sheet, static_cast<int>(k));
    return platform::user::Outcome::NoRow;
}

}  // namespace testing_support
