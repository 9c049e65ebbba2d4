#include "pages/paper_combo.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "module.h"
#include "pages/control_state.h"
#include "pages/page_framework.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "settings/user_locale.h"

namespace {

constexpr int Tray2 = 2;
constexpr SHORT EnvelopeMedia = 2;
constexpr SHORT PostcardMedia = 3;
constexpr int LetterRow = 0;
constexpr int EnvelopeDlRow = 7;
constexpr int JapanesePostcardRow = 17;

// Output papers; those that Tray2 takes too come first.
constexpr int OutputPapers[] = {1, 5, 7, 9, 310, 11, 15, 214, 215, 222};
constexpr int Tray2OutputPapers = 5;

// A name of a row and its size, whatever a damaged store makes of the numbers.
constexpr int RowTextChars = RowNameChars + 128;

// The rows of Letter and A4 stand in the order of their positions.
int LocalePaperRow() { return LocalePaperPosition(); }

// Calls step(number, row) for the rows that are counted, until it answers false. Rows behind these are left from
// a list that could not be loaded again.
template <class Step>
void WalkRows(Step step)
{
    PaperRow* row = PaperRows;
    for (int number = 0; row && number < PaperRowCount && step(number, *row); ++number)
        row = number < BuiltInPaperRows ? row + 1 : row->next.get();
}

const PaperRow* CountedRow(int number) { return number < PaperRowCount ? PaperRowAt(number) : nullptr; }

bool OnOffer(int number)
{
    const PaperRow* row = CountedRow(number);
    return row && row->enabled != 0;
}

void Insert(HWND dialog, int control, int position, const WCHAR* text, int code)
{
    const auto place = static_cast<WPARAM>(position);
    SendDlgItemMessageW(dialog, control, CB_INSERTSTRING, place, reinterpret_cast<LPARAM>(text));
    SendDlgItemMessageW(dialog, control, CB_SETITEMDATA, place, code);
}

void StartList(HWND dialog, int control)
{
    SendDlgItemMessageW(dialog, control, WM_SETREDRAW, FALSE, 0);
    SendDlgItemMessageW(dialog, control, CB_RESETCONTENT, 0, 0);
}

void LoadPaperRow(PaperRow& row, const PaperEntry& paper)
{
    LoadRowName(paper.nameString, row.name);
    row.code = static_cast<int>(paper.code);
    row.enabled = 1;
    row.size.reset(new (std::nothrow) PaperSizeRecord);
    if (row.size)
        *row.size = {static_cast<SHORT>(paper.portrait->width), static_cast<SHORT>(paper.portrait->height), 0, 0,
                     UnitBuiltIn};
}

// "Form (210.0x297.0 mm)" or "Form (8.50x11.00 inch)".
void FormCustomText(WCHAR* text, const PaperRow& row)
{
    static const PaperSizeRecord none = {};
    const PaperSizeRecord& size = row.size ? *row.size : none;
    const bool metric = size.psUnit == UnitMillimetres;
    const int parts = metric ? 10 : 100;
    WCHAR extent[RowTextChars - RowNameChars] = {};
    wsprintfW(extent, metric ? u"(%d.%01dx%d.%01d %s)" : u"(%d.%02dx%d.%02d %s)", size.psWidth / parts,
              size.psWidth % parts, size.psLength / parts, size.psLength % parts,
              LoadResString(metric ? IDS_UNIT_MM : IDS_UNIT_INCH, 0));
    wsprintfW(text, u"%s %s", row.name, extent);
}

// Adds the enabled rows and gives the position of the paper of PaperChoice, which becomes the selected row; the
// position of the country's paper if it is not among them.
int InsertPaperRows(HWND dialog, int control)
{
    int selection = LocalePaperPosition();
    int position = 0;
    WalkRows([&](int number, PaperRow& row) {
        const bool custom = number >= BuiltInPaperRows;
        if (custom && CustomHeadRow.code == 0) return false;
        if (row.enabled == 0) return true;
        WCHAR text[RowTextChars] = {};
        if (custom) FormCustomText(text, row);
        Insert(dialog, control, position, custom ? text : row.name, row.code);
        row.position = position;
        if (row.code == PaperChoice.code) {
            selection = position;
            SelectedPaperRow = number;
        }
        ++position;
        return true;
    });
    return selection;
}

// For what a media does not take, once the media is chosen.
int SubstituteForMedia(int otherwise)
{
    switch (SelectedMedia) {
        case 0:
            return otherwise;
        case 1:
            return LetterRow;
        case EnvelopeMedia:
            return EnvelopeDlRow;
        case PostcardMedia:
            return JapanesePostcardRow;
        default:
            return LocalePaperRow();
    }
}

// The record keeps its paper, so that it comes back with a source or media that takes it.
void ReplaceBuiltInRow()
{
    SelectedPaperRow = LocalePaperRow();
    if (MediaChanging == 1) SelectedPaperRow = SubstituteForMedia(LetterRow);
}

void ReplaceCustomRow(HWND dialog, int control)
{
    SelectedPaperRow = PaperRowAtPosition(LocalePaperPosition());
    if (MediaChanging == 1) SelectedPaperRow = SubstituteForMedia(SelectedPaperRow);
    const PaperRow* row = CountedRow(SelectedPaperRow);
    if (!row) return;
    PaperChoice.code = static_cast<SHORT>(row->code);
    TakeRowSize(SelectedPaperRow);
    SetOption(PaperOption, PaperChoice);
    // Postcards are in the order of their sizes, not of countries.
    if (SelectedPaperRow == JapanesePostcardRow) SelectInCombo(dialog, control, row->position);
}

}  // namespace

