#include "pages/setup_page.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "pages/setup_duplex.h"
#include "pages/setup_nup.h"
#include "pages/setup_overlay.h"
#include "pages/setup_source.h"
#include "pages/setup_watermark.h"
#include "pages/setup_watermark_edit.h"
#include "pages/source_lists.h"
#include "platform/kernel.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_load.h"

int ShellHosted = 0;

namespace {

constexpr LeftPanel Panel = {IDC_SETUP_FRAME, IDC_SETUP_PREVIEW, IDC_SETUP_PAGE_LAYOUT, IDC_SETUP_PRINTER_FIGURE};

constexpr HelpPair Help[] = {
    {IDC_EASY_SET,             1111},
    {IDC_DEFAULT,              1111},
    {IDC_SETUP_FRAME,          1112},
    {IDC_SETUP_PREVIEW,        1112},
    {IDC_SETUP_PAGE_LAYOUT,    1112},
    {IDC_SETUP_PRINTER_FIGURE, 1112},
    {IDC_NUP,                  1114},
    {IDC_NUP_STYLE,            1114},
    {IDC_NUP_GROUP,            1114},
    {IDC_BORDER_LINE,          1114},
    {IDC_WATERMARK,            1115},
    {IDC_EDIT_WATERMARK,       1115},
    {IDC_WATERMARK_GROUP,      1115},
    {IDC_WATERMARK_FIRST_PAGE, 1115},
    {IDC_DUPLEX,               1116},
    {IDC_DUPLEX_ICON,          1116},
    {IDC_GUIDE_PAPER,          1116},
    {IDC_DUPLEX_GROUP,         1116},
    {IDC_PAPER_SOURCE_GROUP,   1117},
    {IDC_PAPER_SOURCE,         1117},
    {IDC_MEDIA_TYPE,           5111},
    {IDC_OVERLAY_GROUP,        5112},
    {IDC_OVERLAY,              5112},
    {IDC_OVERLAY_FIRST_PAGE,   5112},
    {IDC_EDIT_OVERLAY,         5112},
    {0,                        0   },
};
constexpr DWORD PageHelp = 1101;

constexpr UINT PathChars = 260;
constexpr WCHAR ShellModule[] = u"\\SHELL32.DLL";

WCHAR UpperCase(WCHAR character)
{
    return character >= u'a' && character <= u'z' ? static_cast<WCHAR>(character - u'a' + u'A') : character;
}

bool OwnerIsShell(HWND dialog)
{
    WCHAR owner[PathChars] = {}, shell[PathChars + std::size(ShellModule)] = {};
    if (GetWindowModuleFileNameW(GetParent(GetParent(dialog)), owner, PathChars) >= PathChars) return false;
    GetSystemDirectoryW(shell, PathChars);
    lstrcatW(shell, ShellModule);
    return std::ranges::equal(std::u16string_view(owner), std::u16string_view(shell), {}, UpperCase, UpperCase);
}

// Overlay files are made while an application prints, and by who may change the printer.
void OverlayEditRule(HWND dialog)
{
    if (!CanEdit(dialog) || ShellHosted) EnableControl(dialog, IDC_EDIT_OVERLAY, false);
}

void ReadScaling() { FitChoice = GetOption<FitPayload>(FitOption); }

void ReadCopies()
{
    SelectedCollate = GetOption<SHORT>(CollateOption);
    SelectedCopies = GetOption<WORD>(CopiesOption);
}

void ShowPageLayout(HWND dialog)
{
    SetPreviewMode(PreviewPageLayout);
    CheckPreviewMode(dialog, Panel, PreviewPageLayout);
}

void Initialise(HWND dialog)
{
    InitOverlays(dialog);
    RefreshJobWatermark();
    SetupInit(dialog);
    if (OwnerIsShell(dialog)) ShellHosted = 1;
    OverlayEditRule(dialog);
}

void Activate(HWND dialog)
{
    ShowPageLayout(dialog);
    InvalidateControl(dialog, IDC_SETUP_PREVIEW);
    SelectedSource = GetOption<SHORT>(SourceOption);
    RefreshSourceAndMedia(dialog);
    OverlayEditRule(dialog);
}

void FreeLists(HWND)
{
    FreeWatermarkList();
    FreeOverlayList();
}

void Closing(HWND dialog)
{
    CommitOverlayChoice();
    FreeLists(dialog);
}

// Page Layout is drawn for its own item alone, so that no other item wipes it.
void Draw(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    const WORD mode = PreviewMode();
    if (mode != PreviewPageLayout || drawItem.CtlID == IDC_SETUP_PREVIEW) DrawPanel(dialog, Panel, mode, drawItem);
    DrawBinding(dialog);
}

void PickPreview(HWND dialog, WORD mode)
{
    SetPreviewMode(mode);
    InvalidatePanel(dialog, Panel);
}

void OnPageLayout(HWND dialog) { PickPreview(dialog, PreviewPageLayout); }
void OnPrinterFigure(HWND dialog) { PickPreview(dialog, PreviewPrinterFigure); }

// Media other than plain paper came in a paper of its own.
void OnDefault(HWND dialog)
{
    const LRESULT media = SelectedItemData(dialog, IDC_MEDIA_TYPE);
    SetFocus(GetDlgItem(dialog, IDC_DEFAULT));
    SetupDefault(dialog);
    if (media != MediaPlain) {
        ForcePaperByMedia();
        SetOption(PaperOption, PaperChoice);
    }
    SetupChanged(dialog);
}

constexpr Command Commands[] = {
    {IDC_NUP,                  CBN_SELCHANGE, OnNupPicked         },
    {IDC_BORDER_LINE,          AnyCode,       OnBorderLine        },
    {IDC_NUP_STYLE,            AnyCode,       OnNupStyle          },
    {IDC_WATERMARK,            CBN_SELCHANGE, OnWatermarkPicked   },
    {IDC_WATERMARK_FIRST_PAGE, AnyCode,       OnWatermarkFirstPage},
    {IDC_EDIT_WATERMARK,       AnyCode,       OnEditWatermark     },
    {IDC_SETUP_PAGE_LAYOUT,    AnyCode,       OnPageLayout        },
    {IDC_SETUP_PRINTER_FIGURE, AnyCode,       OnPrinterFigure     },
    {IDC_DUPLEX,               CBN_SELCHANGE, OnDuplexPicked      },
    {IDC_GUIDE_PAPER,          AnyCode,       OnGuidePaper        },
    {IDC_PAPER_SOURCE,         CBN_SELCHANGE, OnSourcePicked      },
    {IDC_MEDIA_TYPE,           CBN_SELCHANGE, OnMediaPicked       },
    {IDC_OVERLAY,              CBN_SELCHANGE, OnOverlayPicked     },
    {IDC_OVERLAY_FIRST_PAGE,   AnyCode,       OnOverlayFirstPage  },
    {IDC_EDIT_OVERLAY,         AnyCode,       OnEditOverlay       },
    {IDC_DEFAULT,              AnyCode,       OnDefault           },
};

constexpr PropertyPage Page = {.panel = Panel,
                               .helpContext = PageHelp,
                               .helpTable = Help,
                               .commands = Commands,
                               .initialise = Initialise,
                               .activate = Activate,
                               .draw = Draw,
                               .paint = DrawBinding,
                               .closing = Closing,
                               .reset = FreeLists,
                               .refresh = SetupRefresh};

}  // namespace

