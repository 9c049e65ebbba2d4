// Services that a module loads or calls beside the core: the common property sheet service (compstui.dll),
// the common file dialogs (comdlg32.dll), help, the user's rights (spoolss.dll, loaded at run time).
#pragma once

#include "platform/controls.h"
#include "platform/spooler.h"

// Common property sheet service.
inline constexpr WORD PROPSHEETUI_INFO_VERSION = 0x0100;
inline constexpr WORD PROPSHEETUI_REASON_INIT = 0;
inline constexpr WORD PROPSHEETUI_REASON_GET_INFO_HEADER = 1;
inline constexpr WORD PROPSHEETUI_REASON_DESTROY = 2;
inline constexpr WORD PROPSHEETUI_REASON_SET_RESULT = 3;

inline constexpr UINT CPSFUNC_ADD_HPROPSHEETPAGE = 0;
inline constexpr UINT CPSFUNC_ADD_PROPSHEETPAGEW = 1;
inline constexpr UINT CPSFUNC_ADD_PCOMPROPSHEETUIW = 3;
inline constexpr UINT CPSFUNC_SET_RESULT = 9;

inline constexpr LONG CPSUI_CANCEL = 0;
inline constexpr LONG CPSUI_OK = 1;

inline constexpr DWORD PSUIHDRF_PROPTITLE = 0x0004;

// The call-in of the service. Above 0 on success (for added pages a handle), 0 on failure.
using PFNCOMPROPSHEET = LONG_PTR (*)(HANDLE sheet, UINT function, LPARAM param1, LPARAM param2);

struct PROPSHEETUI_INFO {
    WORD cbSize;
    WORD Version;
    WORD Flags;
    WORD Reason;
    HANDLE hComPropSheet;
    PFNCOMPROPSHEET pfnComPropSheet;
    LPARAM lParamInit;
    DWORD_PTR UserData;
    DWORD_PTR Result;
};
static_assert(sizeof(void*) != 4 || sizeof(PROPSHEETUI_INFO) == 28);

using PFNPROPSHEETUI = LONG (*)(PROPSHEETUI_INFO* info, LPARAM lParam);

struct PROPSHEETUI_INFO_HEADER {
    WORD cbSize;
    WORD Flags;
    WCHAR* pTitle;
    HWND hWndParent;
    HINSTANCE hInst;
    ULONG_PTR IconID;
};
static_assert(sizeof(void*) != 4 || sizeof(PROPSHEETUI_INFO_HEADER) == 20);

struct SETRESULT_INFO {
    WORD cbSize;
    WORD wReserved;
    HANDLE hSetResult;
    LRESULT Result;
};
static_assert(sizeof(void*) != 4 || sizeof(SETRESULT_INFO) == 12);

// The value of CommonPropertySheetUIW: above 0 the sheet ran (result says OK or Cancel), below 0 it failed.
using PFNCOMMONPROPERTYSHEETUI = LONG (*)(HWND owner, PFNPROPSHEETUI function, LPARAM lParam, DWORD* result);

// The service's option tree.
inline constexpr DWORD CPSUIF_UPDATE_PERMISSION = 0x0001;
inline constexpr DWORD OPTIF_CALLBACK = 0x0004;
inline constexpr BYTE TVOT_PUSHBUTTON = 8;
inline constexpr BYTE PUSHBUTTON_TYPE_HTCLRADJ = 2;
inline constexpr WORD CPSUICB_REASON_SEL_CHANGED = 0;
inline constexpr WORD CPSUICB_REASON_PUSHBUTTON = 1;
inline constexpr WORD CPSUICB_REASON_APPLYNOW = 6;
inline constexpr LONG CPSUICB_ACTION_NONE = 0;
inline constexpr LONG CPSUICB_ACTION_ITEMS_APPLIED = 4;

struct COLORADJUSTMENT {
    WORD caSize, caFlags, caIlluminantIndex, caRedGamma, caGreenGamma, caBlueGamma, caReferenceBlack, caReferenceWhite;
    SHORT caContrast, caBrightness, caColorfulness, caRedGreenTint;
};
static_assert(sizeof(COLORADJUSTMENT) == 24);

struct OPTPARAM {
    WORD cbSize;
    BYTE Flags;
    BYTE Style;
    WCHAR* pData;
    ULONG_PTR IconID;
    LPARAM lParam;
    ULONG_PTR dwReserved[2];
};
static_assert(sizeof(void*) != 4 || sizeof(OPTPARAM) == 24);

struct OPTTYPE {
    WORD cbSize;
    BYTE Type;
    BYTE Flags;
    WORD Count;
    WORD BegCtrlID;
    OPTPARAM* pOptParam;
    WORD Style;
    WORD wReserved[3];
    ULONG_PTR dwReserved[3];
};
static_assert(sizeof(void*) != 4 || sizeof(OPTTYPE) == 32);

