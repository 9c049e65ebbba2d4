// The truth about every window: what it is, what it shows, what it holds. Desktops and dumps read it;
// only platform/user and the actions of actions.h change it. Coordinates are pixels at 96 dots per inch.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "platform/controls.h"

namespace platform {
class Surface;
}

namespace platform::user {

enum class Kind { Dialog, Sheet, Button, Static, Edit, ComboBox, ListBox, UpDown, ListView, TreeView, Owner };

struct ListItem {
    std::u16string text;
    LPARAM data = 0;
};

struct ButtonState {
    UINT check = BST_UNCHECKED;
};
struct StaticState {
    int resource = 0;  // icon or bitmap of SS_ICON, SS_BITMAP; 0: none
};
struct EditState {
    std::size_t limit = 30000;  // characters; binds what a user puts in
    std::size_t caret = 0;
    std::size_t anchor = 0;  // what lies between anchor and caret is selected
};
struct ListState {  // combo boxes and list boxes
    std::vector<ListItem> items;
    int selection = -1;
};
struct UpDownState {
    int lower = 0, upper = 100;
    int position = 0;  // where the next click starts from when the buddy shows no number
    HWND buddy = nullptr;
};
struct ListViewState {
    struct Column {
        std::u16string title;
        int width = 0;
    };
    struct Row {
        std::vector<std::u16string> cells;
        bool selected = false;
        LPARAM data = 0;
    };
    std::vector<Column> columns;
    std::vector<Row> rows;
    int mark = -1;
    DWORD extendedStyle = 0;
};
struct TreeState {  // the option tree of the common property sheet
    struct Row {
        std::u16string text;
        int level = 0;  // 0: at the root; a row lies below the last one before it of a lower level
    };
    std::vector<Row> rows;
    int selection = -1;
};
struct DialogState {
    HMODULE module = nullptr;  // where its template, and the pictures of its controls, come from
    int templateNumber = 0;
    DLGPROC procedure = nullptr;
    LONG_PTR user = 0, messageResult = 0;
    HWND focus = nullptr;  // the control that has, or last had, the focus
    bool modal = false, ended = false;
    INT_PTR result = 0;
    std::shared_ptr<Surface> picture;  // what the dialog and its controls have drawn
};
struct SheetPage {
    std::u16string title;
    HWND page = nullptr;  // null until it is first shown
};
struct SheetState {
    std::vector<SheetPage> pages;
    int active = -1;
    bool applyEnabled = false;
    bool helpEnabled = false;
    int changes = 0;  // PSM_CHANGED words so far
    bool ended = false;
    LONG result = 0;  // CPSUI_OK, CPSUI_CANCEL
};

struct Window {
    HWND handle = nullptr;
    Kind kind = Kind::Static;
    std::u16string className, text;
    DWORD style = 0, exStyle = 0;
    int id = -1;
    RECT rect{};                 // of a control: in its dialog's client area; of a dialog or page: 0, 0, width, height
    HWND parent = nullptr;       // of a control: its dialog; of a page: the sheet; of a top-level window: its owner
    std::vector<HWND> children;  // in the order of the template
    bool enabled = true, visible = true;
    bool redraw = true;  // WM_SETREDRAW
    bool invalid = false, erase = false;
    std::variant<std::monostate, ButtonState, StaticState, EditState, ListState, UpDownState, ListViewState, TreeState,
                 DialogState, SheetState>
        state;

    template <class T>
    T* As()
    {
        return std::get_if<T>(&state);
    }
    template <class T>
    const T* As() const
    {
        return std::get_if<T>(&state);
    }
    int Width() const { return rect.right - rect.left; }
    int Height() const { return rect.bottom - rect.top; }
};

// Null for a window that is gone.
QD_API const Window* Find(HWND window);
QD_API HWND TopWindow();                 // the dialog or sheet that takes input now; null: none
QD_API std::vector<HWND> OpenWindows();  // dialogs and sheets from the lowest to the top
QD_API HWND DialogOf(HWND window);       // of a sheet: its active page; of a control: its dialog
QD_API bool Ended(HWND top);             // whether the dialog or sheet has been ended, or is gone
QD_API HWND Control(HWND dialog, int number);
QD_API bool ReallyVisible(const Window& window);  // itself and all above it
QD_API std::size_t WindowCount();                 // all windows there are, for leak tests

}  // namespace platform::user
