// Every function of the layer that can fail does so by plan, before it looks at anything it was given.
#include <dlfcn.h>

#include "platform/gdi.h"
#include "platform/registry.h"
#include "platform/services.h"
#include "platform/services/sheet_service.h"
#include "platform/spooler.h"
#include "platform/spooler/impersonation.h"
#include "platform/user.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

std::string NameOf(void* function)
{
    Dl_info found{};
    return dladdr(function, &found) && found.dli_sname ? found.dli_sname : "";
}

template <class Result, class... Arguments>
void FailsByPlan(Result (*function)(Arguments...))
{
    const std::string name = NameOf(reinterpret_cast<void*>(function));
    FaultPlan& faults = CurrentEnvironment().faults;
    faults.Add(name, 1, false);
    function(Arguments{}...);
    EXPECT_TRUE(FaultPlan::Offers(name)) << name;
    EXPECT_THAT(faults.Calls(), testing::ElementsAre(testing::Pair(name, 1)));
    EXPECT_NE(GetLastError(), 0u) << name;
    faults.Clear();
    SetLastError(0);
}

template <class... Functions>
void AllFailByPlan(Functions... functions)
{
    (FailsByPlan(functions), ...);
}

using PlannedFaults = FreshEnvironment;

TEST_F(PlannedFaults, ReachEveryFunction)
{
    AllFailByPlan(GlobalAlloc, GlobalLock, GlobalUnlock, GlobalFree, HeapCreate, HeapAlloc, HeapFree, HeapDestroy,
                  GetLocaleInfoW, GetVersionExW, GetUserNameW, GetSystemDirectoryW, GetFullPathNameW, LoadLibraryW,
                  LoadLibraryA, FreeLibrary, GetProcAddress, GetModuleFileNameW, LoadStringW, RevertToPrinterSelf,
                  ImpersonatePrinterClient, OpenPrinterW, ClosePrinter, GetPrinterDataW, SetPrinterDataW, GetPrinterW,
                  GetPrinterDriverW, GetPrinterDriverDirectoryW);
    AllFailByPlan(GetDlgItem, SendMessageW, SendDlgItemMessageW, GetParent, SetFocus, EnableWindow, IsWindowEnabled,
                  ShowWindow, GetWindowLongW, SetWindowLongW, SetWindowTextW, GetWindowTextW, SetDlgItemTextW,
                  GetDlgItemTextW, SetDlgItemInt, GetDlgItemInt, CheckDlgButton, IsDlgButtonChecked, CheckRadioButton,
                  EndDialog, InvalidateRect, DialogBoxParamW, MessageBoxW, FindWindowW, GetWindowModuleFileNameW,
                  GetSaveFileNameW, GetOpenFileNameW, WinHelpW, CommonPropertySheetUIW, pfnComPropSheet);
    AllFailByPlan(GetDC, ReleaseDC, GetClientRect, FillRect, DrawIcon, LoadIconW, LoadBitmapW, CreateCompatibleDC,
                  DeleteDC, GetDeviceCaps, CreatePen, CreateSolidBrush, CreateFontIndirectW, CreateRectRgn,
                  CreateBitmap, GetStockObject, SelectObject, DeleteObject, GetObjectW, SetBkMode, SetBkColor,
                  SetTextColor, SetTextAlign, GetTextAlign, SetROP2, SetMapMode, SetWindowOrgEx, SetViewportOrgEx,
                  SetWindowExtEx, SetViewportExtEx, SelectClipRgn, Rectangle, Polygon, MoveToEx, LineTo, Arc, FillRgn,
                  PaintRgn, GetPixel, TextOutW, ExtTextOutW, GetTextExtentPointW, EnumFontsW, StretchBlt, ExtEscape,
                  GetSysColor, CopyRect);
}

TEST_F(PlannedFaults, OfTheRegistryAreErrorsAndOfNarrowTextsStates)
{
    const std::u16string path = PrinterKeyPath(Printer);
    HKEY key = nullptr, other = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, &key), 0);
    CurrentEnvironment().faults.Clear();
    for (const char* function : {"RegOpenKeyExW", "RegQueryValueExW", "RegSetValueExW", "RegCloseKey",
                                 "RtlMultiByteToUnicodeN", "RtlUnicodeToMultiByteN", "wsprintfW"})
        CurrentEnvironment().faults.Add(function, 1, false);
    WCHAR wide[4];
    CHAR narrow[4];
    for (const bool fails : {true, false}) {
        EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, &other) != 0, fails);
        EXPECT_EQ(RegSetValueExW(key, u"Value", 0, REG_BINARY, nullptr, 0) != 0, fails);
        EXPECT_EQ(RegQueryValueExW(key, u"Value", nullptr, nullptr, nullptr, nullptr) != 0, fails);
        EXPECT_EQ(RegCloseKey(other) != 0, fails);
        EXPECT_EQ(RtlMultiByteToUnicodeN(wide, 8, nullptr, "ab", 2) < 0, fails);
        EXPECT_EQ(RtlUnicodeToMultiByteN(narrow, 4, nullptr, u"ab", 4) < 0, fails);
        EXPECT_EQ(wsprintfW(wide, u"%d", 5), fails ? 0 : 1);
    }
    EXPECT_EQ(RegCloseKey(key), 0);
}

TEST(FaultPlan, OffersWhatTheLayerExportsAndMessagesThatNeedRoom)
{
    for (const char* name : {"GlobalAlloc", "RegOpenKeyExW", "wsprintfW", "LB_INSERTSTRING", "LVM_INSERTITEMW"})
        EXPECT_TRUE(FaultPlan::Offers(name)) << name;
    // Needs no room, is of a library below, of the tool chain, and unknown.
    for (const char* name : {"CB_SETCURSEL", "malloc", "_fini", "NoSuchFunction", "Global Alloc", ""})
        EXPECT_FALSE(FaultPlan::Offers(name)) << name;
}

}  // namespace
}  // namespace platform
