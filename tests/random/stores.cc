#include "tests/random/stores.h"

#include <algorithm>
#include <cstring>

#include "platform/kernel/unicode.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "tests/support/custom_papers.h"
#include "watermark/overlay_list.h"

namespace random_use {

namespace {

struct StoreRow {
    std::u16string_view value;
    int dialog;  // whose OK writes it
};
constexpr StoreRow Stores[] = {
    {u"CustomPaperData",     IDD_CUSTOM_PAPER},
    {u"CustomPaperDataSize", IDD_CUSTOM_PAPER},
    {u"WatermarkText",       IDD_WATERMARK   },
    {u"WatermarkTextName",   IDD_WATERMARK   },
    {u"WatermarkAttributes", IDD_WATERMARK   },
    {u"OverlayData",         IDD_OVERLAY_LIST},
    {u"OverlayDataSize",     IDD_OVERLAY_LIST},
};

DWORD Dword(const platform::StoredValues& values, const char16_t* name)
{
    const auto found = values.find(name);
    DWORD number = 0;
    if (found != values.end() && found->second.bytes.size() == 4) std::memcpy(&number, found->second.bytes.data(), 4);
    return number;
}
std::size_t Length(const platform::StoredValues& values, const char16_t* name)
{
    const auto found = values.find(name);
    return found == values.end() ? 0 : found->second.bytes.size();
}

// As they stand after an OK of their dialog.
std::string WrongForm(const platform::StoredValues& values, int dialog)
{
    if (dialog == IDD_WATERMARK) {
        for (const char16_t* name : {u"WatermarkText", u"WatermarkTextName", u"WatermarkAttributes"})
            if (Length(values, name) != 3000) return "a watermark value is not 3000 bytes long";
        return {};
    }
    const bool papers = dialog == IDD_CUSTOM_PAPER;
    const std::size_t length = papers ? Length(values, u"CustomPaperData") : Length(values, u"OverlayData");
    const DWORD size = papers ? Dword(values, u"CustomPaperDataSize") : Dword(values, u"OverlayDataSize");
    if (size != 0 && size != length) return "the stored size is not that of the value";
    if (!papers) return size == 0 || (size - 4) % sizeof(OverlayEntry) == 0 ? "" : "half an overlay is stored";
    if (size % sizeof(CustomPaperEntry) != 0) return "half a custom size is stored";
    for (std::size_t k = 0; k < size / sizeof(CustomPaperEntry); ++k) {
        CustomPaperEntry entry;
        std::memcpy(&entry, values.at(u"CustomPaperData").bytes.data() + k * sizeof entry, sizeof entry);
        if (entry.cpCode != static_cast<SHORT>(257 + k))
            return "custom size " + std::to_string(k) + " has code " + std::to_string(entry.cpCode);
    }
    return {};
}

}  // namespace

std::string WrongStores(const Start& start, const platform::StoredValues& before, const platform::StoredValues& after,
                        int dialogBefore, int control)
{
    if (before == after) return {};
    if (!start.mayChange) return "what is stored changes without the right to it";
    for (const auto& [name, value] : before)
        if (!after.contains(name)) return platform::ToUtf8(name) + " is no longer stored";
    for (const auto& [name, value] : after) {
        const auto old = before.find(name);
        if (old != before.end() && old->second == value) continue;
        const std::u16string_view changed = name;
        const auto writes = [&](const StoreRow& row) {
            return row.value == changed && row.dialog == dialogBefore && control == IDOK;
        };
        if (std::ranges::none_of(Stores, writes))
            return platform::ToUtf8(name) + " is stored by control " + std::to_string(control) + " of dialog " +
                   std::to_string(dialogBefore);
    }
    return WrongForm(after, dialogBefore);
}

}  // namespace random_use
