#include "pages/paper_page.h"

#include "module.h"
#include "pages/control_state.h"
#include "pages/custom_paper_dialog.h"
#include "pages/custom_paper_store.h"
#include "pages/page_framework.h"
#include "pages/paper_combo.h"
#include "pages/paper_copies.h"
#include "pages/paper_fit.h"
#include "pages/paper_number_field.h"
#include "pages/paper_shift.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "watermark/watermark_load.h"

namespace {

constexpr LeftPanel Panel = {IDC_PAPER_FRAME, IDC_PAPER_PREVIEW, IDC_PAPER_PAGE_LAYOUT, IDC_PAPER_PRINTER_FIGURE};

constexpr HelpPair Help[] = {
    {IDC_EASY_SET,             1111},
    {IDC_DEFAULT,              1111},
    {IDC_PAPER_FRAME,          1112},
    {IDC_PAPER_PREVIEW,        1112},
    {IDC_PAPER_PAGE_LAYOUT,    1112},
    {IDC_PAPER_PRINTER_FIGURE, 1112},
    {IDC_DOCUMENT_SIZE_GROUP,  1211},
    {IDC_DOCUMENT_SIZE,        1211},
    {IDC_EDIT_CUSTOM,          1211},
    {IDC_OUTPUT_SIZE_GROUP,    1212},
    {IDC_FIT_TO_PAPER,         1212},
    {IDC_OUTPUT_SIZE,          1212},
    {IDC_SCALING_LABEL,        1212},
    {IDC_SCALING,              1212},
    {IDC_SCALING_SPIN,         1212},
    {IDC_SCALING_PERCENT,      1212},
    {IDC_SCALING_RANGE,        1212},
    {IDC_COPIES_GROUP,         1213},
    {IDC_COPIES,               1213},
    {IDC_COPIES_SPIN,          1213},
    {IDC_COPIES_LABEL,         1213},
    {IDC_COPIES_RANGE,         1213},
    {IDC_COLLATE_GROUP,        1214},
    {IDC_COLLATE_ICON,         1214},
    {IDC_UNCOLLATED,           1214},
    {IDC_COLLATED,             1214},
    {IDC_PROOF_PRINT,          1214},
    {IDC_ORIENTATION_GROUP,    1216},
    {IDC_ORIENTATION_ICON,     1216},
    {IDC_PORTRAIT,             1216},
    {IDC_LANDSCAPE,            1216},
    {IDC_ROTATED,              1216},
    {IDC_SHIFT_GROUP,          1217},
    {IDC_SHIFT_OFF,            1217},
    {IDC_SHIFT_ON,             1217},
    {IDC_SHIFT_X,              1217},
    {IDC_SHIFT_X_SPIN,         1217},
    {IDC_SHIFT_Y,              1217},
    {IDC_SHIFT_Y_SPIN,         1217},
    {IDC_SHIFT_X_LABEL,        1217},
    {IDC_SHIFT_Y_LABEL,        1217},
    {IDC_SHIFT_X_RANGE,        1217},
    {IDC_SHIFT_Y_RANGE,        1217},
    {IDC_SHIFT_UNIT,           1217},
    {0,                        0   },
};
constexpr DWORD PageHelp = 1201;

constexpr SHORT Tray1 = 1;
constexpr SHORT Tray2 = 2;
constexpr SHORT EnvelopeMedia = 2;
constexpr SHORT PostcardMedia = 3;
constexpr int PortraitOrientation = 1;

void EnableEditCustom(HWND dialog, bool enable) { EnableControl(dialog, IDC_EDIT_CUSTOM, enable); }

// Tray2 takes a few papers of plain paper and no custom ones.
void SourceRule(HWND dialog)
{
    ListFilterMode = FilterByMedia;
    if (SelectedSource == Tray2) {
        ListFilterMode = FilterBySource;
        MediaIndex = 0;
    }
    EnableEditCustom(dialog, ListFilterMode != FilterBySource);
}

void PermissionRule(HWND dialog)
{
    if (!CanEdit(dialog)) EnableEditCustom(dialog, false);
}

// A booklet's sheets are those of the document.
void GiveBookletThePaper()
{
    auto duplex = GetOption<DuplexPayload>(DuplexOption);
    if (duplex.bookletPaper != 0) duplex.bookletPaper = PaperChoice.code;
    SetOption(DuplexOption, duplex);
}

void StoreSelectedPaper()
{
    TakeRowSize(SelectedPaperRow);
    SetOption(PaperOption, PaperChoice);
}

// The code at a position of the list, else another: of a position that there is not, and of one that got no code.
SHORT CodeAtPosition(HWND dialog, int position, SHORT otherwise)
{
    const LRESULT code =
        SendDlgItemMessageW(dialog, IDC_DOCUMENT_SIZE, CB_GETITEMDATA, static_cast<WPARAM>(position), 0);
    return code > 0 ? static_cast<SHORT>(code) : otherwise;
}

// The paper at a position of the list becomes the document's.
void TakePaperAtPosition(HWND dialog, int position)
{
    PaperChoice.code = CodeAtPosition(dialog, position, PaperChoice.code);
    GiveBookletThePaper();
    SelectedPaperRow = PaperRowAtPosition(position);
    StoreSelectedPaper();
}

// The size that was selected in the dialog becomes the document's paper, or that of the country if none was. Custom
// sizes are for plain paper alone: with another media, one that it comes in takes their place.
void TakeEditedPaper(HWND dialog, int result)
{
    PaperChoice.code = result > 0 ? static_cast<SHORT>(FirstStoredPaperCode - 1 + result)
                                  : CodeAtPosition(dialog, LocalePaperPosition(), PaperChoice.code);
    AfterCustomPaperEdit(result);
    if (SelectedMedia != 0) PaperChoice.code = static_cast<SHORT>(PaperRows[SelectedPaperRow].code);
    GiveBookletThePaper();
    StoreSelectedPaper();
    SourceRule(dialog);
    RefreshPaperRows();
    ListFilterMode = FilterBySource;
    FillPaperCombo(dialog, IDC_DOCUMENT_SIZE);
}

void InitPaper(HWND dialog)
{
    PaperChoice = GetOption<PaperPayload>(PaperOption);
    SourceRule(dialog);
    RefreshMediaRows();
    LoadPaperRows();
    LoadCustomPaperList();
    RefreshPaperRows();
    FillPaperCombo(dialog, IDC_DOCUMENT_SIZE);
}

void ShowOrientation(HWND dialog)
{
    CheckRadioButton(dialog, IDC_PORTRAIT, IDC_LANDSCAPE, SelectedOrientation == 2 ? IDC_LANDSCAPE : IDC_PORTRAIT);
}

void ShowRotated(HWND dialog) { CheckControl(dialog, IDC_ROTATED, GetOption<WORD>(ImageRotatedOption) != 0); }

void ShowPreviewMode(HWND dialog)
{
    CheckPreviewMode(dialog, Panel, PreviewMode() != PreviewPageLayout ? PreviewPrinterFigure : PreviewPageLayout);
}

void Initialise(HWND dialog)
{
    PaperInit(dialog);
    PermissionRule(dialog);
}

// A second tray that was taken away while it was selected; the record keeps it until the Setup page decides.
void LeaveMissingTray()
{
    if (CurrentSettings && CurrentSettings->dmDeviceFlags == 0 && SelectedSource == Tray2) SelectedSource = Tray1;
}

void Activate(HWND dialog)
{
    MediaChanging = 1;
    LeaveMissingTray();
    SourceRule(dialog);
    SyncFitAndScale(dialog);
    RefreshPaperRows();
    FillPaperCombo(dialog, IDC_DOCUMENT_SIZE);
    FillOutputPaperCombo(dialog, SelectedSource);
    ListFilterMode = FilterBySource;
    StoreSelectedPaper();
    SetPreviewMode(PreviewPageLayout);
    InvalidateControl(dialog, IDC_PAPER_PREVIEW);
    ShowPreviewMode(dialog);
    PermissionRule(dialog);
}

void OnDocumentSizePicked(HWND dialog)
{
    const int position = ComboSelection(dialog, IDC_DOCUMENT_SIZE);
    if (position < 0) return;
    TakePaperAtPosition(dialog, position);
    PaperChanged(dialog);
}

void OnEditCustom(HWND dialog)
{
    CustomPaperAccepted = 0;  // also if the dialog can't be shown
    const INT_PTR result =
        DialogBoxParamW(ResourceHandle, ResourceName(IDD_CUSTOM_PAPER), dialog, CustomPaper_DlgProc, 0);
    if (CustomPaperAccepted != 0) TakeEditedPaper(dialog, static_cast<int>(result));
    PaperChanged(dialog);
}

void PickOrientation(HWND dialog, int orientation)
{
    SelectedOrientation = orientation;
    SetOption(OrientationOption, static_cast<WORD>(orientation));
    PaperChanged(dialog);
}

void OnPortrait(HWND dialog) { PickOrientation(dialog, PortraitOrientation); }
void OnLandscape(HWND dialog) { PickOrientation(dialog, PortraitOrientation + 1); }

// Shows in no picture, and the sheet is not told.
void OnRotated(HWND dialog)
{
    SetOption(ImageRotatedOption, static_cast<WORD>(IsDlgButtonChecked(dialog, IDC_ROTATED)));
}

void PickPreview(HWND dialog, WORD mode)
{
    SetPreviewMode(mode);
    PaperChanged(dialog);
}

void OnPageLayout(HWND dialog) { PickPreview(dialog, PreviewPageLayout); }
void OnPrinterFigure(HWND dialog) { PickPreview(dialog, PreviewPrinterFigure); }

void OnDefault(HWND dialog)
{
    PaperDefault(dialog);
    SetFocus(GetDlgItem(dialog, IDC_COPIES));
    PermissionRule(dialog);
    PaperChanged(dialog);
}

constexpr Command Commands[] = {
    {IDC_DOCUMENT_SIZE,        CBN_SELCHANGE, OnDocumentSizePicked},
    {IDC_EDIT_CUSTOM,          AnyCode,       OnEditCustom        },
    {IDC_OUTPUT_SIZE,          CBN_SELCHANGE, OnOutputSizePicked  },
    {IDC_FIT_TO_PAPER,         AnyCode,       OnFitToPaper        },
    {IDC_SCALING,              EN_CHANGE,     OnScalingTyped      },
    {IDC_SCALING,              EN_KILLFOCUS,  OnScalingLeft       },
    {IDC_COPIES,               EN_CHANGE,     OnCopiesTyped       },
    {IDC_COPIES,               EN_KILLFOCUS,  OnCopiesLeft        },
    {IDC_COPIES,               AnyCode,       OnCopiesNotice      },
    {IDC_UNCOLLATED,           AnyCode,       OnUncollated        },
    {IDC_COLLATED,             AnyCode,       OnCollated          },
    {IDC_PROOF_PRINT,          AnyCode,       OnProofPrint        },
    {IDC_PORTRAIT,             AnyCode,       OnPortrait          },
    {IDC_LANDSCAPE,            AnyCode,       OnLandscape         },
    {IDC_SHIFT_X,              EN_CHANGE,     OnShiftXTyped       },
    {IDC_SHIFT_X,              EN_KILLFOCUS,  OnShiftXLeft        },
    {IDC_SHIFT_Y,              EN_CHANGE,     OnShiftYTyped       },
    {IDC_SHIFT_Y,              EN_KILLFOCUS,  OnShiftYLeft        },
    {IDC_SHIFT_OFF,            AnyCode,       OnShiftOff          },
    {IDC_SHIFT_ON,             AnyCode,       OnShiftOn           },
    {IDC_ROTATED,              AnyCode,       OnRotated           },
    {IDC_PAPER_PAGE_LAYOUT,    AnyCode,       OnPageLayout        },
    {IDC_PAPER_PRINTER_FIGURE, AnyCode,       OnPrinterFigure     },
    {IDC_DEFAULT,              AnyCode,       OnDefault           },
};

void Draw(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    DrawPanel(dialog, Panel, PreviewMode(), drawItem);
    DrawPageIcon(GetDlgItem(dialog, IDC_COLLATE_ICON), SelectedCollate != 0 ? IDI_COLLATED : IDI_UNCOLLATED);
    DrawPageIcon(GetDlgItem(dialog, IDC_ORIENTATION_ICON),
                 SelectedOrientation == PortraitOrientation ? IDI_PORTRAIT : IDI_LANDSCAPE);
}

constexpr PropertyPage Page = {.panel = Panel,
                               .helpContext = PageHelp,
                               .helpTable = Help,
                               .commands = Commands,
                               .initialise = Initialise,
                               .activate = Activate,
                               .draw = Draw,
                               .drawAnswer = TRUE,
                               .paint = CopiesCollateRule};

}  // namespace

