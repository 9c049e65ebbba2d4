#include "settings/merge.h"

#include <algorithm>
#include <initializer_list>

#include "settings/defaults.h"
#include "settings/global_block.h"
#include "settings/record_copy.h"
#include "settings/record_field.h"
#include "settings/wide_text.h"

namespace {

using Record = DriverDevMode;

// A private field outside its range takes the substitute; the target alone is changed.
struct RangeRule {
    RecordField field;
    int least, greatest, substitute;
};

// clang-format off
constexpr RangeRule PrivateRanges[] = {
    {FieldNamed("dmNupOn"),             0,   1,   0},
    {FieldNamed("dmFitToPaper"),        0,   2,   0},
    {FieldNamed("dmZoom"),             20, 400, 100},
    {FieldNamed("dmMediaIndex"),        0,   4,   0},
    {FieldNamed("dmPercent"),           0, 100, 100},
    {FieldNamed("dmGraphicsMode"),      0,   2,   1},
    {FieldNamed("dmTonerSave"),         0,   1,   0},
    {FieldNamed("dmSmoothtone"),        0,   3,   2},
    {FieldNamed("dmTonerDensity"),      0,   6,   3},
    {FieldNamed("dmAllRaster"),         0,   1,   0},
    {FieldNamed("dmPrinterTrueType"),   0,   1,   1},
    {FieldNamed("dmModelFlag"),         0,   1,   0},
    {FieldNamed("dmCollateMode"),       0,   1,   1},
    {FieldNamed("dmImageShiftX"),     -50,  50,   0},  // points; not clamped
    {FieldNamed("dmImageShiftY"),     -25,  25,   0},
    {FieldNamed("dmTotalMemory"),      16, 160,  16},
};

// Private fields that are taken as they come.
constexpr RecordField Unchecked[] = {
    FieldNamed("dmDuplexOn"),
    FieldNamed("dmGuidePaper"),
    FieldNamed("dmDuplexBinding"),
    FieldNamed("dmBookletPaper"),
    FieldNamed("dmOutputPaper"),
    FieldNamed("dmWatermarkOn"),
    FieldNamed("dmWatermark"),
    FieldNamed("dmFixedResolution"),
    FieldNamed("dmProofPrint"),
    FieldNamed("dmModelParam1"),
    FieldNamed("dmModelParam2"),
    FieldNamed("dmPaperWidthPriv"),
    FieldNamed("dmPaperLengthPriv"),
    FieldNamed("dmImageShiftOn"),
    FieldNamed("dmResolutionChoice"),
    FieldNamed("dmBookletRight"),
    FieldNamed("dmImageRotated"),
    FieldNamed("dmOverlayState"),
    FieldNamed("dmOverlayFirstPage"),
    FieldNamed("dmOverlayIndex"),
};
// clang-format on

constexpr bool RangesAreShortFieldsAndHoldTheirSubstitutes()
{
    return std::all_of(std::begin(PrivateRanges), std::end(PrivateRanges), [](const RangeRule& rule) {
        return rule.field.offset >= RecordPublicSize && rule.field.width <= 2 && rule.least <= rule.substitute &&
               rule.substitute <= rule.greatest;
    });
}
static_assert(RangesAreShortFieldsAndHoldTheirSubstitutes());

int OneOf(int value, std::initializer_list<int> legal, int substitute)
{
    return std::find(legal.begin(), legal.end(), value) != legal.end() ? value : substitute;
}

constexpr DWORD PaperFields = DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME;
constexpr DWORD SizeFields = DM_PAPERLENGTH | DM_PAPERWIDTH;

void SayPaperBy(Record& target, DWORD fields) { target.dmFields = (target.dmFields & ~PaperFields) | fields; }

void TakePaper(Record& target, const Record& work, SHORT code, DWORD fields)
{
    target.dmPaperSize = code;
    target.dmPaperLength = work.dmPaperLength;
    target.dmPaperWidth = work.dmPaperWidth;
    SayPaperBy(target, fields);
}

// At most one of the three ways of giving the paper is left in the target.
void MergePaper(Record& target, const Record& work)
{
    const bool bySize = (work.dmFields & SizeFields) == SizeFields;
    const bool customCode = work.dmPaperSize >= 256 && work.dmPaperSize <= 306;
    if (bySize && customCode && work.dmPaperLength > 0 && work.dmPaperWidth > 0) {
        TakePaper(target, work, 256, SizeFields);
    } else if (work.dmFields & DM_PAPERSIZE) {
        TakePaper(target, work, work.dmPaperSize, DM_PAPERSIZE);
    } else if (work.dmFields & DM_FORMNAME) {
        CopyBounded(target.dmFormName, work.dmFormName, std::size(target.dmFormName));
        SayPaperBy(target, DM_FORMNAME);
    } else if (bySize) {
        TakePaper(target, work, work.dmPaperSize, SizeFields);
    }
}

void MergePrintQuality(Record& target, const Record& work)
{
    target.dmFields |= DM_PRINTQUALITY;
    if (work.dmPrintQuality > 0) {
        target.dmPrintQuality = work.dmPrintQuality;
    } else if (work.dmResolution > 0) {
        target.dmPrintQuality = work.dmResolution;
    }
    target.dmPrintQuality = static_cast<SHORT>(OneOf(target.dmPrintQuality, {300, 600, 1200}, 600));
}

void MergePublicPart(Record& target, const Record& work)
{
    const auto has = [&work](DWORD field) { return (work.dmFields & field) != 0; };
    if (has(DM_ORIENTATION)) {
        target.dmFields |= DM_ORIENTATION;
        target.dmOrientation = static_cast<SHORT>(OneOf(work.dmOrientation, {1, 2}, 1));
    }
    MergePaper(target, work);
    if (has(DM_SCALE)) {
        target.dmFields |= DM_SCALE;
        target.dmScale = work.dmScale >= 1 && work.dmScale <= 1000 ? work.dmScale : SHORT{100};
    }
    if (has(DM_COPIES)) {
        target.dmFields |= DM_COPIES;
        target.dmCopies = std::clamp(work.dmCopies, SHORT{1}, SHORT{999});
    }
    target.dmFields |= DM_DEFAULTSOURCE;  // whether or not the source says so
    target.dmDefaultSource = static_cast<SHORT>(OneOf(work.dmDefaultSource, {7, 1, 2, 5, 6, 4, 3}, 7));
    if (has(DM_PRINTQUALITY)) MergePrintQuality(target, work);
    if (has(DM_COLOR)) {
        target.dmFields |= DM_COLOR;
        target.dmColor = 1;
    }
    target.dmFields &= ~(DM_DUPLEX | DM_COLLATE);
    target.dmDuplex = static_cast<SHORT>(OneOf(work.dmDuplex, {1, 2, 3}, 1));
    target.dmCollate = 0;
}

// The layout of N-up pages is checked only where it is in use.
void MergeNupLayout(Record& target, const Record& work)
{
    const auto flag = [](BYTE value) { return value > 1 ? BYTE{0} : value; };
    const bool on = target.dmNupOn == 1;
    target.dmNupCount = on ? static_cast<SHORT>(OneOf(work.dmNupCount, {1, 2, 4, 6, 9, 16}, 1)) : work.dmNupCount;
    target.dmNupVertical = on ? flag(work.dmNupVertical) : work.dmNupVertical;
    target.dmNupDescending = on ? flag(work.dmNupDescending) : work.dmNupDescending;
    target.dmNupBorder = on ? flag(work.dmNupBorder) : work.dmNupBorder;
    target.dmReserved283 = work.dmReserved283;
}

// Graphics modes 0 and 1 go with text modes up to 2; the third goes with any.
void MergeTextMode(Record& target, const Record& work)
{
    target.dmTextMode = target.dmGraphicsMode <= 1 && work.dmTextMode > 2 ? BYTE{2} : work.dmTextMode;
}

// Up to its terminator; a path without one is cut, so that the field always holds a whole string.
void MergeOverlayFile(Record& target, const Record& work)
{
    const WCHAR* last = std::end(work.dmOverlayFile) - 1;
    const WCHAR* end = std::find(std::begin(work.dmOverlayFile), last, u'\0');
    *std::copy(std::begin(work.dmOverlayFile), end, std::begin(target.dmOverlayFile)) = 0;
}

void MergePrivateSection(Record& target, const Record& work)
{
    for (const RangeRule& rule : PrivateRanges) {
        const int value = ShortField(work, rule.field);
        const bool legal = value >= rule.least && value <= rule.greatest;
        SetShortField(target, rule.field, legal ? value : rule.substitute);
    }
    for (const RecordField& field : Unchecked) CopyField(target, work, field);
    MergeNupLayout(target, work);
    MergeTextMode(target, work);
    target.dmResolution = static_cast<SHORT>(OneOf(work.dmResolution, {300, 600, 1200}, 600));
    target.dmDeviceFlags = work.dmDeviceFlags == Tray2Flag ? Tray2Flag : 0;
    target.dmAvailableMemory = AvailableMemory(target.dmTotalMemory);
    MergeOverlayFile(target, work);
}

// The source's bytes as far as it reaches, the target's behind them.
bool LayOver(Record& work, const Record& target, const DEVMODEW& source)
{
    const std::size_t reach =
        RecordPublicSize + std::min({source.dmDriverExtra, target.dmDriverExtra, RecordPrivateSize});
    const auto* bytes = reinterpret_cast<const BYTE*>(&target);
    std::memcpy(&work, bytes, RecordPublicSize);
    std::memcpy(reinterpret_cast<BYTE*>(&work) + reach, bytes + reach, sizeof work - reach);
    return CopyRecordParts(&source, PublicPart(&work)) > 0;
}

}  // namespace

int MergeSettings(DriverDevMode* target, const DEVMODEW* source)
{
    if (!source || source->dmSpecVersion != RecordSpecVersion1025 || source->dmSize != RecordPublicSize) return 1;
    const bool ourPrivateSection =
        source->dmDriverVersion == RecordDriverVersion && source->dmDriverExtra == RecordPrivateSize;

    const auto work = AllocateBlock<Record>(sizeof(Record), GMEM_FIXED);
    if (!work || !LayOver(*work, *target, *source)) return 0;

    MergePublicPart(*target, *work);
    if (ourPrivateSection) MergePrivateSection(*target, *work);
    return 1;
}
