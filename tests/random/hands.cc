#include "tests/random/hands.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/user/windows.h"
#include "resources/control_numbers.h"
#include "tests/random/changes.h"

namespace random_use {

namespace user = platform::user;

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
    const auto put = [&](int times, Action action, int control = 0) {
        for (; times > 0; --times) bag.push_back({action, true, 0, static_cast<std::int16_t>(control), 0});
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
        put(1, Action::Apply);
        if (random.Chance(1, 4)) put(1, random.From(std::array{Action::Ok, Action::Ok, Action::Cancel, Action::Help}));
    }
    Step step = random.From(bag);
    step.ok = random.Chance(1, 2);
    step.file = static_cast<std::uint8_t>(random.Below(Files.size()));
    const user::Window* control = user::Find(user::Control(dialog, step.control));
    const auto below = [&](std::size_t limit) {
        return static_cast<std::int16_t>(random.Below(std::max<std::size_t>(limit, 1)));
    };
    switch (step.action) {
        case Action::Page:
            step.value = below(4);
            break;
        case Action::Choose:
            step.value = below(control->As<user::ListState>()->items.size());
            break;
        case Action::Row:
            step.value = below(control->As<user::ListViewState>()->rows.size());
            break;
        case Action::Type:
        case Action::Append:
        case Action::Paste:
            step.value = below(Texts.size());
            break;
        case Action::Spin:
            step.value = below(2);
            break;
        case Action::Key:
            step.value = random.Chance(1, 6) ? below(std::size(Keys)) : 0;
            break;
        default:
            break;
    }
    return step;
}

user::Outcome Act(const Step& step, HWND top)
{
    constexpr user::Key PressedKeys[] = {user::Key::Tab, user::Key::Enter, user::Key::Escape, user::Key::F1};
    const HWND control = user::Control(user::DialogOf(top), step.control);
    switch (step.action) {
        case Action::Page:
            return user::ShowPage(top, step.value);
        case Action::Click:
            return user::Click(control);
        case Action::Choose:
            return user::Pick(control, step.value);
        case Action::Type:
            return user::Type(control, Texts[static_cast<std::size_t>(step.value)]);
        case Action::Append:
            return user::Append(control, Texts[static_cast<std::size_t>(step.value)]);
        case Action::Paste:
            return user::Paste(control, Texts[static_cast<std::size_t>(step.value)]);
        case Action::Spin:
            return user::Spin(control, step.value != 0);
        case Action::Row:
            return user::SelectRow(control, step.value);
        case Action::Focus:
            return user::Focus(control);
        case Action::Key:
            return user::Press(top, PressedKeys[step.value]);
        case Action::Ok:
            return user::PressButton(top, user::SheetButton::Ok);
        case Action::Cancel:
            return user::PressButton(top, user::SheetButton::Cancel);
        case Action::Apply:
            return user::PressButton(top, user::SheetButton::Apply);
        case Action::Help:
            return user::PressButton(top, user::SheetButton::Help);
    }
    return user::Outcome::Unsuited;
}

int ControlOf(const Step& step, HWND top)
{
    switch (step.action) {
        case Action::Page:
            return Arrival;
        case Action::Apply:
            return Applied;
        case Action::Spin: {
            const user::Window* arrows = user::Find(user::Control(user::DialogOf(top), step.control));
            const auto* state = arrows ? arrows->As<user::UpDownState>() : nullptr;
            const user::Window* buddy = state ? user::Find(state->buddy) : nullptr;
            return buddy ? buddy->id : step.control;
        }
        case Action::Key: {
            if (Keys[step.value] != "ENTER") return Elsewhere;
            const user::Window* focus = user::Find(user::FocusWindow());
            const bool pushed = focus && focus->kind == user::Kind::Button && (focus->style & 0x0F) <= BS_DEFPUSHBUTTON;
            return pushed ? focus->id : IDOK;
        }
        case Action::Ok:
        case Action::Cancel:
        case Action::Help:
            return Elsewhere;
        default:
            return step.control;
    }
}

}  // namespace random_use
