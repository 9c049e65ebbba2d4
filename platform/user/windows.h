// How the rest of the layer makes, reaches and changes windows. The functions of user.h are what a module
// calls; the layer itself uses these, so that the fault plan counts the module's calls alone. A window that
// is gone is never an error that ends the program: functions then do nothing and say so by their result.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/user/actions.h"
#include "platform/user/dialog_template.h"
#include "platform/user/window.h"

namespace platform::user {

// Answers the messages of a window that is neither a control nor a dialog of a module: the property sheet,
// the file dialog that a hook talks to.
using Handler = std::function<LRESULT(HWND window, UINT message, WPARAM wParam, LPARAM lParam)>;

// What a user does to a property sheet. Neither moves the focus: the mouse has done so before, the keyboard
// does not.
struct SheetActions {
    std::function<Outcome(HWND sheet, int page)> showPage;
    std::function<Outcome(HWND sheet, SheetButton button)> press;
};

// Looking up. Get: null for a window that is gone; the pointer holds until the next message is sent.
// Keep: stays readable as long as it is held, also when the window is destroyed meanwhile.
QD_API Window* Get(HWND window);
QD_API std::shared_ptr<Window> Keep(HWND window);
QD_API HWND TopLevelOf(HWND window);  // the dialog, sheet or owner window that this one belongs to

// Making and destroying. A dialog or page comes hidden, with all its controls and a picture of its own;
// WM_INITDIALOG has been sent with the parameter, and its DialogState::focus is where the focus is to go
// first. Null, with the last error set, when there is no such template or it is damaged. The parent of a page
// is its sheet, that of another dialog the owner (then its top-level window counts; it may be null).
struct DialogPlan {
    HMODULE module = nullptr;
    int templateNumber = 0;
    HWND parent = nullptr;
    DLGPROC procedure = nullptr;
    LPARAM parameter = 0;
    bool modal = false;  // a dialog of its own, also when the parent is a sheet
};
QD_API HWND MakeDialog(const DialogPlan& plan);
// The same from a template in memory, for dialogs of the layer's own.
QD_API HWND MakeDialog(const DialogPlan& plan, const DialogTemplate& layout);
QD_API HWND MakeSheet(HWND owner, std::u16string title, Handler handler, SheetActions actions);
QD_API HWND MakeWindow(Kind kind, std::u16string className, HWND parent, Handler handler);
// Sends WM_DESTROY to the window and then to each below it, and releases them all.
QD_API void Destroy(HWND window);

// Messages. Send returns when the message has been handled; 0 for a window that is gone.
QD_API LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// WM_COMMAND to the control's dialog: MAKELONG(its number, code) and its window.
QD_API void NotifyParent(HWND control, WORD code);
// WM_NOTIFY to a dialog; the header may stand at the beginning of a longer structure. The result is what
// the procedure left in DWL_MSGRESULT when it returned TRUE, else 0.
QD_API LRESULT Notify(HWND dialog, NMHDR& header);

// Changing. Each tells the desktop, and invalidates what has to be painted again.
QD_API void Show(HWND window, bool show);  // showing a dialog invalidates it and all its controls
QD_API void Enable(HWND window, bool enable);
QD_API void SetText(HWND window, std::u16string_view text);  // an edit sends its change notice
QD_API void Invalidate(HWND window, bool erase);             // a dialog: with all its controls
QD_API void Changed(HWND window);                            // only tells the desktop
QD_API void AppendItem(HWND list, std::u16string_view text, LPARAM data);
QD_API void AppendTreeRow(HWND tree, std::u16string_view text, int level);
QD_API void SelectTreeRow(HWND tree, int row);  // the dialog hears of a new selection
QD_API void SetCheck(HWND button, UINT check);

// Focus. The field that had it gets its kill-focus notice; null takes it away. Giving it to a dialog or
// page means the control that had it last there; to a sheet, its buttons. FocusWindow: what has it now.
QD_API void TakeFocus(HWND window);
QD_API HWND FocusWindow();

// Runs a dialog or sheet, made before, on top of all others: takes the focus, shows and paints it, and
// returns when it has been ended (true) or when the desktop gave up (false; it has then been cancelled as
// by its close box, if it let itself be). It is not destroyed. False at once when there is no desktop. The
// window below gets the focus back without a notice and is invalidated.
QD_API bool RunModal(HWND top);
// Ends a dialog that runs; a sheet ends itself by SheetState::ended.
QD_API bool End(HWND dialog, INT_PTR result);

// Stands while something else than a window of the layer is on top (message box, file dialog): takes the
// focus away and paints what is pending; afterwards gives the focus back without a notice. What was covered
// keeps its picture.
class QD_API Covered {
  public:
    Covered();
    ~Covered();
    Covered(const Covered&) = delete;
    Covered& operator=(const Covered&) = delete;

  private:
    HWND focus_;
};

}  // namespace platform::user
