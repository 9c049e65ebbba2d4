#include "platform/controls/property_sheet.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/kernel/modules.h"
#include "platform/seams/environment.h"
#include "platform/services.h"
#include "platform/user/windows.h"

namespace platform::controls {

namespace {

using user::Outcome;
using user::SheetButton;

constexpr LONG CannotRun = -1;

// What belongs to one sheet beside its window.
struct Frame {
    SheetPlan plan;
    std::vector<HWND> changedPages;  // pages whose changes have not been applied
};

user::SheetState* State(HWND sheet)
{
    user::Window* window = user::Get(sheet);
    return window ? window->As<user::SheetState>() : nullptr;
}

HWND ActivePage(HWND sheet)
{
    const user::SheetState* state = State(sheet);
    return state && state->active >= 0 ? state->pages[state->active].page : nullptr;
}

// What the page answered; 0 from a page that is not there.
LRESULT Tell(HWND sheet, HWND page, UINT code, LPARAM parameter = 0)
{
    if (!page) return 0;
    PSHNOTIFY notice{
        {sheet, 0, code},
        parameter
    };
    return user::Notify(page, notice.hdr);
}

void SetApplyEnabled(HWND sheet, bool enabled)
{
    user::SheetState* state = State(sheet);
    if (!state || state->applyEnabled == enabled) return;
    state->applyEnabled = enabled;
    user::Changed(sheet);
}

// Any number of pages may be made while a handler runs, so every step looks the state up again.
std::vector<HWND> PagesThatExist(HWND sheet)
{
    std::vector<HWND> pages;
    if (const user::SheetState* state = State(sheet)) {
        for (const user::SheetPage& page : state->pages) {
            if (page.page) pages.push_back(page.page);
        }
    }
    return pages;
}

HWND PageAt(HWND sheet, const Frame& frame, int index)
{
    if (HWND page = State(sheet)->pages[index].page) return page;
    HWND page = frame.plan.pages[index].make(sheet);
    user::SheetState* state = State(sheet);
    if (!state) return nullptr;
    state->pages[index].page = page;
    return page;
}

void GiveInitialFocus(HWND sheet, HWND page)
{
    const HWND first = user::Get(page) ? user::Get(page)->As<user::DialogState>()->focus : nullptr;
    const HWND wanted =
        reinterpret_cast<HWND>(Tell(sheet, page, PSN_QUERYINITIALFOCUS, reinterpret_cast<LPARAM>(first)));
    const user::Window* control = user::Find(wanted);
    user::TakeFocus(control && control->parent == page ? wanted : page);
}

// Brings a page to the front; whatever page was there has been asked already. False: it cannot be made.
bool Activate(HWND sheet, const Frame& frame, int index)
{
    const HWND page = PageAt(sheet, frame, index);
    if (!page) return false;
    Tell(sheet, page, PSN_SETACTIVE);
    user::SheetState* state = State(sheet);
    if (!state) return false;
    const HWND before = ActivePage(sheet);
    state->active = index;
    state->helpEnabled = frame.plan.pages[index].help;
    if (before && before != page) user::Show(before, false);
    user::Show(page, true);
    user::Changed(sheet);
    GiveInitialFocus(sheet, page);
    return true;
}

bool LeaveActivePage(HWND sheet) { return Tell(sheet, ActivePage(sheet), PSN_KILLACTIVE) == 0; }

// The user has clicked another tab; whether there is one has been checked, and the focus has gone.
Outcome ShowPage(HWND sheet, const Frame& frame, int index)
{
    const user::SheetState* state = State(sheet);
    if (!state || state->ended || !LeaveActivePage(sheet)) return Outcome::Done;
    if (Activate(sheet, frame, index)) return Outcome::Done;
    Tell(sheet, ActivePage(sheet), PSN_SETACTIVE);
    return Outcome::Absent;
}

void End(HWND sheet, LONG result)
{
    if (user::SheetState* state = State(sheet)) {
        state->ended = true;
        state->result = result;
    }
}

// A page that does not accept the change comes to the front, and the sheet stays.
void ReturnTo(HWND sheet, const Frame& frame, HWND page)
{
    const std::vector<user::SheetPage>& pages = State(sheet)->pages;
    const auto place = std::find_if(pages.begin(), pages.end(), [&](const auto& each) { return each.page == page; });
    if (page == ActivePage(sheet) || place == pages.end()) {
        Tell(sheet, ActivePage(sheet), PSN_SETACTIVE);
    } else {
        Activate(sheet, frame, static_cast<int>(place - pages.begin()));
    }
}

void Apply(HWND sheet, Frame& frame, bool closing)
{
    if (!LeaveActivePage(sheet)) return;
    for (HWND page : PagesThatExist(sheet)) {
        if (Tell(sheet, page, PSN_APPLY, closing) == 0) continue;
        if (State(sheet)) ReturnTo(sheet, frame, page);
        return;
    }
    frame.changedPages.clear();
    SetApplyEnabled(sheet, false);
    if (closing) {
        End(sheet, CPSUI_OK);
    } else {
        Tell(sheet, ActivePage(sheet), PSN_SETACTIVE);
    }
}

void Cancel(HWND sheet)
{
    for (HWND page : PagesThatExist(sheet)) Tell(sheet, page, PSN_RESET, 1);
    End(sheet, CPSUI_CANCEL);
}

// The user has pressed an enabled button, by mouse or key; the focus is where that leaves it.
Outcome Press(HWND sheet, Frame& frame, SheetButton button)
{
    const user::SheetState* state = State(sheet);
    if (!state || state->ended) return Outcome::Done;
    switch (button) {
        case SheetButton::Ok:
            Apply(sheet, frame, true);
            break;
        case SheetButton::Apply:
            Apply(sheet, frame, false);
            break;
        case SheetButton::Cancel:
            Cancel(sheet);
            break;
        case SheetButton::Help:
            Tell(sheet, ActivePage(sheet), PSN_HELP);
            break;
    }
    return Outcome::Done;
}

LRESULT Handle(HWND sheet, Frame& frame, UINT message, WPARAM wParam)
{
    const HWND page = reinterpret_cast<HWND>(wParam);
    if (message == PSM_CHANGED) {
        if (std::ranges::find(frame.changedPages, page) == frame.changedPages.end()) frame.changedPages.push_back(page);
        if (user::SheetState* state = State(sheet)) ++state->changes;
        SetApplyEnabled(sheet, true);
    } else if (message == PSM_UNCHANGED) {
        std::erase(frame.changedPages, page);
        if (frame.changedPages.empty()) SetApplyEnabled(sheet, false);
    }
    return 0;
}

bool IsNumber(const WCHAR* name) { return reinterpret_cast<ULONG_PTR>(name) <= 0xFFFF; }
int NumberOf(const WCHAR* name) { return static_cast<int>(reinterpret_cast<ULONG_PTR>(name)); }

std::u16string TitleOf(const PROPSHEETPAGEW& page, const user::DialogTemplate& layout)
{
    if (!(page.dwFlags & PSP_USETITLE) || !page.pszTitle) return layout.title;
    return IsNumber(page.pszTitle) ? modules::String(page.hInstance, NumberOf(page.pszTitle)) : page.pszTitle;
}

}  // namespace

std::optional<SheetPagePlan> PlanPage(const PROPSHEETPAGEW& page)
{
    // The two header texts came with a later version of the structure.
    if (page.dwSize < offsetof(PROPSHEETPAGEW, pszHeaderTitle)) return std::nullopt;
    auto copy = std::make_shared<PROPSHEETPAGEW>();
    std::memcpy(copy.get(), &page, std::min<std::size_t>(page.dwSize, sizeof page));
    if (!copy->pfnDlgProc || !IsNumber(copy->pszTemplate)) return std::nullopt;

    const int number = NumberOf(copy->pszTemplate);
    std::string why;
    auto layout = user::ParseDialogTemplate(modules::Resource(copy->hInstance, modules::DialogResource, number), &why);
    if (!layout) return std::nullopt;

    SheetPagePlan plan;
    plan.title = TitleOf(*copy, *layout);
    plan.help = copy->dwFlags & PSP_HASHELP;
    plan.make = [copy, number](HWND sheet) {
        return user::MakeDialog(
            {copy->hInstance, number, sheet, copy->pfnDlgProc, reinterpret_cast<LPARAM>(copy.get())});
    };
    return plan;
}

LONG RunPropertySheet(const SheetPlan& plan)
{
    if (plan.pages.empty() || !CurrentEnvironment().desktop) return CannotRun;
    const auto frame = std::make_shared<Frame>(Frame{plan, {}});
    const HWND sheet = user::MakeSheet(
        plan.owner, plan.title,
        [frame](HWND window, UINT message, WPARAM wParam, LPARAM) { return Handle(window, *frame, message, wParam); },
        {[frame](HWND window, int page) { return ShowPage(window, *frame, page); },
         [frame](HWND window, SheetButton button) { return Press(window, *frame, button); }});
    if (!sheet) return CannotRun;
    for (const SheetPagePlan& page : plan.pages) State(sheet)->pages.push_back({page.title, nullptr});

    LONG result = CannotRun;
    if (Activate(sheet, *frame, 0)) {
        user::RunModal(sheet);
        const user::SheetState* state = State(sheet);
        if (state && state->ended) result = state->result;
    }
    user::Destroy(sheet);
    return result;
}

}  // namespace platform::controls
