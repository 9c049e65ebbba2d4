#include "preview_pictures.h"

#include <QPainter>

#include "desktop/qt_fonts.h"
#include "desktop/qt_runtime.h"
#include "desktop/qt_surface.h"
#include "platform/seams/environment.h"

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
    bool marked;
    Fields fields, watermark;
    const char* varied;  // a field of the record or, with a capital W, of the watermark
    std::vector<int> values;
};

const std::vector<int> Counts = {1, 2, 4, 6, 9, 16};

// clang-format off
const GalleryRow GalleryRows[] = {
    {"N-up", false, {{"dmNupOn", 1}}, {}, "dmNupCount", Counts},
    {"N-up, with borders, Toner Save", false, {{"dmNupOn", 1}, {"dmNupBorder", 1}, {"dmTonerSave", 1}}, {}, "dmNupCount", Counts},
    {"N-up, columns first", false, {{"dmNupOn", 1}, {"dmNupVertical", 1}}, {}, "dmNupCount", Counts},
    {"N-up, from the right", false, {{"dmNupOn", 1}, {"dmNupDescending", 1}}, {}, "dmNupCount", Counts},
    {"N-up, columns first, from the right", false, {{"dmNupOn", 1}, {"dmNupVertical", 1}, {"dmNupDescending", 1}}, {}, "dmNupCount", Counts},
    {"Short edge binding", false, {{"dmNupOn", 1}, {"dmDuplexOn", 1}, {"dmDuplexBinding", 3}}, {}, "dmNupCount", Counts},
    {"Long edge binding", false, {{"dmNupOn", 1}, {"dmDuplexOn", 1}, {"dmDuplexBinding", 1}}, {}, "dmNupCount", Counts},
    {"Booklet, left and right", false, {{"dmNupOn", 1}, {"dmNupCount", 2}, {"dmDuplexOn", 1}, {"dmBookletPaper", 9}}, {}, "dmBookletRight", {0, 1}},
    {"Booklet on other paper", false, {{"dmNupOn", 1}, {"dmNupCount", 2}, {"dmDuplexOn", 1}}, {}, "dmBookletPaper", {1, 5, 11}},
    {"Scaling", false, {{"dmFitToPaper", 1}}, {}, "dmZoom", {20, 50, 90, 100, 110, 200, 400}},
    {"Scaling with a watermark", true, {{"dmFitToPaper", 1}}, {}, "dmZoom", {20, 50, 90, 100, 110, 200, 400}},
    {"Fit to paper", false, {{"dmFitToPaper", 2}}, {}, "dmOutputPaper", {1, 5, 9, 11, 20, 216}},
    {"Paper", false, {}, {}, "dmPaperSize", {1, 5, 9, 11, 20, 27, 216}},
    {"Watermark on N-up", true, {{"dmNupOn", 1}}, {}, "dmNupCount", Counts},
    {"Diagonal watermark on N-up", true, {{"dmNupOn", 1}}, {{"wmAngleMode", 2}}, "dmNupCount", Counts},
    {"Small watermark on N-up", true, {{"dmNupOn", 1}}, {{"wmSize", 12}}, "dmNupCount", Counts},
    {"Watermark on the first page", true, {{"dmNupOn", 1}}, {{"wmFirstPageOnly", 1}}, "dmNupCount", Counts},
    {"Watermark on a booklet", true, {{"dmNupOn", 1}, {"dmNupCount", 2}, {"dmDuplexOn", 1}, {"dmBookletPaper", 9}}, {{"wmAngleMode", 2}}, "dmBookletRight", {0, 1}},
    {"Size of the watermark", true, {}, {}, "WmSize", {8, 10, 12, 24, 48, 72, 120, 200}},
    {"Shading", true, {}, {}, "WmShading", {5, 20, 50, 100}},
    {"Angle", true, {}, {}, "WmAngle", {-180, -120, -90, -45, 0, 45, 90, 135}},
    {"Position across", true, {}, {}, "WmPositionX", {-100, -50, 0, 50, 100}},
    {"Position down", true, {}, {}, "WmPositionY", {-100, -50, 0, 50, 100}},
    {"Long watermark, by its angle", true, {{"dmCopies", -1}}, {{"wmSize", 48}}, "WmAngle", {-90, -45, 0, 45, 90}},
};
// clang-format on

DriverDevMode RecordOf(const GalleryRow& row, int value, int orientation)
{
    Fields fields = row.fields, watermark = row.watermark;
    std::string varied = row.varied;
    const bool ofMark = varied[0] == 'W';
    varied[0] = static_cast<char>(std::tolower(varied[0]));
    (ofMark ? watermark : fields).emplace_back(varied.c_str(), value);
    fields.emplace_back("dmOrientation", orientation);
    DriverDevMode record = row.marked ? Marked(watermark, fields) : A4(fields);
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
    const Fields sixteen = {
        {"dmNupOn",    1 },
        {"dmNupCount", 16}
    };
    const Fields bookletRight = {
        {"dmBookletPaper", 9},
        {"dmDuplexOn",     1},
        {"dmBookletRight", 1},
        {"dmOrientation",  2}
    };
    const Fields turned = {
        {"dmNupOn",         1},
        {"dmNupCount",      6},
        {"dmNupBorder",     1},
        {"dmDuplexOn",      1},
        {"dmDuplexBinding", 1}
    };
    const Fields fitted = {
        {"dmFitToPaper",  2 },
        {"dmOutputPaper", 11},
        {"dmTonerSave",   1 }
    };
    const Fields scaled = {
        {"dmFitToPaper", 1  },
        {"dmZoom",       150}
    };
    const Fields diagonal = {
        {"wmAngleMode", 2}
    };
    return {
        {"plain",          A4()           },
        {"sixteen-marked", Marked(diagonal, sixteen)},
        {"booklet-right",                A4(bookletRight)                },
        {"six-bound",                A4(turned)    },
        {"fitted-toner",                A4(fitted)             },
        {"scaled-marked",                Marked(diagonal,    scaled)},
        {"marked-with-line",         Marked({{"wmSize", 8}})                    },
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
