#include "platform/services/option_pages.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

#include "platform/seams/desktop.h"
#include "platform/seams/environment.h"
#include "platform/user/windows.h"

namespace platform::services {

namespace {

// Texts of the service that callers name by number.
struct ServiceString {
    int number;
    const char16_t* text;
};
constexpr ServiceString ServiceStrings[] = {
    {64792, u"Halftone Color Adjustment"},
};

constexpr char16_t PageTitle[] = u"Device Settings";
constexpr int Tree = 99, Button = 100, Frame = 101;

// Pixels.
constexpr int PageWidth = 399, PageHeight = 186;
constexpr RECT TreePlace = {11, 11, 388, 101}, FramePlace = {11, 111, 388, 175}, ButtonPlace = {22, 141, 120, 164};

std::u16string TextOf(const WCHAR* text)
{
    const auto number = reinterpret_cast<ULONG_PTR>(text);
    if (number > 0xFFFF) return text;
    const auto found = std::ranges::find(ServiceStrings, static_cast<int>(number), &ServiceString::number);
    return found == std::end(ServiceStrings) ? std::u16string() : found->text;
}

bool IsOffered(const OPTITEM& item)
{
    return item.cbSize >= sizeof item && item.pOptType && item.pOptType->Type == TVOT_PUSHBUTTON &&
           item.pOptType->pOptParam;
}

// A tree with every option, and a frame with the button of the selected one.
user::DialogTemplate Layout()
{
    user::DialogTemplate layout;
    layout.title = PageTitle;
    layout.style = WS_CHILD;
    layout.width = PageWidth;
    layout.height = PageHeight;
    layout.font = u"MS Shell Dlg";
    layout.pointSize = 8;
    const DWORD visible = WS_CHILD | WS_VISIBLE;
    layout.controls.push_back({u"SysTreeView32", u"", 0, Tree, visible | WS_TABSTOP, 0, TreePlace});
    layout.controls.push_back({u"Button", u"", 0, Frame, visible | BS_GROUPBOX, 0, FramePlace});
    layout.controls.push_back(
        {u"Button", u"&Show...", 0, Button, visible | WS_TABSTOP | BS_PUSHBUTTON, 0, ButtonPlace});
    return layout;
}

// The caller's name for the options is the root of the tree.
void FillTree(const COMPROPSHEETUI& sheet, HWND page)
{
    const HWND tree = user::Control(page, Tree);
    user::AppendTreeRow(tree, TextOf(sheet.pOptItemName), 0);
    for (int i = 0; i < sheet.cOptItem; ++i)
        user::AppendTreeRow(tree, TextOf(sheet.pOptItem[i].pName), std::max<int>(sheet.pOptItem[i].Level, 1));
    user::SelectTreeRow(tree, 1);
}

// Null while the root is selected.
OPTITEM* SelectedItem(const COMPROPSHEETUI& sheet, HWND page)
{
    const user::Window* tree = user::Find(user::Control(page, Tree));
    const int place = tree->As<user::TreeState>()->selection - 1;
    return place >= 0 && place < sheet.cOptItem ? &sheet.pOptItem[place] : nullptr;
}

void ShowSelection(const COMPROPSHEETUI& sheet, HWND page)
{
    const OPTITEM* item = SelectedItem(sheet, page);
    user::SetText(user::Control(page, Frame), item ? TextOf(item->pName) : std::u16string());
    user::Enable(user::Control(page, Button), item != nullptr);
}

void Call(const COMPROPSHEETUI& sheet, HWND page, WORD reason, OPTITEM* item)
{
    if (!sheet.pfnCallBack) return;
    CPSUICBPARAM params{};
    params.cbSize = sizeof params;
    params.Reason = reason;
    params.hDlg = page;
    params.pOptItem = sheet.pOptItem;
    params.cOptItem = sheet.cOptItem;
    params.Flags = sheet.Flags;
    params.pCurItem = item;
    params.UserData = sheet.UserData;
    sheet.pfnCallBack(&params);
}

// As a person reads it: 10000 is 1.0000.
std::u16string Fraction(WORD tenThousandths)
{
    const std::string digits = std::to_string(10000 + tenThousandths % 10000).substr(1);
    const std::string text = std::to_string(tenThousandths / 10000) + "." + digits;
    return {text.begin(), text.end()};
}

// The adjustment is the device's own and constant, so it is shown and not edited.
void ShowAdjustment(HWND page, const OPTITEM& item)
{
    const OPTPARAM& option = *item.pOptType->pOptParam;
    if (option.Style != PUSHBUTTON_TYPE_HTCLRADJ || !option.pData || !CurrentEnvironment().desktop) return;
    COLORADJUSTMENT values;
    std::memcpy(&values, option.pData, sizeof values);
    const std::u16string text =
        u"This device fixes its color adjustment:\n\nRed gamma " + Fraction(values.caRedGamma) + u"\nGreen gamma " +
        Fraction(values.caGreenGamma) + u"\nBlue gamma " + Fraction(values.caBlueGamma) + u"\nReference black " +
        Fraction(values.caReferenceBlack) + u"\nReference white " + Fraction(values.caReferenceWhite);
    const user::Covered covered;
    CurrentEnvironment().desktop->MessageBox({page, text, TextOf(item.pName), MB_OK | MB_ICONINFORMATION});
}

void OnButton(const COMPROPSHEETUI& sheet, HWND page)
{
    OPTITEM* item = SelectedItem(sheet, page);
    if (!item) return;
    if (item->Flags & OPTIF_CALLBACK) Call(sheet, page, CPSUICB_REASON_PUSHBUTTON, item);
    ShowAdjustment(page, *item);
}

INT_PTR OptionPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam)
{
    user::Window* window = user::Get(page);
    user::DialogState* state = window ? window->As<user::DialogState>() : nullptr;
    if (!state) return FALSE;
    if (message == WM_INITDIALOG) state->user = lParam;
    const auto* sheet = reinterpret_cast<const COMPROPSHEETUI*>(state->user);
    if (!sheet) return FALSE;
    if (message == WM_INITDIALOG) FillTree(*sheet, page);
    if (message == WM_COMMAND && LowWord(wParam) == Button && HighWord(wParam) == BN_CLICKED) {
        OnButton(*sheet, page);
        return TRUE;
    }
    if (message != WM_NOTIFY) return FALSE;
    const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
    if (code == TVN_SELCHANGEDW) ShowSelection(*sheet, page);
    if (code == PSN_APPLY) Call(*sheet, page, CPSUICB_REASON_APPLYNOW, sheet->pOptItem);
    return FALSE;
}

controls::SheetPagePlan PlanOptions(const COMPROPSHEETUI& sheet)
{
    controls::SheetPagePlan plan;
    plan.title = PageTitle;
    plan.make = [copy = std::make_shared<COMPROPSHEETUI>(sheet)](HWND window) {
        return user::MakeDialog({nullptr, 0, window, OptionPageProc, reinterpret_cast<LPARAM>(copy.get())}, Layout());
    };
    return plan;
}

std::optional<controls::SheetPagePlan> PlanDialogPage(const COMPROPSHEETUI& sheet, const DLGPAGE& page)
{
    if (page.cbSize < sizeof page) return std::nullopt;
    PROPSHEETPAGEW plain{};
    plain.dwSize = sizeof plain;
    plain.hInstance = sheet.hInstCaller;
    plain.pszTemplate = ResourceName(page.DlgTemplateID);
    plain.pfnDlgProc = page.DlgProc;
    plain.lParam = static_cast<LPARAM>(sheet.UserData);
    if (page.pTabName && *page.pTabName) {
        plain.dwFlags = PSP_USETITLE;
        plain.pszTitle = page.pTabName;
    }
    return controls::PlanPage(plain);
}

}  // namespace

std::vector<controls::SheetPagePlan> PlanOptionPages(const COMPROPSHEETUI& sheet)
{
    if (sheet.cbSize < sizeof sheet || (sheet.cOptItem && !sheet.pOptItem) || (sheet.cDlgPage && !sheet.pDlgPage)) {
        return {};
    }
    if (!std::all_of(sheet.pOptItem, sheet.pOptItem + sheet.cOptItem, IsOffered)) return {};
    std::vector<controls::SheetPagePlan> pages;
    if (sheet.cOptItem) pages.push_back(PlanOptions(sheet));
    for (int i = 0; i < sheet.cDlgPage; ++i) {
        auto page = PlanDialogPage(sheet, sheet.pDlgPage[i]);
        if (!page) return {};
        pages.push_back(std::move(*page));
    }
    return pages;
}

}  // namespace platform::services
