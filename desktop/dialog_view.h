// A dialog or page as Qt widgets over the layer's state. The view shows what the layer holds and hands
// what the user does to the actions; after each action it shows the layer's state again.
#pragma once

#include <QHash>
#include <QWidget>
#include <functional>

#include "platform/user/actions.h"
#include "platform/user/window.h"

namespace desktop {

// Runs an action for the view; the desktop looks afterwards whether a dialog has ended by it.
using Act = std::function<void(const std::function<void()>&)>;

class DialogView : public QWidget {
  public:
    DialogView(HWND dialog, Act act, QWidget* parent = nullptr);
    void Sync();       // shows the layer's state of every control
    void SyncFocus();  // gives Qt's focus to the control that has the layer's
    HWND Dialog() const { return dialog_; }
    HWND ControlOf(const QObject* widget) const { return handles_.value(widget); }

  protected:
    void paintEvent(QPaintEvent*) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Row {
        HWND handle;
        QWidget* widget;  // null: the control shows in the picture alone
    };
    QWidget* MakeWidget(const platform::user::Window& window);
    QWidget* MakeButton(const platform::user::Window& window);
    QWidget* MakeStatic(const platform::user::Window& window);
    QWidget* MakeEdit(const platform::user::Window& window);
    QWidget* MakeCombo(const platform::user::Window& window);
    QWidget* MakeListBox(const platform::user::Window& window);
    QWidget* MakeUpDown(const platform::user::Window& window);
    QWidget* MakeListView(const platform::user::Window& window);
    QWidget* MakeTreeView(const platform::user::Window& window);
    void Place(const platform::user::Window& window, QWidget* widget);
    void LinkLabels();
    bool HandleKey(HWND control, int key);
    HWND NextFocusable(HWND after) const;

    HWND dialog_;
    Act act_;
    QVector<Row> rows_;
    QHash<const QObject*, HWND> handles_;
    bool syncing_ = false;
};

}  // namespace desktop
