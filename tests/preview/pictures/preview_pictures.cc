#include "preview_pictures.h"

#include <QPainter>

#include "desktop/qt_fonts.h"
#include "desktop/qt_runtime.h"
#include "desktop/qt_surface.h"
#include "platform/seams/environment.h"
#include "tests/support/records.h"

namespace preview_test {

namespace {

constexpr int PictureWidth = 131, PictureHeight = 154, FrameWidth = 137, FrameHeight = 161;
constexpr COLORREF Face = 0xF0F0F0;

void SetText(DriverDevMode& record, std::u16string_view text)
{
    std::fill(std::begin(record.dmWatermark.wmText), std::end(record.dmWatermark.wmText), u'\0');
    text.copy(record.dmWatermark.wmText, std::size(record.dmWatermark.wmText));
}

// A row of the gallery: pictures that differ by one field, under common settings.
struct GalleryRow {
    const char* title;
    DriverDevMode record;
    const char* varied;
    std::vector<int> values;
};

const std::vector<int> Counts = {1, 2, 4, 6, 9, 16};

// clang-format off
const GalleryRow GalleryRows[] = {
    {"N-up", A4("dmNupOn=1"), "dmNupCount", Counts},
    {"N-up, with borders, Toner Save", A4("dmNupOn=1 dmNupBorder=1 dmTonerSave=1"), "dmNupCount", Counts},
    {"N-up, columns first", A4("dmNupOn=1 dmNupVertical=1"), "dmNupCount", Counts},
    {"N-up, from the right", A4("dmNupOn=1 dmNupDescending=1"), "dmNupCount", Counts},
    {"N-up, columns first, from the right", A4("dmNupOn=1 dmNupVertical=1 dmNupDescending=1"), "dmNupCount", Counts},
    {"Short edge binding", A4("dmNupOn=1 dmDuplexOn=1 dmDuplexBinding=3"), "dmNupCount", Counts},
    {"Long edge binding", A4("dmNupOn=1 dmDuplexOn=1 dmDuplexBinding=1"), "dmNupCount", Counts},
    {"Booklet, left and right", A4("dmNupOn=1 dmNupCount=2 dmDuplexOn=1 dmBookletPaper=9"), "dmBookletRight", {0, 1}},
    {"Booklet on other paper", A4("dmNupOn=1 dmNupCount=2 dmDuplexOn=1"), "dmBookletPaper", {1, 5, 11}},
    {"Scaling", A4("dmFitToPaper=1"), "dmZoom", {20, 50, 90, 100, 110, 200, 400}},
    {"Scaling with a watermark", Marked("dmFitToPaper=1"), "dmZoom", {20, 50, 90, 100, 110, 200, 400}},
    {"Fit to paper", A4("dmFitToPaper=2"), "dmOutputPaper", {1, 5, 9, 11, 20, 216}},
    {"Paper", A4(), "dmPaperSize", {1, 5, 9, 11, 20, 27, 216}},
    {"Watermark on N-up", Marked("dmNupOn=1"), "dmNupCount", Counts},
    {"Diagonal watermark on N-up", Marked("dmNupOn=1 wmAngleMode=2"), "dmNupCount", Counts},
    {"Small watermark on N-up", Marked("dmNupOn=1 wmSize=12"), "dmNupCount", Counts},
    {"Watermark on the first page", Marked("dmNupOn=1 wmFirstPageOnly=1"), "dmNupCount", Counts},
    {"Watermark on a booklet", Marked("dmNupOn=1 dmNupCount=2 dmDuplexOn=1 dmBookletPaper=9 wmAngleMode=2"), "dmBookletRight", {0, 1}},
    {"Size of the watermark", Marked(), "wmSize", {8, 10, 12, 24, 48, 72, 120, 200}},
    {"Shading", Marked(), "wmShading", {5, 20, 50, 100}},
    {"Angle", Marked(), "wmAngle", {-180, -120, -90, -45, 0, 45, 90, 135}},
    {"Position across", Marked(), "wmPositionX", {-100, -50, 0, 50, 100}},
    {"Position down", Marked(), "wmPositionY", {-100, -50, 0, 50, 100}},
    {"Long watermark, by its angle", Marked("dmCopies=-1 wmSize=48"), "wmAngle", {-90, -45, 0, 45, 90}},
};
// clang-format on

DriverDevMode RecordOf(const GalleryRow& row, int value, int orientation)
{
    DriverDevMode record = row.record;
    testing_support::SetField(record, row.varied, value);
    testing_support::SetField(record, "dmOrientation", orientation);
    if (record.dmCopies < 0) SetText(record, u"STRICTLY CONFIDENTIAL, NOT TO BE COPIED");
    return record;
}

}  // namespace

QImage Paint(const DriverDevMode& record, Fonts fonts)
{
    desktop::EnsureApplication();
    const auto surface = std::make_shared<desktop::ImageSurface>(FrameWidth, FrameHeight, 1.0);
    surface->Fill({0, 0, FrameWidth, FrameHeight}, Face);
    Preview preview(PictureWidth, PictureHeight, IDC_QUALITY_PREVIEW, surface);
    if (fonts == Fonts::Real) platform::CurrentEnvironment().fonts = desktop::MakeQtFonts();
    preview.Draw(record);
    return surface->Picture().convertToFormat(QImage::Format_RGB32);
}

std::vector<Reference> References()
{
    return {
        {"plain",            A4()                                                                     },
        {"sixteen-marked",   Marked("wmAngleMode=2 dmNupOn=1 dmNupCount=16")                          },
        {"booklet-right",    A4("dmBookletPaper=9 dmDuplexOn=1 dmBookletRight=1 dmOrientation=2")     },
        {"six-bound",        A4("dmNupOn=1 dmNupCount=6 dmNupBorder=1 dmDuplexOn=1 dmDuplexBinding=1")},
        {"fitted-toner",     A4("dmFitToPaper=2 dmOutputPaper=11 dmTonerSave=1")                      },
        {"scaled-marked",    Marked("wmAngleMode=2 dmFitToPaper=1 dmZoom=150")                        },
        {"marked-with-line", Marked("wmSize=8")                                                       },
    };
}

QImage Difference(const QImage& before, const QImage& after)
{
    if (before.size() != after.size()) return {};
    QImage shown = after.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            if (before.pixel(x, y) != after.pixel(x, y)) shown.setPixel(x, y, qRgb(255, 0, 0));
    return shown;
}

QImage Gallery()
{
    constexpr int CellWidth = FrameWidth + 12, CellHeight = FrameHeight + 34, MostInARow = 8;
    constexpr int Rows = 2 * static_cast<int>(std::size(GalleryRows));
    desktop::EnsureApplication();
    QImage sheet(MostInARow * CellWidth + 12, Rows * CellHeight + 12, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    int top = 12;
    for (const GalleryRow& row : GalleryRows) {
        for (const int orientation : {1, 2}) {
            painter.drawText(12, top + 10,
                             QString("%1, %2").arg(row.title, orientation == 1 ? "portrait" : "landscape"));
            int left = 12;
            for (const int value : row.values) {
                painter.drawImage(left, top + 14, Paint(RecordOf(row, value, orientation), Fonts::Real));
                painter.drawText(left, top + 14 + FrameHeight + 12, QString("%1 %2").arg(row.varied).arg(value));
                left += CellWidth;
            }
            top += CellHeight;
        }
    }
    return sheet;
}

}  // namespace preview_test
