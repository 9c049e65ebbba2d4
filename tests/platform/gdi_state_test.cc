#include <cstring>

#include "gdi_fixture.h"

namespace gdi_test {
namespace {

using State = Drawing;

TEST_F(State, AContextStartsPlainAndEverySettingGivesWhatStoodBefore)
{
    const HDC screen = Context(nullptr);
    EXPECT_EQ(SelectObject(screen, GetStockObject(NULL_PEN)), GetStockObject(BLACK_PEN));
    EXPECT_EQ(SelectObject(screen, GetStockObject(NULL_BRUSH)), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(SelectObject(screen, GetStockObject(SYSTEM_FIXED_FONT)), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(SetBkMode(screen, TRANSPARENT), OPAQUE);
    EXPECT_EQ(SetBkMode(screen, OPAQUE), TRANSPARENT);
    EXPECT_EQ(SetBkColor(screen, 0x112233), RGB(255, 255, 255));
    EXPECT_EQ(SetBkColor(screen, 0), 0x112233u);
    EXPECT_EQ(SetTextColor(screen, 0x445566), RGB(0, 0, 0));
    EXPECT_EQ(SetTextColor(screen, 0), 0x445566u);
    EXPECT_EQ(SetTextAlign(screen, TA_RIGHT | TA_BASELINE), TA_LEFT);
    EXPECT_EQ(GetTextAlign(screen), TA_RIGHT | TA_BASELINE);
    EXPECT_EQ(SetROP2(screen, R2_WHITE), R2_COPYPEN);
    EXPECT_EQ(SetROP2(screen, R2_COPYPEN), R2_WHITE);
    EXPECT_EQ(SetMapMode(screen, MM_ANISOTROPIC), MM_TEXT);
}

TEST_F(State, OriginsAndPositionGiveWhatStoodBefore)
{
    const HDC screen = Context(nullptr);
    for (const auto set : {SetWindowOrgEx, SetViewportOrgEx, MoveToEx}) {
        POINT before{};
        set(screen, 1, 2, nullptr);
        set(screen, 0, 0, &before);
        EXPECT_EQ(before.x, 1);
        EXPECT_EQ(before.y, 2);
    }
}

TEST_F(State, AModeThatDoesNotExistIsRefused)
{
    const HDC screen = Context(nullptr);
    EXPECT_EQ(SetBkMode(screen, 3), 0);
    EXPECT_EQ(SetROP2(screen, 17), 0);
    EXPECT_EQ(SetMapMode(screen, 9), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(State, AContextThatIsGivenBackIsKnownAsStale)
{
    const HDC screen = GetDC(nullptr);
    EXPECT_EQ(ReleaseDC(nullptr, screen), 1);
    EXPECT_EQ(ReleaseDC(nullptr, screen), 0);
    EXPECT_FALSE(Rectangle(screen, 0, 0, 1, 1));
    EXPECT_EQ(SetBkColor(screen, 0), CLR_INVALID);
    EXPECT_EQ(GetTextAlign(screen), GDI_ERROR);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    const HDC next = GetDC(nullptr);
    EXPECT_NE(next, screen);
    ReleaseDC(nullptr, next);
}

TEST_F(State, ContextsAreGivenBackTheWayTheyWereTaken)
{
    const HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(nullptr), job = Job();
    EXPECT_FALSE(DeleteDC(screen));
    EXPECT_FALSE(DeleteDC(job));
    EXPECT_EQ(ReleaseDC(nullptr, memory), 0);
    EXPECT_EQ(ReleaseDC(nullptr, job), 0);
    EXPECT_TRUE(DeleteDC(memory));
    EXPECT_EQ(ReleaseDC(nullptr, screen), 1);
}

TEST_F(State, AWindowThatIsGoneHasNoContextAndIsDrawnNowhere)
{
    const HDC context = Context(control);
    platform::user::Destroy(dialog);
    EXPECT_EQ(GetDC(control), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    RECT client{1, 2, 3, 4};
    EXPECT_FALSE(GetClientRect(control, &client));
    EXPECT_EQ(client.left, 1);
    EXPECT_TRUE(Rectangle(context, 0, 0, 5, 5));
    EXPECT_THAT(picture->Take(), testing::IsEmpty());
}

TEST_F(State, CapabilitiesAreTheDevices)
{
    const HDC screen = Context(nullptr), job = Job();
    const HDC memory = CreateCompatibleDC(job);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), 96);
    EXPECT_EQ(GetDeviceCaps(screen, BITSPIXEL), 32);
    EXPECT_EQ(GetDeviceCaps(screen, PHYSICALWIDTH), 0);
    EXPECT_EQ(GetDeviceCaps(job, LOGPIXELSX), 600);
    EXPECT_EQ(GetDeviceCaps(job, HORZRES), 4900);
    EXPECT_EQ(GetDeviceCaps(job, PHYSICALHEIGHT), 6600);
    EXPECT_EQ(GetDeviceCaps(job, PHYSICALOFFSETX), 100);
    EXPECT_EQ(GetDeviceCaps(memory, LOGPIXELSX), 600);
    EXPECT_EQ(GetDeviceCaps(memory, -1), 0);
    DeleteDC(memory);
}

TEST_F(State, ASelectedObjectCannotBeDeletedUntilItIsPutDownOrItsContextGoes)
{
    const HDC screen = GetDC(nullptr);
    const HPEN pen = CreatePen(PS_SOLID, 1, 0);
    const HBRUSH brush = CreateSolidBrush(0);
    const HGDIOBJ before = SelectObject(screen, pen);
    SelectObject(screen, brush);
    EXPECT_FALSE(DeleteObject(pen));
    EXPECT_EQ(SelectObject(screen, before), pen);
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_FALSE(DeleteObject(pen));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    ReleaseDC(nullptr, screen);
    EXPECT_TRUE(DeleteObject(brush));
}

TEST_F(State, StockObjectsStayWhateverIsDone)
{
    const HGDIOBJ pen = GetStockObject(BLACK_PEN);
    DeleteObject(pen);
    EXPECT_EQ(GetStockObject(BLACK_PEN), pen);
    const HDC screen = Context(nullptr);
    EXPECT_EQ(SelectObject(screen, pen), pen);
    EXPECT_EQ(GetStockObject(9), nullptr);
    EXPECT_EQ(GetStockObject(-1), nullptr);
}

TEST_F(State, ABitmapGoesIntoOneMemoryContextAlone)
{
    const HDC first = CreateCompatibleDC(nullptr), second = CreateCompatibleDC(nullptr), screen = GetDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(4, 4, 1, 32, nullptr);
    EXPECT_EQ(SelectObject(screen, bitmap), nullptr);
    const HGDIOBJ before = SelectObject(first, bitmap);
    BITMAP description{};
    EXPECT_EQ(GetObjectW(before, sizeof description, &description), int{sizeof description});
    EXPECT_EQ(description.bmWidth * 10 + description.bmBitsPixel, 11);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    SelectObject(first, before);
    EXPECT_EQ(SelectObject(second, bitmap), before);
    DeleteDC(first);
    DeleteDC(second);
    ReleaseDC(nullptr, screen);
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST_F(State, WhatIsNoObjectIsRefusedEverywhere)
{
    const HDC screen = Context(nullptr);
    const auto wrong = reinterpret_cast<HGDIOBJ>(std::uintptr_t{0xBAD0});
    const RECT box{0, 0, 1, 1};
    EXPECT_EQ(SelectObject(screen, wrong), nullptr);
    EXPECT_EQ(SelectObject(screen, nullptr), nullptr);
    EXPECT_EQ(SelectObject(screen, screen), nullptr);
    EXPECT_FALSE(DeleteObject(screen));
    EXPECT_FALSE(FillRect(screen, &box, static_cast<HBRUSH>(GetStockObject(BLACK_PEN))));
    EXPECT_FALSE(PaintRgn(screen, static_cast<HRGN>(wrong)));
    EXPECT_EQ(SelectClipRgn(screen, static_cast<HRGN>(wrong)), ERROR_REGION);
    EXPECT_FALSE(DrawIcon(screen, 0, 0, static_cast<HICON>(wrong)));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(State, AFontIsDescribedAsItWasMade)
{
    LOGFONTW font{}, told{};
    font.lfHeight = -300;
    font.lfEscapement = 530;
    font.lfFaceName[0] = u'A';
    const HFONT made = Own(CreateFontIndirectW(&font));
    EXPECT_EQ(GetObjectW(made, 0, nullptr), 92);
    EXPECT_EQ(GetObjectW(made, sizeof told, &told), 92);
    EXPECT_EQ(std::memcmp(&font, &told, sizeof font), 0);
    told = {};
    EXPECT_EQ(GetObjectW(made, 4, &told), 4);
    EXPECT_EQ(told.lfHeight, -300);
    EXPECT_EQ(told.lfEscapement, 0);
    EXPECT_EQ(GetObjectW(made, 0, &told), 0);
}

TEST_F(State, BrokenPensAreOnePixelWide)
{
    EXPECT_EQ(CreatePen(99, 1, 0), nullptr);
    platform::CurrentEnvironment().trace = trace;
    Own(CreatePen(PS_DOT, 3, 0));
    EXPECT_THAT(trace->Take(), testing::ElementsAre("no dc: CreatePen [2,3,0] = {pen:{style:0,width:3,color:0}}"));
}

}  // namespace
}  // namespace gdi_test
