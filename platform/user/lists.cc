// Combo boxes and list boxes: one behaviour under two sets of message numbers.
#include <algorithm>

#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

enum class Operation { Add, Insert, Delete, Reset, Select, Selection, Text, TextLength, Count, Data, SetData };

struct MessageRow {
    UINT combo, list;
    Operation operation;
};
constexpr MessageRow Messages[] = {
    {CB_ADDSTRING,    LB_ADDSTRING,    Operation::Add       },
    {CB_INSERTSTRING, LB_INSERTSTRING, Operation::Insert    },
    {CB_DELETESTRING, LB_DELETESTRING, Operation::Delete    },
    {CB_RESETCONTENT, LB_RESETCONTENT, Operation::Reset     },
    {CB_SETCURSEL,    LB_SETCURSEL,    Operation::Select    },
    {CB_GETCURSEL,    LB_GETCURSEL,    Operation::Selection },
    {CB_GETLBTEXT,    LB_GETTEXT,      Operation::Text      },
    {CB_GETLBTEXTLEN, LB_GETTEXTLEN,   Operation::TextLength},
    {CB_GETCOUNT,     LB_GETCOUNT,     Operation::Count     },
    {CB_GETITEMDATA,  LB_GETITEMDATA,  Operation::Data      },
    {CB_SETITEMDATA,  LB_SETITEMDATA,  Operation::SetData   },
};
static_assert(CB_ERR == LB_ERR);

bool Sorts(const Window& list) { return (list.style & (list.kind == Kind::ComboBox ? CBS_SORT : LBS_SORT)) != 0; }

bool Before(std::u16string_view a, std::u16string_view b)
{
    auto upper = [](char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c; };
    return std::ranges::lexicographical_compare(a, b, {}, upper, upper);
}

// A combo box shows its row as its text.
void ShowSelection(Window& list)
{
    const ListState& state = *list.As<ListState>();
    if (list.kind == Kind::ComboBox)
        list.text =
            state.selection < 0 ? std::u16string() : state.items[static_cast<std::size_t>(state.selection)].text;
    Touch(list);
}

LRESULT Insert(Window& list, std::size_t row, std::u16string_view text, LPARAM data)
{
    ListState& state = *list.As<ListState>();
    state.items.insert(state.items.begin() + static_cast<std::ptrdiff_t>(row), ListItem{std::u16string(text), data});
    if (state.selection >= static_cast<int>(row)) ++state.selection;
    ShowSelection(list);
    return static_cast<LRESULT>(row);
}

LRESULT Add(Window& list, std::u16string_view text)
{
    const auto& items = list.As<ListState>()->items;
    if (!Sorts(list)) return Insert(list, items.size(), text, 0);
    const auto place = std::ranges::upper_bound(items, text, Before, &ListItem::text);
    return Insert(list, static_cast<std::size_t>(place - items.begin()), text, 0);
}

LRESULT Delete(Window& list, std::size_t row)
{
    ListState& state = *list.As<ListState>();
    state.items.erase(state.items.begin() + static_cast<std::ptrdiff_t>(row));
    const int deleted = static_cast<int>(row);
    if (state.selection == deleted)
        state.selection = -1;
    else if (state.selection > deleted)
        --state.selection;
    ShowSelection(list);
    return static_cast<LRESULT>(state.items.size());
}

LRESULT Select(Window& list, WPARAM row)
{
    ListState& state = *list.As<ListState>();
    state.selection = row < state.items.size() ? static_cast<int>(row) : -1;
    ShowSelection(list);
    return state.selection;
}

}  // namespace

LRESULT ListMessage(Window& list, UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool combo = list.kind == Kind::ComboBox;
    const auto found =
        std::ranges::find(Messages, message, [&](const MessageRow& row) { return combo ? row.combo : row.list; });
    if (found == std::end(Messages)) return CommonMessage(list, message, wParam, lParam);

    ListState& state = *list.As<ListState>();
    const auto* text = reinterpret_cast<const WCHAR*>(lParam);
    // Positions come as machine words; code that means -1 may have filled 32 bits only.
    const WPARAM row = static_cast<std::int32_t>(wParam) == -1 ? static_cast<WPARAM>(-1) : wParam;
    const bool there = row < state.items.size();
    switch (found->operation) {
        case Operation::Add:
            return text ? Add(list, text) : CB_ERR;
        case Operation::Insert:
            if (!text || (row != static_cast<WPARAM>(-1) && row > state.items.size())) return CB_ERR;
            return Insert(list, row == static_cast<WPARAM>(-1) ? state.items.size() : row, text, 0);
        case Operation::Delete:
            return there ? Delete(list, row) : CB_ERR;
        case Operation::Reset:
            state.items.clear();
            state.selection = -1;
            ShowSelection(list);
            return 0;
        case Operation::Select:
            return Select(list, row);
        case Operation::Selection:
            return state.selection;
        case Operation::Text:
            return there && lParam ? CopyText(state.items[row].text, reinterpret_cast<WCHAR*>(lParam),
                                              state.items[row].text.size() + 1)
                                   : CB_ERR;
        case Operation::TextLength:
            return there ? static_cast<LRESULT>(state.items[row].text.size()) : CB_ERR;
        case Operation::Count:
            return static_cast<LRESULT>(state.items.size());
        case Operation::Data:
            return there ? state.items[row].data : CB_ERR;
        case Operation::SetData:
            if (!there) return CB_ERR;
            state.items[row].data = lParam;
            return TRUE;
    }
    return 0;
}

void AppendItem(HWND list, std::u16string_view text, LPARAM data)
{
    Window* window = Get(list);
    if (const ListState* state = window ? window->As<ListState>() : nullptr)
        Insert(*window, state->items.size(), text, data);
}

void PickItem(HWND list, int row)
{
    const auto window = Keep(list);
    if (!window || !window->As<ListState>()) return;
    Select(*window, static_cast<WPARAM>(row));
    if (window->kind == Kind::ComboBox)
        NotifyParent(list, CBN_SELCHANGE);
    else if (window->style & LBS_NOTIFY)
        NotifyParent(list, LBN_SELCHANGE);
}

}  // namespace platform::user
