#include "settings/model_tables.h"

#include <algorithm>
#include <array>
#include <bit>

#include "settings/lengths.h"

namespace {

// clang-format off

struct BuiltInPaper {
    WORD code, nameString, width, height, printableWidth, printableHeight, mediaCode, binMask, mediaMask;
};

// In the order of the paper lists. The printable size is the size less a margin of 50 dots on each side, but
// for Letter, where it is one dot less each way.
constexpr BuiltInPaper BuiltInPapers[] = {
    {1,   1103, 2550, 3300, 2449, 3199, 0,   0xF, 0xB}, // Letter (8.5 x 11 inch)
    {9,   1108, 2480, 3507, 2380, 3407, 2,   0xF, 0xB}, // A4 (210 x 297 mm)
    {5,   1105, 2550, 4200, 2450, 4100, 1,   0xF, 0x9}, // Legal (8.5 x 14 inch)
    {7,   1120, 2175, 3150, 2075, 3050, 3,   0xF, 0x9}, // Executive (7.25 x 10.5 inch)
    {310, 1113, 2149, 3035, 2049, 2935, 11,  0xF, 0x9}, // B5 (JIS) (182 x 257 mm)
    {15,  1144, 1650, 2550, 1550, 2450, 22,  0xB, 0x9}, // Statement (5.5 x 8.5 inch)
    {11,  1109, 1748, 2480, 1648, 2380, 16,  0xB, 0x9}, // A5 (148 x 210 mm)
    {27,  1117, 1299, 2598, 1199, 2498, 9,   0xB, 0x4}, // Envelope DL (110 x 220 mm)
    {37,  1116, 1162, 2250, 1062, 2150, 7,   0xB, 0x4}, // Envelope Monarch (3.875 x 7.5 inch)
    {20,  1115, 1237, 2850, 1137, 2750, 6,   0xB, 0x4}, // Envelope #10 (4.125 x 9.5 inch)
    {28,  1118, 1913, 2704, 1813, 2604, 8,   0xB, 0x4}, // Envelope C5 (162 x 229 mm)
    {29,  1143, 1346, 1913, 1246, 1813, 202, 0xB, 0x4}, // Envelope C6 (114 x 162 mm)
    {13,  1121, 2078, 2952, 1978, 2852, 12,  0xB, 0x4}, // B5 (ISO) (176 x 250 mm)
    {212, 1138, 1417, 2775, 1317, 2675, 206, 0xB, 0x4}, // Envelope Cho #3 (120 x 235 mm)
    {213, 1139, 1062, 2421, 962, 2321, 207, 0xB, 0x4}, // Envelope Cho #4 (90 x 205 mm)
    {214, 1140, 2185, 3070, 2085, 2970, 204, 0xB, 0x9}, // Chinese 16K (185 x 260 mm)
    {215, 1141, 1535, 2185, 1435, 2085, 205, 0xB, 0x9}, // Chinese 32K (130 x 185 mm)
    {216, 1142, 1181, 1748, 1081, 1648, 14,  0xB, 0x10}, // Japanese Postcard (100 x 148 mm)
    {217, 1343, 2400, 3150, 2300, 3050, 128, 0xB, 0x9}, // G.Letter (8 x 10.5 inch)
    {218, 1344, 2550, 3807, 2450, 3707, 129, 0xB, 0x9}, // Letter Plus (8.5 x 12.69 inch)
    {219, 1345, 2550, 3900, 2450, 3800, 130, 0xB, 0x9}, // G.Legal (8.5 x 13 inch)
    {220, 1346, 2400, 3000, 2300, 2900, 131, 0xB, 0x9}, // UK Quarto (8 x 10 inch)
    {221, 1347, 2400, 3900, 2300, 3800, 20,  0xB, 0x9}, // Foolscap (8 x 13 inch)
    {14,  1111, 2480, 3897, 2380, 3797, 19,  0xB, 0x9}, // Folio (210 x 330 mm)
    {222, 1348, 2303, 3188, 2203, 3088, 87,  0xB, 0x9}, // 16K (195 x 270 mm)
    {223, 1349, 1748, 2362, 1648, 2262, 132, 0xB, 0x10}, // Double Postcard (148 x 200 mm)
};

constexpr BinEntry Bins[] = {
    {7, 4070, 1},  // Auto
    {1, 4071, 2},  // Tray1
    {2, 4072, 4},  // Tray2
    {4, 4073, 8},  // Manual Feed
};

constexpr MediaEntry Media[] = {
    {0, 4041, 0x01},  // Plain Paper
    {1, 4042, 0x02},  // Transparency
    {2, 4043, 0x04},  // Envelope
    {3, 4045, 0x10},  // Postcard
    {4, 4044, 0x08},  // Thick Paper
};

// clang-format on

constexpr std::size_t BuiltInCount = std::size(BuiltInPapers);
constexpr WORD Margin = 50;

using MetricsTable = std::array<PaperMetrics, BuiltInCount>;

constexpr MetricsTable MetricsOf(bool landscape)
{
    MetricsTable table{};
    for (std::size_t row = 0; row < BuiltInCount; ++row) {
        const BuiltInPaper& paper = BuiltInPapers[row];
        PaperMetrics& metrics = table[row];
        metrics = {paper.width, paper.height, paper.printableWidth, paper.printableHeight,
                   Margin,      Margin,       paper.mediaCode};
        if (landscape) {
            metrics.width = paper.height;
            metrics.height = paper.width;
            metrics.printableWidth = paper.printableHeight;
            metrics.printableHeight = paper.printableWidth;
        }
    }
    return table;
}

constexpr MetricsTable Portrait = MetricsOf(false);
constexpr MetricsTable Landscape = MetricsOf(true);

constexpr std::array<PaperEntry, BuiltInCount + 1> MakePapers()
{
    std::array<PaperEntry, BuiltInCount + 1> table{};
    for (std::size_t row = 0; row < BuiltInCount; ++row) {
        const BuiltInPaper& paper = BuiltInPapers[row];
        table[row] = {paper.code, paper.nameString, &Portrait[row], &Landscape[row], paper.binMask, paper.mediaMask};
    }
    table[BuiltInCount] = {256, CustomPaperString, nullptr, nullptr, 0xB, 0x1};
    return table;
}

constexpr auto Papers = MakePapers();

constexpr ModelEntry Model = {
    .defaultTotalMemory = 16,
    .modelParam1 = -5240,
    .modelParam2 = 467,
    .modelParam3 = 0,
    .modelParam4 = 46,
    .modelParam6 = 32767,
    .papers = Papers,
    .bins = Bins,
    .defaultMediaIndex = 0,
    .defaultFitToPaper = 0,
    .defaultOutputPaper = 0,
    .defaultCollateMode = 0,
    .defaultResolution = 600,
    .defaultTextMode = 2,
    .defaultGraphicsMode = 1,
    .modelParam5 = 0,
    .defaultModelFlag = 0,
    .minCustomWidthDots = 900,
    .minCustomLengthDots = 1500,
    .maxCustomWidthDots = 2550,
    .maxCustomLengthDots = 4200,
    .minCustomWidthMm = 76,
    .minCustomLengthMm = 127,
    .defaultNupByte = 0,
    .defaultNupValue1 = 90,
    .defaultNupValue2 = 55,
    .media = Media,
};

template <class Table, class Key>
constexpr bool UniqueKeys(const Table& table, Key key)
{
    for (auto a = std::begin(table); a != std::end(table); ++a) {
        for (auto b = std::begin(table); b != a; ++b) {
            if ((*a).*key == (*b).*key) return false;
        }
    }
    return true;
}

template <class Table>
constexpr bool SingleBitMasks(const Table& table)
{
    return std::all_of(std::begin(table), std::end(table),
                       [](const auto& row) { return std::has_single_bit(row.mask); });
}

constexpr bool MediaInOrderOfTheirIndex()
{
    for (DWORD row = 0; row < std::size(Media); ++row) {
        if (Media[row].index != row) return false;
    }
    return true;
}

constexpr bool PrintableInsideMargins(const BuiltInPaper& paper)
{
    return paper.printableWidth + 2 * Margin <= paper.width && paper.printableHeight + 2 * Margin <= paper.height &&
           paper.width < paper.height;
}

static_assert(Papers.size() == 27 && std::size(Bins) == 4 && std::size(Media) == 5);
static_assert(UniqueKeys(Papers, &PaperEntry::code) && UniqueKeys(Papers, &PaperEntry::nameString));
static_assert(UniqueKeys(Bins, &BinEntry::code) && UniqueKeys(Bins, &BinEntry::mask) && SingleBitMasks(Bins));
static_assert(UniqueKeys(Media, &MediaEntry::mask) && SingleBitMasks(Media) && MediaInOrderOfTheirIndex());
static_assert(std::all_of(std::begin(BuiltInPapers), std::end(BuiltInPapers), PrintableInsideMargins));

const PaperEntry* BuiltInRow(const ModelEntry& model, int paperCode)
{
    for (const PaperEntry& paper : model.papers) {
        if (paper.portrait && static_cast<int>(paper.code) == paperCode) return &paper;
    }
    return nullptr;
}

DWORD ExtentInTenths(LONG widthDots, LONG lengthDots)
{
    return MakeLong(static_cast<DWORD>(DotsToTenths(widthDots)), static_cast<DWORD>(DotsToTenths(lengthDots)));
}

}  // namespace

