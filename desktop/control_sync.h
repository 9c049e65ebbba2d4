// Brings one widget to the state of its control.
#pragma once

#include <QWidget>

#include "platform/user/window.h"

namespace desktop {

void SyncWidget(const platform::user::Window& window, QWidget* widget);

bool IsRadio(const platform::user::Window& window);
bool IsGroupBox(const platform::user::Window& window);
bool IsOwnerDrawn(const platform::user::Window& window);
bool IsTextStatic(const platform::user::Window& window);

// Notes that the user has put a field's caret there: only a caret that the program has moved since is followed.
void NoteCaret(QWidget* field, std::size_t caret);

// The selected row of a list, drop-down list, list view or tree, as the layer holds it and as the widget shows
// it; -1: none, or no such control.
int HeldRow(const platform::user::Window& window);
int ShownRow(const QWidget* widget);

}  // namespace desktop
