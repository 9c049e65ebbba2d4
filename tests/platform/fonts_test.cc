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
    LOGFONTW font{};
    font.lfHeight = 15;
    const SIZE extent = MakeBuiltinFonts()->Extent(font, u"abcd");
    EXPECT_EQ(extent.cx, 28);
    EXPECT_EQ(extent.cy, 16);
}

}  // namespace
}  // namespace platform
