// The list view in report form. The selection mark is where the user last was; what is selected is another
// matter, and only that is told to the dialog.
#include <algorithm>
#include <utility>

#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

constexpr std::size_t All = static_cast<std::size_t>(-1);

std::size_t Index(WPARAM wParam) { return static_cast<std::int32_t>(wParam) == -1 ? All : wParam; }

std::u16string TextOf(const WCHAR* text) { return text ? text : u""; }

// One notice, if the row changes at all.
void SetRow(Window& view, std::size_t row, bool selected)
{
    ListViewState& state = *view.As<ListViewState>();
    if (row >= state.rows.size() || state.rows[row].selected == selected) return;
    state.rows[row].selected = selected;
    Touch(view);

    NMLISTVIEW notice{};
    notice.hdr = {view.handle, static_cast<UINT_PTR>(view.id), LVN_ITEMCHANGED};
    notice.iItem = static_cast<int>(row);
    notice.uNewState = selected ? LVIS_SELECTED : 0;
    notice.uOldState = selected ? 0 : LVIS_SELECTED;
    notice.uChanged = LVIF_STATE;
    notice.lParam = state.rows[row].data;
    Notify(view.parent, notice.hdr);
}

// The rows that lose the selection are told first.
void Deselect(Window& view, std::size_t except)
{
    const ListViewState& state = *view.As<ListViewState>();
    for (std::size_t row = 0; row < state.rows.size(); ++row)
        if (row != except) SetRow(view, row, false);
}

LRESULT SetState(Window& view, std::size_t row, const LVITEMW* item)
{
    const ListViewState& state = *view.As<ListViewState>();
    if (!item || (row != All && row >= state.rows.size())) return FALSE;
    if (!(item->stateMask & LVIS_SELECTED)) return TRUE;
    const bool select = (item->state & LVIS_SELECTED) != 0;
    const bool single = (view.style & LVS_SINGLESEL) != 0;
    if (row == All) {
        if (select && single) return FALSE;  // they cannot all be
        for (row = 0; row < state.rows.size(); ++row) SetRow(view, row, select);
        return TRUE;
    }
    if (select && single) Deselect(view, row);
    SetRow(view, row, select);
    return TRUE;
}

LRESULT InsertRow(Window& view, const LVITEMW* item)
{
    if (!item || item->iItem < 0 || item->iSubItem != 0) return -1;
    ListViewState& state = *view.As<ListViewState>();
    const std::size_t row = std::min(static_cast<std::size_t>(item->iItem), state.rows.size());
    ListViewState::Row added;
    added.cells.resize(std::max<std::size_t>(state.columns.size(), 1));
    if (item->mask & LVIF_TEXT) added.cells[0] = TextOf(item->pszText);
    if (item->mask & LVIF_PARAM) added.data = item->lParam;
    state.rows.insert(state.rows.begin() + static_cast<std::ptrdiff_t>(row), std::move(added));
    if (state.mark >= static_cast<int>(row)) ++state.mark;
    Touch(view);
    if (item->mask & LVIF_STATE) SetState(view, row, item);
    return static_cast<LRESULT>(row);
}

LRESULT DeleteRow(Window& view, std::size_t row)
{
    ListViewState& state = *view.As<ListViewState>();
    if (row >= state.rows.size()) return FALSE;
    state.rows.erase(state.rows.begin() + static_cast<std::ptrdiff_t>(row));
    const int deleted = static_cast<int>(row);
    if (state.mark == deleted)
        state.mark = -1;
    else if (state.mark > deleted)
        --state.mark;
    Touch(view);
    return TRUE;
}

LRESULT InsertColumn(Window& view, WPARAM place, const LVCOLUMNW* column)
{
    if (!column) return -1;
    ListViewState& state = *view.As<ListViewState>();
    const std::size_t index = std::min(static_cast<std::size_t>(place), state.columns.size());
    ListViewState::Column added;
    if (column->mask & LVCF_TEXT) added.title = TextOf(column->pszText);
    if (column->mask & LVCF_WIDTH) added.width = column->cx;
    state.columns.insert(state.columns.begin() + static_cast<std::ptrdiff_t>(index), std::move(added));
    for (auto& row : state.rows) row.cells.resize(std::max(row.cells.size(), state.columns.size()));
    Touch(view);
    return static_cast<LRESULT>(index);
}

