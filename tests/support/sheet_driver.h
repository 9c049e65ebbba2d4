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
#include <mutex>
#include <thread>
#include <vector>

#include "driver_dev_mode.h"
#include "module.h"
#include "tests/support/idle_desktop.h"
#include "tests/support/machine.h"
#include "tests/support/trace_text.h"

namespace testing_support {

namespace user = platform::user;

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
class SteppedDesktop : public IdleDesktop {
  public:
    void Run(HWND top) override;
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

    SteppedDesktop& Desktop() { return *desktop_; }
    TraceLines& Trace() { return *trace_; }
    HMODULE Module() const { return ResourceHandle; }  // the library, where the resources are

  private:
    std::shared_ptr<SteppedDesktop> desktop_ = std::make_shared<SteppedDesktop>();
    std::shared_ptr<TraceLines> trace_ = std::make_shared<TraceLines>();
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
    Sheet& Click(int control) { return On("click", control, user::Click); }
    Sheet& Choose(int control, int row) { return On("choose", control, user::Pick, row); }
    Sheet& Choose(int control, std::u16string_view text);
    Sheet& Type(int control, std::u16string_view text) { return On("type", control, user::Type, text); }
    Sheet& Append(int control, std::u16string_view text) { return On("append to", control, user::Append, text); }
    Sheet& Paste(int control, std::u16string_view text) { return On("paste into", control, user::Paste, text); }
    Sheet& Spin(int upDown, bool up, int times = 1);
    Sheet& Row(int listView, int row) { return On("row of", listView, user::SelectRow, row); }
    Sheet& Focus(int control) { return On("focus", control, user::Focus); }
    Sheet& HelpOn(int control) { return On("help on", control, user::ContextHelp); }
    Sheet& Press(user::Key key);
    Sheet& CloseDialog();  // the close box of the dialog on top
    Sheet& Apply() { return PressButton(user::SheetButton::Apply); }
    Sheet& PressHelp() { return PressButton(user::SheetButton::Help); }
    DriverDevMode Ok() { return End(user::SheetButton::Ok); }          // the published record
    DriverDevMode Cancel() { return End(user::SheetButton::Cancel); }  // what an earlier Apply has published, or zeros
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam);          // to the page's procedure, and what it returns
    LRESULT Notice(int control, int code);                             // as if the control had sent it
    user::Outcome Try(std::function<user::Outcome(HWND page)> action);

    // What the page and the sheet show.
    std::vector<std::u16string> Items(int list) { return OfAll(list, &user::ListState::items, &user::ListItem::text); }
    std::vector<LPARAM> ItemData(int list) { return OfAll(list, &user::ListState::items, &user::ListItem::data); }
    int Selection(int control) { return Of(control, &user::ListState::selection, -1); }
    bool Enabled(int control) { return Of(control, &user::Window::enabled); }
    bool Checked(int control) { return Of(control, &user::ButtonState::check) != 0; }
    bool HasFocus(int control) { return Of(0, &user::DialogState::focus) == Handle(control); }
    // The letters of those that can be used.
    std::string Usable(std::initializer_list<std::pair<char, int>> controls)
    {
        std::string usable;
        for (const auto& [letter, control] : controls)
            if (Enabled(control)) usable += letter;
        return usable;
    }
    std::u16string Text(int control) { return Of(control, &user::Window::text); }
    HWND Handle(int control) { return Of(control, &user::Window::handle); }
    std::vector<std::vector<std::u16string>> Rows(int listView)
    {
        return OfAll(listView, &user::ListViewState::rows, &user::ListViewState::Row::cells);
    }
    int SelectedRow(int listView);                                        // -1: none
    int Template() { return Of(0, &user::DialogState::templateNumber); }  // of the page or dialog on top
    int Changes();                                                        // words that an option has changed

    DriverDevMode Settings();  // the record that the pages edit
    // Changes that record behind the pages' backs, as another page does.
    Sheet& Change(const Prepare& change);
    DriverDevMode Published() const { return published_; }
    std::vector<std::string> Drawn();  // calls since the last question
    const std::vector<HelpSeen>& HelpSeenSoFar() { return machine_.Desktop().helpSeen; }
    TestMachine& Machine() { return machine_; }

  private:
    void Run(const Prepare& prepare);
    void Step(std::function<void(HWND sheet, HWND page)> step);
    Sheet& Act(const std::string& what, std::function<user::Outcome(HWND sheet, HWND page)> action);
    // A step of the user on a control.
    template <class Action, class... Arguments>
    Sheet& On(const char* verb, int control, Action action, Arguments... arguments)
    {
        return Act(verb + std::string(" ") + std::to_string(control),
                   [=](HWND, HWND page) { return action(user::Control(page, control), arguments...); });
    }
    // What a control (0: the page) holds itself, or in the state of its kind; the other value without such a one.
    template <class State, class Value>
    Value Of(int control, Value State::*member, Value otherwise = {})
    {
        Step([&](HWND, HWND page) {
            const user::Window* window = user::Find(control != 0 ? user::Control(page, control) : page);
            const State* state = nullptr;
            if constexpr (std::is_same_v<State, user::Window>)
                state = window;
            else
                state = window ? window->As<State>() : nullptr;
            if (state) otherwise = state->*member;
        });
        return otherwise;
    }
    // The same of all its rows.
    template <class State, class Row, class Value>
    std::vector<Value> OfAll(int control, std::vector<Row> State::*rows, Value Row::*member)
    {
        std::vector<Value> values;
        for (const Row& row : Of(control, rows)) values.push_back(row.*member);
        return values;
    }
    Sheet& PressButton(user::SheetButton button);
    DriverDevMode End(user::SheetButton button);

    TestMachine machine_;
    DriverDevMode published_{};
    std::thread thread_;
};

}  // namespace testing_support
