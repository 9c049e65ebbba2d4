#include "pages/source_lists.h"

#include <algorithm>
#include <iterator>

#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "settings/user_locale.h"

int SourceIndex = 0;

namespace {

constexpr DWORD Tray2Flag = 0x80;  // of dmDeviceFlags
constexpr int LastTray2Paper = 4;  // row of the paper table
constexpr BYTE FitToOutputPaper = 2;

// Papers that Tray2 does not take.
constexpr SHORT OutputPapersAgainstTray2[] = {11, 15, 214, 215};

// The paper that a media comes in, portrait, in dots at 300 dpi.
struct MediaPaper {
    SHORT code, length, width;
};
constexpr MediaPaper EnvelopePaper = {27, 2598, 1299};
constexpr MediaPaper PostcardPaper = {216, 1748, 1181};
constexpr MediaPaper LetterPaper = {LetterPaperCode, 3300, 2550};
constexpr MediaPaper A4Paper = {A4PaperCode, 3507, 2480};

bool HasTray2() { return (CurrentSettings->dmDeviceFlags & Tray2Flag) != 0; }

// Of the rules on Tray2 only those that hold for a list of this filter mode.
bool OffersTray2()
{
    if (!HasTray2()) return false;
    if (FitChoice.fit == FitToOutputPaper &&
        std::ranges::find(OutputPapersAgainstTray2, FitChoice.outputPaper) != std::end(OutputPapersAgainstTray2))
        return false;
    if (ListFilterMode <= FilterBySource) return true;
    return SelectedMedia <= MediaPlain && (SelectedMedia != MediaPlain || SelectedPaperRow <= LastTray2Paper);
}

bool OffersSource(int bin)
{
    if (bin == SourceTray2) return OffersTray2();
    return PaperFitsBin(CurrentSettings->dmModelIndex, bin, CurrentSettings->dmPaperSize);
}

// Rebuilds a list from its enabled rows. Gives the position of a row, 0 if it is not on offer.
int FillFromRows(HWND dialog, int control, std::span<ListRow> rows, int current)
{
    SendDlgItemMessageW(dialog, control, WM_SETREDRAW, FALSE, 0);
    SendDlgItemMessageW(dialog, control, CB_RESETCONTENT, 0, 0);
    int position = 0, selected = 0;
    for (std::size_t number = 0; number < rows.size(); ++number) {
        ListRow& row = rows[number];
        if (!row.enabled) continue;
        SendDlgItemMessageW(dialog, control, CB_INSERTSTRING, static_cast<WPARAM>(position),
                            reinterpret_cast<LPARAM>(row.name));
        SendDlgItemMessageW(dialog, control, CB_SETITEMDATA, static_cast<WPARAM>(position), row.code);
        row.position = position;
        if (static_cast<int>(number) == current) selected = position;
        ++position;
    }
    SendDlgItemMessageW(dialog, control, WM_SETREDRAW, TRUE, 0);
    return selected;
}

const MediaPaper& PaperOfMedia()
{
    if (SelectedMedia == MediaEnvelope) return EnvelopePaper;
    if (SelectedMedia == MediaPostcard) return PostcardPaper;
    return LocaleUsesA4() ? A4Paper : LetterPaper;
}

}  // namespace

void RefreshSourceRows()
{
    for (int number = 0; number < SourceRowCount; ++number) {
        ListRow& row = SourceRows[number];
        const BinEntry& bin = BinTable[static_cast<std::size_t>(number)];
        if (row.name[0] == 0) {
            LoadRowName(bin.nameString, row.name);
            row.code = static_cast<int>(bin.code);
        }
        row.enabled = OffersSource(row.code) ? 1 : 0;
        if (CurrentSettings->dmDefaultSource == row.code) SourceIndex = number;
    }
}

void RestrictMediaRows()
{
    const bool plainOnly = HasTray2() && SelectedSource == SourceTray2;
    for (int number = 0; number < MediaRowCount; ++number) MediaRows[number].enabled = !plainOnly || number == 0;
    if (!plainOnly) return;
    MediaIndex = 0;
    SetOption(MediaOption, static_cast<WORD>(MediaIndex));
}

void FillSourceCombo(HWND dialog, int control)
{
    const int selected = FillFromRows(dialog, control, SourceRows, SourceIndex);
    InvalidateControl(dialog, control);
    SelectInCombo(dialog, control, selected);
}

void FillMediaCombo(HWND dialog)
{
    const int selected = FillFromRows(dialog, IDC_MEDIA_TYPE, MediaRows, MediaIndex);
    SetOption(MediaOption, static_cast<WORD>(MediaIndex));
    InvalidateControl(dialog, IDC_MEDIA_TYPE);
    SelectInCombo(dialog, IDC_MEDIA_TYPE, selected);
}

void ForcePaperByMedia()
{
    const MediaPaper& paper = PaperOfMedia();
    const bool landscape = CurrentSettings->dmOrientation == LandscapeOrientation;
    PaperChoice.code = paper.code;
    PaperChoice.length = landscape ? paper.width : paper.length;
    PaperChoice.width = landscape ? paper.length : paper.width;
}

SHORT LocalePaperCode() { return static_cast<SHORT>(LocaleUsesA4() ? A4PaperCode : LetterPaperCode); }
