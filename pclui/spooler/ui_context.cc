#include "spooler/ui_context.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "settings/defaults.h"
#include "settings/merge.h"
#include "settings/wide_text.h"
#include "spooler/printer_data.h"

namespace {

constexpr SIZE_T InitialHeapBytes = 8192;

struct ContextCloser {
    void operator()(UiContext* context) const { CloseUiContext(context); }
};

std::unique_ptr<UiContext, ContextCloser> NewContext(HANDLE hPrinter)
{
    HANDLE heap = HeapCreate(0, InitialHeapBytes, 0);
    if (!heap) return nullptr;
    auto* context = static_cast<UiContext*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, sizeof(UiContext)));
    if (!context) {
        HeapDestroy(heap);
        return nullptr;
    }
    context->heap = heap;
    context->hPrinter = hPrinter;
    context->self = context->selfEnd = context;
    return std::unique_ptr<UiContext, ContextCloser>(context);
}

// A name that does not fit whole is refused: a cut one could be that of another printer.
bool TakePrinterName(const WCHAR* name)
{
    if (std::u16string_view(name).size() >= PrinterNameChars) return false;
    CopyBounded(PrinterName, name, PrinterNameChars);
    return true;
}

bool TakePrinterData(UiContext& context)
{
    const auto block = ReadPrinterDataBlock(context.hPrinter);
    if (!block) return false;
    const std::size_t bytes = std::min<std::size_t>(block->size, sizeof context.printerData);
    std::copy_n(reinterpret_cast<const BYTE*>(block.get()), bytes, reinterpret_cast<BYTE*>(&context.printerData));
    context.printerData.version = PrinterDataVersion;
    context.printerData.size = sizeof context.printerData;
    return true;
}

}  // namespace

UiContext* OpenUiContext(HANDLE hPrinter, const WCHAR*, const DEVMODEW* pdmIn)
{
    auto context = NewContext(hPrinter);
    if (!context) return nullptr;
    const auto block = GetPrinterInfo(hPrinter, 2);
    if (!block) return nullptr;
    const auto& printer = InfoIn<PRINTER_INFO_2W>(block);
    context->driverName = HeapCopyString(printer.pDriverName, context->heap);
    if (!context->driverName || !TakePrinterName(printer.pPrinterName)) return nullptr;

    BuildDefaultSettings(&context->settings, context->driverName, printer.pPrinterName, 0);
    MergeSettings(&context->settings, printer.pDevMode);  // a record that can't be used leaves the settings
    MergeSettings(&context->settings, pdmIn);
    if (!TakePrinterData(*context)) return nullptr;
    return context.release();
}

bool IsWholeContext(const UiContext* context)
{
    return context && context->self == context && context->selfEnd == context;
}

void CloseUiContext(UiContext* context)
{
    HANDLE heap = context->heap;
    HeapDestroy(heap);
}
