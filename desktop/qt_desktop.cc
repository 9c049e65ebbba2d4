#include "qt_desktop.h"

#include <QEventLoop>
#include <QPointer>

#include "help_window.h"
#include "platform/user.h"
#include "qt_runtime.h"
#include "qt_surface.h"
#include "top_window.h"

namespace desktop {

using platform::FileDialogRequest;
using platform::HelpRequest;
using platform::MessageBoxRequest;

namespace {

// Edges are made from the face that they stand on: a theme's own need not go with it.
struct SystemColorRow {
    int index;
    QPalette::ColorRole role;
    QPalette::ColorGroup group;
    int darker;  // per cent, as QColor::darker takes it
};
constexpr SystemColorRow SystemColors[] = {
    {COLOR_WINDOW,       QPalette::Base,       QPalette::Active,   100},
    {COLOR_WINDOWTEXT,   QPalette::Text,       QPalette::Active,   100},
    {COLOR_BTNFACE,      QPalette::Window,     QPalette::Active,   100},
    {COLOR_BTNSHADOW,    QPalette::Window,     QPalette::Active,   150},
    {COLOR_GRAYTEXT,     QPalette::WindowText, QPalette::Disabled, 100},
    {COLOR_BTNTEXT,      QPalette::WindowText, QPalette::Active,   100},
    {COLOR_BTNHIGHLIGHT, QPalette::Window,     QPalette::Active,   60 },
    {COLOR_3DDKSHADOW,   QPalette::Window,     QPalette::Active,   229},
    {COLOR_3DLIGHT,      QPalette::Window,     QPalette::Active,   106},
};

// A file dialog that asks before it takes a path; refused, it stays open.
class FileDialog : public QFileDialog {
  public:
    FileDialog(QWidget* parent, const FileDialogRequest& request) : QFileDialog(parent), request_(request) {}

  protected:
    void accept() override
    {
        const QStringList files = selectedFiles();
        if (files.isEmpty()) return;
        if (!QFileInfo(files.front()).isDir() && request_.accept && !request_.accept(ToWideString(files.front())))
            return;
        QFileDialog::accept();
    }

  private:
    const FileDialogRequest& request_;
};

class QtDesktop : public platform::Desktop {
  public:
    QtDesktop()
    {
        WantScreen();
        EnsureApplication();
    }

    void Opened(HWND top) override
    {
        // A button that was pressed by its letter goes up a moment later, when window and desktop may be gone.
        const auto act = [this, alive = QPointer<QObject>(&alive_)](const std::function<void()>& action) {
            if (alive) Act(action);
        };
        auto* window = new TopWindow(top, act, ParentWidget());
        windows_.push_back(window);
        window->show();
        window->Sync();
    }

    void Closed(HWND top) override
    {
        for (qsizetype i = windows_.size(); i-- > 0;)
            if (windows_[i]->Handle() == top) {
                windows_[i]->hide();
                windows_[i]->deleteLater();
                windows_.remove(i);
            }
    }

    void Run(HWND top) override
    {
        QEventLoop loop;
        loops_.push_back({top, &loop});
        if (!platform::user::Ended(top)) loop.exec();
        loops_.pop_back();
    }

    void Changed(HWND) override
    {
        // Many changes come in one action; they are shown together when Qt has time.
        if (pending_) return;
        pending_ = true;
        QTimer::singleShot(0, &alive_, [this] {
            pending_ = false;
            SyncAll();
        });
    }

    std::shared_ptr<platform::Surface> MakePicture(HWND, int width, int height) override
    {
        return std::make_shared<ImageSurface>(width, height, qApp->devicePixelRatio());
    }

    int MessageBox(const MessageBoxRequest& request) override
    {
        QMessageBox box(ParentWidget());
        box.setWindowTitle(ToQString(request.caption));
        box.setTextFormat(Qt::PlainText);
        box.setText(ToQString(request.text));
        const UINT icon = request.style & 0xF0;
        if (icon == MB_ICONEXCLAMATION) box.setIcon(QMessageBox::Warning);
        if (icon == MB_ICONINFORMATION) box.setIcon(QMessageBox::Information);
        const bool cancel = (request.style & 0x0F) == MB_OKCANCEL;
        box.setStandardButtons(cancel ? QMessageBox::Ok | QMessageBox::Cancel
                                      : QMessageBox::StandardButtons(QMessageBox::Ok));
        return box.exec() == QMessageBox::Cancel ? IDCANCEL : IDOK;
    }

    std::optional<std::u16string> PickFile(const FileDialogRequest& request) override
    {
        FileDialog dialog(ParentWidget(), request);
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);  // the layer asks
        dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
        dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
        if (!request.title.empty()) dialog.setWindowTitle(ToQString(request.title));
        if (!request.directory.empty()) dialog.setDirectory(ToQString(request.directory));
        if (!request.name.empty()) dialog.selectFile(ToQString(request.name));
        dialog.setDefaultSuffix(ToQString(request.defaultExtension));
        QStringList filters;
        for (const auto& filter : request.filters) {
            const QString name = ToQString(filter.name);
            filters << (name.contains('(') ? name : name + " (" + ToQString(filter.patterns).replace(';', ' ') + ")");
        }
        if (!filters.isEmpty()) dialog.setNameFilters(filters);
        if (dialog.exec() != QDialog::Accepted) return std::nullopt;
        return ToWideString(dialog.selectedFiles().front());
    }

    void Help(const HelpRequest& request) override
    {
        // One window for each dialog that has asked: a dialog blocks the windows that are not its own.
        QWidget* parent = ParentWidget();
        HelpWindow* window = nullptr;
        if (parent)
            for (QObject* child : parent->children())
                if (auto* open = dynamic_cast<HelpWindow*>(child)) window = open;
        if (!window) window = new HelpWindow(parent);
        window->ShowTopic(request.context);
    }

    void Beep(UINT) override { QApplication::beep(); }

    std::optional<DWORD> SystemColor(int index) override
    {
        for (const SystemColorRow& row : SystemColors)
            if (row.index == index) {
                const QColor color = QApplication::palette().color(row.group, row.role).darker(row.darker);
                return DWORD(color.red()) | DWORD(color.green()) << 8 | DWORD(color.blue()) << 16;
            }
        return std::nullopt;
    }

  private:
    struct Loop {
        HWND top;
        QEventLoop* loop;
    };

    void Act(const std::function<void()>& action)
    {
        action();
        SyncAll();
        for (const Loop& loop : loops_)
            if (platform::user::Ended(loop.top)) loop.loop->quit();
    }

    void SyncAll()
    {
        for (TopWindow* window : windows_)
            if (!platform::user::Ended(window->Handle())) window->Sync();
    }

    QWidget* ParentWidget() const { return windows_.isEmpty() ? nullptr : windows_.back(); }

    QVector<TopWindow*> windows_;
    QVector<Loop> loops_;
    bool pending_ = false;
    QObject alive_;  // what is put off for later ends with the desktop
};

}  // namespace

std::shared_ptr<platform::Desktop> MakeQtDesktop() { return std::make_shared<QtDesktop>(); }

}  // namespace desktop
