#include "watermark/watermark_load.h"

#include "platform/user.h"
#include "resources/control_numbers.h"
#include "settings/options.h"
#include "watermark/geometry.h"
#include "watermark/placement.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_values.h"

namespace {

constexpr WORD Portrait = 1;

void ReadDiagonal()
{
    const auto paper = GetOption<PaperPayload>(PaperOption);
    const bool portrait = GetOption<WORD>(OrientationOption, Portrait) == Portrait;
    DiagonalAngle = portrait ? DiagonalOf(paper.width, paper.length) : DiagonalOf(paper.length, paper.width);
}

// Appends the names to the control, one for each slot in use, and finds the row of the job's watermark. Gives
// the number of rows.
int FillControl(HWND dialog, int control, UINT insert)
{
    int rows = 0;
    for (std::size_t slot = 0; slot < WatermarkSlots.size(); ++slot) {
        if (!WatermarkSlots[slot]) continue;
        const WCHAR* name = WatermarkNames[static_cast<std::size_t>(rows)];
        SendDlgItemMessageW(dialog, control, insert, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(name));
        if (static_cast<int>(slot) == WatermarkOption.watermark.wmId) WatermarkIndex = rows;
        ++rows;
    }
    return rows;
}

void ShowOnSetupPage(HWND dialog)
{
    SendDlgItemMessageW(dialog, IDC_WATERMARK, CB_SETCURSEL, static_cast<WPARAM>(WatermarkIndex), 0);
    WatermarkOption.on = WatermarkIndex != 0;
    EnableWindow(GetDlgItem(dialog, IDC_WATERMARK_FIRST_PAGE), WatermarkIndex != 0);
    CheckDlgButton(dialog, IDC_WATERMARK_FIRST_PAGE,
                   WatermarkOption.watermark.wmFirstPageOnly ? BST_CHECKED : BST_UNCHECKED);
}

void ShowInDialog(HWND dialog)
{
    SendDlgItemMessageW(dialog, IDC_WM_LIST, LB_SETCURSEL, static_cast<WPARAM>(WatermarkIndex), 0);
    if (WatermarkCount >= MostWatermarks) EnableWindow(GetDlgItem(dialog, IDC_WM_NEW), FALSE);
}

}  // namespace

int LoadWatermarks(HWND dialog, bool forSetupPage)
{
    GetOption(JobWatermarkOption.group, JobWatermarkOption.key, &WatermarkOption);
    ReadDiagonal();
    WatermarkSlots.fill(0);
    if (BuildWatermarkList() != 1) return 0;
    ReadStoredWatermarks();
    if (forSetupPage) SendDlgItemMessageW(dialog, IDC_WATERMARK, CB_RESETCONTENT, 0, 0);
    WatermarkIndex = -1;
    const int rows = forSetupPage ? FillControl(dialog, IDC_WATERMARK, CB_INSERTSTRING)
                                  : FillControl(dialog, IDC_WM_LIST, LB_INSERTSTRING);
    if (WatermarkOption.on == 0 || WatermarkIndex == -1) WatermarkIndex = 0;
    WatermarkCount = rows - 1;
    SelectWatermarkRow(WatermarkIndex);
    LoadWatermarkEdit();
    if (forSetupPage)
        ShowOnSetupPage(dialog);
    else
        ShowInDialog(dialog);
    return 1;
}

void RefreshJobWatermark()
{
    GetOption(JobWatermarkOption.group, JobWatermarkOption.key, &WatermarkOption);
    if (WatermarkOption.on != 0 && RefreshWatermark(WatermarkOption) == 1)
        SetOption(JobWatermarkOption, WatermarkOption);
}
