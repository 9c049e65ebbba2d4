// The watermark on the pages of the preview: as much of the text as fits, or a line where it is too small to
// be read. Coordinates are in the dots of the document page.
#pragma once

#include <string_view>

#include "driver_dev_mode.h"
#include "preview/preview_layout.h"

// The length of a vector by integer steps: 0 to 6 per cent above the true one.
LONG IntegerHypot(LONG a, LONG b);

// The mark that is drawn on a page.
struct PreviewMark {
    POINT origin;
    LOGFONTW font;
    COLORREF color;
    std::u16string_view text;  // as much as is drawn
    POINT end;                 // of the line in place of the text
    LONG lineWidth;            // 0: the text is drawn
};

// Whether the current record has a watermark that can be placed on the page; mark then has origin, font,
// colour and the whole text. The record is not changed.
bool PlaceMark(const DriverDevMode& record, const PageMeasures& document, PreviewMark& mark);

// Cuts the text to what fits, or makes it a line. Leaves the mark alone if its font can't be had.
void FitWatermarkText(HDC context, const DriverDevMode& record, const PageMeasures& document, LONG pageHeight,
                      PreviewMark& mark);

// Draws text or line; the text within the rectangle.
void DrawMark(HDC context, const PreviewMark& mark, const RECT& rectangle);
void DrawWatermarkText(HDC context, const PreviewMark& mark, const RECT& rectangle);