struct OPTITEM {
    WORD cbSize;
    BYTE Level;
    BYTE DlgPageIdx;
    DWORD Flags;
    ULONG_PTR UserData;
    WCHAR* pName;
    LONG_PTR Sel;
    void* pExtChkBox;
    OPTTYPE* pOptType;
    DWORD HelpIndex;
    BYTE DMPubID;
    BYTE UserItemID;
    WORD wReserved;
    void* pOIExt;
    ULONG_PTR dwReserved[3];
};
static_assert(sizeof(void*) != 4 || sizeof(OPTITEM) == 52);

struct DLGPAGE {
    WORD cbSize;
    WORD Flags;
    DLGPROC DlgProc;
    WCHAR* pTabName;
    ULONG_PTR IconID;
    WORD DlgTemplateID;
    WORD wReserved;
};
static_assert(sizeof(void*) != 4 || sizeof(DLGPAGE) == 20);

struct CPSUICBPARAM {
    WORD cbSize;
    WORD Reason;
    HWND hDlg;
    OPTITEM* pOptItem;
    WORD cOptItem;
    WORD Flags;
    OPTITEM* pCurItem;
    LONG_PTR OldSel;
    ULONG_PTR UserData;
    ULONG_PTR Result;
};
static_assert(sizeof(void*) != 4 || sizeof(CPSUICBPARAM) == 32);
using CPSUICALLBACK = LONG (*)(CPSUICBPARAM* params);

struct COMPROPSHEETUI {
    WORD cbSize;
    WORD Flags;
    HINSTANCE hInstCaller;
    WCHAR* pCallerName;
    ULONG_PTR UserData;
    WCHAR* pHelpFile;
    CPSUICALLBACK pfnCallBack;
    OPTITEM* pOptItem;
    DLGPAGE* pDlgPage;
    WORD cOptItem;
    WORD cDlgPage;
    ULONG_PTR IconID;
    WCHAR* pOptItemName;
    WORD CallerVersion;
    WORD OptItemVersion;
    ULONG_PTR dwReserved[4];
};
static_assert(sizeof(void*) != 4 || sizeof(COMPROPSHEETUI) == 64);

// Common file dialogs.
inline constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;
inline constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
inline constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;
inline constexpr DWORD OFN_ENABLEHOOK = 0x00000020;
inline constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
inline constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;
inline constexpr DWORD OFN_EXPLORER = 0x00080000;
inline constexpr DWORD OFN_LONGNAMES = 0x00200000;
inline constexpr DWORD OFN_ENABLESIZING = 0x00800000;
inline constexpr UINT CDN_FIRST = static_cast<UINT>(-601);
inline constexpr UINT CDN_INITDONE = CDN_FIRST;
inline constexpr UINT CDN_FILEOK = CDN_FIRST - 5;
inline constexpr UINT CDM_FIRST = WM_USER + 100;
inline constexpr UINT CDM_GETSPEC = CDM_FIRST + 0;
inline constexpr UINT CDM_GETFILEPATH = CDM_FIRST + 1;
inline constexpr UINT CDM_GETFOLDERPATH = CDM_FIRST + 2;

using OFNHOOKPROC = UINT_PTR (*)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

struct OPENFILENAMEW {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    const WCHAR* lpstrFilter;
    WCHAR* lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    WCHAR* lpstrFile;
    DWORD nMaxFile;
    WCHAR* lpstrFileTitle;
    DWORD nMaxFileTitle;
    const WCHAR* lpstrInitialDir;
    const WCHAR* lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    const WCHAR* lpstrDefExt;
    LPARAM lCustData;
    OFNHOOKPROC lpfnHook;
    const WCHAR* lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};
static_assert(sizeof(void*) != 4 || sizeof(OPENFILENAMEW) == 88);

struct OFNOTIFYW {
    NMHDR hdr;
    OPENFILENAMEW* lpOFN;
    WCHAR* pszFile;
};

// Help.
inline constexpr UINT HELP_CONTEXT = 0x0001;
inline constexpr UINT HELP_FINDER = 0x000B;
inline constexpr UINT HELP_WM_HELP = 0x000C;

extern "C" {

QD_API BOOL GetOpenFileNameW(OPENFILENAMEW* dialog);
QD_API BOOL GetSaveFileNameW(OPENFILENAMEW* dialog);

// HELP_CONTEXT: data is the context number. HELP_FINDER: the file's topics. HELP_WM_HELP: window is the control
// and data the address of pairs of DWORDs (control, context) that end in a pair of zeros.
QD_API BOOL WinHelpW(HWND window, const WCHAR* file, UINT command, ULONG_PTR data);

}  // extern "C"
