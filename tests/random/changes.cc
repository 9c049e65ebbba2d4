#include "tests/random/changes.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "tests/support/records.h"
#include "watermark/overlay_list.h"
#include "watermark/watermark_list.h"

namespace random_use {

namespace {

using testing_support::GetField;

using Allowed = bool (*)(const View&, long value);

bool Within(long value, long least, long greatest) { return value >= least && value <= greatest; }
bool Anything(const View&, long) { return true; }
// The diagonal of a damaged record's page may point anywhere.
bool OfAnAngle(const View& view, long degrees)
{
    return Within(degrees, -180, 180) || (view.record.dmWatermark.wmAngleMode == 2 && !view.start.asBuilt);
}
bool OfAPaper(const View&, long code)
{
    for (const PaperEntry& paper : PaperTable)
        if (static_cast<long>(paper.code) == code) return code != 256;
    return code >= 257 && code < 257 + PaperRowCount - BuiltInPaperRows;
}
bool OfTheBooklet(const View& view, long code)
{
    return code == 0 || code == (view.record.dmFitToPaper == 2 ? view.record.dmOutputPaper : view.record.dmPaperSize);
}
bool OfTheScaling(const View& view, long mode) { return mode == (view.record.dmZoom != 100); }
bool Extent(const View& view, long dots) { return dots > 0 || !view.start.soundPapers; }
bool OverlayRow(const View&, long index)
{
    const OverlayEntry* row = OverlayList;
    while (row && index-- > 0) row = NextOverlay(row);
    return row != nullptr && index < 0;
}
// The path of the row that is chosen.
bool OverlayPath(const View& view, long)
{
    return OverlaySelected && std::u16string_view(view.record.dmOverlayFile) == OverlaySelected->ovPath;
}

struct Word {
    std::string_view name;
    Allowed allowed;
};
constexpr Word Words[] = {
    {"any",     Anything    },
    {"angle",   OfAnAngle   },
    {"paper",   OfAPaper    },
    {"booklet", OfTheBooklet},
    {"mode",    OfTheScaling},
    {"extent",  Extent      },
    {"overlay", OverlayRow  },
    {"path",    OverlayPath },
};

// Rows of Anywhere hold for every step while the page is or was in front, since leaving a field puts things right as
// well. Dialog 0 is any. The changes are fields with the values that they may get: "a b=0..2|7 c=paper".
constexpr int Anywhere = -4;
struct ChangeRow {
    int dialog, control;
    std::string_view changes;
};

constexpr std::string_view Extents = "dmPaperLength dmPaperWidth dmPaperLengthPriv dmPaperWidthPriv=extent";
constexpr std::string_view AnyPaper =
    "dmPaperSize=paper dmPaperLength dmPaperWidth dmPaperLengthPriv dmPaperWidthPriv=extent";
constexpr std::string_view NupOff = "dmNupOn dmNupVertical dmNupDescending dmNupBorder=0";
constexpr std::string_view OutputPaper = "dmOutputPaper=1|5|7|9|11|15|214|215|222|310";

// clang-format off
constexpr ChangeRow Changes[] = {
    {0,                  Applied,                   "dmFields dmPaperLength dmPaperWidth=any"},
    {0,                  Confirmed,                 "dmFields dmPaperLength dmPaperWidth dmOverlayFile dmOverlayState=any"},
    {IDD_SETUP,          Arrival,                   "dmDuplexOn dmDuplexBinding dmBookletPaper dmImageShiftX dmImageShiftY dmPreviewMode=0 dmNupCount=1 dmMediaIndex=0..4"},
    {IDD_SETUP,          Arrival,                   NupOff},
    {IDD_SETUP,          IDC_NUP,                   "dmNupOn=0..1 dmNupCount=1|2|4|6|9|16"},
    {IDD_SETUP,          IDC_NUP,                   NupOff},
    {IDD_SETUP,          IDC_BORDER_LINE,           "dmNupBorder=0..1"},
    {IDD_SETUP,          IDC_WATERMARK,             "dmWatermarkOn=0..1 dmWatermark=any"},
    {IDD_SETUP,          IDC_WATERMARK_FIRST_PAGE,  "dmWatermark=any"},
    {IDD_SETUP,          IDC_EDIT_WATERMARK,        "dmWatermarkOn=0..1 dmWatermark=any"},
    {IDD_SETUP,          IDC_DUPLEX,                "dmDuplexOn dmBookletRight dmNupOn=0..1 dmDuplexBinding=0|1|3 dmBookletPaper=booklet dmNupCount=1|2 dmNupBorder dmImageShiftX dmImageShiftY=0"},
    {IDD_SETUP,          IDC_GUIDE_PAPER,           "dmGuidePaper=0..1"},
    {IDD_SETUP,          IDC_PAPER_SOURCE,          "dmDefaultSource=1|2|4|7 dmMediaIndex=0..4 dmOutputPaper=1|9"},
    {IDD_SETUP,          IDC_MEDIA_TYPE,            "dmMediaIndex=0..4 dmPaperSize=1|9|27|216 dmDuplexOn dmDuplexBinding dmBookletPaper=0"},
    {IDD_SETUP,          IDC_MEDIA_TYPE,            Extents},
    {IDD_SETUP,          IDC_OVERLAY,               "dmOverlayState=0..1 dmOverlayIndex=overlay dmOverlayFile=path"},
    {IDD_SETUP,          IDC_OVERLAY_FIRST_PAGE,    "dmOverlayFirstPage=0..1"},
    {IDD_SETUP,          IDC_EDIT_OVERLAY,          "dmOverlayState=0..2 dmOverlayIndex=overlay dmOverlayFile=path"},
    {IDD_SETUP,          IDC_DEFAULT,               "dmMediaIndex dmBookletRight dmPreviewMode dmDuplexOn dmDuplexBinding dmBookletPaper=0 dmDefaultSource=7"},
    {IDD_SETUP,          IDC_DEFAULT,               "dmWatermarkOn dmOverlayState dmOverlayIndex dmOverlayFirstPage=0 dmNupCount dmGuidePaper=1"},
    {IDD_SETUP,          IDC_DEFAULT,               "dmOverlayFile=path dmWatermark=any dmPaperSize=1|9"},
    {IDD_SETUP,          IDC_DEFAULT,               NupOff},
    {IDD_SETUP,          IDC_DEFAULT,               Extents},
    {IDD_SETUP,          IDC_SETUP_PAGE_LAYOUT,     "dmPreviewMode=0"},
    {IDD_SETUP,          IDC_SETUP_PRINTER_FIGURE,  "dmPreviewMode=1"},

    // Asking for the paper's size puts that of the portrait sheet into the record.
    {IDD_SETUP,          IDC_DUPLEX,                AnyPaper},
    {IDD_WATERMARK,      Anywhere,                  AnyPaper},
    {IDD_CUSTOM_PAPER,   Anywhere,                  AnyPaper},

    {IDD_NUP_STYLE,      IDOK,                      "dmNupVertical dmNupDescending=0..1"},

    {IDD_PAPER,          Arrival,                   AnyPaper},
    {IDD_PAPER,          Arrival,                   "dmFitToPaper dmPreviewMode=0 dmZoom=100 dmCopies=1 dmWatermark=any"},
    {IDD_PAPER,          Anywhere,                  "dmCollateMode dmProofPrint=0 dmFitToPaper=mode"},
    {IDD_PAPER,          IDC_DOCUMENT_SIZE,         "dmBookletPaper=paper"},
    {IDD_PAPER,          IDC_DOCUMENT_SIZE,         AnyPaper},
    {IDD_PAPER,          IDC_EDIT_CUSTOM,           "dmBookletPaper=paper dmCopies=1"},
    {IDD_PAPER,          IDC_EDIT_CUSTOM,           AnyPaper},
    {IDD_PAPER,          IDC_OUTPUT_SIZE,           OutputPaper},
    {IDD_PAPER,          IDC_FIT_TO_PAPER,          "dmFitToPaper=0..2 dmZoom=100"},
    {IDD_PAPER,          IDC_FIT_TO_PAPER,          OutputPaper},
    {IDD_PAPER,          IDC_SCALING,               "dmFitToPaper=2 dmZoom=20..400"},
    {IDD_PAPER,          IDC_COPIES,                "dmCopies=1..999"},
    {IDD_PAPER,          IDC_COLLATED,              "dmCollateMode=1"},
    {IDD_PAPER,          IDC_PROOF_PRINT,           "dmProofPrint=0..1"},
    {IDD_PAPER,          IDC_PORTRAIT,              "dmOrientation=1"},
    {IDD_PAPER,          IDC_LANDSCAPE,             "dmOrientation=2"},
    {IDD_PAPER,          IDC_ROTATED,               "dmImageRotated=0..1"},
    {IDD_PAPER,          IDC_SHIFT_X,               "dmImageShiftX=-50..50"},
    {IDD_PAPER,          IDC_SHIFT_Y,               "dmImageShiftY=-25..25"},
    {IDD_PAPER,          IDC_SHIFT_OFF,             "dmImageShiftOn=0"},
    {IDD_PAPER,          IDC_SHIFT_ON,              "dmImageShiftOn=1"},
    {IDD_PAPER,          IDC_PAPER_PAGE_LAYOUT,     "dmPreviewMode=0"},
    {IDD_PAPER,          IDC_PAPER_PRINTER_FIGURE,  "dmPreviewMode=1"},
    {IDD_PAPER,          IDC_DEFAULT,               "dmFitToPaper dmPreviewMode dmImageShiftOn dmImageRotated dmImageShiftX dmImageShiftY=0"},
    {IDD_PAPER,          IDC_DEFAULT,               "dmBookletPaper=paper dmOrientation dmCopies=1 dmZoom=100 dmOutputPaper=1|9"},
    {IDD_PAPER,          IDC_DEFAULT,               AnyPaper},

    {IDD_QUALITY,        Arrival,                   "dmAllRaster dmPrinterTrueType dmPreviewMode=0 dmGraphicsMode=0..1 dmTextMode=1..2"},
    {IDD_QUALITY,        IDC_RESOLUTION,            "dmResolutionChoice=600|2|1200 dmResolution dmPrintQuality=600|1200"},
    {IDD_QUALITY,        IDC_TONER_SAVE_ON,         "dmTonerSave=1"},
    {IDD_QUALITY,        IDC_TONER_SAVE_OFF,        "dmTonerSave=0"},
    {IDD_QUALITY,        IDC_ALL_RASTER_ON,         "dmAllRaster=1 dmPrinterTrueType=0"},
    {IDD_QUALITY,        IDC_ALL_RASTER_OFF,        "dmAllRaster=0 dmPrinterTrueType=1"},
    {IDD_QUALITY,        IDC_SMOOTHTONE,            "dmSmoothtone=0..3"},
    {IDD_QUALITY,        IDC_TONER_DENSITY,         "dmTonerDensity=0..6"},
    {IDD_QUALITY,        IDC_PRINTER_TRUETYPE,      "dmPrinterTrueType=0..1"},
    {IDD_QUALITY,        IDC_QUALITY_PAGE_LAYOUT,   "dmPreviewMode=0"},
    {IDD_QUALITY,        IDC_QUALITY_PRINTER_FIGURE,"dmPreviewMode=1"},
    {IDD_QUALITY,        IDC_DEFAULT,               "dmTonerSave dmAllRaster dmFixedResolution dmPreviewMode=0 dmPrinterTrueType dmGraphicsMode=1"},
    {IDD_QUALITY,        IDC_DEFAULT,               "dmSmoothtone dmResolutionChoice dmTextMode=2 dmTonerDensity=3 dmResolution dmPrintQuality=600"},

    {IDD_DEVICE_OPTIONS, IDC_TOTAL_MEMORY,          "dmTotalMemory=16|144"},
    {IDD_DEVICE_OPTIONS, IDC_DEFAULT,               "dmTotalMemory=16 dmDeviceFlags=0"},
};
// clang-format on

// What a page writes into the watermark of the job; texts end within their fields.
constexpr std::string_view WatermarkChanges =
    "wmId=0..30 wmShading=5..100 wmSize wmSizeLow=8..200 wmPositionX wmPositionY=-100..100 wmAngle=angle "
    "wmRemovable wmItalic wmBold wmPositionMode wmFirstPageOnly=0..1 wmAngleMode=0..3 wmListHandle=any";

// Where a word stands in a text, from there on.
std::size_t FindWord(std::string_view text, std::string_view word, std::size_t from = 0)
{
    for (std::size_t at = text.find(word, from); at != text.npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || text[at - 1] == ' ') && (end == text.size() || text[end] == ' ' || text[end] == '=')) return at;
    }
    return text.npos;
}

