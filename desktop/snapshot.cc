#include "snapshot.h"

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
    QImageWriter writer(QString::fromStdString(pngFile), "png");
    if (writer.write(picture)) return true;
    *why = writer.errorString().toStdString();
    return false;
}

}  // namespace desktop
