#include "spooler/device_sheet.h"

#include "boundary.h"
#include "module.h"
#include "pages/about_dialog.h"
#include "platform/registry.h"
#include "resources/control_numbers.h"
#include "settings/defaults.h"
#include "settings/tray2_value.h"
#include "spooler/document_properties.h"
#include "spooler/option_sheet.h"
#include "spooler/printer_data.h"

DriverDevMode* DeviceSettings = nullptr;
int DeviceSheetOpen = 0;

namespace {

constexpr ULONG_PTR SheetIcon = 64082;  // a number of the service's own
constexpr int TitleChars = 100;

// The page About and its title.
struct AboutTab {
    DLGPAGE page;
    WCHAR title[TitleChars];
};

DLGPAGE* BuildAboutPage(const UiContext& context)
{
    auto* tab = static_cast<AboutTab*>(HeapAlloc(context.heap, HEAP_ZERO_MEMORY, sizeof(AboutTab)));
    if (!tab) return nullptr;
    if (LoadStringW(ResourceHandle, IDS_ABOUT, tab->title, TitleChars) == 0) tab->title[0] = 0;
    AboutIsPage = 1;
    tab->page.cbSize = sizeof tab->page;
    tab->page.DlgProc = About;
    tab->page.pTabName = tab->title;
    tab->page.DlgTemplateID = DLG_ABOUT;
    return &tab->page;
}

bool AddToSheet(UiContext& context, DLGPAGE* page)
{
    COMPROPSHEETUI* sheet = page ? BuildOptionSheet(context, page) : nullptr;
    if (!sheet) return false;
    sheet->pfnCallBack = DeviceSheetCallback;
    DWORD pages = 0;
    return context.pfnComPropSheet(context.hComPropSheet, CPSFUNC_ADD_PCOMPROPSHEETUIW, reinterpret_cast<LPARAM>(sheet),
                                   reinterpret_cast<LPARAM>(&pages)) > 0;
}

// The printer's key decides on Tray2, not a stored record.
void TakeTray2(DriverDevMode& settings, const WCHAR* printerName)
{
    if (ReadTray2(printerName)) {
        settings.dmDeviceFlags |= Tray2Flag;
    } else {
        settings.dmDeviceFlags &= ~Tray2Flag;
    }
}

LONG OpenSheet(PROPSHEETUI_INFO& info, const DEVICEPROPERTYHEADER& header)
{
    if (DeviceSheetOpen) return -1;
    UiContext* context = OpenUiContext(header.hPrinter, header.pszPrinterName, nullptr);
    if (!context) return -1;
    DeviceSettings = &context->settings;
    context->canEdit = (header.Flags & DPS_NOPERMISSION) == 0;
    DLGPAGE* page = BuildAboutPage(*context);
    TakeTray2(context->settings, header.pszPrinterName);
    context->pfnComPropSheet = info.pfnComPropSheet;
    context->hComPropSheet = info.hComPropSheet;
    if (!AddToSheet(*context, page)) {
        DeviceSettings = nullptr;
        CloseUiContext(context);
        return -1;
    }
    DeviceSheetOpen = 1;
    info.UserData = reinterpret_cast<DWORD_PTR>(context);
    info.Result = 0;
    return 1;
}

LONG NameSheet(const DEVICEPROPERTYHEADER& header, LPARAM lParam)
{
    auto* sheet = reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(lParam);
    if (!sheet) return -1;
    sheet->Flags = PSUIHDRF_PROPTITLE;
    sheet->pTitle = header.pszPrinterName;
    sheet->hInst = ModuleHandle;
    sheet->IconID = SheetIcon;
    return 1;
}

LONG EndSheet(PROPSHEETUI_INFO& info, const DEVICEPROPERTYHEADER& header, LPARAM lParam)
{
    const auto* ending = reinterpret_cast<const SETRESULT_INFO*>(lParam);
    if (!ending) return -1;
    DeviceSheetOpen = 0;
    info.Result = static_cast<DWORD_PTR>(ending->Result);
    WriteTray2(header.pszPrinterName, (DeviceSettings->dmDeviceFlags & Tray2Flag) != 0);
    return 1;
}

LONG CloseSheet(UiContext* context)
{
    DeviceSheetOpen = 0;
    DeviceSettings = nullptr;
    CloseUiContext(context);
    return 1;
}

LONG AnswerService(PROPSHEETUI_INFO& info, const DEVICEPROPERTYHEADER& header, LPARAM lParam)
{
    if (info.Reason == PROPSHEETUI_REASON_INIT) return OpenSheet(info, header);
    auto* context = reinterpret_cast<UiContext*>(info.UserData);
    if (!IsWholeContext(context)) return -1;
    DeviceSettings = &context->settings;
    switch (info.Reason) {
        case PROPSHEETUI_REASON_GET_INFO_HEADER:
            return NameSheet(header, lParam);
        case PROPSHEETUI_REASON_DESTROY:
            return CloseSheet(context);
        case PROPSHEETUI_REASON_SET_RESULT:
            return EndSheet(info, header, lParam);
        default:
            return -1;
    }
}

}  // namespace

LONG DrvDevicePropertySheets(PROPSHEETUI_INFO* info, LPARAM lParam)
{
    return AtBoundary(LONG{-1}, [=]() -> LONG {
        if (!info || !info->lParamInit) return -1;
        return AnswerService(*info, *reinterpret_cast<const DEVICEPROPERTYHEADER*>(info->lParamInit), lParam);
    });
}

LONG DeviceSheetCallback(CPSUICBPARAM* params)
{
    return AtBoundary(CPSUICB_ACTION_NONE, [=]() -> LONG {
        auto* context = params ? reinterpret_cast<UiContext*>(params->UserData) : nullptr;
        if (!context) return CPSUICB_ACTION_NONE;
        context->sheetWindow = params->hDlg;
        if (context->canEdit != 1 || params->Reason != CPSUICB_REASON_APPLYNOW) return CPSUICB_ACTION_NONE;
        WritePrinterDataBlock(context->hPrinter, &context->printerData, sizeof context->printerData);
        params->Result = CPSUI_OK;
        return CPSUICB_ACTION_ITEMS_APPLIED;
    });
}

BOOL PrinterProperties(HWND window, HANDLE hPrinter)
{
    return AtBoundary(BOOL{TRUE}, [=]() -> BOOL {
        DEVICEPROPERTYHEADER header = {};
        header.cbSize = sizeof header;
        header.hPrinter = hPrinter;
        DWORD permission = 1;
        if (SetPrinterDataW(hPrinter, const_cast<WCHAR*>(u"Permission"), REG_DWORD,
                            reinterpret_cast<BYTE*>(&permission), sizeof permission) != 0) {
            header.Flags |= DPS_NOPERMISSION;
        }
        DWORD result = 1;
        RunPropertySheet(window, DrvDevicePropertySheets, reinterpret_cast<LPARAM>(&header), &result);
        return result != 0;
    });
}
