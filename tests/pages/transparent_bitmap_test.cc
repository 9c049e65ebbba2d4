// The picture of the About dialog over what was there before, pixel by pixel.
#include "pages/transparent_bitmap.h"

#include <gtest/gtest.h>

#include "module.h"
#include "platform/gdi/job.h"
#include "platform/seams/environment.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "tests/support/sheet_driver.h"

namespace {

constexpr int Side = 96;  // pixels of the picture
constexpr int Gap = 5;    // between the target's edge and the picture
constexpr int Whole = 2 * Side + 2 * Gap;
constexpr COLORREF Key = RGB(255, 0, 255), Face = 0xF0F0F0, TheTarget = 0x010101;
using Pixels = std::vector<COLORREF>;

// A bitmap of the module, or one of which no two neighbours are alike.
struct Canvas {
    explicit Canvas(int number = 0) : bitmap(number ? LoadBitmapW(ResourceHandle, ResourceName(number)) : ManyColors())
    {
        before = SelectObject(context, bitmap);
    }
    ~Canvas()
    {
        SelectObject(context, before);
        DeleteDC(context);
        DeleteObject(bitmap);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    static HBITMAP ManyColors()
    {
        std::vector<std::uint32_t> pixels;
        for (unsigned y = 0; y < Whole; ++y)
            for (unsigned x = 0; x < Whole; ++x) pixels.push_back(x << 16 | y << 8 | (x + y) % 200);
        return CreateBitmap(Whole, Whole, 1, 32, pixels.data());
    }
    // Every seventh pixel, which are others in each line.
    Pixels Sample() const
    {
        Pixels pixels;
        for (int k = 0; k < Whole * Whole; k += 7) pixels.push_back(GetPixel(context, k % Whole, k / Whole));
        return pixels;
    }
    // Draws so large that each pixel repeats so many times, and finds nothing left behind.
    void Draw(int number, int times, COLORREF background) const
    {
        const std::size_t contexts = platform::gdi::ContextCount(), objects = platform::gdi::ObjectCount();
        DrawTransparentBitmap(number, {Gap, Gap, Gap + times * Side, Gap + times * Side}, context, background);
        EXPECT_EQ(platform::gdi::ContextCount(), contexts);
        EXPECT_EQ(platform::gdi::ObjectCount(), objects);
    }

    HDC context = CreateCompatibleDC(nullptr);
    HBITMAP bitmap;
    HGDIOBJ before;
};

TEST(TransparentBitmap, LetsTheColorOfDialogsOrTheTargetShine)
{
    const testing_support::TestMachine machine;
    const Canvas picture(IDB_ABOUT);
    for (const auto& [times, background] : {
             std::pair{1, COLORREF{0x030201}},
             {2, COLORREF{0x030201}},
             {1, TheTarget         },
    }) {
        const Canvas target;
        Pixels expected = target.Sample();
        int shining = 0;
        for (std::size_t k = 0; k < expected.size(); ++k) {
            const int x = static_cast<int>(7 * k) % Whole - Gap, y = static_cast<int>(7 * k) / Whole - Gap;
            if (x < 0 || x >= times * Side || y < 0 || y >= times * Side) continue;
            const COLORREF own = GetPixel(picture.context, x / times, y / times);
            shining += own == Key;
            if (own != Key || background != TheTarget) expected[k] = own == Key ? Face : own;
        }
        target.Draw(IDB_ABOUT, times, background);
        EXPECT_TRUE(target.Sample() == expected) << times << " times on " << background;
        EXPECT_GT(shining, 100);
    }
}

TEST(TransparentBitmap, LeavesTheAreaEmptyWithoutItsBitmaps)
{
    const testing_support::TestMachine machine;
    for (const auto& [bitmap, function, call] : {
             std::tuple{4711,      "",                   1u},
             {IDB_ABOUT, "LoadBitmapW",        1u},
             {IDB_ABOUT, "CreateBitmap",       1u},
             {IDB_ABOUT, "CreateCompatibleDC", 1u},
             {IDB_ABOUT, "SelectObject",       2u},
    }) {
        const Canvas target;
        const Pixels before = target.Sample();
        machine.Fail(function, call);
        target.Draw(bitmap, 1, 0);
        platform::CurrentEnvironment().faults.Clear();
        EXPECT_TRUE(target.Sample() == before) << function << call;
    }
}

}  // namespace
