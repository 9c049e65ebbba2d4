#include <algorithm>
#include <cstring>
#include <set>

#include "pages/custom_paper_work_list.h"
#include "pages/watermark_dialog_fields.h"
#include "resources/control_numbers.h"
#include "tests/random/invariants.h"
#include "tests/support/custom_papers.h"
#include "tests/support/overlays.h"
#include "tests/support/watermark_sheet.h"
#include "watermark/overlay_list.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_values.h"

namespace random_use {

namespace {

using V = const View&;

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
// The sizes as the dialog last had them.
struct ListedPapers {
    std::vector<CustomPaperEntry> rows;
    bool typing = false;  // into a number, which is put right when it is left
};
const ListedPapers& PapersOfTheDialog(V v)
{
    static ListedPapers listed;
    if (v.dialog != IDD_CUSTOM_PAPER) return listed;
    listed.rows.clear();
    for (int k = 0; k < WorkListCount(); ++k) listed.rows.push_back(*WorkListEntryAt(k));
    listed.typing = v.Typing(IDC_CP_WIDTH_INCH) || v.Typing(IDC_CP_HEIGHT_INCH);
    return listed;
}
// After OK they are what the printer has, byte for byte, with codes that count up.
long SavedPapersApart(V v)
{
    if (v.closed != IDD_CUSTOM_PAPER || !v.start.soundPapers) return 0;
    const ListedPapers& listed = PapersOfTheDialog(v);
    const std::vector<CustomPaperEntry> stored =
        testing_support::PapersOf(*v.start.machine, testing_support::TestPrinter);
    if (stored.size() != listed.rows.size()) return 1000;
    long apart = 0;
    for (std::size_t k = 0; k < stored.size(); ++k) {
        CustomPaperEntry row = listed.rows[k];
        row.cpCode = static_cast<SHORT>(257 + k);
        if (listed.typing)
            row.cpWidthSixteenths = stored[k].cpWidthSixteenths, row.cpHeightSixteenths = stored[k].cpHeightSixteenths;
        apart += std::memcmp(&row, &stored[k], sizeof row) != 0;
    }
    return apart;
}
long PaperRowsApart(V v)
{
    const auto& rows = Papers(v).rows;
    int apart = rows.size() != PapersOfTheDialog(v).rows.size();
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
            // A text that is no number counts as no sixteenths, and stays.
            apart += v.Number(control) != number && (number != 0 || v.Number(control) != NoNumber);
        }
    };
    e->cpUnit == 1 ? look(inches) : look(millimetres);
    return typing ? 0 : apart;  // whole inches bring their sixteenths along when they are left
}
constexpr int Millimetres[] = {IDC_CP_WIDTH_MM, IDC_CP_WIDTH_MM_SPIN, IDC_CP_HEIGHT_MM, IDC_CP_HEIGHT_MM_SPIN};
constexpr int Inches[] = {IDC_CP_WIDTH_INCH,        IDC_CP_WIDTH_INCH_SPIN,       IDC_CP_WIDTH_SIXTEENTHS,
                          IDC_CP_HEIGHT_INCH,       IDC_CP_HEIGHT_INCH_SPIN,      IDC_CP_WIDTH_SIXTEENTHS_SPIN,
                          IDC_CP_HEIGHT_SIXTEENTHS, IDC_CP_HEIGHT_SIXTEENTHS_SPIN};
long WrongUnitControls(V v)
{
    const bool inches = v.Checked(IDC_CP_UNIT_INCH);
    int wrong = v.Checked(IDC_CP_UNIT_MM) == inches;
    for (const int control : Millimetres) wrong += v.Visible(control) == inches;
    for (const int control : Inches) wrong += v.Visible(control) != inches;
    return wrong;
}

long OpenSizeControls(V v)
{
    const auto open = [&](int control) { return v.Enabled(control) && v.Visible(control); };
    return std::ranges::count_if(Millimetres, open) + std::ranges::count_if(Inches, open) + open(IDC_CP_DELETE) +
           open(IDC_CP_UNIT_MM) + open(IDC_CP_UNIT_INCH);
}
long SizeControls(V v) { return v.Checked(IDC_CP_UNIT_INCH) ? 11 : 7; }

