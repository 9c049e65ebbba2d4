#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "pages/paper_combo.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "tests/random/changes.h"
#include "tests/random/invariants.h"
#include "tests/support/custom_papers.h"
#include "tests/support/sheet_driver.h"
#include "watermark/overlay_list.h"
#include "watermark/watermark_list.h"

namespace random_use {

namespace {

using V = const View&;

bool Booklet(V v) { return v.record.dmBookletPaper != 0; }
bool Duplex(V v) { return v.record.dmDuplexOn != 0; }
bool NupOn(V v) { return v.record.dmNupOn != 0; }
bool Unscaled(V v) { return v.record.dmZoom == 100 && v.record.dmFitToPaper == 0; }
bool FitLocked(V v) { return NupOn(v) || Booklet(v); }
bool CollateForced(V v) { return Duplex(v) && (Booklet(v) || v.record.dmDuplexBinding != 0); }
bool RasterAllowed(V v) { return v.record.dmFitToPaper == 0 && v.record.dmNupOn != 1 && !Booklet(v); }

bool PaperTakesMedia(V v)
{
    const DWORD mask = MediaTable[static_cast<std::size_t>(v.record.dmMediaIndex)].mask;
    for (const PaperEntry& paper : PaperTable)
        if (static_cast<int>(paper.code) == v.record.dmPaperSize) return paper.mediaMask & mask;
    return mask == PaperTable.back().mediaMask;  // stored sizes
}

long NupPosition(V v)
{
    constexpr int Counts[] = {1, 2, 4, 6, 9, 16};
    for (int k = 0; k < 6; ++k)
        if (Counts[k] == v.record.dmNupCount) return k;
    return -1;
}
long DuplexPosition(V v)
{
    if (!Duplex(v)) return 0;
    if (Booklet(v)) return v.record.dmBookletRight ? 4 : 3;
    return v.record.dmDuplexBinding == 1 ? 2 : 1;
}
long ResolutionPosition(V v) { return v.record.dmPrintQuality != 600 ? 2 : v.record.dmResolutionChoice == 2 ? 1 : 0; }

// What no choice locks.
long LockedForGood(V v)
{
    constexpr int Open[] = {IDC_WATERMARK,
                            IDC_EDIT_WATERMARK,
                            IDC_OVERLAY,
                            IDC_MEDIA_TYPE,
                            IDC_PAPER_SOURCE,
                            IDC_DOCUMENT_SIZE,
                            IDC_PORTRAIT,
                            IDC_LANDSCAPE,
                            IDC_ROTATED,
                            IDC_SHIFT_ON,
                            IDC_SHIFT_OFF,
                            IDC_RESOLUTION,
                            IDC_TONER_DENSITY,
                            IDC_TOTAL_MEMORY,
                            IDC_ABOUT,
                            IDC_DEFAULT,
                            IDC_SETUP_PAGE_LAYOUT,
                            IDC_SETUP_PRINTER_FIGURE,
                            IDC_PAPER_PAGE_LAYOUT,
                            IDC_PAPER_PRINTER_FIGURE,
                            IDC_QUALITY_PAGE_LAYOUT,
                            IDC_QUALITY_PRINTER_FIGURE,
                            IDC_DEVICE_PAGE_LAYOUT,
                            IDC_DEVICE_PRINTER_FIGURE};
    for (const int control : Open)
        if (v.Of(control).id == control && !v.Enabled(control)) return control;
    return 0;
}

// Lists and their stores.
long OverlayRowsApart(V v)
{
    int apart = 0, position = 0;
    for (const OverlayEntry* row = OverlayList; row; row = NextOverlay(row)) {
        if (row->ovPending == 1) continue;
        apart += v.Item(IDC_OVERLAY, position++) != row->ovName;
    }
    return apart + (position != v.Count(IDC_OVERLAY));
}
long WatermarkRowsApart(V v)
{
    int apart = v.Count(IDC_WATERMARK) != WatermarkCount + 1;
    for (int k = 0; k < v.Count(IDC_WATERMARK) && k <= MostWatermarks; ++k)
        apart += v.Item(IDC_WATERMARK, k) != WatermarkNames[static_cast<std::size_t>(k)];
    return apart;
}
bool RowsKeepNumbers(V)
{
    for (int k = 0; const WatermarkRecord* row = WatermarkRowAt(k); ++k)
        if (row->wmId != k) return true;
    return false;
}
// The papers of the model that the source and the media leave: Tray2 takes the first five whatever the media, the
// other sources what comes in the media. Stored sizes are of plain paper, and not in Tray2.
long DocumentRowsApart(V v)
{
    const bool tray2 = SelectedSource == 2 && v.record.dmDeviceFlags & 128;
    const DWORD media = MediaTable[static_cast<std::size_t>(v.record.dmMediaIndex)].mask;
    std::vector<LPARAM> codes;
    for (const PaperEntry& paper : PaperTable)
        if (paper.portrait && (tray2 ? codes.size() < 5 : (paper.mediaMask & media) != 0)) codes.push_back(paper.code);
    for (int code = 257; code < 257 + PaperRowCount - BuiltInPaperRows && !tray2 && media == 1; ++code)
        codes.push_back(code);
    std::vector<LPARAM> shown;
    for (const auto& item : v.List(IDC_DOCUMENT_SIZE).items) shown.push_back(item.data);
    return shown != codes;
}
// Auto, Tray1 and Manual Feed take every paper. Tray2, where it is installed, takes plain paper of the first five
// sizes, unless it is chosen already, and no document that is fitted to some of the others.
long SourcesApart(V v)
{
    const auto wrong = [&](int source, bool offered) { return v.Offers(IDC_PAPER_SOURCE, source) != offered; };
    const short output = v.record.dmOutputPaper;
    const bool refused = v.record.dmFitToPaper == 2 && (output == 11 || output == 15 || output == 214 || output == 215);
    const auto takes = [&](int row) {
        return v.record.dmDeviceFlags & 128 && !refused &&
               (SelectedSource == 2 || (v.record.dmMediaIndex == 0 && row <= 4));
    };
    static int rowBefore = SelectedPaperRow;  // the list may be filled before the paper follows
    const int row = std::exchange(rowBefore, SelectedPaperRow);
    const bool tray2 = wrong(2, takes(row)) && wrong(2, takes(SelectedPaperRow));
    return wrong(7, true) + wrong(1, true) + tray2 + wrong(4, true);
}
// Those of Tray2 come first.
long OutputRowsApart(V v)
{
    constexpr LPARAM Papers[] = {1, 9, 5, 7, 310, 15, 11, 214, 215, 222};
    const std::size_t rows = SelectedSource == 2 ? 5 : 10;
    const auto& items = v.List(IDC_OUTPUT_SIZE).items;
    long apart = items.size() != rows;
    for (std::size_t k = 0; k < std::min(rows, items.size()); ++k) apart += items[k].data != Papers[k];
    return apart;
}
DWORD StoredDword(V v, const char16_t* name)
{
    const auto value = v.start.machine->store->Value(u"Ordana Quillet 4820E", name);
    DWORD number = 0;
    if (value && value->bytes.size() == 4) std::memcpy(&number, value->bytes.data(), 4);
    return number;
}
// Sizes of a printer in memory and in its store.
long StoredPapersApart(V v)
{
    if (!v.start.soundPapers) return 0;
    const auto stored = StoredDword(v, u"CustomPaperDataSize")
                            ? testing_support::PapersOf(*v.start.machine, testing_support::TestPrinter)
                            : std::vector<CustomPaperEntry>();
    long apart = PaperRowCount - BuiltInPaperRows - static_cast<long>(stored.size());
    for (int number = BuiltInPaperRows; const CustomPaperEntry& entry : stored) {
        const PaperRow* row = PaperRowAt(number++);
        if (!row) return 1000;
        // Sixteenths of an inch become hundredths, which are cut off but for those of 2 and 6.
        const auto side = [&](int whole, int sixteenths) {
            return entry.cpUnit == UnitMillimetres ? whole : whole + (625 * sixteenths + 55) / 100;
        };
        apart += row->code != entry.cpCode || std::u16string_view(row->name) != entry.cpName ||
                 row->size->psUnit != entry.cpUnit ||
                 row->size->psWidth != side(entry.cpWidth, entry.cpWidthSixteenths) ||
                 row->size->psLength != side(entry.cpHeight, entry.cpHeightSixteenths);
    }
    return apart;
}

// clang-format off
const Invariant Pages[] = {
    // Options that exclude each other.
    {"duplex needs Tray1",                  AnyPage, OnceHeld, [](V v) { return Pair(Duplex(v) && v.record.dmDefaultSource != 1, 0); }},
    {"transparency excludes duplex",        AnyPage, OnceHeld, [](V v) { return Pair(Duplex(v) && v.record.dmMediaIndex == 1, 0); }},
    {"Tray2 takes plain paper",             AnyPage, OnceHeld, [](V v) { return Pair(v.record.dmDefaultSource == 2 && v.record.dmDeviceFlags & 128 && v.record.dmMediaIndex != 0, 0); }},
    {"a booklet is duplex without binding", AnyPage, OnceHeld, [](V v) { return Pair(Booklet(v) && (v.record.dmDuplexOn != 1 || v.record.dmDuplexBinding != 0), 0); }},
    {"duplex has a binding or a booklet",   AnyPage, OnceHeld, [](V v) { return Pair(Duplex(v), Booklet(v) || v.record.dmDuplexBinding != 0); }},
    {"a booklet is 2-up",                   AnyPage, OnceHeld, [](V v) { return Pair(Booklet(v) && (v.record.dmNupOn != 1 || v.record.dmNupCount != 2), 0); }},
    {"N-up counts pages",                   AnyPage, OnceHeld, [](V v) { return Pair(NupOn(v), v.record.dmNupCount != 1); }},
    {"N-up excludes scaling and fit",       AnyPage, OnceHeld, [](V v) { return Pair(FitLocked(v) && !Unscaled(v), 0); }},
    {"fit to paper is unscaled",            AnyPage, OnceHeld, [](V v) { return Pair(v.record.dmFitToPaper == 2 && v.record.dmZoom != 100, 0); }},
    {"the mode tells of scaling",           AnyPage, OnceHeld, [](V v) { return Pair(v.record.dmFitToPaper == 1, v.record.dmZoom != 100); }},
    {"toner save is 600 x 600",             AnyPage, OnceHeld, [](V v) { return Pair(v.record.dmTonerSave && ResolutionPosition(v) != 0, 0); }},
    {"resolution is print quality",         AnyPage, OnceHeld, [](V v) { return Pair(v.record.dmResolution, v.record.dmPrintQuality); }},
    {"a paper comes in its media",          AnyPage, OnceHeld, [](V v) { return Pair(PaperTakesMedia(v), 1); }},
    {"a booklet clears the shift",          IDD_SETUP,   Always, [](V v) { return Pair(Booklet(v) && Unscaled(v) && (v.record.dmImageShiftX || v.record.dmImageShiftY), 0); }},
    {"N-up is off while scaled",            IDD_SETUP,   Always, [](V v) { return Pair(!Unscaled(v) && NupOn(v), 0); }},
    {"transparency is simplex",             IDD_SETUP,   Always, [](V v) { return Pair(v.record.dmMediaIndex == 1 && (Duplex(v) || Booklet(v) || v.record.dmDuplexBinding), 0); }},
    {"a booklet is one copy",               IDD_PAPER,   Always, [](V v) { return Pair(Booklet(v) && v.record.dmCopies != 1, 0); }},
    {"one copy is uncollated",              IDD_PAPER,   Always, [](V v) { return Pair((v.record.dmCopies == 1 || CollateForced(v)) && v.record.dmCollateMode, 0); }},
    {"proof print is collated",             IDD_PAPER,   Always, [](V v) { return Pair(v.record.dmProofPrint && !v.record.dmCollateMode, 0); }},
    {"N-up and booklets have no fit mode",  IDD_PAPER,   Always, [](V v) { return Pair(FitLocked(v) && v.record.dmFitToPaper, 0); }},
    {"raster has no printer fonts",         IDD_QUALITY, Always, [](V v) { return Pair(v.record.dmAllRaster && v.record.dmPrinterTrueType, 0); }},
    {"raster needs plain pages",            IDD_QUALITY, Always, [](V v) { return Pair(v.record.dmAllRaster && !RasterAllowed(v), 0); }},

    {"locked for good",                     AnyPage, Always,   [](V v) { return Pair(LockedForGood(v), 0); }},

    // Setup: what it shows and what it locks.
    {"N-up list",               IDD_SETUP, Always,   [](V v) { return Pair(v.Selection(IDC_NUP), NupPosition(v)); }},
    {"N-up locked",             IDD_SETUP, Always,   [](V v) { return Pair(v.Enabled(IDC_NUP), Unscaled(v) && !Booklet(v)); }},
    {"border",                  IDD_SETUP, Always,   [](V v) { return Pair(v.Checked(IDC_BORDER_LINE), v.record.dmNupBorder != 0); }},
    {"border locked",           IDD_SETUP, OnceHeld, [](V v) { return Pair(v.Enabled(IDC_BORDER_LINE), NupOn(v)); }},
    {"N-up style locked",       IDD_SETUP, OnceHeld, [](V v) { return Pair(v.Enabled(IDC_NUP_STYLE), NupOn(v) && !Booklet(v)); }},
    {"duplex list",             IDD_SETUP, Always,   [](V v) { return Pair(v.Selection(IDC_DUPLEX), DuplexPosition(v)); }},
    {"duplex rows",             IDD_SETUP, Always,   [](V v) { return Pair(v.Count(IDC_DUPLEX), Unscaled(v) && (v.record.dmCopies <= 1 || v.record.dmCollateMode) ? 5 : 3); }},
    {"duplex locked",           IDD_SETUP, Always,   [](V v) { return Pair(v.Enabled(IDC_DUPLEX), v.record.dmMediaIndex != 1); }},
    {"guide paper",             IDD_SETUP, Always,   [](V v) { return Pair(v.Checked(IDC_GUIDE_PAPER), v.record.dmGuidePaper != 0); }},
    {"guide paper locked",      IDD_SETUP, Always,   [](V v) { return Pair(v.Enabled(IDC_GUIDE_PAPER), Duplex(v) && v.record.dmMediaIndex != 1); }},
    {"source list",             IDD_SETUP, Always,   [](V v) { return Pair(v.Data(IDC_PAPER_SOURCE), v.record.dmDefaultSource); }},
    {"sources offered",         IDD_SETUP, Always,   [](V v) { return Pair(SourcesApart(v), 0); }},
    {"Tray2 is installed",      IDD_SETUP, Always,   [](V v) { return Pair(v.Offers(IDC_PAPER_SOURCE, 2) && !(v.record.dmDeviceFlags & 128), 0); }},
    {"media list",              IDD_SETUP, Always,   [](V v) { return Pair(v.Data(IDC_MEDIA_TYPE), v.record.dmMediaIndex); }},
    {"watermark list",          IDD_SETUP, Always,   [](V v) { return Pair(v.Selection(IDC_WATERMARK) > 0, v.record.dmWatermarkOn != 0); }},
    {"watermark of the job",    IDD_SETUP, OnceHeld, [](V v) { return Pair(v.record.dmWatermarkOn && v.Item(IDC_WATERMARK, v.Selection(IDC_WATERMARK)) != v.record.dmWatermark.wmName, 0); }},
    {"watermark rows",          IDD_SETUP, Always,   [](V v) { return Pair(WatermarkRowsApart(v), 0); }},
    {"first page",              IDD_SETUP, OnceHeld, [](V v) { return Pair(v.Selection(IDC_WATERMARK) > 0 && v.Checked(IDC_WATERMARK_FIRST_PAGE) != (v.record.dmWatermark.wmFirstPageOnly != 0), 0); }},
    {"first page locked",       IDD_SETUP, Always,   [](V v) { return Pair(v.Enabled(IDC_WATERMARK_FIRST_PAGE), v.Selection(IDC_WATERMARK) > 0); }},
    {"overlay list",            IDD_SETUP, Always,   [](V v) { return Pair(v.Selection(IDC_OVERLAY), v.record.dmOverlayIndex); }},
    {"overlay rows",            IDD_SETUP, Always,   [](V v) { return Pair(OverlayRowsApart(v), 0); }},
    {"overlay of the job",      IDD_SETUP, OnceHeld, [](V v) { return Pair(OverlaySelected && std::u16string_view(v.record.dmOverlayFile) != OverlaySelected->ovPath, 0); }},
    {"overlay state",           IDD_SETUP, OnceHeld, [](V v) { return Pair(v.record.dmOverlayState != 0, v.record.dmOverlayIndex != 0); }},
    {"overlay first page",      IDD_SETUP, Always,   [](V v) { return Pair(v.Checked(IDC_OVERLAY_FIRST_PAGE), v.record.dmOverlayFirstPage != 0); }},
    {"overlay page locked",     IDD_SETUP, Always,   [](V v) { return Pair(v.Enabled(IDC_OVERLAY_FIRST_PAGE), v.record.dmOverlayIndex != 0); }},
    {"edit overlay locked",     IDD_SETUP, Always,   [](V v) { return Pair(v.Enabled(IDC_EDIT_OVERLAY), v.mayEdit && !v.fromShell); }},
    {"Setup picture",           IDD_SETUP, Always,   [](V v) { return Pair(v.Checked(IDC_SETUP_PRINTER_FIGURE), v.record.dmPreviewMode); }},
    {"Setup layout",            IDD_SETUP, Always,   [](V v) { return Pair(v.Checked(IDC_SETUP_PAGE_LAYOUT), v.record.dmPreviewMode == 0); }},

    // Paper.
    {"paper list",              IDD_PAPER, Always,   [](V v) { return Pair(v.Data(IDC_DOCUMENT_SIZE), v.record.dmPaperSize); }},
    {"paper rows",              IDD_PAPER, Always,   [](V v) { return Pair(DocumentRowsApart(v), 0); }},
    {"stored papers",           IDD_PAPER, Always,   [](V v) { return Pair(StoredPapersApart(v), 0); }},
    {"paper length",            IDD_PAPER, Always,   [](V v) { const PaperRow* row = PaperRowAt(SelectedPaperRow); return Pair(row ? row->size->psLengthDots : -1, v.record.dmPaperLength); }},
    {"paper width",             IDD_PAPER, Always,   [](V v) { const PaperRow* row = PaperRowAt(SelectedPaperRow); return Pair(row ? row->size->psWidthDots : -1, v.record.dmPaperWidth); }},
    {"edit custom locked",      IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_EDIT_CUSTOM), v.mayEdit && SelectedSource != 2); }},
    {"fit",                     IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_FIT_TO_PAPER), v.record.dmFitToPaper == 2); }},
    {"fit locked",              IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_FIT_TO_PAPER), !FitLocked(v) && v.record.dmFitToPaper != 1); }},
    {"output paper",            IDD_PAPER, Always,   [](V v) { return Pair(v.record.dmFitToPaper == 2 ? v.Data(IDC_OUTPUT_SIZE) : 0, v.record.dmFitToPaper == 2 ? v.record.dmOutputPaper : 0); }},
    {"output rows",             IDD_PAPER, Always,   [](V v) { return Pair(OutputRowsApart(v), 0); }},
    {"output paper locked",     IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_OUTPUT_SIZE), !FitLocked(v) && v.record.dmFitToPaper == 2); }},
    {"scaling",                 IDD_PAPER, Always,   [](V v) { return Pair(v.Shows(IDC_SCALING, v.record.dmZoom), v.record.dmZoom); }},
    {"scaling locked",          IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_SCALING) + v.Enabled(IDC_SCALING_SPIN), !FitLocked(v) && v.record.dmFitToPaper != 2 ? 2 : 0); }},
    {"shift",                   IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_SHIFT_ON), v.record.dmImageShiftOn != 0); }},
    {"shift off",               IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_SHIFT_OFF), v.record.dmImageShiftOn == 0); }},
    {"shift locked",            IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_SHIFT_X) + v.Enabled(IDC_SHIFT_Y) + v.Enabled(IDC_SHIFT_X_SPIN) + v.Enabled(IDC_SHIFT_Y_SPIN), v.record.dmImageShiftOn ? 4 : 0); }},
    {"shift across",            IDD_PAPER, Always,   [](V v) { return Pair(v.Shows(IDC_SHIFT_X, v.record.dmImageShiftX), v.record.dmImageShiftX); }},
    {"shift down",              IDD_PAPER, Always,   [](V v) { return Pair(v.Shows(IDC_SHIFT_Y, v.record.dmImageShiftY), v.record.dmImageShiftY); }},
    {"copies",                  IDD_PAPER, Always,   [](V v) { return Pair(v.Shows(IDC_COPIES, v.record.dmCopies), v.record.dmCopies); }},
    {"copies locked",           IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_COPIES), !Booklet(v)); }},
    {"collated",                IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_COLLATED), v.record.dmCollateMode != 0); }},
    {"uncollated",              IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_UNCOLLATED), v.record.dmCollateMode == 0); }},
    {"collation locked",        IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_COLLATED) + v.Enabled(IDC_UNCOLLATED), v.record.dmCopies != 1 && !CollateForced(v) ? 2 : 0); }},
    {"proof print",             IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_PROOF_PRINT), v.record.dmProofPrint != 0); }},
    {"proof print locked",      IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_PROOF_PRINT), v.record.dmCollateMode != 0); }},
    {"orientation",             IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_LANDSCAPE), v.record.dmOrientation == 2); }},
    {"portrait",                IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_PORTRAIT), v.record.dmOrientation == 1); }},
    {"rotated",                 IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_ROTATED), v.record.dmImageRotated != 0); }},
    {"Paper picture",           IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_PAPER_PRINTER_FIGURE), v.record.dmPreviewMode); }},
    {"Paper layout",            IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_PAPER_PAGE_LAYOUT), v.record.dmPreviewMode == 0); }},

    // Quality and Device Options Setting.
    {"resolution",              IDD_QUALITY, Always, [](V v) { return Pair(v.Selection(IDC_RESOLUTION), ResolutionPosition(v)); }},
    {"resolution rows",         IDD_QUALITY, Always, [](V v) { return Pair(v.Count(IDC_RESOLUTION), v.record.dmTonerSave || v.record.dmFixedResolution ? 1 : 3); }},
    {"toner save",              IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_TONER_SAVE_ON), v.record.dmTonerSave != 0); }},
    {"toner save off",          IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_TONER_SAVE_OFF), v.record.dmTonerSave == 0); }},
    {"toner save locked",       IDD_QUALITY, Always, [](V v) { return Pair(v.Enabled(IDC_TONER_SAVE_ON) + v.Enabled(IDC_TONER_SAVE_OFF), ResolutionPosition(v) == 0 && !v.record.dmFixedResolution ? 2 : 0); }},
    {"smoothtone",              IDD_QUALITY, Always, [](V v) { return Pair(v.Selection(IDC_SMOOTHTONE), v.record.dmSmoothtone); }},
    {"smoothtone locked",       IDD_QUALITY, Always, [](V v) { return Pair(v.Enabled(IDC_SMOOTHTONE), !v.record.dmTonerSave && !v.record.dmFixedResolution); }},
    {"density",                 IDD_QUALITY, Always, [](V v) { return Pair(v.Selection(IDC_TONER_DENSITY), v.record.dmTonerDensity); }},
    {"raster",                  IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_ALL_RASTER_ON), v.record.dmAllRaster != 0); }},
    {"raster off",              IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_ALL_RASTER_OFF), v.record.dmAllRaster == 0); }},
    {"raster locked",           IDD_QUALITY, Always, [](V v) { return Pair(v.Enabled(IDC_ALL_RASTER_ON) + v.Enabled(IDC_ALL_RASTER_OFF), RasterAllowed(v) ? 2 : 0); }},
    {"printer fonts",           IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_PRINTER_TRUETYPE), v.record.dmPrinterTrueType != 0); }},
    {"printer fonts locked",    IDD_QUALITY, Always, [](V v) { return Pair(v.Enabled(IDC_PRINTER_TRUETYPE), v.record.dmAllRaster == 0); }},
    {"graphics mode",           IDD_QUALITY, Always, [](V v) { return Pair(v.record.dmGraphicsMode, v.record.dmAllRaster ? 0 : 1); }},
    {"text mode",               IDD_QUALITY, Always, [](V v) { return Pair(v.record.dmTextMode, v.record.dmAllRaster ? 1 : 2); }},
    {"Quality picture",         IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_QUALITY_PRINTER_FIGURE), v.record.dmPreviewMode); }},
    {"Quality layout",          IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_QUALITY_PAGE_LAYOUT), v.record.dmPreviewMode == 0); }},
    {"Tray2",                   IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Checked(IDC_TRAY2), (v.record.dmDeviceFlags & 128) != 0); }},
    {"Tray2 locked",            IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Enabled(IDC_TRAY2), 0); }},
    {"Tray2 figure",            IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(Tray2Installed != 0, (v.record.dmDeviceFlags & 128) != 0); }},
    {"memory",                  IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Selection(IDC_TOTAL_MEMORY), v.record.dmTotalMemory == 16 ? 0 : 1); }},
    {"device picture",          IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Checked(IDC_DEVICE_PRINTER_FIGURE), DevicePreviewMode); }},
    {"device layout",           IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Checked(IDC_DEVICE_PAGE_LAYOUT), DevicePreviewMode == 0); }},
};

