// What the common file dialogs share with the desktops that show them.
#pragma once

#include <string>
#include <string_view>

#include "platform/seams/desktop.h"

namespace platform::services {

// The whole path of what a user has typed or picked: in the dialog's directory when it is relative, and with
// the default extension when it has none. Empty for an empty text.
QD_API std::u16string CompletePath(const FileDialogRequest& request, std::u16string_view typed);

}  // namespace platform::services
