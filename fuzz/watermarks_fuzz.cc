// The three stored values of a printer's watermarks: loading, saving what was loaded, refreshing a job's row. The
// first four bytes say how long the first two values are, the rest is divided accordingly. What is saved must
// read back as the list that was saved.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "settings/defaults.h"
#include "spooler/printer_data.h"
#include "tests/support/machine.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_load.h"
#include "watermark/watermark_values.h"

namespace {

using testing_support::Machine;
using testing_support::OfficePrinter;

platform::Bytes Take(const std::uint8_t*& data, std::size_t& size, std::size_t count)
{
    count = std::min(count, size);
    platform::Bytes bytes(data, data + count);
    data += count;
    size -= count;
    return bytes;
}

std::vector<WatermarkRecord> Rows()
{
    std::vector<WatermarkRecord> rows;
    for (int i = 1; const WatermarkRecord* row = WatermarkRowAt(i); ++i) {
        rows.push_back(*row);
        rows.back().wmId = 0;  // numbered anew when they are read
        rows.back().wmListHandle = 0;
    }
    return rows;
}

bool Same(const WatermarkRecord& a, const WatermarkRecord& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

void Require(bool holds)
{
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 4) return 0;
    std::uint16_t lengths[2];
    std::memcpy(lengths, data, sizeof lengths);
    data += sizeof lengths;
    size -= sizeof lengths;
    Machine machine;
    lstrcpyW(PrinterName, OfficePrinter);
    machine.store->SetValue(OfficePrinter, u"WatermarkText", {3, Take(data, size, lengths[0])});
    machine.store->SetValue(OfficePrinter, u"WatermarkTextName", {3, Take(data, size, lengths[1])});
    machine.store->SetValue(OfficePrinter, u"WatermarkAttributes", {3, Take(data, size, size)});

    DriverDevMode record{};
    record.dmWatermarkOn = 1;
    record.dmWatermark.wmId = static_cast<SHORT>(lengths[0]);
    CurrentSettings = &record;
    for (const int id : {0, 1, 32767}) {
        WatermarkPayload option{};
        option.watermark.wmId = static_cast<SHORT>(id);
        RefreshWatermark(option);
    }
    Require(LoadWatermarks(nullptr, true) == 1);
    Require(WatermarkCount >= 0 && WatermarkCount <= MostWatermarks && WatermarkIndex <= WatermarkCount);
    const auto before = Rows();
    Require(SaveWatermarks() == 1);
    const std::size_t left = static_cast<std::size_t>(WatermarksLeftOut);
    FreeWatermarkList();

    Require(LoadWatermarks(nullptr, false) == 1);
    const auto after = Rows();
    Require(after.size() + left == before.size());
    Require(std::equal(after.begin(), after.end(), before.begin(), Same));
    FreeWatermarkList();
    CurrentSettings = nullptr;
    return 0;
}
