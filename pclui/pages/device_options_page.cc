#include "pages/device_options_page.h"

#include "module.h"
#include "pages/about_dialog.h"
#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "resources/control_numbers.h"
#include "settings/defaults.h"
#include "settings/list_rows.h"

namespace {

constexpr LeftPanel Panel = {IDC_DEVICE_FRAME, IDC_DEVICE_PREVIEW, IDC_DEVICE_PAGE_LAYOUT, IDC_DEVICE_PRINTER_FIGURE};

constexpr HelpPair Help[] = {
    {IDC_EASY_SET,              1111},
    {IDC_DEFAULT,               1111},
    {IDC_DEVICE_FRAME,          1112},
    {IDC_DEVICE_PREVIEW,        1112},
    {IDC_DEVICE_PAGE_LAYOUT,    1112},
    {IDC_DEVICE_PRINTER_FIGURE, 1112},
    {IDC_DEVICE_OPTIONS_GROUP,  1407},
    {IDC_TRAY2,                 1407},
    {IDC_TOTAL_MEMORY,          1408},
    {IDC_TOTAL_MEMORY_LABEL,    1408},
    {IDC_TOTAL_MEMORY_UNIT,     1408},
    {IDC_ABOUT,                 5315},
    {0,                         0   },
};
constexpr DWORD PageHelp = 1401;

constexpr WORD LowerMemory = 16;  // megabytes; the first row of the list

void ShowPrinterFigure(HWND dialog)
{
    CheckPreviewMode(dialog, Panel, PreviewPrinterFigure);
    DevicePreviewMode = PreviewPrinterFigure;
    InvalidatePanel(dialog, Panel);
}

void Initialise(HWND dialog)
{
    AboutIsPage = 0;
    DeviceRefresh(dialog);
}

// The memory that is left for a job follows when the record is next merged.
void OnMemoryPicked(HWND dialog)
{
    if (CurrentSettings) {
        CurrentSettings->dmTotalMemory = static_cast<SHORT>(GetDlgItemInt(dialog, IDC_TOTAL_MEMORY, nullptr, FALSE));
    }
    TellSheet(dialog);
}

void OnAbout(HWND dialog) { DialogBoxParamW(ResourceHandle, ResourceName(DLG_ABOUT), dialog, About, 0); }

void OnPageLayout(HWND dialog)
{
    DevicePreviewMode = PreviewPageLayout;
    InvalidatePanel(dialog, Panel);
}

void OnPrinterFigure(HWND dialog)
{
    DevicePreviewMode = PreviewPrinterFigure;
    InvalidatePanel(dialog, Panel);
}

void OnDefault(HWND dialog)
{
    DeviceDefault(dialog);
    TellSheet(dialog);
    Tray2Installed = 0;
    InvalidateRect(GetDlgItem(dialog, IDC_DEVICE_FRAME), nullptr, FALSE);
}

constexpr Command Commands[] = {
    {IDC_TOTAL_MEMORY,          CBN_SELCHANGE, OnMemoryPicked },
    {IDC_ABOUT,                 AnyCode,       OnAbout        },
    {IDC_DEVICE_PAGE_LAYOUT,    AnyCode,       OnPageLayout   },
    {IDC_DEVICE_PRINTER_FIGURE, AnyCode,       OnPrinterFigure},
    {IDC_DEFAULT,               AnyCode,       OnDefault      },
};

void Draw(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    DrawPanel(dialog, Panel, static_cast<WORD>(DevicePreviewMode), drawItem);
}

constexpr PropertyPage Page = {Panel, PageHelp, Help, Commands, Initialise, DeviceRefresh, Draw};

}  // namespace

void DeviceRefresh(HWND dialog)
{
    const DWORD tray2 = GetOption<DWORD>(Tray2Option);
    Tray2Installed = static_cast<SHORT>(tray2);
    CheckControl(dialog, IDC_TRAY2, tray2 != 0);
    ShowPrinterFigure(dialog);

    WORD memory = 0;
    FillComboFromStrings(dialog, IDC_TOTAL_MEMORY, IDS_MEMORY_FIRST, IDS_MEMORY_LAST, TotalMemoryOption, &memory);
    SelectInCombo(dialog, IDC_TOTAL_MEMORY, memory == LowerMemory ? 0 : 1);
}

void DeviceDefault(HWND dialog)
{
    ShowPrinterFigure(dialog);
    if (CurrentSettings && CurrentSettings->dmTotalMemory != LowerMemory) {
        SelectInCombo(dialog, IDC_TOTAL_MEMORY, 0);
        SetOption(TotalMemoryOption, LowerMemory);
    }
    CheckControl(dialog, IDC_TRAY2, false);
    if (CurrentSettings) CurrentSettings->dmDeviceFlags &= ~Tray2Flag;
}

extern "C" INT_PTR DeviceOption_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AnswerPageMessage(Page, dialog, message, wParam, lParam);
}
