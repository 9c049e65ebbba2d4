#include "pages/nup_style_dialog.h"

#include "pages/page_framework.h"
#include "resources/control_numbers.h"

namespace {

constexpr DWORD NupStyleHelp = 1141;

// The order in which pages are placed, as the record holds it.
struct PageOrder {
    BYTE vertical, descending;
};
constexpr PageOrder HorizontalAscending = {0, 0};
constexpr PageOrder HorizontalDescending = {0, 1};
constexpr PageOrder VerticalAscending = {1, 0};
constexpr PageOrder VerticalDescending = {1, 1};

PageOrder WorkingOrder;  // of the dialog that is up; clicks write it, OK reads it

int RadioOf(const PageOrder& order)
{
    if (order.vertical) return order.descending ? IDC_VERT_DESCENDING : IDC_VERT_ASCENDING;
    return order.descending ? IDC_HORIZ_DESCENDING : IDC_HORIZ_ASCENDING;
}

void Initialise(HWND dialog)
{
    const auto nup = GetOption<NupPayload>(NupOption);
    WorkingOrder = {nup.vertical, nup.descending};
    CheckRadioButton(dialog, IDC_HORIZ_ASCENDING, IDC_VERT_DESCENDING, RadioOf(WorkingOrder));
}

void OnHorizAscending(HWND) { WorkingOrder = HorizontalAscending; }
void OnHorizDescending(HWND) { WorkingOrder = HorizontalDescending; }
void OnVertAscending(HWND) { WorkingOrder = VerticalAscending; }
void OnVertDescending(HWND) { WorkingOrder = VerticalDescending; }

void OnOk(HWND dialog)
{
    auto nup = GetOption<NupPayload>(NupOption);
    nup.vertical = WorkingOrder.vertical;
    nup.descending = WorkingOrder.descending;
    SetOption(NupOption, nup);
    EndDialog(dialog, 1);
}

void OnCancel(HWND dialog) { EndDialog(dialog, 1); }
void OnHelp(HWND dialog) { ShowHelpContext(dialog, NupStyleHelp); }

constexpr Command Commands[] = {
    {IDC_HORIZ_ASCENDING,  AnyCode, OnHorizAscending },
    {IDC_HORIZ_DESCENDING, AnyCode, OnHorizDescending},
    {IDC_VERT_ASCENDING,   AnyCode, OnVertAscending  },
    {IDC_VERT_DESCENDING,  AnyCode, OnVertDescending },
    {IDOK,                 AnyCode, OnOk             },
    {IDCANCEL,             AnyCode, OnCancel         },
    {IDC_HELP,             AnyCode, OnHelp           },
};
constexpr ModalDialog Dialog = {nullptr, Commands, Initialise};

}  // namespace

// Answers to every command, and has no help on single controls.
extern "C" INT_PTR DetailNup_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_HELP) return FALSE;
    const INT_PTR answer = AnswerDialogMessage(Dialog, dialog, message, wParam, lParam);
    return message == WM_COMMAND ? TRUE : answer;
}
