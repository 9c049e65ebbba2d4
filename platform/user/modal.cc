#include "platform/seams/desktop.h"
#include "platform/seams/environment.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

// Gives input back to what lies below, however the run ended.
class Run {
  public:
    explicit Run(HWND top) : top_(top) { Table().open.push_back(top); }
    ~Run()
    {
        if (const auto desktop = CurrentEnvironment().desktop; desktop && opened_) desktop->Closed(top_);
        std::erase(Table().open, top_);
        if (Window* window = Get(top_)) window->visible = false;

        const HWND focus = FocusWindow();
        const HWND below = TopWindow();
        if (!focus || TopLevelOf(focus) == top_) {
            const Node* node = NodeOf(below);
            SetFocusSilently(node && Reachable(node->lastFocus) == Outcome::Done ? node->lastFocus : nullptr);
        }
        Invalidate(DialogOf(below), true);
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    void Open(Desktop& desktop)
    {
        opened_ = true;
        desktop.Opened(top_);
    }

  private:
    HWND top_;
    bool opened_ = false;
};

}  // namespace

bool RunModal(HWND top)
{
    const auto desktop = CurrentEnvironment().desktop;
    const Window* window = Find(top);
    if (!desktop || !window) return false;
    if (Ended(top)) return true;

    Run run(top);
    Show(top, true);
    TakeFocus(window->kind == Kind::Sheet ? DialogOf(top) : top);
    PaintPending();
    run.Open(*desktop);
    if (!Ended(top)) desktop->Run(top);
    if (Ended(top)) return true;
    Close(top);
    return false;
}

bool End(HWND dialog, INT_PTR result)
{
    Window* window = Get(dialog);
    DialogState* state = window ? window->As<DialogState>() : nullptr;
    if (!state || !state->modal) return false;
    state->ended = true;
    state->result = result;
    window->visible = false;
    return true;
}

Covered::Covered() : focus_(FocusWindow())
{
    TakeFocus(nullptr);
    PaintPending();
}

Covered::~Covered()
{
    if (!FocusWindow() && Find(focus_)) SetFocusSilently(focus_);
}

}  // namespace platform::user
