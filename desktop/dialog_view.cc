#include "dialog_view.h"

#include "control_sync.h"
#include "qt_surface.h"

namespace desktop {

using namespace platform::user;

namespace {

// The closed height of a drop-down list; the template's height is that of the open one.
constexpr int ComboHeight = 23;

// A frame whose mnemonic goes to the first field behind it, as a frame holds no fields of its own.
class GroupFrame : public QGroupBox {
  public:
    GroupFrame(QWidget* parent, std::function<void()> activated) : QGroupBox(parent), activated_(std::move(activated))
    {
    }

  protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::Shortcut) return QGroupBox::event(event);
        activated_();
        return true;
    }

  private:
    std::function<void()> activated_;
};

// The two arrows of an up-down control.
class Arrows : public QWidget {
  public:
    Arrows(QWidget* parent, const std::function<void(bool up)>& clicked) : QWidget(parent)
    {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        for (const bool up : {true, false}) {
            auto* arrow = new QToolButton(this);
            arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
            arrow->setAutoRepeat(true);
            arrow->setFocusPolicy(Qt::NoFocus);
            arrow->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
            arrow->setAccessibleName(up ? tr("Up") : tr("Down"));
            connect(arrow, &QToolButton::clicked, this, [clicked, up] { clicked(up); });
            layout->addWidget(arrow);
        }
    }
};

bool IsTextStatic(const Window& window)
{
    const DWORD type = window.style & SS_TYPEMASK;
    return type <= SS_RIGHT || type == SS_SIMPLE || type == SS_LEFTNOWORDWRAP;
}

}  // namespace

DialogView::DialogView(HWND dialog, Act act, QWidget* parent) : QWidget(parent), dialog_(dialog), act_(std::move(act))
{
    const Window* window = Find(dialog);
    if (!window) return;
    resize(window->Width(), window->Height());
    setMinimumSize(size());
    QWidget* before = nullptr;
    for (HWND handle : window->children) {
        const Window* control = Find(handle);
        if (!control) continue;
        QWidget* widget = MakeWidget(*control);
        rows_.push_back({handle, widget});
        if (!widget) continue;
        Place(*control, widget);
        handles_.insert(widget, handle);
        widget->installEventFilter(this);
        if (!(control->style & WS_TABSTOP) && widget->focusPolicy() == Qt::StrongFocus && !IsRadio(*control))
            widget->setFocusPolicy(Qt::ClickFocus);
        if (widget->focusPolicy() != Qt::NoFocus) {
            if (before) setTabOrder(before, widget);
            before = widget;
        }
        if (IsGroupBox(*control)) widget->lower();
    }
    LinkLabels();
    Sync();
}

QWidget* DialogView::MakeWidget(const Window& window)
{
    switch (window.kind) {
        case Kind::Button:
            return MakeButton(window);
        case Kind::Static:
            return MakeStatic(window);
        case Kind::Edit:
            return MakeEdit(window);
        case Kind::ComboBox:
            return MakeCombo(window);
        case Kind::ListBox:
            return MakeListBox(window);
        case Kind::UpDown:
            return MakeUpDown(window);
        case Kind::ListView:
            return MakeListView(window);
        case Kind::TreeView:
            return MakeTreeView(window);
        default:
            return nullptr;
    }
}

