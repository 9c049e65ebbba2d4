#include "pages/page_framework.h"

#include <algorithm>
#include <iterator>

#include "boundary.h"
#include "module.h"
#include "platform/services.h"
#include "platform/spooler.h"
#include "preview/drawing_scope.h"
#include "preview/page_preview.h"
#include "preview/printer_figure.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "spooler/record_answer.h"

namespace {

// The print subsystem is asked for a directory of this many bytes at most.
constexpr DWORD DriverDirectoryBytes = 255;
constexpr WCHAR HelpFile[] = u"\\3\\4820drv.HLP";

struct HelpPath {
    WCHAR text[DriverDirectoryBytes / sizeof(WCHAR) + 1 + std::size(HelpFile)] = {};
};

// Built anew for each request, since a driver's directory may move while a process runs.
HelpPath FindHelpFile()
{
    HelpPath path;
    DWORD needed = 0;
    if (!GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(path.text), DriverDirectoryBytes,
                                    &needed))
        path.text[0] = 0;
    path.text[DriverDirectoryBytes / sizeof(WCHAR)] = 0;
    lstrcatW(path.text, HelpFile);
    return path;
}

// The window of a help request is the control that help is wanted on.
void ShowControlHelp(const HELPINFO* help, const HelpPair* table)
{
    if (!help) return;
    const HelpPath path = FindHelpFile();
    WinHelpW(static_cast<HWND>(help->hItemHandle), path.text, HELP_WM_HELP, reinterpret_cast<ULONG_PTR>(table));
}

void KeepContext(HWND dialog, const PROPSHEETPAGEW* page)
{
    if (page) SetWindowLongW(dialog, DWL_USER, page->lParam);
}

INT_PTR RunCommand(std::span<const Command> commands, HWND dialog, WPARAM wParam)
{
    bool known = false;
    for (const Command& command : commands) {
        if (command.control != LowWord(wParam)) continue;
        known = true;
        if (command.notification == AnyCode || command.notification == HighWord(wParam)) command.handler(dialog);
    }
    return known ? TRUE : FALSE;
}

void RunStep(void (*step)(HWND), HWND dialog)
{
    if (step) step(dialog);
}

void AnswerNotification(const PropertyPage& page, HWND dialog, const NMHDR& notification)
{
    switch (notification.code) {
        case PSN_SETACTIVE:
            return page.activate(dialog);
        case PSN_APPLY:
            if (reinterpret_cast<const PSHNOTIFY&>(notification).lParam == 1) RunStep(page.closing, dialog);
            ApplyPageSettings(dialog);
            return;
        case PSN_RESET:
            return RunStep(page.reset, dialog);
        case PSN_HELP:
            return ShowHelpContext(dialog, page.helpContext);
        case PSN_KILLACTIVE:
        case PSN_QUERYCANCEL:
            return;
        default:
            return RunStep(page.refresh, dialog);
    }
}

constexpr int ResStringChars = 128;
WCHAR ResStrings[ResStringSlots][ResStringChars];  // written by LoadResString alone

constexpr UINT LayoutPictures[] = {IDC_PAPER_PREVIEW, IDC_SETUP_PREVIEW, IDC_QUALITY_PREVIEW, IDC_DEVICE_PREVIEW};

}  // namespace

INT_PTR AnswerPageMessage(const PropertyPage& page, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AtBoundary<INT_PTR>(FALSE, [&]() -> INT_PTR {
        switch (message) {
            case WM_INITDIALOG:
                KeepContext(dialog, reinterpret_cast<const PROPSHEETPAGEW*>(lParam));
                page.initialise(dialog);
                return FALSE;
            case WM_COMMAND:
                return RunCommand(page.commands, dialog, wParam);
            case WM_NOTIFY:
                if (const auto* notification = reinterpret_cast<const NMHDR*>(lParam))
                    AnswerNotification(page, dialog, *notification);
                return FALSE;
            case WM_DRAWITEM:
                if (const auto* drawItem = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam))
                    page.draw(dialog, *drawItem);
                return page.drawAnswer;
            case WM_PAINT:
                RunStep(page.paint, dialog);
                return FALSE;
            case WM_HELP:
                ShowControlHelp(reinterpret_cast<const HELPINFO*>(lParam), page.helpTable);
                return FALSE;
            default:
                return FALSE;
        }
    });
}

INT_PTR AnswerDialogMessage(const ModalDialog& modal, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AtBoundary<INT_PTR>(FALSE, [&]() -> INT_PTR {
        switch (message) {
            case WM_INITDIALOG:
                modal.initialise(dialog);
                return FALSE;
            case WM_COMMAND:
                return RunCommand(modal.commands, dialog, wParam);
            case WM_NOTIFY:
                if (const auto* notification = reinterpret_cast<const NMHDR*>(lParam); notification && modal.notify)
                    modal.notify(dialog, *notification);
                return FALSE;
            case WM_HELP:
                ShowControlHelp(reinterpret_cast<const HELPINFO*>(lParam), modal.helpTable);
                return FALSE;
            default:
                return FALSE;
        }
    });
}