void PaperInit(HWND dialog)
{
    InitPaper(dialog);
    InitCopies(dialog);
    SelectedOrientation = GetOption<WORD>(OrientationOption);
    ShowOrientation(dialog);
    InitCollation(dialog);
    InitFitAndScale(dialog);
    RefreshJobWatermark();
    ShowPreviewMode(dialog);
    InitImageShift(dialog);
    ShowRotated(dialog);
    InvalidateControl(dialog, IDC_PAPER_PREVIEW);
}

void PaperDefault(HWND dialog)
{
    SelectedSource = GetOption<SHORT>(SourceOption);
    ListFilterMode = FilterByMedia;
    RefreshMediaRows();
    RefreshPaperRows();
    ListFilterMode = FilterBySource;
    const bool first = SelectedMedia == EnvelopeMedia || SelectedMedia == PostcardMedia;
    const int position = first ? 0 : LocalePaperPosition();
    TakePaperAtPosition(dialog, position);
    SelectInCombo(dialog, IDC_DOCUMENT_SIZE, position);
    DefaultCopies(dialog);
    SelectedOrientation = PortraitOrientation;
    SetOption(OrientationOption, static_cast<WORD>(SelectedOrientation));
    ShowOrientation(dialog);
    DefaultCollation(dialog);
    DefaultFitAndScale(dialog);
    SetPreviewMode(PreviewPageLayout);
    ShowPreviewMode(dialog);
    DefaultImageShift(dialog);
    SetOption(ImageRotatedOption, WORD{0});
    ShowRotated(dialog);
}

extern "C" INT_PTR Paper_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AnswerPageMessage(Page, dialog, message, wParam, lParam);
}
