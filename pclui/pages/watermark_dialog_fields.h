// The edit side of the Watermark dialog: its controls show WatermarkEdit, and what the user changes goes at once
// both there and into the current row. Numbers are limited while they are typed; the field itself is put right
// when it is left. Sizes in points, shading and positions in percent, angles in degrees.
#pragma once

#include "pages/page_framework.h"
#include "resources/control_numbers.h"
#include "watermark/face_list.h"
#include "watermark/watermark_list.h"

extern bool WatermarkEditable;  // the dialog's parameter
extern bool FieldInRange;       // of the number that was typed last
extern FaceNames FaceList;      // typefaces that are offered, while the dialog is up
extern int FaceIndex;           // position of the row's face; stays where a face is not offered

// A change of the row under edit.
template <class Change>
void ChangeWatermark(HWND dialog, Change change)
{
    change(WatermarkEdit);
    if (WatermarkCurrent) change(*WatermarkCurrent);
    InvalidateControl(dialog, IDC_WM_PREVIEW);
}

// Collects the typefaces. False if they cannot be had.
bool LoadFaceList(HDC context);
void FreeFaceList();

// Sets what can be typed and counted, and fills the combo boxes.
void PrepareWatermarkFields(HWND dialog);

void ShowWatermarkEdit(HWND dialog);
// Locks the edit side and with it Delete; unlocking leaves Delete as it is.
void SetEditorDisabled(HWND dialog, bool disabled);
void LockUserSettings(HWND dialog);  // user angle and user position
void LockEditorByRow(HWND dialog);   // as the row and the user's rights demand

// What is typed and what is left behind in the fields of numbers.
enum class WatermarkNumber { Size, Shading, Angle, Vertical, Horizontal };
void CheckNumberText(HWND dialog, WatermarkNumber number);
void OnNumberTyped(HWND dialog, WatermarkNumber number);
void OnNumberLeft(HWND dialog, WatermarkNumber number);

void OnWatermarkText(HWND dialog);
void OnFacePicked(HWND dialog);
void OnItalic(HWND dialog);
void OnBold(HWND dialog);
void OnAngleModePicked(HWND dialog);
void OnCenter(HWND dialog);
void OnUserPosition(HWND dialog);
