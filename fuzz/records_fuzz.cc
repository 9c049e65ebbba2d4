// A caller's record through the entries for properties, capabilities and conversion. The first byte says how
// much room a conversion has, the rest is the record.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "driver_dev_mode.h"
#include "settings/record_copy.h"
#include "spooler/device_capabilities.h"
#include "spooler/document_properties.h"
#include "spooler/record_conversion.h"
#include "tests/support/machine.h"

namespace {

using testing_support::Machine;
using testing_support::OfficePrinter;

// The record in a block of exactly the length that its own size fields promise, as callers hand it in.
struct Caller {
    explicit Caller(const std::uint8_t* data, std::size_t size)
    {
        DEVMODEW header{};
        std::memcpy(&header, data, std::min(size, sizeof header));
        const std::size_t promised = std::max(RecordBytes(header), offsetof(DEVMODEW, dmFields));
        block.reset(static_cast<DEVMODEW*>(std::calloc(1, promised)));
        std::memcpy(block.get(), data, std::min(size, promised));
    }
    struct Freer {
        void operator()(DEVMODEW* record) const { std::free(record); }
    };
    std::unique_ptr<DEVMODEW, Freer> block;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    const LONG room = data[0] * 16;
    static const Machine machine;
    static HANDLE printer = [] {
        HANDLE handle = nullptr;
        OpenPrinterW(const_cast<WCHAR*>(OfficePrinter), &handle, nullptr);
        return handle;
    }();
    Caller caller(data + 1, size - 1);
    DEVMODEW* const record = caller.block.get();

    const auto out = std::make_unique<std::uint8_t[]>(RecordBytes(*record) + RecordSize);
    auto* const answer = reinterpret_cast<DEVMODEW*>(out.get());
    DrvDocumentProperties(nullptr, printer, const_cast<WCHAR*>(OfficePrinter), answer, record, DM_COPY | DM_MODIFY);

    for (const WORD capability : {DC_FIELDS, DC_PAPERS, DC_TRUETYPE, DC_PRINTRATEPPM})
        DrvDeviceCapabilities(printer, OfficePrinter, capability, nullptr, record);

    for (const DWORD mode : {CDM_CONVERT, CDM_CONVERT351, CDM_DRIVER_DEFAULT}) {
        const auto target = std::make_unique<std::uint8_t[]>(static_cast<std::size_t>(room));
        if (static_cast<std::size_t>(room) >= size) std::memcpy(target.get(), data, size);
        LONG needed = room;
        DrvConvertDevMode(OfficePrinter, record, reinterpret_cast<DEVMODEW*>(target.get()), &needed, mode);
    }
    DEVQUERYPRINT_INFO info{sizeof info, 1, printer, record, nullptr, 0, 0};
    DevQueryPrintEx(&info);
    return 0;
}
