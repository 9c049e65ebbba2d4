// Where the keyboard goes: the focus, groups, and the order of the Tab key.
#include <algorithm>

#include "platform/user/node.h"

namespace platform::user {

namespace {

bool Usable(const Window& control) { return control.visible && control.enabled && TakesFocus(control); }

// The member of a radio group that stands for it: the checked one, else the first that can be reached.
HWND StopOfGroup(const Window& control)
{
    HWND first = nullptr;
    for (HWND handle : GroupOf(control)) {
        const Window* member = Find(handle);
        if (!member || !IsRadioButton(*member) || !Usable(*member)) continue;
        if (member->As<ButtonState>()->check) return handle;
        if (!first && (member->style & WS_TABSTOP)) first = handle;
    }
    return first;
}

bool GroupHasTabStop(const Window& control)
{
    const auto group = GroupOf(control);
    return std::ranges::any_of(group, [](HWND handle) {
        const Window* member = Find(handle);
        return member && IsRadioButton(*member) && (member->style & WS_TABSTOP);
    });
}

bool IsTabStop(const Window& control)
{
    if (!Usable(control)) return false;
    if (!IsRadioButton(control)) return (control.style & WS_TABSTOP) != 0;
    return GroupHasTabStop(control) && StopOfGroup(control) == control.handle;
}

}  // namespace

bool TakesFocus(const Window& window)
{
    switch (window.kind) {
        case Kind::Button:
            return (window.style & BS_TYPEMASK) != BS_GROUPBOX;
        case Kind::Edit:
        case Kind::ComboBox:
        case Kind::ListBox:
        case Kind::ListView:
        case Kind::TreeView:
            return true;
        default:
            return false;
    }
}

std::vector<HWND> GroupOf(const Window& control)
{
    const Window* dialog = Find(control.parent);
    if (!dialog) return {};
    const auto& all = dialog->children;
    const auto begins = [](HWND handle) {
        const Window* window = Find(handle);
        return window && (window->style & WS_GROUP);
    };
    const auto self = std::ranges::find(all, control.handle);
    if (self == all.end()) return {};
    auto first = self;
    while (first != all.begin() && !begins(*first)) --first;
    const auto last = std::find_if(self + 1, all.end(), begins);
    return {first, last};
}

HWND NextTabStop(const Window& dialog, HWND control, bool back, bool* wrapped)
{
    const auto& all = dialog.children;
    const auto count = static_cast<std::ptrdiff_t>(all.size());
    const auto from = std::ranges::find(all, control);
    std::ptrdiff_t place = from == all.end() ? (back ? count : -1) : from - all.begin();
    if (wrapped) *wrapped = false;
    for (std::ptrdiff_t step = 0; step < count; ++step) {
        place += back ? -1 : 1;
        if (place < 0 || place >= count) {
            place = back ? count - 1 : 0;
            if (wrapped) *wrapped = true;
        }
        const HWND candidate = all[static_cast<std::size_t>(place)];
        const Window* window = Find(candidate);
        if (window && IsTabStop(*window)) return candidate;
    }
    return nullptr;
}

HWND FocusTarget(HWND window)
{
    const Window* found = Find(window);
    if (!found || found->kind != Kind::Dialog) return found ? window : nullptr;
    const HWND last = found->As<DialogState>() ? found->As<DialogState>()->focus : nullptr;
    const Window* control = Find(last);
    if (control && Usable(*control)) return last;
    return NextTabStop(*found, nullptr, false);
}

HWND FocusWindow() { return Table().focus; }

void SetFocusSilently(HWND window)
{
    const HWND before = Table().focus;
    Table().focus = window;
    if (Node* top = NodeOf(TopLevelOf(window))) top->lastFocus = window;
    if (Window* dialog = Get(DialogOf(window)))
        if (DialogState* state = dialog->As<DialogState>(); state && dialog->handle != window) {
            const Window* control = Find(window);
            if (control && IsControl(*control)) state->focus = window;
        }
    if (before != window) {
        Changed(before);
        Changed(window);
    }
}

void TakeFocus(HWND window)
{
    const HWND target = FocusTarget(window);
    const HWND before = Table().focus;
    if (before == target) return;
    SetFocusSilently(target);
    const Window* left = Find(before);
    if (left && left->kind == Kind::Edit) NotifyParent(before, EN_KILLFOCUS);
}

}  // namespace platform::user
