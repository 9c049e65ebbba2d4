// Windows, messages, dialogs and the standard controls. Coordinates are pixels at 96 dots per inch.
#pragma once

#include "platform/types.h"

inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_GETTEXT = 0x000D;
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;
inline constexpr UINT WM_SETREDRAW = 0x000B;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_DRAWITEM = 0x002B;
inline constexpr UINT WM_SETFONT = 0x0030;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_HELP = 0x0053;
inline constexpr UINT WM_CONTEXTMENU = 0x007B;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_USER = 0x0400;

inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT BM_CLICK = 0x00F5;
inline constexpr UINT BST_UNCHECKED = 0;
inline constexpr UINT BST_CHECKED = 1;
inline constexpr WORD BN_CLICKED = 0;

inline constexpr UINT EM_LIMITTEXT = 0x00C5;
inline constexpr UINT EM_SETSEL = 0x00B1;
inline constexpr WORD EN_SETFOCUS = 0x0100;
inline constexpr WORD EN_KILLFOCUS = 0x0200;
inline constexpr WORD EN_CHANGE = 0x0300;

inline constexpr UINT CB_ADDSTRING = 0x0143;
inline constexpr UINT CB_DELETESTRING = 0x0144;
inline constexpr UINT CB_GETCOUNT = 0x0146;
inline constexpr UINT CB_GETCURSEL = 0x0147;
inline constexpr UINT CB_GETLBTEXT = 0x0148;
inline constexpr UINT CB_GETLBTEXTLEN = 0x0149;
inline constexpr UINT CB_INSERTSTRING = 0x014A;
inline constexpr UINT CB_RESETCONTENT = 0x014B;
inline constexpr UINT CB_SETCURSEL = 0x014E;
inline constexpr UINT CB_GETITEMDATA = 0x0150;
inline constexpr UINT CB_SETITEMDATA = 0x0151;
inline constexpr LRESULT CB_ERR = -1;
inline constexpr LRESULT CB_ERRSPACE = -2;
inline constexpr WORD CBN_SELCHANGE = 1;

inline constexpr UINT LB_ADDSTRING = 0x0180;
inline constexpr UINT LB_INSERTSTRING = 0x0181;
inline constexpr UINT LB_DELETESTRING = 0x0182;
inline constexpr UINT LB_RESETCONTENT = 0x0184;
inline constexpr UINT LB_SETCURSEL = 0x0186;
inline constexpr UINT LB_GETCURSEL = 0x0188;
inline constexpr UINT LB_GETTEXT = 0x0189;
inline constexpr UINT LB_GETTEXTLEN = 0x018A;
inline constexpr UINT LB_GETCOUNT = 0x018B;
inline constexpr UINT LB_GETITEMDATA = 0x0199;
inline constexpr UINT LB_SETITEMDATA = 0x019A;
inline constexpr LRESULT LB_ERR = -1;
inline constexpr LRESULT LB_ERRSPACE = -2;
inline constexpr WORD LBN_SELCHANGE = 1;
inline constexpr WORD LBN_DBLCLK = 2;

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;

inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;

// Slots of GetWindowLongW and SetWindowLongW; names, not offsets. Each carries a machine word.
inline constexpr int DWL_MSGRESULT = 0;
inline constexpr int DWL_DLGPROC = 4;
inline constexpr int DWL_USER = 8;
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWL_ID = -12;

inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_BORDER = 0x00800000;

inline constexpr DWORD BS_TYPEMASK = 0x0F;
inline constexpr DWORD BS_PUSHBUTTON = 0x00;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x01;
inline constexpr DWORD BS_CHECKBOX = 0x02;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x03;
inline constexpr DWORD BS_RADIOBUTTON = 0x04;
inline constexpr DWORD BS_GROUPBOX = 0x07;
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x09;
inline constexpr DWORD BS_OWNERDRAW = 0x0B;

inline constexpr DWORD SS_TYPEMASK = 0x1F;
inline constexpr DWORD SS_LEFT = 0x00;
inline constexpr DWORD SS_CENTER = 0x01;
inline constexpr DWORD SS_RIGHT = 0x02;
inline constexpr DWORD SS_ICON = 0x03;
inline constexpr DWORD SS_BLACKRECT = 0x04;
inline constexpr DWORD SS_GRAYRECT = 0x05;
inline constexpr DWORD SS_WHITERECT = 0x06;
inline constexpr DWORD SS_BLACKFRAME = 0x07;
inline constexpr DWORD SS_GRAYFRAME = 0x08;
inline constexpr DWORD SS_WHITEFRAME = 0x09;
inline constexpr DWORD SS_SIMPLE = 0x0B;
inline constexpr DWORD SS_LEFTNOWORDWRAP = 0x0C;
inline constexpr DWORD SS_BITMAP = 0x0E;

