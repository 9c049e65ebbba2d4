// Where everything of the page layout preview lies: the sheet in the picture, the pages on the sheet, what is
// on a page. Pure integer arithmetic; division truncates toward zero, and the rounding of each step is part of
// the picture. Sheet and cells are in pixels of the picture, pages in the dots of the document page.
#pragma once

#include <cstdint>

#include "driver_dev_mode.h"
#include "platform/gdi.h"
#include "settings/model_tables.h"

// a * b / c, without regard to what a and b come to. c is not 0.
constexpr LONG Scaled(LONG a, LONG b, LONG c) { return static_cast<LONG>(std::int64_t{a} * b / c); }

// Measures of a page, wide enough to reckon with.
struct PageMeasures {
    LONG w, h;    // width, height
    LONG pw, ph;  // printable width, height
    LONG mx, my;  // left and top margin
};
PageMeasures MeasuresOf(const PaperMetrics& metrics);

// The document page and the sheet that it is printed on, in dots of the job's resolution. False if they have no
// area to draw.
bool GetPreviewMetrics(const DriverDevMode& record, PageMeasures& document, PageMeasures& sheet);

// 2-up and 6-up lie across the sheet.
bool SheetIsTurned(const DriverDevMode& record);

// The greatest rectangle of the sheet's shape in the middle of the client area.
RECT PlaceSheet(const RECT& client, const PageMeasures& sheet);

// What stands out behind a sheet that the document is fitted to.
RECT ShapeBehind(const RECT& sheet, const RECT& client);

struct PageGrid {
    int columns = 1, rows = 1, count = 1;
    int lines = 3;  // of text on a page
    bool vertical = false, descending = false;
};
PageGrid GridOf(const DriverDevMode& record);

// The pages in their cells.
struct PageCells {
    LONG left, top;  // of the first cell
    LONG cellWidth, cellHeight;
    LONG offsetX, offsetY;  // of a page in its cell
    LONG pageWidth, pageHeight;
    POINT Origin(const PageGrid& grid, int page) const;
};
PageCells CellsOf(const DriverDevMode& record, const RECT& sheet, const PageGrid& grid, const PageMeasures& document);

// Lets the margins show when they are less than a pixel wide.
void KeepMarginsVisible(PageMeasures& document, LONG pageWidth, LONG pageHeight);

// What stands on a page, in dots.
struct PageContents {
    RECT frame;
    RECT text;  // one device pixel within the frame
    LONG barLeft, barRight, barTop, barHeight;
    LONG numberX;  // where the page's number begins
};
PageContents ContentsOf(const PageMeasures& document, LONG pageWidth, LONG pageHeight, int lines);
