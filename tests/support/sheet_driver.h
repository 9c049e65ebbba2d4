// The document sheet as a user drives it, without windows. The sheet runs on a thread of its own, as the
// entry that shows it returns only at its end; each step of a test is handed to that thread and waited for.
// A step that a user could not take (a disabled control, a missing row) is a failure of the test. While a
// modal dialog is up, steps and questions go to it.
//
//     Sheet sheet([](DriverDevMode& record) { record.dmTonerSave = 1; });
//     sheet.Page(u"Quality").Click(IDC_TONER_SAVE_OFF);
//     EXPECT_EQ(sheet.Ok().dmTonerSave, 0);
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "driver_dev_mode.h"
#include "platform/seams/desktop.h"
#include "platform/seams/surface.h"
#include "platform/user/actions.h"
#include "tests/support/machine.h"
#include "tests/support/trace_text.h"

namespace testing_support {

inline constexpr WCHAR TestPrinter[] = u"Ordana Quillet 4820E";
// A tab of the driver's own before the module's pages, so that no page of the module is the first, and to
// have somewhere to go when a page is to be left.
inline constexpr WCHAR ElsewherePage[] = u"Elsewhere";

// What was asked of the help service.
struct HelpSeen {
    int control = 0;  // 0 for a dialog itself
    std::u16string file;
    UINT command = 0;
    DWORD context = 0;
    bool operator==(const HelpSeen&) const = default;
};

// Works off steps from another thread.
class SteppedDesktop : public platform::Desktop {
  public:
    void Opened(HWND) override {}
    void Closed(HWND) override {}
    void Run(HWND top) override;
    void Changed(HWND) override {}
    std::shared_ptr<platform::Surface> MakePicture(HWND, int, int) override;
    int MessageBox(const platform::MessageBoxRequest& request) override;
    // Offers the answers in their turn until one is accepted; without one the dialog is cancelled.
    std::optional<std::u16string> PickFile(const platform::FileDialogRequest& request) override;
    void Help(const platform::HelpRequest& request) override;
    void Beep(UINT) override { ++beeps; }

    // Runs the step on the thread of the dialogs and waits until that thread wants the next one. False if
    // nothing is up any more.
    bool Do(std::function<void()> step);
    // To be called by the dialogs' thread when it is done.
    void Finish();
    void WaitForFinish();

    // Read these between steps.
    std::vector<HelpSeen> helpSeen;
    std::vector<std::u16string> messagesSeen;
    std::vector<platform::MessageBoxRequest> boxesSeen;
    std::vector<platform::FileDialogRequest> filesAsked;
    int beeps = 0;
    // Set these between steps: what the user says to the next boxes and file dialogs. A box without an answer
    // gets OK.
    std::deque<int> boxAnswers;
    std::deque<std::u16string> fileAnswers;

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::function<void()> step_;
    bool waiting_ = false;   // a modal loop wants a step
    bool finished_ = false;  // the sheet has ended
};

// The machine of the sheet: with the model's printer, a desktop, a trace and the module's resources.
class TestMachine : public Machine {
  public:
    explicit TestMachine(const platform::FixedFactValues& facts = {});
    ~TestMachine();

    SteppedDesktop& Desktop() { return *desktop_; }
    TraceLines& Trace() { return *trace_; }
    HMODULE Module() const;  // the library, where the resources are

  private:
    std::shared_ptr<SteppedDesktop> desktop_;
    std::shared_ptr<TraceLines> trace_;
};

class Sheet {
  public:
    // The record is the model's default, changed by prepare before any page sees it and after everything
    // that would put it right.
    using Prepare = std::function<void(DriverDevMode& record)>;
    // Runs before the sheet opens, to put stored values in their place.
    using Furnish = std::function<void(TestMachine& machine)>;
    explicit Sheet(Prepare prepare = {}, const Furnish& furnish = {}, const platform::FixedFactValues& facts = {});
    ~Sheet();  // cancels a sheet that is still up
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    // Steps.
    Sheet& Page(std::u16string_view title);
    Sheet& Click(int control);
    Sheet& Choose(int control, int row);
    Sheet& Choose(int control, std::u16string_view text);
    Sheet& Type(int control, std::u16string_view text);
    Sheet& Append(int control, std::u16string_view text);
    Sheet& Paste(int control, std::u16string_view text);
    Sheet& Spin(int upDown, bool up, int times = 1);
    Sheet& Row(int listView, int row);
    Sheet& Focus(int control);
    Sheet& Press(platform::user::Key key);
    Sheet& CloseDialog();  // the close box of the dialog on top
    Sheet& Apply();
    Sheet& PressHelp();
    Sheet& HelpOn(int control);
    DriverDevMode Ok();                                        // the published record
    DriverDevMode Cancel();                                    // what an earlier Apply has published; zeros if none did
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam);  // to the page's procedure, and what it returns
    LRESULT Notice(int control, int code);                     // as if the control had sent it
    platform::user::Outcome Try(std::function<platform::user::Outcome(HWND page)> action);

    // What the page and the sheet show.
    std::vector<std::u16string> Items(int control);
    std::vector<LPARAM> ItemData(int control);
    int Selection(int control);
    bool Enabled(int control);
    bool Checked(int control);
    std::u16string Text(int control);
    HWND Handle(int control);
    std::vector<std::vector<std::u16string>> Rows(int listView);
    int SelectedRow(int listView);  // -1: none
    int Template();                 // of the page or dialog on top
    int Changes();                  // words that an option has changed

    DriverDevMode Settings();  // the record that the pages edit
    // Changes that record behind the pages' backs, as another page does.
    Sheet& Change(const Prepare& change);
    DriverDevMode Published() const { return published_; }
    std::vector<std::string> Drawn();  // calls since the last question
    std::vector<DWORD> HelpContexts()  // all that have been asked for
    {
        std::vector<DWORD> contexts;
        for (const HelpSeen& seen : HelpSeenSoFar()) contexts.push_back(seen.context);
        return contexts;
    }
    const std::vector<HelpSeen>& HelpSeenSoFar() { return machine_.Desktop().helpSeen; }
    TestMachine& Machine() { return machine_; }

  private:
    void Run(const Prepare& prepare);
    void Step(std::function<void(HWND sheet, HWND page)> step);
    void Act(const std::string& what, std::function<platform::user::Outcome(HWND sheet, HWND page)> action);
    // A step of the user on a control.
    template <class Action>
    Sheet& On(const char* verb, int control, Action action);
    // What is read of a window that has such a state, else the other value.
    template <class State, class Value, class Read>
    Value Of(std::function<HWND(HWND page)> place, Value otherwise, Read read);
    template <class State, class Value, class Read>
    Value Of(int control, Value otherwise, Read read);
    Sheet& PressButton(platform::user::SheetButton button);
    DriverDevMode End(platform::user::SheetButton button);

    TestMachine machine_;
    DriverDevMode published_{};
    std::thread thread_;
};

}  // namespace testing_support
