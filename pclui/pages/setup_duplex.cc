#include "pages/setup_duplex.h"

#include <iterator>

#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "pages/setup_nup.h"
#include "pages/setup_page.h"
#include "pages/source_lists.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"

namespace {

constexpr OptionKey NoOption = {1305, IDC_DUPLEX};  // the list stands for several fields and has none of its own
constexpr SHORT LongEdge = 1;                       // dmDuplexBinding
constexpr SHORT ShortEdge = 3;
constexpr BYTE FitToOutputPaper = 2;

// The rows of the list, by position.
struct Binding {
    int icon;
    SHORT on, binding;
    bool booklet;
    SHORT right;  // booklets: dmBookletRight
};
constexpr Binding Bindings[] = {
    {IDI_PORTRAIT,      0, 0,         false, 0},
    {IDI_SHORT_EDGE,    1, ShortEdge, false, 0},
    {IDI_LONG_EDGE,     1, LongEdge,  false, 0},
    {IDI_BOOKLET_LEFT,  1, 0,         true,  0},
    {IDI_BOOKLET_RIGHT, 1, 0,         true,  1},
};
constexpr int OffPosition = 0;

// Null if nothing is selected.
const Binding* SelectedBinding(HWND dialog)
{
    const int position = ComboSelection(dialog, IDC_DUPLEX);
    return position >= 0 && position < static_cast<int>(std::size(Bindings)) ? &Bindings[position] : nullptr;
}

// The options that bindings work on, until they are written.
struct Layout {
    NupPayload nup;
    DuplexPayload duplex;
    bool wasBooklet;
};

Layout ReadLayout()
{
    Layout layout = {GetOption<NupPayload>(NupOption), GetOption<DuplexPayload>(DuplexOption), false};
    layout.wasBooklet = layout.duplex.on != 0 && layout.duplex.bookletPaper != 0;
    return layout;
}

void TurnOff(DuplexPayload& duplex)
{
    duplex.on = 0;
    duplex.binding = duplex.bookletPaper = 0;
}

bool OffersBooklets() { return PagesKeepTheirSize() && (SelectedCopies <= 1 || SelectedCollate != 0); }

void FillBindings(HWND dialog)
{
    FillComboFromStrings(dialog, IDC_DUPLEX, IDS_DUPLEX_FIRST,
                         OffersBooklets() ? IDS_DUPLEX_LAST : IDS_DUPLEX_LONG_EDGE, NoOption, nullptr);
}

void EnableNupAtFullSize(HWND dialog)
{
    if (PagesKeepTheirSize()) EnableControl(dialog, IDC_NUP, true);
}

void ShowNoDuplex(HWND dialog)
{
    SelectInCombo(dialog, IDC_DUPLEX, OffPosition);
    CheckControl(dialog, IDC_GUIDE_PAPER, true);
    EnableControl(dialog, IDC_GUIDE_PAPER, false);
}

int PositionOf(const DuplexPayload& duplex)
{
    if (duplex.bookletPaper != 0) return CurrentSettings->dmBookletRight != 0 ? 4 : 3;
    return duplex.binding == LongEdge ? 2 : 1;
}

// A list without booklets cannot show one: nothing is selected then.
void ShowDuplexOn(HWND dialog, const DuplexPayload& duplex)
{
    if (duplex.bookletPaper != 0) {
        EnableControl(dialog, IDC_NUP, false);
        SelectInCombo(dialog, IDC_NUP, 1);
    }
    CheckControl(dialog, IDC_GUIDE_PAPER, duplex.guidePaper != 0);
    EnableControl(dialog, IDC_GUIDE_PAPER, true);
    SelectInCombo(dialog, IDC_DUPLEX, PositionOf(duplex));
}

SHORT BookletPaper()
{
    return FitChoice.fit == FitToOutputPaper ? CurrentSettings->dmOutputPaper : CurrentSettings->dmPaperSize;
}

void DrawIconAtOnce(HWND dialog, const Binding& picked)
{
    if (picked.on == 0 || SelectedSource == SourceTray1) DrawPageIcon(GetDlgItem(dialog, IDC_DUPLEX_ICON), picked.icon);
}

void TakeBinding(HWND dialog, const Binding& picked, Layout& layout)
{
    layout.duplex.on = picked.on;
    layout.duplex.binding = picked.binding;
    layout.duplex.bookletPaper = picked.booklet ? BookletPaper() : SHORT{0};
    EnableControl(dialog, IDC_GUIDE_PAPER, picked.on != 0);
    if (picked.booklet) {
        CurrentSettings->dmBookletRight = picked.right;
        EnableControl(dialog, IDC_BORDER_LINE, true);
    }
    DrawIconAtOnce(dialog, picked);
}

void LeaveDuplex(HWND dialog, Layout& layout)
{
    EnableNupAtFullSize(dialog);
    if (layout.wasBooklet) EndTwoUp(dialog, layout.nup);
}

void RefuseBinding(HWND dialog, Layout& layout)
{
    RefuseSourceForDuplex(dialog);
    TurnOff(layout.duplex);
    if (layout.nup.on == 0) EnableControl(dialog, IDC_BORDER_LINE, false);
    EnableControl(dialog, IDC_GUIDE_PAPER, false);
    SelectInCombo(dialog, IDC_DUPLEX, OffPosition);
}

void LayOutBooklet(HWND dialog, Layout& layout)
{
    ForceTwoUp(dialog, layout.nup);
    CurrentSettings->dmImageShiftX = CurrentSettings->dmImageShiftY = 0;
}

void LayOutSinglePages(HWND dialog, Layout& layout)
{
    if (layout.wasBooklet) EndTwoUp(dialog, layout.nup);
    EnableNupAtFullSize(dialog);
}

}  // namespace

