// What assistive programs are told of the controls of a dialog, and where mnemonics and the Tab key lead.
#pragma once

#include <QVector>
#include <QWidget>

#include "platform/user/window.h"

namespace desktop {

// A control and what shows it, in the order of the template.
struct ControlRow {
    HWND handle;
    QWidget* widget;  // null: the control shows in the picture alone
};

// Names fields by the label or frame before them, arrows by their field, and tells what stands around a control.
void NameControls(const QVector<ControlRow>& rows);

// Follows what can be reached now: one tab stop for each group of radio buttons, and labels that lead to the
// field behind them that shows.
void SyncStops(const QVector<ControlRow>& rows);

// The first tab stop behind a control; null if there is none.
HWND NextStop(const QVector<ControlRow>& rows, HWND after);

}  // namespace desktop
