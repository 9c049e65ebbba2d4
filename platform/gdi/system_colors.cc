#include "platform/gdi/system_colors.h"

#include "platform/user.h"

namespace platform::gdi {

namespace {

struct Entry {
    int index;
    COLORREF color;
};

constexpr Entry Colors[] = {
    {COLOR_WINDOW,       RGB(255, 255, 255)},
    {COLOR_WINDOWTEXT,   RGB(0,   0,   0)  },
    {COLOR_BTNFACE,      RGB(212, 208, 200)},
    {COLOR_BTNSHADOW,    RGB(128, 128, 128)},
    {COLOR_GRAYTEXT,     RGB(128, 128, 128)},
    {COLOR_BTNTEXT,      RGB(0,   0,   0)  },
    {COLOR_BTNHIGHLIGHT, RGB(255, 255, 255)},
    {COLOR_3DDKSHADOW,   RGB(64,  64,  64) },
    {COLOR_3DLIGHT,      RGB(212, 208, 200)},
};

}  // namespace

COLORREF SystemColor(int index)
{
    for (const Entry& entry : Colors)
        if (entry.index == index) return entry.color;
    return 0;
}

}  // namespace platform::gdi