// The Watermark dialog.
bool RowOpen(V v) { return v.mayEdit && WatermarkIndex != 0; }
bool IsRefusedName(std::u16string_view name)
{
    for (int k = 0; k <= WatermarkCount; ++k)
        if (name == WatermarkNames[static_cast<std::size_t>(k)]) return true;
    return name.find_first_not_of(u' ') == name.npos;
}
bool Offers(V v, int control, std::u16string_view text)
{
    for (const auto& item : v.List(control).items)
        if (item.text == text) return true;
    return false;
}
// Counts the rows, or only those that show what no watermark can be called.
// A name that has been refused stays in the list when the row that it was taken by has got another one since.
long WatermarkListApart(V v, bool alsoRefused)
{
    static std::set<std::u16string> refused;  // in this walk, which is a process
    int apart = v.Count(IDC_WM_LIST) != WatermarkCount + 1;
    for (int k = 0; k < v.Count(IDC_WM_LIST) && k <= MostWatermarks; ++k) {
        const std::u16string shown = v.Item(IDC_WM_LIST, k);
        const std::u16string name =
            k == WatermarkIndex ? v.Text(IDC_WM_NAME) : WatermarkNames[static_cast<std::size_t>(k)];
        if (shown != name && IsRefusedName(shown)) refused.insert(shown);
        apart += shown != name && (alsoRefused || !refused.contains(shown));
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
        Offers(v, IDC_WM_FACE, e.wmFaceName) && v.Item(IDC_WM_FACE, v.Selection(IDC_WM_FACE)) != e.wmFaceName,
    };
    // The places of those that are, counted from 1.
    long places = 0;
    for (std::size_t k = 0; k < std::size(apart); ++k)
        places = apart[k] ? places * 100 + static_cast<long>(k) + 1 : places;
    return places;
}

long OpenControls(V v)
{
    constexpr int Controls[] = {IDC_WM_NAME,         IDC_WM_TEXT,       IDC_WM_FACE,   IDC_WM_SIZE,
                                IDC_WM_SIZE_SPIN,    IDC_WM_SHADING,    IDC_WM_ITALIC, IDC_WM_BOLD,
                                IDC_WM_SHADING_SPIN, IDC_WM_ANGLE_MODE, IDC_WM_CENTER, IDC_WM_USER_POSITION};
    return std::ranges::count_if(Controls, [&](int control) { return v.Enabled(control); });
}
constexpr int EditorControls = 12;
long OpenPlaceControls(V v)
{
    return v.Enabled(IDC_WM_HORIZONTAL) + v.Enabled(IDC_WM_VERTICAL) + v.Enabled(IDC_WM_HORIZONTAL_SPIN) +
           v.Enabled(IDC_WM_VERTICAL_SPIN);
}
// After Cancel the names are those that the Setup page had before.
long CancelledNamesApart(V v)
{
    static std::vector<std::u16string> before;
    std::vector<std::u16string> names;
    for (int k = 0; k <= WatermarkCount; ++k) names.push_back(WatermarkNames[static_cast<std::size_t>(k)]);
    const bool cancelled = v.touched == IDC_EDIT_WATERMARK && v.closed != IDD_WATERMARK && !before.empty();
    std::swap(before, names);
    return cancelled && names != before;
}
// What OK has stored is what the list holds; what there is no room for goes, from the end.
long StoredWatermarksApart(V v)
{
    if (v.closed != IDD_WATERMARK || !v.start.mayChange) return 0;
    const int rows = WatermarkCount - CountWatermarksWithoutRoom();
    std::string names = std::to_string(rows) + "/", texts = names, attributes;
    for (int k = 1; k <= rows; ++k) {
        const WatermarkRecord* row = WatermarkRowAt(k);
        if (!row) return 1000;
        names += platform::ToUtf8(row->wmName) + "/";
        texts += platform::ToUtf8(row->wmText) + "/";
        for (const int number :
             {row->wmRemovable + 0, row->wmShading + 0, row->wmSize + 0, row->wmPositionMode + 0, row->wmPositionY + 0,
              row->wmPositionX + 0, row->wmItalic + 2 * row->wmBold, row->wmAngleMode + 0, row->wmAngle + 0})
            attributes += std::to_string(number) + "|";
        attributes += platform::ToUtf8(row->wmFaceName) + "/";
    }
    const auto stored = [&](const char16_t* value) {
        return testing_support::StoredLines(*v.start.machine, value, testing_support::TestPrinter);
    };
    return (stored(u"WatermarkTextName") != names) + (stored(u"WatermarkText") != texts) +
           (stored(u"WatermarkAttributes") != attributes);
}

// The order of the pages: what the record asks for, and what the radio buttons say.
long OrderOf(const DriverDevMode& record) { return (record.dmNupVertical ? 2 : 0) + (record.dmNupDescending ? 1 : 0); }
long PickedOrder(V v)
{
    constexpr int Buttons[] = {IDC_HORIZ_ASCENDING, IDC_HORIZ_DESCENDING, IDC_VERT_ASCENDING, IDC_VERT_DESCENDING};
    const auto checked = [&](int button) { return v.Checked(button); };
    static long picked = -1;  // when the dialog was last looked at
    if (v.dialog == IDD_NUP_STYLE)
        picked = std::ranges::count_if(Buttons, checked) == 1 ? std::ranges::find_if(Buttons, checked) - Buttons : -2;
    return picked;
}

