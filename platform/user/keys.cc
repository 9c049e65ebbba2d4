// What the keys do that dialogs and sheets know: moving the focus, picking, the buttons of Enter and Escape.
#include <algorithm>

#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

// The keyboard presses a button where it is: the focus stays.
Outcome PressById(const Window& dialog, int id)
{
    const HWND button = Control(dialog.handle, id);
    const Window* found = Find(button);
    if (!found) {
        // The procedure hears of it all the same.
        Send(dialog.handle, WM_COMMAND, static_cast<WPARAM>(id), 0);
        return Outcome::Done;
    }
    if (!found->enabled) return Outcome::Disabled;
    NotifyParent(button, BN_CLICKED);
    return Outcome::Done;
}

Outcome PressSheet(HWND sheet, SheetButton button)
{
    const auto node = KeepNode(sheet);
    return node->actions.press ? node->actions.press(sheet, button) : Outcome::Unsuited;
}

// What has the focus, if it is a control of this dialog that a user can reach.
const Window* FocusIn(HWND dialog)
{
    const Window* focus = Find(FocusWindow());
    return focus && IsControl(*focus) && focus->parent == dialog && Reachable(focus->handle) == Outcome::Done ? focus
                                                                                                              : nullptr;
}

Outcome Enter(HWND top, HWND dialog)
{
    if (const Window* focus = FocusIn(dialog); focus && IsPushButton(*focus)) {
        NotifyParent(focus->handle, BN_CLICKED);
        return Outcome::Done;
    }
    return dialog == top ? PressById(*Find(dialog), IDOK) : PressSheet(top, SheetButton::Ok);
}

Outcome Escape(HWND top, HWND dialog)
{
    return dialog == top ? PressById(*Find(dialog), IDCANCEL) : PressSheet(top, SheetButton::Cancel);
}

void Tab(HWND top, HWND dialog, bool back)
{
    const Window* window = Find(dialog);
    const DialogState* state = window->As<DialogState>();
    // A sheet's own buttons are one stop, behind the last control of the page.
    const bool onSheet = FocusWindow() == top && dialog != top;
    bool wrapped = false;
    const HWND next = NextTabStop(*window, onSheet || !state ? nullptr : state->focus, back, &wrapped);
    const HWND target = dialog != top && ((wrapped && !onSheet) || !next) ? top : next;
    if (!target) return;
    TakeFocus(target);
    if (const Window* field = Find(target); field && field->kind == Kind::Edit)
        SelectText(target, 0, field->text.size());
}

// To the next control of the group that can be reached, around its end.
HWND Neighbour(const Window& control, bool back)
{
    std::vector<HWND> group = GroupOf(control);
    if (back) std::ranges::reverse(group);
    const auto self = std::ranges::find(group, control.handle);
    std::rotate(group.begin(), self, group.end());
    for (std::size_t i = 1; i < group.size(); ++i) {
        const Window* other = Find(group[i]);
        if (other && other->kind == Kind::Button && TakesFocus(*other) && other->visible && other->enabled)
            return group[i];
    }
    return nullptr;
}

HWND ArrowsOf(const Window& edit)
{
    const Window* dialog = Find(edit.parent);
    for (HWND child : dialog->children) {
        const Window* control = Find(child);
        const UpDownState* state = control ? control->As<UpDownState>() : nullptr;
        if (state && state->buddy == edit.handle && (control->style & UDS_ARROWKEYS)) return child;
    }
    return nullptr;
}

Outcome ArrowInEdit(const Window& edit, Key key)
{
    if (key == Key::Up || key == Key::Down) {
        const HWND arrows = ArrowsOf(edit);
        return arrows ? Spin(arrows, key == Key::Up) : Outcome::Done;
    }
    const std::size_t caret = edit.As<EditState>()->caret;
    const std::size_t moved = key == Key::Right ? caret + 1 : caret - (caret > 0 ? 1 : 0);
    SelectText(edit.handle, moved, moved);
    return Outcome::Done;
}

Outcome Arrow(HWND dialog, Key key)
{
    const Window* focus = FocusIn(dialog);
    if (!focus) return Outcome::Unsuited;
    const HWND control = focus->handle;
    const bool back = key == Key::Up || key == Key::Left;
    const auto next = [&](int selection, std::size_t rows) {
        const int last = static_cast<int>(rows) - 1;
        return std::clamp(selection < 0 ? 0 : selection + (back ? -1 : 1), std::min(0, last), last);
    };
    switch (focus->kind) {
        case Kind::Edit:
            return ArrowInEdit(*focus, key);
        case Kind::ComboBox:
        case Kind::ListBox: {
            const ListState& state = *focus->As<ListState>();
            const int row = next(state.selection, state.items.size());
            if (row != state.selection) PickItem(control, row);
            return Outcome::Done;
        }
        case Kind::ListView: {
            if (key == Key::Left || key == Key::Right) return Outcome::Done;
            const ListViewState& state = *focus->As<ListViewState>();
            const int row = next(state.mark, state.rows.size());
            if (row != state.mark) PickRow(control, row);
            return Outcome::Done;
        }
        case Kind::TreeView: {
            if (key == Key::Left || key == Key::Right) return Outcome::Done;
            const TreeState& state = *focus->As<TreeState>();
            SelectTreeRow(control, next(state.selection, state.rows.size()));
            return Outcome::Done;
        }
        case Kind::Button: {
            const HWND neighbour = Neighbour(*focus, back);
            if (!neighbour) return Outcome::Done;
            TakeFocus(neighbour);
            if (const Window* reached = FocusIn(dialog); reached && IsRadioButton(*reached)) PressControl(neighbour);
            return Outcome::Done;
        }
        default:
            return Outcome::Unsuited;
    }
}

Outcome Space(HWND dialog)
{
    const Window* focus = FocusIn(dialog);
    if (!focus) return Outcome::Unsuited;
    if (focus->kind == Kind::Button) {
        PressControl(focus->handle);
        return Outcome::Done;
    }
    if (focus->kind == Kind::Edit) {
        if (focus->style & ES_READONLY) return Outcome::ReadOnly;
        TypeCharacter(focus->handle, u' ');
        return Outcome::Done;
    }
    return Outcome::Unsuited;
}

}  // namespace

Outcome Press(HWND top, Key key)
{
    if (const Outcome outcome = Reachable(top); outcome != Outcome::Done) return outcome;
    const HWND dialog = DialogOf(top);
    if (!Find(dialog)) return Outcome::Unsuited;
    const auto paint = [](Outcome outcome) {
        PaintPending();
        return outcome;
    };
    switch (key) {
        case Key::Tab:
        case Key::BackTab:
            Tab(top, dialog, key == Key::BackTab);
            return paint(Outcome::Done);
        case Key::Enter:
            return paint(Enter(top, dialog));
        case Key::Escape:
            return paint(Escape(top, dialog));
        case Key::F1: {
            const Window* focus = FocusIn(dialog);
            return focus ? ContextHelp(focus->handle) : Outcome::Unsuited;
        }
        case Key::Space:
            return paint(Space(dialog));
        case Key::Up:
        case Key::Down:
        case Key::Left:
        case Key::Right:
            return paint(Arrow(dialog, key));
    }
    return Outcome::Unsuited;
}

void Close(HWND top)
{
    if (Find(top) && Reachable(top) == Outcome::Done) Press(top, Key::Escape);
}

}  // namespace platform::user
