#include "help_window.h"

#include <QtWidgets>

#include "help_topics.h"

namespace desktop {

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent), titles_(new QListWidget), text_(new QTextBrowser)
{
    setWindowTitle(tr("Help - Ordana Quillet 4820E"));
    setAttribute(Qt::WA_DeleteOnClose);
    for (const HelpTopic& topic : HelpTopics()) titles_->addItem(topic.title);
    titles_->setAccessibleName(tr("Topics"));
    text_->setAccessibleName(tr("Help text"));
    text_->document()->setDocumentMargin(12);
    auto* split = new QSplitter;
    split->addWidget(titles_);
    split->addWidget(text_);
    split->setStretchFactor(1, 1);
    split->setSizes({200, 440});
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(titles_, &QListWidget::currentRowChanged, this, [this](int row) { ShowRow(row); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(split);
    layout->addWidget(buttons);
    resize(660, 400);
}

void HelpWindow::ShowTopic(DWORD context)
{
    const HelpTopic* topic = FindHelpTopic(context);
    titles_->setCurrentRow(topic ? int(topic - HelpTopics().data()) : -1);
    if (!topic) text_->setMarkdown(tr("There is no help on this one. Choose a topic on the left."));
    // A list that has the focus chooses a row.
    QWidget* reader = topic ? static_cast<QWidget*>(titles_) : text_;
    reader->setFocus();
    show();
    raise();
    activateWindow();
}

void HelpWindow::ShowRow(int row)
{
    if (row < 0) return;
    const HelpTopic& topic = HelpTopics()[std::size_t(row)];
    text_->setMarkdown("### " + topic.title + "\n\n" + topic.text);
}

}  // namespace desktop
