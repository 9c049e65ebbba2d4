// About: a picture, the printer's name, the version and two notices. It is the last page of the device sheet,
// and a modal dialog that the page of device options opens.
#pragma once

#include "platform/user.h"

// 1 if the dialog is to be a page and shows no OK. Set by the device sheet, cleared by the page of device options.
extern int AboutIsPage;

// 0 for every message.
extern "C" QD_API INT_PTR About(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