void RefuseSourceForDuplex(HWND dialog)
{
    const WCHAR* caption = LoadResString(IDS_SETUP_WARNING, 1);
    MessageBoxW(dialog, LoadResString(IDS_SOURCE_AGAINST_DUPLEX, 0), caption, MB_ICONEXCLAMATION);
}

void BookletCopiesRule()
{
    if (SelectedCopies <= 1 || SelectedCollate != 0 || CurrentSettings->dmBookletPaper == 0) return;
    SelectedCopies = 1;
    SetOption(CopiesOption, static_cast<WORD>(SelectedCopies));
}

void InitDuplex(HWND dialog)
{
    auto duplex = GetOption<DuplexPayload>(DuplexOption);
    FillBindings(dialog);
    SelectedMedia = GetOption<SHORT>(MediaOption);
    const bool transparency = SelectedMedia == MediaTransparency;
    if (transparency) TurnOff(duplex);
    EnableControl(dialog, IDC_DUPLEX, !transparency);
    if (duplex.on == 0)
        ShowNoDuplex(dialog);
    else
        ShowDuplexOn(dialog, duplex);
}

void RefreshDuplex(HWND dialog)
{
    const int shown = ComboSelection(dialog, IDC_DUPLEX);
    FillBindings(dialog);
    SelectInCombo(dialog, IDC_DUPLEX, shown);
    TransparencyRule(dialog);
}

void DefaultDuplex(HWND dialog)
{
    auto duplex = GetOption<DuplexPayload>(DuplexOption);
    TurnOff(duplex);
    duplex.guidePaper = 1;
    SetOption(DuplexOption, duplex);
    EnableControl(dialog, IDC_DUPLEX, true);
    ShowNoDuplex(dialog);
}

void TransparencyRule(HWND dialog)
{
    auto duplex = GetOption<DuplexPayload>(DuplexOption);
    const bool transparency = SelectedMedia == MediaTransparency;
    if (transparency) {
        TurnOff(duplex);
        SetOption(DuplexOption, duplex);
    }
    EnableControl(dialog, IDC_DUPLEX, !transparency);
    if (transparency || duplex.on != 0) EnableControl(dialog, IDC_GUIDE_PAPER, !transparency);
}

void OnDuplexPicked(HWND dialog)
{
    const Binding* picked = SelectedBinding(dialog);
    if (!picked) return;
    FitChoice = GetOption<FitPayload>(FitOption);
    PaperChoice = GetOption<PaperPayload>(PaperOption);
    Layout layout = ReadLayout();
    TakeBinding(dialog, *picked, layout);
    if (picked->on == 0) LeaveDuplex(dialog, layout);
    SelectedSource = GetOption<SHORT>(SourceOption);
    if (SelectedSource != SourceTray1 && layout.duplex.on == 1) RefuseBinding(dialog, layout);
    if (layout.duplex.on == 1) {
        if (layout.duplex.bookletPaper != 0)
            LayOutBooklet(dialog, layout);
        else
            LayOutSinglePages(dialog, layout);
    }
    SetOption(NupOption, layout.nup);
    SetOption(DuplexOption, layout.duplex);
    SetupChanged(dialog);
}

void OnGuidePaper(HWND dialog)
{
    auto duplex = GetOption<DuplexPayload>(DuplexOption);
    duplex.guidePaper = IsChecked(dialog, IDC_GUIDE_PAPER) ? 1 : 0;
    SetOption(DuplexOption, duplex);
    SetupChanged(dialog);
}

void DrawBinding(HWND dialog)
{
    const Binding* shown = SelectedBinding(dialog);
    if (!shown || (shown->booklet && SelectedSource != SourceTray1)) return;
    DrawPageIcon(GetDlgItem(dialog, IDC_DUPLEX_ICON), shown->icon);
}
