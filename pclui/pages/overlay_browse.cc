#include "pages/overlay_browse.h"

#include <string>

#include "boundary.h"
#include "pages/page_framework.h"
#include "platform/kernel.h"
#include "platform/services.h"
#include "resources/control_numbers.h"
#include "settings/wide_text.h"
#include "watermark/overlay_list.h"

namespace {

constexpr int PathChars = OverlayTextChars;
// Folder and name together stay below this, which leaves room for the separator and the terminator.
constexpr int LongestPath = 260;

constexpr WCHAR Filter[] = u"Palette Files (*.oxl)\0*.oxl\0All Files (*.*)\0*.*\0";
constexpr WCHAR Extension[] = u"oxl";
// Gives a path that is still empty a folder: the current one.
constexpr WCHAR NoFileYet[] = u"-New-";

constexpr DWORD SaveFlags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_ENABLEHOOK |
                            OFN_PATHMUSTEXIST | OFN_EXPLORER | OFN_LONGNAMES | OFN_ENABLESIZING;
constexpr DWORD OpenFlags = SaveFlags | OFN_FILEMUSTEXIST;
static_assert(SaveFlags == 0xA8082E && OpenFlags == 0xA8182E);

struct StartingPoint {
    WCHAR folder[PathChars] = {};  // empty: wherever the dialog likes
    WCHAR file[PathChars] = {};
};

StartingPoint StartFrom(const WCHAR* path)
{
    StartingPoint start;
    WCHAR full[PathChars] = {};
    WCHAR* filePart = nullptr;
    const DWORD length = GetFullPathNameW(path[0] ? path : NoFileYet, PathChars, full, &filePart);
    if (length == 0 || length >= static_cast<DWORD>(PathChars)) return start;
    if (filePart && path[0]) CopyBounded(start.file, filePart, PathChars);
    // Without the separator in front of the file, unless it is all there is.
    SIZE_T end = filePart ? static_cast<SIZE_T>(filePart - full) : length;
    if (end > 1) --end;
    full[end] = 0;
    CopyBounded(start.folder, full, PathChars);
    return start;
}

bool FitsARow(const WCHAR* file, const WCHAR* folder) { return lstrlenW(file) + lstrlenW(folder) < LongestPath; }

UINT_PTR RefuseTooLong(HWND dialog)
{
    WCHAR file[PathChars] = {}, folder[PathChars] = {};
    HWND frame = GetParent(dialog);
    SendMessageW(frame, CDM_GETSPEC, PathChars, reinterpret_cast<LPARAM>(file));
    SendMessageW(frame, CDM_GETFOLDERPATH, PathChars, reinterpret_cast<LPARAM>(folder));
    if (FitsARow(file, folder)) return 0;
    const std::u16string text =
        u"The path you entered, '" + std::u16string(file) + u"', is too long. Enter shorter path.";
    MessageBoxW(dialog, text.c_str(), u"Error", MB_ICONINFORMATION);
    SetWindowLongW(dialog, DWL_MSGRESULT, 1);
    return 1;
}

}  // namespace

void BrowseForOverlay(HWND dialog, int pathField, bool makesFile)
{
    WCHAR path[PathChars] = {};
    GetDlgItemTextW(dialog, pathField, path, PathChars);
    StartingPoint start = StartFrom(path);

    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = dialog;
    request.lpstrFilter = Filter;
    request.nFilterIndex = 1;
    request.lpstrFile = start.file;
    request.nMaxFile = PathChars;
    request.lpstrInitialDir = start.folder;
    request.lpstrTitle = LoadResString(IDS_OVERLAY_FILE_TITLE, 0);
    request.Flags = makesFile ? SaveFlags : OpenFlags;
    request.lpstrDefExt = Extension;
    request.lCustData = makesFile ? 1 : 0;
    request.lpfnHook = OverlayBrowseHook;
    if (makesFile ? GetSaveFileNameW(&request) : GetOpenFileNameW(&request))
        SetDlgItemTextW(dialog, pathField, start.file);
}

UINT_PTR OverlayBrowseHook(HWND dialog, UINT message, WPARAM, LPARAM lParam)
{
    return AtBoundary<UINT_PTR>(0, [&]() -> UINT_PTR {
        const auto* notification = reinterpret_cast<const NMHDR*>(lParam);
        return message == WM_NOTIFY && notification && notification->code == CDN_FILEOK ? RefuseTooLong(dialog) : 0;
    });
}
