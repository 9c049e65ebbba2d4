// The dialogs on a desktop with light letters on dark.
#include <QtWidgets>

#include "desktop/qt_runtime.h"
#include "tests/desktop/access_rig.h"

namespace accessibility {
namespace {

// Behind the mark and within the frame of a button.
QImage TextPixels(QWidget* widget)
{
    const bool marked = qobject_cast<QRadioButton*>(widget) || qobject_cast<QCheckBox*>(widget);
    return widget->grab(widget->rect().adjusted(marked ? 20 : 4, 4, -4, -4)).toImage();
}

TEST_F(Access, EveryTextStandsOutOnADarkDesktop)
{
    desktop::EnsureApplication();
    const QPalette usual = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(49, 54, 59)));
    VisitAll([](const Picture&, HWND top) {
        for (QWidget* widget : WindowOf(top)->findChildren<QWidget*>()) {
            const QString text = TextOf(widget).trimmed();
            const bool shows = qobject_cast<QLabel*>(widget) || qobject_cast<QAbstractButton*>(widget);
            if (text.isEmpty() || !shows || !widget->isVisible() || !widget->isEnabled()) continue;
            const QImage pixels = TextPixels(widget);
            int least = 255, most = 0;
            for (int y = 0; y < pixels.height(); ++y)
                for (int x = 0; x < pixels.width(); ++x) {
                    least = std::min(least, qGray(pixels.pixel(x, y)));
                    most = std::max(most, qGray(pixels.pixel(x, y)));
                }
            EXPECT_GT(most - least, 120) << text.toStdString();
            EXPECT_LT(least, 100) << text.toStdString();
        }
    });
    QApplication::setPalette(usual);
}

}  // namespace
}  // namespace accessibility
