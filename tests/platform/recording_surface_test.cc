#include "platform/seams/surface.h"

#include "tests/platform/gdi_fixture.h"

namespace platform {
namespace {

using ::testing::ElementsAre;

// What it tells another, each call by its first word.
std::vector<std::string> Told(const RecordingSurface& surface)
{
    gdi_test::SurfaceLog log;
    surface.ReplayOn(log);
    auto words = log.Take();
    for (std::string& line : words) line.erase(std::min(line.find(' '), line.size()));
    return words;
}

constexpr RECT Whole = {0, 0, 100, 100};

TEST(RecordingSurface, IsTheSameOnlyWithTheSameCalls)
{
    const auto text = [](std::u16string words, LONG x, std::optional<RECT> clip = {}) {
        TextSpec spec;
        spec.text = std::move(words);
        spec.origin = {x, 5};
        spec.clip = clip;
        return spec;
    };
    const POINT triangle[] = {
        {1, 1},
        {9, 1},
        {5, 9}
    };
    std::vector<RecordingSurface> different(12);
    different[1].Text(text(u"A", 5));
    different[2].Text(text(u"B", 5));
    different[3].Text(text(u"A", 6));
    different[4].Text(text(u"A", 5, Whole));
    different[5].Line({}, {1, 1}, {5, 5});
    different[6].Line({PS_DASH, 1, 0}, {1, 1}, {5, 5});
    different[7].SetClip(Whole);
    different[7].Line({}, {1, 1}, {5, 5});
    different[8].Fill(Whole, 0);
    different[9].Polygon({}, std::nullopt, triangle);
    different[10].Arc({}, {1, 1, 9, 9}, {1, 1}, {9, 9});
    different[11].Image({1, 1, 3, 3}, {1, 1, {0}});
    for (std::size_t a = 0; a < different.size(); ++a) {
        for (std::size_t b = 0; b < different.size(); ++b) {
            RecordingSurface copy;
            different[b].ReplayOn(copy);
            EXPECT_EQ(different[a].Same(copy), a == b) << a << ' ' << b;
        }
    }
}

TEST(RecordingSurface, PaintingTheSameAgainDoesNotGrow)
{
    RecordingSurface surface;
    for (int i = 0; i < 50; ++i) {
        surface.SetClip(RECT{10, 10, 60, 60});
        surface.Fill({0, 0, 200, 200}, 0xFFFFFF);
        surface.Rectangle({}, COLORREF{0}, {12, 12, 40, 40});
        TextSpec text;
        text.origin = {20, 20};
        text.text = u"reaches out of the clip";
        surface.Text(text);
        surface.SetClip(std::nullopt);
    }
    EXPECT_THAT(Told(surface), ElementsAre("clip", "fill", "rectangle", "text", "clip"));
}

TEST(RecordingSurface, AnImageHidesOnlyWhenItIsOpaque)
{
    RecordingSurface surface;
    surface.Line({}, {1, 1}, {5, 5});
    surface.Image(Whole, {1, 1, {0x00123456}});
    EXPECT_EQ(surface.Count(), 2u);
    surface.Image(Whole, {1, 1, {0xFF123456}});
    EXPECT_EQ(surface.Count(), 1u);
}

}  // namespace
}  // namespace platform
