#include "platform/seams/fonts.h"

namespace platform {
namespace {

using ::testing::ElementsAre;

TEST(BuiltinFonts, DeliversTheStylesInOrder)
{
    std::vector<std::pair<LONG, int>> styles;
    for (const auto& style : MakeBuiltinFonts()->Styles(u"arial")) {
        EXPECT_EQ(std::u16string(style.font.lfFaceName), u"Arial");
        EXPECT_EQ(style.font.lfHeight, 16);
        EXPECT_EQ(style.metrics.tmWeight, style.font.lfWeight);
        EXPECT_EQ(style.type, TRUETYPE_FONTTYPE);
        styles.emplace_back(style.font.lfWeight, style.font.lfItalic);
    }
    EXPECT_TRUE(MakeBuiltinFonts()->Styles(u"Fancy").empty());
    EXPECT_THAT(styles, ElementsAre(std::pair(400, 0), std::pair(700, 0), std::pair(400, 1), std::pair(700, 1)));
}

TEST(BuiltinFonts, MeasuresInIntegerDivision)
{
    struct Row {
        LONG height;
        const char16_t* text;
        LONG width, high;
    };
    constexpr Row Rows[] = {
        {-16, u"abc",  24, 18},
        {15,  u"abcd", 28, 16},
        {-7,  u"",     0,  7 },
        {0,   u"abc",  0,  0 },
    };
    for (const Row& row : Rows) {
        LOGFONTW font{};
        font.lfHeight = row.height;
        const SIZE extent = MakeBuiltinFonts()->Extent(font, row.text);
        EXPECT_EQ(extent.cx, row.width) << row.height;
        EXPECT_EQ(extent.cy, row.high) << row.height;
    }
}

}  // namespace
}  // namespace platform
