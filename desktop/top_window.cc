#include "top_window.h"

#include "qt_surface.h"

namespace desktop {

using namespace platform::user;

namespace {

constexpr int PageMargin = 6;
// The size of the letters that the dialogs are laid out for: 8 points at 96 dots per inch.
constexpr int LetterPixels = 11;

QSize LargestPage(const SheetState& sheet)
{
    QSize size(1, 1);
    for (const SheetPage& page : sheet.pages)
        if (const Window* window = Find(page.page)) size = size.expandedTo({window->Width(), window->Height()});
    return size;
}

}  // namespace

TopWindow::TopWindow(HWND top, Act act, QWidget* parent) : QDialog(parent), top_(top), act_(std::move(act))
{
    QFont letters = font();
    letters.setPixelSize(LetterPixels);
    setFont(letters);
    setModal(true);
    const Window* window = Find(top);
    if (!window) return;
    setWindowTitle(ToQString(window->text));
    if (window->kind == Kind::Sheet)
        BuildSheet();
    else
        BuildDialog();
    Sync();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void TopWindow::BuildDialog()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    view_ = new DialogView(top_, act_, this);
    view_->setFixedSize(view_->size());
    layout->addWidget(view_);
}

void TopWindow::BuildSheet()
{
    const Window* window = Find(top_);
    const SheetState* sheet = window ? window->As<SheetState>() : nullptr;
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout->addWidget(tabs_);
    for (const SheetPage& page : sheet->pages) {
        // In the colour that the pictures of a page take for its background.
        auto* body = new QWidget(tabs_);
        body->setAutoFillBackground(true);
        tabs_->addTab(body, ToQString(page.title));
    }
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int page) {
        if (!syncing_) act_([this, page] { ShowPage(top_, page); });
    });

    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
    if (sheet->helpEnabled) buttons_->addButton(QDialogButtonBox::Help);
    layout->addWidget(buttons_);
    const std::pair<QDialogButtonBox::StandardButton, SheetButton> rows[] = {
        {QDialogButtonBox::Ok,     SheetButton::Ok    },
        {QDialogButtonBox::Cancel, SheetButton::Cancel},
        {QDialogButtonBox::Apply,  SheetButton::Apply },
        {QDialogButtonBox::Help,   SheetButton::Help  },
    };
    for (const auto& [standard, which] : rows)
        if (QPushButton* button = buttons_->button(standard))
            connect(button, &QPushButton::clicked, this,
                    [this, which = which] { act_([this, which] { PressButton(top_, which); }); });
    buttons_->button(QDialogButtonBox::Ok)->setDefault(true);
    // OK and Cancel have keys of their own; letters of a theme's choice might be a page's.
    buttons_->button(QDialogButtonBox::Ok)->setText("OK");
    buttons_->button(QDialogButtonBox::Cancel)->setText("Cancel");
    buttons_->button(QDialogButtonBox::Apply)->setText("&Apply");
    if (QPushButton* help = buttons_->button(QDialogButtonBox::Help)) help->setText("Help");
    tabs_->setAccessibleName(windowTitle());
    lastStop_ = tabs_;
}

void TopWindow::SyncSheet()
{
    const Window* window = Find(top_);
    const SheetState* sheet = window ? window->As<SheetState>() : nullptr;
    if (!sheet) return;
    const QSize size = LargestPage(*sheet);
    for (std::size_t i = 0; i < sheet->pages.size(); ++i) {
        const HWND page = sheet->pages[i].page;
        if (!page || pages_.contains(page)) continue;
        auto* view = new DialogView(page, act_, tabs_->widget(int(i)));
        view->move(PageMargin, PageMargin);
        view->show();
        lastStop_ = view->ChainBehind(lastStop_);
        pages_.insert(page, view);
    }
    for (int i = 0; i < tabs_->count(); ++i)
        tabs_->widget(i)->setMinimumSize(size + QSize(2 * PageMargin, 2 * PageMargin));
    tabs_->setCurrentIndex(sheet->active);
    buttons_->button(QDialogButtonBox::Apply)->setEnabled(sheet->applyEnabled);
}

DialogView* TopWindow::ActiveView() const { return view_ ? view_ : pages_.value(DialogOf(top_)); }

void TopWindow::Sync()
{
    if (syncing_) return;
    syncing_ = true;
    if (const Window* window = Find(top_)) {
        setWindowTitle(ToQString(window->text));
        if (tabs_) SyncSheet();
        for (DialogView* page : std::as_const(pages_)) page->Sync();
        if (view_) view_->Sync();
        if (DialogView* view = ActiveView(); view && TopWindow::Handle() == platform::user::TopWindow()) {
            const QWidget* focused = focusWidget();
            // The sheet's own buttons and tabs keep the focus that the user gave them.
            if (!focused || view->isAncestorOf(focused)) view->SyncFocus();
            // A page without a field leaves the focus on its bare background.
            focused = focusWidget();
            if (tabs_ && focused && tabs_->isAncestorOf(focused) && focused->focusPolicy() == Qt::NoFocus)
                tabs_->setFocus();
        }
    }
    syncing_ = false;
}

// Only what no control has taken comes here: F1 on the tabs or on the sheet's own buttons.
void TopWindow::keyPressEvent(QKeyEvent* event)
{
    QPushButton* help = buttons_ ? buttons_->button(QDialogButtonBox::Help) : nullptr;
    if (event->key() == Qt::Key_F1 && help)
        help->click();
    else
        QDialog::keyPressEvent(event);
}

void TopWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    reject();
}

void TopWindow::reject()
{
    act_([this] { platform::user::Close(top_); });
}

}  // namespace desktop