LRESULT SetColumnWidth(Window& view, WPARAM column, int width)
{
    ListViewState& state = *view.As<ListViewState>();
    if (column >= state.columns.size()) return FALSE;
    if (width >= 0) state.columns[column].width = width;  // below 0: as wide as it needs, as the desktop shows it
    Touch(view);
    return TRUE;
}

std::u16string* Cell(ListViewState& state, std::size_t row, const LVITEMW* item)
{
    if (!item || row >= state.rows.size() || item->iSubItem < 0) return nullptr;
    auto& cells = state.rows[row].cells;
    const auto cell = static_cast<std::size_t>(item->iSubItem);
    return cell < cells.size() ? &cells[cell] : nullptr;
}

LRESULT SetCell(Window& view, std::size_t row, const LVITEMW* item)
{
    std::u16string* cell = Cell(*view.As<ListViewState>(), row, item);
    if (!cell) return FALSE;
    *cell = TextOf(item->pszText);
    Touch(view);
    return TRUE;
}

LRESULT GetCell(Window& view, std::size_t row, const LVITEMW* item)
{
    const std::u16string* cell = Cell(*view.As<ListViewState>(), row, item);
    if (!cell || item->cchTextMax <= 0) return 0;
    return CopyText(*cell, item->pszText, static_cast<std::size_t>(item->cchTextMax));
}

}  // namespace

LRESULT ListViewMessage(Window& view, UINT message, WPARAM wParam, LPARAM lParam)
{
    ListViewState& state = *view.As<ListViewState>();
    const auto* item = reinterpret_cast<const LVITEMW*>(lParam);
    const std::size_t row = Index(wParam);
    switch (message) {
        case LVM_GETITEMCOUNT:
            return static_cast<LRESULT>(state.rows.size());
        case LVM_INSERTITEMW:
            return InsertRow(view, item);
        case LVM_DELETEITEM:
            return DeleteRow(view, row);
        case LVM_DELETEALLITEMS:
            state.rows.clear();
            state.mark = -1;
            Touch(view);
            return TRUE;
        case LVM_INSERTCOLUMNW:
            return InsertColumn(view, wParam, reinterpret_cast<const LVCOLUMNW*>(lParam));
        case LVM_SETCOLUMNWIDTH:
            return SetColumnWidth(view, wParam, static_cast<SHORT>(LowWord(static_cast<DWORD_PTR>(lParam))));
        case LVM_SETITEMSTATE:
            return SetState(view, row, item);
        case LVM_GETITEMSTATE:
            return row < state.rows.size() && state.rows[row].selected ? lParam & LPARAM{LVIS_SELECTED} : 0;
        case LVM_SETITEMTEXTW:
            return SetCell(view, row, item);
        case LVM_GETITEMTEXTW:
            return GetCell(view, row, item);
        case LVM_GETSELECTIONMARK:
            return state.mark;
        case LVM_SETSELECTIONMARK: {
            const int mark = static_cast<int>(lParam);
            const bool there = mark >= 0 && static_cast<std::size_t>(mark) < state.rows.size();
            return std::exchange(state.mark, there ? mark : -1);
        }
        case LVM_GETEXTENDEDLISTVIEWSTYLE:
            return static_cast<LRESULT>(state.extendedStyle);
        case LVM_SETEXTENDEDLISTVIEWSTYLE: {
            const DWORD mask = wParam == 0 ? ~DWORD{0} : static_cast<DWORD>(wParam);
            const DWORD style = (state.extendedStyle & ~mask) | (static_cast<DWORD>(lParam) & mask);
            return static_cast<LRESULT>(std::exchange(state.extendedStyle, style));
        }
        default:
            return CommonMessage(view, message, wParam, lParam);
    }
}

void PickRow(HWND view, int row)
{
    const auto window = Keep(view);
    ListViewState* state = window ? window->As<ListViewState>() : nullptr;
    if (!state || row < 0 || static_cast<std::size_t>(row) >= state->rows.size()) return;
    state->mark = row;
    Touch(*window);
    Deselect(*window, static_cast<std::size_t>(row));
    SetRow(*window, static_cast<std::size_t>(row), true);
}

}  // namespace platform::user
