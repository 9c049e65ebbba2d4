// Painting: what is invalid, and in which order it is drawn. The drawing of plain controls but the pictures
// of statics is the desktop's.
#include <algorithm>
#include <utility>

#include "platform/gdi/paint.h"
#include "platform/seams/surface.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

// Whether what it shows is in the picture of its dialog.
bool DrawsInPicture(const Window& control)
{
    if (IsOwnerDrawn(control)) return true;
    if (control.kind != Kind::Static) return false;
    const DWORD type = control.style & SS_TYPEMASK;
    return (type >= SS_ICON && type <= SS_WHITEFRAME) || type == SS_BITMAP;
}

void Erase(const Window& window)
{
    const Window* dialog = Find(DialogOf(window.handle));
    const DialogState* state = dialog ? dialog->As<DialogState>() : nullptr;
    if (!state || !state->picture) return;
    state->picture->SetClip(std::nullopt);
    state->picture->Erase(window.rect);
}

void DrawItem(const Window& button)
{
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(button.id);
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = button.enabled ? 0 : ODS_DISABLED;
    item.hwndItem = button.handle;
    item.hDC = gdi::OpenWindowContext(button.handle);
    item.rcItem = {0, 0, button.Width(), button.Height()};
    Send(button.parent, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    gdi::CloseWindowContext(item.hDC);
}

// What is invalidated while it is painted waits for the next time.
bool TakeInvalid(Window& window)
{
    if (!window.invalid || !ReallyVisible(window)) return false;
    window.invalid = false;
    if (std::exchange(window.erase, false) && (window.kind == Kind::Dialog || DrawsInPicture(window))) Erase(window);
    return true;
}

void PaintControls(const std::vector<HWND>& controls, bool ownerDrawn, bool* painted)
{
    for (HWND handle : controls) {
        const auto control = Keep(handle);
        if (!control || IsOwnerDrawn(*control) != ownerDrawn || !TakeInvalid(*control)) continue;
        if (!DrawsInPicture(*control)) continue;
        *painted = true;
        if (ownerDrawn)
            DrawItem(*control);
        else
            gdi::PaintStatic(handle);
    }
}

void PaintDialog(HWND handle)
{
    const auto dialog = Keep(handle);
    if (!dialog) return;
    bool painted = TakeInvalid(*dialog);
    if (painted) Send(handle, WM_PAINT, 0, 0);
    const std::vector<HWND> controls = dialog->children;
    PaintControls(controls, false, &painted);
    PaintControls(controls, true, &painted);
    if (painted) Changed(handle);
}

void MarkInvalid(Window& window, bool erase)
{
    if (!window.redraw) return;
    window.invalid = true;
    window.erase = window.erase || erase;
}

}  // namespace

void Invalidate(HWND window, bool erase)
{
    Window* found = Get(window);
    if (found && found->kind == Kind::Sheet) found = Get(DialogOf(window));
    if (!found) return;
    MarkInvalid(*found, erase);
    if (found->kind == Kind::Dialog) {
        // The dialog's own rectangle holds all of them.
        for (HWND child : found->children)
            if (Window* control = Get(child)) MarkInvalid(*control, false);
    } else {
        Changed(window);
    }
}

void Show(HWND window, bool show)
{
    const auto shown = Keep(window);
    if (!shown || shown->visible == show) return;
    shown->visible = show;
    if (show)
        Invalidate(window, true);
    else if (IsControl(*shown) && DrawsInPicture(*shown))
        Erase(*shown);
    Changed(window);
    if (show) return;
    // What nobody sees cannot keep the focus.
    const Window* focus = Find(FocusWindow());
    if (focus && (focus->handle == window || focus->parent == window) && IsControl(*focus)) TakeFocus(nullptr);
}

void PaintPending()
{
    for (HWND top : OpenWindows()) PaintDialog(DialogOf(top));
}

}  // namespace platform::user
