// The picture of the About dialog over backgrounds of every kind, pixel by pixel.
#include "pages/transparent_bitmap.h"

#include <gtest/gtest.h>

#include "module.h"
#include "platform/gdi/job.h"
#include "platform/seams/environment.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "tests/support/scripted_desktop.h"
#include "tests/support/sheet_driver.h"

namespace {

constexpr int Side = 96;  // pixels of the picture
constexpr int Gap = 5;    // between the target's edge and the picture
constexpr COLORREF Key = RGB(255, 0, 255);

// What was there before: no two neighbours alike.
constexpr COLORREF Before(int x, int y) { return RGB(x * 2, y * 2, (x + y) % 200); }

class Colored : public testing_support::ScriptedDesktop {
  public:
    explicit Colored(COLORREF face) : ScriptedDesktop([](HWND) {}), face_(face) {}
    std::optional<DWORD> SystemColor(int index) override
    {
        return index == COLOR_BTNFACE ? std::optional<DWORD>(face_) : std::nullopt;
    }

  private:
    COLORREF face_;
};

class TransparentBitmap : public testing::Test {
  protected:
    static constexpr int Width = 2 * Side + 2 * Gap, Height = 2 * Side + 2 * Gap;

    TransparentBitmap()
    {
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x) {
                const COLORREF color = Before(x, y);
                pixels.push_back((color & 0xFF) << 16 | (color & 0xFF00) | color >> 16);
            }
        bitmap = CreateBitmap(Width, Height, 1, 32, pixels.data());
        target = CreateCompatibleDC(nullptr);
        targetBefore = SelectObject(target, bitmap);
        picture = LoadBitmapW(ResourceHandle, ResourceName(IDB_ABOUT));
        original = CreateCompatibleDC(nullptr);
        originalBefore = SelectObject(original, picture);
        contexts = platform::gdi::ContextCount();
        objects = platform::gdi::ObjectCount();
    }
    ~TransparentBitmap() override
    {
        EXPECT_EQ(platform::gdi::ContextCount(), contexts);
        EXPECT_EQ(platform::gdi::ObjectCount(), objects);
        SelectObject(target, targetBefore);
        SelectObject(original, originalBefore);
        for (HDC context : {target, original}) DeleteDC(context);
        for (HBITMAP used : {bitmap, picture}) DeleteObject(used);
    }
    // Compares every pixel of the picture and of the gap around it; times: how often each pixel of the picture repeats.
    void ExpectPicture(int times, const std::function<COLORREF(int x, int y)>& background)
    {
        const int end = times * Side + 2 * Gap;
        int wrong = 0, shining = 0;
        for (int y = 0; y < end; ++y) {
            for (int x = 0; x < end; ++x) {
                const int px = (x - Gap) / times, py = (y - Gap) / times;
                const bool inside = x >= Gap && y >= Gap && px < Side && py < Side;
                const COLORREF own = inside ? GetPixel(original, px, py) : CLR_INVALID;
                shining += own == Key;
                const COLORREF wanted = !inside ? Before(x, y) : own == Key ? background(x, y) : own;
                wrong += GetPixel(target, x, y) != wanted;
            }
        }
        EXPECT_EQ(wrong, 0);
        EXPECT_GT(shining, 1000);
    }

    testing_support::TestMachine machine;
    HBITMAP bitmap, picture;
    HDC target, original;
    HGDIOBJ targetBefore, originalBefore;
    std::size_t contexts, objects;
};

constexpr RECT Place(int times) { return {Gap, Gap, Gap + times * Side, Gap + times * Side}; }

TEST_F(TransparentBitmap, LetsTheColorOfDialogsShineAtAnySize)
{
    for (const auto& [face, times] : {
             std::pair{RGB(240, 240, 240), 1},
             {RGB(0,   0,   0),   1},
             {RGB(255, 255, 255), 1},
             {Key,     1  },
             {RGB(30,    30,      46),     2},
    }) {
        platform::CurrentEnvironment().desktop = std::make_shared<Colored>(face);
        DrawTransparentBitmap(IDB_ABOUT, Place(times), target, RGB(1, 2, 3));
        ExpectPicture(times, [color = face](int, int) { return color; });
    }
}

TEST_F(TransparentBitmap, LetsTheTargetShineForItsOneColor)
{
    DrawTransparentBitmap(IDB_ABOUT, Place(1), target, 0x010101);
    ExpectPicture(1, Before);
}

TEST_F(TransparentBitmap, LeavesTheAreaEmptyWithoutItsBitmaps)
{
    const auto expectUntouched = [&](const std::string& fault) {
        for (int y = 0; y < Height; y += 7)
            for (int x = 0; x < Width; x += 7) ASSERT_EQ(GetPixel(target, x, y), Before(x, y)) << fault;
    };
    DrawTransparentBitmap(4711, Place(1), target, 0);
    expectUntouched("no such picture");
    for (const auto& [function, call] : {
             std::pair<std::string, unsigned>{"LoadBitmapW",        1u},
             {"LoadBitmapW",        2u},
             {"CreateBitmap",       1u},
             {"CreateCompatibleDC", 1u},
             {"CreateCompatibleDC", 3u},
             {"SelectObject",       2u},
    }) {
        platform::CurrentEnvironment().faults.Clear();
        machine.Fail(function.c_str(), call);
        DrawTransparentBitmap(IDB_ABOUT, Place(1), target, 0);
        expectUntouched(function + std::to_string(call));
    }
    platform::CurrentEnvironment().faults.Clear();
}

}  // namespace
