// What the pages offer in their lists, and the working copies of options that they keep beside the record.
// All of it is process-wide, used on the sheet's thread alone, and lives as long as the module: one sheet
// at a time is what it rests on.
#pragma once

#include <cstddef>
#include <memory>

#include "settings/options.h"

inline constexpr int RowNameChars = 80;

// A row without a name is one that was not loaded yet. Only enabled rows are put in a combo box.
struct ListRow {
    DWORD enabled = 0;
    WCHAR name[RowNameChars] = {};
    int position = 0;  // in its combo box
    int code = 0;      // bin code, media index or paper code
};

struct PaperSizeRecord {
    SHORT psWidthDots, psLengthDots;  // dots at 300 dpi
    SHORT psWidth, psLength;          // tenths of a millimetre (unit 0) or hundredths of an inch (unit 1)
    SHORT psUnit;                     // 0 millimetres, 1 inches, -1 built in: only the dot fields hold
};
inline constexpr SHORT UnitMillimetres = 0;
inline constexpr SHORT UnitInches = 1;
inline constexpr SHORT UnitBuiltIn = -1;

struct PaperRow : ListRow {
    std::unique_ptr<PaperSizeRecord> size;
    std::unique_ptr<PaperRow> next;  // custom rows: the next one
};

inline constexpr int SourceRowCount = 4;
inline constexpr int MediaRowCount = 5;
inline constexpr int BuiltInPaperRows = 26;

extern ListRow SourceRows[SourceRowCount];                     // one per bin; loaded by the source lists
extern ListRow MediaRows[MediaRowCount];                       // one per media; loaded by LoadMediaRows
extern PaperRow PaperRows[BuiltInPaperRows + 1];               // loaded by the paper lists and the custom paper store
inline PaperRow& CustomHeadRow = PaperRows[BuiltInPaperRows];  // code 0: there are no custom sizes
extern int PaperRowCount;     // 26 and the custom rows, 0 before they are loaded; written by the custom paper store
extern int SelectedPaperRow;  // written by the paper lists and the custom paper store

// Row number of PaperRows, custom rows along their chain; null if there are not as many.
PaperRow* PaperRowAt(int number);

// Working copies: the last value that a page read or wrote. Pages write and read them; the printer figure
// reads Tray2Installed and SelectedSource. They outlive a sheet.
extern SHORT SelectedSource;      // dmDefaultSource
extern SHORT SelectedMedia;       // dmMediaIndex
extern int MediaIndex;            // selected row of MediaRows
extern SHORT SelectedCollate;     // dmCollateMode
extern int SelectedCopies;        // dmCopies; starts at 1
extern int SelectedOrientation;   // dmOrientation; starts at 1
extern PaperPayload PaperChoice;  // buffer of PaperOption
extern FitPayload FitChoice;      // buffer of FitOption
extern SHORT Tray2Installed;      // written by the device options page
extern int ListFilterMode;        // paper rows by 0 the source, otherwise the media
extern int MediaChanging;         // 1 while the setup page changes the media; the paper page leaves it at 1
extern SHORT DevicePreviewMode;   // picture of the device options page; starts at 1

inline constexpr int FilterBySource = 0;
inline constexpr int FilterByMedia = 1;
inline constexpr int FilterWhileMediaChanges = 2;

// Loads a string of the module into the name of a row, RowNameChars characters with the terminator. Always 1;
// a string that is missing leaves the empty name.
int LoadRowName(UINT stringId, WCHAR* buffer);

// Loads the media rows that have no name.
void LoadMediaRows();

// Loads the media rows that have no name, enables all, and makes SelectedMedia the selected row.
void RefreshMediaRows();

// Recomputes which paper rows are enabled, by the source or the media as ListFilterMode says. The source is
// that of the current record. Always 1. The caller fills its combo box anew.
int RefreshPaperRows();
