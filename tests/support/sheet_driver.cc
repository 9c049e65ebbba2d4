#include "tests/support/sheet_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "module.h"
#include "platform/kernel/modules.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/environment.h"
#include "platform/seams/fonts.h"
#include "platform/seams/system_facts.h"
#include "platform/services/sheet_service.h"
#include "platform/spooler/printers.h"
#include "platform/user/window.h"
#include "resources/control_numbers.h"
#include "settings/options.h"
#include "spooler/document_sheet.h"

namespace testing_support {

namespace {

namespace user = platform::user;
using user::Outcome;

INT_PTR ElsewhereProcedure(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

const char* OutcomeText(Outcome outcome)
{
    switch (outcome) {
        case Outcome::Done:
            return "done";
        case Outcome::Absent:
            return "absent";
        case Outcome::Hidden:
            return "hidden";
        case Outcome::Disabled:
            return "disabled";
        case Outcome::Unsuited:
            return "of another kind";
        case Outcome::NoRow:
            return "without such a row";
        case Outcome::ReadOnly:
            return "read-only";
    }
    return "?";
}

// The caller's header, and what the driver needs beside it where only the header is passed on.
struct SheetCall {
    DOCUMENTPROPERTYHEADER header;
    const Sheet::Prepare* prepare;
};

LONG RunDocumentSheet(PROPSHEETUI_INFO* info, LPARAM lParam)
{
    const bool starts = info->Reason == PROPSHEETUI_REASON_INIT;
    if (starts) {
        PROPSHEETPAGEW page{};
        page.dwSize = sizeof page;
        page.dwFlags = PSP_USETITLE;
        page.hInstance = ModuleHandle;
        page.pszTemplate = ResourceName(IDD_QUALITY);
        page.pszTitle = ElsewherePage;
        page.pfnDlgProc = ElsewhereProcedure;
        info->pfnComPropSheet(info->hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW, reinterpret_cast<LPARAM>(&page), 0);
    }
    const LONG result = DrvDocumentPropertySheets(info, lParam);
    const SheetCall* call = reinterpret_cast<SheetCall*>(info->lParamInit);
    if (starts && result > 0 && *call->prepare) (*call->prepare)(*CurrentSettings);
    return result;
}

// The window itself or what is its kind's own; null without it.
template <class State>
const State* StateOf(HWND handle)
{
    const user::Window* window = user::Find(handle);
    if constexpr (std::is_same_v<State, user::Window>)
        return window;
    else
        return window ? window->As<State>() : nullptr;
}

}  // namespace

void SteppedDesktop::Run(HWND top)
{
    std::unique_lock lock(mutex_);
    while (!user::Ended(top)) {
        waiting_ = true;
        changed_.notify_all();
        changed_.wait(lock, [&] { return step_ != nullptr; });
        const auto step = std::exchange(step_, nullptr);
        lock.unlock();
        step();
        lock.lock();
    }
}

bool SteppedDesktop::Do(std::function<void()> step)
{
    std::unique_lock lock(mutex_);
    const auto ready = [&] { return waiting_ || finished_; };
    changed_.wait(lock, ready);
    if (finished_) return false;
    step_ = std::move(step);
    waiting_ = false;
    changed_.notify_all();
    changed_.wait(lock, ready);
    return true;
}

void SteppedDesktop::Finish()
{
    const std::lock_guard lock(mutex_);
    finished_ = true;
    changed_.notify_all();
}

void SteppedDesktop::WaitForFinish()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return finished_; });
}

std::shared_ptr<platform::Surface> SteppedDesktop::MakePicture(HWND, int, int)
{
    return std::make_shared<platform::RecordingSurface>();
}

int SteppedDesktop::MessageBox(const platform::MessageBoxRequest& request)
{
    messagesSeen.push_back(request.text);
    boxesSeen.push_back(request);
    if (boxAnswers.empty()) return IDOK;
    const int answer = boxAnswers.front();
    boxAnswers.pop_front();
    return answer;
}

