// preview_pictures: renews the pictures of the tests, or shows the gallery.
#include <QDir>
#include <QPainter>
#include <cstdio>
#include <cstring>

#include "desktop/qt_runtime.h"
#include "tests/preview/pictures/preview_pictures.h"
#include "tests/support/records.h"

using namespace preview_test;

namespace {

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

void SetText(DriverDevMode& record, std::u16string_view text)
{
    std::fill(std::begin(record.dmWatermark.wmText), std::end(record.dmWatermark.wmText), u'\0');
    text.copy(record.dmWatermark.wmText, std::size(record.dmWatermark.wmText));
}

DriverDevMode RecordOf(const GalleryRow& row, int value, int orientation)
{
    DriverDevMode record = row.record;
    testing_support::SetField(record, row.varied, value);
    testing_support::SetField(record, "dmOrientation", orientation);
    if (record.dmCopies < 0) SetText(record, u"STRICTLY CONFIDENTIAL, NOT TO BE COPIED");
    return record;
}

// Every N-up count, order, booklet, binding, scaling and watermark in both orientations, on one sheet.
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

// Grey where both have the same pixel, red where not. Empty if the sizes differ.
QImage Difference(const QImage& before, const QImage& after)
{
    if (before.size() != after.size()) return {};
    QImage shown = after.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            if (before.pixel(x, y) != after.pixel(x, y)) shown.setPixel(x, y, qRgb(255, 0, 0));
    return shown;
}

bool Save(const QImage& picture, const QString& file)
{
    if (picture.save(file)) return true;
    std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
    return false;
}

// Old, new and difference beside each other in changes, and the new one in kept. Only what differs is written.
int Renew(const QString& kept, const QString& changes)
{
    if (!QDir().mkpath(kept) || !QDir().mkpath(changes)) return 1;
    int changed = 0;
    for (const auto& [title, record] : References()) {
        const QString name = title, file = kept + "/" + name + ".png";
        const QImage before(file), after = Paint(record, Fonts::BuiltIn);
        if (!before.isNull() && before.convertToFormat(after.format()) == after) continue;
        ++changed;
        std::printf("%s %s\n", before.isNull() ? "new:    " : "changed:", title);
        const QString shown = changes + "/" + name;
        if (!before.isNull()) {
            const QImage difference = Difference(before, after);
            if (!Save(before, shown + "-old.png")) return 1;
            if (!difference.isNull() && !Save(difference, shown + "-difference.png")) return 1;
        }
        if (!Save(after, shown + "-new.png") || !Save(after, file)) return 1;
    }
    if (changed == 0) std::puts("All pictures are as they were.");
    return 0;
}

}  // namespace

int main(int count, char** words)
{
    if (count == 4 && std::strcmp(words[1], "renew") == 0) return Renew(words[2], words[3]);
    if (count == 3 && std::strcmp(words[1], "gallery") == 0) return Save(Gallery(), words[2]) ? 0 : 1;
    std::fprintf(stderr, "usage: %s renew FOLDER CHANGES | gallery FILE.png\n", words[0]);
    return 2;
}
