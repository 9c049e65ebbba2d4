// The table of all windows and what of them concerns nobody outside this folder and the controls.
#pragma once

#include <unordered_map>

#include "platform/user/windows.h"

namespace platform::user {

struct Node : Window {
    bool dying = false;        // is being destroyed
    Handler handler;           // of a window that is no control and no dialog of a module
    SheetActions actions;      // of a sheet
    HWND lastFocus = nullptr;  // of a top-level window: what has, or last had, the focus in it
};

// Written by this folder alone; all on the thread of the windows.
struct WindowTable {
    std::unordered_map<HWND, std::shared_ptr<Node>> windows;
    std::vector<HWND> open;  // what RunModal runs, from the lowest to the top
    HWND focus = nullptr;
    std::uintptr_t lastHandle = 0x10000;  // handles are never given twice
};
WindowTable& Table();

std::shared_ptr<Node> KeepNode(HWND window);
Node* NodeOf(HWND window);
std::shared_ptr<Node> AddNode(Kind kind, std::u16string className, HWND parent);

bool IsControl(const Window& window);
bool IsPage(const Window& window);

// As Changed, and the control is to be painted again.
void Touch(Window& window);

// Whether a user can reach it now: there, visible, enabled, in the window that takes input.
Outcome Reachable(HWND window);

// Whether it can have the focus at all.
bool TakesFocus(const Window& window);
bool IsPushButton(const Window& window);
bool IsRadioButton(const Window& window);
bool IsOwnerDrawn(const Window& window);

// The controls of the dialog from one WS_GROUP to the next around this one.
std::vector<HWND> GroupOf(const Window& control);
// The next stop of the Tab key behind (or before) a control, around the end; null: there is none. With
// control null: the first (or last) one. *wrapped tells whether the end was passed.
HWND NextTabStop(const Window& dialog, HWND control, bool back, bool* wrapped = nullptr);

// What the focus goes to when it is given to this window; null: nothing in it takes it.
HWND FocusTarget(HWND window);
// Sets the focus without any notice.
void SetFocusSilently(HWND window);

}  // namespace platform::user