bool CanEdit(HWND dialog)
{
    const auto* context = reinterpret_cast<const UiContext*>(GetWindowLongW(dialog, DWL_USER));
    return IsWholeContext(context) && context->canEdit != 0;
}

void TellSheet(HWND dialog) { SendMessageW(GetParent(dialog), PSM_CHANGED, reinterpret_cast<WPARAM>(dialog), 0); }

WORD PreviewMode() { return GetOption<WORD>(PreviewModeOption, PreviewPageLayout); }

void SetPreviewMode(WORD mode) { SetOption(PreviewModeOption, mode); }

void CheckPreviewMode(HWND dialog, const LeftPanel& panel, WORD mode)
{
    CheckRadioButton(dialog, panel.pageLayout, panel.printerFigure,
                     mode == PreviewPrinterFigure ? panel.printerFigure : panel.pageLayout);
}

void InvalidateControl(HWND dialog, int control)
{
    if (HWND window = GetDlgItem(dialog, control)) InvalidateRect(window, nullptr, TRUE);
}

void InvalidatePanel(HWND dialog, const LeftPanel& panel)
{
    InvalidateControl(dialog, panel.preview);
    InvalidateControl(dialog, panel.frame);
}

void FillComboFromStrings(HWND dialog, int control, int firstString, int lastString, OptionKey option, void* out)
{
    SendDlgItemMessageW(dialog, control, WM_SETREDRAW, FALSE, 0);
    SendDlgItemMessageW(dialog, control, CB_RESETCONTENT, 0, 0);
    for (int i = 0; firstString + i <= lastString; ++i) {
        const WCHAR* text = LoadResString(firstString + i, 0);
        SendDlgItemMessageW(dialog, control, CB_INSERTSTRING, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        SendDlgItemMessageW(dialog, control, CB_SETITEMDATA, static_cast<WPARAM>(i), i);
    }
    GetOption(option.group, option.key, out);
    SendDlgItemMessageW(dialog, control, WM_SETREDRAW, TRUE, 0);
    InvalidateControl(dialog, control);
}

const WCHAR* LoadResString(int stringId, unsigned slot)
{
    WCHAR* text = ResStrings[slot % ResStringSlots];
    if (LoadStringW(ResourceHandle, static_cast<UINT>(stringId), text, ResStringChars) == 0) text[0] = 0;
    return text;
}

void ShowHelpContext(HWND dialog, DWORD context)
{
    const HelpPath path = FindHelpFile();
    WinHelpW(dialog, path.text, HELP_CONTEXT, context);
}

void ShowHelpTopics(HWND dialog)
{
    const HelpPath path = FindHelpFile();
    WinHelpW(dialog, path.text, HELP_FINDER, 0);
}

void EnableControls(HWND dialog, std::span<const int> controls, bool enable)
{
    for (const int control : controls) EnableWindow(GetDlgItem(dialog, control), enable ? TRUE : FALSE);
}

void DrawPageIcon(HWND window, int iconId)
{
    const WindowContext context(window);
    if (!context) return;
    const RECT client = context.ClientRect();
    if (HBRUSH face = CreateSolidBrush(GetSysColor(COLOR_BTNFACE))) {
        FillRect(context.Get(), &client, face);
        PutBack([face] { return DeleteObject(face); });
    }
    if (HICON icon = LoadIconW(ResourceHandle, ResourceName(iconId))) DrawIcon(context.Get(), 0, 0, icon);
}

void DrawPreviewItem(HWND dialog, const DRAWITEMSTRUCT& drawItem)
{
    if (std::ranges::find(LayoutPictures, drawItem.CtlID) != std::end(LayoutPictures))
        DrawPagePreview(dialog, drawItem);
}

void ClearPreviewFrame(int frameId, HWND dialog)
{
    const WindowContext frame(GetDlgItem(dialog, frameId));
    if (!frame) return;
    const RECT client = frame.ClientRect();
    const SelectedObject pen(frame.Get(), CreatePen(PS_SOLID, 1, RGB(255, 255, 255)));
    const SelectedObject brush(frame.Get(), CreateSolidBrush(GetSysColor(COLOR_BTNFACE)));
    Rectangle(frame.Get(), client.left, client.top, client.right, client.bottom);
}

void DrawPanel(HWND dialog, const LeftPanel& panel, WORD mode, const DRAWITEMSTRUCT& drawItem)
{
    if (mode == PreviewPageLayout) {
        ClearPreviewFrame(panel.frame, dialog);
        DrawPreviewItem(dialog, drawItem);
    } else if (mode == PreviewPrinterFigure) {
        DrawPrinterFigure(Tray2Installed ? IDB_PRINTER_TRAY2 : IDB_PRINTER, panel.frame, dialog);
    }
}
