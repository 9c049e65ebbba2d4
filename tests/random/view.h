// What is on top right now, for rules: the dialog, its controls and the record, asked in a word each.
#pragma once

#include <cstdlib>
#include <string>

#include "driver_dev_mode.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/memory_stores.h"
#include "platform/user/windows.h"
#include "tests/random/start.h"

namespace random_use {

inline constexpr long NoNumber = -1000000;

struct View {
    const Start& start;
    HWND page;   // the dialog on top, or the sheet's page in front
    int dialog;  // its template
    const DriverDevMode& record;
    const DriverDevMode& before;  // the record before the step
    bool mayEdit;                 // this sheet's user
    bool fromShell;
    int touched;                    // the control that the step was on, as in changes.h
    int dialogBefore;               // and its dialog
    int closed = 0;                 // the dialog that ended in the step with OK
    std::u16string_view file = {};  // what the user answers to a file dialog
    const platform::user::Window& Of(int control) const
    {
        static const platform::user::Window none;
        const auto* window = platform::user::Find(platform::user::Control(page, control));
        return window ? *window : none;
    }
    bool Enabled(int control) const { return Of(control).enabled; }
    bool Visible(int control) const { return Of(control).visible; }
    bool Checked(int control) const
    {
        const auto* button = Of(control).As<platform::user::ButtonState>();
        return button && button->check != BST_UNCHECKED;
    }
    const platform::user::ListState& List(int control) const
    {
        static const platform::user::ListState none;
        const auto* list = Of(control).As<platform::user::ListState>();
        return list ? *list : none;
    }
    int Count(int control) const { return static_cast<int>(List(control).items.size()); }
    int Selection(int control) const { return List(control).selection; }
    std::u16string Item(int control, int row) const
    {
        return row < 0 || row >= Count(control) ? std::u16string()
                                                : List(control).items[static_cast<std::size_t>(row)].text;
    }
    LPARAM Data(int control) const
    {
        const auto& list = List(control);
        return list.selection < 0 ? -1 : list.items[static_cast<std::size_t>(list.selection)].data;
    }
    bool Offers(int control, LPARAM data) const
    {
        for (const auto& item : List(control).items)
            if (item.data == data) return true;
        return false;
    }
    const std::u16string& Text(int control) const { return Of(control).text; }
    long Number(int control) const  // nothing is 0, as the driver reads it; what is more than a number is none
    {
        const std::string text = platform::ToUtf8(Text(control));
        char* end = nullptr;
        const long number = std::strtol(text.c_str(), &end, 10);
        return *end == 0 ? number : NoNumber;
    }
    bool Typing(int control) const  // what is typed is put right when the field is left
    {
        return platform::user::FocusWindow() == platform::user::Control(page, control);
    }
    // The number that a field shows, or what it has to show while it is typed into.
    long Shows(int control, long held) const { return Typing(control) ? held : Number(control); }
};

}  // namespace random_use
