// Stored custom sizes through the capability lists and the custom paper store. The first two bytes are added to
// the length that stands beside the bytes, so that the two may disagree.
#include <cstring>
#include <vector>

#include "driver_dev_mode.h"
#include "pages/custom_paper_store.h"
#include "settings/options.h"
#include "spooler/device_capabilities.h"
#include "spooler/paper_lists.h"
#include "spooler/paper_sizes.h"
#include "spooler/printer_data.h"
#include "spooler/printer_events.h"
#include "tests/support/custom_papers.h"

using namespace testing_support;

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
    ClosePrinter(printer);

    DriverDevMode record{};
    record.dmPaperSize = FirstStoredPaperCode;
    CurrentSettings = &record;
    lstrcpyW(PrinterName, OfficePrinter);
    LoadCustomPaperList();
    CurrentSettings = nullptr;
    const DRIVER_UPGRADE_INFO_1W info{PrinterName, nullptr};
    DrvUpgradePrinter(1, &info);
    return 0;
}
