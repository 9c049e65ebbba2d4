#include "pages/watermark_dialog.h"

#include "boundary.h"
#include "pages/control_state.h"
#include "pages/watermark_dialog_fields.h"
#include "pages/watermark_dialog_names.h"
#include "pages/watermark_dialog_preview.h"
#include "platform/kernel.h"
#include "preview/drawing_scope.h"
#include "settings/wide_text.h"
#include "watermark/placement.h"
#include "watermark/watermark_load.h"
#include "watermark/watermark_values.h"

namespace {

constexpr DWORD PreviewHelp = 1151, EditHelp = 1152, DialogHelp = 1103;
constexpr HelpPair Help[] = {
    {IDC_WM_FRAME,            PreviewHelp},
    {IDC_WM_PREVIEW,          PreviewHelp},
    {IDC_WM_LIST_GROUP,       EditHelp   },
    {IDC_WM_LIST,             EditHelp   },
    {IDC_WM_NEW,              EditHelp   },
    {IDC_WM_DELETE,           EditHelp   },
    {IDC_WM_EDIT_GROUP,       EditHelp   },
    {IDC_WM_NAME_LABEL,       EditHelp   },
    {IDC_WM_NAME,             EditHelp   },
    {IDC_WM_TEXT_LABEL,       EditHelp   },
    {IDC_WM_TEXT,             EditHelp   },
    {IDC_WM_FONT_GROUP,       EditHelp   },
    {IDC_WM_FACE_LABEL,       EditHelp   },
    {IDC_WM_FACE,             EditHelp   },
    {IDC_WM_SIZE_LABEL,       EditHelp   },
    {IDC_WM_SIZE,             EditHelp   },
    {IDC_WM_SIZE_SPIN,        EditHelp   },
    {IDC_WM_SIZE_RANGE,       EditHelp   },
    {IDC_WM_STYLE_LABEL,      EditHelp   },
    {IDC_WM_BOLD,             EditHelp   },
    {IDC_WM_ITALIC,           EditHelp   },
    {IDC_WM_SHADING_LABEL,    EditHelp   },
    {IDC_WM_SHADING,          EditHelp   },
    {IDC_WM_SHADING_SPIN,     EditHelp   },
    {IDC_WM_SHADING_RANGE,    EditHelp   },
    {IDC_WM_ANGLE_GROUP,      EditHelp   },
    {IDC_WM_ANGLE_MODE,       EditHelp   },
    {IDC_WM_ANGLE_LABEL,      EditHelp   },
    {IDC_WM_ANGLE,            EditHelp   },
    {IDC_WM_ANGLE_SPIN,       EditHelp   },
    {IDC_WM_ANGLE_UNIT,       EditHelp   },
    {IDC_WM_ANGLE_RANGE,      EditHelp   },
    {IDC_WM_POSITION_GROUP,   EditHelp   },
    {IDC_WM_CENTER,           EditHelp   },
    {IDC_WM_USER_POSITION,    EditHelp   },
    {IDC_WM_HORIZONTAL_LABEL, EditHelp   },
    {IDC_WM_HORIZONTAL,       EditHelp   },
    {IDC_WM_HORIZONTAL_SPIN,  EditHelp   },
    {IDC_WM_VERTICAL_LABEL,   EditHelp   },
    {IDC_WM_VERTICAL,         EditHelp   },
    {IDC_WM_VERTICAL_SPIN,    EditHelp   },
    {IDOK,                    EditHelp   },
    {IDCANCEL,                EditHelp   },
    {IDC_HELP,                EditHelp   },
    {0,                       0          },
};

constexpr int MessageChars = 256;

void Focus(HWND dialog, int control) { SetFocus(GetDlgItem(dialog, control)); }

void Initialise(HWND dialog, bool editable)
{
    WatermarkEditable = editable;
    FieldInRange = true;
    // Half a list must not be stored over the whole one.
    if (!LoadWatermarks(dialog, false) || WatermarksUnread != 0) {
        EndDialog(dialog, 0);
        return;
    }
    FillWatermarkList(dialog);
    if (WatermarkIndex == 0) SetEditorDisabled(dialog, true);
    const WindowContext preview(GetDlgItem(dialog, IDC_WM_PREVIEW));
    if (!preview) return;
    const SelectedStock font(preview.Get(), SYSTEM_FIXED_FONT);
    if (!LoadFaceList(preview.Get())) return;
    PrepareWatermarkFields(dialog);
    ShowWatermarkEdit(dialog);
    Focus(dialog, IDC_WM_NAME);
    if (WatermarkEditable) return;
    SetEditorDisabled(dialog, true);
    EnableControl(dialog, IDC_WM_NEW, false);
}

void OnRowPicked(HWND dialog)
{
    const auto picked = static_cast<int>(SendDlgItemMessageW(dialog, IDC_WM_LIST, LB_GETCURSEL, 0, 0));
    if (!WatermarkRowAt(picked)) return;
    WatermarkIndex = picked;
    SendDlgItemMessageW(dialog, IDC_WM_LIST, LB_SETCURSEL, static_cast<WPARAM>(picked), 0);
    if (WatermarkIndex != 0 && WatermarkEditable) EnableControl(dialog, IDC_WM_DELETE, true);
    LockEditorByRow(dialog);
    ShowWatermarkRow(dialog);
}

void DefaultWatermark()
{
    WatermarkEdit = {};
    CopyToField(WatermarkEdit.wmName, WatermarkNameChars, LoadResString(IDS_NEW_WATERMARK, 0));
    CopyToField(WatermarkEdit.wmText, WatermarkNameChars, WatermarkEdit.wmName);
    CopyToField(WatermarkEdit.wmFaceName, LF_FACESIZE, LoadResString(IDS_DEFAULT_FACE, 0));
    WatermarkEdit.wmRemovable = 1;
    WatermarkEdit.wmShading = DefaultShading;
    WatermarkEdit.wmSize = WatermarkEdit.wmSizeLow = DefaultWatermarkSize;
    WatermarkEdit.wmAngle = DiagonalAngle;
    WatermarkEdit.wmAngleMode = AngleModeDiagonal;
}

SHORT FreeSlot()
{
    SHORT slot = 1;
    while (slot < MostWatermarks && WatermarkSlots[static_cast<std::size_t>(slot)]) ++slot;
    return slot;
}

// Under the first free name of "Watermark", "Watermark1" and so on. Among more names than there can be rows one is
// free; if none is taken then, it is memory that is short. Without the text that names begin with, the number is one.
bool AddUnderFreeName()
{
    for (int number = 1; !WatermarkEdit.wmName[0] || AddWatermarkRow(WatermarkEdit) != 1; ++number) {
        if (number > MostWatermarks + 1) return false;
        const std::u16string name = Numbered(LoadResString(IDS_NEW_WATERMARK, 0), number);
        CopyToField(WatermarkEdit.wmName, WatermarkNameChars, name);
    }
    return true;
}

void OnNew(HWND dialog)
{
    if (!WatermarkEditable || WatermarkCount >= MostWatermarks) return;
    if (ValidateWatermarkName(dialog, WatermarkIndex) != 0) return;
    TakeWatermarkName(dialog);
    DefaultWatermark();
    WatermarkEdit.wmId = FreeSlot();
    if (!AddUnderFreeName()) {
        LoadWatermarkEdit();
        return;
    }
    WatermarkSlots[static_cast<std::size_t>(WatermarkEdit.wmId)] = 1;
    WatermarkIndex = ++WatermarkCount;
    CopyToField(WatermarkNames[static_cast<std::size_t>(WatermarkIndex)], WatermarkNameChars, WatermarkEdit.wmName);
    SelectWatermarkRow(WatermarkIndex);
    EnableControl(dialog, IDC_WM_DELETE, true);
    ShowWatermarkEdit(dialog);
    SetEditorDisabled(dialog, false);
    Focus(dialog, IDC_WM_NAME);
    LockUserSettings(dialog);
    InvalidateControl(dialog, IDC_WM_PREVIEW);
    if (WatermarkCount >= MostWatermarks) EnableControl(dialog, IDC_WM_NEW, false);
}

void OnDelete(HWND dialog)
{
    if (!WatermarkEditable || WatermarkIndex <= 0) return;
    RemoveListedWatermark(dialog, WatermarkIndex);
    if (WatermarkIndex > WatermarkCount) --WatermarkIndex;
    ShowWatermarkRow(dialog);
    EnableControl(dialog, IDC_WM_DELETE, WatermarkEdit.wmRemovable != 0 && WatermarkIndex != 0);
    SendDlgItemMessageW(dialog, IDC_WM_LIST, LB_SETCURSEL, static_cast<WPARAM>(WatermarkIndex), 0);
    LockEditorByRow(dialog);
    Focus(dialog, WatermarkIndex == 0 ? IDC_WM_NEW : IDC_WM_NAME);
    SendMessageW(dialog, WM_COMMAND, MakeLong(IDC_WM_LIST, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDC_WM_LIST)));
}

