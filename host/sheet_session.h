// One run of a sheet: brings up the desktop (windows, or a script), the trace and the owner window, calls an
// entry, and tells how the sheet ended.
#pragma once

#include <functional>
#include <string>

#include "host/context.h"
#include "host/script_desktop.h"
#include "platform/seams/trace.h"

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

// Calls an entry that shows a sheet for this owner; gives the entry's answer.
using SheetCall = std::function<LONG(HWND owner)>;

struct SheetAnswer {
    LONG entry;    // what the entry answered
    LONG outcome;  // CPSUI_OK, CPSUI_CANCEL; below 0: no sheet was shown
};

// Desktop and trace (which may be null) are plugged in for this one call.
SheetAnswer RunSheet(std::shared_ptr<platform::Desktop> desktop, std::shared_ptr<platform::TraceSink> trace,
                     const SheetCall& call);

class SheetSession {
  public:
    // Checks that a sheet can be shown and reads the script, before anything is opened. UsageError, Failure.
    SheetSession(Context& context, const SheetOptions& options);

    // The status of the program: Done for OK, Cancelled for Cancel. Failure when the sheet could not be shown
    // or the script stopped before its end. record: what the sheet last published, or null.
    int Run(const char* entry, const SheetCall& call, std::function<Json()> record);

  private:
    Context& context_;
    SheetOptions options_;
    std::vector<Step> steps_;
};

// The picture of a dialog; Failure when it can't be written.
void WriteSnapshot(HWND top, const std::string& file);

}  // namespace host
