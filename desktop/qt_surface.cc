#include "qt_surface.h"

#include <cmath>

#include "qt_fonts.h"

namespace desktop {

namespace {

QPen ToPen(const platform::PenSpec& spec)
{
    if (spec.style == PS_NULL) return Qt::NoPen;
    QPen pen(ToColor(spec.color), std::max(1, spec.width));
    pen.setCapStyle(spec.width > 1 ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(spec.width > 1 ? Qt::RoundJoin : Qt::MiterJoin);
    if (spec.style == PS_DASH) pen.setStyle(Qt::DashLine);
    if (spec.style == PS_DOT) pen.setDashPattern({1, 2});
    return pen;
}

QBrush ToBrush(const platform::BrushSpec& spec) { return spec ? QBrush(ToColor(*spec)) : QBrush(Qt::NoBrush); }

QRect ToRect(const RECT& box) { return {box.left, box.top, box.right - box.left, box.bottom - box.top}; }

QRect Normal(const RECT& box)
{
    return ToRect({std::min(box.left, box.right), std::min(box.top, box.bottom), std::max(box.left, box.right),
                   std::max(box.top, box.bottom)});
}

// A pixel that is held as several: a pen of one pixel is moved by half of it, to lie within instead of astride.
class PixelPen {
  public:
    PixelPen(QPainter& painter, const platform::PenSpec& spec) : painter_(painter)
    {
        moved_ = spec.width <= 1 && painter.device()->devicePixelRatioF() > 1;
        painter.setPen(ToPen(spec));
        if (moved_) painter.translate(0.5, 0.5);
    }
    ~PixelPen()
    {
        if (moved_) painter_.translate(-0.5, -0.5);
    }
    PixelPen(const PixelPen&) = delete;
    PixelPen& operator=(const PixelPen&) = delete;

  private:
    QPainter& painter_;
    bool moved_;
};

// Angle of a point seen from the middle of a box, in degrees counter-clockwise from three o'clock, on the
// circle that the ellipse of the box is stretched from.
double AngleOf(const QRectF& box, POINT point)
{
    const double x = (point.x - box.center().x()) / std::max(1.0, box.width());
    const double y = (box.center().y() - point.y) / std::max(1.0, box.height());
    return std::atan2(y, x) * 180 / M_PI;
}

}  // namespace

QColor ToColor(COLORREF color)
{
    return QColor(int(color & 0xFF), int((color >> 8) & 0xFF), int((color >> 16) & 0xFF));
}

QString ToQString(std::u16string_view text) { return QString::fromUtf16(text.data(), qsizetype(text.size())); }

std::u16string ToWideString(const QString& text) { return text.toStdU16String(); }

void PainterSurface::SetClip(const std::optional<RECT>& clip)
{
    if (clip)
        painter_.setClipRect(Normal(*clip));
    else
        painter_.setClipping(false);
}

void PainterSurface::Line(const platform::PenSpec& pen, POINT from, POINT to)
{
    const PixelPen set(painter_, pen);
    if (pen.width > 1) {
        painter_.drawLine(from.x, from.y, to.x, to.y);
        return;
    }
    // The last point belongs to the next line. A step along the longer axis leaves it out.
    const int dx = to.x - from.x, dy = to.y - from.y;
    const int steps = std::max(std::abs(dx), std::abs(dy));
    if (steps == 0) return;
    if (pen.style == PS_SOLID) {
        // A flat end would leave out the last pixel once more.
        QPen whole = painter_.pen();
        whole.setCapStyle(Qt::SquareCap);
        painter_.setPen(whole);
    }
    painter_.drawLine(QPoint(from.x, from.y), QPoint(from.x + int(std::lround(double(dx) * (steps - 1) / steps)),
                                                     from.y + int(std::lround(double(dy) * (steps - 1) / steps))));
}

void PainterSurface::Rectangle(const platform::PenSpec& pen, const platform::BrushSpec& brush, const RECT& box)
{
    QRect inner = Normal(box);
    if (inner.width() < 1 || inner.height() < 1) return;
    if (pen.style == PS_NULL) {
        if (brush) painter_.fillRect(inner, ToColor(*brush));
        return;
    }
    const PixelPen set(painter_, pen);
    painter_.setBrush(ToBrush(brush));
    painter_.drawRect(inner.adjusted(0, 0, -1, -1));
}

void PainterSurface::Polygon(const platform::PenSpec& pen, const platform::BrushSpec& brush,
                             std::span<const POINT> points)
{
    QPolygon polygon;
    for (const POINT& point : points) polygon << QPoint(point.x, point.y);
    const PixelPen set(painter_, pen);
    painter_.setBrush(ToBrush(brush));
    painter_.drawPolygon(polygon);
}

void PainterSurface::Arc(const platform::PenSpec& pen, const RECT& box, POINT start, POINT end)
{
    const QRectF frame(box.left, box.top, box.right - box.left - 1, box.bottom - box.top - 1);
    const double from = AngleOf(frame, start);
    double sweep = AngleOf(frame, end) - from;
    if (sweep <= 0) sweep += 360;
    const PixelPen set(painter_, pen);
    painter_.setBrush(Qt::NoBrush);
    painter_.drawArc(frame, int(std::lround(from * 16)), int(std::lround(sweep * 16)));
}

void PainterSurface::Fill(const RECT& box, COLORREF color) { painter_.fillRect(Normal(box), ToColor(color)); }

void PainterSurface::Text(const platform::TextSpec& text)
{
    const QFont font = ToQFont(text.font);
    const QFontMetricsF metrics(font, painter_.device());
    const QString shown = ToQString(text.text);
    const double width = metrics.horizontalAdvance(shown);
    painter_.save();
    if (text.clip) painter_.setClipRect(Normal(*text.clip), Qt::IntersectClip);
    painter_.translate(text.origin.x, text.origin.y);
    painter_.rotate(-text.font.lfEscapement / 10.0);
    const UINT horizontal = text.align & TA_CENTER;
    const UINT vertical = text.align & TA_BASELINE;
    const double x = horizontal == TA_CENTER ? -width / 2 : horizontal == TA_RIGHT ? -width : 0;
    const double baseline = vertical == TA_BASELINE ? 0 : vertical == TA_BOTTOM ? -metrics.descent() : metrics.ascent();
    if (text.background)
        painter_.fillRect(QRectF(x, baseline - metrics.ascent(), width, metrics.height()), ToColor(*text.background));
    painter_.setFont(font);
    painter_.setPen(ToColor(text.color));
    painter_.drawText(QPointF(x, baseline), shown);
    painter_.restore();
}

void PainterSurface::Image(const RECT& target, const platform::PixelImage& image)
{
    if (image.width < 1 || image.height < 1) return;
    const QImage pixels(reinterpret_cast<const uchar*>(image.pixels.data()), image.width, image.height, image.width * 4,
                        QImage::Format_ARGB32);
    painter_.drawImage(Normal(target), pixels);
}

void PainterSurface::Erase(const RECT& box)
{
    const auto before = painter_.compositionMode();
    painter_.setCompositionMode(QPainter::CompositionMode_Clear);
    painter_.fillRect(Normal(box), Qt::transparent);
    painter_.setCompositionMode(before);
}

ImageSurface::ImageSurface(int width, int height, double scale)
    : image_(int(std::ceil(std::max(1, width) * scale)), int(std::ceil(std::max(1, height) * scale)),
             QImage::Format_ARGB32_Premultiplied),
      surface_(painter_)
{
    image_.setDevicePixelRatio(scale);
    image_.fill(Qt::transparent);
    painter_.begin(&image_);
}

}  // namespace desktop