// What the printer has no room for is gone when the list is loaded again, so the user can go back and make room.
bool StoreWithoutSome(HWND dialog)
{
    const int rows = CountWatermarksWithoutRoom();
    if (rows == 0) return true;
    WCHAR message[MessageChars] = {};
    wsprintfW(message, LoadResString(IDS_WATERMARKS_WITHOUT_ROOM, 0), rows);
    return MessageBoxW(dialog, message, LoadResString(IDS_WATERMARK_WARNING, 1), MB_OKCANCEL | MB_ICONEXCLAMATION) ==
           IDOK;
}

bool End(HWND dialog, INT_PTR result)
{
    if (!EndDialog(dialog, result)) return false;
    FreeFaceList();
    return true;
}

void OnOk(HWND dialog)
{
    if (ValidateWatermarkName(dialog, WatermarkIndex) != 0) return;
    TakeWatermarkName(dialog);
    if (!StoreWithoutSome(dialog)) return;
    Focus(dialog, IDOK);
    SaveWatermarks();
    WatermarkCurrent = &WatermarkEdit;
    // A dialog that cannot be ended goes on with its row.
    if (!End(dialog, 1)) SelectWatermarkRow(WatermarkIndex);
}

void OnCancel(HWND dialog) { End(dialog, 0); }
void OnHelp(HWND dialog) { ShowHelpContext(dialog, DialogHelp); }