constexpr Exception PagesApart[] = {
    {"N-up list",       [](V v) { return Booklet(v) && v.Selection(IDC_NUP) == 1; }, "a booklet shows as 2-up, whatever count the record brought, and so does the list where it is refused", true},
    {"border",          [](V v) { return v.Checked(IDC_BORDER_LINE) && !v.Enabled(IDC_BORDER_LINE) && !Unscaled(v); }, "scaling takes the border from the record and locks its check, which keeps its mark", true},
    {"guide paper",     [](V v) { return v.Checked(IDC_GUIDE_PAPER) && !v.Enabled(IDC_GUIDE_PAPER); }, "without duplex the locked check stands checked, and duplex later only unlocks it", true},
    {"duplex list",     [](V v) { return v.Count(IDC_DUPLEX) == 3 && DuplexPosition(v) > 2; }, "the short list has no row for the booklet that a record brought, and none is selected as it grows", true},
    {"source list",     [](V v) { return v.Selection(IDC_PAPER_SOURCE) == 0 && !v.Offers(IDC_PAPER_SOURCE, v.record.dmDefaultSource); }, "a source that dropped out of the list stays in the record; the list shows its first row"},
    {"source list",     [](V v) { return std::ranges::none_of(BinTable, [&](const BinEntry& bin) { return static_cast<int>(bin.code) == v.record.dmDefaultSource; }); }, "for a number that is no source the list shows the source before"},
    {"watermark list",  [](V v) { return v.record.dmWatermark.wmId < 1 || v.record.dmWatermark.wmId > WatermarkCount; }, "the record brought a watermark that the printer does not have"},
    {"N-up style locked", [](V v) { return v.before.dmBookletPaper != 0 && !v.Enabled(IDC_NUP_STYLE); }, "as N-up, where duplex takes a booklet away", true},
    {"watermark of the job", RowsKeepNumbers, "rows keep their numbers behind one that was deleted, until the list is loaded anew; a record that is brought up to date by number takes the row that has moved there"},
    {"scaling",         [](V v) { return (v.touched == Arrival || v.touched == Applied) && v.before.dmZoom != 100 && v.record.dmZoom == 100; }, "scaling that a record brought together with Fit to Paper, or that N-up leaves behind, goes as the page comes to the front; the field keeps its text until it is left", true},
    {"toner save locked", [](V v) { return v.record.dmTonerSave && !v.Enabled(IDC_TONER_SAVE_ON) && !v.Enabled(IDC_TONER_SAVE_OFF); }, "a record brought toner save with a higher resolution, and only toner save off unlocks the two", true},
    {"smoothtone locked", [](V v) { return v.record.dmFixedResolution > 1 || v.record.dmFixedResolution < 0; }, "Default unlocks smoothtone and clears a fixed resolution of 1 alone"},
    {"edit custom locked", [](V v) { return v.record.dmDefaultSource == 2 && !(v.record.dmDeviceFlags & 128); }, "a Tray2 that is not there counts as Tray1 in front, until Default asks the record again"},
    {"a paper comes in its media", [](V v) { return v.record.dmDefaultSource == 2 && v.record.dmMediaIndex == 0; }, "Tray2 takes the media back to plain paper and leaves the paper", true},
    {"duplex locked",   [](V v) { return v.record.dmDefaultSource == 2 && !(v.record.dmDeviceFlags & 128); }, "a Tray2 that is not there takes the media back as well; duplex opens with the next refresh"},
    {"sources offered", [](V v) { return v.touched == IDC_MEDIA_TYPE && SelectedSource == 2 && SelectedPaperRow > 4; }, "a media that is picked asks for the paper as well, which a cancelled sheet may have left behind"},
    {"sources offered", [](V v) { return v.touched == IDC_DEFAULT; }, "Default leaves the list of sources as the media before has made it"},
    {"paper rows",      [](V v) { return v.record.dmDefaultSource == 2 && !(v.record.dmDeviceFlags & 128); }, "a Tray2 that is not there takes the media back, and the list keeps the papers of the media before"},
    {"paper rows",      [](V v) { return SelectedSource == 2 && v.touched == IDC_DEFAULT; }, "Default filters by media, and the list keeps the papers of Tray2 until the page comes to the front"},
    {"the mode tells of scaling", [](V v) { return FitLocked(v) || v.before.dmNupOn || v.before.dmBookletPaper; }, "N-up and booklets take the mode and leave the scaling until the Paper page comes up without them", true},
    {"source list",     [](V v) { return Duplex(v) && v.record.dmDefaultSource != 1 && v.Data(IDC_PAPER_SOURCE) == 1; }, "a refused source shows Tray1, whatever a record brought together with duplex"},
    {"N-up locked",     [](V v) { return v.before.dmBookletPaper != 0 && !v.Enabled(IDC_NUP); }, "a refused duplex takes the booklet that a record brought; N-up opens with the next refresh"},
    {"overlay list",    [](V v) { return v.record.dmOverlayIndex < 0 || v.record.dmOverlayIndex >= v.Count(IDC_OVERLAY); }, "the record brought an overlay that the printer does not have"},
    {"paper list",      [](V v) { return !v.Offers(IDC_DOCUMENT_SIZE, v.record.dmPaperSize); }, "a paper that dropped out of the list stays in the record; the list shows another until one is picked"},
    {"paper length",    [](V v) { return !v.Offers(IDC_DOCUMENT_SIZE, v.record.dmPaperSize); }, "a paper that the list lacks gets its own size back whenever it is asked for"},
    {"paper width",     [](V v) { return !v.Offers(IDC_DOCUMENT_SIZE, v.record.dmPaperSize); }, "as the length"},
    {"output paper",    [](V v) { return !v.Offers(IDC_OUTPUT_SIZE, v.record.dmOutputPaper); }, "a record's output paper that the list lacks stays until one is picked"},
    {"shift across",    [](V v) { return v.record.dmImageShiftX == 0 && v.before.dmImageShiftX == 0; }, "a booklet or Default clears the shift on the Setup page; the field says so when it is left"},
    {"shift down",      [](V v) { return v.record.dmImageShiftY == 0 && v.before.dmImageShiftY == 0; }, "as across"},
    {"resolution",      [](V v) { return ResolutionPosition(v) >= v.Count(IDC_RESOLUTION) && v.Selection(IDC_RESOLUTION) == -1; }, "the short list has no row for the resolution that a record brought"},
    {"graphics mode",   [](V v) { return v.record.dmAllRaster != v.before.dmAllRaster; }, "the modes follow All Raster when the page next comes to the front"},
    {"text mode",       [](V v) { return v.record.dmAllRaster != v.before.dmAllRaster; }, "as the graphics mode"},
};
// clang-format on

}  // namespace

const std::span<const Invariant> PageInvariants = Pages;
const std::span<const Exception> PageExceptions = PagesApart;

}  // namespace random_use