long TakeNumber(std::string_view& text)
{
    long number = 0;
    text.remove_prefix(
        static_cast<std::size_t>(std::from_chars(text.data(), text.data() + text.size(), number).ptr - text.data()));
    return number;
}

bool IsOneOf(const View& view, std::string_view values, long value)
{
    for (const Word& word : Words)
        if (values == word.name) return word.allowed(view, value);
    for (; !values.empty(); values.remove_prefix(std::min<std::size_t>(values.size(), 1))) {
        long greatest = TakeNumber(values);
        const long least = greatest;
        if (values.starts_with("..")) values.remove_prefix(2), greatest = TakeNumber(values);
        if (Within(value, least, greatest)) return true;
    }
    return false;
}

bool Allows(const View& view, std::string_view changes, std::string_view field, long value)
{
    for (std::size_t at = FindWord(changes, field); at != changes.npos; at = FindWord(changes, field, at + 1)) {
        const std::size_t values = changes.find('=', at) + 1;
        if (IsOneOf(view, changes.substr(values, changes.find(' ', values) - values), value)) return true;
    }
    return false;
}

template <class Record>
bool Same(const Record& a, const Record& b, const RecordField& field)
{
    return std::memcmp(reinterpret_cast<const BYTE*>(&a) + field.offset,
                       reinterpret_cast<const BYTE*>(&b) + field.offset, field.width) == 0;
}