inline constexpr DWORD ES_CENTER = 0x0001;
inline constexpr DWORD ES_RIGHT = 0x0002;
inline constexpr DWORD ES_AUTOHSCROLL = 0x0080;
inline constexpr DWORD ES_READONLY = 0x0800;
inline constexpr DWORD ES_NUMBER = 0x2000;

inline constexpr DWORD CBS_DROPDOWNLIST = 0x0003;
inline constexpr DWORD CBS_SORT = 0x0100;
inline constexpr DWORD LBS_NOTIFY = 0x0001;
inline constexpr DWORD LBS_SORT = 0x0002;

inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_BTNHIGHLIGHT = 20;
inline constexpr int COLOR_3DDKSHADOW = 21;
inline constexpr int COLOR_3DLIGHT = 22;

inline constexpr UINT ODT_BUTTON = 4;
inline constexpr UINT ODA_DRAWENTIRE = 1;
inline constexpr UINT ODS_DISABLED = 4;

struct DRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};
static_assert(sizeof(void*) != 4 || sizeof(DRAWITEMSTRUCT) == 48);

struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};
static_assert(sizeof(void*) != 4 || sizeof(NMHDR) == 12);

inline constexpr int HELPINFO_WINDOW = 1;
struct HELPINFO {
    UINT cbSize;
    int iContextType;
    int iCtrlId;
    HANDLE hItemHandle;  // the control's window
    DWORD_PTR dwContextId;
    POINT MousePos;
};
static_assert(sizeof(void*) != 4 || sizeof(HELPINFO) == 28);

using DLGPROC = INT_PTR (*)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// A resource is named by its number.
inline const WCHAR* ResourceName(int number)
{
    return reinterpret_cast<const WCHAR*>(static_cast<ULONG_PTR>(static_cast<WORD>(number)));
}

extern "C" {

QD_API HWND GetDlgItem(HWND dialog, int number);
QD_API LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
QD_API LRESULT SendDlgItemMessageW(HWND dialog, int number, UINT message, WPARAM wParam, LPARAM lParam);
QD_API HWND GetParent(HWND window);  // of a page: the sheet; of a sheet: its owner
QD_API HWND SetFocus(HWND window);   // the window that had the focus
QD_API HWND GetFocus();
QD_API BOOL EnableWindow(HWND window, BOOL enable);  // whether it was disabled
QD_API BOOL IsWindowEnabled(HWND window);
QD_API BOOL ShowWindow(HWND window, int command);  // whether it was visible
QD_API LONG_PTR GetWindowLongW(HWND window, int slot);
QD_API LONG_PTR SetWindowLongW(HWND window, int slot, LONG_PTR value);  // the value before
QD_API BOOL SetWindowTextW(HWND window, const WCHAR* text);
QD_API int GetWindowTextW(HWND window, WCHAR* text, int chars);
QD_API BOOL SetDlgItemTextW(HWND dialog, int number, const WCHAR* text);
QD_API UINT GetDlgItemTextW(HWND dialog, int number, WCHAR* text, int chars);  // length without terminator
QD_API BOOL SetDlgItemInt(HWND dialog, int number, UINT value, BOOL isSigned);
QD_API UINT GetDlgItemInt(HWND dialog, int number, BOOL* translated, BOOL isSigned);  // 0 for what is no number
QD_API BOOL CheckDlgButton(HWND dialog, int number, UINT check);
QD_API UINT IsDlgButtonChecked(HWND dialog, int number);
QD_API BOOL CheckRadioButton(HWND dialog, int first, int last, int chosen);

QD_API INT_PTR DialogBoxParamW(HINSTANCE module, const WCHAR* templateName, HWND owner, DLGPROC procedure,
                               LPARAM parameter);  // -1 on failure
QD_API BOOL EndDialog(HWND dialog, INT_PTR result);
QD_API int MessageBoxW(HWND owner, const WCHAR* text, const WCHAR* caption, UINT style);
QD_API BOOL MessageBeep(UINT style);
QD_API HWND FindWindowW(const WCHAR* className, const WCHAR* title);  // top-level windows
QD_API UINT GetWindowModuleFileNameW(HWND window, WCHAR* path, UINT chars);

QD_API HDC GetDC(HWND window);  // null: the screen
QD_API int ReleaseDC(HWND window, HDC context);
QD_API BOOL GetClientRect(HWND window, RECT* rectangle);
QD_API BOOL InvalidateRect(HWND window, const RECT* rectangle, BOOL erase);
QD_API DWORD GetSysColor(int index);
QD_API int FillRect(HDC context, const RECT* rectangle, HBRUSH brush);
QD_API BOOL CopyRect(RECT* target, const RECT* source);

// Without the terminator; 0 when the string is missing.
QD_API int LoadStringW(HINSTANCE module, UINT number, WCHAR* text, int chars);
QD_API HICON LoadIconW(HINSTANCE module, const WCHAR* name);
QD_API HBITMAP LoadBitmapW(HINSTANCE module, const WCHAR* name);
QD_API BOOL DrawIcon(HDC context, int x, int y, HICON icon);

}  // extern "C"
