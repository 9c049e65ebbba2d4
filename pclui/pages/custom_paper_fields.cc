#include "pages/custom_paper_fields.h"

#include <algorithm>

#include "pages/custom_paper_units.h"
#include "resources/control_numbers.h"

namespace {

constexpr int TenthsInMillimetre = 10;
constexpr int StoredInch = 100;  // whole inches are stored times 100
constexpr int MostSixteenths = 15;

// In the units of the stored size. At the greatest width in inches not all sixteenths are left, at the greatest
// height none.
constexpr int LeastWidthMm = 760, GreatestWidthMm = 2160;
constexpr int LeastHeightMm = 1270, GreatestHeightMm = 3560;
constexpr int LeastWidthInch = 300, GreatestWidthInch = 800, SixteenthsAtGreatestWidth = 8;
constexpr int LeastHeightInch = 500, GreatestHeightInch = 1400;

// A number that was not typed may be any; far outside all limits one is as good as another.
int Scaled(int typed, int unit) { return std::clamp(typed, -10000, 10000) * unit; }

// Whether the limits bit.
bool Limit(SHORT& side, int value, int least, int greatest)
{
    side = static_cast<SHORT>(std::clamp(value, least, greatest));
    return side != value;
}

bool TakeWidthMm(CustomPaperEntry& entry, int typed)
{
    return Limit(entry.cpWidth, Scaled(typed, TenthsInMillimetre), LeastWidthMm, GreatestWidthMm);
}

bool TakeHeightMm(CustomPaperEntry& entry, int typed)
{
    return Limit(entry.cpHeight, Scaled(typed, TenthsInMillimetre), LeastHeightMm, GreatestHeightMm);
}

// Beyond the limit the sixteenths stay while the user types, so that a slip costs nothing.
bool TakeWidthInch(CustomPaperEntry& entry, int typed)
{
    const int value = Scaled(typed, StoredInch);
    const bool bit = Limit(entry.cpWidth, value, LeastWidthInch, GreatestWidthInch);
    if (value != GreatestWidthInch || entry.cpWidthSixteenths <= SixteenthsAtGreatestWidth) return bit;
    entry.cpWidthSixteenths = SixteenthsAtGreatestWidth;
    return true;
}

bool LeaveWidthInch(CustomPaperEntry& entry, int typed)
{
    const bool bit = TakeWidthInch(entry, typed);
    if (Scaled(typed, StoredInch) > GreatestWidthInch) entry.cpWidthSixteenths = SixteenthsAtGreatestWidth;
    return bit;
}

bool TakeHeightInch(CustomPaperEntry& entry, int typed)
{
    const bool bit = Limit(entry.cpHeight, Scaled(typed, StoredInch), LeastHeightInch, GreatestHeightInch);
    if (entry.cpHeight != GreatestHeightInch) return bit;
    entry.cpHeightSixteenths = 0;
    return true;
}

bool TakeWidthSixteenths(CustomPaperEntry& entry, int typed)
{
    const int greatest = entry.cpWidth == GreatestWidthInch ? SixteenthsAtGreatestWidth : MostSixteenths;
    return Limit(entry.cpWidthSixteenths, typed, 0, greatest);
}

bool TakeHeightSixteenths(CustomPaperEntry& entry, int typed)
{
    const bool none = entry.cpHeight == GreatestHeightInch;
    return Limit(entry.cpHeightSixteenths, typed, 0, none ? 0 : MostSixteenths) || none;
}

int WidthMm(const CustomPaperEntry& entry) { return entry.cpWidth / TenthsInMillimetre; }
int HeightMm(const CustomPaperEntry& entry) { return entry.cpHeight / TenthsInMillimetre; }
int WidthInch(const CustomPaperEntry& entry) { return entry.cpWidth / StoredInch; }
int HeightInch(const CustomPaperEntry& entry) { return entry.cpHeight / StoredInch; }
int WidthSixteenths(const CustomPaperEntry& entry) { return entry.cpWidthSixteenths; }
int HeightSixteenths(const CustomPaperEntry& entry) { return entry.cpHeightSixteenths; }

// clang-format off
constexpr NumberField Fields[] = {
    {IDC_CP_WIDTH_MM,          IDC_CP_WIDTH_MM_SPIN,          3, 76,  216, TakeWidthMm,          TakeWidthMm,          WidthMm},
    {IDC_CP_HEIGHT_MM,         IDC_CP_HEIGHT_MM_SPIN,         3, 127, 356, TakeHeightMm,         TakeHeightMm,         HeightMm},
    {IDC_CP_WIDTH_INCH,        IDC_CP_WIDTH_INCH_SPIN,        1, 3,   8,   TakeWidthInch,        LeaveWidthInch,       WidthInch},
    {IDC_CP_HEIGHT_INCH,       IDC_CP_HEIGHT_INCH_SPIN,       2, 5,   14,  TakeHeightInch,       TakeHeightInch,       HeightInch},
    {IDC_CP_WIDTH_SIXTEENTHS,  IDC_CP_WIDTH_SIXTEENTHS_SPIN,  2, 0,   15,  TakeWidthSixteenths,  TakeWidthSixteenths,  WidthSixteenths},
    {IDC_CP_HEIGHT_SIXTEENTHS, IDC_CP_HEIGHT_SIXTEENTHS_SPIN, 2, 0,   15,  TakeHeightSixteenths, TakeHeightSixteenths, HeightSixteenths},
};
// clang-format on
constexpr std::size_t MillimetreFields = 2;

}  // namespace

std::span<const NumberField> NumberFields() { return Fields; }

std::span<const NumberField> NumberFieldsOf(int unit)
{
    const std::span<const NumberField> all = Fields;
    if (unit == UnitMillimetres) return all.first(MillimetreFields);
    if (unit == UnitInches) return all.subspan(MillimetreFields);
    return {};
}

bool ConvertToInches(CustomPaperEntry& entry)
{
    if (entry.cpUnit != UnitMillimetres) return false;
    const InchLength width = InchesFromTenths(entry.cpWidth), height = InchesFromTenths(entry.cpHeight);
    entry.cpWidth = static_cast<SHORT>(width.hundreds);
    entry.cpWidthSixteenths = static_cast<SHORT>(width.sixteenths);
    entry.cpHeight = static_cast<SHORT>(height.hundreds);
    entry.cpHeightSixteenths = static_cast<SHORT>(height.sixteenths);
    entry.cpUnit = UnitInches;
    return true;
}

bool ConvertToMillimetres(CustomPaperEntry& entry)
{
    if (entry.cpUnit != UnitInches) return false;
    entry.cpWidth = static_cast<SHORT>(TenthsFromInches({entry.cpWidth, entry.cpWidthSixteenths}));
    entry.cpHeight = static_cast<SHORT>(TenthsFromInches({entry.cpHeight, entry.cpHeightSixteenths}));
    entry.cpWidthSixteenths = entry.cpHeightSixteenths = 0;
    entry.cpUnit = UnitMillimetres;
    return true;
}
