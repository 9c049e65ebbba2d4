#include "tests/random/invariants.h"

#include <cstring>
#include <set>

#include "pages/custom_paper_work_list.h"
#include "pages/paper_combo.h"
#include "pages/watermark_dialog_fields.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "watermark/overlay_list.h"
#include "watermark/watermark_list.h"

namespace random_use {

namespace {

using V = const View&;

// What is shown, or what there is, and what it has to be.
struct Pair {
    long shown, held;
    template <class Shown, class Held>
    Pair(Shown a, Held b) : shown(static_cast<long>(a)), held(static_cast<long>(b))
    {
    }
    bool operator==(const Pair&) const = default;
};

// Since when a row holds. OnceHeld: an application's record or store may break it, until a control has put it right.
enum Since { Always, OnceHeld };
constexpr int AnyPage = 0;

struct Row {
    const char* name;
    int dialog;
    Since since;
    Pair (*ask)(V);
};

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
long DocumentRowsApart(V v)
{
    int apart = 0, position = 0;
    for (int row = 0; row < PaperRowCount; ++row) {
        const PaperRow* paper = PaperRowAt(row);
        if (!paper || !paper->enabled) continue;
        const auto& items = v.List(IDC_DOCUMENT_SIZE).items;
        if (position >= v.Count(IDC_DOCUMENT_SIZE) || items[static_cast<std::size_t>(position)].data != paper->code)
            ++apart;
        ++position;
    }
    return apart + (position != v.Count(IDC_DOCUMENT_SIZE));
}
DWORD StoredDword(V v, const char16_t* name)
{
    const auto value = v.start.machine->store->Value(u"Ordana Quillet 4820E", name);
    DWORD number = 0;
    if (value && value->bytes.size() == 4) std::memcpy(&number, value->bytes.data(), 4);
    return number;
}
long StoredPapers(V v) { return static_cast<long>(StoredDword(v, u"CustomPaperDataSize") / sizeof(CustomPaperEntry)); }

// The Custom Paper dialog.
const platform::user::ListViewState& Papers(V v)
{
    static const platform::user::ListViewState none;
    const auto* list = v.Of(IDC_CP_LIST).As<platform::user::ListViewState>();
    return list ? *list : none;
}
const CustomPaperEntry* Edited(V v)
{
    const auto& list = Papers(v);
    return list.mark < 0 || list.rows.empty() ? nullptr : WorkListEntryAt(list.mark);
}
bool NameFault(V v)
{
    const auto& list = Papers(v);
    if (list.mark < 0) return false;
    const std::u16string& name = v.Text(IDC_CP_NAME);
    for (std::size_t k = 0; k < list.rows.size(); ++k)
        if (k != static_cast<std::size_t>(list.mark) && list.rows[k].cells[0] == name) return true;
    return name.empty();
}
std::string SizeText(const CustomPaperEntry& entry)
{
    const auto inches = [](int hundreds, int sixteenths) {
        return std::to_string(hundreds / 100) + " " + std::to_string(sixteenths) + "/16";
    };
    if (entry.cpUnit == 1)
        return "[" + inches(entry.cpWidth, entry.cpWidthSixteenths) + " x " +
               inches(entry.cpHeight, entry.cpHeightSixteenths) + " inch]";
    return "[" + std::to_string(entry.cpWidth / 10) + " x " + std::to_string(entry.cpHeight / 10) + " mm]";
}
long PaperRowsApart(V v)
{
    const auto& rows = Papers(v).rows;
    int apart = static_cast<int>(rows.size()) != WorkListCount();
    for (std::size_t k = 0; k < rows.size(); ++k) {
        const CustomPaperEntry* entry = WorkListEntryAt(static_cast<int>(k));
        if (!entry || rows[k].cells.size() < 2) return 1000;
        const bool fault = static_cast<int>(k) == Papers(v).mark && NameFault(v);
        apart +=
            (!fault && rows[k].cells[0] != entry->cpName) + (platform::ToUtf8(rows[k].cells[1]) != SizeText(*entry));
    }
    return apart;
}
long PapersBeyondLimits(V v)
{
    int beyond = 0;
    for (int k = 0; v.start.soundPapers && k < WorkListCount(); ++k) {
        const CustomPaperEntry& e = *WorkListEntryAt(k);
        const auto in = [](int value, int least, int most) { return value >= least && value <= most; };
        const bool good = e.cpUnit == 0 ? in(e.cpWidth, 760, 2160) && in(e.cpHeight, 1270, 3560) &&
                                              e.cpWidth % 10 == 0 && e.cpHeight % 10 == 0
                                        : e.cpUnit == 1 && in(e.cpWidth, 300, 800) && in(e.cpHeight, 500, 1400) &&
                                              in(e.cpWidthSixteenths, 0, e.cpWidth == 800 ? 8 : 15) &&
                                              in(e.cpHeightSixteenths, 0, e.cpHeight == 1400 ? 0 : 15);
        beyond += !good || e.cpName[0] == 0;
    }
    return beyond;
}
long PaperFieldsApart(V v)
{
    const CustomPaperEntry* e = Edited(v);
    if (!e) return 0;
    int typing = 0, apart = 0;
    const std::pair<int, int> millimetres[] = {
        {IDC_CP_WIDTH_MM,  e->cpWidth / 10 },
        {IDC_CP_HEIGHT_MM, e->cpHeight / 10}
    };
    const std::pair<int, int> inches[] = {
        {IDC_CP_WIDTH_INCH,        e->cpWidth / 100     },
        {IDC_CP_HEIGHT_INCH,       e->cpHeight / 100    },
        {IDC_CP_WIDTH_SIXTEENTHS,  e->cpWidthSixteenths },
        {IDC_CP_HEIGHT_SIXTEENTHS, e->cpHeightSixteenths}
    };
    const auto look = [&](auto& fields) {
        for (const auto& [control, number] : fields) {
            typing += v.Typing(control);
            apart += v.Number(control) != number;
        }
    };
    e->cpUnit == 1 ? look(inches) : look(millimetres);
    return typing ? 0 : apart;  // whole inches bring their sixteenths along when they are left
}
long WrongUnitControls(V v)
{
    constexpr int Millimetres[] = {IDC_CP_WIDTH_MM, IDC_CP_WIDTH_MM_SPIN, IDC_CP_HEIGHT_MM, IDC_CP_HEIGHT_MM_SPIN};
    constexpr int Inches[] = {IDC_CP_WIDTH_INCH,       IDC_CP_WIDTH_INCH_SPIN,  IDC_CP_HEIGHT_INCH,
                              IDC_CP_HEIGHT_INCH_SPIN, IDC_CP_WIDTH_SIXTEENTHS, IDC_CP_HEIGHT_SIXTEENTHS};
    const bool inches = v.Checked(IDC_CP_UNIT_INCH);
    int wrong = v.Checked(IDC_CP_UNIT_MM) == inches;
    for (const int control : Millimetres) wrong += v.Visible(control) == inches;
    for (const int control : Inches) wrong += v.Visible(control) != inches;
    return wrong;
}

// The Watermark dialog.
bool RowOpen(V v) { return v.mayEdit && WatermarkIndex != 0; }
bool IsRefusedName(std::u16string_view name)
{
    for (int k = 0; k <= WatermarkCount; ++k)
        if (name == WatermarkNames[static_cast<std::size_t>(k)]) return true;
    return name.find_first_not_of(u' ') == name.npos;
}
// Counts the rows, or only those that show what no watermark can be called.
long WatermarkListApart(V v, bool alsoRefused)
{
    int apart = v.Count(IDC_WM_LIST) != WatermarkCount + 1;
    for (int k = 0; k < v.Count(IDC_WM_LIST) && k <= MostWatermarks; ++k) {
        const std::u16string shown = v.Item(IDC_WM_LIST, k);
        const std::u16string name =
            k == WatermarkIndex ? v.Text(IDC_WM_NAME) : WatermarkNames[static_cast<std::size_t>(k)];
        apart += shown != name && (alsoRefused || !IsRefusedName(shown));
    }
    return apart;
}
long BadWatermarks(V)
{
    std::set<std::u16string> names;
    int bad = 0, rows = 0;
    for (int k = 0; const WatermarkRecord* row = WatermarkRowAt(k); ++k, ++rows) {
        const auto in = [](int value, int least, int most) { return value >= least && value <= most; };
        bad += !names.insert(row->wmName).second || !in(row->wmShading, 5, 100) || !in(row->wmSize, 8, 200) ||
               (row->wmAngleMode != 2 && !in(row->wmAngle, -180, 180)) || !in(row->wmAngleMode, 0, 3) ||
               !in(row->wmPositionMode, 0, 1) || !in(row->wmPositionX, -100, 100) || !in(row->wmPositionY, -100, 100);
        bad += (row->wmId == 0) != (k == 0);
    }
    return bad + (rows != WatermarkCount + 1);
}
bool RowsKeepNumbers(V)
{
    for (int k = 0; const WatermarkRecord* row = WatermarkRowAt(k); ++k)
        if (row->wmId != k) return true;
    return false;
}
long WatermarkFieldsApart(V v)
{
    const WatermarkRecord& e = WatermarkEdit;
    const WatermarkRecord* row = WatermarkRowAt(WatermarkIndex);
    const bool apart[] = {
        row == nullptr || row != WatermarkCurrent,
        v.Text(IDC_WM_TEXT) != e.wmText,
        v.Shows(IDC_WM_SIZE, e.wmSize) != e.wmSize,
        v.Shows(IDC_WM_SHADING, e.wmShading) != e.wmShading,
        v.Shows(IDC_WM_VERTICAL, e.wmPositionY) != e.wmPositionY,
        v.Shows(IDC_WM_HORIZONTAL, e.wmPositionX) != e.wmPositionX,
        v.Checked(IDC_WM_BOLD) != (e.wmBold != 0),
        v.Checked(IDC_WM_ITALIC) != (e.wmItalic != 0),
        v.Selection(IDC_WM_ANGLE_MODE) != e.wmAngleMode,
        v.Checked(IDC_WM_USER_POSITION) != (e.wmPositionMode != 0),
        v.Checked(IDC_WM_CENTER) == (e.wmPositionMode != 0),
    };
    // The places of those that are, counted from 1.
    long places = 0;
    for (std::size_t k = 0; k < std::size(apart); ++k)
        places = apart[k] ? places * 100 + static_cast<long>(k) + 1 : places;
    return places;
}

bool Pending(V v)
{
    for (const auto& item : v.List(IDC_OVL_LIST).items)
        if (reinterpret_cast<const OverlayEntry*>(item.data)->ovPending == 1) return true;
    return false;
}
long OverlayListApart(V v)
{
    int apart = 0;
    for (const auto& item : v.List(IDC_OVL_LIST).items)
        apart += item.text != reinterpret_cast<const OverlayEntry*>(item.data)->ovName;
    return apart;
}

// clang-format off
const Row Rows[] = {
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

    {"N-up order",              IDD_NUP_STYLE, OnceHeld, [](V v) { return Pair(v.Checked(IDC_HORIZ_ASCENDING) + v.Checked(IDC_HORIZ_DESCENDING) + v.Checked(IDC_VERT_ASCENDING) + v.Checked(IDC_VERT_DESCENDING), 1); }},

    // Paper.
    {"paper list",              IDD_PAPER, Always,   [](V v) { return Pair(v.Data(IDC_DOCUMENT_SIZE), v.record.dmPaperSize); }},
    {"paper rows",              IDD_PAPER, Always,   [](V v) { return Pair(DocumentRowsApart(v), 0); }},
    {"stored papers",           IDD_PAPER, Always,   [](V v) { return Pair(v.start.soundPapers ? PaperRowCount - BuiltInPaperRows : StoredPapers(v), StoredPapers(v)); }},
    {"paper length",            IDD_PAPER, Always,   [](V v) { const PaperRow* row = PaperRowAt(SelectedPaperRow); return Pair(row ? row->size->psLengthDots : -1, v.record.dmPaperLength); }},
    {"paper width",             IDD_PAPER, Always,   [](V v) { const PaperRow* row = PaperRowAt(SelectedPaperRow); return Pair(row ? row->size->psWidthDots : -1, v.record.dmPaperWidth); }},
    {"edit custom locked",      IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_EDIT_CUSTOM), v.mayEdit && SelectedSource != 2); }},
    {"fit",                     IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_FIT_TO_PAPER), v.record.dmFitToPaper == 2); }},
    {"fit locked",              IDD_PAPER, Always,   [](V v) { return Pair(v.Enabled(IDC_FIT_TO_PAPER), !FitLocked(v) && v.record.dmFitToPaper != 1); }},
    {"output paper",            IDD_PAPER, Always,   [](V v) { return Pair(v.record.dmFitToPaper == 2 ? v.Data(IDC_OUTPUT_SIZE) : 0, v.record.dmFitToPaper == 2 ? v.record.dmOutputPaper : 0); }},
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
    {"rotated",                 IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_ROTATED), v.record.dmImageRotated != 0); }},
    {"Paper picture",           IDD_PAPER, Always,   [](V v) { return Pair(v.Checked(IDC_PAPER_PRINTER_FIGURE), v.record.dmPreviewMode); }},

    // Quality and Device Options Setting.
    {"resolution",              IDD_QUALITY, Always, [](V v) { return Pair(v.Selection(IDC_RESOLUTION), ResolutionPosition(v)); }},
    {"resolution rows",         IDD_QUALITY, Always, [](V v) { return Pair(v.Count(IDC_RESOLUTION), v.record.dmTonerSave || v.record.dmFixedResolution ? 1 : 3); }},
    {"toner save",              IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_TONER_SAVE_ON), v.record.dmTonerSave != 0); }},
    {"toner save locked",       IDD_QUALITY, Always, [](V v) { return Pair(v.Enabled(IDC_TONER_SAVE_ON) && (ResolutionPosition(v) != 0 || v.record.dmFixedResolution), 0); }},
    {"smoothtone",              IDD_QUALITY, Always, [](V v) { return Pair(v.Selection(IDC_SMOOTHTONE), v.record.dmSmoothtone); }},
    {"smoothtone locked",       IDD_QUALITY, Always, [](V v) { return Pair(v.Enabled(IDC_SMOOTHTONE), !v.record.dmTonerSave && !v.record.dmFixedResolution); }},
    {"density",                 IDD_QUALITY, Always, [](V v) { return Pair(v.Selection(IDC_TONER_DENSITY), v.record.dmTonerDensity); }},
    {"raster",                  IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_ALL_RASTER_ON), v.record.dmAllRaster != 0); }},
    {"raster locked",           IDD_QUALITY, Always, [](V v) { return Pair(v.Enabled(IDC_ALL_RASTER_ON) + v.Enabled(IDC_ALL_RASTER_OFF), RasterAllowed(v) ? 2 : 0); }},
    {"printer fonts",           IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_PRINTER_TRUETYPE), v.record.dmPrinterTrueType != 0); }},
    {"printer fonts locked",    IDD_QUALITY, Always, [](V v) { return Pair(v.Enabled(IDC_PRINTER_TRUETYPE), v.record.dmAllRaster == 0); }},
    {"graphics mode",           IDD_QUALITY, Always, [](V v) { return Pair(v.record.dmGraphicsMode, v.record.dmAllRaster ? 0 : 1); }},
    {"text mode",               IDD_QUALITY, Always, [](V v) { return Pair(v.record.dmTextMode, v.record.dmAllRaster ? 1 : 2); }},
    {"Quality picture",         IDD_QUALITY, Always, [](V v) { return Pair(v.Checked(IDC_QUALITY_PRINTER_FIGURE), v.record.dmPreviewMode); }},
    {"Tray2",                   IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Checked(IDC_TRAY2), (v.record.dmDeviceFlags & 128) != 0); }},
    {"Tray2 locked",            IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Enabled(IDC_TRAY2), 0); }},
    {"Tray2 figure",            IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(Tray2Installed != 0, (v.record.dmDeviceFlags & 128) != 0); }},
    {"memory",                  IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Selection(IDC_TOTAL_MEMORY), v.record.dmTotalMemory == 16 ? 0 : 1); }},
    {"device picture",          IDD_DEVICE_OPTIONS, Always, [](V v) { return Pair(v.Checked(IDC_DEVICE_PRINTER_FIGURE), DevicePreviewMode); }},

    // The dialogs.
    {"custom rows",             IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(PaperRowsApart(v), 0); }},
    {"custom limits",           IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(PapersBeyondLimits(v), 0); }},
    {"custom fields",           IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(PaperFieldsApart(v), 0); }},
    {"custom units",            IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(WrongUnitControls(v), 0); }},
    {"custom name",             IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(Edited(v) && !NameFault(v) && v.Text(IDC_CP_NAME) != Edited(v)->cpName, 0); }},
    {"custom OK locked",        IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(v.start.soundPapers && v.Enabled(IDOK) == NameFault(v), 0); }},
    {"custom list locked",      IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(v.start.soundPapers && v.Enabled(IDC_CP_LIST) != (!NameFault(v) && !Papers(v).rows.empty()), 0); }},
    {"custom name locked",      IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(v.Enabled(IDC_CP_NAME), !Papers(v).rows.empty()); }},
    {"fifty sizes",             IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(v.Enabled(IDC_CP_NEW) && Papers(v).rows.size() >= 50, 0); }},
    {"watermark list rows",     IDD_WATERMARK, Always, [](V v) { return Pair(WatermarkListApart(v, true), 0); }},
    {"watermark selected",      IDD_WATERMARK, Always, [](V v) { return Pair(v.Selection(IDC_WM_LIST), WatermarkIndex); }},
    {"watermark fields",        IDD_WATERMARK, Always, [](V v) { return Pair(WatermarkFieldsApart(v), 0); }},
    {"watermark angle",         IDD_WATERMARK, Always, [](V v) { return Pair(v.Shows(IDC_WM_ANGLE, WatermarkEdit.wmAngle), WatermarkEdit.wmAngle); }},
    {"watermark limits",        IDD_WATERMARK, Always, [](V v) { return Pair(BadWatermarks(v), 0); }},
    {"thirty watermarks",       IDD_WATERMARK, Always, [](V v) { return Pair(v.Enabled(IDC_WM_NEW), v.mayEdit && WatermarkCount < MostWatermarks); }},
    {"watermark editor locked", IDD_WATERMARK, Always, [](V v) { return Pair(v.Enabled(IDC_WM_NAME) + v.Enabled(IDC_WM_TEXT) + v.Enabled(IDC_WM_SIZE) + v.Enabled(IDC_WM_ANGLE_MODE), RowOpen(v) ? 4 : 0); }},
    {"watermark angle locked",  IDD_WATERMARK, Always, [](V v) { return Pair(v.Enabled(IDC_WM_ANGLE), RowOpen(v) && WatermarkEdit.wmAngleMode == 3); }},
    {"watermark place locked",  IDD_WATERMARK, Always, [](V v) { return Pair(v.Enabled(IDC_WM_HORIZONTAL) + v.Enabled(IDC_WM_VERTICAL), RowOpen(v) && WatermarkEdit.wmPositionMode ? 2 : 0); }},
    {"watermark delete locked", IDD_WATERMARK, Always, [](V v) { return Pair(v.Enabled(IDC_WM_DELETE) && !RowOpen(v), 0); }},
    {"overlay list rows",       IDD_OVERLAY_LIST, Always, [](V v) { return Pair(OverlayListApart(v), 0); }},
    {"one new overlay",         IDD_OVERLAY_LIST, Always, [](V v) { return Pair(v.Enabled(IDC_OVL_NEW), !Pending(v)); }},
    {"overlay edit locked",     IDD_OVERLAY_LIST, Always, [](V v) { return Pair(v.Enabled(IDC_OVL_EDIT), !Pending(v) && v.Selection(IDC_OVL_LIST) != 0); }},
    {"overlay delete locked",   IDD_OVERLAY_LIST, Always, [](V v) { return Pair(v.Enabled(IDC_OVL_DELETE) && v.Selection(IDC_OVL_LIST) == 0, 0); }},
};

