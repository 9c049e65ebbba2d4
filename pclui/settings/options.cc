#include "settings/options.h"

#include <algorithm>
#include <iterator>

#include "settings/defaults.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "settings/record_field.h"
#include "settings/user_locale.h"

DriverDevMode* CurrentSettings = nullptr;

namespace {

using Record = DriverDevMode;

// Where a field stands in the buffer of an option. A plain option is one field that is read as 16 bits; a
// structured one is several, each in its own width.
enum class Form { Plain, Part };
struct OptionField {
    OptionKey option;
    std::size_t place;  // bytes from the start of the buffer
    RecordField field;
    Form form;
};

// clang-format off
constexpr OptionField OptionFields[] = {
    {TonerSaveOption,        0,  FieldNamed("dmTonerSave"),       Form::Plain},
    {SmoothtoneOption,       0,  FieldNamed("dmSmoothtone"),      Form::Plain},
    {AllRasterOption,        0,  FieldNamed("dmAllRaster"),       Form::Plain},
    {GraphicsModeOption,     0,  FieldNamed("dmGraphicsMode"),    Form::Plain},
    {TextModeOption,         0,  FieldNamed("dmTextMode"),        Form::Plain},
    {TonerDensityOption,     0,  FieldNamed("dmTonerDensity"),    Form::Plain},
    {PrinterTrueTypeOption,  0,  FieldNamed("dmPrinterTrueType"), Form::Plain},
    {FixedResolutionOption,  0,  FieldNamed("dmFixedResolution"), Form::Plain},
    {NupOption,              0,  FieldNamed("dmNupOn"),           Form::Part},
    {NupOption,              2,  FieldNamed("dmNupCount"),        Form::Part},
    {NupOption,              4,  FieldNamed("dmNupVertical"),     Form::Part},
    {NupOption,              5,  FieldNamed("dmNupDescending"),   Form::Part},
    {NupOption,              6,  FieldNamed("dmNupBorder"),       Form::Part},
    {NupOption,              8,  FieldNamed("dmNupModelByte"),    Form::Part},
    {NupOption,              10, FieldNamed("dmNupModelValue1"),  Form::Part},
    {NupOption,              12, FieldNamed("dmNupModelValue2"),  Form::Part},
    {JobWatermarkOption,     0,  FieldNamed("dmWatermarkOn"),     Form::Part},
    {JobWatermarkOption,     4,  FieldNamed("dmWatermark"),       Form::Part},
    {LayoutImageShiftOption, 0,  FieldNamed("dmImageShiftX"),     Form::Part},
    {LayoutImageShiftOption, 2,  FieldNamed("dmImageShiftY"),     Form::Part},
    {DuplexOption,           0,  FieldNamed("dmDuplexOn"),        Form::Part},
    {DuplexOption,           4,  FieldNamed("dmDuplexBinding"),   Form::Part},
    {DuplexOption,           6,  FieldNamed("dmBookletPaper"),    Form::Part},
    {DuplexOption,           8,  FieldNamed("dmGuidePaper"),      Form::Part},
    {TotalMemoryOption,      0,  FieldNamed("dmTotalMemory"),     Form::Plain},
    {ImageShiftOption,       0,  FieldNamed("dmImageShiftX"),     Form::Part},
    {ImageShiftOption,       2,  FieldNamed("dmImageShiftY"),     Form::Part},
    {PreviewModeOption,      0,  FieldNamed("dmPreviewMode"),     Form::Plain},
    {FitOption,              0,  FieldNamed("dmFitToPaper"),      Form::Part},
    {FitOption,              2,  FieldNamed("dmOutputPaper"),     Form::Part},
    {OrientationOption,      0,  FieldNamed("dmOrientation"),     Form::Plain},
    {SourceOption,           0,  FieldNamed("dmDefaultSource"),   Form::Plain},
    {MediaOption,            0,  FieldNamed("dmMediaIndex"),      Form::Plain},
    {ZoomOption,             0,  FieldNamed("dmZoom"),            Form::Plain},
    {CopiesOption,           0,  FieldNamed("dmCopies"),          Form::Plain},
    {CollateOption,          0,  FieldNamed("dmCollateMode"),     Form::Plain},
    {ProofPrintOption,       0,  FieldNamed("dmProofPrint"),      Form::Plain},
    {ImageShiftOnOption,     0,  FieldNamed("dmImageShiftOn"),    Form::Plain},
    {ImageRotatedOption,     0,  FieldNamed("dmImageRotated"),    Form::Plain},
};
// clang-format on

// The parts of an option stand together, in the order of its buffer and without overlap; a plain option is
// alone under its key.
constexpr bool OptionFieldsAreSound()
{
    for (auto a = std::begin(OptionFields); a != std::end(OptionFields); ++a) {
        if (a->form == Form::Plain && (a->place != 0 || a->field.width > 2)) return false;
        for (auto b = std::begin(OptionFields); b != a; ++b) {
            if (a->option != b->option) continue;
            if (a->form == Form::Plain || b->place + b->field.width > a->place) return false;
        }
    }
    return true;
}
static_assert(OptionFieldsAreSound());

template <class T>
T FromBuffer(const void* buffer)
{
    T value;
    std::memcpy(&value, buffer, sizeof value);
    return value;
}

template <class T>
void ToBuffer(void* buffer, const T& value)
{
    std::memcpy(buffer, &value, sizeof value);
}

// 600 dots per inch stand behind two choices.
constexpr SHORT Choice1200x600 = 2;

void ReadResolution(Record& record, void* out)
{
    const bool is1200x600 = record.dmPrintQuality == 600 && record.dmResolutionChoice == Choice1200x600;
    ToBuffer(out, is1200x600 ? Choice1200x600 : record.dmPrintQuality);
}

void WriteResolution(Record& record, const void* in)
{
    const auto choice = FromBuffer<SHORT>(in);
    record.dmResolutionChoice = choice;
    record.dmResolution = choice == Choice1200x600 ? SHORT{600} : choice;
    record.dmPrintQuality = record.dmResolution;
}

void ReadDuplexOn(Record& record, void* out) { ToBuffer(out, LONG{record.dmDuplexOn}); }

void ReadTray2(Record& record, void* out) { ToBuffer(out, record.dmDeviceFlags & Tray2Flag); }

void WriteTray2(Record& record, const void* in) { record.dmDeviceFlags |= FromBuffer<DWORD>(in) & Tray2Flag; }

void ReadPaper(Record& record, void* out)
{
    PaperPayload paper = {record.dmPaperSize, record.dmPaperLength, record.dmPaperWidth};
    if (record.dmPaperSize < 256) {
        const DWORD size = PaperSizeDots(record.dmPaperSize);
        paper = {record.dmPaperSize, static_cast<SHORT>(HighWord(size)), static_cast<SHORT>(LowWord(size))};
    }
    ToBuffer(out, paper);
}

void WritePaper(Record& record, const void* in)
{
    const auto paper = FromBuffer<PaperPayload>(in);
    record.dmPaperSize = paper.code;
    record.dmPaperLength = record.dmPaperLengthPriv = paper.length;
    record.dmPaperWidth = record.dmPaperWidthPriv = paper.width;
}

void FilterPapersAnew(Record&, const void*) { RefreshPaperRows(); }

// What reading or writing an option does beside, or instead of, copying its fields.
struct OptionStep {
    OptionKey option;
    void (*read)(Record& record, void* out);
    void (*write)(Record& record, const void* in);
};

constexpr OptionStep OptionSteps[] = {
    {ResolutionOption, ReadResolution, WriteResolution },
    {DuplexOption,     ReadDuplexOn,   nullptr         },
    {Tray2Option,      ReadTray2,      WriteTray2      },
    {PaperOption,      ReadPaper,      WritePaper      },
    {SourceOption,     nullptr,        FilterPapersAnew},
};

const PaperMetrics* BuiltInMetrics(int paperCode)
{
    for (const PaperEntry& paper : PaperTable) {
        if (paper.portrait && static_cast<int>(paper.code) == paperCode) return paper.portrait;
    }
    return nullptr;
}

}  // namespace

