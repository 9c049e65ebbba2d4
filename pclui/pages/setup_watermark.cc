#include "pages/setup_watermark.h"

#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "pages/setup_page.h"
#include "resources/control_numbers.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_load.h"

namespace {

constexpr int NonePosition = 0;

void ShowFirstPage(HWND dialog, bool enabled, bool checked)
{
    EnableControl(dialog, IDC_WATERMARK_FIRST_PAGE, enabled);
    CheckControl(dialog, IDC_WATERMARK_FIRST_PAGE, checked);
}

void StoreOption() { SetOption(JobWatermarkOption, WatermarkOption); }

}  // namespace

// A list of an earlier sheet goes first: the rows are shared by all sheets of a process.
void InitWatermarks(HWND dialog)
{
    FreeWatermarkList();
    LoadWatermarks(dialog, true);
}

void DefaultWatermarkChoice(HWND dialog)
{
    WatermarkOption.on = 0;
    StoreOption();
    SelectInCombo(dialog, IDC_WATERMARK, NonePosition);
    ShowFirstPage(dialog, false, false);
}

void OnWatermarkPicked(HWND dialog)
{
    const int position = ComboSelection(dialog, IDC_WATERMARK);
    if (SelectWatermarkRow(position) != 1) return;
    WatermarkIndex = position;
    LoadWatermarkEdit();
    const bool chosen = position != NonePosition;
    WatermarkOption.on = chosen ? 1 : 0;
    ShowFirstPage(dialog, chosen, chosen && WatermarkEdit.wmFirstPageOnly != 0);
    WatermarkOption.watermark = WatermarkEdit;
    StoreOption();
    SetupChanged(dialog);
}

void OnWatermarkFirstPage(HWND dialog)
{
    GetOption(JobWatermarkOption.group, JobWatermarkOption.key, &WatermarkOption);
    const bool checked = IsChecked(dialog, IDC_WATERMARK_FIRST_PAGE);
    WatermarkOption.watermark.wmFirstPageOnly = WatermarkEdit.wmFirstPageOnly = checked ? 1 : 0;
    StoreOption();
    SetupChanged(dialog);
}
