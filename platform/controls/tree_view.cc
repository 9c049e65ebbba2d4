// Tree views: rows in the order in which they are seen, all of them open.
#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

bool HasRow(const TreeState& state, int row) { return row >= 0 && static_cast<std::size_t>(row) < state.rows.size(); }

}  // namespace

void AppendTreeRow(HWND tree, std::u16string_view text, int level)
{
    Window* window = Get(tree);
    TreeState* state = window ? window->As<TreeState>() : nullptr;
    if (!state) return;
    state->rows.push_back({std::u16string(text), level});
    Touch(*window);
}

void SelectTreeRow(HWND tree, int row)
{
    const auto window = Keep(tree);
    TreeState* state = window ? window->As<TreeState>() : nullptr;
    if (!state || !HasRow(*state, row) || state->selection == row) return;
    state->selection = row;
    Touch(*window);
    NMHDR changed{};
    changed.hwndFrom = tree;
    changed.idFrom = static_cast<UINT_PTR>(window->id);
    changed.code = TVN_SELCHANGEDW;
    Notify(window->parent, changed);
}

}  // namespace platform::user