// Where the driver itself leaves a control and the record apart. The excuse counts from the moment that the two part,
// and until one of them changes.
struct Exception {
    const char* invariant;
    bool (*when)(V);
    const char* reason;
};
constexpr Exception Exceptions[] = {
    {"N-up list",       [](V v) { return Booklet(v); }, "a booklet shows as 2-up, whatever count the record brought"},
    {"border",          [](V v) { return !v.Enabled(IDC_BORDER_LINE); }, "scaling takes the border from the record and locks its check, which keeps its mark"},
    {"guide paper",     [](V v) { return !v.Enabled(IDC_GUIDE_PAPER); }, "without duplex the locked check stands checked, and duplex later only unlocks it"},
    {"duplex list",     [](V v) { return v.Count(IDC_DUPLEX) == 3 && DuplexPosition(v) > 2; }, "the short list has no row for the booklet that a record brought"},
    {"source list",     [](V v) { return !v.Offers(IDC_PAPER_SOURCE, v.record.dmDefaultSource); }, "a source that dropped out of the list stays in the record; the list shows its first row"},
    {"watermark list",  [](V v) { return v.record.dmWatermark.wmId < 1 || v.record.dmWatermark.wmId > WatermarkCount; }, "the record brought a watermark that the printer does not have"},
    {"watermark list rows", [](V v) { return WatermarkListApart(v, false) == 0; }, "a row that was left with a blank or a taken name shows it and keeps its own"},
    {"N-up style locked", [](V v) { return v.before.dmBookletPaper != 0 && !v.Enabled(IDC_NUP_STYLE); }, "as N-up, where duplex takes a booklet away"},
    {"watermark of the job", RowsKeepNumbers, "rows keep their numbers behind one that was deleted, until the list is loaded anew; a record that is brought up to date by number takes the row that has moved there"},
    {"scaling",         [](V v) { return v.record.dmFitToPaper == 2 && v.before.dmZoom != 100; }, "a record that is both scaled and fitted loses its scaling; the locked field is put right when it is left"},
    {"custom limits",   [](V v) { return v.Typing(IDC_CP_WIDTH_INCH); }, "whole inches at their limit bring the sixteenths along when the field is left"},
    {"smoothtone locked", [](V v) { return v.record.dmFixedResolution > 1 || v.record.dmFixedResolution < 0; }, "Default unlocks smoothtone and clears a fixed resolution of 1 alone"},
    {"edit custom locked", [](V v) { return v.record.dmDefaultSource == 2 && !(v.record.dmDeviceFlags & 128); }, "a Tray2 that is not there counts as Tray1 in front, until Default asks the record again"},
    {"a paper comes in its media", [](V v) { return v.record.dmDefaultSource == 2; }, "Tray2 takes the media back to plain paper and leaves the paper"},
    {"duplex locked",   [](V v) { return v.record.dmDefaultSource == 2 && !(v.record.dmDeviceFlags & 128); }, "a Tray2 that is not there takes the media back as well; duplex opens with the next refresh"},
    {"paper rows",      [](V) { return SelectedSource == 2; }, "Default filters by media, and the list keeps the papers of Tray2 until the page comes to the front"},
    {"the mode tells of scaling", [](V v) { return FitLocked(v) || v.before.dmNupOn || v.before.dmBookletPaper; }, "N-up and booklets take the mode and leave the scaling for the time after them"},
    {"overlay list rows", [](V v) { return v.Selection(IDC_OVL_LIST) < 0; }, "where nothing is selected the head is under edit, and the list keeps its name"},
    {"watermark angle", [](V) { return WatermarkEdit.wmAngleMode == 2; }, "the preview works the diagonal out anew; the locked field keeps the angle of the list"},
    {"source list",     [](V v) { return Duplex(v) && v.record.dmDefaultSource != 1 && v.Data(IDC_PAPER_SOURCE) == 1; }, "a refused source shows Tray1, whatever a record brought together with duplex"},
    {"N-up locked",     [](V v) { return v.before.dmBookletPaper != 0 && !v.Enabled(IDC_NUP); }, "a refused duplex takes the booklet that a record brought; N-up opens with the next refresh"},
    {"overlay list",    [](V v) { return v.record.dmOverlayIndex < 0 || v.record.dmOverlayIndex >= v.Count(IDC_OVERLAY); }, "the record brought an overlay that the printer does not have"},
    {"paper list",      [](V v) { return !v.Offers(IDC_DOCUMENT_SIZE, v.record.dmPaperSize); }, "a paper that dropped out of the list stays in the record; the list shows another until one is picked"},
    {"paper length",    [](V v) { return !v.Offers(IDC_DOCUMENT_SIZE, v.record.dmPaperSize); }, "a paper that the list lacks gets its own size back whenever it is asked for"},
    {"paper width",     [](V v) { return !v.Offers(IDC_DOCUMENT_SIZE, v.record.dmPaperSize); }, "as the length"},
    {"output paper",    [](V v) { return !v.Offers(IDC_OUTPUT_SIZE, v.record.dmOutputPaper); }, "a record's output paper that the list lacks stays until one is picked"},
    {"shift across",    [](V v) { return v.record.dmImageShiftX == 0 && v.before.dmImageShiftX == 0; }, "a booklet clears the shift on the Setup page; the field says so when it is left"},
    {"shift down",      [](V v) { return v.record.dmImageShiftY == 0 && v.before.dmImageShiftY == 0; }, "as across"},
    {"proof print locked", [](V v) { return v.record.dmCollateMode != 0; }, "more copies unlock collation at once, but proof print only with the next click or paint"},
    {"resolution",      [](V v) { return ResolutionPosition(v) >= v.Count(IDC_RESOLUTION) && v.Selection(IDC_RESOLUTION) == -1; }, "the short list has no row for the resolution that a record brought"},
    {"graphics mode",   [](V v) { return v.record.dmAllRaster != v.before.dmAllRaster; }, "the modes follow All Raster when the page next comes to the front"},
    {"text mode",       [](V v) { return v.record.dmAllRaster != v.before.dmAllRaster; }, "as the graphics mode"},
};
// clang-format on

}  // namespace

std::string Invariants::Judge(const View& view)
{
    for (const Row& row : Rows) {
        const bool sheetPage = view.dialog == IDD_SETUP || view.dialog == IDD_PAPER || view.dialog == IDD_QUALITY ||
                               view.dialog == IDD_DEVICE_OPTIONS;
        if (row.dialog == AnyPage ? !sheetPage : row.dialog != view.dialog) continue;
        const Pair pair = row.ask(view);
        if (pair.shown == pair.held) {
            excused_.erase(row.name);
            held_[row.name] = true;
            continue;
        }
        if (row.since == OnceHeld && !view.start.asBuilt && !held_[row.name]) continue;
        const std::pair<long, long> now{pair.shown, pair.held};
        const auto known = excused_.find(row.name);
        if (known != excused_.end() && known->second == now) continue;
        bool excused = false;
        for (const Exception& exception : Exceptions)
            excused = excused || (std::string_view(exception.invariant) == row.name && exception.when(view));
        if (!excused)
            return std::string(row.name) + ": " + std::to_string(pair.shown) + " where " + std::to_string(pair.held) +
                   " has to be";
        excused_[row.name] = now;
    }
    return {};
}

}  // namespace random_use
