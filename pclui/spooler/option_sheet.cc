#include "spooler/option_sheet.h"

#include "module.h"
#include "settings/wide_text.h"
#include "spooler/printer_data.h"

namespace {

// Numbers of the service's own: the option's name, its picture and the sheet's.
constexpr ULONG_PTR OptionName = 64792;
constexpr ULONG_PTR OptionIcon = 64047;
constexpr ULONG_PTR TreeIcon = 64062;

constexpr WCHAR CallerName[] = u"PCL DRIVER";
constexpr WORD CallerVersion = 1024;

constexpr WCHAR HelpFileName[] = u"\\pscript.hlp";

// Gammas and references are in ten-thousandths.
constexpr COLORADJUSTMENT Adjustment = {
    .caSize = sizeof(COLORADJUSTMENT),
    .caFlags = 0,
    .caIlluminantIndex = 0,
    .caRedGamma = 10000,
    .caGreenGamma = 10000,
    .caBlueGamma = 10000,
    .caReferenceBlack = 0,
    .caReferenceWhite = 10000,
    .caContrast = 0,
    .caBrightness = 0,
    .caColorfulness = 0,
    .caRedGreenTint = 0,
};

template <class Block>
Block* NewBlock(HANDLE heap)
{
    return static_cast<Block*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, sizeof(Block)));
}

// The service only reads what it is given.
WCHAR* Lent(const WCHAR* text) { return const_cast<WCHAR*>(text); }

OPTPARAM* BuildParameter(HANDLE heap)
{
    auto* parameter = NewBlock<OPTPARAM>(heap);
    if (!parameter) return nullptr;
    parameter->cbSize = sizeof *parameter;
    parameter->Style = PUSHBUTTON_TYPE_HTCLRADJ;
    parameter->pData = const_cast<WCHAR*>(reinterpret_cast<const WCHAR*>(&Adjustment));
    parameter->IconID = OptionIcon;
    return parameter;
}

OPTTYPE* BuildType(HANDLE heap)
{
    auto* type = NewBlock<OPTTYPE>(heap);
    if (!type) return nullptr;
    type->cbSize = sizeof *type;
    type->Type = TVOT_PUSHBUTTON;
    type->Count = 1;
    type->pOptParam = BuildParameter(heap);
    return type->pOptParam ? type : nullptr;
}

OPTITEM* BuildItem(HANDLE heap)
{
    auto* item = NewBlock<OPTITEM>(heap);
    if (!item) return nullptr;
    item->cbSize = sizeof *item;
    item->Level = 1;
    item->Flags = OPTIF_CALLBACK;
    item->pName = reinterpret_cast<WCHAR*>(OptionName);
    item->pOptType = BuildType(heap);
    item->UserItemID = 1;
    return item->pOptType ? item : nullptr;
}

}  // namespace

COMPROPSHEETUI* BuildOptionSheet(UiContext& context, DLGPAGE* page)
{
    auto* sheet = NewBlock<COMPROPSHEETUI>(context.heap);
    if (!sheet) return nullptr;
    sheet->cbSize = sizeof *sheet;
    sheet->Flags = CPSUIF_UPDATE_PERMISSION;
    sheet->hInstCaller = ModuleHandle;
    sheet->pCallerName = Lent(CallerName);
    sheet->UserData = reinterpret_cast<ULONG_PTR>(&context);
    sheet->pHelpFile = HelpFilePath(context.hPrinter, context.heap);
    sheet->pOptItem = BuildItem(context.heap);
    sheet->cOptItem = 1;
    sheet->pDlgPage = page;
    sheet->cDlgPage = 1;
    sheet->IconID = TreeIcon;
    sheet->pOptItemName = context.driverName;
    sheet->CallerVersion = CallerVersion;
    return sheet->pOptItem ? sheet : nullptr;
}

WCHAR* HelpFilePath(HANDLE hPrinter, HANDLE heap)
{
    if (const auto block = GetDriverInfo(hPrinter, 3)) {
        const WCHAR* file = InfoIn<DRIVER_INFO_3W>(block).pHelpFile;
        if (file) return HeapCopyString(file, heap);
    }
    DWORD bytes = 0;
    if (GetPrinterDriverDirectoryW(nullptr, nullptr, 1, nullptr, 0, &bytes)) return nullptr;
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return nullptr;
    auto* path = static_cast<WCHAR*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, bytes + sizeof HelpFileName));
    if (!path) return nullptr;
    if (!GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(path), bytes, &bytes)) return nullptr;
    return lstrcatW(path, HelpFileName);
}
