#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

#include "platform/seams/fonts.h"

namespace platform {

namespace {

constexpr std::u16string_view Faces[] = {u"Times New Roman", u"Arial", u"Courier New"};

struct Style {
    LONG weight;
    BYTE italic;
};
constexpr Style StylesInOrder[] = {
    {400, 0}, // regular
    {700, 0}, // bold
    {400, 1}, // italic
    {700, 1}, // bold italic
};

constexpr char16_t LowerLatin(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; }

bool SameFace(std::u16string_view a, std::u16string_view b)
{
    return std::ranges::equal(a, b, {}, LowerLatin, LowerLatin);
}

FontDescription Describe(std::u16string_view face, Style style)
{
    FontDescription description;
    description.font.lfHeight = 16;
    description.font.lfWeight = style.weight;
    description.font.lfItalic = style.italic;
    face.copy(description.font.lfFaceName, LF_FACESIZE - 1);
    description.metrics.tmHeight = 16;
    description.metrics.tmWeight = style.weight;
    description.metrics.tmItalic = style.italic;
    description.type = TRUETYPE_FONTTYPE;
    return description;
}

class BuiltinFonts : public FontService {
  public:
    std::vector<FontDescription> Families() override
    {
        std::vector<FontDescription> families;
        for (const std::u16string_view face : Faces) families.push_back(Describe(face, StylesInOrder[0]));
        return families;
    }

    std::vector<FontDescription> Styles(std::u16string_view face) override
    {
        std::vector<FontDescription> styles;
        for (const std::u16string_view known : Faces) {
            if (!SameFace(known, face)) continue;
            for (const Style style : StylesInOrder) styles.push_back(Describe(known, style));
        }
        return styles;
    }

    SIZE Extent(const LOGFONTW& font, std::u16string_view text) override
    {
        constexpr std::int64_t Most = std::numeric_limits<LONG>::max();
        const std::int64_t height = std::abs(std::int64_t{font.lfHeight});
        const std::int64_t characters = std::min(static_cast<std::int64_t>(text.size()), Most);
        return {static_cast<LONG>(std::min(characters * (height / 2), Most)),
                static_cast<LONG>(std::min(height * 9 / 8, Most))};
    }
};

}  // namespace

std::shared_ptr<FontService> MakeBuiltinFonts() { return std::make_shared<BuiltinFonts>(); }

}  // namespace platform
