// Common controls: list view, up-down, and the property sheet's pages and notifications.
#pragma once

#include "platform/user.h"

// List view ("SysListView32").
inline constexpr UINT LVM_FIRST = 0x1000;
inline constexpr UINT LVM_GETITEMCOUNT = LVM_FIRST + 4;
inline constexpr UINT LVM_DELETEITEM = LVM_FIRST + 8;
inline constexpr UINT LVM_DELETEALLITEMS = LVM_FIRST + 9;
inline constexpr UINT LVM_SETCOLUMNWIDTH = LVM_FIRST + 30;
inline constexpr UINT LVM_SETITEMSTATE = LVM_FIRST + 43;
inline constexpr UINT LVM_GETITEMSTATE = LVM_FIRST + 44;
inline constexpr UINT LVM_SETEXTENDEDLISTVIEWSTYLE = LVM_FIRST + 54;
inline constexpr UINT LVM_GETEXTENDEDLISTVIEWSTYLE = LVM_FIRST + 55;
inline constexpr UINT LVM_GETSELECTIONMARK = LVM_FIRST + 66;
inline constexpr UINT LVM_SETSELECTIONMARK = LVM_FIRST + 67;
inline constexpr UINT LVM_INSERTITEMW = LVM_FIRST + 77;
inline constexpr UINT LVM_INSERTCOLUMNW = LVM_FIRST + 97;
inline constexpr UINT LVM_GETITEMTEXTW = LVM_FIRST + 115;
inline constexpr UINT LVM_SETITEMTEXTW = LVM_FIRST + 116;
inline constexpr UINT LVIF_TEXT = 0x1;
inline constexpr UINT LVIF_PARAM = 0x4;
inline constexpr UINT LVIF_STATE = 0x8;
inline constexpr UINT LVIS_FOCUSED = 0x1;
inline constexpr UINT LVIS_SELECTED = 0x2;
inline constexpr UINT LVCF_FMT = 0x1;
inline constexpr UINT LVCF_WIDTH = 0x2;
inline constexpr UINT LVCF_TEXT = 0x4;
inline constexpr UINT LVCF_SUBITEM = 0x8;
inline constexpr int LVCFMT_LEFT = 0;
inline constexpr DWORD LVS_REPORT = 0x0001;
inline constexpr DWORD LVS_SINGLESEL = 0x0004;
inline constexpr DWORD LVS_SHOWSELALWAYS = 0x0008;
inline constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x20;
inline constexpr UINT LVN_ITEMCHANGED = static_cast<UINT>(-101);

// Tree view.
inline constexpr UINT TVN_SELCHANGEDW = static_cast<UINT>(-451);

struct LVITEMW {
    UINT mask;
    int iItem;
    int iSubItem;
    UINT state;
    UINT stateMask;
    WCHAR* pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
    int iIndent;
};

struct LVCOLUMNW {
    UINT mask;
    int fmt;
    int cx;
    WCHAR* pszText;
    int cchTextMax;
    int iSubItem;
    int iImage;
    int iOrder;
};

struct NMLISTVIEW {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
};

// Up-down ("msctls_updown32"). UDM_SETRANGE: two signed 16-bit halves, upper limit low, lower limit high.
inline constexpr UINT UDM_SETRANGE = WM_USER + 101;
inline constexpr UINT UDM_SETPOS = WM_USER + 103;
inline constexpr UINT UDM_SETBUDDY = WM_USER + 105;
inline constexpr DWORD UDS_WRAP = 0x01;
inline constexpr DWORD UDS_SETBUDDYINT = 0x02;
inline constexpr DWORD UDS_ALIGNRIGHT = 0x04;
inline constexpr DWORD UDS_ALIGNLEFT = 0x08;
inline constexpr DWORD UDS_AUTOBUDDY = 0x10;
inline constexpr DWORD UDS_ARROWKEYS = 0x20;
inline constexpr DWORD UDS_NOTHOUSANDS = 0x80;

// Property sheet.
inline constexpr DWORD PSP_USETITLE = 0x08;  // the tab shows pszTitle
inline constexpr DWORD PSP_HASHELP = 0x20;

struct PROPSHEETPAGEW {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    const WCHAR* pszTemplate;
    HICON hIcon;
    const WCHAR* pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    UINT (*pfnCallback)(HWND, UINT, PROPSHEETPAGEW*);
    UINT* pcRefParent;
    const WCHAR* pszHeaderTitle;
    const WCHAR* pszHeaderSubTitle;
};
static_assert(sizeof(void*) != 4 || sizeof(PROPSHEETPAGEW) == 48);

inline constexpr UINT PSM_CHANGED = WM_USER + 104;
inline constexpr UINT PSM_UNCHANGED = WM_USER + 109;

inline constexpr UINT PSN_SETACTIVE = static_cast<UINT>(-200);
inline constexpr UINT PSN_KILLACTIVE = static_cast<UINT>(-201);
inline constexpr UINT PSN_APPLY = static_cast<UINT>(-202);
inline constexpr UINT PSN_RESET = static_cast<UINT>(-203);
inline constexpr UINT PSN_HELP = static_cast<UINT>(-205);
inline constexpr UINT PSN_QUERYCANCEL = static_cast<UINT>(-209);
inline constexpr UINT PSN_QUERYINITIALFOCUS = static_cast<UINT>(-213);

struct PSHNOTIFY {
    NMHDR hdr;
    LPARAM lParam;  // PSN_APPLY, PSN_RESET: 1 when the sheet ends with it (OK), 0 for Apply
};
static_assert(sizeof(void*) != 4 || sizeof(PSHNOTIFY) == 16);
