#include "pages/custom_paper_editor.h"

#include <algorithm>
#include <iterator>

#include "pages/control_state.h"
#include "pages/custom_paper_fields.h"
#include "pages/custom_paper_store.h"
#include "pages/custom_paper_units.h"
#include "pages/custom_paper_work_list.h"
#include "pages/page_framework.h"
#include "platform/kernel.h"
#include "resources/control_numbers.h"
#include "settings/wide_text.h"

int EditorUpdates = 1;

namespace {

constexpr int NameChars = static_cast<int>(std::size(CustomPaperEntry{}.cpName));
constexpr int NameColumn = 0, SizeColumn = 1;
constexpr int ComparedChars = 32;
constexpr int SizeTextChars = 300;  // two texts of the string table at most, and four numbers

constexpr int MillimetreControls[] = {IDC_CP_WIDTH_MM,       IDC_CP_WIDTH_MM_SPIN,  IDC_CP_HEIGHT_MM,
                                      IDC_CP_HEIGHT_MM_SPIN, IDC_CP_WIDTH_MM_RANGE, IDC_CP_HEIGHT_MM_RANGE};
constexpr int InchControls[] = {
    IDC_CP_WIDTH_SLASH16,    IDC_CP_HEIGHT_SLASH16,        IDC_CP_WIDTH_INCH_RANGE,  IDC_CP_HEIGHT_INCH_RANGE,
    IDC_CP_WIDTH_SIXTEENTHS, IDC_CP_WIDTH_SIXTEENTHS_SPIN, IDC_CP_HEIGHT_SIXTEENTHS, IDC_CP_HEIGHT_SIXTEENTHS_SPIN,
    IDC_CP_WIDTH_INCH,       IDC_CP_WIDTH_INCH_SPIN,       IDC_CP_HEIGHT_INCH,       IDC_CP_HEIGHT_INCH_SPIN};
// Beside the controls of the units, whatever needs a size or a good name.
constexpr int EditorControls[] = {IDC_CP_NAME_HEADER, IDC_CP_SIZE_HEADER,  IDC_CP_LIST,        IDC_CP_DELETE,
                                  IDC_CP_NAME_LABEL,  IDC_CP_HEIGHT_LABEL, IDC_CP_WIDTH_LABEL, IDC_CP_UNIT_MM,
                                  IDC_CP_UNIT_INCH,   IDC_CP_UNIT_GROUP};

void ShowControls(HWND dialog, std::span<const int> controls, bool show)
{
    for (const int control : controls) {
        HWND window = GetDlgItem(dialog, control);
        ShowWindow(window, show ? SW_SHOW : SW_HIDE);
        EnableWindow(window, show ? TRUE : FALSE);
    }
}

void CheckUnit(HWND dialog, int unit)
{
    if (unit != UnitMillimetres && unit != UnitInches) return;
    CheckRadioButton(dialog, IDC_CP_UNIT_MM, IDC_CP_UNIT_INCH, unit == UnitInches ? IDC_CP_UNIT_INCH : IDC_CP_UNIT_MM);
}

LRESULT AskList(HWND dialog, UINT message, LRESULT row = 0, const void* item = nullptr)
{
    return SendDlgItemMessageW(dialog, IDC_CP_LIST, message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(item));
}

void SetCell(HWND dialog, int row, int column, const WCHAR* text)
{
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = const_cast<WCHAR*>(text);
    AskList(dialog, LVM_SETITEMTEXTW, row, &item);
}

// The entry that is edited, null if none is; and its row.
CustomPaperEntry* EditedEntry(HWND dialog, int& row)
{
    const int rows = CustomPaperRows(dialog);
    row = SelectedCustomPaper(dialog);
    return rows > 0 && row >= 0 ? WorkListEntryAt(row) : nullptr;
}

void ShowNumber(HWND dialog, const NumberField& field, const CustomPaperEntry& entry)
{
    SetDlgItemInt(dialog, field.control, static_cast<UINT>(field.shown(entry)), TRUE);
}

// 0 for what is no number.
int TypedNumber(HWND dialog, const NumberField& field)
{
    BOOL translated = FALSE;
    return static_cast<int>(GetDlgItemInt(dialog, field.control, &translated, TRUE));
}

// Behind a field that is left. A limit of whole inches may have taken the sixteenths with it, now or while they were
// typed, so what differs in any field is put right; a limit that bites puts all of them right.
void PutRight(HWND dialog, const CustomPaperEntry& entry, bool all)
{
    const EditorWrites writes;
    for (const NumberField& field : NumberFieldsOf(entry.cpUnit))
        if (all || TypedNumber(dialog, field) != field.shown(entry)) ShowNumber(dialog, field, entry);
}

}  // namespace

void EnableCustomPaperEditor(HWND dialog, int mode, bool enable)
{
    EnableControls(dialog, EditorControls, enable);
    EnableControls(dialog, MillimetreControls, enable);
    EnableControls(dialog, InchControls, enable);
    if (mode == EditorEmpty) SetDlgItemTextW(dialog, IDC_CP_NAME, LoadResString(IDS_NO_PAPER_SELECTED, 0));
    constexpr int Name[] = {IDC_CP_NAME};
    constexpr int Ways[] = {IDC_CP_NEW, IDOK};
    EnableControls(dialog, mode == EditorEmpty || mode == EditorNormal ? std::span<const int>(Name) : Ways, enable);
}

