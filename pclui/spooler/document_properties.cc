#include "spooler/document_properties.h"

#include "boundary.h"
#include "platform/kernel.h"
#include "platform/user.h"
#include "settings/record_copy.h"
#include "spooler/document_sheet.h"
#include "spooler/ui_context.h"

namespace {

constexpr LONG SizeAnswer = RecordSize;

}  // namespace

LONG RunPropertySheet(HWND window, PFNPROPSHEETUI sheetFunction, LPARAM lParam, DWORD* result)
{
    HMODULE service = LoadLibraryA("compstui.dll");
    if (!service) return -1;
    LONG value = -1;
    if (const FARPROC entry = GetProcAddress(service, "CommonPropertySheetUIW")) {
        value = reinterpret_cast<PFNCOMMONPROPERTYSHEETUI>(entry)(window, sheetFunction, lParam, result);
    }
    FreeLibrary(service);
    return value;
}

LONG DocumentPropertiesNoUi(DOCUMENTPROPERTYHEADER* header)
{
    header->cbOut = RecordSize;
    if (header->fMode == 0 || !header->pdmOut) return SizeAnswer;
    UiContext* context = OpenUiContext(header->hPrinter, header->pszPrinterName, header->pdmIn);
    if (!context) return -1;
    if (header->fMode & (DM_UPDATE | DM_COPY)) CopyRecordOut(&context->settings, header->pdmIn, header->pdmOut);
    CloseUiContext(context);
    return 1;
}

LONG DocumentPropertiesCore(HWND window, HANDLE hPrinter, WCHAR* deviceName, DEVMODEW* pdmOut, DEVMODEW* pdmIn,
                            DWORD fMode)
{
    DOCUMENTPROPERTYHEADER header = {};
    header.cbSize = sizeof header;
    header.hPrinter = hPrinter;
    header.pszPrinterName = deviceName;
    header.pdmIn = pdmIn;
    header.pdmOut = pdmOut;
    header.fMode = fMode;
    if ((fMode & DM_PROMPT) == 0) return DocumentPropertiesNoUi(&header);

    DWORD result = 0;
    const LONG ran = RunPropertySheet(window, DrvDocumentPropertySheets, reinterpret_cast<LPARAM>(&header), &result);
    return ran < 0 ? -1 : static_cast<LONG>(result);
}

LONG DrvDocumentProperties(HWND window, HANDLE hPrinter, WCHAR* deviceName, DEVMODEW* pdmOut, DEVMODEW* pdmIn,
                           DWORD fMode)
{
    return AtBoundary(LONG{-1}, [=]() -> LONG {
        if (fMode == 0 || !pdmOut) return SizeAnswer;
        const LONG result = DocumentPropertiesCore(window, hPrinter, deviceName, pdmOut, pdmIn, fMode);
        if (result < 0) return result;
        return result > 0 ? IDOK : IDCANCEL;
    });
}

LONG DrvAdvancedDocumentProperties(HWND window, HANDLE hPrinter, WCHAR* deviceName, DEVMODEW* pdmOut, DEVMODEW* pdmIn)
{
    return AtBoundary(LONG{0}, [=]() -> LONG {
        if (!pdmOut) return SizeAnswer;
        constexpr DWORD mode = DM_COPY | DM_PROMPT | DM_ADVANCED;
        return DocumentPropertiesCore(window, hPrinter, deviceName, pdmOut, pdmIn, mode) > 0;
    });
}
