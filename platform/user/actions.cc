#include "platform/user/actions.h"

#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

// Ends an action: what it has invalidated is painted before the next one.
class Painted {
  public:
    Painted() = default;
    ~Painted() { PaintPending(); }
    Painted(const Painted&) = delete;
    Painted& operator=(const Painted&) = delete;
};

// Brings the focus to a control that the user is about to use. Leaving the field before may have changed
// what can be reached.
Outcome Approach(HWND control)
{
    TakeFocus(control);
    const Outcome after = Reachable(control);
    return after == Outcome::Absent ? Outcome::Hidden : after;
}

Outcome Check(HWND control, bool (*suits)(const Window&))
{
    const Outcome reachable = Reachable(control);
    if (reachable != Outcome::Done) return reachable;
    return suits(*Find(control)) ? Outcome::Done : Outcome::Unsuited;
}

bool IsClickable(const Window& window) { return window.kind == Kind::Button && TakesFocus(window); }
bool IsList(const Window& window) { return window.As<ListState>() != nullptr; }
bool HasRows(const Window& window)
{
    return window.As<ListViewState>() != nullptr || window.As<TreeState>() != nullptr;
}
bool IsUpDown(const Window& window) { return window.As<UpDownState>() != nullptr; }
bool IsEdit(const Window& window) { return window.As<EditState>() != nullptr; }

std::size_t RowCount(const Window& view)
{
    const TreeState* tree = view.As<TreeState>();
    return tree ? tree->rows.size() : view.As<ListViewState>()->rows.size();
}
bool HasRow(std::size_t rows, int row) { return row >= 0 && static_cast<std::size_t>(row) < rows; }

Outcome ApproachEdit(HWND edit)
{
    if (const Outcome outcome = Check(edit, IsEdit); outcome != Outcome::Done) return outcome;
    if (Find(edit)->style & ES_READONLY) return Outcome::ReadOnly;
    return Approach(edit);
}

// A handler may take the field away while it is typed into; the rest then goes nowhere.
void TypeAll(HWND edit, std::u16string_view text)
{
    for (char16_t character : text) {
        if (FocusWindow() != edit || Reachable(edit) != Outcome::Done) return;
        TypeCharacter(edit, character);
    }
}

}  // namespace

Outcome Focus(HWND control)
{
    if (const Outcome outcome = Check(control, TakesFocus); outcome != Outcome::Done) return outcome;
    Painted painted;
    TakeFocus(control);
    return Outcome::Done;
}

Outcome Click(HWND button)
{
    if (const Outcome outcome = Check(button, IsClickable); outcome != Outcome::Done) return outcome;
    Painted painted;
    if (const Outcome outcome = Approach(button); outcome != Outcome::Done) return outcome;
    PressControl(button);
    return Outcome::Done;
}

Outcome Pick(HWND list, int row)
{
    if (const Outcome outcome = Check(list, IsList); outcome != Outcome::Done) return outcome;
    if (!HasRow(Find(list)->As<ListState>()->items.size(), row)) return Outcome::NoRow;
    Painted painted;
    if (const Outcome outcome = Approach(list); outcome != Outcome::Done) return outcome;
    if (!HasRow(Find(list)->As<ListState>()->items.size(), row)) return Outcome::NoRow;
    PickItem(list, row);
    return Outcome::Done;
}

Outcome SelectRow(HWND view, int row)
{
    if (const Outcome outcome = Check(view, HasRows); outcome != Outcome::Done) return outcome;
    if (!HasRow(RowCount(*Find(view)), row)) return Outcome::NoRow;
    Painted painted;
    if (const Outcome outcome = Approach(view); outcome != Outcome::Done) return outcome;
    if (!HasRow(RowCount(*Find(view)), row)) return Outcome::NoRow;
    if (Find(view)->kind == Kind::TreeView)
        SelectTreeRow(view, row);
    else
        PickRow(view, row);
    return Outcome::Done;
}