// What the fields of the overlay editor last said.
struct EditedOverlay {
    std::u16string name, path;
    bool operator==(const EditedOverlay&) const = default;
};
EditedOverlay FieldsOfOverlay(V v)
{
    static EditedOverlay fields;
    if (v.dialog == IDD_OVERLAY_EDIT) fields = {v.Text(IDC_OVL_NAME), v.Text(IDC_OVL_PATH)};
    return fields;
}
EditedOverlay OverlayUnderEdit(bool empty = false)
{
    return empty || !OverlayEditing ? EditedOverlay() : EditedOverlay{OverlayEditing->ovName, OverlayEditing->ovPath};
}
// The rows behind the head, as the list of overlays last had them.
struct ListedOverlay {
    std::u16string name, path;
    DWORD pending;
    bool operator==(const ListedOverlay&) const = default;
};
std::vector<ListedOverlay>& ListedOverlays()
{
    static std::vector<ListedOverlay> rows;
    return rows;
}
// After OK of the list they are what the printer has.
long StoredOverlaysApart(V v)
{
    if (v.closed != IDD_OVERLAY_LIST || !v.start.mayChange) return 0;
    std::vector<ListedOverlay> stored;
    for (const OverlayEntry& row : testing_support::OverlaysOf(*v.start.machine, testing_support::TestPrinter).rows)
        stored.push_back({row.ovName, row.ovPath, row.ovPending});
    return stored != ListedOverlays();
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
    ListedOverlays().clear();
    for (const auto& item : v.List(IDC_OVL_LIST).items) {
        const auto& row = *reinterpret_cast<const OverlayEntry*>(item.data);
        apart += item.text != row.ovName;
        if (&row != OverlayList) ListedOverlays().push_back({row.ovName, row.ovPath, row.ovPending});
    }
    return apart;
}