void ShowCustomPaperUnit(HWND dialog, int unit)
{
    if (unit != UnitMillimetres && unit != UnitInches) return;
    CheckUnit(dialog, unit);
    ShowControls(dialog, MillimetreControls, unit == UnitMillimetres);
    ShowControls(dialog, InchControls, unit == UnitInches);
}

void ShowCustomPaperNumbers(HWND dialog, const CustomPaperEntry& entry)
{
    for (const NumberField& field : NumberFieldsOf(entry.cpUnit)) ShowNumber(dialog, field, entry);
}

void ShowCustomPaperEntry(HWND dialog, const CustomPaperEntry& entry)
{
    ShowCustomPaperNumbers(dialog, entry);
    CheckUnit(dialog, entry.cpUnit);
    SetDlgItemTextW(dialog, IDC_CP_NAME, entry.cpName);
}

int CustomPaperNameTaken(const WCHAR* name, HWND dialog, int limit, int skip)
{
    const int rows = std::min(limit, CustomPaperRows(dialog));
    for (int row = 0; row < rows; ++row) {
        if (row == skip) continue;
        WCHAR shown[ComparedChars] = {};
        LVITEMW item{};
        item.iSubItem = NameColumn;
        item.pszText = shown;
        item.cchTextMax = ComparedChars;
        AskList(dialog, LVM_GETITEMTEXTW, row, &item);
        if (lstrcmpW(shown, name) == 0) return 1;
    }
    return 0;
}

int CustomPaperRows(HWND dialog) { return static_cast<int>(AskList(dialog, LVM_GETITEMCOUNT)); }
int SelectedCustomPaper(HWND dialog) { return static_cast<int>(AskList(dialog, LVM_GETSELECTIONMARK)); }

void SelectCustomPaper(HWND dialog, int row)
{
    SendDlgItemMessageW(dialog, IDC_CP_LIST, LVM_SETSELECTIONMARK, 0, row);
    LVITEMW item{};
    item.state = item.stateMask = LVIS_SELECTED;
    AskList(dialog, LVM_SETITEMSTATE, row, &item);
}

bool InsertCustomPaperRow(HWND dialog, int row, const CustomPaperEntry& entry)
{
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = const_cast<WCHAR*>(entry.cpName);
    if (AskList(dialog, LVM_INSERTITEMW, 0, &item) != row) return false;
    ShowCustomPaperSize(dialog, row, entry);
    return true;
}

void ShowCustomPaperName(HWND dialog, int row, const WCHAR* name) { SetCell(dialog, row, NameColumn, name); }

void ShowCustomPaperSize(HWND dialog, int row, const CustomPaperEntry& entry)
{
    WCHAR text[SizeTextChars] = {};
    if (entry.cpUnit == UnitInches)
        wsprintfW(text, u"[%d %d/16 x %d %d/16 %s]", entry.cpWidth / 100, int{entry.cpWidthSixteenths},
                  entry.cpHeight / 100, int{entry.cpHeightSixteenths}, LoadResString(IDS_UNIT_INCH, 0));
    else
        wsprintfW(text, u"[%d x %d %s]", entry.cpWidth / 10, entry.cpHeight / 10, LoadResString(IDS_UNIT_MM, 0));
    SetCell(dialog, row, SizeColumn, text);
}

void OnCustomPaperName(HWND dialog)
{
    int row = 0;
    CustomPaperEntry* entry = EditedEntry(dialog, row);
    if (!entry || EditorUpdates == 0) return;
    WCHAR name[NameChars] = {};
    GetDlgItemTextW(dialog, IDC_CP_NAME, name, NameChars);
    const int rows = CustomPaperRows(dialog);
    if (name[0] && CustomPaperNameTaken(name, dialog, rows, row) == 0) {
        EnableCustomPaperEditor(dialog, EditorNameGood, true);
        // A list that is full stays full, whatever its sizes are called.
        if (rows >= MostCustomPapers) EnableControl(dialog, IDC_CP_NEW, false);
        CopyBounded(entry->cpName, name, NameChars);
        ShowCustomPaperName(dialog, row, name);
    } else {
        ShowCustomPaperName(dialog, row, name);
        EnableCustomPaperEditor(dialog, EditorNameFault, false);
    }
}

void OnCustomPaperNumber(HWND dialog, int fieldNumber, bool left)
{
    int row = 0;
    CustomPaperEntry* entry = EditedEntry(dialog, row);
    if (!entry || EditorUpdates == 0) return;
    const NumberField& field = NumberFields()[static_cast<std::size_t>(fieldNumber)];
    const int typed = TypedNumber(dialog, field);
    if (left)
        PutRight(dialog, *entry, field.leave(*entry, typed));
    else
        field.take(*entry, typed);
    ShowCustomPaperSize(dialog, row, *entry);
}

void OnCustomPaperUnit(HWND dialog, int unit)
{
    int row = 0;
    CustomPaperEntry* entry = EditedEntry(dialog, row);
    if (!entry || !(unit == UnitInches ? ConvertToInches(*entry) : ConvertToMillimetres(*entry))) return;
    ShowCustomPaperUnit(dialog, unit);
    {
        const EditorWrites writes;
        ShowCustomPaperNumbers(dialog, *entry);
    }
    ShowCustomPaperSize(dialog, row, *entry);
}
