// The window around a sheet or a modal dialog.
#pragma once

#include <QDialog>

#include "dialog_view.h"

class QTabWidget;
class QDialogButtonBox;

namespace desktop {

class TopWindow : public QDialog {
  public:
    TopWindow(HWND top, Act act, QWidget* parent = nullptr);
    void Sync();
    HWND Handle() const { return top_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void reject() override;

  private:
    void BuildSheet();
    void BuildDialog();
    void SyncSheet();
    DialogView* ActiveView() const;

    HWND top_;
    Act act_;
    QTabWidget* tabs_ = nullptr;
    QDialogButtonBox* buttons_ = nullptr;
    DialogView* view_ = nullptr;      // of a dialog
    QHash<HWND, DialogView*> pages_;  // of a sheet, as they come to be
    QWidget* lastStop_ = nullptr;     // of the pages that there are, in the order of the Tab key
    bool syncing_ = false;
};

}  // namespace desktop
