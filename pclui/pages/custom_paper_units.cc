#include "pages/custom_paper_units.h"

namespace {

constexpr double InchesInTenth = 0.003937007874015748;  // inches in a tenth of a millimetre

// Rounds a part of an inch to sixteenths.
int NearestSixteenths(double inches)
{
    int sixteenths = 0;
    while (sixteenths < 16 && inches >= (2 * sixteenths + 1) / 32.0) ++sixteenths;
    return sixteenths;
}

InchLength Carried(int hundreds, int sixteenths)
{
    if (sixteenths == 16) return {hundreds + 100, 0};
    return {hundreds, sixteenths};
}

struct RowLength {
    int value, dots;
};

// One side of a size. The 0.0055 lets 2 and 6 sixteenths come out as 13 and 38 hundredths.
RowLength RowLengthOf(int unit, int stored, int sixteenths)
{
    if (unit == UnitMillimetres) return {stored, stored * 300 / 254};
    if (unit != UnitInches) return {0, 0};
    const int value = stored + static_cast<int>(100 * (sixteenths * 0.0625 + 0.0055));
    return {value, value * 3};
}

}  // namespace

int MillimetresToSixteenths(int millimetres)
{
    const int tenths = millimetres * 10;
    return NearestSixteenths(tenths * InchesInTenth - tenths / 254);
}

int HundredthsToSixteenths(int hundredths) { return NearestSixteenths(hundredths * 0.01); }

InchLength InchesFromTenths(int tenths) { return Carried(tenths / 254 * 100, MillimetresToSixteenths(tenths / 10)); }

int TenthsFromInches(InchLength length)
{
    return static_cast<int>((length.hundreds / 100 + length.sixteenths * 0.0625) * 25.4 + 0.55) * 10;
}

InchLength InchesFromHundredths(int hundredths)
{
    return Carried(hundredths / 100 * 100, HundredthsToSixteenths(hundredths % 100));
}

PaperSizeRecord RowSize(const CustomPaperEntry& entry)
{
    const RowLength width = RowLengthOf(entry.cpUnit, entry.cpWidth, entry.cpWidthSixteenths);
    const RowLength length = RowLengthOf(entry.cpUnit, entry.cpHeight, entry.cpHeightSixteenths);
    return {.psWidthDots = static_cast<SHORT>(width.dots),
            .psLengthDots = static_cast<SHORT>(length.dots),
            .psWidth = static_cast<SHORT>(width.value),
            .psLength = static_cast<SHORT>(length.value),
            .psUnit = entry.cpUnit};
}

CustomPaperEntry EntryFromRowSize(const PaperSizeRecord& size)
{
    CustomPaperEntry entry{};
    entry.cpUnit = size.psUnit;
    if (size.psUnit != UnitInches) {
        entry.cpWidth = size.psWidth;
        entry.cpHeight = size.psLength;
        return entry;
    }
    const InchLength width = InchesFromHundredths(size.psWidth);
    const InchLength height = InchesFromHundredths(size.psLength);
    entry.cpWidth = static_cast<SHORT>(width.hundreds);
    entry.cpWidthSixteenths = static_cast<SHORT>(width.sixteenths);
    entry.cpHeight = static_cast<SHORT>(height.hundreds);
    entry.cpHeightSixteenths = static_cast<SHORT>(height.sixteenths);
    return entry;
}

CustomPaperEntry DefaultCustomPaper(bool a4)
{
    CustomPaperEntry entry{};
    if (a4) {
        entry.cpUnit = UnitMillimetres;
        entry.cpWidth = 2100;
        entry.cpHeight = 2970;
    } else {
        entry.cpUnit = UnitInches;
        entry.cpWidth = 800;
        entry.cpWidthSixteenths = 8;
        entry.cpHeight = 1100;
    }
    return entry;
}
