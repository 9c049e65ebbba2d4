// The lower part of the Custom Paper dialog: the controls that show and edit the size that is selected in its list
// view, and the texts of that list's rows. What the user types goes straight into the entry of the working list.
#pragma once

#include "platform/controls.h"
#include "spooler/stored_records.h"

// 1 while notices of the editor and of the list are acted on, 0 while the dialog itself writes into controls.
extern int EditorUpdates;

// Writes made while one of these lives are the dialog's own.
class EditorWrites {
  public:
    EditorWrites() { EditorUpdates = 0; }
    ~EditorWrites() { EditorUpdates = 1; }
    EditorWrites(const EditorWrites&) = delete;
    EditorWrites& operator=(const EditorWrites&) = delete;
};

// How the editor is enabled. Without sizes: (EditorEmpty, false); with the first one: (EditorNormal, true). While
// the name is empty or taken: (EditorNameFault, false), and behind it (EditorNameGood, true).
inline constexpr int EditorEmpty = 0;
inline constexpr int EditorNormal = 1;
inline constexpr int EditorNameFault = 2;
inline constexpr int EditorNameGood = 3;
void EnableCustomPaperEditor(HWND dialog, int mode, bool enable);

// Shows the controls of a unit and hides the others; nothing for a unit that is neither.
void ShowCustomPaperUnit(HWND dialog, int unit);

// Puts a size into the fields of its unit, and its name. To be done while EditorUpdates is 0.
void ShowCustomPaperNumbers(HWND dialog, const CustomPaperEntry& entry);
void ShowCustomPaperEntry(HWND dialog, const CustomPaperEntry& entry);

// 1 if one of the first rows of the list, not counting the row skip, shows this name.
int CustomPaperNameTaken(const WCHAR* name, HWND dialog, int limit, int skip);

// The list view. The selected row is its selection mark, -1 without one.
int CustomPaperRows(HWND dialog);
int SelectedCustomPaper(HWND dialog);
void SelectCustomPaper(HWND dialog, int row);
bool InsertCustomPaperRow(HWND dialog, int row, const CustomPaperEntry& entry);  // false without room
void ShowCustomPaperName(HWND dialog, int row, const WCHAR* name);
void ShowCustomPaperSize(HWND dialog, int row, const CustomPaperEntry& entry);

// What the dialog's commands call.
void OnCustomPaperName(HWND dialog);
void OnCustomPaperNumber(HWND dialog, int field, bool left);  // field is a place in NumberFields
void OnCustomPaperUnit(HWND dialog, int unit);
