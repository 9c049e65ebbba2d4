#include <cstring>

#include "gdi_fixture.h"

namespace gdi_test {
namespace {

using State = Drawing;

TEST_F(State, AWindowThatIsGoneHasNoContextAndIsDrawnNowhere)
{
    const HDC context = Context(control);
    platform::user::Destroy(dialog);
    EXPECT_EQ(Refusal(GetDC(control)), ERROR_INVALID_WINDOW_HANDLE);
    RECT client{1, 2, 3, 4};
    EXPECT_FALSE(GetClientRect(control, &client));
    EXPECT_EQ(client.left, 1);
    EXPECT_TRUE(Rectangle(context, 0, 0, 5, 5));
    EXPECT_THAT(picture->Take(), testing::IsEmpty());
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
    EXPECT_EQ(Refusal(DeleteObject(pen)), ERROR_INVALID_HANDLE);
    ReleaseDC(nullptr, screen);
    EXPECT_TRUE(DeleteObject(brush));
}

TEST_F(State, ABitmapGoesIntoOneMemoryContextAlone)
{
    const HDC first = Memory(1, 1, 32), second = Memory(1, 1, 32);
    const HBITMAP bitmap = Own(CreateBitmap(4, 4, 1, 32, nullptr));
    EXPECT_EQ(SelectObject(Context(nullptr), bitmap), nullptr);
    const HGDIOBJ before = SelectObject(first, bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(SelectObject(first, before), bitmap);
    EXPECT_NE(SelectObject(second, bitmap), nullptr);
}

TEST_F(State, WhatDoesNotExistIsRefusedEverywhere)
{
    const HDC screen = Context(nullptr), job = Job();
    EXPECT_FALSE(DeleteDC(screen));
    EXPECT_FALSE(DeleteDC(job));
    EXPECT_EQ(ReleaseDC(nullptr, job), 0);
    EXPECT_EQ(SetBkMode(screen, 3), 0);
    EXPECT_EQ(SetROP2(screen, 17), 0);
    EXPECT_EQ(Refusal(SetMapMode(screen, 9)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(CreatePen(99, 1, 0), nullptr);
    const auto wrong = reinterpret_cast<HGDIOBJ>(std::uintptr_t{0xBAD0});
    const RECT box{0, 0, 1, 1};
    EXPECT_EQ(SelectObject(screen, wrong), nullptr);
    EXPECT_EQ(SelectObject(screen, nullptr), nullptr);
    EXPECT_EQ(SelectObject(screen, screen), nullptr);
    EXPECT_FALSE(DeleteObject(screen));
    EXPECT_FALSE(FillRect(screen, &box, static_cast<HBRUSH>(GetStockObject(BLACK_PEN))));
    EXPECT_FALSE(PaintRgn(screen, static_cast<HRGN>(wrong)));
    EXPECT_EQ(SelectClipRgn(screen, static_cast<HRGN>(wrong)), ERROR_REGION);
    EXPECT_EQ(Refusal(DrawIcon(screen, 0, 0, static_cast<HICON>(wrong))), ERROR_INVALID_HANDLE);
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

}  // namespace
}  // namespace gdi_test