void LoadPaperRows()
{
    if (!CurrentSettings) return;
    if (CurrentSettings->dmPaperSize == 0)
        CurrentSettings->dmPaperSize = static_cast<SHORT>(LocaleUsesA4() ? A4PaperCode : LetterPaperCode);
    for (int number = 0; number < BuiltInPaperRows; ++number) {
        PaperRow& row = PaperRows[number];
        if (row.name[0] == 0 || !row.size) LoadPaperRow(row, PaperTable[static_cast<std::size_t>(number)]);
        if (CurrentSettings->dmPaperSize == row.code) SelectedPaperRow = number;
    }
}

int LocalePaperPosition() { return LocaleUsesA4() ? 1 : 0; }

int PaperRowAtPosition(int position)
{
    int found = -1;
    WalkRows([&](int number, const PaperRow& row) {
        if (row.enabled != 0 && position-- == 0) found = number;
        return found < 0;
    });
    return found;
}

void TakeRowSize(int row)
{
    const PaperRow* paper = CountedRow(row);
    if (!paper || !paper->size) return;
    PaperChoice.length = paper->size->psLengthDots;
    PaperChoice.width = paper->size->psWidthDots;
}

void FillPaperCombo(HWND dialog, int control)
{
    StartList(dialog, control);
    const int selection = InsertPaperRows(dialog, control);
    SendDlgItemMessageW(dialog, control, WM_SETREDRAW, TRUE, 0);
    InvalidateControl(dialog, control);
    SelectInCombo(dialog, control, selection);
    if (OnOffer(SelectedPaperRow)) return;
    if (SelectedPaperRow < BuiltInPaperRows)
        ReplaceBuiltInRow();
    else
        ReplaceCustomRow(dialog, control);
}

void FillOutputPaperCombo(HWND dialog, int source)
{
    StartList(dialog, IDC_OUTPUT_SIZE);
    const auto last = source == Tray2 ? OutputPapers + Tray2OutputPapers : std::end(OutputPapers);
    int selection = LocalePaperPosition();
    int position = 0;
    for (int number = 0; number < BuiltInPaperRows; ++number) {
        const PaperRow& row = PaperRows[number];
        if (std::find(OutputPapers, last, row.code) == last) continue;
        Insert(dialog, IDC_OUTPUT_SIZE, position, row.name, row.code);
        if (row.code == FitChoice.outputPaper) selection = position;
        ++position;
    }
    SendDlgItemMessageW(dialog, IDC_OUTPUT_SIZE, WM_SETREDRAW, TRUE, 0);
    SelectInCombo(dialog, IDC_OUTPUT_SIZE, selection);
}

void AfterCustomPaperEdit(int result)
{
    PaperRowCount = BuiltInPaperRows;
    for (const PaperRow* row = &CustomHeadRow; row && CustomHeadRow.code != 0; row = row->next.get()) ++PaperRowCount;
    SelectedPaperRow = CustomHeadRow.code == 0 ? LocalePaperRow() : result + BuiltInPaperRows - 1;
    // Custom sizes are for plain paper alone.
    if (SelectedMedia == EnvelopeMedia)
        SelectedPaperRow = EnvelopeDlRow;
    else if (SelectedMedia == PostcardMedia)
        SelectedPaperRow = JapanesePostcardRow;
    else if (SelectedMedia != 0)
        SelectedPaperRow = LocalePaperRow();
}
