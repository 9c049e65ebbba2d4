#include <array>

#include "gdi_fixture.h"

namespace gdi_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Draws on a job, whose surface gets the calls without a clip.
class Shapes : public Drawing {
  protected:
    Shapes() : job(Job()) {}
    void Use(HGDIOBJ object) { SelectObject(job, Own(object)); }
    void Stretch(int window, int viewport)
    {
        SetMapMode(job, MM_ANISOTROPIC);
        SetWindowExtEx(job, window, window, nullptr);
        SetViewportExtEx(job, viewport, viewport, nullptr);
    }
    HDC job;
};

TEST_F(Shapes, AreScaledWithARectanglesCornersInOrder)
{
    Stretch(10, 5);
    const std::array points{
        POINT{0,  0 },
        POINT{10, 0 },
        POINT{10, 20}
    };
    EXPECT_TRUE(Rectangle(job, 100, 80, 20, 10));
    EXPECT_TRUE(Polygon(job, points.data(), 3));
    EXPECT_TRUE(Arc(job, 0, -14, 20, 14, 20, 0, 10, 14));
    EXPECT_THAT(page->Take(), ElementsAre("rectangle 10,5,50,40 pen 0/1/000000 brush ffffff",
                                          "polygon 0,0 5,0 5,10 pen 0/1/000000 brush ffffff",
                                          "arc 0,-7,10,7 from 10,0 to 5,7 pen 0/1/000000"));
    EXPECT_FALSE(Polygon(job, points.data(), 1));
    EXPECT_EQ(Refusal(Polygon(job, nullptr, 3)), ERROR_INVALID_PARAMETER);
}

TEST_F(Shapes, TextIsScaledAndTakesItsColours)
{
    Stretch(10, 5);
    LOGFONTW font{};
    font.lfHeight = -41;
    Use(CreateFontIndirectW(&font));
    SetTextColor(job, 0x7F7F7F);
    TextOutW(job, 20, 20, u"abcd", 3);
    SetBkMode(job, TRANSPARENT);
    const RECT clip{10, 10, 50, 50};
    ExtTextOutW(job, 0, 0, ETO_CLIPPED, &clip, u"1", 1, nullptr);
    EXPECT_THAT(page->Take(), ElementsAre("text 10,10 abc height -21 color 7f7f7f on ffffff",
                                          "text 0,0 1 height -21 color 7f7f7f within 5,5,25,25"));
}

TEST_F(Shapes, AnOpaqueRectangleIsFilledEvenWithoutAText)
{
    const RECT strip{1, 2, 30, 3};
    SetBkColor(job, 0x808080);
    EXPECT_TRUE(ExtTextOutW(job, 0, 0, ETO_OPAQUE, &strip, nullptr, 0, nullptr));
    EXPECT_TRUE(ExtTextOutW(job, 0, 0, 0, nullptr, u"", 0, nullptr));
    EXPECT_THAT(page->Take(), ElementsAre("fill 1,2,30,3 808080"));
}

TEST_F(Shapes, ATextThatIsNotThereOrSpacedByHandIsRefused)
{
    const INT advances[] = {5};
    EXPECT_FALSE(TextOutW(job, 0, 0, nullptr, 1));
    EXPECT_EQ(Refusal(TextOutW(job, 0, 0, u"a", -1)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Refusal(ExtTextOutW(job, 0, 0, 0, nullptr, u"a", 1, advances)), ERROR_NOT_SUPPORTED);
    EXPECT_THAT(page->Take(), IsEmpty());
}

TEST_F(Shapes, TextCanGoOnFromTheCurrentPosition)
{
    LOGFONTW font{};
    font.lfHeight = -21;  // half of it a character, rounded down
    Use(CreateFontIndirectW(&font));
    SetTextAlign(job, TA_UPDATECP);
    MoveToEx(job, 100, 50, nullptr);
    TextOutW(job, 0, 0, u"ab", 2);
    POINT position{};
    MoveToEx(job, 0, 0, &position);
    EXPECT_EQ(position.x, 120);
    EXPECT_THAT(page->Take(), ElementsAre(testing::StartsWith("text 100,50")));
}

int CountUpTo(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM parameter)
{
    auto* left = reinterpret_cast<int*>(parameter);
    return --*left;
}

TEST_F(Shapes, FontsComeByFamilyOrByStyleUntilTheCallbackHasEnough)
{
    int left = 100;
    EXPECT_EQ(EnumFontsW(job, nullptr, CountUpTo, reinterpret_cast<LPARAM>(&left)), 97);
    EXPECT_EQ(EnumFontsW(job, u"Arial", CountUpTo, reinterpret_cast<LPARAM>(&left)), 93);
    EXPECT_EQ(EnumFontsW(job, u"No Such Face", CountUpTo, reinterpret_cast<LPARAM>(&left)), 1);
    left = 2;
    EXPECT_EQ(EnumFontsW(job, u"Arial", CountUpTo, reinterpret_cast<LPARAM>(&left)), 0);
    EXPECT_EQ(left, 0);
    EXPECT_EQ(EnumFontsW(job, nullptr, nullptr, 0), 0);
}

using WindowShapes = Drawing;

TEST_F(WindowShapes, AnEdgeIsNoPartOfTheClientRectangle)
{
    platform::user::Get(control)->exStyle = 0x0200;
    RECT client{};
    GetClientRect(control, &client);
    EXPECT_EQ(client.right, 46);
    const HDC context = Context(control);
    const RECT box{0, 0, 1, 1};
    FillRect(context, &box, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    EXPECT_THAT(picture->Take(), ElementsAre("clip 12,22,58,48", "fill 12,22,13,23 000000", "clip none"));
}

TEST_F(WindowShapes, TheScreenAndAJobWithoutAPageTakeDrawingAndShowNothing)
{
    const HDC screen = Context(nullptr), job = Job();
    EXPECT_TRUE(platform::gdi::SetJobSurface(job, nullptr));
    EXPECT_FALSE(platform::gdi::SetJobSurface(screen, page));
    EXPECT_TRUE(Rectangle(screen, 0, 0, 5, 5));
    EXPECT_TRUE(TextOutW(job, 0, 0, u"a", 1));
    EXPECT_THAT(page->Take(), IsEmpty());
}

}  // namespace
}  // namespace gdi_test
