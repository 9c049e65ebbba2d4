#include "watermark/watermark_lines.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "settings/wide_text.h"
#include "watermark/placement.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_values.h"

namespace {

constexpr std::u16string_view LineEnd = u"\r\n";
constexpr int FieldsBeforeFace = 9;

enum Style { Plain = 0, Italic = 1, Bold = 2, BoldItalic = 3 };

// A numeric field of the line; a value outside its range, or none, is replaced.
struct FieldRule {
    int least, greatest, substitute;
};
constexpr FieldRule RemovableRule = {0, 1, 1};
constexpr FieldRule ShadingRule = {5, 100, DefaultShading};
constexpr FieldRule SizeRule = {8, 200, DefaultWatermarkSize};
constexpr FieldRule PositionModeRule = {0, 1, 0};
constexpr FieldRule PositionRule = {-100, 100, 0};
constexpr FieldRule StyleRule = {Plain, BoldItalic, Plain};
constexpr FieldRule AngleModeRule = {0, 3, AngleModeDiagonal};
constexpr FieldRule AngleRule = {-180, 180, 45};

// The fields of a line, one after the other; behind the last one they are empty.
class FieldReader {
  public:
    explicit FieldReader(std::u16string_view line) : rest_(line) {}
    int Number(const FieldRule& rule)
    {
        const auto number = WholeNumber(Take());
        return number && *number >= rule.least && *number <= rule.greatest ? *number : rule.substitute;
    }
    std::u16string_view Rest() const { return rest_; }

  private:
    std::u16string_view Take()
    {
        const std::size_t end = std::min(rest_.find(u'|'), rest_.size());
        const std::u16string_view field = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return field;
    }
    std::u16string_view rest_;
};

int StyleOf(const WatermarkRecord& row) { return (row.wmItalic ? Italic : Plain) + (row.wmBold ? Bold : Plain); }

std::u16string_view FaceOf(const WatermarkRecord& row)
{
    const auto* end = std::find(std::begin(row.wmFaceName), std::end(row.wmFaceName), u'\0');
    return {row.wmFaceName, static_cast<std::size_t>(end - row.wmFaceName)};
}

}  // namespace

LineReader::LineReader(const WatermarkValue& value)
    : rest_(value.data(), static_cast<std::size_t>(std::find(value.begin(), value.end(), u'\0') - value.begin()))
{
}

std::optional<std::u16string_view> LineReader::Next()
{
    if (rest_.empty()) return std::nullopt;
    const std::size_t end = rest_.find(LineEnd);
    const std::u16string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::u16string_view::npos ? rest_.size() : end + LineEnd.size());
    return line;
}

void LineWriter::Append(std::u16string_view piece)
{
    std::ranges::copy(piece, value_.begin() + static_cast<std::ptrdiff_t>(used_));
    used_ += piece.size();
}

std::optional<int> WholeNumber(std::u16string_view text)
{
    const bool negative = text.starts_with(u'-');
    if (negative) text.remove_prefix(1);
    if (text.empty() || text.size() > 9) return std::nullopt;
    int number = 0;
    for (const WCHAR digit : text) {
        if (digit < u'0' || digit > u'9') return std::nullopt;
        number = number * 10 + (digit - u'0');
    }
    return negative ? -number : number;
}

void ReadAttributes(std::u16string_view line, WatermarkRecord& row)
{
    FieldReader fields(line);
    row.wmRemovable = fields.Number(RemovableRule);
    row.wmShading = static_cast<SHORT>(fields.Number(ShadingRule));
    row.wmSize = row.wmSizeLow = static_cast<SHORT>(fields.Number(SizeRule));
    row.wmPositionMode = static_cast<SHORT>(fields.Number(PositionModeRule));
    row.wmPositionY = static_cast<SHORT>(fields.Number(PositionRule));
    row.wmPositionX = static_cast<SHORT>(fields.Number(PositionRule));
    const int style = fields.Number(StyleRule);
    row.wmItalic = style & Italic ? 1 : 0;
    row.wmBold = style & Bold ? 1 : 0;
    row.wmAngleMode = static_cast<SHORT>(fields.Number(AngleModeRule));
    row.wmAngle = static_cast<SHORT>(fields.Number(AngleRule));
    if (row.wmAngleMode == AngleModeDiagonal) row.wmAngle = DiagonalAngle;
    CopyToField(row.wmFaceName, static_cast<int>(std::size(row.wmFaceName)), fields.Rest());
}

std::u16string AttributeLine(const WatermarkRecord& row)
{
    const int numbers[FieldsBeforeFace] = {static_cast<int>(row.wmRemovable),
                                           row.wmShading,
                                           row.wmSize,
                                           row.wmPositionMode,
                                           row.wmPositionY,
                                           row.wmPositionX,
                                           StyleOf(row),
                                           row.wmAngleMode,
                                           row.wmAngle};
    std::u16string line;
    for (const int number : numbers) {
        line = Numbered(line.c_str(), number) + u'|';  // never fails: a field less would shift those behind it
    }
    line += FaceOf(row);
    line += LineEnd;
    return line;
}
