#include "spooler/paper_lists.h"

#include <algorithm>
#include <span>

#include "module.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "settings/model_tables.h"
#include "settings/wide_text.h"
#include "spooler/paper_sizes.h"
#include "spooler/printer_data.h"

namespace {

constexpr PaperExtent CustomRowExtent = {800, 800};
constexpr int UnitNameChars = 10;

// The printer's stored sizes; none if they cannot be read.
struct StoredPapers {
    explicit StoredPapers(HANDLE hPrinter) : entries(ReadCustomPapers(hPrinter, &count)) {}
    int count = 0;
    GlobalBlock<CustomPaperEntry[]> entries;
};

// Builds a text piece by piece within a slot; what does not fit is cut.
class SlotText {
  public:
    explicit SlotText(WCHAR* slot) : slot_(slot) { std::fill_n(slot_, PaperNameSlot, u'\0'); }
    void Append(const WCHAR* text, int most)
    {
        for (; most > 0 && *text && used_ < PaperNameSlot - 1; --most) slot_[used_++] = *text++;
    }
    void Append(const WCHAR* text) { Append(text, PaperNameSlot); }

  private:
    WCHAR* slot_;
    int used_ = 0;
};

void AppendMillimetres(SlotText& text, const WCHAR* format, int tenths)
{
    WCHAR number[16] = {};
    wsprintfW(number, format, tenths / 10);
    text.Append(number);
}

void AppendInches(SlotText& text, const WCHAR* format, int hundreds, int sixteenths)
{
    WCHAR number[32] = {};
    wsprintfW(number, format, hundreds / 100, static_cast<int>(sixteenths * 100 * 0.0625));
    text.Append(number);
}

void AppendUnit(SlotText& text, UINT nameString)
{
    WCHAR name[UnitNameChars] = {};
    LoadStringW(ResourceHandle, nameString, name, UnitNameChars);
    text.Append(name);
}

// "A Name (100 x 200 mm)", "A Name (8.50 x 14.00 inch)".
void WriteStoredName(const CustomPaperEntry& entry, WCHAR* slot)
{
    SlotText text(slot);
    text.Append(entry.cpName, sizeof(entry.cpName) / sizeof(WCHAR));
    text.Append(u" (");
    if (entry.cpUnit == 0) {
        AppendMillimetres(text, u"%d", entry.cpWidth);
        text.Append(u" x ");
        AppendMillimetres(text, u"%d ", entry.cpHeight);
        AppendUnit(text, IDS_UNIT_MM);
    } else {
        AppendInches(text, u"%d.%.2d", entry.cpWidth, entry.cpWidthSixteenths);
        text.Append(u" x ");
        AppendInches(text, u"%d.%.2d ", entry.cpHeight, entry.cpHeightSixteenths);
        AppendUnit(text, IDS_UNIT_INCH);
    }
    text.Append(u")");
}

// The list in its order: the table's papers but the last row, the stored sizes, the last row.
class PaperList {
  public:
    PaperList(HANDLE hPrinter, int model) : papers_(ModelRow(model).papers), stored_(hPrinter) {}
    LONG Length() const { return static_cast<LONG>(papers_.size()) + stored_.count; }

    // Calls for the first rows of the list, as many as most says.
    template <class OfTable, class OfStored>
    void Walk(LONG most, OfTable ofTable, OfStored ofStored) const
    {
        const LONG firstStored = static_cast<LONG>(papers_.size()) - 1, last = Length() - 1;
        for (LONG row = 0; row < most; ++row) {
            if (row >= firstStored && row < last)
                ofStored(row, stored_.entries[row - firstStored]);
            else
                ofTable(row, row < firstStored ? papers_[static_cast<std::size_t>(row)] : papers_.back());
        }
    }

  private:
    std::span<const PaperEntry> papers_;
    StoredPapers stored_;
};

}  // namespace

LONG PaperCodeList(HANDLE hPrinter, int model, void* output)
{
    const PaperList list(hPrinter, model);
    if (auto* codes = static_cast<WORD*>(output))
        list.Walk(
            list.Length(), [&](LONG row, const PaperEntry& paper) { codes[row] = static_cast<WORD>(paper.code); },
            [&](LONG row, const CustomPaperEntry& entry) { codes[row] = static_cast<WORD>(entry.cpCode); });
    return list.Length();
}

LONG PaperSizeList(HANDLE hPrinter, int model, int /*orientation*/, void* output)
{
    const PaperList list(hPrinter, model);
    if (auto* sizes = static_cast<PaperExtent*>(output))
        list.Walk(
            list.Length(),
            [&](LONG row, const PaperEntry& paper) {
                sizes[row] = paper.portrait ? BuiltInPaperTenths(paper) : CustomRowExtent;
            },
            [&](LONG row, const CustomPaperEntry& entry) { sizes[row] = StoredPaperTenths(entry); });
    return list.Length();
}

LONG PaperNameList(HANDLE hPrinter, int model, void* output)
{
    const PaperList list(hPrinter, model);
    auto* names = static_cast<WCHAR*>(output);
    const auto slot = [names](LONG row) { return names + std::size_t(row) * PaperNameSlot; };
    if (names)
        list.Walk(
            PromisedNames(list.Length()),
            [&](LONG row, const PaperEntry& paper) {
                std::fill_n(slot(row), PaperNameSlot, u'\0');
                LoadStringW(ResourceHandle, paper.nameString, slot(row), PaperNameSlot);
            },
            [&](LONG row, const CustomPaperEntry& entry) { WriteStoredName(entry, slot(row)); });
    return list.Length();
}

LONG BinCodeList(int model, void* output)
{
    const auto bins = ModelRow(model).bins;
    if (auto* codes = static_cast<WORD*>(output))
        for (const BinEntry& bin : bins) *codes++ = static_cast<WORD>(bin.code);
    return static_cast<LONG>(bins.size());
}

LONG BinNameList(int model, void* output)
{
    const auto bins = ModelRow(model).bins;
    if (auto* name = static_cast<WCHAR*>(output))
        for (const BinEntry& bin : bins) {
            std::fill_n(name, BinNameSlot, u'\0');
            LoadStringW(ResourceHandle, bin.nameString, name, BinNameSlot);
            name += BinNameSlot;
        }
    return static_cast<LONG>(bins.size());
}
