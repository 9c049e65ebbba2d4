#include "preview/preview_layout.h"

#include <utility>

#include "events/paper_metrics.h"
#include "spooler/opened_printer.h"
#include "spooler/printer_data.h"

namespace {

constexpr SHORT Landscape = 2;
constexpr BYTE FitToSheet = 2;

bool IsBooklet(const DriverDevMode& record) { return record.dmBookletPaper != 0; }

PageMeasures PaperMeasures(HANDLE printer, const DriverDevMode& record, int paperCode)
{
    PaperMetrics metrics{};
    GetPaperMetrics(printer, &metrics, record, record.dmOrientation, paperCode);
    return MeasuresOf(metrics);
}

// Only a stored custom size needs the printer to be asked.
PageMeasures DocumentMeasures(const DriverDevMode& record)
{
    const int paper = record.dmPaperSize;
    if (paper < FirstStoredPaperCode || paper > LastStoredPaperCode) return PaperMeasures(nullptr, record, paper);
    const OpenedPrinter printer(PrinterName, 0);
    if (printer) return PaperMeasures(printer.Handle(), record, paper);
    SetLastError(ERROR_INVALID_PARAMETER);
    return PaperMeasures(nullptr, record, LetterPaperCode);
}

bool HasArea(const PageMeasures& page) { return page.w > 0 && page.h > 0 && page.pw > 0 && page.ph > 0; }

struct GridRow {
    int count;
    int columns, rows;  // in portrait
    int lines;
};
constexpr GridRow GridRows[] = {
    {2,  2, 1, 3},
    {4,  2, 2, 3},
    {6,  3, 2, 3},
    {9,  3, 3, 3},
    {16, 4, 4, 2},
};

}  // namespace

PageMeasures MeasuresOf(const PaperMetrics& metrics)
{
    return {metrics.width,           metrics.height,     metrics.printableWidth,
            metrics.printableHeight, metrics.leftMargin, metrics.topMargin};
}

bool SheetIsTurned(const DriverDevMode& record)
{
    return record.dmNupOn == 1 && (record.dmNupCount == 2 || record.dmNupCount == 6);
}

bool GetPreviewMetrics(const DriverDevMode& record, PageMeasures& document, PageMeasures& sheet)
{
    document = DocumentMeasures(record);
    if (IsBooklet(record))
        sheet = PaperMeasures(nullptr, record, record.dmBookletPaper);
    else if (record.dmFitToPaper == FitToSheet)
        sheet = PaperMeasures(nullptr, record, record.dmOutputPaper);
    else
        sheet = document;
    if (!IsBooklet(record) && SheetIsTurned(record)) {
        std::swap(sheet.w, sheet.h);
        std::swap(sheet.pw, sheet.ph);
        std::swap(sheet.mx, sheet.my);
    }
    return HasArea(document) && HasArea(sheet);
}

RECT PlaceSheet(const RECT& client, const PageMeasures& sheet)
{
    const LONG width = client.right - client.left, height = client.bottom - client.top;
    LONG sheetWidth = Scaled(sheet.w, height, sheet.h), sheetHeight = height;
    if (sheetWidth > width) {
        sheetHeight = Scaled(sheet.h, width, sheet.w);
        sheetWidth = width;
    }
    const LONG left = client.left + (width - sheetWidth) / 2;
    const LONG top = client.top + (height - sheetHeight) / 2;
    return {left, top, left + sheetWidth, top + sheetHeight};
}

RECT ShapeBehind(const RECT& sheet, const RECT& client)
{
    const bool upright = sheet.bottom - sheet.top > sheet.right - sheet.left;
    if (upright) return {sheet.left, sheet.top, client.right, sheet.top + (sheet.bottom - sheet.top) / 2};
    return {sheet.left, sheet.top, sheet.left + (sheet.right - sheet.left) / 2, client.bottom};
}

