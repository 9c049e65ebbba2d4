// What a user does. Each action does what mouse and keyboard would do to the layer's windows, sends the
// messages in the platform's order, and paints what is pending before it returns. An action never reaches
// past what a user could do: it says why it was refused instead.
#pragma once

#include <string_view>

#include "platform/types.h"

namespace platform::user {

enum class Outcome {
    Done,
    Absent,  // there is no such control
    Hidden,
    Disabled,
    Unsuited,  // the action does not go with this kind of control
    NoRow,     // there is no such row, text or page
    ReadOnly,
};

enum class Key { Tab, BackTab, Enter, Escape, F1, Up, Down, Left, Right, Space };
enum class SheetButton { Ok, Cancel, Apply, Help };

QD_API Outcome Focus(HWND control);
QD_API Outcome Click(HWND button);
QD_API Outcome Pick(HWND list, int row);                     // combo box or list box
QD_API Outcome SelectRow(HWND view, int row);                // list view or tree view
QD_API Outcome Type(HWND edit, std::u16string_view text);    // over what is there, character by character
QD_API Outcome Append(HWND edit, std::u16string_view text);  // at the end, character by character
QD_API Outcome Paste(HWND edit, std::u16string_view text);   // over what is there, one change notice
// The user has edited the field in a window: its text is now this. One change notice; limits and digit
// rules hold as while typing.
QD_API Outcome EditTo(HWND edit, std::u16string_view text, std::size_t caret);
QD_API Outcome Spin(HWND upDown, bool up);
QD_API Outcome Press(HWND top, Key key);  // on the dialog or sheet
QD_API Outcome ShowPage(HWND sheet, int page);
QD_API Outcome PressButton(HWND sheet, SheetButton button);
QD_API Outcome ContextHelp(HWND control);  // F1 or the question mark on a control
QD_API void Close(HWND top);               // the close box: cancels a sheet or a modal dialog
QD_API void PaintPending();

}  // namespace platform::user
