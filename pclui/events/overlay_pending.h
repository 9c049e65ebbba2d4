// The end of a job: the overlays that were waiting for one count as made.
#pragma once

// Clears the pending flag in every stored overlay row of the printer named by PrinterName, and writes the list
// back if one was set. 0 with error 87 if the printer cannot be opened to read, or to write.
int ResetOverlayPending();
