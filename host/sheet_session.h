// One run of a sheet: brings up the desktop (windows, or a script), the trace and the owner window, calls an
// entry, and tells how the sheet ended.
#pragma once

#include <functional>
#include <string>

#include "host/context.h"
#include "host/script_desktop.h"
#include "platform/types.h"

namespace CLI {
class App;
}

namespace host {

struct SheetOptions {
    std::string script;  // "-": standard input; empty: windows
    bool strict = false;
    std::string trace;

    void AddTo(CLI::App& command);
};

class SheetSession {
  public:
    // What the module prints a sheet for: returns the entry's answer.
    using Call = std::function<LONG(HWND owner)>;

    // Checks that a sheet can be shown and reads the script, before anything is opened. UsageError, Failure.
    SheetSession(Context& context, const SheetOptions& options);

    // The status of the program: Done for OK, Cancelled for Cancel. Failure when the sheet could not be shown
    // or the script stopped before its end. record: what the sheet last published, or null.
    int Run(const char* entry, const Call& call, std::function<Json()> record);

  private:
    int RunWith(const char* entry, const Call& call, ScriptDesktop* script);

    Context& context_;
    SheetOptions options_;
    std::vector<Step> steps_;
};

// The picture of a dialog; Failure when it can't be written.
void WriteSnapshot(HWND top, const std::string& file);

}  // namespace host
