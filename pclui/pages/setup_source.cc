#include "pages/setup_source.h"

#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "pages/setup_duplex.h"
#include "pages/setup_page.h"
#include "pages/source_lists.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"

namespace {

constexpr int Tray1Position = 1;
constexpr int AutoPosition = 0;
constexpr int PlainPosition = 0;
constexpr SHORT A5PaperCode = 11;  // too short for Tray2

void KeepTray1(HWND dialog)
{
    RefuseSourceForDuplex(dialog);
    SelectedSource = SourceTray1;
    SelectInCombo(dialog, IDC_PAPER_SOURCE, Tray1Position);
}

void RefuseTransparency(HWND dialog)
{
    const WCHAR* caption = LoadResString(IDS_SETUP_WARNING, 1);
    MessageBoxW(dialog, LoadResString(IDS_TRANSPARENCY_AGAINST_DUPLEX, 0), caption, MB_ICONEXCLAMATION);
    SelectedMedia = MediaPlain;
    SelectInCombo(dialog, IDC_MEDIA_TYPE, PlainPosition);
}

void OutputPaperRule()
{
    if (SelectedSource != SourceTray2 || CurrentSettings->dmOutputPaper != A5PaperCode) return;
    FitChoice.outputPaper = LocalePaperCode();
    SetOption(FitOption, FitChoice);
}

}  // namespace

void RefreshSourceAndMedia(HWND dialog)
{
    ListFilterMode = FilterByMedia;
    if (SelectedSource == SourceTray2) {
        ListFilterMode = FilterBySource;
        MediaIndex = 0;
        LoadMediaRows();
    } else {
        RefreshMediaRows();
    }
    RefreshSourceRows();
    FillSourceCombo(dialog, IDC_PAPER_SOURCE);
    RestrictMediaRows();
    FillMediaCombo(dialog);
}

void DefaultSourceAndMedia(HWND dialog)
{
    SelectedMedia = MediaPlain;
    SelectedSource = SourceAuto;
    SetOption(SourceOption, SelectedSource);
    SelectInCombo(dialog, IDC_PAPER_SOURCE, AutoPosition);
    ListFilterMode = FilterByMedia;
    RefreshMediaRows();
    FillMediaCombo(dialog);
    ListFilterMode = FilterBySource;
}

void OnSourcePicked(HWND dialog)
{
    const LRESULT bin = SelectedItemData(dialog, IDC_PAPER_SOURCE);
    if (bin == CB_ERR) return;
    const auto duplex = GetOption<DuplexPayload>(DuplexOption);
    SelectedSource = static_cast<SHORT>(bin);
    if (duplex.on != 0 && SelectedSource != SourceTray1) return KeepTray1(dialog);

    SetOption(SourceOption, SelectedSource);
    ListFilterMode = FilterByMedia;
    if (SelectedSource == SourceTray2) {
        MediaIndex = 0;
        ListFilterMode = FilterBySource;
    } else {
        RefreshSourceRows();
    }
    RefreshMediaRows();
    RestrictMediaRows();
    FillMediaCombo(dialog);
    OutputPaperRule();
    SetupChanged(dialog);
    ListFilterMode = FilterBySource;
}

// A transparency that is refused leaves plain paper, and the steps of a change follow all the same.
void OnMediaPicked(HWND dialog)
{
    const LRESULT media = SelectedItemData(dialog, IDC_MEDIA_TYPE);
    if (media == CB_ERR) return;
    ListFilterMode = FilterByMedia;
    MediaChanging = 1;
    const auto duplex = GetOption<DuplexPayload>(DuplexOption);
    if (SelectedSource == SourceTray2) {
        ListFilterMode = FilterBySource;
        MediaIndex = 0;
    }
    SelectedMedia = static_cast<SHORT>(media);
    if (SelectedMedia == MediaTransparency && duplex.on != 0) RefuseTransparency(dialog);
    MediaIndex = SelectedMedia;
    SetOption(MediaOption, SelectedMedia);
    ListFilterMode = FilterWhileMediaChanges;
    RefreshSourceRows();
    FillSourceCombo(dialog, IDC_PAPER_SOURCE);
    ForcePaperByMedia();
    SetOption(PaperOption, PaperChoice);
    ListFilterMode = FilterBySource;
    MediaChanging = 0;
    TransparencyRule(dialog);
    SetupChanged(dialog);
}
