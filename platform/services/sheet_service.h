// The common property sheet service for the host: runs a PFNPROPSHEETUI as CommonPropertySheetUIW of
// compstui.dll does, but outside the fault plan.
#pragma once

#include <optional>

#include "platform/services.h"

namespace platform::services {

// Above 0: the sheet ran and *result holds what the function reported (CPSUI_OK, CPSUI_CANCEL).
// Below 0: it could not be set up.
QD_API LONG RunCommonSheet(HWND owner, PFNPROPSHEETUI function, LPARAM lParam, DWORD* result);

// How the last common sheet ended since the last call of this function: CPSUI_OK, CPSUI_CANCEL, or below 0
// when it could not be brought up. Absent: none was asked for. An entry that runs a sheet does not always say.
QD_API std::optional<LONG> TakeSheetOutcome();

// A window of the program that asks for the sheet; its module file is SystemFacts::OwnerModule.
QD_API HWND MakeOwnerWindow();
QD_API void DestroyOwnerWindow(HWND owner);

}  // namespace platform::services

extern "C" {

// What GetProcAddress finds in compstui.dll.
QD_API LONG CommonPropertySheetUIW(HWND owner, PFNPROPSHEETUI function, LPARAM lParam, DWORD* result);

// The call-in that a sheet's function gets: adds pages and options while it is set up. A result that it sets
// is taken and has no effect, since the end of the sheet decides.
QD_API LONG_PTR pfnComPropSheet(HANDLE sheet, UINT function, LPARAM param1, LPARAM param2);

}  // extern "C"