constinit const std::span<const PaperEntry> PaperTable = Papers;
constinit const std::span<const BinEntry> BinTable = Bins;
constinit const std::span<const MediaEntry> MediaTable = Media;

const ModelEntry& ModelRow(int) { return Model; }

const BinEntry& BinEntryByCode(int model, int binCode)
{
    const std::span<const BinEntry> bins = ModelRow(model).bins;
    const auto row = std::find_if(bins.begin(), bins.end(),
                                  [binCode](const BinEntry& bin) { return static_cast<int>(bin.code) == binCode; });
    return row != bins.end() ? *row : bins.front();
}

WORD BinMaskByCode(int model, int binCode) { return LowWord(BinEntryByCode(model, binCode).mask); }

WORD PaperBinMask(int model, int paperCode)
{
    for (const PaperEntry& paper : ModelRow(model).papers) {
        if (static_cast<int>(paper.code) == paperCode) return paper.binMask;
        if (paper.nameString == CustomPaperString && paperCode > static_cast<int>(paper.code)) return paper.binMask;
    }
    return 0;
}

bool PaperFitsBin(int model, int binCode, int paperCode)
{
    return (BinMaskByCode(model, binCode) & PaperBinMask(model, paperCode)) != 0;
}

int PaperMetricsFor(PaperMetrics* out, int model, int orientation, int paperCode)
{
    const ModelEntry& row = ModelRow(model);
    const PaperEntry* paper = BuiltInRow(row, paperCode);
    if (!paper) paper = BuiltInRow(row, LetterPaperCode);
    *out = orientation == LandscapeOrientation ? *paper->landscape : *paper->portrait;
    return 1;
}

DWORD MinExtent(int model)
{
    const ModelEntry& row = ModelRow(model);
    return ExtentInTenths(row.minCustomWidthDots, row.minCustomLengthDots);
}

DWORD MaxExtent(int model)
{
    const ModelEntry& row = ModelRow(model);
    return ExtentInTenths(row.maxCustomWidthDots, row.maxCustomLengthDots);
}
