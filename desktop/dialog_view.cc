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
            connect(arrow, &QToolButton::clicked, this, [clicked, up] { clicked(up); });
            layout->addWidget(arrow);
        }
    }
};

// A list whose own keys (Home, Page Down, the letters of a row) tell of the row that they have picked.
template <class List>
class KeyedList : public List {
  public:
    KeyedList(QWidget* parent, std::function<void()> keyed) : List(parent), keyed_(std::move(keyed)) {}

  protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const int before = ShownRow(this);
        List::keyPressEvent(event);
        if (ShownRow(this) != before) keyed_();
    }

  private:
    std::function<void()> keyed_;
};

}  // namespace

DialogView::DialogView(HWND dialog, Act act, QWidget* parent) : QWidget(parent), dialog_(dialog), act_(std::move(act))
{
    const Window* window = Find(dialog);
    if (!window) return;
    resize(window->Width(), window->Height());
    setMinimumSize(size());
    for (HWND handle : window->children) {
        const Window* control = Find(handle);
        if (!control) continue;
        QWidget* widget = MakeWidget(*control);
        rows_.push_back({handle, widget});
        if (!widget) continue;
        Place(*control, widget);
        handles_.insert(widget, handle);
        widget->installEventFilter(this);
        if (!(control->style & WS_TABSTOP) && (widget->focusPolicy() & Qt::TabFocus) && !IsRadio(*control))
            widget->setFocusPolicy(Qt::ClickFocus);
        if (IsGroupBox(*control)) widget->lower();
    }
    NameControls(rows_);
    ChainBehind(this);
    Sync();
}

QWidget* DialogView::ChainBehind(QWidget* before)
{
    for (const ControlRow& row : rows_) {
        if (!row.widget || row.widget->focusPolicy() == Qt::NoFocus) continue;
        setTabOrder(before, row.widget);
        before = row.widget;
    }
    return before;
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
            return MakePicture();
        case BS_GROUPBOX:
            return new GroupFrame(this, [this, handle] {
                const HWND next = NextStop(rows_, handle);
                for (const ControlRow& row : rows_)
                    if (next && row.handle == next) row.widget->setFocus(Qt::ShortcutFocusReason);
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

// What an owner-drawn button draws shows in the dialog's picture; this tells that it is there.
QWidget* DialogView::MakePicture()
{
    QPixmap nothing(1, 1);
    nothing.fill(Qt::transparent);
    auto* picture = new QLabel(this);
    picture->setPixmap(nothing);
    picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    return picture;
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
        NoteCaret(field, caret);
        act_([handle, wide, caret] { EditTo(handle, wide, caret); });
    });
    return field;
}

QWidget* DialogView::MakeCombo(const Window& window)
{
    const HWND handle = window.handle;
    auto* combo = new KeyedList<QComboBox>(this, [this, handle] { PickShown(handle); });
    connect(combo, &QComboBox::activated, this,
            [this, handle](int row) { act_([handle, row] { Pick(handle, row); }); });
    return combo;
}

QWidget* DialogView::MakeListBox(const Window& window)
{
    const HWND handle = window.handle;
    auto* box = new KeyedList<QListWidget>(this, [this, handle] { PickShown(handle); });
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
    const HWND handle = window.handle;
    auto* tree = new KeyedList<QTreeWidget>(this, [this, handle] { PickShown(handle); });
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
    const HWND handle = window.handle;
    auto* tree = new KeyedList<QTreeWidget>(this, [this, handle] { PickShown(handle); });
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

void DialogView::PickShown(HWND list)
{
    const Window* window = Find(list);
    const auto row = std::ranges::find(rows_, list, &ControlRow::handle);
    if (!window || row == rows_.end()) return;
    const int shown = ShownRow(row->widget);
    if (shown < 0 || shown == HeldRow(*window)) return;
    const bool hasRows = window->kind == Kind::ListView || window->kind == Kind::TreeView;
    act_([list, shown, hasRows] { hasRows ? SelectRow(list, shown) : Pick(list, shown); });
}

void DialogView::Sync()
{
    if (syncing_) return;
    syncing_ = true;
    for (const ControlRow& row : rows_)
        if (const Window* window = Find(row.handle); window && row.widget) SyncWidget(*window, row.widget);
    SyncStops(rows_);
    syncing_ = false;
    update();
}

void DialogView::SyncFocus()
{
    const Window* window = Find(dialog_);
    const DialogState* state = window ? window->As<DialogState>() : nullptr;
    if (!state) return;
    for (const ControlRow& row : rows_) {
        if (row.handle != state->focus || !row.widget) continue;
        syncing_ = true;
        if (!row.widget->hasFocus()) row.widget->setFocus();
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
    const bool counts = window->kind == Kind::Edit;  // by the arrows beside it
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
            return IsRadio(*window) || list || counts ? press(Key::Up) : false;
        case Qt::Key_Down:
            return IsRadio(*window) || list || counts ? press(Key::Down) : false;
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
    if (control && event->type() == QEvent::FocusIn && !entered_) {
        // As the Tab key does: what is in a dialog's first field is typed over.
        if (auto* field = qobject_cast<QLineEdit*>(watched)) field->selectAll();
        entered_ = true;
    }
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
