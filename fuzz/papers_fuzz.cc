// Stored custom sizes through the capability lists and the custom paper store: loaded, edited, saved, and loaded
// again over the rows of the save. The first two bytes are added to the length that stands beside the bytes, so
// that the two may disagree; they also choose the places that are edited.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "driver_dev_mode.h"
#include "pages/custom_paper_store.h"
#include "pages/custom_paper_work_list.h"
#include "settings/options.h"
#include "spooler/device_capabilities.h"
#include "spooler/paper_lists.h"
#include "spooler/paper_sizes.h"
#include "spooler/printer_data.h"
#include "spooler/printer_events.h"
#include "tests/support/custom_papers.h"

using namespace testing_support;

namespace {

// Rows of a load or a save: as many as are counted, each with its code and a size.
void CheckRows(int rows)
{
    int row = 0;
    for (const PaperRow* at = &CustomHeadRow; at && CustomHeadRow.code != 0; at = at->next.get(), ++row)
        if (at->code != FirstStoredPaperCode + row || !at->size) std::abort();
    if (row != rows || (rows == 0 && CustomHeadRow.next)) std::abort();
}

// As the dialog does: what is stored is listed, a size goes, one changes, one comes, and all are saved.
void Edit(HANDLE printer, int place, int other)
{
    int count = 0;
    const auto entries = ReadCustomPapers(printer, &count);
    for (int i = 0; i < count; ++i) WorkListAppend(entries[static_cast<std::size_t>(i)]);
    WorkListRemoveAt(place);
    if (const CustomPaperEntry* entry = WorkListEntryAt(other)) {
        const CustomPaperEntry copy = *entry;
        WorkListAppend(copy);
        WorkListStoreAt(place, copy);
    }
    const int listed = WorkListCount();
    if (!SaveCustomPapers(listed)) std::abort();
    CheckRows(listed);
    if (const CustomPaperEntry* entry = WorkListEntryAt(0)) {
        const bool stored = StoreCustomPaperRow(CustomHeadRow, *entry, std::max(place, 0)) != 0;
        if (stored != (place <= listed)) std::abort();
        CheckRows(std::max(listed, stored ? place + 1 : 0));
    }
    WorkListFree();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    Machine machine;
    std::int16_t off = 0;
    std::memcpy(&off, data, sizeof off);
    const platform::Bytes bytes(data + 2, data + size);
    StorePapers(machine, bytes, static_cast<DWORD>(bytes.size()) + static_cast<DWORD>(off));

    HANDLE printer = nullptr;
    OpenPrinterW(const_cast<WCHAR*>(OfficePrinter), &printer, nullptr);
    const auto list = [printer](WORD capability, std::size_t rowBytes) {
        const LONG rows = DrvDeviceCapabilities(printer, OfficePrinter, capability, nullptr, nullptr);
        std::vector<std::uint8_t> output(static_cast<std::size_t>(rows) * rowBytes);
        DrvDeviceCapabilities(printer, OfficePrinter, capability, output.data(), nullptr);
    };
    list(DC_PAPERS, sizeof(WORD));
    list(DC_PAPERSIZE, 2 * sizeof(LONG));
    list(DC_PAPERNAMES, PaperNameSlot * sizeof(WCHAR));
    PaperExtent extent{};
    PaperSizeTenths(printer, FirstStoredPaperCode, 0, 1, &extent);
    DriverDevMode record{};
    record.dmPaperSize = FirstStoredPaperCode;
    CurrentSettings = &record;
    lstrcpyW(PrinterName, OfficePrinter);
    LoadCustomPaperList();
    CheckRows(PaperRowCount - BuiltInPaperRows);
    Edit(printer, off & 0x3F, off >> 6 & 0x3F);
    LoadCustomPaperList();
    CheckRows(PaperRowCount - BuiltInPaperRows);
    StorePapers(machine, bytes, static_cast<DWORD>(bytes.size()));
    LoadCustomPaperList();
    CheckRows(PaperRowCount - BuiltInPaperRows);
    ClosePrinter(printer);
    CurrentSettings = nullptr;
    const DRIVER_UPGRADE_INFO_1W info{PrinterName, nullptr};
    DrvUpgradePrinter(1, &info);
    return 0;
}