PageGrid GridOf(const DriverDevMode& record)
{
    PageGrid grid;
    const bool bookletRuns = IsBooklet(record) && record.dmDuplexOn == 1;
    if (record.dmNupOn != 1 || bookletRuns) return grid;
    grid.vertical = record.dmNupVertical != 0;
    grid.descending = record.dmNupDescending != 0;
    // A count without a grid stacks its pages in the one column; all but the first leave the sheet.
    grid.count = record.dmNupCount;
    for (const GridRow& row : GridRows)
        if (row.count == record.dmNupCount) {
            grid.columns = row.columns;
            grid.rows = row.rows;
            grid.lines = row.lines;
        }
    if (record.dmOrientation == Landscape) std::swap(grid.columns, grid.rows);
    return grid;
}

POINT PageCells::Origin(const PageGrid& grid, int page) const
{
    int column = grid.vertical ? page / grid.rows : page % grid.columns;
    const int row = grid.vertical ? page % grid.rows : page / grid.columns;
    if (grid.descending) column = grid.columns - 1 - column;
    // Rows that no grid has may lie any way off.
    return {left + cellWidth * column + offsetX,
            static_cast<LONG>(std::int64_t{top} + std::int64_t{cellHeight} * row + offsetY)};
}

PageCells CellsOf(const DriverDevMode& record, const RECT& sheet, const PageGrid& grid, const PageMeasures& document)
{
    PageCells cells{};
    cells.left = sheet.left + 1;
    cells.top = sheet.top + 1;
    cells.cellWidth = (sheet.right - sheet.left - 2) / grid.columns;
    cells.cellHeight = (sheet.bottom - sheet.top - 2) / grid.rows;
    LONG padX = 0, padY = 0;
    const LONG width = Scaled(document.w, cells.cellHeight, document.h);
    if (width > cells.cellWidth)
        padY = (cells.cellHeight - Scaled(document.h, cells.cellWidth, document.w)) / 2;
    else
        padX = (cells.cellWidth - width) / 2;
    // A single page that does not fill the sheet sits in its top left corner.
    if (record.dmNupOn == 1 || IsBooklet(record)) {
        cells.offsetX = padX;
        cells.offsetY = padY;
    }
    cells.pageWidth = cells.cellWidth - 2 * padX;
    cells.pageHeight = cells.cellHeight - 2 * padY;
    return cells;
}

void KeepMarginsVisible(PageMeasures& document, LONG pageWidth, LONG pageHeight)
{
    if (Scaled(document.mx, pageWidth, document.w) < 1) document.mx = document.w / pageWidth + 1;
    if (Scaled(document.my, pageHeight, document.h) < 1) document.my = document.h / pageHeight + 1;
    document.pw = document.w - 2 * document.mx;
    document.ph = document.h - 2 * document.my;
}

PageContents ContentsOf(const PageMeasures& document, LONG pageWidth, LONG pageHeight, int lines)
{
    const auto [w, h, pw, ph, mx, my] = document;
    PageContents contents{};
    contents.frame = {mx, my, w - mx - 1, h - my - 1};
    contents.text = {mx, my, w - Scaled(Scaled(mx + 1, pageWidth, w) + 1, w, pageWidth) - 1,
                     h - Scaled(Scaled(my + 1, pageHeight, h) + 1, h, pageHeight) - 1};
    const auto [left, top, right, bottom] = contents.frame;
    const LONG barWidth = pageWidth > pageHeight ? 9 * (right - left) / 10 : 6 * (right - left) / 8;
    contents.barLeft = left + (right - barWidth - left) / 2;
    contents.barRight = contents.barLeft + barWidth;
    const LONG half = (bottom - top) / 2;
    contents.barHeight = half / (2 * lines);
    contents.barTop = top + half + contents.barHeight / 2;
    LONG indent = w / 16;
    if (Scaled(indent, pageWidth, w) == 0) indent = w / pageWidth + 1;
    contents.numberX = mx + indent;
    return contents;
}
