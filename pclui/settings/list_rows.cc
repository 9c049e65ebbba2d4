#include "settings/list_rows.h"

#include <array>

#include "module.h"
#include "platform/user.h"
#include "settings/model_tables.h"

ListRow SourceRows[SourceRowCount];
ListRow MediaRows[MediaRowCount];
PaperRow PaperRows[BuiltInPaperRows + 1];
int PaperRowCount = 0;
int SelectedPaperRow = 0;

SHORT SelectedSource = 0;
SHORT SelectedMedia = 0;
int MediaIndex = 0;
SHORT SelectedCollate = 0;
int SelectedCopies = 1;
int SelectedOrientation = 1;
PaperPayload PaperChoice = {};
FitPayload FitChoice = {};
SHORT Tray2Installed = 0;
int ListFilterMode = FilterBySource;
int MediaChanging = 0;
SHORT DevicePreviewMode = 1;

namespace {

// The masks of the bin table by row and of the media table by index, as the filter takes them.
constexpr std::array<DWORD, SourceRowCount> SourceMasks = {1, 2, 4, 8};
constexpr std::array<DWORD, MediaRowCount> MediaMasks = {1, 2, 4, 16, 8};

DWORD ChosenMediaMask()
{
    const bool known = SelectedMedia >= 0 && SelectedMedia < MediaRowCount;
    return known ? MediaMasks[static_cast<std::size_t>(SelectedMedia)] : 1;
}

DWORD ChosenSourceMask()
{
    DWORD mask = 1;
    if (!CurrentSettings) return mask;
    for (std::size_t row = 0; row < SourceMasks.size(); ++row) {
        if (SourceRows[row].code == CurrentSettings->dmDefaultSource) mask = SourceMasks[row];
    }
    return mask;
}

}  // namespace

PaperRow* PaperRowAt(int number)
{
    if (number < 0) return nullptr;
    if (number <= BuiltInPaperRows) return &PaperRows[number];
    PaperRow* row = &CustomHeadRow;
    for (int k = BuiltInPaperRows; row && k < number; ++k) row = row->next.get();
    return row;
}

int LoadRowName(UINT stringId, WCHAR* buffer)
{
    if (LoadStringW(ResourceHandle, stringId, buffer, RowNameChars) <= 0) buffer[0] = 0;
    return 1;
}

void LoadMediaRows()
{
    for (int number = 0; number < MediaRowCount; ++number) {
        ListRow& row = MediaRows[number];
        if (row.name[0] != 0) continue;
        const MediaEntry& media = MediaTable[static_cast<std::size_t>(number)];
        LoadRowName(media.nameString, row.name);
        row.position = number;
        row.code = static_cast<int>(media.index);
    }
}

void RefreshMediaRows()
{
    LoadMediaRows();
    for (int number = 0; number < MediaRowCount; ++number) {
        MediaRows[number].enabled = 1;
        if (SelectedMedia == number) MediaIndex = number;
    }
}

int RefreshPaperRows()
{
    const bool bySource = ListFilterMode == FilterBySource;
    const DWORD mask = bySource ? ChosenSourceMask() : ChosenMediaMask();
    PaperRow* row = PaperRows;
    for (int number = 0; number < PaperRowCount && row; ++number) {
        const PaperEntry& paper =
            number < BuiltInPaperRows ? PaperTable[static_cast<std::size_t>(number)] : PaperTable.back();
        row->enabled = (bySource ? paper.binMask : paper.mediaMask) & mask;
        row = number < BuiltInPaperRows ? row + 1 : row->next.get();
    }
    return 1;
}
