// Pictures that are held at several pixels a pixel, as on a screen at 200 per cent.
#include "desktop/qt_surface.h"

#include <gtest/gtest.h>

namespace {

using desktop::ImageSurface;

constexpr COLORREF Red = 0x0000FF;

// The device pixels that are drawn on, as a box that excludes right and bottom.
QRect Drawn(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y))) box |= QRect(x, y, 1, 1);
    return box;
}

TEST(ScaledSurface, LinesAndFramesCoverTheirPixelsWholly)
{
    for (const int scale : {1, 2, 3}) {
        ImageSurface frame(20, 20, scale);
        frame.Rectangle({PS_SOLID, 1, Red}, std::nullopt, {4, 5, 12, 15});
        EXPECT_EQ(Drawn(frame.Picture()), QRect(4 * scale, 5 * scale, 8 * scale, 10 * scale)) << scale;
        EXPECT_EQ(qAlpha(frame.Picture().pixel(5 * scale, 6 * scale)), 0) << scale;

        ImageSurface line(20, 20, scale);
        line.Line({PS_SOLID, 1, Red}, {3, 7}, {9, 7});
        EXPECT_EQ(Drawn(line.Picture()), QRect(3 * scale, 7 * scale, 6 * scale, scale)) << scale;
    }
}

}  // namespace
