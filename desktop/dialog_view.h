// A dialog or page as Qt widgets over the layer's state. The view shows what the layer holds and hands
// what the user does to the actions; after each action it shows the layer's state again.
#pragma once

#include <QHash>
#include <QWidget>
#include <functional>

#include "access.h"
#include "platform/user/actions.h"

namespace desktop {

// Runs an action for the view; the desktop looks afterwards whether a dialog has ended by it.
using Act = std::function<void(const std::function<void()>&)>;

class DialogView : public QWidget {
  public:
    DialogView(HWND dialog, Act act, QWidget* parent = nullptr);
    void Sync();       // shows the layer's state of every control
    void SyncFocus();  // gives Qt's focus to the control that has the layer's
    // Puts the controls behind a widget in the order of the Tab key; the last one.
    QWidget* ChainBehind(QWidget* before);
    HWND Dialog() const { return dialog_; }
    HWND ControlOf(const QObject* widget) const { return handles_.value(widget); }

  protected:
    void paintEvent(QPaintEvent*) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeWidget(const platform::user::Window& window);
    QWidget* MakeButton(const platform::user::Window& window);
    QWidget* MakePicture();
    QWidget* MakeStatic(const platform::user::Window& window);
    QWidget* MakeEdit(const platform::user::Window& window);
    QWidget* MakeCombo(const platform::user::Window& window);
    QWidget* MakeListBox(const platform::user::Window& window);
    QWidget* MakeUpDown(const platform::user::Window& window);
    QWidget* MakeListView(const platform::user::Window& window);
    QWidget* MakeTreeView(const platform::user::Window& window);
    void Place(const platform::user::Window& window, QWidget* widget);
    // After a key that the list itself has worked: picks the row that it shows now.
    void PickShown(HWND list);
    bool HandleKey(HWND control, int key);

    HWND dialog_;
    Act act_;
    QVector<ControlRow> rows_;
    QHash<const QObject*, HWND> handles_;
    bool syncing_ = false;
    bool entered_ = false;  // has had the focus
};

}  // namespace desktop
