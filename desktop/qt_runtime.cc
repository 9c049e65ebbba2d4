#include "qt_runtime.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "qt_surface.h"

namespace desktop {

namespace {

bool screen_wanted = false;

double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

// How well letters stand out, from 1 to 21 (WCAG 2).
double Contrast(const QColor& a, const QColor& b)
{
    const auto [less, more] = std::minmax({Luminance(a), Luminance(b)});
    return (more + 0.05) / (less + 0.05);
}

QColor Mix(const QColor& a, const QColor& b, double share)
{
    return QColor::fromRgbF(float(a.redF() * share + b.redF() * (1 - share)),
                            float(a.greenF() * share + b.greenF() * (1 - share)),
                            float(a.blueF() * share + b.blueF() * (1 - share)));
}

constexpr double LeastContrast = 3;
constexpr double GreyShare = 0.55;  // of the text's colour: 108 of 255 for black on the usual 240

// Many themes grey out until nothing can be read; what is not available now is still worth reading.
void KeepGreyTextReadable()
{
    const QPalette theme = QApplication::palette();
    const QColor background = theme.color(QPalette::Window);
    QPalette changed;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        if (Contrast(theme.color(QPalette::Disabled, role), background) < LeastContrast)
            changed.setColor(QPalette::Disabled, role, Mix(theme.color(role), background, GreyShare));
    QApplication::setPalette(changed);
}

QPalette LayerPalette()
{
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Window, QColor(240, 240, 240));
    return palette;
}

constexpr int CannotStart = 3;  // exit status: the operation failed

// Qt's remarks about the machine (a plug-in without a feature, a folder that is not set) are no messages of
// this program.
void PassMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg) {
        // Only the start is fatal to Qt: no way to the display that the environment names.
        std::fputs("qd480: the display cannot be opened; a sheet without one needs --script\n", stderr);
        std::_Exit(CannotStart);
    }
    if (type == QtCriticalMsg) std::fprintf(stderr, "qd480: %s\n", qPrintable(message));
}

}  // namespace

bool HasDisplay()
{
    // Who names a platform means it; two of them show nothing.
    if (const char* platform = std::getenv("QT_QPA_PLATFORM"); platform && *platform)
        return std::string_view(platform) != "offscreen" && std::string_view(platform) != "minimal";
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"})
        if (const char* value = std::getenv(name); value && *value) return true;
    return false;
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
    KeepGreyTextReadable();
}

}  // namespace desktop
