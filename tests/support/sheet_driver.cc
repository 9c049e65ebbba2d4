#include "tests/support/sheet_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "platform/kernel/modules.h"
#include "platform/kernel/unicode.h"
#include "platform/services/sheet_service.h"
#include "platform/spooler/printers.h"
#include "resources/control_numbers.h"
#include "settings/options.h"
#include "spooler/document_sheet.h"

namespace testing_support {

namespace {

using user::Outcome;

// In the order of the outcomes.
constexpr const char* OutcomeTexts[] = {"done",        "absent",   "hidden", "disabled", "of another kind",
                                        "no such row", "read-only"};

INT_PTR ElsewhereProcedure(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

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

TestMachine::TestMachine(const platform::FixedFactValues& facts) : Machine(facts, {TestPrinter, TestPrinter})
{
    platform::CurrentEnvironment().desktop = desktop_;
    platform::CurrentEnvironment().trace = trace_;
    // The module's code is linked into the test, its resources are in the library.
    static const HMODULE module = [] {
        std::string why;
        const HMODULE loaded = platform::modules::Load(QD_MODULE_PATH, &why);
        EXPECT_TRUE(loaded) << "the module cannot be loaded: " << why;
        return loaded;
    }();
    ModuleHandle = ResourceHandle = module;
}

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
    SheetCall call{{}, &prepare};
    DOCUMENTPROPERTYHEADER& header = call.header;
    header.cbSize = sizeof header;
    header.hPrinter = platform::spooler::Open(TestPrinter, 0);
    header.pszPrinterName = const_cast<WCHAR*>(TestPrinter);
    header.pdmOut = PublicPart(&published_);
    header.cbOut = sizeof published_;
    header.fMode = DM_COPY | DM_PROMPT;
    DWORD result = 0;
    // Only an owner that a test has named counts; most sheets have none.
    const bool owned = !platform::CurrentEnvironment().facts->OwnerModule().empty();
    const HWND owner = owned ? platform::services::MakeOwnerWindow() : nullptr;
    platform::services::RunCommonSheet(owner, RunDocumentSheet, reinterpret_cast<LPARAM>(&call.header), &result);
    if (owner) platform::services::DestroyOwnerWindow(owner);
    platform::spooler::Close(header.hPrinter);
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

Sheet& Sheet::Act(const std::string& what, std::function<Outcome(HWND sheet, HWND page)> action)
{
    // What has brought up a dialog is done, as far as its user is concerned.
    const auto outcome = std::make_shared<Outcome>(Outcome::Done);
    Step([outcome, action = std::move(action)](HWND sheet, HWND page) { *outcome = action(sheet, page); });
    EXPECT_EQ(*outcome, Outcome::Done) << what << ": " << OutcomeTexts[static_cast<int>(*outcome)];
    return *this;
}

Outcome Sheet::Try(std::function<Outcome(HWND page)> action)
{
    const auto outcome = std::make_shared<Outcome>(Outcome::Done);
    Step([outcome, action = std::move(action)](HWND, HWND page) { *outcome = action(page); });
    return *outcome;
}

Sheet& Sheet::Page(std::u16string_view title)
{
    return Act("page " + platform::ToUtf8(title), [=](HWND sheet, HWND) { return ShowPage(sheet, title); });
}

Sheet& Sheet::Choose(int control, std::u16string_view text)
{
    const std::vector<std::u16string> items = Items(control);
    return Choose(control, static_cast<int>(std::ranges::find(items, text) - items.begin()));
}

Sheet& Sheet::Spin(int upDown, bool up, int times)
{
    for (int k = 0; k < times; ++k) On("spin", upDown, user::Spin, up);
    return *this;
}

Sheet& Sheet::Press(user::Key key)
{
    return Act("key", [=](HWND top, HWND) { return user::Press(top, key); });
}

Sheet& Sheet::CloseDialog()
{
    Step([](HWND top, HWND) { user::Close(top); });
    return *this;
}

Sheet& Sheet::PressButton(user::SheetButton button)
{
    return Act("button of the sheet", [=](HWND sheet, HWND) { return user::PressButton(sheet, button); });
}

DriverDevMode Sheet::End(user::SheetButton button)
{
    PressButton(button);
    machine_.Desktop().WaitForFinish();
    return published_;
}

LRESULT Sheet::Send(UINT message, WPARAM wParam, LPARAM lParam)
{
    const DLGPROC procedure = Of(0, &user::DialogState::procedure);
    const auto result = std::make_shared<LRESULT>(0);
    Step([=](HWND, HWND page) { *result = procedure(page, message, wParam, lParam); });
    return *result;
}

LRESULT Sheet::Notice(int control, int code)
{
    return Send(WM_COMMAND, MakeLong(static_cast<DWORD>(control), static_cast<DWORD>(code)), 0);
}

int Sheet::SelectedRow(int listView)
{
    const auto selected = OfAll(listView, &user::ListViewState::rows, &user::ListViewState::Row::selected);
    const auto row = std::ranges::find(selected, true);
    return row == selected.end() ? -1 : static_cast<int>(row - selected.begin());
}

int Sheet::Changes()
{
    int changes = 0;
    Step([&](HWND, HWND) { changes = user::Find(user::OpenWindows().front())->As<user::SheetState>()->changes; });
    return changes;
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