std::optional<std::u16string> SteppedDesktop::PickFile(const platform::FileDialogRequest& request)
{
    filesAsked.push_back(request);
    while (!fileAnswers.empty()) {
        const std::u16string path = fileAnswers.front();
        fileAnswers.pop_front();
        if (!request.accept || request.accept(path)) return path;
    }
    return std::nullopt;
}

void SteppedDesktop::Help(const platform::HelpRequest& request)
{
    const user::Window* window = user::Find(request.window);
    const bool dialog = !window || window->kind == user::Kind::Dialog;
    helpSeen.push_back({dialog ? 0 : window->id, request.file, request.command, request.context});
}

TestMachine::TestMachine(const platform::FixedFactValues& facts)
    : Machine(facts, {TestPrinter, TestPrinter}),
      desktop_(std::make_shared<SteppedDesktop>()),
      trace_(std::make_shared<TraceLines>())
{
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.fonts = platform::MakeBuiltinFonts();
    environment.desktop = desktop_;
    environment.trace = trace_;
    // The module's code is linked into the test, its resources are in the library.
    static const HMODULE module = [] {
        std::string why;
        const HMODULE loaded = platform::modules::Load(QD_MODULE_PATH, &why);
        if (!loaded) throw std::runtime_error("the module cannot be loaded: " + why);
        return loaded;
    }();
    ModuleHandle = ResourceHandle = module;
}

TestMachine::~TestMachine()
{
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.fonts = nullptr;
    environment.desktop = nullptr;
    environment.trace = nullptr;
}

HMODULE TestMachine::Module() const { return ResourceHandle; }

Sheet::Sheet(Prepare prepare, const Furnish& furnish, const platform::FixedFactValues& facts) : machine_(facts)
{
    if (furnish) furnish(machine_);
    thread_ = std::thread([this, prepare = std::move(prepare)] {
        Run(prepare);
        machine_.Desktop().Finish();
    });
    // Up, or failed to come up, once the first step is asked for.
    if (!machine_.Desktop().Do([] {})) ADD_FAILURE() << "the sheet does not come up";
}

Sheet::~Sheet()
{
    while (machine_.Desktop().Do([] { user::Close(user::TopWindow()); })) {}
    thread_.join();
}

void Sheet::Run(const Prepare& prepare)
{
    HANDLE printer = platform::spooler::Open(TestPrinter, 0);
    std::u16string name = TestPrinter;
    SheetCall call{};
    call.header.cbSize = sizeof call.header;
    call.header.hPrinter = printer;
    call.header.pszPrinterName = name.data();
    call.header.pdmOut = reinterpret_cast<DEVMODEW*>(&published_);
    call.header.cbOut = sizeof published_;
    call.header.fMode = DM_COPY | DM_PROMPT;
    call.prepare = &prepare;
    DWORD result = 0;
    // Only an owner that a test has named counts; most sheets have none.
    const bool owned = !platform::CurrentEnvironment().facts->OwnerModule().empty();
    const HWND owner = owned ? platform::services::MakeOwnerWindow() : nullptr;
    platform::services::RunCommonSheet(owner, RunDocumentSheet, reinterpret_cast<LPARAM>(&call.header), &result);
    if (owner) platform::services::DestroyOwnerWindow(owner);
    platform::spooler::Close(printer);
}

// The step outlives its caller if it brings up a modal dialog: it ends with that one.
void Sheet::Step(std::function<void(HWND sheet, HWND page)> step)
{
    const bool taken = machine_.Desktop().Do([step = std::move(step)] {
        const HWND sheet = user::TopWindow();
        step(sheet, user::DialogOf(sheet));
    });
    if (!taken) ADD_FAILURE() << "the sheet is not up any more";
}

