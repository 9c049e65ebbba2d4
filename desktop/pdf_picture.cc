#include "pdf_picture.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "qt_runtime.h"
#include "qt_surface.h"

namespace desktop {

QByteArray PdfPicture(const platform::RecordingSurface& drawing, int width, int height, int dotsPerInch)
{
    EnsureApplication();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dotsPerInch);
    // Qt rounds a page to whole points, which would move the origin.
    const QSize points((width * 72 + dotsPerInch - 1) / dotsPerInch, (height * 72 + dotsPerInch - 1) / dotsPerInch);
    writer.setPageSize(QPageSize(points, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer)) return {};
    PainterSurface surface(painter);
    drawing.ReplayOn(surface);
    return painter.end() ? bytes : QByteArray();
}

}  // namespace desktop
