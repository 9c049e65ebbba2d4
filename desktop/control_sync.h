// Brings one widget to the state of its control.
#pragma once

#include <QWidget>

#include "platform/user/window.h"

namespace desktop {

void SyncWidget(const platform::user::Window& window, QWidget* widget);

// Radio buttons other than the checked one of their group are no tab stops.
bool IsRadio(const platform::user::Window& window);
bool IsGroupBox(const platform::user::Window& window);

}  // namespace desktop