void Sheet::Act(const std::string& what, std::function<Outcome(HWND sheet, HWND page)> action)
{
    // What has brought up a dialog is done, as far as its user is concerned.
    const auto outcome = std::make_shared<std::optional<Outcome>>();
    Step([outcome, action = std::move(action)](HWND sheet, HWND page) { *outcome = action(sheet, page); });
    EXPECT_EQ(OutcomeText(outcome->value_or(Outcome::Done)), std::string("done")) << what;
}

Outcome Sheet::Try(std::function<Outcome(HWND page)> action)
{
    const auto outcome = std::make_shared<Outcome>(Outcome::Done);
    Step([outcome, action = std::move(action)](HWND, HWND page) { *outcome = action(page); });
    return *outcome;
}

Sheet& Sheet::Page(std::u16string_view title)
{
    Act("page " + platform::ToUtf8(title), [=](HWND sheet, HWND) {
        const user::Window* window = user::Find(sheet);
        const auto* state = window ? window->As<user::SheetState>() : nullptr;
        for (int i = 0; state && i < static_cast<int>(state->pages.size()); ++i)
            if (state->pages[i].title == title) return user::ShowPage(sheet, i);
        return Outcome::NoRow;
    });
    return *this;
}

template <class Action>
Sheet& Sheet::On(const char* verb, int control, Action action)
{
    Act(verb + std::string(" ") + std::to_string(control),
        [=](HWND, HWND page) { return action(user::Control(page, control)); });
    return *this;
}

template <class State, class Value, class Read>
Value Sheet::Of(std::function<HWND(HWND page)> place, Value otherwise, Read read)
{
    Step([&](HWND, HWND page) {
        if (const State* state = StateOf<State>(place(page))) otherwise = read(*state);
    });
    return otherwise;
}

template <class State, class Value, class Read>
Value Sheet::Of(int control, Value otherwise, Read read)
{
    return Of<State>([=](HWND page) { return user::Control(page, control); }, std::move(otherwise), read);
}

Sheet& Sheet::Click(int control) { return On("click", control, user::Click); }
Sheet& Sheet::Focus(int control) { return On("focus", control, user::Focus); }
Sheet& Sheet::HelpOn(int control) { return On("help on", control, user::ContextHelp); }

Sheet& Sheet::Choose(int control, int row)
{
    return On("choose", control, [row](HWND list) { return user::Pick(list, row); });
}

Sheet& Sheet::Choose(int control, std::u16string_view text)
{
    const std::vector<std::u16string> items = Items(control);
    const auto found = std::find(items.begin(), items.end(), text);
    return Choose(control, static_cast<int>(found - items.begin()));
}

Sheet& Sheet::Type(int control, std::u16string_view text)
{
    return On("type", control, [text](HWND field) { return user::Type(field, text); });
}

Sheet& Sheet::Append(int control, std::u16string_view text)
{
    return On("append to", control, [text](HWND field) { return user::Append(field, text); });
}

Sheet& Sheet::Paste(int control, std::u16string_view text)
{
    return On("paste into", control, [text](HWND field) { return user::Paste(field, text); });
}

Sheet& Sheet::Spin(int upDown, bool up, int times)
{
    for (int k = 0; k < times; ++k) On("spin", upDown, [up](HWND arrows) { return user::Spin(arrows, up); });
    return *this;
}

Sheet& Sheet::Row(int listView, int row)
{
    return On("row of", listView, [row](HWND list) { return user::SelectRow(list, row); });
}

Sheet& Sheet::Press(user::Key key)
{
    Act("key", [=](HWND top, HWND) { return user::Press(top, key); });
    return *this;
}

Sheet& Sheet::CloseDialog()
{
    Step([](HWND top, HWND) { user::Close(top); });
    return *this;
}

Sheet& Sheet::PressButton(user::SheetButton button)
{
    Act("button of the sheet", [=](HWND sheet, HWND) { return user::PressButton(sheet, button); });
    return *this;
}

