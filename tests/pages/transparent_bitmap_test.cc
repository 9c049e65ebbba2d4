// The picture of the About dialog over backgrounds of every kind, pixel by pixel.
#include "pages/transparent_bitmap.h"

#include <gtest/gtest.h>

#include "module.h"
#include "platform/gdi/job.h"
#include "platform/seams/environment.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "tests/support/idle_desktop.h"
#include "tests/support/sheet_driver.h"

namespace {

constexpr int Side = 96;  // pixels of the picture
constexpr int Gap = 5;    // between the target's edge and the picture
constexpr int Whole = 2 * Side + 2 * Gap;
constexpr COLORREF Key = RGB(255, 0, 255);

// What was there before: no two neighbours alike.
constexpr COLORREF Before(int x, int y) { return RGB(x * 2, y * 2, (x + y) % 200); }

struct Colored : testing_support::ScriptedDesktop {
    explicit Colored(COLORREF color) : ScriptedDesktop([](HWND) {}), face(color) {}
    std::optional<DWORD> SystemColor(int index) override
    {
        return index == COLOR_BTNFACE ? std::optional<DWORD>(face) : std::nullopt;
    }
    COLORREF face;
};

struct Canvas {
    explicit Canvas(HBITMAP made) : bitmap(made), before(SelectObject(context, made)) {}
    ~Canvas()
    {
        SelectObject(context, before);
        DeleteDC(context);
        DeleteObject(bitmap);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC context = CreateCompatibleDC(nullptr);
    HBITMAP bitmap;
    HGDIOBJ before;
};

HBITMAP ManyColors()
{
    std::vector<std::uint32_t> pixels;
    for (int k = 0; k < Whole * Whole; ++k) {
        const COLORREF color = Before(k % Whole, k / Whole);
        pixels.push_back((color & 0xFF) << 16 | (color & 0xFF00) | color >> 16);
    }
    return CreateBitmap(Whole, Whole, 1, 32, pixels.data());
}

// Draws so large that each pixel repeats so many times, and finds nothing left behind.
void Draw(const Canvas& target, int bitmap, int times, COLORREF background)
{
    const std::size_t contexts = platform::gdi::ContextCount(), objects = platform::gdi::ObjectCount();
    DrawTransparentBitmap(bitmap, {Gap, Gap, Gap + times * Side, Gap + times * Side}, target.context, background);
    EXPECT_EQ(platform::gdi::ContextCount(), contexts);
    EXPECT_EQ(platform::gdi::ObjectCount(), objects);
}

TEST(TransparentBitmap, LetsTheColorOfDialogsOrTheTargetShine)
{
    constexpr COLORREF TheTarget = 0x010101;
    const testing_support::TestMachine machine;
    struct Row {
        COLORREF face;
        int times;
        COLORREF background;
    };
    for (const Row& row : {
             Row{0xF0F0F0, 1, 0x030201 },
             {0,        1, 0x030201 },
             {Key,      1, 0x030201 },
             {0x2E1E1E, 2, 0x030201 },
             {0x2E1E1E, 1, TheTarget},
    }) {
        const auto [face, times, background] = row;
        platform::CurrentEnvironment().desktop = std::make_shared<Colored>(face);
        const Canvas target(ManyColors()), picture(LoadBitmapW(ResourceHandle, ResourceName(IDB_ABOUT)));
        Draw(target, IDB_ABOUT, times, background);
        int wrong = 0, shining = 0;
        for (int k = 0; k < Whole * Whole; ++k) {
            const int x = k % Whole, y = k / Whole, px = (x - Gap) / times, py = (y - Gap) / times;
            const bool inside = x >= Gap && y >= Gap && px < Side && py < Side;
            const COLORREF own = inside ? GetPixel(picture.context, px, py) : Key;
            shining += inside && own == Key;
            const COLORREF behind = inside && background != TheTarget ? face : Before(x, y);
            wrong += GetPixel(target.context, x, y) != (own == Key ? behind : own);
        }
        EXPECT_EQ(wrong, 0) << face;
        EXPECT_GT(shining, 1000);
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
        const Canvas target(ManyColors());
        machine.Fail(function, call);
        Draw(target, bitmap, 1, 0);
        platform::CurrentEnvironment().faults.Clear();
        for (int k = 0; k < Whole * Whole; k += 7)
            ASSERT_EQ(GetPixel(target.context, k % Whole, k / Whole), Before(k % Whole, k / Whole)) << function << call;
    }
}

}  // namespace