void SetupInit(HWND dialog)
{
    SelectedSource = GetOption<SHORT>(SourceOption);
    SelectedMedia = GetOption<SHORT>(MediaOption);
    RefreshSourceAndMedia(dialog);
    ShowPageLayout(dialog);
    InitNup(dialog);
    ReadScaling();
    ReadCopies();
    BookletCopiesRule();
    InitDuplex(dialog);
    InitWatermarks(dialog);
}

void SetupRefresh(HWND dialog)
{
    ReadCopies();
    SelectedMedia = GetOption<SHORT>(MediaOption);
    ReadScaling();
    RefreshDuplex(dialog);
    RefreshNup(dialog);
}

void SetupDefault(HWND dialog)
{
    DefaultSourceAndMedia(dialog);
    DefaultDuplex(dialog);
    DefaultNup(dialog);
    DefaultWatermarkChoice(dialog);
    ShowPageLayout(dialog);
    CurrentSettings->dmBookletRight = 0;
    DefaultOverlay(dialog);
}

void SetupChanged(HWND dialog)
{
    InvalidateControl(dialog, IDC_SETUP_PREVIEW);
    TellSheet(dialog);
}

extern "C" INT_PTR PageLayout_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!CurrentSettings) return FALSE;  // no sheet is open
    return AnswerPageMessage(Page, dialog, message, wParam, lParam);
}
