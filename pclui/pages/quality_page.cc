#include "pages/quality_page.h"

#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "resources/control_numbers.h"

namespace {

constexpr LeftPanel Panel = {IDC_QUALITY_FRAME, IDC_QUALITY_PREVIEW, IDC_QUALITY_PAGE_LAYOUT,
                             IDC_QUALITY_PRINTER_FIGURE};

constexpr HelpPair Help[] = {
    {IDC_EASY_SET,               1111},
    {IDC_DEFAULT,                1111},
    {IDC_QUALITY_FRAME,          1112},
    {IDC_QUALITY_PREVIEW,        1112},
    {IDC_QUALITY_PAGE_LAYOUT,    1112},
    {IDC_QUALITY_PRINTER_FIGURE, 1112},
    {IDC_RESOLUTION_GROUP,       1311},
    {IDC_RESOLUTION_ICON,        1311},
    {IDC_RESOLUTION,             1311},
    {IDC_TONER_SAVE_GROUP,       4311},
    {IDC_TONER_SAVE_ON,          4311},
    {IDC_TONER_SAVE_OFF,         4311},
    {IDC_ADJUSTMENT_GROUP,       1313},
    {IDC_ALL_RASTER_LABEL,       1403},
    {IDC_ALL_RASTER_OFF,         1403},
    {IDC_ALL_RASTER_ON,          1403},
    {IDC_SMOOTHTONE_LABEL,       1404},
    {IDC_SMOOTHTONE,             1404},
    {IDC_TONER_DENSITY,          1405},
    {IDC_PRINTER_TRUETYPE,       1406},
    {0,                          0   },
};
constexpr DWORD PageHelp = 1301;

// Controls that a rule locks together.
constexpr int TonerSaveControls[] = {IDC_TONER_SAVE_GROUP, IDC_TONER_SAVE_ON, IDC_TONER_SAVE_OFF};
constexpr int SmoothtoneControls[] = {IDC_SMOOTHTONE_LABEL, IDC_SMOOTHTONE};
constexpr int AllRasterControls[] = {IDC_ALL_RASTER_LABEL, IDC_ALL_RASTER_ON, IDC_ALL_RASTER_OFF};

// The rows of the resolution list, by position.
struct ResolutionRow {
    WORD value;  // of the option
    int icon;
};
constexpr ResolutionRow Resolutions[] = {
    {600,  IDI_RESOLUTION_600 }, // 600 x 600
    {2,    IDI_RESOLUTION_600 }, // 1200 x 600, which prints at 600 dots per inch too
    {1200, IDI_RESOLUTION_1200}, // 1200 x 1200
};
constexpr WORD LowestResolution = 600;
constexpr WORD Resolution1200x600 = 2;
constexpr WORD HighestResolution = 1200;

constexpr WORD DefaultSmoothtone = 2;
constexpr WORD DefaultDensity = 3;

WORD Read(OptionKey option) { return GetOption<WORD>(option); }
void Write(OptionKey option, WORD value) { SetOption(option, value); }

// Null if nothing is selected.
const ResolutionRow* SelectedResolution(HWND dialog)
{
    const int position = ComboSelection(dialog, IDC_RESOLUTION);
    return position >= 0 && position < static_cast<int>(std::size(Resolutions)) ? &Resolutions[position] : nullptr;
}

// Toner Save works at 600 x 600 only.
bool ExcludesTonerSave(WORD resolution) { return resolution == HighestResolution || resolution == Resolution1200x600; }

// A resolution that is none of ours shows as the highest.
int PositionOfResolution()
{
    if (!CurrentSettings || CurrentSettings->dmPrintQuality != LowestResolution) return 2;
    return Read(ResolutionOption) == Resolution1200x600 ? 1 : 0;
}

// All Raster needs a page that is neither scaled nor laid out with others on a sheet.
bool AllRasterPossible()
{
    const auto fit = GetOption<FitPayload>(FitOption);
    const auto nup = GetOption<NupPayload>(NupOption);
    const auto duplex = GetOption<DuplexPayload>(DuplexOption);
    return fit.fit == 0 && nup.on != 1 && duplex.bookletPaper == 0;
}

// With All Raster on, the page is sent as one picture and printer fonts have no use.
void ShowPrinterTrueType(HWND dialog, bool checked, bool enabled)
{
    CheckControl(dialog, IDC_PRINTER_TRUETYPE, checked);
    EnableControl(dialog, IDC_PRINTER_TRUETYPE, enabled);
}

void RefreshResolution(HWND dialog, bool lowestOnly)
{
    WORD resolution = 0;
    FillComboFromStrings(dialog, IDC_RESOLUTION, IDS_RESOLUTION_600,
                         lowestOnly ? IDS_RESOLUTION_600 : IDS_RESOLUTION_1200, ResolutionOption, &resolution);
    SelectInCombo(dialog, IDC_RESOLUTION, PositionOfResolution());
}

void RefreshList(HWND dialog, int control, int firstString, int lastString, OptionKey option)
{
    WORD position = 0;
    FillComboFromStrings(dialog, control, firstString, lastString, option, &position);
    SelectInCombo(dialog, control, position);
}

// The value of All Raster after the rule.
WORD RefreshAllRaster(HWND dialog)
{
    const bool possible = AllRasterPossible();
    if (!possible) Write(AllRasterOption, 0);
    const WORD allRaster = possible ? Read(AllRasterOption) : WORD{0};
    CheckRadioButton(dialog, IDC_ALL_RASTER_ON, IDC_ALL_RASTER_OFF,
                     allRaster != 0 ? IDC_ALL_RASTER_ON : IDC_ALL_RASTER_OFF);
    EnableControls(dialog, AllRasterControls, possible);
    return allRaster;
}

// The modes of graphics and text follow All Raster here alone, so a change on this page reaches them when
// the page next comes to the front.
void RefreshModes(HWND dialog, WORD allRaster)
{
    const bool raster = allRaster == 1;
    Write(GraphicsModeOption, raster ? 0 : 1);
    Write(TextModeOption, raster ? 1 : 2);
    if (raster) Write(PrinterTrueTypeOption, 0);
    ShowPrinterTrueType(dialog, !raster && Read(PrinterTrueTypeOption) != 0, !raster);
}

void OnResolutionPicked(HWND dialog)
{
    const WORD tonerSave = Read(TonerSaveOption);
    const WORD fixed = Read(FixedResolutionOption);
    const ResolutionRow* picked = SelectedResolution(dialog);
    if (!picked) return;
    InvalidateControl(dialog, IDC_QUALITY_PREVIEW);
    Write(ResolutionOption, picked->value);
    if (ExcludesTonerSave(picked->value)) {
        EnableControls(dialog, TonerSaveControls, false);
    } else if (fixed == 0 && tonerSave == 0) {
        EnableControls(dialog, TonerSaveControls, true);
        EnableControls(dialog, SmoothtoneControls, true);
    }
    TellSheet(dialog);
}

void OnTonerSaveOn(HWND dialog)
{
    if (Read(TonerSaveOption) == 1) return;
    EnableControls(dialog, SmoothtoneControls, false);
    Write(TonerSaveOption, 1);
    SendDlgItemMessageW(dialog, IDC_RESOLUTION, CB_DELETESTRING, 1, 0);
    SendDlgItemMessageW(dialog, IDC_RESOLUTION, CB_DELETESTRING, 1, 0);
    TellSheet(dialog);
    InvalidateControl(dialog, IDC_QUALITY_PREVIEW);
}

void OnTonerSaveOff(HWND dialog)
{
    if (Read(TonerSaveOption) == 0) return;
    for (int position = 1; position <= 2; ++position)
        SendDlgItemMessageW(dialog, IDC_RESOLUTION, CB_INSERTSTRING, static_cast<WPARAM>(position),
                            reinterpret_cast<LPARAM>(LoadResString(IDS_RESOLUTION_600 + position, 0)));
    EnableControls(dialog, SmoothtoneControls, true);
    Write(TonerSaveOption, 0);
    TellSheet(dialog);
    InvalidateControl(dialog, IDC_QUALITY_PREVIEW);
}

void SetAllRaster(HWND dialog, WORD value)
{
    if (Read(AllRasterOption) == value) return;
    const bool fonts = value == 0;
    Write(AllRasterOption, value);
    Write(PrinterTrueTypeOption, fonts ? 1 : 0);
    ShowPrinterTrueType(dialog, fonts, fonts);
    TellSheet(dialog);
}

void OnAllRasterOn(HWND dialog) { SetAllRaster(dialog, 1); }
void OnAllRasterOff(HWND dialog) { SetAllRaster(dialog, 0); }

void StoreSelection(HWND dialog, int control, OptionKey option)
{
    const int position = ComboSelection(dialog, control);
    if (position < 0) return;
    Write(option, static_cast<WORD>(position));
    TellSheet(dialog);
}

void OnSmoothtonePicked(HWND dialog) { StoreSelection(dialog, IDC_SMOOTHTONE, SmoothtoneOption); }
void OnDensityPicked(HWND dialog) { StoreSelection(dialog, IDC_TONER_DENSITY, TonerDensityOption); }

void OnPrinterTrueType(HWND dialog)
{
    const WORD checked = static_cast<WORD>(IsDlgButtonChecked(dialog, IDC_PRINTER_TRUETYPE));
    if (checked == Read(PrinterTrueTypeOption)) return;
    Write(PrinterTrueTypeOption, checked);
    TellSheet(dialog);
}

void OnPageLayout(HWND dialog)
{
    SetPreviewMode(PreviewPageLayout);
    InvalidatePanel(dialog, Panel);
}

void OnPrinterFigure(HWND dialog)
{
    SetPreviewMode(PreviewPrinterFigure);
    InvalidatePanel(dialog, Panel);
}

void OnDefault(HWND dialog)
{
    if (QualityDefault(dialog)) TellSheet(dialog);
}

constexpr Command Commands[] = {
    {IDC_RESOLUTION,             CBN_SELCHANGE, OnResolutionPicked},
    {IDC_TONER_SAVE_ON,          AnyCode,       OnTonerSaveOn     },
    {IDC_TONER_SAVE_OFF,         AnyCode,       OnTonerSaveOff    },
    {IDC_ALL_RASTER_ON,          AnyCode,       OnAllRasterOn     },
    {IDC_ALL_RASTER_OFF,         AnyCode,       OnAllRasterOff    },
    {IDC_SMOOTHTONE,             CBN_SELCHANGE, OnSmoothtonePicked},
    {IDC_TONER_DENSITY,          CBN_SELCHANGE, OnDensityPicked   },
    {IDC_PRINTER_TRUETYPE,       AnyCode,       OnPrinterTrueType },
    {IDC_QUALITY_PAGE_LAYOUT,    AnyCode,       OnPageLayout      },
    {IDC_QUALITY_PRINTER_FIGURE, AnyCode,       OnPrinterFigure   },
    {IDC_DEFAULT,                AnyCode,       OnDefault         },
};

void Draw(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    DrawPanel(dialog, Panel, PreviewMode(), drawItem);
    if (const ResolutionRow* selected = SelectedResolution(dialog))
        DrawPageIcon(GetDlgItem(dialog, IDC_RESOLUTION_ICON), selected->icon);
}

constexpr PropertyPage Page = {Panel, PageHelp, Help, Commands, QualityRefresh, QualityRefresh, Draw};

}  // namespace

