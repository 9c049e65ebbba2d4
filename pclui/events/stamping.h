// The watermark of a printing job: a settings record prepares the stamp, the end of a page draws it. The state
// is process-wide and unguarded: one printing job at a time per process.
#pragma once

#include <array>
#include <string_view>

#include "driver_dev_mode.h"
#include "platform/gdi.h"

extern LOGFONTW StampFont;
extern LONG StampX, StampY;              // dots of the job's resolution
extern LONG StampExtentX, StampExtentY;  // printable width and height
extern std::array<WCHAR, 74> StampText;
extern COLORREF StampColor;
extern WORD StampFirstPageOnly;
extern DWORD StampPageCount;  // stamps drawn since the job began
extern bool StampReady;       // a preparation has completed; cleared ahead of each
extern bool StampRepeat;      // the text is drawn four times

// Fills the state from a record, whose angle changes in the mode Diagonal. 1 if the state is complete; 0 if the
// watermark cannot be placed, and then nothing has changed.
int PrepareWatermark(HANDLE hPrinter, DriverDevMode& record);

// Draws the stamp through the job's context and leaves the context as it was. 0 if the font cannot be made.
int StampPage(HDC context);

// The grey of a shading in percent; 100 is black.
constexpr COLORREF ShadingColor(int shading)
{
    const DWORD grey = static_cast<DWORD>((100 - shading) * 255 / 100) & 0xFF;
    return grey | grey << 8 | grey << 16;
}
static_assert(ShadingColor(20) == 0xCCCCCC && ShadingColor(5) == 0xF2F2F2 && ShadingColor(100) == 0);
