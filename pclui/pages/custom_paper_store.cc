#include "pages/custom_paper_store.h"

#include <algorithm>
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

// Makes the row behind last, of which last is null for the head row, equal to the entry, and makes the row if
// there is none. Null without memory: no row stands in the chain without a size.
PaperRow* StoreBehind(PaperRow& headRow, PaperRow* last, const CustomPaperEntry& entry, int position)
{
    PaperRow* row = last ? last->next.get() : &headRow;
    std::unique_ptr<PaperRow> made;
    if (!row) {
        made.reset(new (std::nothrow) PaperRow);
        row = made.get();
    }
    if (!row || !GiveSize(*row, entry)) return nullptr;
    GiveName(*row, entry);
    row->code = FirstStoredPaperCode + position;
    if (made) last->next = std::move(made);
    return row;
}

// Makes the rows those of the entries and gives their number; memory may end the list early. A head row that no
// size can be had for was empty before, too.
int StoreRows(const CustomPaperEntry* entries, int count)
{
    PaperRow* last = nullptr;
    int stored = 0;
    for (; stored < count; ++stored) {
        PaperRow* row = StoreBehind(CustomHeadRow, last, entries[stored], stored);
        if (!row) break;
        last = row;
    }
    ReleaseRowsBehind(last ? *last : CustomHeadRow);
    return stored;
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
    const int built = StoreRows(entries.get(), std::min(count, MostRows));
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
    PaperRow* last = position > 0 ? &headRow : nullptr;
    for (int i = 1; i < position && last; ++i) last = last->next.get();
    if (position > 0 && !last) return 0;
    return StoreBehind(headRow, last, entry, position) ? 1 : 0;
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
    auto* const records = reinterpret_cast<CustomPaperEntry*>(buffer.Bytes());
    int listed = 0;
    for (CustomPaperNode* node = CustomPaperWorkList.get(); node && listed < count; node = node->next.get()) {
        node->entry.cpCode = static_cast<SHORT>(FirstStoredPaperCode + listed);
        records[listed++] = node->entry;
    }
    StoreRows(records, listed);
    WritePrinterBlob(printer.Handle(), buffer.Bytes(), bytes, CustomPaperSlot);
    printer.Close();
    return true;
}
