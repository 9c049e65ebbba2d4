#include "events/paper_metrics.h"

#include "settings/lengths.h"
#include "spooler/printer_data.h"

namespace {

constexpr int LetterWidth = 2550, LetterHeight = 3300;
constexpr WORD Margin = 50;
constexpr DWORD CustomMediaCode = 0xFF;

struct SheetDots {
    int width, height;
};

// Whole millimetres in inches with sixteenths, in dots.
int InchesToDots(int hundreds, int sixteenths)
{
    const int millimetres = static_cast<int>((hundreds / 100 + sixteenths * 0.0625) * 25.4);
    return millimetres * 3000 / 254;
}

SheetDots StoredSheet(HANDLE hPrinter, int paperCode)
{
    SheetDots sheet{LetterWidth, LetterHeight};
    int count = 0;
    const auto entries = ReadCustomPapers(hPrinter, &count);
    for (int i = 0; entries && i < count; ++i) {
        const CustomPaperEntry& entry = entries[i];
        if (entry.cpCode != paperCode) continue;
        if (entry.cpUnit == 0)
            sheet = {entry.cpWidth * 300 / 254, entry.cpHeight * 300 / 254};
        else if (entry.cpUnit == 1)
            sheet = {InchesToDots(entry.cpWidth, entry.cpWidthSixteenths),
                     InchesToDots(entry.cpHeight, entry.cpHeightSixteenths)};
    }
    return sheet;
}

PaperMetrics MetricsOf(SheetDots sheet, int orientation)
{
    if (orientation != 1) sheet = {sheet.height, sheet.width};
    PaperMetrics metrics{};
    metrics.width = static_cast<WORD>(sheet.width);
    metrics.height = static_cast<WORD>(sheet.height);
    metrics.printableWidth = static_cast<WORD>(sheet.width - 2 * Margin);
    metrics.printableHeight = static_cast<WORD>(sheet.height - 2 * Margin);
    metrics.leftMargin = metrics.topMargin = Margin;
    metrics.mediaCode = CustomMediaCode;
    return metrics;
}

void ScaleTo(PaperMetrics& metrics, int resolution)
{
    const int shift = resolution == 600 ? 1 : resolution == 1200 ? 2 : 0;
    for (WORD* size : {&metrics.width, &metrics.height, &metrics.printableWidth, &metrics.printableHeight,
                       &metrics.leftMargin, &metrics.topMargin})
        *size = static_cast<WORD>(*size << shift);
}

}  // namespace

int GetPaperMetrics(HANDLE hPrinter, PaperMetrics* out, const DriverDevMode& record, int orientation, int paperCode)
{
    if (paperCode == CustomPaperCode)
        *out = MetricsOf({TenthsToDots(record.dmPaperWidth), TenthsToDots(record.dmPaperLength)}, orientation);
    else if (paperCode >= FirstStoredPaperCode && paperCode <= LastStoredPaperCode)
        *out = MetricsOf(StoredSheet(hPrinter, paperCode), orientation);
    else
        PaperMetricsFor(out, record.dmModelIndex, orientation, paperCode);
    ScaleTo(*out, record.dmPrintQuality);
    return 1;
}