QWidget* DialogView::MakeButton(const Window& window)
{
    const HWND handle = window.handle;
    QAbstractButton* button = nullptr;
    switch (window.style & BS_TYPEMASK) {
        case BS_OWNERDRAW:
            return nullptr;
        case BS_GROUPBOX:
            return new GroupFrame(this, [this, handle] {
                if (const HWND next = NextFocusable(handle)) act_([next] { platform::user::Focus(next); });
            });
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
            button = new QCheckBox(this);
            break;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            button = new QRadioButton(this);
            button->setAutoExclusive(false);
            break;
        default: {
            auto* push = new QPushButton(this);
            push->setAutoDefault(false);
            // A page's own default button would take Enter from the sheet's OK, also while it is hidden.
            const DialogState* dialog = Find(dialog_)->As<DialogState>();
            if (dialog && dialog->modal) push->setDefault((window.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON);
            button = push;
        }
    }
    connect(button, &QAbstractButton::clicked, this, [this, handle] { act_([handle] { Click(handle); }); });
    return button;
}

QWidget* DialogView::MakeStatic(const Window& window)
{
    if (!IsTextStatic(window)) return nullptr;
    auto* label = new QLabel(this);
    const DWORD type = window.style & SS_TYPEMASK;
    label->setAlignment((type == SS_CENTER  ? Qt::AlignHCenter
                         : type == SS_RIGHT ? Qt::AlignRight
                                            : Qt::AlignLeft) |
                        Qt::AlignTop);
    label->setWordWrap(type <= SS_RIGHT);
    return label;
}

QWidget* DialogView::MakeEdit(const Window& window)
{
    auto* field = new QLineEdit(this);
    const HWND handle = window.handle;
    field->setReadOnly(window.style & ES_READONLY);
    if (window.style & ES_RIGHT) field->setAlignment(Qt::AlignRight);
    connect(field, &QLineEdit::textEdited, this, [this, field, handle](const QString& text) {
        const std::u16string wide = ToWideString(text);
        const std::size_t caret = std::size_t(field->cursorPosition());
        act_([handle, wide, caret] { EditTo(handle, wide, caret); });
    });
    return field;
}

QWidget* DialogView::MakeCombo(const Window& window)
{
    auto* combo = new QComboBox(this);
    const HWND handle = window.handle;
    connect(combo, &QComboBox::activated, this,
            [this, handle](int row) { act_([handle, row] { Pick(handle, row); }); });
    return combo;
}

QWidget* DialogView::MakeListBox(const Window& window)
{
    auto* box = new QListWidget(this);
    const HWND handle = window.handle;
    connect(box, &QListWidget::itemClicked, this, [this, handle, box](QListWidgetItem* item) {
        const int row = box->row(item);
        act_([handle, row] { Pick(handle, row); });
    });
    return box;
}

QWidget* DialogView::MakeUpDown(const Window& window)
{
    const HWND handle = window.handle;
    return new Arrows(this, [this, handle](bool up) { act_([handle, up] { Spin(handle, up); }); });
}

QWidget* DialogView::MakeListView(const Window& window)
{
    auto* tree = new QTreeWidget(this);
    const HWND handle = window.handle;
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->setHeaderHidden((window.style & LVS_NOCOLUMNHEADER) != 0);
    connect(tree, &QTreeWidget::itemClicked, this, [this, handle, tree](QTreeWidgetItem* item) {
        const int row = tree->indexOfTopLevelItem(item);
        act_([handle, row] { SelectRow(handle, row); });
    });
    return tree;
}

QWidget* DialogView::MakeTreeView(const Window& window)
{
    auto* tree = new QTreeWidget(this);
    const HWND handle = window.handle;
    tree->setHeaderHidden(true);
    tree->setRootIsDecorated(false);  // the layer keeps every row open
    tree->setItemsExpandable(false);
    connect(tree, &QTreeWidget::itemClicked, this, [this, handle, tree](QTreeWidgetItem* clicked) {
        int row = 0;
        for (QTreeWidgetItemIterator item(tree); *item && *item != clicked; ++item) ++row;
        act_([handle, row] { SelectRow(handle, row); });
    });
    return tree;
}

void DialogView::Place(const Window& window, QWidget* widget)
{
    QRect rect(window.rect.left, window.rect.top, window.Width(), window.Height());
    if (window.kind == Kind::ComboBox) rect.setHeight(ComboHeight);
    widget->setGeometry(rect);
}

void DialogView::LinkLabels()
{
    for (const Row& row : rows_) {
        auto* label = qobject_cast<QLabel*>(row.widget);
        if (!label) continue;
        const HWND next = NextFocusable(row.handle);
        for (const Row& other : rows_)
            if (other.handle == next && other.widget) label->setBuddy(other.widget);
    }
    // A field is named by the label or frame before it.
    QString name;
    for (const Row& row : rows_) {
        const Window* window = Find(row.handle);
        if (!window || !row.widget) continue;
        if (window->kind == Kind::Static || IsGroupBox(*window))
            name = ToQString(window->text).remove('&');
        else if (window->kind != Kind::Button)
            row.widget->setAccessibleName(name);
    }
}

HWND DialogView::NextFocusable(HWND after) const
{
    bool behind = false;
    for (const Row& row : rows_) {
        const Window* window = Find(row.handle);
        if (behind && window && row.widget && row.widget->focusPolicy() != Qt::NoFocus && window->kind != Kind::Static)
            return row.handle;
        if (row.handle == after) behind = true;
    }
    return nullptr;
}

void DialogView::Sync()
{
    if (syncing_) return;
    syncing_ = true;
    for (const Row& row : rows_)
        if (const Window* window = Find(row.handle); window && row.widget) SyncWidget(*window, row.widget);
    syncing_ = false;
    update();
}

void DialogView::SyncFocus()
{
    const Window* window = Find(dialog_);
    const DialogState* state = window ? window->As<DialogState>() : nullptr;
    if (!state) return;
    for (const Row& row : rows_)
        if (row.handle == state->focus && row.widget && !row.widget->hasFocus()) {
            syncing_ = true;
            row.widget->setFocus();
            syncing_ = false;
        }
}

void DialogView::paintEvent(QPaintEvent*)
{
    const Window* window = Find(dialog_);
    const DialogState* state = window ? window->As<DialogState>() : nullptr;
    if (!state) return;
    QPainter painter(this);
    if (const auto* image = dynamic_cast<const ImageSurface*>(state->picture.get()))
        painter.drawImage(QPointF(0, 0), image->Picture());
    else if (const auto* recording = dynamic_cast<const platform::RecordingSurface*>(state->picture.get())) {
        ImageSurface copy(width(), height(), devicePixelRatioF());
        recording->ReplayOn(copy);
        painter.drawImage(QPointF(0, 0), copy.Picture());
    }
}

bool DialogView::HandleKey(HWND control, int key)
{
    const Window* window = Find(control);
    const HWND top = TopWindow();
    if (!window || !top) return false;
    const bool list = window->kind == Kind::ComboBox || window->kind == Kind::ListBox ||
                      window->kind == Kind::ListView || window->kind == Kind::TreeView;
    const auto press = [&](Key which) {
        act_([top, which] { Press(top, which); });
        return true;
    };
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return press(Key::Enter);
        case Qt::Key_F1:
            return press(Key::F1);
        case Qt::Key_Up:
            return IsRadio(*window) || list ? press(Key::Up) : false;
        case Qt::Key_Down:
            return IsRadio(*window) || list ? press(Key::Down) : false;
        case Qt::Key_Left:
            return IsRadio(*window) ? press(Key::Left) : false;
        case Qt::Key_Right:
            return IsRadio(*window) ? press(Key::Right) : false;
        default:
            return false;
    }
}

bool DialogView::eventFilter(QObject* watched, QEvent* event)
{
    const HWND control = handles_.value(watched);
    if (!control || syncing_) return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) {
        const Window* window = Find(dialog_);
        const DialogState* state = window ? window->As<DialogState>() : nullptr;
        if (state && state->focus != control) act_([control] { platform::user::Focus(control); });
    } else if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool plain = !(key->modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier));
        if (plain && HandleKey(control, key->key())) return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
