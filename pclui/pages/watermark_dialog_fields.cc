#include "pages/watermark_dialog_fields.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "pages/control_state.h"
#include "platform/controls.h"
#include "platform/kernel.h"
#include "watermark/placement.h"

bool WatermarkEditable = false;
bool FieldInRange = true;
FaceNames FaceList;
int FaceIndex = 0;

namespace {

constexpr WPARAM TextLimit = 72;  // characters of name and text
constexpr int TextChars = TextLimit + 1;
constexpr int FaceChars = static_cast<int>(std::size(WatermarkRecord{}.wmFaceName));

enum AngleMode : SHORT { Horizontal, Vertical, Diagonal, UserAngle };
static_assert(Diagonal == AngleModeDiagonal);
constexpr SHORT VerticalAngle = 90;
constexpr SHORT CenterPosition = 0, UserPosition = 1;

// A field of digits alone needs no look at its text, and is shown anew only if its number was out of range.
struct NumberRow {
    int control, spin;
    int characters;  // that can be typed
    SHORT least, greatest;
    SHORT WatermarkRecord::*value;
    bool isSigned, keepsRange;
    int checked;  // characters that are looked at for anything but a number
};
// clang-format off
constexpr NumberRow Fields[] = {
    {IDC_WM_SIZE,       IDC_WM_SIZE_SPIN,       3, 8,    200, &WatermarkRecord::wmSize,      false, true,  0},
    {IDC_WM_SHADING,    IDC_WM_SHADING_SPIN,    3, 5,    100, &WatermarkRecord::wmShading,   false, true,  0},
    {IDC_WM_ANGLE,      IDC_WM_ANGLE_SPIN,      4, -180, 180, &WatermarkRecord::wmAngle,     true,  true,  20},
    {IDC_WM_VERTICAL,   IDC_WM_VERTICAL_SPIN,   4, -100, 100, &WatermarkRecord::wmPositionY, true,  false, 16},
    {IDC_WM_HORIZONTAL, IDC_WM_HORIZONTAL_SPIN, 4, -100, 100, &WatermarkRecord::wmPositionX, true,  false, 16},
};
// clang-format on
constexpr int MostChecked = 20;

const NumberRow& FieldOf(WatermarkNumber number) { return Fields[static_cast<std::size_t>(number)]; }

constexpr int EditorControls[] = {
    IDC_WM_NAME,          IDC_WM_TEXT,        IDC_WM_SHADING,        IDC_WM_SHADING_SPIN,     IDC_WM_ITALIC,
    IDC_WM_BOLD,          IDC_WM_FACE,        IDC_WM_SIZE,           IDC_WM_SIZE_SPIN,        IDC_WM_ANGLE_MODE,
    IDC_WM_ANGLE,         IDC_WM_ANGLE_LABEL, IDC_WM_ANGLE_SPIN,     IDC_WM_CENTER,           IDC_WM_USER_POSITION,
    IDC_WM_VERTICAL,      IDC_WM_HORIZONTAL,  IDC_WM_VERTICAL_SPIN,  IDC_WM_HORIZONTAL_SPIN,  IDC_WM_NAME_LABEL,
    IDC_WM_TEXT_LABEL,    IDC_WM_FONT_GROUP,  IDC_WM_FACE_LABEL,     IDC_WM_SIZE_LABEL,       IDC_WM_STYLE_LABEL,
    IDC_WM_SHADING_LABEL, IDC_WM_ANGLE_GROUP, IDC_WM_POSITION_GROUP, IDC_WM_HORIZONTAL_LABEL, IDC_WM_VERTICAL_LABEL,
};
constexpr int UserAngleControls[] = {IDC_WM_ANGLE, IDC_WM_ANGLE_LABEL};
constexpr int UserAngleWithArrows[] = {IDC_WM_ANGLE, IDC_WM_ANGLE_SPIN, IDC_WM_ANGLE_LABEL};
constexpr int UserPositionControls[] = {IDC_WM_HORIZONTAL_LABEL, IDC_WM_VERTICAL_LABEL,  IDC_WM_VERTICAL,
                                        IDC_WM_HORIZONTAL,       IDC_WM_HORIZONTAL_SPIN, IDC_WM_VERTICAL_SPIN};

// The row without a watermark cannot be edited, nor can anything by a user without rights.
bool RowIsOpen() { return WatermarkIndex != 0 && WatermarkEditable; }

void ShowNumber(HWND dialog, const NumberRow& field)
{
    SetDlgItemInt(dialog, field.control, static_cast<UINT>(INT{WatermarkEdit.*field.value}), field.isSigned);
}

// 0 for what is no number. A field that cannot be read looks like that, so it is asked twice.
LONG TypedNumber(HWND dialog, const NumberRow& field)
{
    BOOL translated = FALSE;
    UINT typed = GetDlgItemInt(dialog, field.control, &translated, field.isSigned);
    if (!translated) typed = GetDlgItemInt(dialog, field.control, nullptr, field.isSigned);
    if (field.isSigned) return static_cast<LONG>(typed);
    return static_cast<LONG>(std::min<UINT>(typed, 0x7FFFFFFF));
}

// Digits and at most one sign, in whatever order.
bool LooksLikeNumber(std::u16string_view text)
{
    const auto signs = std::ranges::count(text, u'-');
    const auto digits = std::ranges::count_if(text, [](WCHAR c) { return c >= u'0' && c <= u'9'; });
    return signs <= 1 && signs + digits == static_cast<std::ptrdiff_t>(text.size());
}

std::u16string_view FaceOf(const WatermarkRecord& watermark)
{
    const auto* end = std::find(std::begin(watermark.wmFaceName), std::end(watermark.wmFaceName), u'\0');
    return {watermark.wmFaceName, static_cast<std::size_t>(end - watermark.wmFaceName)};
}

void FindFaceIndex()
{
    const auto found =
        std::ranges::find_if(FaceList, [](const FaceName& face) { return face == FaceOf(WatermarkEdit); });
    if (found != FaceList.end()) FaceIndex = static_cast<int>(found - FaceList.begin());
}

void SetChecked(HWND dialog, int control, LONG WatermarkRecord::*field)
{
    const LONG checked = IsChecked(dialog, control) ? 1 : 0;
    ChangeWatermark(dialog, [&](WatermarkRecord& row) { row.*field = checked; });
}

// A row that is refused is offered once more: without it all rows behind would stand for others.
void AddRow(HWND dialog, int combo, UINT message, int row, const WCHAR* text)
{
    const auto add = [&] {
        return SendDlgItemMessageW(dialog, combo, message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
    };
    if (add() < 0) add();
}

}  // namespace

bool LoadFaceList(HDC context)
{
    FreeFaceList();
    return EnumFontsW(context, nullptr, CollectFaceNames, reinterpret_cast<LPARAM>(&FaceList)) != 0;
}

void FreeFaceList() { FaceNames().swap(FaceList); }

void PrepareWatermarkFields(HWND dialog)
{
    for (const int control : {IDC_WM_NAME, IDC_WM_TEXT})
        SendDlgItemMessageW(dialog, control, EM_LIMITTEXT, TextLimit, 0);
    for (const NumberRow& field : Fields) {
        SendDlgItemMessageW(dialog, field.control, EM_LIMITTEXT, static_cast<WPARAM>(field.characters), 0);
        const DWORD range = MakeLong(static_cast<WORD>(field.greatest), static_cast<WORD>(field.least));
        SendDlgItemMessageW(dialog, field.spin, UDM_SETRANGE, 0, static_cast<LPARAM>(range));
    }
    for (int string = IDS_ANGLE_HORIZONTAL; string <= IDS_ANGLE_USER; ++string)
        AddRow(dialog, IDC_WM_ANGLE_MODE, CB_INSERTSTRING, -1, LoadResString(string, 0));
    for (const FaceName& face : FaceList) AddRow(dialog, IDC_WM_FACE, CB_ADDSTRING, 0, face.c_str());
    FindFaceIndex();
}

// Each text that is set comes back as a change of its field, the name's as its row in the list.
void ShowWatermarkEdit(HWND dialog)
{
    SetDlgItemTextW(dialog, IDC_WM_TEXT, WatermarkEdit.wmText);
    SetDlgItemTextW(dialog, IDC_WM_NAME, WatermarkEdit.wmName);
    FindFaceIndex();
    SelectInCombo(dialog, IDC_WM_FACE, FaceIndex);
    ShowNumber(dialog, FieldOf(WatermarkNumber::Size));
    ShowNumber(dialog, FieldOf(WatermarkNumber::Shading));
    CheckControl(dialog, IDC_WM_ITALIC, WatermarkEdit.wmItalic != 0);
    CheckControl(dialog, IDC_WM_BOLD, WatermarkEdit.wmBold != 0);
    SelectInCombo(dialog, IDC_WM_ANGLE_MODE, WatermarkEdit.wmAngleMode);
    ShowNumber(dialog, FieldOf(WatermarkNumber::Angle));
    EnableControls(dialog, UserAngleControls, RowIsOpen() && WatermarkEdit.wmAngleMode == UserAngle);
    const bool userPosition = WatermarkEdit.wmPositionMode != CenterPosition;
    CheckRadioButton(dialog, IDC_WM_CENTER, IDC_WM_USER_POSITION, userPosition ? IDC_WM_USER_POSITION : IDC_WM_CENTER);
    EnableControls(dialog, UserPositionControls, RowIsOpen() && userPosition);
    ShowNumber(dialog, FieldOf(WatermarkNumber::Vertical));
    ShowNumber(dialog, FieldOf(WatermarkNumber::Horizontal));
}

void SetEditorDisabled(HWND dialog, bool disabled)
{
    EnableControls(dialog, EditorControls, !disabled);
    if (disabled) EnableControl(dialog, IDC_WM_DELETE, false);
}

void LockUserSettings(HWND dialog)
{
    EnableControls(dialog, UserAngleControls, false);
    EnableControls(dialog, UserPositionControls, false);
}

void LockEditorByRow(HWND dialog) { SetEditorDisabled(dialog, !RowIsOpen()); }

void CheckNumberText(HWND dialog, WatermarkNumber number)
{
    const NumberRow& field = FieldOf(number);
    WCHAR text[MostChecked + 1] = {};
    GetDlgItemTextW(dialog, field.control, text, field.checked + 1);
    if (LooksLikeNumber(text)) return;
    const SHORT value = WatermarkEdit.*field.value;
    WCHAR before[8] = {};
    if (value != 0) wsprintfW(before, u"%d", INT{value});
    SetDlgItemTextW(dialog, field.control, before);
}

void OnNumberTyped(HWND dialog, WatermarkNumber number)
{
    const NumberRow& field = FieldOf(number);
    const LONG typed = TypedNumber(dialog, field);
    const auto value = static_cast<SHORT>(std::clamp<LONG>(typed, field.least, field.greatest));
    if (field.keepsRange) FieldInRange = value == typed;
    ChangeWatermark(dialog, [&](WatermarkRecord& row) {
        row.*field.value = value;
        if (number == WatermarkNumber::Size) row.wmSizeLow = std::min(row.wmSizeLow, value);
    });
}

void OnNumberLeft(HWND dialog, WatermarkNumber number)
{
    const NumberRow& field = FieldOf(number);
    if (field.isSigned || !FieldInRange) ShowNumber(dialog, field);
}

void OnWatermarkText(HWND dialog)
{
    WCHAR text[TextChars] = {};
    if (GetDlgItemTextW(dialog, IDC_WM_TEXT, text, TextChars) == 0)
        GetDlgItemTextW(dialog, IDC_WM_TEXT, text, TextChars);
    ChangeWatermark(
        dialog, [&](WatermarkRecord& row) { CopyToField(row.wmText, static_cast<int>(std::size(row.wmText)), text); });
}

void OnFacePicked(HWND dialog)
{
    WCHAR face[FaceChars] = {};
    if (GetDlgItemTextW(dialog, IDC_WM_FACE, face, FaceChars) == 0) return;
    FaceIndex = ComboSelection(dialog, IDC_WM_FACE);
    ChangeWatermark(dialog, [&](WatermarkRecord& row) { CopyToField(row.wmFaceName, FaceChars, face); });
}

void OnItalic(HWND dialog) { SetChecked(dialog, IDC_WM_ITALIC, &WatermarkRecord::wmItalic); }
void OnBold(HWND dialog) { SetChecked(dialog, IDC_WM_BOLD, &WatermarkRecord::wmBold); }

void OnAngleModePicked(HWND dialog)
{
    const auto mode = static_cast<SHORT>(ComboSelection(dialog, IDC_WM_ANGLE_MODE));
    if (mode < Horizontal || mode > UserAngle) return;
    const SHORT angles[] = {0, VerticalAngle, DiagonalAngle, WatermarkEdit.wmAngle};
    EnableControls(dialog, UserAngleWithArrows, mode == UserAngle);
    ChangeWatermark(dialog, [&](WatermarkRecord& row) {
        row.wmAngleMode = mode;
        row.wmAngle = angles[mode];
    });
    ShowNumber(dialog, FieldOf(WatermarkNumber::Angle));
}

void OnCenter(HWND dialog)
{
    ChangeWatermark(
        dialog, [](WatermarkRecord& row) { row.wmPositionMode = row.wmPositionX = row.wmPositionY = CenterPosition; });
    ShowNumber(dialog, FieldOf(WatermarkNumber::Vertical));
    ShowNumber(dialog, FieldOf(WatermarkNumber::Horizontal));
    EnableControls(dialog, UserPositionControls, false);
}

// The text stays where it is until a position is typed, so nothing is drawn anew.
void OnUserPosition(HWND dialog)
{
    WatermarkEdit.wmPositionMode = UserPosition;
    if (WatermarkCurrent) WatermarkCurrent->wmPositionMode = UserPosition;
    CheckRadioButton(dialog, IDC_WM_CENTER, IDC_WM_USER_POSITION, IDC_WM_USER_POSITION);
    EnableControls(dialog, UserPositionControls, true);
}
