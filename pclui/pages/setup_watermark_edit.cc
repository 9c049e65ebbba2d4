#include "pages/setup_watermark_edit.h"

#include <algorithm>
#include <utility>

#include "module.h"
#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "pages/setup_page.h"
#include "pages/watermark_dialog.h"
#include "resources/control_numbers.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_load.h"

namespace {

// What the dialog's list stands in for while the dialog is up.
struct ListBefore {
    WORD firstPageOnly;
    decltype(WatermarkSlots) slots;
    decltype(WatermarkNames) names;
    int count, index;
    WatermarkNode* head;
};

// The list is loaded anew, so that it is also right if the printer's data have changed meanwhile.
void GoBack(HWND dialog, const ListBefore& before)
{
    if (WatermarkHead != before.head) FreeWatermarkList();  // a dialog that did not come up made none
    WatermarkHead = before.head;
    FreeWatermarkList();
    WatermarkCount = before.count;
    WatermarkIndex = before.index;
    LoadWatermarks(dialog, true);
    WatermarkSlots = before.slots;
    WatermarkNames = before.names;
}

void FillFromNames(HWND dialog)
{
    SendDlgItemMessageW(dialog, IDC_WATERMARK, CB_RESETCONTENT, 0, 0);
    const WCHAR(*name)[WatermarkNameChars] = WatermarkNames.data();
    for (const WORD used : WatermarkSlots) {
        if (!used) continue;
        SendDlgItemMessageW(dialog, IDC_WATERMARK, CB_INSERTSTRING, static_cast<WPARAM>(-1),
                            reinterpret_cast<LPARAM>(*name));
        ++name;
    }
}

// Slots of rows that were deleted stay empty until the list is loaded anew.
int PositionOfCurrent(int countBefore)
{
    if (WatermarkIndex < countBefore) return WatermarkIndex;
    const auto slots = WatermarkSlots.begin();
    const int looked = std::min(WatermarkIndex + 1, static_cast<int>(WatermarkSlots.size()));
    return WatermarkIndex - static_cast<int>(std::count(slots, slots + looked, WORD{0}));
}

void TakeOver(HWND dialog, const ListBefore& before)
{
    WatermarkNode* const edited = std::exchange(WatermarkHead, before.head);
    FreeWatermarkList();
    WatermarkHead = edited;
    FillFromNames(dialog);
    const int position = PositionOfCurrent(before.count);
    SelectInCombo(dialog, IDC_WATERMARK, position);
    if (SelectWatermarkRow(WatermarkIndex) == 1) LoadWatermarkEdit();
    WatermarkEdit.wmFirstPageOnly = before.firstPageOnly;
    WatermarkOption.watermark = WatermarkEdit;
    WatermarkOption.watermark.wmId = static_cast<SHORT>(position);
    SetOption(JobWatermarkOption, WatermarkOption);
}

}  // namespace

void EditWatermark(HWND dialog, bool editable)
{
    const auto firstPageOnly = static_cast<WORD>(IsDlgButtonChecked(dialog, IDC_WATERMARK_FIRST_PAGE));
    const ListBefore before = {firstPageOnly,  WatermarkSlots, WatermarkNames,
                               WatermarkCount, WatermarkIndex, WatermarkHead};
    const INT_PTR result = DialogBoxParamW(ResourceHandle, ResourceName(IDD_WATERMARK), dialog, Watermark_DlgProc,
                                           editable ? TRUE : FALSE);
    if (result == 1)
        TakeOver(dialog, before);
    else
        GoBack(dialog, before);
}

void OnEditWatermark(HWND dialog)
{
    EditWatermark(dialog, CanEdit(dialog));
    ActOnSelection(dialog, IDC_WATERMARK);
    SetupChanged(dialog);
}
