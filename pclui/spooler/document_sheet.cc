#include "spooler/document_sheet.h"

#include <iterator>

#include "boundary.h"
#include "module.h"
#include "pages/device_options_page.h"
#include "pages/paper_page.h"
#include "pages/quality_page.h"
#include "pages/setup_page.h"
#include "resources/control_numbers.h"
#include "settings/options.h"
#include "spooler/document_properties.h"
#include "spooler/printer_data.h"
#include "spooler/record_answer.h"

PROPSHEETPAGEW DocumentPages[MostDocumentPages] = {};
int DocumentSheetCount = 0;
UiContext* ParkedContexts = nullptr;

namespace {

constexpr SheetPageRow Pages[] = {
    {IDD_SETUP,          PageLayout_DlgProc  },
    {IDD_PAPER,          Paper_DlgProc       },
    {IDD_QUALITY,        Quality_DlgProc     },
    {IDD_DEVICE_OPTIONS, DeviceOption_DlgProc},
};
static_assert(std::size(Pages) <= MostDocumentPages);

constexpr ULONG_PTR SheetIcon = 64082;  // a number of the service's own

// A test of the user's rights: the handle is not used.
bool MayChangePrinter()
{
    PRINTER_DEFAULTSW defaults = {};
    defaults.DesiredAccess = PRINTER_ALL_ACCESS;
    HANDLE printer = nullptr;
    if (!OpenPrinterW(PrinterName, &printer, &defaults)) return false;
    ClosePrinter(printer);
    return true;
}

void BuildDocumentPages(UiContext& context)
{
    PROPSHEETPAGEW* page = DocumentPages;
    for (PROPSHEETPAGEW& cleared : DocumentPages) cleared = {};
    for (const SheetPageRow& row : Pages) {
        page->dwSize = sizeof *page;
        page->dwFlags = PSP_HASHELP;
        page->hInstance = ModuleHandle;
        page->pszTemplate = ResourceName(row.dialogTemplate);
        page->pfnDlgProc = row.procedure;
        page->lParam = reinterpret_cast<LPARAM>(&context);
        ++page;
    }
}

bool AddDocumentPages(const UiContext& context)
{
    for (std::size_t k = 0; k < std::size(Pages); ++k) {
        if (context.pfnComPropSheet(context.hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW,
                                    reinterpret_cast<LPARAM>(&DocumentPages[k]), 0) == 0) {
            return false;
        }
    }
    return true;
}

LONG SetUp(UiContext& context, PROPSHEETUI_INFO& info, const DOCUMENTPROPERTYHEADER& header, LPARAM lParam)
{
    ++DocumentSheetCount;
    context.canEdit = (header.fMode & DM_NOPERMISSION) == 0;
    if (!MayChangePrinter()) context.canEdit = 0;
    BuildDocumentPages(context);
    context.pfnComPropSheet = info.pfnComPropSheet;
    context.hComPropSheet = info.hComPropSheet;
    if (!AddDocumentPages(context)) {
        --DocumentSheetCount;
        return -1;
    }
    context.header = reinterpret_cast<DOCUMENTPROPERTYHEADER*>(lParam);
    info.UserData = reinterpret_cast<DWORD_PTR>(&context);
    info.Result = 0;
    return 1;
}

// A sheet that can't be set up leaves the pages of any other one with the record that they had.
LONG OpenSheet(PROPSHEETUI_INFO& info, const DOCUMENTPROPERTYHEADER& header, LPARAM lParam)
{
    UiContext* context = OpenUiContext(header.hPrinter, header.pszPrinterName, header.pdmIn);
    if (!context) return -1;
    DriverDevMode* const before = CurrentSettings;
    CurrentSettings = &context->settings;
    const LONG result = SetUp(*context, info, header, lParam);
    if (result < 0) {
        CurrentSettings = before;
        CloseUiContext(context);
    }
    return result;
}

LONG NameSheet(const DOCUMENTPROPERTYHEADER& header, LPARAM lParam)
{
    auto* sheet = reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(lParam);
    if (!sheet) return -1;
    sheet->Flags = PSUIHDRF_PROPTITLE;
    sheet->pTitle = header.pszPrinterName;
    sheet->hInst = ResourceHandle;
    sheet->IconID = SheetIcon;
    return 1;
}

LONG EndSheet(UiContext& context, PROPSHEETUI_INFO& info, const DOCUMENTPROPERTYHEADER& header, LPARAM lParam)
{
    const auto* ending = reinterpret_cast<const SETRESULT_INFO*>(lParam);
    if (!ending) return -1;
    if (ending->Result == CPSUI_OK) HandOutRecord(context);
    info.Result = static_cast<DWORD_PTR>(ending->Result);
    FixUpCustomPaper(context.hPrinter, header.pdmOut);
    FixUpCustomPaper(context.hPrinter, PublicPart(CurrentSettings));
    return 1;
}

LONG CloseSheet(UiContext& context)
{
    context.nextParked = ParkedContexts;
    ParkedContexts = &context;
    if (--DocumentSheetCount > 0) return 1;
    while (UiContext* gone = ParkedContexts) {
        ParkedContexts = gone->nextParked;
        CloseUiContext(gone);
    }
    return 1;
}

LONG AnswerService(PROPSHEETUI_INFO& info, DOCUMENTPROPERTYHEADER& header, LPARAM lParam)
{
    if (info.Reason == PROPSHEETUI_REASON_INIT) return OpenSheet(info, header, lParam);
    auto* context = reinterpret_cast<UiContext*>(info.UserData);
    if (!IsWholeContext(context)) return -1;
    CurrentSettings = &context->settings;
    switch (info.Reason) {
        case PROPSHEETUI_REASON_GET_INFO_HEADER:
            return NameSheet(header, lParam);
        case PROPSHEETUI_REASON_DESTROY:
            return CloseSheet(*context);
        case PROPSHEETUI_REASON_SET_RESULT:
            return EndSheet(*context, info, header, lParam);
        default:
            return -1;
    }
}

LONG AnswerWithoutSheet(DOCUMENTPROPERTYHEADER& header)
{
    const LONG result = DocumentPropertiesNoUi(&header);
    FixUpCustomPaper(header.hPrinter, header.pdmOut);
    return result;
}

}  // namespace

const std::span<const SheetPageRow> PageTable = Pages;

LONG DrvDocumentPropertySheets(PROPSHEETUI_INFO* info, LPARAM lParam)
{
    return AtBoundary(LONG{-1}, [=]() -> LONG {
        auto* header = reinterpret_cast<DOCUMENTPROPERTYHEADER*>(info ? info->lParamInit : lParam);
        if (!header) return -1;
        return info ? AnswerService(*info, *header, lParam) : AnswerWithoutSheet(*header);
    });
}
