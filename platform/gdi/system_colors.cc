#include "platform/gdi/system_colors.h"

#include "platform/seams/desktop.h"
#include "platform/seams/environment.h"
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
    {COLOR_BTNFACE,      RGB(240, 240, 240)},
    {COLOR_BTNSHADOW,    RGB(160, 160, 160)},
    {COLOR_GRAYTEXT,     RGB(109, 109, 109)},
    {COLOR_BTNTEXT,      RGB(0,   0,   0)  },
    {COLOR_BTNHIGHLIGHT, RGB(255, 255, 255)},
    {COLOR_3DDKSHADOW,   RGB(105, 105, 105)},
    {COLOR_3DLIGHT,      RGB(227, 227, 227)},
};

}  // namespace

COLORREF SystemColor(int index)
{
    if (const auto& desktop = CurrentEnvironment().desktop)
        if (const auto color = desktop->SystemColor(index)) return *color;
    for (const Entry& entry : Colors)
        if (entry.index == index) return entry.color;
    return 0;
}

}  // namespace platform::gdi
