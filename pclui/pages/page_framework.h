// What the pages of the document sheet share: the left panel with its picture, messages and command tables,
// help, combo boxes that are filled from the string table, and the small drawing helpers. A page is its
// tables and its named steps; it keeps no object of its own. Its dialog carries the context of the sheet
// under DWL_USER, and the options live in the record.
#pragma once

#include <span>

#include "platform/controls.h"
#include "settings/options.h"

// The left panel stands at the same place on every page, under the page's own control numbers.
struct LeftPanel {
    int frame, preview, pageLayout, printerFigure;
};

// The picture modes, as dmPreviewMode and DevicePreviewMode hold them.
inline constexpr WORD PreviewPageLayout = 0;
inline constexpr WORD PreviewPrinterFigure = 1;

// A row of a page's commands: what runs when this control sends this notification. The page answers every
// notification of a control that it knows, also those without a handler.
inline constexpr int AnyCode = -1;
struct Command {
    int control;
    int notification;
    void (*handler)(HWND dialog);
};

// A row of a page's help table, which ends in a pair of zeros and is handed to the help service as it is.
struct HelpPair {
    DWORD control, context;
};

struct PropertyPage {
    LeftPanel panel;
    DWORD helpContext;  // of the page as a whole
    const HelpPair* helpTable;
    std::span<const Command> commands;
    void (*initialise)(HWND dialog);  // once, when the page is created
    void (*activate)(HWND dialog);    // each time that it comes to the front
    void (*draw)(HWND dialog, const DRAWITEMSTRUCT& drawItem);
    INT_PTR drawAnswer = FALSE;              // what the page returns for an item that it was to draw
    void (*paint)(HWND dialog) = nullptr;    // before the dialog's own painting goes on
    void (*closing)(HWND dialog) = nullptr;  // when the sheet closes by OK, before the settings are applied
    void (*reset)(HWND dialog) = nullptr;    // when the sheet is cancelled
    void (*refresh)(HWND dialog) = nullptr;  // on every notification that no step above is for
};

// Answers a message to a page as all pages do: hands it to the page's steps and tables. No exception leaves.
INT_PTR AnswerPageMessage(const PropertyPage& page, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// A modal dialog that a page opens, in the same manner. The context of the sheet is the page's affair.
struct ModalDialog {
    const HelpPair* helpTable;
    std::span<const Command> commands;  // OK, Cancel and Help among them
    void (*initialise)(HWND dialog);
    void (*notify)(HWND dialog, const NMHDR& notification) = nullptr;
};
INT_PTR AnswerDialogMessage(const ModalDialog& modal, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Whether the user may change settings, by the context of the page.
bool CanEdit(HWND dialog);

// Tells the sheet that an option has changed.
void TellSheet(HWND dialog);

// Picture mode of the pages that keep it in the record.
WORD PreviewMode();
void SetPreviewMode(WORD mode);
// Checks "Page Layout" or "Printer Figure".
void CheckPreviewMode(HWND dialog, const LeftPanel& panel, WORD mode);
// Asks for a repaint of picture and frame.
void InvalidatePanel(HWND dialog, const LeftPanel& panel);
// Asks for a repaint of a control, with erasing.
void InvalidateControl(HWND dialog, int control);

// Rebuilds a combo box from a run of strings, both ends included, with the item data 0, 1, 2, ..., and reads
// an option into out. Sets no selection. An option that does not exist leaves out as it was.
void FillComboFromStrings(HWND dialog, int control, int firstString, int lastString, OptionKey option, void* out);

// A string of the module, empty if it is missing; at most 127 characters. It stands in a buffer that the
// next call on the same slot, 0 to 3, writes over.
inline constexpr unsigned ResStringSlots = 4;
const WCHAR* LoadResString(int stringId, unsigned slot);

// Opens the help file at a context number, and with the index of its topics.
void ShowHelpContext(HWND dialog, DWORD context);
void ShowHelpTopics(HWND dialog);

// Enables or disables a run of controls that a rule locks together.
void EnableControls(HWND dialog, std::span<const int> controls, bool enable);

// Paints an icon over the static that stands for it.
void DrawPageIcon(HWND window, int iconId);
// Draws the page layout if the item is a picture of a left panel.
void DrawPreviewItem(HWND dialog, const DRAWITEMSTRUCT& drawItem);
// Wipes what an earlier picture has left on the frame.
void ClearPreviewFrame(int frameId, HWND dialog);
// The picture of the left panel in this mode.
void DrawPanel(HWND dialog, const LeftPanel& panel, WORD mode, const DRAWITEMSTRUCT& drawItem);
