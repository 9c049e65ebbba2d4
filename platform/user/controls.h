// The controls: how each answers messages, and what a user's actions do to it. The actions here are only
// the control's own part: whether it can be reached, focus and painting are the caller's (actions.cc).
#pragma once

#include "platform/user/windows.h"

namespace platform::user {

// Messages that every window answers alike: its text, and painting on and off.
LRESULT CommonMessage(Window& window, UINT message, WPARAM wParam, LPARAM lParam);

LRESULT ButtonMessage(Window& button, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT EditMessage(Window& edit, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT ListMessage(Window& list, UINT message, WPARAM wParam, LPARAM lParam);  // combo boxes too
LRESULT UpDownMessage(Window& upDown, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT ListViewMessage(Window& view, UINT message, WPARAM wParam, LPARAM lParam);

// The length and the text with its terminator, as much as there is room for.
int CopyText(std::u16string_view text, WCHAR* target, std::size_t room);

// Changes itself if it is automatic, and notifies.
void PressControl(HWND button);

void SelectText(HWND edit, std::size_t anchor, std::size_t caret);
// Over the selection; false if the control takes no such character now.
bool TypeCharacter(HWND edit, char16_t character);
void DeleteSelection(HWND edit);
void PasteText(HWND edit, std::u16string_view text);
void ReplaceText(HWND edit, std::u16string_view text, std::size_t caret);

void PickItem(HWND list, int row);

void AttachBuddy(HWND upDown, HWND buddy);
void StepUpDown(HWND upDown, bool up);

// Selects this row alone and moves the mark there.
void PickRow(HWND view, int row);

}  // namespace platform::user
