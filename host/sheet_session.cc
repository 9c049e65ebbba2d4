#include "host/sheet_session.h"
#include "host/arguments.h"

#include <CLI/CLI.hpp>

#include "desktop/qt_desktop.h"
#include "desktop/qt_runtime.h"
#include "desktop/snapshot.h"
#include "host/files.h"
#include "host/trace_json.h"
#include "platform/seams/environment.h"
#include "platform/services/sheet_service.h"

namespace host {

namespace {

constexpr std::size_t ScriptLimit = std::size_t{4} << 20;  // bytes

class OwnerWindow {
  public:
    OwnerWindow() : window_(platform::services::MakeOwnerWindow()) {}
    ~OwnerWindow() { platform::services::DestroyOwnerWindow(window_); }
    OwnerWindow(const OwnerWindow&) = delete;
    OwnerWindow& operator=(const OwnerWindow&) = delete;
    HWND Handle() const { return window_; }

  private:
    HWND window_;
};

// Desktop and trace stay plugged in for one sheet.
class Plugged {
  public:
    Plugged(std::shared_ptr<platform::Desktop> desktop, std::shared_ptr<platform::TraceSink> trace)
    {
        platform::CurrentEnvironment().desktop = std::move(desktop);
        platform::CurrentEnvironment().trace = std::move(trace);
    }
    ~Plugged()
    {
        platform::CurrentEnvironment().desktop.reset();
        platform::CurrentEnvironment().trace.reset();
    }
    Plugged(const Plugged&) = delete;
    Plugged& operator=(const Plugged&) = delete;
};

std::vector<Step> ReadScript(const std::string& path)
{
    try {
        return ParseScript(ReadTextFile(path, ScriptLimit));
    } catch (const ScriptError& error) {
        throw UsageError((path == "-" ? "standard input" : path) + ": " + error.what());
    }
}

}  // namespace

void SheetOptions::AddTo(CLI::App& command)
{
    command.add_option("--script", script, "Steps to play instead of opening windows; - is standard input")
        ->type_name("FILE")
        ->check(FileName());
    command.add_flag("--strict", strict, "End with status 3 at the first step of the script that is refused");
    command
        .add_option("--trace", trace,
                    "Write the module's drawing calls as JSON lines: call, dc, on (control), args, result")
        ->type_name("FILE")
        ->check(FileName());
    command.footer(ScriptHelp);
}

SheetSession::SheetSession(Context& context, const SheetOptions& options) : context_(context), options_(options)
{
    const NamedFile script{"--script", options.script};
    NeedOwnFile({"--trace", options.trace}, {script});
    context.KeepStoreFrom("--trace", options.trace);
    if (options.strict && options.script.empty()) throw UsageError("--strict goes with --script FILE");
    if (!options.script.empty()) {
        steps_ = ReadScript(options.script);
    } else if (!desktop::HasDisplay()) {
        throw UsageError("there is no display to open the sheet on (DISPLAY, WAYLAND_DISPLAY); give --script FILE");
    }
}

SheetAnswer RunSheet(std::shared_ptr<platform::Desktop> desktop, std::shared_ptr<platform::TraceSink> trace,
                     const SheetCall& call)
{
    const Plugged plugged(std::move(desktop), std::move(trace));
    const OwnerWindow owner;
    platform::services::TakeSheetOutcome();
    const LONG answer = call(owner.Handle());
    const LONG outcome = platform::services::TakeSheetOutcome().value_or(-1);
    return {answer, answer < 0 ? -1 : outcome};
}

int SheetSession::Run(const char* entry, const SheetCall& call, std::function<Json()> record)
{
    std::shared_ptr<TraceFile> trace;
    if (!options_.trace.empty()) trace = std::make_shared<TraceFile>(options_.trace);
    std::shared_ptr<ScriptDesktop> script;
    if (!options_.script.empty()) {
        script = std::make_shared<ScriptDesktop>(
            steps_, ScriptLinks{[](const Json& line) { Print(line); }, std::move(record), WriteSnapshot},
            options_.strict);
    }
    context_.PlugIn();
    const SheetAnswer answer = RunSheet(script ? script : desktop::MakeQtDesktop(), trace, call);
    if (script) {
        if (answer.outcome >= 0) script->PlayRest();
        Print({
            {"end", {{"result", answer.entry}}}
        });
        if (!script->Trouble().empty()) throw Failure(script->Trouble());
    }
    if (trace) trace->Check();
    if (answer.outcome < 0) {
        throw Failure(std::string("the sheet could not be shown: ") + entry + " answered " +
                      std::to_string(answer.entry));
    }
    return answer.outcome == CPSUI_OK ? Done : Cancelled;
}

void WriteSnapshot(HWND top, const std::string& file)
{
    std::string why;
    if (!desktop::Snapshot(top, file, &why)) throw Failure("cannot write " + file + ": " + why);
}

}  // namespace host
