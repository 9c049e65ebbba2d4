// Where a watermark's text begins on a page, and in which font. Measures are in dots of the given resolution.
#pragma once

#include <string_view>

#include "driver_dev_mode.h"
#include "platform/gdi.h"

// Of the current paper and orientation, in degrees. Written when watermarks are loaded and placed.
extern SHORT DiagonalAngle;

inline constexpr SHORT AngleModeDiagonal = 2;

struct WatermarkPlacement {
    POINT origin;
    LOGFONTW font;
};

// What a placement goes by.
struct WatermarkPage {
    LONG height, width;
    LONG resolution;  // dots per inch
    LONG leftMargin, topMargin;
};

// 1 with origin and font, 0 if the face does not exist or the text cannot be measured; placement is then
// as it was. In the mode Diagonal the angle of the page goes into the record and into DiagonalAngle.
int ComputeWatermarkPlacement(WatermarkRecord& watermark, const WatermarkPage& page, WatermarkPlacement& placement);

// The texts of a record end with their fields at the latest.
std::u16string_view TextOf(const WatermarkRecord& watermark);

// Callback of EnumFontsW: keeps the last description that comes by in the FontMatch at parameter.
struct FontMatch {
    LOGFONTW font;
    bool found;
};
int KeepFontMatch(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType, LPARAM parameter);