// clang-format off
const Invariant Dialogs[] = {
    {"N-up order",              IDD_NUP_STYLE, Always, [](V v) { return Pair(PickedOrder(v), OrderOf(v.record)); }},
    {"N-up order taken",        IDD_SETUP,     Always, [](V v) { return v.closed == IDD_NUP_STYLE ? Pair(OrderOf(v.record), PickedOrder(v)) : Pair(0, 0); }},
    {"custom rows",             IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(PaperRowsApart(v), 0); }},
    {"custom limits",           IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(PapersBeyondLimits(v), 0); }},
    {"custom fields",           IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(PaperFieldsApart(v), 0); }},
    {"custom units",            IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(WrongUnitControls(v), 0); }},
    {"custom name",             IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(Edited(v) && !NameFault(v) && v.Text(IDC_CP_NAME) != Edited(v)->cpName, 0); }},
    {"custom OK locked",        IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(v.start.soundPapers && v.Enabled(IDOK) == NameFault(v), 0); }},
    {"custom list locked",      IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(v.start.soundPapers && v.Enabled(IDC_CP_LIST) != (!NameFault(v) && !Papers(v).rows.empty()), 0); }},
    {"custom name locked",      IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(v.Enabled(IDC_CP_NAME), !Papers(v).rows.empty()); }},
    {"custom sizes locked",     IDD_CUSTOM_PAPER, Always, [](V v) { return v.start.soundPapers ? Pair(OpenSizeControls(v), !Papers(v).rows.empty() && !NameFault(v) ? SizeControls(v) : 0) : Pair(0, 0); }},
    {"fifty sizes",             IDD_CUSTOM_PAPER, Always, [](V v) { return Pair(v.Enabled(IDC_CP_NEW) && Papers(v).rows.size() >= 50, 0); }},
    {"custom sizes stored",     IDD_PAPER, Always, [](V v) { return Pair(SavedPapersApart(v), 0); }},
    {"watermark list rows",     IDD_WATERMARK, Always, [](V v) { return Pair(WatermarkListApart(v, true), 0); }},
    {"watermark selected",      IDD_WATERMARK, Always, [](V v) { return Pair(v.Selection(IDC_WM_LIST), WatermarkIndex); }},
    {"watermark fields",        IDD_WATERMARK, Always, [](V v) { return Pair(WatermarkFieldsApart(v), 0); }},
    {"watermark angle",         IDD_WATERMARK, Always, [](V v) { return Pair(v.Shows(IDC_WM_ANGLE, WatermarkEdit.wmAngle), WatermarkEdit.wmAngle); }},
    {"watermark limits",        IDD_WATERMARK, Always, [](V v) { return Pair(BadWatermarks(v), 0); }},
    {"thirty watermarks",       IDD_WATERMARK, Always, [](V v) { return Pair(v.Enabled(IDC_WM_NEW), v.mayEdit && WatermarkCount < MostWatermarks); }},
    {"watermark editor locked", IDD_WATERMARK, Always, [](V v) { return Pair(OpenControls(v), RowOpen(v) ? EditorControls : 0); }},
    {"watermark angle locked",  IDD_WATERMARK, Always, [](V v) { return Pair(v.Enabled(IDC_WM_ANGLE) + v.Enabled(IDC_WM_ANGLE_LABEL), RowOpen(v) && WatermarkEdit.wmAngleMode == 3 ? 2 : 0); }},
    {"watermark place locked",  IDD_WATERMARK, Always, [](V v) { return Pair(OpenPlaceControls(v), RowOpen(v) && WatermarkEdit.wmPositionMode ? 4 : 0); }},
    {"watermark delete locked", IDD_WATERMARK, Always, [](V v) { return Pair(v.Enabled(IDC_WM_DELETE), RowOpen(v)); }},
    {"watermark angle arrows",  IDD_WATERMARK, Always, [](V v) { return Pair(RowOpen(v) && WatermarkEdit.wmAngleMode == 3 && !v.Enabled(IDC_WM_ANGLE_SPIN), 0); }},
    {"watermarks stored",       IDD_SETUP, Always, [](V v) { return Pair(StoredWatermarksApart(v), 0); }},
    {"watermarks cancelled",    IDD_SETUP, Always, [](V v) { return Pair(CancelledNamesApart(v), 0); }},
    {"overlay fields",          IDD_OVERLAY_EDIT, Always, [](V v) { return Pair(FieldsOfOverlay(v) != OverlayUnderEdit(OverlayIsNew != 0), 0); }},
    {"overlay fields taken",    IDD_OVERLAY_LIST, Always, [](V v) { return Pair(v.closed == IDD_OVERLAY_EDIT && OverlayUnderEdit() != FieldsOfOverlay(v), 0); }},
    {"overlays stored",         IDD_SETUP, Always, [](V v) { return Pair(StoredOverlaysApart(v), 0); }},
    {"overlay to be made",      IDD_SETUP, Always, [](V v) { return Pair(v.closed == IDD_OVERLAY_LIST && OverlaySelected && OverlaySelected->ovPending == 1 && v.record.dmOverlayState != 2, 0); }},
    {"overlay index",           IDD_SETUP, Always, [](V v) { return v.closed == IDD_OVERLAY_LIST ? Pair(OverlayIndex, v.record.dmOverlayIndex) : Pair(0, 0); }},
    {"overlay list rows",       IDD_OVERLAY_LIST, Always, [](V v) { return Pair(OverlayListApart(v), 0); }},
    {"one new overlay",         IDD_OVERLAY_LIST, Always, [](V v) { return Pair(v.Enabled(IDC_OVL_NEW), !Pending(v)); }},
    {"overlay edit locked",     IDD_OVERLAY_LIST, Always, [](V v) { return Pair(v.Enabled(IDC_OVL_EDIT), !Pending(v) && v.Selection(IDC_OVL_LIST) != 0); }},
    {"overlay delete locked",   IDD_OVERLAY_LIST, Always, [](V v) { return Pair(v.Enabled(IDC_OVL_DELETE), v.Selection(IDC_OVL_LIST) > 0); }},
};

constexpr Exception DialogsApart[] = {
    {"watermark list rows", [](V v) { return WatermarkListApart(v, false) == 0; }, "a row that was left with a blank or a taken name shows it and keeps its own"},
    {"custom limits",   [](V v) { return v.Typing(IDC_CP_WIDTH_INCH); }, "whole inches at their limit bring the sixteenths along when the field is left"},
    {"N-up order", [](V v) { return v.dialogBefore == IDD_NUP_STYLE; }, "what is picked waits for OK"},
    {"overlay fields", [](V v) { return v.dialogBefore == IDD_OVERLAY_EDIT; }, "what is typed waits for OK"},
    {"overlay delete locked", [](V v) { return v.Selection(IDC_OVL_LIST) < 0; }, "an index that the list does not have selects nothing, and is not that of the head"},
    {"overlay list rows", [](V v) { return v.Selection(IDC_OVL_LIST) < 0; }, "where nothing is selected the head is under edit, and the list keeps its name"},
    {"watermark angle", [](V) { return WatermarkEdit.wmAngleMode == 2; }, "the preview works the diagonal out anew; the locked field keeps the angle of the list"},
};
// clang-format on

}  // namespace

const std::span<const Invariant> DialogInvariants = Dialogs;
const std::span<const Exception> DialogExceptions = DialogsApart;

}  // namespace random_use
