// The desktop that a script drives: plays the steps on whatever dialog is on top, answers boxes and file
// dialogs from the lines behind the step that brought them up, and tells what happens as JSON.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/json.h"
#include "host/script.h"
#include "platform/seams/desktop.h"
#include "platform/user/actions.h"

namespace host {

// What the script needs from around it. Any of them may throw; the script then stops, and Trouble says why.
struct ScriptLinks {
    std::function<void(const Json& line)> print;
    std::function<Json()> record;                                     // what the sheet last published, or null
    std::function<void(HWND top, const std::string& file)> snapshot;  // a PNG of the dialog
};

class ScriptDesktop : public platform::Desktop {
  public:
    // strict: the first refused step stops the script.
    ScriptDesktop(std::vector<Step> steps, ScriptLinks links, bool strict);

    // The steps that are left when the last dialog has gone.
    void PlayRest();
    // Why the script has stopped before its end; empty: it has not. Every dialog is cancelled then.
    const std::string& Trouble() const { return trouble_; }

    void Opened(HWND) override {}
    void Closed(HWND) override {}
    void Run(HWND top) override;
    void Changed(HWND) override {}
    std::shared_ptr<platform::Surface> MakePicture(HWND dialog, int width, int height) override;
    int MessageBox(const platform::MessageBoxRequest& request) override;
    std::optional<std::u16string> PickFile(const platform::FileDialogRequest& request) override;
    void Help(const platform::HelpRequest& request) override;
    void Beep(UINT style) override;

  private:
    void Play(const Step& step);
    platform::user::Outcome Do(const Step& step);
    platform::user::Outcome DoOnControl(const Step& step);
    void Refuse(const Step& step, platform::user::Outcome outcome);
    // The next step if it is of this kind: it belongs to what has just come up.
    const Step* TakeNext(StepKind kind);
    void Print(const char* name, Json content);
    void Guarded(const std::function<void()>& work);
    bool Stopped() const { return !trouble_.empty(); }

    std::vector<Step> steps_;
    ScriptLinks links_;
    bool strict_;
    std::size_t next_ = 0;
    std::string trouble_;
};

}  // namespace host
