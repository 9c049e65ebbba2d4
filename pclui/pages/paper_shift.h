// Image shift: whether the image is moved on the sheet, and how far, in points. The distances stay while it is
// turned off.
#pragma once

#include "platform/user.h"

void InitImageShift(HWND dialog);
void DefaultImageShift(HWND dialog);

void OnShiftOff(HWND dialog);
void OnShiftOn(HWND dialog);
void OnShiftXTyped(HWND dialog);
void OnShiftXLeft(HWND dialog);
void OnShiftYTyped(HWND dialog);
void OnShiftYLeft(HWND dialog);
