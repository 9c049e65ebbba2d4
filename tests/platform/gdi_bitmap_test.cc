#include <array>

#include "gdi_fixture.h"

namespace gdi_test {
namespace {

using testing::ElementsAre;

constexpr COLORREF Red = RGB(255, 0, 0), Blue = RGB(0, 0, 255), White = RGB(255, 255, 255), Black = 0;

// Row by row, as "ff0000 ".
std::string Pixels(HDC context, int width, int height)
{
    std::string pixels;
    for (int i = 0; i < width * height; ++i) pixels += Hex(GetPixel(context, i % width, i / width)) + ' ';
    return pixels;
}

// Two by one: blue, red (colours of COLORREF stand as red, green, blue from the lowest byte on).
constexpr std::array<std::uint8_t, 8> BlueRed = {255, 0, 0, 0, 0, 0, 255, 0};
// Two by two: 10 / 01.
constexpr std::array<std::uint8_t, 4> Diagonal = {0x80, 0, 0x40, 0};

using Bitmaps = Drawing;

TEST_F(Bitmaps, PixelsComeInAsTheyAreGiven)
{
    const HDC colored = Memory(2, 1, 32, BlueRed.data()), mono = Memory(2, 2, 1, Diagonal.data());
    EXPECT_EQ(GetPixel(colored, 0, 0), Blue);
    EXPECT_EQ(GetPixel(colored, 1, 0), Red);
    EXPECT_EQ(GetPixel(colored, 2, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(colored, 0, -1), CLR_INVALID);
    EXPECT_EQ(Pixels(mono, 2, 2), "ffffff 000000 000000 ffffff ");
}

TEST_F(Bitmaps, OfUnknownDepthOrEndlessSizeAreRefused)
{
    EXPECT_EQ(CreateBitmap(1, 1, 1, 8, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(1, 1, 3, 1, nullptr), nullptr);
    EXPECT_EQ(Refusal(CreateBitmap(-1, 1, 1, 1, nullptr)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Refusal(CreateBitmap(2147483647, 2147483647, 1, 1, nullptr)), ERROR_NOT_ENOUGH_MEMORY);
}

TEST_F(Bitmaps, AreDescribedWithTheirRows)
{
    const HBITMAP bitmap = Own(CreateBitmap(17, 3, 1, 1, nullptr));
    BITMAP told{};
    EXPECT_EQ(GetObjectW(bitmap, sizeof told, &told), int{sizeof told});
    EXPECT_EQ(told.bmWidth, 17);
    EXPECT_EQ(told.bmHeight, 3);
    EXPECT_EQ(told.bmWidthBytes, 4);
    EXPECT_EQ(told.bmBitsPixel, 1);
    EXPECT_EQ(Refusal(GetObjectW(bitmap, 8, &told)), ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(Bitmaps, FillsStayWithinBitmapAndClip)
{
    const HDC memory = Memory(3, 1, 32);
    const HBRUSH red = Own(CreateSolidBrush(Red));
    const HRGN all = Own(CreateRectRgn(-1000000, -1000000, 1000000, 1000000)), middle = Own(CreateRectRgn(1, 0, 2, 1));
    EXPECT_TRUE(FillRgn(memory, all, red));
    SelectClipRgn(memory, middle);
    EXPECT_TRUE(PaintRgn(memory, all));
    EXPECT_EQ(Pixels(memory, 3, 1), "0000ff ffffff 0000ff ");
}

TEST_F(Bitmaps, ARectangleHasItsOutline)
{
    const HDC memory = Memory(4, 3, 32);
    EXPECT_TRUE(Rectangle(memory, 1, 0, 4, 3));
    EXPECT_EQ(GetPixel(memory, 2, 1), White);
    EXPECT_EQ(GetPixel(memory, 1, 1), Black);
    EXPECT_EQ(GetPixel(memory, 3, 2), Black);
}

TEST_F(Bitmaps, WhatNeedsASurfaceIsRefused)
{
    const HDC memory = Memory(2, 2, 32);
    EXPECT_FALSE(LineTo(memory, 1, 1));
    EXPECT_FALSE(TextOutW(memory, 0, 0, u"a", 1));
    EXPECT_EQ(Refusal(Arc(memory, 0, 0, 2, 2, 0, 0, 0, 0)), ERROR_NOT_SUPPORTED);
}

TEST_F(Bitmaps, OperationsCombineSourceAndTarget)
{
    constexpr std::pair<DWORD, COLORREF> Rows[] = {
        {SRCCOPY,   0x333333},
        {SRCAND,    0x030303},
        {SRCPAINT,  0x3F3F3F},
        {SRCINVERT, 0x3C3C3C},
    };
    for (const auto& [operation, result] : Rows) {
        const std::array<std::uint8_t, 4> under = {0x0F, 0x0F, 0x0F}, over = {0x33, 0x33, 0x33};
        const HDC target = Memory(1, 1, 32, under.data()), source = Memory(1, 1, 32, over.data());
        EXPECT_TRUE(StretchBlt(target, 0, 0, 1, 1, source, 0, 0, 1, 1, operation));
        EXPECT_EQ(GetPixel(target, 0, 0), result) << operation;
    }
}

TEST_F(Bitmaps, StretchedTakeTheNearestPixel)
{
    // Four pixels of a target of dots, from a source of blue (B) and red (R).
    const struct {
        int x, width, sourceX, sourceWidth;
        const char* result;
    } rows[] = {
        {1,           2,          0,           2,          ".BR."},
        {0,           4,          0,           2,          "BBRR"},
        {0,           3,          0,           2,          "BRR."},
        {0,           1,          0,           2,          "R..."},
        {4,           -4,         0,           2,          "RRBB"},
        {0,           4,          2,           -2,         "RRBB"},
        {4,           -4,         2,           -2,         "BBRR"},
        {0,           4,          -1,          4,          ".BR."},
        {-2,          4,          0,           2,          "RR.."},
        {-2000000000, 2147483647, -2000000000, 2147483647, "BR.."},
        {0,           0,          0,           2,          "...."},
    };
    for (const auto& row : rows) {
        const HDC target = Memory(4, 1, 32), source = Memory(2, 1, 32, BlueRed.data());
        EXPECT_TRUE(StretchBlt(target, row.x, 0, row.width, 1, source, row.sourceX, 0, row.sourceWidth, 1, SRCCOPY));
        std::string result;
        for (int x = 0; x < 4; ++x) {
            const COLORREF color = GetPixel(target, x, 0);
            result += color == Blue ? 'B' : color == Red ? 'R' : '.';
        }
        EXPECT_EQ(result, row.result);
    }
}

TEST_F(Bitmaps, BlocksMayOverlapWithinOneBitmap)
{
    constexpr std::array<std::uint8_t, 12> Three = {1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0};
    const HDC memory = Memory(3, 1, 32, Three.data());
    StretchBlt(memory, 1, 0, 2, 1, memory, 0, 0, 2, 1, SRCCOPY);
    EXPECT_EQ(Pixels(memory, 3, 1), "010000 010000 020000 ");
}

TEST_F(Bitmaps, OnASurfaceABlockIsAnImageInItsPlace)
{
    const HDC source = Memory(2, 1, 32, BlueRed.data());
    const HDC job = Job();
    EXPECT_TRUE(StretchBlt(job, 10, 20, 100, 50, source, 0, 0, 2, 1, SRCCOPY));
    EXPECT_TRUE(StretchBlt(job, 110, 20, -100, 50, source, 0, 0, 2, 1, SRCCOPY));
    EXPECT_TRUE(StretchBlt(job, 0, 0, 100, 50, source, 1, 0, 2, 1, SRCCOPY));
    EXPECT_TRUE(StretchBlt(job, 0, 0, 100, 50, source, 5, 0, 2, 1, SRCCOPY));
    EXPECT_THAT(page->Take(), ElementsAre("image 10,20,110,70 of 2x1 0000ff ff0000",
                                          "image 10,20,110,70 of 2x1 ff0000 0000ff", "image 0,0,50,50 of 1x1 ff0000"));
}

}  // namespace
}  // namespace gdi_test
