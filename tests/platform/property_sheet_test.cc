#include "platform/controls/property_sheet.h"

#include <map>

#include "platform/services.h"
#include "platform/user/windows.h"
#include "tests/platform/quiet_desktop.h"

namespace {

using namespace platform;
using testing::ElementsAre;
using user::Outcome;
using user::SheetButton;

constexpr int FieldNumber = 7;

// What the pages were told since the last look, as "A active"; and the pages that refuse.
struct Journal {
    std::vector<std::string> lines;
    std::string refused;  // the line that a page refuses

    std::vector<std::string> Take() { return std::exchange(lines, {}); }
};
Journal journal;

const std::map<UINT, std::string> Names = {
    {PSN_SETACTIVE,         " active"},
    {PSN_KILLACTIVE,        " leave" },
    {PSN_APPLY,             " apply" },
    {PSN_RESET,             " reset" },
    {PSN_QUERYINITIALFOCUS, " focus" },
};

// The page's parameter is its letter.
INT_PTR PageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam)
{
    user::DialogState* state = user::Get(page)->As<user::DialogState>();
    if (message == WM_INITDIALOG) state->user = lParam;
    const std::string letter(1, static_cast<char>(state->user));
    if (message == WM_INITDIALOG) journal.lines.push_back(letter + " made");
    if (message == WM_COMMAND && HighWord(wParam) == EN_KILLFOCUS) journal.lines.push_back(letter + " field left");
    if (message != WM_NOTIFY) return FALSE;

    const auto& notice = *reinterpret_cast<const PSHNOTIFY*>(lParam);
    std::string line = letter + Names.at(notice.hdr.code);
    if (notice.hdr.code == PSN_APPLY) line += notice.lParam ? " ok" : " now";
    journal.lines.push_back(line);
    state->messageResult = line == journal.refused;
    return TRUE;
}

controls::SheetPagePlan Page(char letter)
{
    user::DialogTemplate layout;
    layout.title = {static_cast<char16_t>(letter)};
    layout.width = layout.height = 100;
    layout.controls.push_back({
        u"Edit", u"", 0, FieldNumber, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, RECT{10, 10, 60, 30}
    });
    return {layout.title, false, [=](HWND sheet) {
                return user::MakeDialog({nullptr, 1, sheet, PageProc, letter}, layout);
            }};
}

// A sheet with these pages, for as long as the user acts.
LONG Up(std::vector<controls::SheetPagePlan> pages, std::function<void(HWND sheet)> act)
{
    journal = {};
    testing_support::QuietDesktopPlugged desktop;
    desktop->opened = [] { journal.lines.push_back("opened"); };
    desktop->run = std::move(act);
    const std::size_t before = user::WindowCount();
    const LONG result = controls::RunPropertySheet({nullptr, u"Sheet", std::move(pages)});
    EXPECT_EQ(user::WindowCount(), before);
    return result;
}

const user::SheetState& StateOf(HWND sheet) { return *user::Find(sheet)->As<user::SheetState>(); }
HWND FieldOf(HWND sheet, std::size_t page) { return user::Control(StateOf(sheet).pages[page].page, FieldNumber); }
void SayChanged(HWND sheet, int page)
{
    user::Send(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(StateOf(sheet).pages[page].page), 0);
}

TEST(PropertySheet, MakesAPageOnceAndThenActivatesIt)
{
    Up({Page('A'), Page('B')}, [](HWND sheet) {
        EXPECT_THAT(journal.Take(), ElementsAre("A made", "A active", "A focus", "opened"));
        EXPECT_EQ(user::FocusWindow(), FieldOf(sheet, 0));
        EXPECT_EQ(user::ShowPage(sheet, 1), Outcome::Done);
        EXPECT_THAT(journal.Take(), ElementsAre("A field left", "A leave", "B made", "B active", "B focus"));
        EXPECT_FALSE(user::Find(StateOf(sheet).pages[0].page)->visible);
        EXPECT_EQ(user::FocusWindow(), FieldOf(sheet, 1));
        user::ShowPage(sheet, 0);
        EXPECT_THAT(journal.Take(), ElementsAre("B field left", "B leave", "A active", "A focus"));
        EXPECT_EQ(user::ShowPage(sheet, 2), Outcome::NoRow);
    });
}

TEST(PropertySheet, ApplyWaitsForAChangeAndActivatesThePageAgain)
{
    Up({Page('A'), Page('B')}, [](HWND sheet) {
        EXPECT_EQ(user::PressButton(sheet, SheetButton::Apply), Outcome::Disabled);
        user::ShowPage(sheet, 1);
        SayChanged(sheet, 0);
        SayChanged(sheet, 1);
        user::Send(sheet, PSM_UNCHANGED, reinterpret_cast<WPARAM>(StateOf(sheet).pages[0].page), 0);
        EXPECT_TRUE(StateOf(sheet).applyEnabled);
        journal.Take();
        EXPECT_EQ(user::PressButton(sheet, SheetButton::Apply), Outcome::Done);
        EXPECT_THAT(journal.Take(), ElementsAre("B field left", "B leave", "A apply now", "B apply now", "B active"));
        EXPECT_FALSE(StateOf(sheet).applyEnabled);
        EXPECT_EQ(StateOf(sheet).changes, 2);
        EXPECT_FALSE(user::Ended(sheet));
    });
}

TEST(PropertySheet, ComesBackToThePageThatDoesNotAccept)
{
    Up({Page('A'), Page('B')}, [](HWND sheet) {
        user::ShowPage(sheet, 1);
        journal = {{}, "A apply ok"};
        user::PressButton(sheet, SheetButton::Ok);
        EXPECT_THAT(journal.Take(), ElementsAre("B field left", "B leave", "A apply ok", "A active", "A focus"));
        EXPECT_EQ(StateOf(sheet).active, 0);
        EXPECT_FALSE(user::Ended(sheet));
    });
}

TEST(PropertySheet, KeysReachItsButtons)
{
    Up({Page('A'), Page('B')}, [](HWND sheet) {
        const HWND field = FieldOf(sheet, 0);
        EXPECT_EQ(user::TopLevelOf(field), sheet);
        // The sheet's own buttons are one stop behind the page.
        for (const auto key : {user::Key::Tab, user::Key::BackTab}) {
            for (const HWND focus : {sheet, field}) {
                user::Press(sheet, key);
                EXPECT_EQ(user::FocusWindow(), focus);
            }
        }
        journal = {{}, "A leave"};
        user::Press(sheet, user::Key::Enter);
        EXPECT_EQ(user::FocusWindow(), field);
        EXPECT_THAT(journal.Take(), ElementsAre("A leave"));
    });
}

TEST(PropertySheet, StaysWhereItIsWhenAPageCannotBeMade)
{
    controls::SheetPagePlan broken{u"B", false, [](HWND) -> HWND { return nullptr; }};
    Up({Page('A'), broken}, [](HWND sheet) {
        journal.Take();
        EXPECT_EQ(user::ShowPage(sheet, 1), Outcome::Absent);
        EXPECT_THAT(journal.Take(), ElementsAre("A field left", "A leave", "A active"));
        EXPECT_EQ(StateOf(sheet).active, 0);
    });
}

}  // namespace
