#include "pages/watermark_dialog_names.h"

#include <algorithm>
#include <optional>
#include <string>

#include "pages/control_state.h"
#include "pages/watermark_dialog_fields.h"
#include "platform/kernel.h"

namespace {

constexpr UINT BeepStyle = 1;
constexpr unsigned TitleSlot = 1;

struct Name {
    WCHAR text[WatermarkNameChars] = {};
    bool IsBlank() const { return std::u16string_view(text).find_first_not_of(u' ') == std::u16string_view::npos; }
};

// A field that cannot be read looks like an empty one, so that is asked twice.
Name TypedName(HWND dialog)
{
    Name name;
    if (GetDlgItemTextW(dialog, IDC_WM_NAME, name.text, WatermarkNameChars) == 0)
        GetDlgItemTextW(dialog, IDC_WM_NAME, name.text, WatermarkNameChars);
    return name;
}

LRESULT AskList(HWND dialog, UINT message, int row = 0, const WCHAR* text = nullptr)
{
    return SendDlgItemMessageW(dialog, IDC_WM_LIST, message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
}

// A row that the list box refuses to take or to give up is offered once more: without it all rows behind would
// stand for others.
void InsertListRow(HWND dialog, int row, const WCHAR* text)
{
    if (AskList(dialog, LB_INSERTSTRING, row, text) != row) AskList(dialog, LB_INSERTSTRING, row, text);
}

// rows is how many there are before.
void DeleteListRow(HWND dialog, int row, int rows)
{
    if (rows > 1 && AskList(dialog, LB_DELETESTRING, row) == rows - 1) return;
    if (AskList(dialog, LB_GETCOUNT) == rows) AskList(dialog, LB_DELETESTRING, row);
}

int Ask(HWND dialog, int message, UINT buttons)
{
    return MessageBoxW(dialog, LoadResString(message, 0), LoadResString(IDS_WATERMARK_WARNING, TitleSlot),
                       buttons | MB_ICONEXCLAMATION);
}

void FocusName(HWND dialog) { SetFocus(GetDlgItem(dialog, IDC_WM_NAME)); }

bool RowShows(HWND dialog, int row, const Name& name)
{
    const auto place = static_cast<WPARAM>(row);
    const LRESULT length = SendDlgItemMessageW(dialog, IDC_WM_LIST, LB_GETTEXTLEN, place, 0);
    if (length < 0) return false;
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    SendDlgItemMessageW(dialog, IDC_WM_LIST, LB_GETTEXT, place, reinterpret_cast<LPARAM>(text.data()));
    return lstrcmpW(text.c_str(), name.text) == 0;
}

bool RowIsNamed(int row, const Name& name)
{
    const WatermarkRecord* record = WatermarkRowAt(row);
    return record && lstrcmpW(record->wmName, name.text) == 0;
}

// The first other row of this name, as it is shown or as it is: a row that was left with a name it could not take
// shows that name and has another.
std::optional<int> OtherRowNamed(HWND dialog, int index, const Name& name)
{
    const auto rows = static_cast<int>(SendDlgItemMessageW(dialog, IDC_WM_LIST, LB_GETCOUNT, 0, 0));
    for (int row = 0; row < std::max(rows, WatermarkCount + 1); ++row)
        if (row != index && (RowShows(dialog, row, name) || RowIsNamed(row, name))) return row;
    return std::nullopt;
}

bool NameOfAnotherWatermark(const Name& name)
{
    for (int row = 0; const WatermarkRecord* record = WatermarkRowAt(row); ++row)
        if (record->wmId != WatermarkEdit.wmId && RowIsNamed(row, name)) return true;
    return false;
}

// The row under edit takes the other row's name; it stays the current one, wherever the other one stood.
void Overwrite(HWND dialog, int other)
{
    RemoveListedWatermark(dialog, other);
    if (other < WatermarkIndex) --WatermarkIndex;
    LockEditorByRow(dialog);
    FocusName(dialog);
    // No two rows have the same name: such a list could not be loaded again.
    if (!NameOfAnotherWatermark(TypedName(dialog))) TakeWatermarkName(dialog);
    ShowWatermarkRow(dialog);
    EnableControl(dialog, IDC_WM_DELETE, WatermarkEdit.wmRemovable != 0 && WatermarkIndex != 0);
}

}  // namespace

void FillWatermarkList(HWND dialog)
{
    if (AskList(dialog, LB_GETCOUNT) == WatermarkCount + 1) return;
    AskList(dialog, LB_RESETCONTENT);
    for (int row = 0; row <= WatermarkCount; ++row)
        InsertListRow(dialog, row, WatermarkNames[static_cast<std::size_t>(row)]);
    AskList(dialog, LB_SETCURSEL, WatermarkIndex);
}

void ShowWatermarkRow(HWND dialog)
{
    SelectWatermarkRow(WatermarkIndex);
    LoadWatermarkEdit();
    ShowWatermarkEdit(dialog);
    InvalidateControl(dialog, IDC_WM_PREVIEW);
}

void RemoveListedWatermark(HWND dialog, int index)
{
    const WatermarkRecord* row = WatermarkRowAt(index);
    if (!row) return;
    --WatermarkCount;
    if (WatermarkCount < MostWatermarks) EnableControl(dialog, IDC_WM_NEW, true);
    WatermarkSlots[static_cast<std::size_t>(row->wmId)] = 0;
    for (auto name = static_cast<std::size_t>(index); name + 1 < WatermarkNames.size(); ++name)
        CopyToField(WatermarkNames[name], WatermarkNameChars, WatermarkNames[name + 1]);
    DeleteListRow(dialog, index, WatermarkCount + 2);
    if (row == WatermarkCurrent) WatermarkCurrent = nullptr;
    RemoveWatermarkRow(index);
}

int ValidateWatermarkName(HWND dialog, int index)
{
    if (WatermarkCount == 0) return 0;
    const Name name = TypedName(dialog);
    if (name.IsBlank()) {
        MessageBeep(BeepStyle);
        Ask(dialog, IDS_BLANK_WATERMARK_NAME, MB_OK);
        return 1;
    }
    const std::optional<int> other = OtherRowNamed(dialog, index, name);
    if (!other) return 0;
    // The row without a watermark is in every list, and cannot be overwritten.
    if (Ask(dialog, IDS_OVERWRITE_WATERMARK, MB_OKCANCEL) == IDOK && *other != 0)
        Overwrite(dialog, *other);
    else
        FocusName(dialog);
    return 1;
}

void TakeWatermarkName(HWND dialog)
{
    if (WatermarkIndex <= 0) return;
    const Name name = TypedName(dialog);
    if (name.IsBlank()) return;
    ChangeWatermark(dialog, [&](WatermarkRecord& row) { CopyToField(row.wmName, WatermarkNameChars, name.text); });
    CopyToField(WatermarkNames[static_cast<std::size_t>(WatermarkIndex)], WatermarkNameChars, name.text);
}

void OnWatermarkNameTyped(HWND dialog)
{
    const Name name = TypedName(dialog);
    const auto rows = static_cast<int>(AskList(dialog, LB_GETCOUNT));
    // A new row is not there yet.
    if (WatermarkIndex < rows) DeleteListRow(dialog, WatermarkIndex, rows);
    if (AskList(dialog, LB_GETCOUNT) <= WatermarkCount) InsertListRow(dialog, WatermarkIndex, name.text);
    AskList(dialog, LB_SETCURSEL, WatermarkIndex);
}

void OnWatermarkNameLeft(HWND dialog)
{
    const Name name = TypedName(dialog);
    if (name.IsBlank() || NameOfAnotherWatermark(name))
        MessageBeep(BeepStyle);
    else
        TakeWatermarkName(dialog);
}