int GetOption(int group, int key, void* out)
{
    if (!CurrentSettings) return 1;
    Record& record = *CurrentSettings;
    const OptionKey option = {group, key};
    auto* buffer = static_cast<BYTE*>(out);
    for (const OptionField& row : OptionFields) {
        if (row.option != option) continue;
        if (row.form == Form::Plain) {
            ToBuffer(buffer, static_cast<WORD>(ShortField(record, row.field)));
        } else {
            std::memcpy(buffer + row.place, FieldBytes(record, row.field), row.field.width);
        }
    }
    for (const OptionStep& step : OptionSteps) {
        if (step.option == option && step.read) step.read(record, out);
    }
    return 1;
}

int SetOption(int group, int key, const void* in)
{
    if (!CurrentSettings) return 1;
    Record& record = *CurrentSettings;
    const OptionKey option = {group, key};
    const auto* buffer = static_cast<const BYTE*>(in);
    for (const OptionField& row : OptionFields) {
        if (row.option == option) std::memcpy(FieldBytes(record, row.field), buffer + row.place, row.field.width);
    }
    for (const OptionStep& step : OptionSteps) {
        if (step.option == option && step.write) step.write(record, in);
    }
    return 1;
}

DWORD PaperSizeDots(int paperCode)
{
    Record& record = *CurrentSettings;
    const PaperMetrics* metrics = paperCode != 0 ? BuiltInMetrics(paperCode) : nullptr;
    if (!metrics) {
        record.dmPaperSize = LocaleUsesA4() ? A4PaperCode : LetterPaperCode;
        metrics = BuiltInMetrics(record.dmPaperSize);
    }
    record.dmPaperWidth = static_cast<SHORT>(metrics->width);
    record.dmPaperLength = static_cast<SHORT>(metrics->height);
    return MakeLong(metrics->width, metrics->height);
}
