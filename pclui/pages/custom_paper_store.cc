#include "pages/custom_paper_store.h"

#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "pages/custom_paper_units.h"
#include "pages/custom_paper_work_list.h"
#include "settings/options.h"
#include "settings/wide_text.h"
#include "spooler/opened_printer.h"
#include "spooler/printer_data.h"

namespace {

constexpr int NameChars = sizeof(CustomPaperEntry::cpName) / sizeof(WCHAR);
// Positions share a result with the mark for none.
constexpr int MostRows = NoCustomPaper - 1;

bool GiveSize(PaperRow& row, const CustomPaperEntry& entry)
{
    if (!row.size) row.size.reset(new (std::nothrow) PaperSizeRecord);
    if (!row.size) return false;
    *row.size = RowSize(entry);
    return true;
}

// A stored name may lack its terminator; it ends with its field.
void GiveName(PaperRow& row, const CustomPaperEntry& entry)
{
    WCHAR name[NameChars + 1] = {};
    std::memcpy(name, entry.cpName, sizeof(entry.cpName));
    CopyBounded(row.name, name, RowNameChars);
}

// The row at the end of what was built so far: the head for the first entry, else a new one behind last.
PaperRow* NextRow(PaperRow* last)
{
    if (!last) return &CustomHeadRow;
    last->next.reset(new (std::nothrow) PaperRow);
    return last->next.get();
}

// Builds the rows of count entries and gives their number; memory may end the list early.
int BuildRows(const CustomPaperEntry* entries, int count)
{
    PaperRow* last = nullptr;
    int built = 0;
    for (; built < count; ++built) {
        PaperRow* row = NextRow(last);
        if (!row) break;
        GiveName(*row, entries[built]);
        if (!GiveSize(*row, entries[built])) {
            if (last) last->next.reset();
            break;
        }
        row->code = FirstStoredPaperCode + built;
        last = row;
    }
    if (built == 0) CustomHeadRow.code = 0;
    return built;
}

void EmptyRows()
{
    CustomHeadRow.code = 0;
    ReleaseRowsBehind(CustomHeadRow);
}

}  // namespace

void ReleaseRowsBehind(PaperRow& row)
{
    // One by one: a long chain must not be released by nested destructors.
    while (row.next) row.next = std::move(row.next->next);
}

DWORD LoadCustomPaperRows()
{
    const int wanted = CurrentSettings ? CurrentSettings->dmPaperSize : 0;
    const OpenedPrinter printer(PrinterName, PRINTER_READ);
    if (!printer) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return MakeLong(NoCustomPaper, 0);
    }
    int count = 0;
    const GlobalBlock<CustomPaperEntry[]> entries = ReadCustomPapers(printer.Handle(), &count);
    if (!entries || count == 0) {
        EmptyRows();
        return MakeLong(NoCustomPaper, 0);
    }
    ReleaseRowsBehind(CustomHeadRow);
    const int built = BuildRows(entries.get(), count < MostRows ? count : MostRows);
    const int position = wanted - FirstStoredPaperCode;
    const bool found = position >= 0 && position < built;
    return MakeLong(found ? static_cast<DWORD>(position) : NoCustomPaper, static_cast<DWORD>(built));
}

void LoadCustomPaperList()
{
    const DWORD loaded = LoadCustomPaperRows();
    PaperRowCount = BuiltInPaperRows + HighWord(loaded);
    if (LowWord(loaded) != NoCustomPaper) SelectedPaperRow = BuiltInPaperRows + LowWord(loaded);
}

int StoreCustomPaperRow(PaperRow& headRow, const CustomPaperEntry& entry, int position)
{
    PaperRow* row = &headRow;
    for (int i = 0; i < position; ++i) {
        if (!row->next) {
            std::unique_ptr<PaperRow> made(new (std::nothrow) PaperRow);
            // No row stands in the chain without a size.
            if (!made || !GiveSize(*made, entry)) return 0;
            row->next = std::move(made);
        }
        row = row->next.get();
    }
    if (!GiveSize(*row, entry)) return 0;
    GiveName(*row, entry);
    row->code = FirstStoredPaperCode + position;
    return 1;
}

bool SaveCustomPapers(int count)
{
    OpenedPrinter printer(PrinterName, PRINTER_ALL_ACCESS);
    if (!printer) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    if (count == 0) {
        WritePrinterBlob(printer.Handle(), nullptr, 0, CustomPaperSlot);
        printer.Close();
        EmptyRows();
        return true;
    }
    const DWORD bytes = static_cast<DWORD>(count) * sizeof(CustomPaperEntry);
    const LockedBlock buffer(bytes);
    if (!buffer) return false;
    PaperRow* last = &CustomHeadRow;
    for (int i = 0; i < count; ++i) {
        CustomPaperEntry* entry = WorkListEntryAt(i);
        if (!entry) break;
        entry->cpCode = static_cast<SHORT>(FirstStoredPaperCode + i);
        StoreCustomPaperRow(CustomHeadRow, *entry, i);
        std::memcpy(buffer.Bytes() + i * sizeof(CustomPaperEntry), entry, sizeof(CustomPaperEntry));
        if (i > 0 && last->next) last = last->next.get();
    }
    WritePrinterBlob(printer.Handle(), buffer.Bytes(), bytes, CustomPaperSlot);
    printer.Close();
    ReleaseRowsBehind(*last);
    return true;
}
