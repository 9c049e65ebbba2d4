#include "spooler/paper_sizes.h"

#include "settings/lengths.h"
#include "settings/model_tables.h"
#include "spooler/printer_data.h"

namespace {

LONG InchesInTenths(int hundredths, int sixteenths) { return InchesToMillimetres(hundredths / 100, sixteenths) * 10; }

bool FindStoredPaper(HANDLE hPrinter, int paperCode, PaperExtent* out)
{
    int count = 0;
    const auto papers = ReadCustomPapers(hPrinter, &count);
    for (int k = 0; k < count; ++k) {
        if (papers[static_cast<std::size_t>(k)].cpCode != paperCode) continue;
        *out = StoredPaperTenths(papers[static_cast<std::size_t>(k)]);
        return true;
    }
    return false;
}

}  // namespace

PaperExtent BuiltInPaperTenths(const PaperEntry& paper)
{
    return {DotsToTenths(paper.portrait->width), DotsToTenths(paper.portrait->height)};
}

PaperExtent StoredPaperTenths(const CustomPaperEntry& paper)
{
    if (paper.cpUnit == 0) return {paper.cpWidth, paper.cpHeight};
    return {InchesInTenths(paper.cpWidth, paper.cpWidthSixteenths),
            InchesInTenths(paper.cpHeight, paper.cpHeightSixteenths)};
}

int PaperSizeTenths(HANDLE hPrinter, int paperCode, int model, int, PaperExtent* out)
{
    // Whatever a store calls by that code.
    if (paperCode == CustomPaperCode) return 0;
    for (const PaperEntry& paper : ModelRow(model).papers) {
        if (!paper.portrait) {
            if (FindStoredPaper(hPrinter, paperCode, out)) return 1;
        } else if (static_cast<int>(paper.code) == paperCode) {
            *out = BuiltInPaperTenths(paper);
            return 1;
        }
    }
    return 0;
}
