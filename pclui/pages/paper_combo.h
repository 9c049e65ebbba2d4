// The lists of papers that the Paper page offers: the paper of the document, custom sizes included, and the
// paper that fit to paper sends to. Positions and rows count from 0; a paper that drops out of its list is
// replaced here.
#pragma once

#include "platform/user.h"

// Loads the built-in rows that were not loaded yet. A record without a paper takes the one of the user's country;
// a built-in paper of the record becomes the selected row.
void LoadPaperRows();

// The number of the row at a position of the document list, -1 if the list is shorter.
int PaperRowAtPosition(int position);

// Copies the size of a row into PaperChoice, which keeps its own if there is no such row.
void TakeRowSize(int row);

// The position in the lists of the paper that is used in the user's country.
int LocalePaperPosition();

// Builds the list of document papers from the enabled rows and selects the paper of PaperChoice. A selected
// row that is not on offer any more is replaced: a custom size leaves the record, a built-in paper stays there.
void FillPaperCombo(HWND dialog, int control);

// Builds the list of output papers that a source can take, and selects that of FitChoice.
void FillOutputPaperCombo(HWND dialog, int source);

// Brings PaperRowCount and SelectedPaperRow into line after the custom sizes were edited; result is the
// position of the selected one plus 1, or 0.
void AfterCustomPaperEdit(int result);
