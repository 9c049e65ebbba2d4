// Drawing on Qt: a surface on any painter, and one that keeps its own picture.
#pragma once

#include <QImage>
#include <QPainter>

#include "platform/seams/surface.h"

namespace desktop {

QColor ToColor(COLORREF color);
QString ToQString(std::u16string_view text);
std::u16string ToWideString(const QString& text);

// Draws on a painter that outlives it; device pixels are the painter's logical units. No anti-aliasing
// unless the caller asks the painter for it.
class PainterSurface : public platform::Surface {
  public:
    explicit PainterSurface(QPainter& painter) : painter_(painter) {}
    void SetClip(const std::optional<RECT>& clip) override;
    void Line(const platform::PenSpec& pen, POINT from, POINT to) override;
    void Rectangle(const platform::PenSpec& pen, const platform::BrushSpec& brush, const RECT& box) override;
    void Polygon(const platform::PenSpec& pen, const platform::BrushSpec& brush,
                 std::span<const POINT> points) override;
    void Arc(const platform::PenSpec& pen, const RECT& box, POINT start, POINT end) override;
    void Fill(const RECT& box, COLORREF color) override;
    void Text(const platform::TextSpec& text) override;
    void Image(const RECT& target, const platform::PixelImage& image) override;
    void Erase(const RECT& box) override;

  private:
    QPainter& painter_;
};

// A picture of width by height pixels, held at scale times that; bare where nothing has been drawn.
class ImageSurface : public platform::Surface {
  public:
    ImageSurface(int width, int height, double scale);
    const QImage& Picture() const { return image_; }

    void SetClip(const std::optional<RECT>& clip) override { surface_.SetClip(clip); }
    void Line(const platform::PenSpec& pen, POINT from, POINT to) override { surface_.Line(pen, from, to); }
    void Rectangle(const platform::PenSpec& pen, const platform::BrushSpec& brush, const RECT& box) override
    {
        surface_.Rectangle(pen, brush, box);
    }
    void Polygon(const platform::PenSpec& pen, const platform::BrushSpec& brush, std::span<const POINT> points) override
    {
        surface_.Polygon(pen, brush, points);
    }
    void Arc(const platform::PenSpec& pen, const RECT& box, POINT start, POINT end) override
    {
        surface_.Arc(pen, box, start, end);
    }
    void Fill(const RECT& box, COLORREF color) override { surface_.Fill(box, color); }
    void Text(const platform::TextSpec& text) override { surface_.Text(text); }
    void Image(const RECT& target, const platform::PixelImage& image) override { surface_.Image(target, image); }
    void Erase(const RECT& box) override { surface_.Erase(box); }

  private:
    QImage image_;
    QPainter painter_;
    PainterSurface surface_;
};

}  // namespace desktop
