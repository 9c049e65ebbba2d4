// A caller's record through the entries for properties, capabilities and conversion. The first byte says how
// much room a conversion has, the rest is the record. A conversion's target has the shape of the record itself,
// then the one that the last four bytes say.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "driver_dev_mode.h"
#include "settings/record_copy.h"
#include "spooler/device_capabilities.h"
#include "spooler/document_properties.h"
#include "spooler/paper_lists.h"
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

struct Capability {
    WORD code;
    std::size_t rowBytes;  // 0: nothing is written
};
constexpr Capability Capabilities[] = {
    {0,                  0                            },
    {DC_FIELDS,          0                            },
    {DC_PAPERS,          sizeof(WORD)                 },
    {DC_PAPERSIZE,       2 * sizeof(LONG)             },
    {DC_MINEXTENT,       0                            },
    {DC_MAXEXTENT,       0                            },
    {DC_BINS,            sizeof(WORD)                 },
    {DC_DUPLEX,          0                            },
    {DC_SIZE,            0                            },
    {DC_EXTRA,           0                            },
    {DC_VERSION,         0                            },
    {DC_DRIVER,          0                            },
    {DC_BINNAMES,        BinNameSlot * sizeof(WCHAR)  },
    {DC_ENUMRESOLUTIONS, 2 * sizeof(LONG)             },
    {DC_TRUETYPE,        0                            },
    {DC_PAPERNAMES,      PaperNameSlot * sizeof(WCHAR)},
    {DC_ORIENTATION,     0                            },
    {DC_COPIES,          0                            },
    {DC_MEDIAREADY,      PaperNameSlot * sizeof(WCHAR)},
    {DC_STAPLE,          0                            },
    {DC_PRINTRATEPPM,    0                            },
    {DC_COLORDEVICE,     0                            },
};

// Without output, then with one of exactly the room that the answer promises.
void AskCapabilities(HANDLE printer, const DEVMODEW* record)
{
    for (const Capability& capability : Capabilities) {
        const LONG rows = DrvDeviceCapabilities(printer, OfficePrinter, capability.code, nullptr, record);
        std::vector<std::uint8_t> output(static_cast<std::size_t>(rows) * capability.rowBytes);
        const LONG again = DrvDeviceCapabilities(printer, OfficePrinter, capability.code, output.data(), record);
        if (rows != again && capability.code != DC_MEDIAREADY) std::abort();
    }
    // The list of files is empty, but ends.
    WORD files = 1;
    if (DrvDeviceCapabilities(printer, OfficePrinter, DC_FILEDEPENDENCIES, &files, record) != 0 || files) std::abort();
}

void Convert(const DEVMODEW* record, std::vector<std::uint8_t> target)
{
    for (const DWORD mode : {CDM_CONVERT, CDM_CONVERT351, CDM_DRIVER_DEFAULT}) {
        std::vector<std::uint8_t> output = target;
        auto needed = static_cast<LONG>(output.size());
        DrvConvertDevMode(OfficePrinter, record, reinterpret_cast<DEVMODEW*>(output.data()), &needed, mode);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
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

    AskCapabilities(printer, record);

    std::vector<std::uint8_t> target(data[0] * std::size_t{16});
    std::copy_n(data + 1, std::min(size - 1, target.size()), target.begin());
    Convert(record, target);
    if (size > 4 && target.size() >= sizeof(DEVMODEW)) {
        auto* const shape = reinterpret_cast<DEVMODEW*>(target.data());
        std::memcpy(&shape->dmSize, data + size - 4, sizeof shape->dmSize);
        std::memcpy(&shape->dmDriverExtra, data + size - 2, sizeof shape->dmDriverExtra);
        Convert(record, target);
    }
    DEVQUERYPRINT_INFO info{sizeof info, 1, printer, record, nullptr, 0, 0};
    DevQueryPrintEx(&info);
    return 0;
}
