// The help service: which topic of which file a window asks for.
#include "platform/kernel/last_error.h"
#include "platform/seams/desktop.h"
#include "platform/seams/environment.h"
#include "platform/services.h"
#include "platform/user/window.h"

namespace platform::services {

namespace {

struct HelpPair {
    DWORD control, context;
};

// A table without its pair of zeros at the end is not read for ever.
constexpr int LongestTable = 4096;

DWORD ContextOf(HWND control, const HelpPair* table)
{
    const user::Window* window = user::Find(control);
    if (!window || !table) return 0;
    for (int i = 0; i < LongestTable && (table[i].control || table[i].context); ++i) {
        if (table[i].control == static_cast<DWORD>(window->id)) return table[i].context;
    }
    return 0;
}

}  // namespace

}  // namespace platform::services

extern "C" BOOL WinHelpW(HWND window, const WCHAR* file, UINT command, ULONG_PTR data)
{
    platform::Environment& environment = platform::CurrentEnvironment();
    if (platform::Fault("WinHelpW", ERROR_NOT_ENOUGH_MEMORY) || !environment.desktop || !file) return FALSE;
    const DWORD context =
        command == HELP_WM_HELP
            ? platform::services::ContextOf(window, reinterpret_cast<const platform::services::HelpPair*>(data))
            : static_cast<DWORD>(data);
    environment.desktop->Help({window, file, command, context});
    return TRUE;
}