Outcome Type(HWND edit, std::u16string_view text)
{
    Painted painted;
    if (const Outcome outcome = ApproachEdit(edit); outcome != Outcome::Done) return outcome;
    SelectText(edit, 0, Find(edit)->text.size());
    if (text.empty())
        DeleteSelection(edit);
    else
        TypeAll(edit, text);
    return Outcome::Done;
}

Outcome Append(HWND edit, std::u16string_view text)
{
    Painted painted;
    if (const Outcome outcome = ApproachEdit(edit); outcome != Outcome::Done) return outcome;
    const std::size_t end = Find(edit)->text.size();
    SelectText(edit, end, end);
    TypeAll(edit, text);
    return Outcome::Done;
}

Outcome Paste(HWND edit, std::u16string_view text)
{
    Painted painted;
    if (const Outcome outcome = ApproachEdit(edit); outcome != Outcome::Done) return outcome;
    SelectText(edit, 0, Find(edit)->text.size());
    PasteText(edit, text);
    return Outcome::Done;
}

Outcome EditTo(HWND edit, std::u16string_view text, std::size_t caret)
{
    Painted painted;
    if (const Outcome outcome = ApproachEdit(edit); outcome != Outcome::Done) return outcome;
    ReplaceText(edit, text, caret);
    return Outcome::Done;
}

Outcome Spin(HWND upDown, bool up)
{
    if (const Outcome outcome = Check(upDown, IsUpDown); outcome != Outcome::Done) return outcome;
    const HWND buddy = Find(upDown)->As<UpDownState>()->buddy;
    if (Find(buddy)) {
        // Arrows without a field to count in are grey.
        if (const Outcome outcome = Reachable(buddy); outcome != Outcome::Done) return outcome;
    }
    Painted painted;
    if (Find(buddy))
        if (const Outcome outcome = Approach(buddy); outcome != Outcome::Done) return outcome;
    if (const Outcome outcome = Reachable(upDown); outcome != Outcome::Done) return outcome;
    StepUpDown(upDown, up);
    return Outcome::Done;
}

Outcome ShowPage(HWND sheet, int page)
{
    if (const Outcome outcome = Reachable(sheet); outcome != Outcome::Done) return outcome;
    const auto node = KeepNode(sheet);
    const SheetState* state = node->As<SheetState>();
    if (!state || !node->actions.showPage) return Outcome::Unsuited;
    if (!HasRow(state->pages.size(), page)) return Outcome::NoRow;
    Painted painted;
    if (state->active == page) return Outcome::Done;
    TakeFocus(sheet);
    return node->actions.showPage(sheet, page);
}

Outcome PressButton(HWND sheet, SheetButton button)
{
    if (const Outcome outcome = Reachable(sheet); outcome != Outcome::Done) return outcome;
    const auto node = KeepNode(sheet);
    const SheetState* state = node->As<SheetState>();
    if (!state || !node->actions.press) return Outcome::Unsuited;
    const auto disabled = [&] {
        return (button == SheetButton::Apply && !state->applyEnabled) ||
               (button == SheetButton::Help && !state->helpEnabled);
    };
    if (disabled()) return Outcome::Disabled;
    Painted painted;
    TakeFocus(sheet);
    if (disabled()) return Outcome::Disabled;
    return node->actions.press(sheet, button);
}

Outcome ContextHelp(HWND control)
{
    const Window* window = Find(control);
    if (!window || !IsControl(*window)) return window ? Outcome::Unsuited : Outcome::Absent;
    if (!ReallyVisible(*window)) return Outcome::Hidden;
    // The question mark also tells about what is disabled.
    if (TopLevelOf(control) != TopWindow()) return Outcome::Disabled;
    Painted painted;
    HELPINFO info{};
    info.cbSize = sizeof info;
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = window->id;
    info.hItemHandle = control;
    Send(window->parent, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
    return Outcome::Done;
}

}  // namespace platform::user