Sheet& Sheet::Apply() { return PressButton(user::SheetButton::Apply); }
Sheet& Sheet::PressHelp() { return PressButton(user::SheetButton::Help); }

DriverDevMode Sheet::End(user::SheetButton button)
{
    PressButton(button);
    machine_.Desktop().WaitForFinish();
    return published_;
}

DriverDevMode Sheet::Ok() { return End(user::SheetButton::Ok); }
DriverDevMode Sheet::Cancel() { return End(user::SheetButton::Cancel); }

LRESULT Sheet::Send(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto result = std::make_shared<LRESULT>(0);
    Step(
        [=](HWND, HWND page) { *result = StateOf<user::DialogState>(page)->procedure(page, message, wParam, lParam); });
    return *result;
}

LRESULT Sheet::Notice(int control, int code)
{
    return Send(WM_COMMAND, MakeLong(static_cast<DWORD>(control), static_cast<DWORD>(code)), 0);
}

std::vector<std::u16string> Sheet::Items(int control)
{
    return Of<user::ListState>(control, std::vector<std::u16string>{}, [](const user::ListState& list) {
        std::vector<std::u16string> items;
        for (const user::ListItem& item : list.items) items.push_back(item.text);
        return items;
    });
}

std::vector<LPARAM> Sheet::ItemData(int control)
{
    return Of<user::ListState>(control, std::vector<LPARAM>{}, [](const user::ListState& list) {
        std::vector<LPARAM> data;
        for (const user::ListItem& item : list.items) data.push_back(item.data);
        return data;
    });
}

int Sheet::Selection(int control)
{
    return Of<user::ListState>(control, -1, [](const user::ListState& list) { return list.selection; });
}

bool Sheet::Enabled(int control)
{
    return Of<user::Window>(control, false, [](const user::Window& window) { return window.enabled; });
}

bool Sheet::Checked(int control)
{
    return Of<user::ButtonState>(control, false, [](const user::ButtonState& button) { return button.check != 0; });
}

std::u16string Sheet::Text(int control)
{
    return Of<user::Window>(control, std::u16string(), [](const user::Window& window) { return window.text; });
}

HWND Sheet::Handle(int control)
{
    HWND handle = nullptr;
    Step([&](HWND, HWND page) { handle = user::Control(page, control); });
    return handle;
}

std::vector<std::vector<std::u16string>> Sheet::Rows(int listView)
{
    return Of<user::ListViewState>(listView, std::vector<std::vector<std::u16string>>{},
                                   [](const user::ListViewState& list) {
                                       std::vector<std::vector<std::u16string>> rows;
                                       for (const auto& row : list.rows) rows.push_back(row.cells);
                                       return rows;
                                   });
}

int Sheet::SelectedRow(int listView)
{
    return Of<user::ListViewState>(listView, -1, [](const user::ListViewState& list) {
        const auto row = std::find_if(list.rows.begin(), list.rows.end(), [](const auto& one) { return one.selected; });
        return row == list.rows.end() ? -1 : static_cast<int>(row - list.rows.begin());
    });
}

int Sheet::Template()
{
    return Of<user::DialogState>([](HWND page) { return page; }, 0,
                                 [](const user::DialogState& dialog) { return dialog.templateNumber; });
}

int Sheet::Changes()
{
    return Of<user::SheetState>([](HWND) { return user::OpenWindows().front(); }, 0,
                                [](const user::SheetState& sheet) { return sheet.changes; });
}

DriverDevMode Sheet::Settings()
{
    DriverDevMode settings{};
    Step([&](HWND, HWND) { settings = *CurrentSettings; });
    return settings;
}

Sheet& Sheet::Change(const Prepare& change)
{
    Step([&](HWND, HWND) { change(*CurrentSettings); });
    return *this;
}

std::vector<std::string> Sheet::Drawn()
{
    std::vector<std::string> lines;
    Step([&](HWND, HWND) { lines = machine_.Trace().Take(); });
    return lines;
}

}  // namespace testing_support
