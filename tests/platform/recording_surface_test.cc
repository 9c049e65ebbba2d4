#include "platform/seams/surface.h"

namespace platform {
namespace {

using ::testing::ElementsAre;

// Writes down what it is told, one word a call.
class Log : public Surface {
  public:
    void SetClip(const std::optional<RECT>& clip) override
    {
        words.push_back(clip ? "clip" + std::to_string(clip->left) : "unclip");
    }
    void Line(const PenSpec&, POINT, POINT) override { words.push_back("line"); }
    void Rectangle(const PenSpec&, const BrushSpec&, const RECT&) override { words.push_back("rectangle"); }
    void Polygon(const PenSpec&, const BrushSpec&, std::span<const POINT>) override { words.push_back("polygon"); }
    void Arc(const PenSpec&, const RECT&, POINT, POINT) override { words.push_back("arc"); }
    void Fill(const RECT&, COLORREF) override { words.push_back("fill"); }
    void Text(const TextSpec&) override { words.push_back("text"); }
    void Image(const RECT&, const PixelImage&) override { words.push_back("image"); }
    void Erase(const RECT&) override { words.push_back("erase"); }
    std::vector<std::string> words;
};

std::vector<std::string> Told(const RecordingSurface& surface)
{
    Log log;
    surface.ReplayOn(log);
    return log.words;
}

constexpr RECT Whole = {0, 0, 100, 100};

TEST(RecordingSurface, TellsEachKindOfCallInOrder)
{
    RecordingSurface surface;
    const POINT triangle[] = {
        {1, 1},
        {9, 1},
        {5, 9}
    };
    surface.Fill(Whole, 0);
    surface.Line({}, {1, 1}, {5, 5});
    surface.Rectangle({}, std::nullopt, {1, 1, 9, 9});
    surface.Polygon({}, std::nullopt, triangle);
    surface.Arc({}, {1, 1, 9, 9}, {1, 1}, {9, 9});
    surface.Text({});
    surface.Image({1, 1, 3, 3}, {1, 1, {0}});
    EXPECT_THAT(Told(surface), ElementsAre("fill", "line", "rectangle", "polygon", "arc", "text", "image"));
}

TEST(RecordingSurface, IsTheSameOnlyWithTheSameCalls)
{
    const auto text = [](std::u16string words, LONG x, std::optional<RECT> clip = {}) {
        TextSpec spec;
        spec.text = std::move(words);
        spec.origin = {x, 5};
        spec.clip = clip;
        return spec;
    };
    std::vector<RecordingSurface> different(8);
    different[1].Text(text(u"A", 5));
    different[2].Text(text(u"B", 5));
    different[3].Text(text(u"A", 6));
    different[4].Text(text(u"A", 5, Whole));
    different[5].Line({}, {1, 1}, {5, 5});
    different[6].Line({PS_DASH, 1, 0}, {1, 1}, {5, 5});
    different[7].SetClip(Whole);
    different[7].Line({}, {1, 1}, {5, 5});
    for (std::size_t a = 0; a < different.size(); ++a) {
        for (std::size_t b = 0; b < different.size(); ++b) {
            const RecordingSurface copy = different[b];
            EXPECT_EQ(different[a].Same(copy), a == b) << a << ' ' << b;
        }
    }
}

TEST(RecordingSurface, AnOpaqueCallForgetsWhatItHides)
{
    RecordingSurface surface;
    surface.Line({}, {1, 1}, {50, 50});
    surface.Fill({0, 0, 10, 10}, 0);
    surface.Line({}, {90, 90}, {120, 90});
    surface.Erase(Whole);
    EXPECT_THAT(Told(surface), ElementsAre("line", "erase"));
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
    EXPECT_THAT(Told(surface), ElementsAre("clip10", "fill", "rectangle", "text", "unclip"));
}

TEST(RecordingSurface, AClippedFillHidesNothingOutsideItsClip)
{
    RecordingSurface surface;
    surface.Line({}, {1, 1}, {50, 50});
    surface.SetClip(RECT{0, 0, 20, 20});
    surface.Fill(Whole, 0);
    EXPECT_THAT(Told(surface), ElementsAre("line", "clip0", "fill"));
}

TEST(RecordingSurface, AWidePenReachesOut)
{
    RecordingSurface surface;
    surface.Line({PS_SOLID, 9, 0}, {10, 10}, {20, 10});
    surface.Fill({10, 10, 30, 30}, 0);
    EXPECT_THAT(Told(surface), ElementsAre("line", "fill"));
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

TEST(RecordingSurface, LeavesTheTargetWithTheClipThatHoldsNow)
{
    RecordingSurface surface;
    surface.SetClip(RECT{3, 0, 9, 9});
    EXPECT_THAT(Told(surface), ElementsAre("clip3"));
}

}  // namespace
}  // namespace platform