void QualityRefresh(HWND dialog)
{
    CheckPreviewMode(dialog, Panel, PreviewPageLayout);
    SetPreviewMode(PreviewPageLayout);
    InvalidatePanel(dialog, Panel);

    const WORD tonerSave = Read(TonerSaveOption);
    CheckRadioButton(dialog, IDC_TONER_SAVE_ON, IDC_TONER_SAVE_OFF,
                     tonerSave != 0 ? IDC_TONER_SAVE_ON : IDC_TONER_SAVE_OFF);
    if (tonerSave != 0) EnableControls(dialog, SmoothtoneControls, false);
    const WORD fixed = Read(FixedResolutionOption);
    if (fixed != 0) {
        EnableControls(dialog, TonerSaveControls, false);
        EnableControls(dialog, SmoothtoneControls, false);
    }

    RefreshResolution(dialog, tonerSave != 0 || fixed != 0);
    RefreshList(dialog, IDC_SMOOTHTONE, IDS_SMOOTHTONE_FIRST, IDS_SMOOTHTONE_LAST, SmoothtoneOption);
    if (ExcludesTonerSave(Read(ResolutionOption))) EnableControls(dialog, TonerSaveControls, false);
    RefreshList(dialog, IDC_TONER_DENSITY, IDS_DENSITY_FIRST, IDS_DENSITY_LAST, TonerDensityOption);
    RefreshModes(dialog, RefreshAllRaster(dialog));
}

bool QualityDefault(HWND dialog)
{
    bool changed = false;
    const auto write = [&](OptionKey option, WORD value) {
        Write(option, value);
        changed = true;
    };
    const auto restore = [&](OptionKey option, WORD value) {
        if (Read(option) != value) write(option, value);
    };

    CheckPreviewMode(dialog, Panel, PreviewPageLayout);
    SetPreviewMode(PreviewPageLayout);
    restore(TonerSaveOption, 0);
    EnableControls(dialog, TonerSaveControls, false);  // the default resolution excludes it
    restore(SmoothtoneOption, DefaultSmoothtone);
    EnableControls(dialog, SmoothtoneControls, true);
    restore(TonerDensityOption, DefaultDensity);
    restore(AllRasterOption, 0);
    restore(PrinterTrueTypeOption, 1);
    if (Read(FixedResolutionOption) == 1) write(FixedResolutionOption, 0);
    restore(ResolutionOption, Resolution1200x600);
    if (changed) QualityRefresh(dialog);
    InvalidatePanel(dialog, Panel);
    return changed;
}

extern "C" INT_PTR Quality_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AnswerPageMessage(Page, dialog, message, wParam, lParam);
}
