// What drawing needs to know of a window: its client rectangle, and where that lies in its dialog's picture.
#pragma once

#include <memory>
#include <optional>

#include "platform/types.h"

namespace platform {
class Surface;
}

namespace platform::gdi {

// The number of a control, 0 for a dialog or sheet; absent for a window that is gone.
std::optional<int> ControlNumber(HWND window);

// From 0, 0; absent for a window that is gone.
std::optional<RECT> ClientRectangle(HWND window);

struct WindowArea {
    std::shared_ptr<Surface> picture;  // of the dialog; null: none yet
    RECT client{};                     // in the picture
};
std::optional<WindowArea> AreaOf(HWND window);

}  // namespace platform::gdi
