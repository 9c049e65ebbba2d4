#include "tests/random/hands.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

#include "platform/kernel/unicode.h"
#include "platform/user/windows.h"
#include "resources/control_numbers.h"
#include "tests/random/changes.h"

namespace random_use {

namespace user = platform::user;
using user::Outcome;

namespace {

constexpr std::array<std::string_view, 4> Pages = {"Setup", "Paper", "Quality", "Device Options Setting"};
constexpr std::array<std::string_view, 4> Keys = {"TAB", "ENTER", "ESC", "F1"};
constexpr std::array PressedKeys = {user::Key::Tab, user::Key::Enter, user::Key::Escape, user::Key::F1};
constexpr std::array<std::string_view, 4> Buttons = {"ok", "cancel", "apply", "help"};  // as in SheetButton
constexpr std::int16_t ApplyButton = 2;

std::string Quoted(std::u16string_view text)
{
    std::string quoted = "\"";
    for (const char character : platform::ToUtf8(text)) {
        if (character == '"' || character == '\\') quoted += '\\';
        if (character == '\n')
            quoted += "\\n";
        else
            quoted += character;
    }
    return quoted + '"';
}

std::string Nothing(std::size_t) { return {}; }
std::string Number(std::size_t value) { return std::to_string(value); }
std::string Text(std::size_t value) { return Quoted(Texts.at(value)); }

std::size_t One(const user::Window*) { return 1; }
std::size_t Four(const user::Window*) { return 4; }
std::size_t EachText(const user::Window*) { return Texts.size(); }
std::size_t EachItem(const user::Window* list) { return list->As<user::ListState>()->items.size(); }
std::size_t EachRow(const user::Window* list) { return list->As<user::ListViewState>()->rows.size(); }

struct ActionRow {
    std::string_view word;
    std::string (*told)(std::size_t value);              // behind the word and the control
    std::size_t (*values)(const user::Window* control);  // how many there are to choose from
    Outcome (*act)(HWND top, HWND control, std::size_t value);
};
// clang-format off
constexpr ActionRow Actions[] = {  // in the order of Action
    {"page",   [](std::size_t v) { return '"' + std::string(Pages.at(v)) + '"'; }, Four, [](HWND top, HWND, std::size_t v) { return user::ShowPage(top, static_cast<int>(v)); }},
    {"click",  Nothing, One,      [](HWND, HWND control, std::size_t) { return user::Click(control); }},
    {"choose", Number,  EachItem, [](HWND, HWND control, std::size_t v) { return user::Pick(control, static_cast<int>(v)); }},
    {"type",   Text,    EachText, [](HWND, HWND control, std::size_t v) { return user::Type(control, Texts.at(v)); }},
    {"append", Text,    EachText, [](HWND, HWND control, std::size_t v) { return user::Append(control, Texts.at(v)); }},
    {"paste",  Text,    EachText, [](HWND, HWND control, std::size_t v) { return user::Paste(control, Texts.at(v)); }},
    {"spin",   [](std::size_t v) { return std::string(v ? "up" : "down"); }, [](const user::Window*) { return std::size_t{2}; }, [](HWND, HWND control, std::size_t v) { return user::Spin(control, v != 0); }},
    {"row",    Number,  EachRow,  [](HWND, HWND control, std::size_t v) { return user::SelectRow(control, static_cast<int>(v)); }},
    {"focus",  Nothing, One,      [](HWND, HWND control, std::size_t) { return user::Focus(control); }},
    {"key",    [](std::size_t v) { return std::string(Keys.at(v)); },    Four, [](HWND top, HWND, std::size_t v) { return user::Press(top, PressedKeys.at(v)); }},
    {"",       [](std::size_t v) { return std::string(Buttons.at(v)); }, Four, [](HWND top, HWND, std::size_t v) { return user::PressButton(top, static_cast<user::SheetButton>(v)); }},
};
// clang-format on
const ActionRow& RowOf(const Step& step)
{
    if (static_cast<std::size_t>(step.action) >= std::size(Actions)) throw std::out_of_range("no such action");
    return Actions[static_cast<std::size_t>(step.action)];
}

}  // namespace

int TemplateOf(HWND dialog)
{
    const user::Window* window = user::Find(dialog);
    const auto* state = window ? window->As<user::DialogState>() : nullptr;
    return state ? state->templateNumber : 0;
}

Step DrawStep(Random& random, HWND top)
{
    const HWND dialog = user::DialogOf(top);
    const bool sheet = dialog != top;
    std::vector<Step> bag;
    const auto put = [&](int times, Action action, int control = 0, std::int16_t value = 0) {
        for (; times > 0; --times) bag.push_back({action, true, 0, static_cast<std::int16_t>(control), value});
    };
    if (const user::Window* window = user::Find(dialog)) {
        for (const HWND handle : window->children) {
            const user::Window& child = *user::Find(handle);
            // Now and then what is locked: it has to be refused.
            if (child.id <= 0 || ((!child.enabled || !child.visible) && !random.Chance(1, 20))) continue;
            const DWORD type = child.style & 0x0F;
            const bool ends =
                child.id == IDOK || child.id == IDCANCEL || child.id == IDC_HELP || child.id == IDC_DEFAULT;
            if (child.kind == user::Kind::Button && type != BS_GROUPBOX && type != BS_OWNERDRAW)
                put(ends ? 1 : 3, Action::Click, child.id);
            if (child.As<user::ListState>()) put(5, Action::Choose, child.id);
            if (child.kind == user::Kind::UpDown) put(2, Action::Spin, child.id);
            if (child.kind == user::Kind::ListView) put(4, Action::Row, child.id);
            if (child.kind == user::Kind::Edit) {
                put(3, Action::Type, child.id);
                put(1, Action::Append, child.id);
                put(1, Action::Paste, child.id);
                put(1, Action::Focus, child.id);
            }
        }
    }
    put(2, Action::Key);
    if (sheet) {
        put(10, Action::Page);
        put(1, Action::Button, 0, ApplyButton);
        if (random.Chance(1, 4)) put(1, Action::Button, 0, random.From(std::array<std::int16_t, 4>{0, 0, 1, 3}));
    }
    Step step = random.From(bag);
    step.ok = random.Chance(1, 2);
    step.file = static_cast<std::uint8_t>(random.Below(Files.size()));
    if (step.action == Action::Button || (step.action == Action::Key && !random.Chance(1, 6))) return step;
    const std::size_t values = RowOf(step).values(user::Find(user::Control(dialog, step.control)));
    step.value = static_cast<std::int16_t>(random.Below(std::max<std::size_t>(values, 1)));
    return step;
}

Outcome Act(const Step& step, HWND top)
{
    return RowOf(step).act(top, user::Control(user::DialogOf(top), step.control), static_cast<std::size_t>(step.value));
}

std::string ScriptOf(const Step& step, int boxes, int files)
{
    const ActionRow& row = RowOf(step);
    std::string script(row.word);
    if (step.control) script += ' ' + std::to_string(step.control);
    if (const std::string told = row.told(static_cast<std::size_t>(step.value)); !told.empty())
        script += (script.empty() ? "" : " ") + told;
    script += '\n';
    // A path that is refused leaves the dialog up, which is then cancelled.
    if (files > 0) script += step.file ? "file " + Quoted(Files.at(step.file)) + '\n' : "file cancel\n";
    for (; boxes > 0; --boxes) script += step.ok ? "answer ok\n" : "answer cancel\n";
    return script;
}

int ControlOf(const Step& step, HWND top)
{
    switch (step.action) {
        case Action::Page:
            return Arrival;
        case Action::Button:
            return step.value == ApplyButton ? Applied : Elsewhere;
        case Action::Spin: {
            const user::Window* arrows = user::Find(user::Control(user::DialogOf(top), step.control));
            const auto* state = arrows ? arrows->As<user::UpDownState>() : nullptr;
            const user::Window* buddy = state ? user::Find(state->buddy) : nullptr;
            return buddy ? buddy->id : step.control;
        }
        case Action::Key: {
            if (Keys.at(static_cast<std::size_t>(step.value)) != "ENTER") return Elsewhere;
            const user::Window* focus = user::Find(user::FocusWindow());
            const bool pushed = focus && focus->kind == user::Kind::Button && (focus->style & 0x0F) <= BS_DEFPUSHBUTTON;
            return pushed ? focus->id : IDOK;
        }
        default:
            return step.control;
    }
}

}  // namespace random_use
