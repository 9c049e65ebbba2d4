// What the print subsystem keeps with a printer and knows about it. No function here says why it failed:
// null or false is all, and the last error stays as the platform left it.
#pragma once

#include "settings/global_block.h"
#include "spooler/stored_records.h"

inline constexpr int PrinterNameChars = 256;

// The name of the printer whose context was opened last, by which everything that has no printer handle of
// its own opens it. Written when a context is opened.
extern WCHAR PrinterName[PrinterNameChars];

// Stored blobs: a length and the bytes, each a value of its own.
inline constexpr int PrinterDataSlot = 0;
inline constexpr int CustomPaperSlot = 1;
inline constexpr int DevmodeSlot = 2;  // reserved; nothing reads or writes it
inline constexpr int OverlaySlot = 3;

// The bytes of a slot, zeros behind what is stored of them, or null; size, which may be null, takes the length.
GlobalBlock<BYTE[]> ReadPrinterBlob(HANDLE hPrinter, DWORD* size, int slot);
// True if both values were written. The length goes first: if the bytes then fail, it stands beside the old ones.
bool WritePrinterBlob(HANDLE hPrinter, const void* data, DWORD size, int slot);

// The printer's block, or the default one if there is none; at least the 8 bytes of the structure, zero where
// the stored one is shorter. Null only without memory.
GlobalBlock<PrinterDataBlock> ReadPrinterDataBlock(HANDLE hPrinter);
bool WritePrinterDataBlock(HANDLE hPrinter, const void* data, DWORD size);

GlobalBlock<BYTE[]> ReadOverlayBlob(HANDLE hPrinter, DWORD* size);
// count takes the number of whole entries, 0 if there are none.
GlobalBlock<CustomPaperEntry[]> ReadCustomPapers(HANDLE hPrinter, int* count);

// The platform's information of that level in one block, or null.
GlobalBlock<BYTE[]> GetPrinterInfo(HANDLE hPrinter, DWORD level);
GlobalBlock<BYTE[]> GetDriverInfo(HANDLE hPrinter, DWORD level);  // for the default environment

template <class Info>
const Info& InfoIn(const GlobalBlock<BYTE[]>& block)
{
    return *reinterpret_cast<const Info*>(block.get());
}
