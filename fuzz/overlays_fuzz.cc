// The stored list of overlays at the end of a job, where nothing but pending flags may change, and loaded and saved
// as the dialogs do. The first two bytes are added to the length that stands beside the bytes, so that the two may
// disagree.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "events/overlay_pending.h"
#include "spooler/printer_data.h"
#include "tests/support/custom_papers.h"
#include "watermark/overlay_list.h"

using namespace testing_support;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    Machine machine;
    std::int16_t off = 0;
    std::memcpy(&off, data, sizeof off);
    const platform::Bytes bytes(data + 2, data + size);
    const DWORD length = static_cast<DWORD>(bytes.size()) + static_cast<DWORD>(off);
    if (length > 1u << 20) return 0;  // only makes the run slow
    machine.store->SetValue(OfficePrinter, u"OverlayDataSize", {4, DwordBytes(length)});
    machine.store->SetValue(OfficePrinter, u"OverlayData", {3, bytes});
    lstrcpyW(PrinterName, OfficePrinter);
    ResetOverlayPending();

    const platform::Bytes after = machine.store->Value(OfficePrinter, u"OverlayData")->bytes;
    if (after.size() < bytes.size()) std::abort();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool flag = i >= 4 && (i - 4) % 1060 >= 1048 && (i - 4) % 1060 < 1052;
        if (after[i] != bytes[i] && !(flag && after[i] == 0)) std::abort();
    }

    OverlayEntry *head = nullptr, *selected = nullptr, *editing = nullptr;
    int index = off;
    LoadOverlayList(head, selected, editing, index);
    if (!head || !selected || FindPendingOverlay(NextOverlay(head))) std::abort();
    SaveOverlayList(head, index);
    FreeOverlayEntries(head);
    return 0;
}