long WatermarkNumber(const WatermarkRecord& row, const RecordField& field)
{
    const BYTE* at = reinterpret_cast<const BYTE*>(&row) + field.offset;
    if (field.width == 2) {
        SHORT value;
        std::memcpy(&value, at, 2);
        return value;
    }
    LONG value;
    std::memcpy(&value, at, 4);
    return value;
}

std::string WrongWatermark(const View& view)
{
    const WatermarkRecord& now = view.record.dmWatermark;
    for (const RecordField& field : WatermarkFields) {
        if (Same(now, view.before.dmWatermark, field)) continue;
        if (field.kind == FieldKind::WideText) {
            const auto* text = reinterpret_cast<const WCHAR*>(reinterpret_cast<const BYTE*>(&now) + field.offset);
            if (std::find(text, text + field.width / 2, 0) == text + field.width / 2)
                return std::string(field.name) + " has no end";
            continue;
        }
        if (!Allows(view, WatermarkChanges, field.name, WatermarkNumber(now, field)))
            return std::string(field.name) + " becomes " + std::to_string(WatermarkNumber(now, field));
    }
    return {};
}

}  // namespace

std::string WrongChanges(const View& view)
{
    const int dialogBefore = view.dialogBefore, control = view.touched;
    for (const RecordField& field : RecordFields) {
        if (Same(view.record, view.before, field)) continue;
        const bool number = field.kind == FieldKind::Signed || field.kind == FieldKind::Unsigned;
        const long value = number ? static_cast<long>(GetField(view.record, field.name)) : 0;
        const auto matches = [&](const ChangeRow& row) {
            const bool arrives = (control == Arrival || control == Applied) && row.control == Arrival;
            const bool here = row.dialog == 0 || row.dialog == view.dialog || (row.dialog == dialogBefore && !arrives);
            return here && (arrives || row.control == Anywhere || row.control == control) &&
                   Allows(view, row.changes, field.name, value);
        };
        std::string wrong;
        if (!std::any_of(std::begin(Changes), std::end(Changes), matches))
            wrong = number ? "becomes " + std::to_string(value) : "changes";
        else if (field.kind == FieldKind::Nested)
            wrong = WrongWatermark(view);
        if (!wrong.empty())
            return std::string(field.name) + " " + wrong +
                   (number ? " from " + std::to_string(GetField(view.before, field.name)) : "") + " by control " +
                   std::to_string(control) + " of dialog " + std::to_string(dialogBefore);
    }
    return {};
}

}  // namespace random_use
