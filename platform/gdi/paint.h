// What the painting of windows needs of the drawing: it is the layer's own and neither counted nor traced.
#pragma once

#include "platform/gdi.h"

namespace platform::gdi {

// A context of a control or dialog, as WM_DRAWITEM carries it; null for a window that is gone.
QD_API HDC OpenWindowContext(HWND window);
QD_API void CloseWindowContext(HDC context);

// Draws what a static shows that is no text (icon, bitmap, frame, filled rectangle) into the picture of its
// dialog; nothing for any other control. Its icon or bitmap is StaticState::resource of the dialog's module.
QD_API void PaintStatic(HWND control);

}  // namespace platform::gdi
