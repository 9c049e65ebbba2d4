#include "qt_runtime.h"

#include <cstdio>
#include <cstdlib>

#include "qt_surface.h"

namespace desktop {

namespace {

bool screen_wanted = false;

QPalette LayerPalette()
{
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Window, QColor(240, 240, 240));
    return palette;
}

// Qt's remarks about the machine (a plug-in without a feature, a folder that is not set) are no messages of
// this program.
void PassMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "qd480: %s\n", qPrintable(message));
}

}  // namespace

bool HasDisplay()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"})
        if (const char* value = std::getenv(name); value && *value) return true;
    const char* platform = std::getenv("QT_QPA_PLATFORM");
    return platform && *platform;
}

void WantScreen() { screen_wanted = true; }

void EnsureApplication()
{
    if (QCoreApplication::instance()) return;
    const bool screen = screen_wanted && HasDisplay();
    if (!screen) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(PassMessage);
    static int argc = 1;
    static char name[] = "qd480";
    static char* argv[] = {name, nullptr};
    // Never deleted: windows and fonts may be asked for as long as the program runs, also while it ends.
    static auto* const application = new QApplication(argc, argv);
    static_cast<void>(application);
    QApplication::setApplicationName("qd480");
    QApplication::setStyle("Fusion");
    QApplication::setQuitOnLastWindowClosed(false);
    if (!screen) QApplication::setPalette(LayerPalette());
}

}  // namespace desktop
