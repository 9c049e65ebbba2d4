// The window that shows the driver's help: the topics on the left, the one that was asked for on the right.
// It stays open beside the dialog that asked, and goes with it.
#pragma once

#include <QDialog>

#include "platform/types.h"

class QListWidget;
class QTextBrowser;

namespace desktop {

class HelpWindow : public QDialog {
  public:
    explicit HelpWindow(QWidget* parent);
    // Comes to the front. A number without a topic shows the first one.
    void ShowTopic(DWORD context);

  private:
    void ShowRow(int row);

    QListWidget* titles_;
    QTextBrowser* text_;
};

}  // namespace desktop
