#include "access.h"

#include "control_sync.h"
#include "qt_surface.h"

namespace desktop {

using namespace platform::user;

namespace {

bool OnOneLine(const Window& a, const Window& b) { return a.rect.top < b.rect.bottom && b.rect.top < a.rect.bottom; }

bool IsField(const Window& window)
{
    return window.kind == Kind::Edit || window.kind == Kind::ComboBox || window.kind == Kind::ListBox ||
           window.kind == Kind::ListView || window.kind == Kind::TreeView;
}

QString PlainText(const Window& window)
{
    QString text = ToQString(window.text).remove('&');
    if (text.endsWith(':')) text.chop(1);
    return text;
}

// The nearest label or frame before a control that does not begin to its right: what does is the unit or range
// of the field before.
QString Heading(const QVector<ControlRow>& rows, qsizetype place)
{
    const Window* control = Find(rows[place].handle);
    for (qsizetype i = place; i-- > 0;) {
        const Window* before = Find(rows[i].handle);
        if (before && (IsTextStatic(*before) || IsGroupBox(*before)) && before->rect.left <= control->rect.left &&
            !before->text.empty())
            return PlainText(*before);
    }
    const Window* dialog = Find(control->parent);
    return dialog ? ToQString(dialog->text) : QString();
}

// The labels behind a field on its line: unit and range.
QString Units(const QVector<ControlRow>& rows, qsizetype place)
{
    const Window* field = Find(rows[place].handle);
    QStringList units;
    for (qsizetype i = place + 1; i < rows.size(); ++i) {
        const Window* behind = Find(rows[i].handle);
        if (behind && behind->kind == Kind::UpDown) continue;
        if (!behind || !IsTextStatic(*behind) || !OnOneLine(*field, *behind)) break;
        units << PlainText(*behind);
    }
    return units.join(' ');
}

void NameArrows(const QVector<ControlRow>& rows, const Window& upDown, QWidget* widget)
{
    for (const ControlRow& row : rows)
        if (row.widget && row.handle == upDown.As<UpDownState>()->buddy)
            widget->setAccessibleName(row.widget->accessibleName());
    for (auto* arrow : widget->findChildren<QToolButton*>())
        arrow->setAccessibleName(widget->accessibleName() + (arrow->arrowType() == Qt::UpArrow ? " up" : " down"));
}

// A drop-down list's own name is what it shows; what it is for, a label tells that leads to it.
void GiveLabel(QWidget* list, const QString& text)
{
    auto* label = new QLabel(text, list->parentWidget());
    label->hide();
    label->setBuddy(list);
}

bool HasMnemonic(const QString& text) { return QString(text).remove("&&").contains('&'); }

// A radio group is one stop: its checked button, or the first that can be reached.
void SyncRadioGroup(const QVector<ControlRow>& group)
{
    const ControlRow* stop = nullptr;
    for (const ControlRow& row : group) {
        const Window* radio = Find(row.handle);
        if (radio->visible && radio->enabled && (!stop || radio->As<ButtonState>()->check)) stop = &row;
    }
    for (const ControlRow& row : group) row.widget->setFocusPolicy(&row == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

}  // namespace

void NameControls(const QVector<ControlRow>& rows)
{
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const Window* window = Find(rows[i].handle);
        QWidget* widget = rows[i].widget;
        if (!window || !widget) continue;
        if (IsField(*window)) {
            widget->setAccessibleName(Heading(rows, i));
            widget->setAccessibleDescription(Units(rows, i));
            if (window->kind == Kind::ComboBox) GiveLabel(widget, Heading(rows, i));
        } else if (window->kind == Kind::UpDown) {
            NameArrows(rows, *window, widget);
        } else if (IsOwnerDrawn(*window)) {
            widget->setAccessibleName(window->text.empty() ? QObject::tr("Picture") : PlainText(*window));
        } else if (qobject_cast<QRadioButton*>(widget) || qobject_cast<QCheckBox*>(widget)) {
            widget->setAccessibleDescription(Heading(rows, i));
        }
    }
}

void SyncStops(const QVector<ControlRow>& rows)
{
    QVector<ControlRow> group;
    for (const ControlRow& row : rows) {
        const Window* window = Find(row.handle);
        if (!window || !row.widget) continue;
        if (window->style & WS_GROUP) {
            SyncRadioGroup(group);
            group.clear();
        }
        if (IsRadio(*window)) group << row;
    }
    SyncRadioGroup(group);
    for (const ControlRow& row : rows) {
        auto* label = qobject_cast<QLabel*>(row.widget);
        if (!label || !HasMnemonic(label->text())) continue;
        const HWND next = NextStop(rows, row.handle);
        for (const ControlRow& other : rows)
            if (other.handle == next && other.widget && label->buddy() != other.widget) label->setBuddy(other.widget);
    }
}

HWND NextStop(const QVector<ControlRow>& rows, HWND after)
{
    bool behind = false;
    for (const ControlRow& row : rows) {
        const Window* window = Find(row.handle);
        if (behind && window && window->visible && row.widget && (row.widget->focusPolicy() & Qt::TabFocus))
            return row.handle;
        if (row.handle == after) behind = true;
    }
    return nullptr;
}

}  // namespace desktop
