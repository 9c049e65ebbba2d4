// The desktop in real windows.
#pragma once

#include <memory>

#include "platform/seams/desktop.h"

namespace desktop {

// Needs a screen (HasDisplay); starts Qt.
std::shared_ptr<platform::Desktop> MakeQtDesktop();

}  // namespace desktop
