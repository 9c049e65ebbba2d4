#include "snapshot.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>

#include "qt_runtime.h"
#include "top_window.h"

namespace desktop {

bool Snapshot(HWND top, const std::string& pngFile, std::string* why)
{
    EnsureApplication();
    if (!platform::user::Find(top)) {
        *why = "there is no dialog to take a picture of";
        return false;
    }
    TopWindow window(top, [](const std::function<void()>& action) { action(); });
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    window.Sync();
    const QImage picture = window.grab().toImage();
    window.hide();
    // Made whole first: what goes wrong with the file is told in the system's words then.
    QByteArray png;
    QBuffer made(&png);
    QFile file(QString::fromStdString(pngFile));
    if (QImageWriter(&made, "png").write(picture) && file.open(QIODevice::WriteOnly) && file.write(png) == png.size() &&
        file.flush()) {
        return true;
    }
    *why = file.errorString().toStdString();
    return false;
}

}  // namespace desktop
