#include "control_sync.h"

#include "qt_surface.h"

namespace desktop {

using namespace platform::user;

namespace {

void SyncItems(const ListState& list, QComboBox& combo)
{
    bool same = combo.count() == int(list.items.size());
    for (int i = 0; same && i < combo.count(); ++i)
        same = combo.itemText(i) == ToQString(list.items[std::size_t(i)].text);
    if (!same) {
        combo.clear();
        for (const ListItem& item : list.items) combo.addItem(ToQString(item.text));
    }
    combo.setCurrentIndex(list.selection);
}

void SyncItems(const ListState& list, QListWidget& box)
{
    bool same = box.count() == int(list.items.size());
    for (int i = 0; same && i < box.count(); ++i)
        same = box.item(i)->text() == ToQString(list.items[std::size_t(i)].text);
    if (!same) {
        box.clear();
        for (const ListItem& item : list.items) box.addItem(ToQString(item.text));
    }
    box.setCurrentRow(list.selection);
    if (list.selection < 0) box.clearSelection();
}

void SyncRows(const ListViewState& list, QTreeWidget& tree)
{
    if (tree.columnCount() != int(list.columns.size())) {
        tree.setColumnCount(int(list.columns.size()));
        QStringList titles;
        for (const auto& column : list.columns) titles << ToQString(column.title);
        tree.setHeaderLabels(titles);
    }
    for (std::size_t i = 0; i < list.columns.size(); ++i)
        if (list.columns[i].width > 0) tree.setColumnWidth(int(i), list.columns[i].width);
    while (tree.topLevelItemCount() > int(list.rows.size())) delete tree.takeTopLevelItem(tree.topLevelItemCount() - 1);
    while (tree.topLevelItemCount() < int(list.rows.size())) tree.addTopLevelItem(new QTreeWidgetItem);
    tree.clearSelection();
    for (std::size_t i = 0; i < list.rows.size(); ++i) {
        QTreeWidgetItem& item = *tree.topLevelItem(int(i));
        const ListViewState::Row& row = list.rows[i];
        for (std::size_t column = 0; column < row.cells.size(); ++column)
            item.setText(int(column), ToQString(row.cells[column]));
        item.setSelected(row.selected);
        if (!row.selected) continue;
        tree.setCurrentItem(&item);
        tree.scrollToItem(&item);
    }
}

void SyncRows(const TreeState& state, QTreeWidget& tree)
{
    QVector<QTreeWidgetItem*> items;
    for (QTreeWidgetItemIterator item(&tree); *item; ++item) items << *item;
    bool same = items.size() == qsizetype(state.rows.size());
    for (qsizetype i = 0; same && i < items.size(); ++i)
        same = items[i]->text(0) == ToQString(state.rows[std::size_t(i)].text);
    if (!same) {
        tree.clear();
        items.clear();
        QVector<QTreeWidgetItem*> above;  // the last item of each level
        for (const TreeState::Row& row : state.rows) {
            above.resize(std::min(above.size(), qsizetype(std::max(row.level, 0))));
            const QStringList text{ToQString(row.text)};
            above << (above.isEmpty() ? new QTreeWidgetItem(&tree, text) : new QTreeWidgetItem(above.last(), text));
            items << above.last();
        }
        tree.expandAll();
    }
    if (state.selection >= 0 && state.selection < items.size()) tree.setCurrentItem(items[state.selection]);
}

constexpr char CaretNote[] = "caret";

// Moving the caret takes a selection back, so it is moved only where the program has done so.
void SyncText(const EditState& edit, const std::u16string& text, QLineEdit& field)
{
    const QString wanted = ToQString(text);
    const bool moved = field.property(CaretNote).toULongLong() != edit.caret;
    if (field.text() != wanted)
        field.setText(wanted);
    else if (!moved)
        return;
    field.setCursorPosition(int(edit.caret));
    NoteCaret(&field, edit.caret);
}

// Arrows are grey with the field that they count in.
bool IsEnabled(const Window& window)
{
    const auto* arrows = window.As<UpDownState>();
    const Window* field = arrows ? Find(arrows->buddy) : nullptr;
    return window.enabled && (!field || field->enabled);
}

}  // namespace

bool IsRadio(const Window& window)
{
    const DWORD type = window.style & BS_TYPEMASK;
    return window.kind == Kind::Button && (type == BS_AUTORADIOBUTTON || type == BS_RADIOBUTTON);
}

bool IsGroupBox(const Window& window)
{
    return window.kind == Kind::Button && (window.style & BS_TYPEMASK) == BS_GROUPBOX;
}

bool IsOwnerDrawn(const Window& window)
{
    return window.kind == Kind::Button && (window.style & BS_TYPEMASK) == BS_OWNERDRAW;
}

bool IsTextStatic(const Window& window)
{
    const DWORD type = window.style & SS_TYPEMASK;
    return window.kind == Kind::Static && (type <= SS_RIGHT || type == SS_SIMPLE || type == SS_LEFTNOWORDWRAP);
}

void NoteCaret(QWidget* field, std::size_t caret) { field->setProperty(CaretNote, qulonglong(caret)); }

int HeldRow(const Window& window)
{
    if (const auto* list = window.As<ListState>()) return list->selection;
    if (const auto* tree = window.As<TreeState>()) return tree->selection;
    if (const auto* view = window.As<ListViewState>())
        for (std::size_t row = 0; row < view->rows.size(); ++row)
            if (view->rows[row].selected) return int(row);
    return -1;
}

int ShownRow(const QWidget* widget)
{
    if (const auto* combo = qobject_cast<const QComboBox*>(widget)) return combo->currentIndex();
    if (const auto* box = qobject_cast<const QListWidget*>(widget)) return box->currentRow();
    auto* tree = qobject_cast<QTreeWidget*>(const_cast<QWidget*>(widget));
    if (!tree || !tree->currentItem()) return -1;
    int row = 0;
    for (QTreeWidgetItemIterator item(tree); *item && *item != tree->currentItem(); ++item) ++row;
    return row;
}

void SyncWidget(const Window& window, QWidget* widget)
{
    const QSignalBlocker blocker(widget);
    widget->setEnabled(IsEnabled(window));
    widget->setVisible(window.visible);
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        button->setText(ToQString(window.text));
        if (const auto* state = window.As<ButtonState>(); state && button->isCheckable())
            button->setChecked(state->check == BST_CHECKED);
    } else if (auto* group = qobject_cast<QGroupBox*>(widget)) {
        group->setTitle(ToQString(window.text));
    } else if (auto* label = qobject_cast<QLabel*>(widget); label && !IsOwnerDrawn(window)) {
        label->setText(ToQString(window.text));
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        if (const auto* list = window.As<ListState>()) SyncItems(*list, *combo);
    } else if (auto* box = qobject_cast<QListWidget*>(widget)) {
        if (const auto* list = window.As<ListState>()) SyncItems(*list, *box);
    } else if (auto* tree = qobject_cast<QTreeWidget*>(widget)) {
        if (const auto* list = window.As<ListViewState>()) SyncRows(*list, *tree);
        if (const auto* rows = window.As<TreeState>()) SyncRows(*rows, *tree);
    } else if (auto* field = qobject_cast<QLineEdit*>(widget)) {
        if (const auto* edit = window.As<EditState>()) SyncText(*edit, window.text, *field);
    }
}

}  // namespace desktop