template <WatermarkNumber Number>
void OnAny(HWND dialog)
{
    CheckNumberText(dialog, Number);
}
template <WatermarkNumber Number>
void OnTyped(HWND dialog)
{
    OnNumberTyped(dialog, Number);
}
template <WatermarkNumber Number>
void OnLeft(HWND dialog)
{
    OnNumberLeft(dialog, Number);
}

// A text that is no number is put back before anything else looks at it.
constexpr Command Commands[] = {
    {IDC_WM_LIST,          LBN_SELCHANGE, OnRowPicked                         },
    {IDC_WM_NEW,           AnyCode,       OnNew                               },
    {IDC_WM_DELETE,        AnyCode,       OnDelete                            },
    {IDC_WM_NAME,          EN_CHANGE,     OnWatermarkNameTyped                },
    {IDC_WM_NAME,          EN_KILLFOCUS,  OnWatermarkNameLeft                 },
    {IDC_WM_TEXT,          EN_CHANGE,     OnWatermarkText                     },
    {IDC_WM_FACE,          CBN_SELCHANGE, OnFacePicked                        },
    {IDC_WM_SIZE,          EN_CHANGE,     OnTyped<WatermarkNumber::Size>      },
    {IDC_WM_SIZE,          EN_KILLFOCUS,  OnLeft<WatermarkNumber::Size>       },
    {IDC_WM_SHADING,       EN_CHANGE,     OnTyped<WatermarkNumber::Shading>   },
    {IDC_WM_SHADING,       EN_KILLFOCUS,  OnLeft<WatermarkNumber::Shading>    },
    {IDC_WM_ITALIC,        AnyCode,       OnItalic                            },
    {IDC_WM_BOLD,          AnyCode,       OnBold                              },
    {IDC_WM_ANGLE_MODE,    CBN_SELCHANGE, OnAngleModePicked                   },
    {IDC_WM_ANGLE,         AnyCode,       OnAny<WatermarkNumber::Angle>       },
    {IDC_WM_ANGLE,         EN_CHANGE,     OnTyped<WatermarkNumber::Angle>     },
    {IDC_WM_ANGLE,         EN_KILLFOCUS,  OnLeft<WatermarkNumber::Angle>      },
    {IDC_WM_VERTICAL,      AnyCode,       OnAny<WatermarkNumber::Vertical>    },
    {IDC_WM_VERTICAL,      EN_CHANGE,     OnTyped<WatermarkNumber::Vertical>  },
    {IDC_WM_VERTICAL,      EN_KILLFOCUS,  OnLeft<WatermarkNumber::Vertical>   },
    {IDC_WM_HORIZONTAL,    AnyCode,       OnAny<WatermarkNumber::Horizontal>  },
    {IDC_WM_HORIZONTAL,    EN_CHANGE,     OnTyped<WatermarkNumber::Horizontal>},
    {IDC_WM_HORIZONTAL,    EN_KILLFOCUS,  OnLeft<WatermarkNumber::Horizontal> },
    {IDC_WM_CENTER,        AnyCode,       OnCenter                            },
    {IDC_WM_USER_POSITION, AnyCode,       OnUserPosition                      },
    {IDOK,                 AnyCode,       OnOk                                },
    {IDCANCEL,             AnyCode,       OnCancel                            },
    {IDC_HELP,             AnyCode,       OnHelp                              },
};
constexpr ModalDialog Dialog = {Help, Commands, nullptr};

}  // namespace

INT_PTR Watermark_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_INITDIALOG && message != WM_DRAWITEM)
        return AnswerDialogMessage(Dialog, dialog, message, wParam, lParam);
    return AtBoundary<INT_PTR>(FALSE, [&]() -> INT_PTR {
        const auto* drawItem = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (message == WM_INITDIALOG)
            Initialise(dialog, lParam != 0);
        else if (drawItem)
            DrawWatermarkItem(dialog, *drawItem);
        return FALSE;
    });
}
