#include <algorithm>
#include <utility>

#include "platform/seams/desktop.h"
#include "platform/seams/environment.h"
#include "platform/user/node.h"

namespace platform::user {

WindowTable& Table()
{
    static WindowTable table;
    return table;
}

std::shared_ptr<Node> KeepNode(HWND window)
{
    const auto found = Table().windows.find(window);
    return found == Table().windows.end() ? nullptr : found->second;
}

Node* NodeOf(HWND window)
{
    const auto found = Table().windows.find(window);
    return found == Table().windows.end() ? nullptr : found->second.get();
}

std::shared_ptr<Node> AddNode(Kind kind, std::u16string className, HWND parent)
{
    WindowTable& table = Table();
    auto node = std::make_shared<Node>();
    node->handle = reinterpret_cast<HWND>(++table.lastHandle);
    node->kind = kind;
    node->className = std::move(className);
    node->parent = parent;
    table.windows.emplace(node->handle, node);
    return node;
}

bool IsControl(const Window& window)
{
    return window.kind != Kind::Dialog && window.kind != Kind::Sheet && window.kind != Kind::Owner;
}

bool IsPage(const Window& window)
{
    if (window.kind != Kind::Dialog) return false;
    const DialogState* state = window.As<DialogState>();
    const Window* parent = Find(window.parent);
    return parent && parent->kind == Kind::Sheet && state && !state->modal;
}

const Window* Find(HWND window) { return NodeOf(window); }
Window* Get(HWND window) { return NodeOf(window); }
std::shared_ptr<Window> Keep(HWND window) { return KeepNode(window); }

HWND TopLevelOf(HWND window)
{
    const Window* current = Find(window);
    while (current && (IsControl(*current) || IsPage(*current))) current = Find(current->parent);
    return current ? current->handle : nullptr;
}

HWND TopWindow() { return Table().open.empty() ? nullptr : Table().open.back(); }
std::vector<HWND> OpenWindows() { return Table().open; }

HWND DialogOf(HWND window)
{
    const Window* found = Find(window);
    if (!found || found->kind == Kind::Owner) return nullptr;
    if (found->kind == Kind::Dialog) return window;
    if (const SheetState* sheet = found->As<SheetState>()) {
        const bool shows = sheet->active >= 0 && static_cast<std::size_t>(sheet->active) < sheet->pages.size();
        return shows ? sheet->pages[static_cast<std::size_t>(sheet->active)].page : nullptr;
    }
    return found->parent;
}

bool Ended(HWND top)
{
    const Window* window = Find(top);
    if (!window) return true;
    if (const DialogState* dialog = window->As<DialogState>()) return dialog->ended;
    if (const SheetState* sheet = window->As<SheetState>()) return sheet->ended;
    return false;
}

HWND Control(HWND dialog, int number)
{
    const Window* window = Find(dialog);
    if (!window) return nullptr;
    for (HWND child : window->children) {
        const Window* control = Find(child);
        if (control && control->id == number) return child;
    }
    return nullptr;
}

bool ReallyVisible(const Window& window)
{
    const Window* current = &window;
    while (current && current->visible && (IsControl(*current) || IsPage(*current))) current = Find(current->parent);
    return current && current->visible;
}

std::size_t WindowCount() { return Table().windows.size(); }

HWND MakeSheet(HWND owner, std::u16string title, Handler handler, SheetActions actions)
{
    const auto sheet = AddNode(Kind::Sheet, u"#32770", TopLevelOf(owner));
    sheet->state = SheetState{};
    sheet->text = std::move(title);
    sheet->visible = false;
    sheet->handler = std::move(handler);
    sheet->actions = std::move(actions);
    return sheet->handle;
}

HWND MakeWindow(Kind kind, std::u16string className, HWND parent, Handler handler)
{
    const auto window = AddNode(kind, std::move(className), parent);
    if (kind == Kind::Dialog) window->state = DialogState{};
    window->handler = std::move(handler);
    if (Node* above = NodeOf(parent)) above->children.push_back(window->handle);
    return window->handle;
}

void Destroy(HWND window)
{
    const auto node = KeepNode(window);
    if (!node || std::exchange(node->dying, true)) return;
    Send(window, WM_DESTROY, 0, 0);

    // What it owns goes with it; a handler may have destroyed some of it already.
    std::vector<HWND> below = node->children;
    for (const auto& [handle, other] : Table().windows)
        if (other->parent == window && std::ranges::find(below, handle) == below.end()) below.push_back(handle);
    for (HWND child : below) Destroy(child);
    Send(window, WM_NCDESTROY, 0, 0);

    WindowTable& table = Table();
    table.windows.erase(window);
    if (Node* parent = NodeOf(node->parent)) {
        std::erase(parent->children, window);
        if (SheetState* sheet = parent->As<SheetState>())
            for (SheetPage& page : sheet->pages)
                if (page.page == window) page.page = nullptr;
    }
    std::erase(table.open, window);
    if (table.focus == window) table.focus = nullptr;
}

void Changed(HWND window)
{
    const Window* changed = Find(window);
    if (!changed || !changed->redraw) return;
    // Before it is up nobody can see it.
    if (std::ranges::find(Table().open, TopLevelOf(window)) == Table().open.end()) return;
    if (const auto desktop = CurrentEnvironment().desktop) desktop->Changed(window);
}

void Touch(Window& window)
{
    window.invalid = true;
    Changed(window.handle);
}

void Enable(HWND window, bool enable)
{
    const auto node = KeepNode(window);
    if (!node || node->enabled == enable) return;
    node->enabled = enable;
    Touch(*node);
    // What takes no input cannot keep the focus.
    if (!enable && Table().focus == window) TakeFocus(nullptr);
}

Outcome Reachable(HWND window)
{
    const Window* current = Find(window);
    if (!current) return Outcome::Absent;
    if (!ReallyVisible(*current)) return Outcome::Hidden;
    const HWND top = TopLevelOf(window);
    if (top != TopWindow()) return Outcome::Disabled;
    for (; current && current->enabled; current = Find(current->parent))
        if (current->handle == top) return Outcome::Done;
    return Outcome::Disabled;
}

}  // namespace platform::user
