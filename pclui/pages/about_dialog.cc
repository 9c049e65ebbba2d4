#include "pages/about_dialog.h"

#include <iterator>

#include "boundary.h"
#include "pages/page_framework.h"
#include "pages/transparent_bitmap.h"
#include "preview/drawing_scope.h"
#include "resources/control_numbers.h"

int AboutIsPage = 0;

namespace {

constexpr WCHAR ProductName[] = u"Ordana Quillet 4820E";
constexpr int NamePoints = 12;
constexpr int PointsPerInch = 72;

void Initialise(HWND dialog)
{
    SetWindowTextW(dialog, LoadResString(IDS_ABOUT, 0));
    if (!AboutIsPage) return;
    HWND ok = GetDlgItem(dialog, IDOK);
    ShowWindow(ok, SW_HIDE);
    EnableWindow(ok, FALSE);
}

// In the face of the font that the context came with.
void DrawName(HDC context)
{
    const int mode = SetBkMode(context, TRANSPARENT);
    HGDIOBJ before = SelectObject(context, GetStockObject(SYSTEM_FONT));
    LOGFONTW font = {};
    GetObjectW(before, sizeof font, &font);
    font.lfHeight = -NamePoints * GetDeviceCaps(context, LOGPIXELSY) / PointsPerInch;
    HFONT made = CreateFontIndirectW(&font);
    HGDIOBJ replaced = made ? SelectObject(context, made) : nullptr;
    TextOutW(context, 0, 0, ProductName, static_cast<int>(std::size(ProductName) - 1));
    if (mode) PutBack([&] { return SetBkMode(context, mode); });
    // Without the stock font it is the name's own that has taken the first one's place.
    if (before || replaced) PutBack([&] { return SelectObject(context, before ? before : replaced); });
    if (made) PutBack([&] { return DeleteObject(made); });
}

void Draw(HWND dialog)
{
    HWND area = GetDlgItem(dialog, IDC_ABOUT_PICTURE);
    RECT target = {};
    GetClientRect(area, &target);
    const WindowContext picture(area);
    if (picture) DrawTransparentBitmap(IDB_ABOUT, target, picture.Get(), GetSysColor(COLOR_BTNFACE));
    const WindowContext name(GetDlgItem(dialog, IDC_ABOUT_NAME));
    if (name) DrawName(name.Get());
}

void Answer(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
        case WM_INITDIALOG:
            Initialise(dialog);
            break;
        case WM_PAINT:
            // Every repaint of the dialog has the picture and the name drawn again.
            InvalidateRect(GetDlgItem(dialog, IDC_FRESH), nullptr, TRUE);
            break;
        case WM_DRAWITEM:
            if (const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam); item && item->CtlID == IDC_FRESH) {
                Draw(dialog);
            }
            break;
        case WM_COMMAND:
            if (wParam == IDOK || wParam == IDCANCEL) EndDialog(dialog, 0);
            break;
        default:
            break;
    }
}

}  // namespace

INT_PTR About(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AtBoundary(INT_PTR{0}, [=]() -> INT_PTR {
        Answer(dialog, message, wParam, lParam);
        return 0;
    });
}
