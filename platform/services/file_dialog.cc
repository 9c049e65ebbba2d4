#include "platform/services/file_dialog.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/kernel/last_error.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/environment.h"
#include "platform/services.h"
#include "platform/user/windows.h"

namespace platform::services {

namespace {

namespace fs = std::filesystem;

constexpr char16_t FrameClass[] = u"#32770";

fs::path ToPath(std::u16string_view text) { return fs::path(ToUtf8(text)); }

std::size_t NameStart(std::u16string_view path)
{
    const std::size_t separator = path.rfind(u'/');
    return separator == path.npos ? 0 : separator + 1;
}

std::u16string_view Name(std::u16string_view path) { return path.substr(NameStart(path)); }

// Without the separator at its end, unless it is the root.
std::u16string_view Folder(std::u16string_view path)
{
    const std::size_t start = NameStart(path);
    return path.substr(0, start > 1 ? start - 1 : start);
}

// Pairs of texts, closed by an empty one.
std::vector<FileFilter> Filters(const WCHAR* text)
{
    std::vector<FileFilter> filters;
    while (text && *text) {
        FileFilter filter;
        filter.name = text;
        text += filter.name.size() + 1;
        filter.patterns = text;
        text += filter.patterns.size() + 1;
        filters.push_back(std::move(filter));
    }
    return filters;
}

std::u16string OrEmpty(const WCHAR* text) { return text ? text : std::u16string(); }

// Answers CDM_ messages: copies what fits, with its terminator, and gives the room that the whole text takes.
LRESULT CopyText(std::u16string_view text, WPARAM room, LPARAM target)
{
    if (room > 0 && target) {
        const std::size_t length = std::min<std::size_t>(text.size(), room - 1);
        auto* out = reinterpret_cast<WCHAR*>(target);
        *std::copy_n(text.data(), length, out) = 0;
    }
    return static_cast<LRESULT>(text.size() + 1);
}

// The dialog as a hook sees it: a frame that answers for the chosen path, and the hook's own dialog in it.
class HookedDialog {
  public:
    explicit HookedDialog(OPENFILENAMEW& dialog) : dialog_(dialog)
    {
        if (!(dialog.Flags & OFN_ENABLEHOOK) || !dialog.lpfnHook) return;
        frame_ = user::MakeWindow(
            user::Kind::Owner, FrameClass, dialog.hwndOwner,
            [this](HWND, UINT message, WPARAM wParam, LPARAM lParam) { return Answer(message, wParam, lParam); });
        inner_ = user::MakeDialog({nullptr, 0, frame_, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return 0; }, 0},
                                  user::DialogTemplate{});
        if (!inner_) return;
        dialog_.lpfnHook(inner_, WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&dialog_));
        Notify(CDN_INITDONE);
    }
    ~HookedDialog()
    {
        user::Destroy(inner_);
        user::Destroy(frame_);
    }
    HookedDialog(const HookedDialog&) = delete;
    HookedDialog& operator=(const HookedDialog&) = delete;

    bool Accepts(std::u16string_view path)
    {
        path_ = path;
        return !Notify(CDN_FILEOK);
    }

  private:
    LRESULT Answer(UINT message, WPARAM wParam, LPARAM lParam) const
    {
        switch (message) {
            case CDM_GETSPEC:
                return CopyText(Name(path_), wParam, lParam);
            case CDM_GETFILEPATH:
                return CopyText(path_, wParam, lParam);
            case CDM_GETFOLDERPATH:
                return CopyText(Folder(path_), wParam, lParam);
            default:
                return 0;
        }
    }

    // Whether the hook has refused: it says so by its result together with the dialog's message result.
    bool Notify(UINT code)
    {
        if (!inner_) return false;
        OFNOTIFYW notice{
            {frame_, 0, code},
            &dialog_, nullptr
        };
        user::Get(inner_)->As<user::DialogState>()->messageResult = 0;
        if (dialog_.lpfnHook(inner_, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice)) == 0) return false;
        const user::Window* window = user::Find(inner_);
        return window && window->As<user::DialogState>()->messageResult != 0;
    }

    OPENFILENAMEW& dialog_;
    HWND frame_ = nullptr, inner_ = nullptr;
    std::u16string path_;
};

int Ask(const FileDialogRequest& request, std::u16string text, UINT style)
{
    return CurrentEnvironment().desktop->MessageBox({request.owner, std::move(text), request.title, style});
}

