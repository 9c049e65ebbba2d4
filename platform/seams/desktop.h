// Shows what the layer holds and turns what a user does into actions (platform/user/actions.h). The layer
// is the truth; a desktop keeps no state of its own that the layer does not have.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/types.h"

namespace platform {

class Surface;

struct MessageBoxRequest {
    HWND owner;
    std::u16string text, caption;
    UINT style;
};

struct FileFilter {
    std::u16string name, patterns;  // "Form Overlay (*.oxl)", "*.oxl"
};

struct FileDialogRequest {
    HWND owner;
    bool save;
    std::u16string title, directory, name, defaultExtension;
    std::vector<FileFilter> filters;
    DWORD flags;
    // Asked for each path that the user confirms; false keeps the dialog open.
    std::function<bool(const std::u16string& path)> accept;
};

struct HelpRequest {
    HWND window;  // dialog or control
    std::u16string file;
    UINT command;   // HELP_CONTEXT, HELP_FINDER, HELP_WM_HELP
    DWORD context;  // the context number; 0 if the control's table has none
};

class QD_API Desktop {
  public:
    virtual ~Desktop() = default;
    // A dialog or sheet has come up, whole and painted, on top of the others; and it has gone.
    virtual void Opened(HWND top) = 0;
    virtual void Closed(HWND top) = 0;
    // Works off what the user does until user::Ended(top).
    virtual void Run(HWND top) = 0;
    // Something that can be seen of this window has changed (text, state, items, visibility, picture).
    virtual void Changed(HWND window) = 0;
    // Where a dialog and its controls draw: one picture for all of them, width by height pixels.
    virtual std::shared_ptr<Surface> MakePicture(HWND dialog, int width, int height) = 0;

    virtual int MessageBox(const MessageBoxRequest& request) = 0;                          // IDOK or IDCANCEL
    virtual std::optional<std::u16string> PickFile(const FileDialogRequest& request) = 0;  // absent: cancelled
    virtual void Help(const HelpRequest& request) = 0;
    virtual void Beep(UINT style) = 0;
    // The desktop's own colour for a COLOR_ index; absent: the layer's.
    virtual std::optional<DWORD> SystemColor(int) { return std::nullopt; }
};

}  // namespace platform
