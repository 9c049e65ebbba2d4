#include "spooler/printer_data.h"

#include <algorithm>
#include <iterator>

#include "platform/registry.h"
#include "platform/spooler.h"
#include "settings/user_locale.h"

WCHAR PrinterName[PrinterNameChars] = {};

namespace {

struct Slot {
    const WCHAR* sizeValue;
    const WCHAR* dataValue;
};

constexpr Slot Slots[] = {
    {u"PrinterDataSize",     u"PrinterData"    },
    {u"CustomPaperDataSize", u"CustomPaperData"},
    {u"DevmodeDataSize",     u"DevmodeData"    },
    {u"OverlayDataSize",     u"OverlayData"    },
};
static_assert(std::size(Slots) == OverlaySlot + 1);

const Slot* SlotOf(int number) { return number >= 0 && number <= OverlaySlot ? &Slots[number] : nullptr; }

// The platform takes names and bytes that it only reads by references to what could be written.
DWORD GetValue(HANDLE hPrinter, const WCHAR* name, void* data, DWORD bytes)
{
    DWORD type = 0, needed = 0;
    return GetPrinterDataW(hPrinter, const_cast<WCHAR*>(name), &type, static_cast<BYTE*>(data), bytes, &needed);
}

DWORD SetValue(HANDLE hPrinter, const WCHAR* name, DWORD type, const void* data, DWORD bytes)
{
    return SetPrinterDataW(hPrinter, const_cast<WCHAR*>(name), type, const_cast<BYTE*>(static_cast<const BYTE*>(data)),
                           bytes);
}

// Asks for the size, which must be refused for lack of room, and then for the bytes.
template <class Ask>
GlobalBlock<BYTE[]> SizedInfo(Ask ask)
{
    DWORD needed = 0;
    if (ask(nullptr, 0, &needed) || GetLastError() != ERROR_INSUFFICIENT_BUFFER) return nullptr;
    auto block = AllocateBlock<BYTE[]>(needed);
    if (!block || !ask(block.get(), needed, &needed)) return nullptr;
    return block;
}

GlobalBlock<PrinterDataBlock> DefaultPrinterDataBlock()
{
    auto block = AllocateBlock<PrinterDataBlock>(sizeof(PrinterDataBlock));
    if (!block) return nullptr;
    block->version = PrinterDataVersion;
    block->size = sizeof(PrinterDataBlock);
    if (LocaleUsesA4()) block->flags |= PrinterDataUsesA4;
    if (GetACP() != 1252) block->flags |= PrinterDataOtherCodePage;
    return block;
}

// A slot in a block of so many bytes at least.
GlobalBlock<BYTE[]> ReadBlob(HANDLE hPrinter, DWORD* size, int slot, DWORD least)
{
    const Slot* names = SlotOf(slot);
    if (!names) return nullptr;
    DWORD length = 0;
    if (GetValue(hPrinter, names->sizeValue, &length, sizeof length) != 0 || length == 0) return nullptr;
    auto block = AllocateBlock<BYTE[]>(std::max(length, least));
    if (!block || GetValue(hPrinter, names->dataValue, block.get(), length) != 0) return nullptr;
    if (size) *size = length;
    return block;
}

}  // namespace

GlobalBlock<BYTE[]> ReadPrinterBlob(HANDLE hPrinter, DWORD* size, int slot)
{
    return ReadBlob(hPrinter, size, slot, 0);
}

bool WritePrinterBlob(HANDLE hPrinter, const void* data, DWORD size, int slot)
{
    const Slot* names = SlotOf(slot);
    return names && SetValue(hPrinter, names->sizeValue, REG_DWORD, &size, sizeof size) == 0 &&
           SetValue(hPrinter, names->dataValue, REG_BINARY, data, size) == 0;
}

GlobalBlock<PrinterDataBlock> ReadPrinterDataBlock(HANDLE hPrinter)
{
    auto stored = ReadBlob(hPrinter, nullptr, PrinterDataSlot, sizeof(PrinterDataBlock));
    if (!stored) return DefaultPrinterDataBlock();
    return GlobalBlock<PrinterDataBlock>(reinterpret_cast<PrinterDataBlock*>(stored.release()));
}

bool WritePrinterDataBlock(HANDLE hPrinter, const void* data, DWORD size)
{
    return WritePrinterBlob(hPrinter, data, size, PrinterDataSlot);
}

GlobalBlock<BYTE[]> ReadOverlayBlob(HANDLE hPrinter, DWORD* size)
{
    return ReadPrinterBlob(hPrinter, size, OverlaySlot);
}

GlobalBlock<CustomPaperEntry[]> ReadCustomPapers(HANDLE hPrinter, int* count)
{
    DWORD length = 0;
    auto stored = ReadPrinterBlob(hPrinter, &length, CustomPaperSlot);
    *count = static_cast<int>(length / sizeof(CustomPaperEntry));
    return GlobalBlock<CustomPaperEntry[]>(reinterpret_cast<CustomPaperEntry*>(stored.release()));
}

GlobalBlock<BYTE[]> GetPrinterInfo(HANDLE hPrinter, DWORD level)
{
    return SizedInfo([=](BYTE* info, DWORD bytes, DWORD* needed) {
        return GetPrinterW(hPrinter, level, info, bytes, needed) != FALSE;
    });
}

GlobalBlock<BYTE[]> GetDriverInfo(HANDLE hPrinter, DWORD level)
{
    return SizedInfo([=](BYTE* info, DWORD bytes, DWORD* needed) {
        return GetPrinterDriverW(hPrinter, nullptr, level, info, bytes, needed) != FALSE;
    });
}