// The dialog's own checks of a path, with a word to the user about what is wrong.
bool IsUsable(const FileDialogRequest& request, const std::u16string& path)
{
    std::error_code error;
    if (Name(path).empty() || path.find(u'\0') != path.npos || fs::is_directory(ToPath(path), error)) {
        Ask(request, path + u"\nThis is not the name of a file.", MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    if (request.flags & OFN_PATHMUSTEXIST && !fs::is_directory(ToPath(Folder(path)), error)) {
        Ask(request, path + u"\nThere is no such folder.", MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    const bool exists = fs::exists(ToPath(path), error);
    if (request.flags & OFN_FILEMUSTEXIST && !exists) {
        Ask(request, path + u"\nThere is no such file.", MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    if (request.save && request.flags & OFN_OVERWRITEPROMPT && exists) {
        return Ask(request, path + u"\nThis file exists already. Replace it?", MB_OKCANCEL | MB_ICONEXCLAMATION) ==
               IDOK;
    }
    return true;
}

// Whether the result had room.
bool Store(OPENFILENAMEW& dialog, const std::u16string& path)
{
    if (path.size() >= dialog.nMaxFile) {
        if (dialog.nMaxFile > 0)
            dialog.lpstrFile[0] = static_cast<WCHAR>(std::min<std::size_t>(path.size() + 1, 0xFFFF));
        return false;
    }
    *std::copy(path.begin(), path.end(), dialog.lpstrFile) = 0;
    const std::size_t name = NameStart(path), dot = path.rfind(u'.');
    dialog.nFileOffset = static_cast<WORD>(name);
    dialog.nFileExtension = static_cast<WORD>(dot != path.npos && dot > name ? dot + 1 : 0);
    if (dialog.lpstrFileTitle && dialog.nMaxFileTitle > 0) {
        CopyText(Name(path), dialog.nMaxFileTitle, reinterpret_cast<LPARAM>(dialog.lpstrFileTitle));
    }
    return true;
}

BOOL Run(OPENFILENAMEW* dialog, bool save)
{
    const std::shared_ptr<Desktop> desktop = CurrentEnvironment().desktop;
    if (!dialog || dialog->lStructSize < sizeof *dialog || !dialog->lpstrFile || !desktop) return FALSE;
    FileDialogRequest request;
    request.owner = dialog->hwndOwner;
    request.save = save;
    request.title = dialog->lpstrTitle ? dialog->lpstrTitle : save ? u"Save As" : u"Open";
    request.directory = OrEmpty(dialog->lpstrInitialDir);
    request.name = dialog->lpstrFile;
    request.defaultExtension = OrEmpty(dialog->lpstrDefExt);
    request.filters = Filters(dialog->lpstrFilter);
    request.flags = dialog->Flags;

    const user::Covered covered;
    HookedDialog hook(*dialog);
    request.accept = [&](const std::u16string& typed) {
        const std::u16string path = CompletePath(request, typed);
        return hook.Accepts(path) && IsUsable(request, path);
    };
    const auto picked = desktop->PickFile(request);
    return picked && Store(*dialog, CompletePath(request, *picked));
}

}  // namespace

std::u16string CompletePath(const FileDialogRequest& request, std::u16string_view typed)
{
    if (typed.empty()) return {};
    std::u16string path(typed);
    if (path.front() != u'/') {
        std::error_code error;
        std::u16string folder =
            request.directory.empty() ? ToWide(fs::current_path(error).string()) : request.directory;
        if (!folder.ends_with(u'/')) folder += u'/';
        path = folder + path;
    }
    const std::u16string_view name = Name(path);
    if (!name.empty() && name.rfind(u'.') == name.npos && !request.defaultExtension.empty()) {
        path += u'.' + request.defaultExtension;
    }
    return path;
}

}  // namespace platform::services

extern "C" {

BOOL GetOpenFileNameW(OPENFILENAMEW* dialog)
{
    if (platform::Fault("GetOpenFileNameW", ERROR_NOT_ENOUGH_MEMORY)) return FALSE;
    return platform::services::Run(dialog, false);
}

BOOL GetSaveFileNameW(OPENFILENAMEW* dialog)
{
    if (platform::Fault("GetSaveFileNameW", ERROR_NOT_ENOUGH_MEMORY)) return FALSE;
    return platform::services::Run(dialog, true);
}

}  // extern "C"
