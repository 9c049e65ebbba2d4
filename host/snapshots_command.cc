// qd480 snapshots: a picture of every page and of every dialog of the document sheet.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <memory>

#include "driver_dev_mode.h"
#include "host/arguments.h"
#include "host/commands.h"
#include "host/entries.h"
#include "host/pictures.h"
#include "host/printer_handle.h"
#include "host/record_file.h"
#include "host/sheet_session.h"
#include "platform/registry.h"
#include "platform/seams/environment.h"
#include "platform/seams/memory_stores.h"
#include "store/sqlite_store.h"

namespace host {

namespace {

// Pictures of custom sizes start without the printer's own, which may be as many as there can be.
constexpr std::string_view WithoutSizes = "custom-paper";
constexpr char16_t CustomSizes[] = u"CustomPaperDataSize";
const platform::StoredValue NoSizes = {REG_DWORD, platform::Bytes(4)};

struct SnapshotsOptions {
    std::string printer, folder, record;
};

// The printer as the store has it, but in memory and free to change, so that no dialog is locked and a picture
// leaves no trace.
std::shared_ptr<platform::MemoryStore> CopyOf(platform::PrinterStore& printers, platform::RegistryStore& registry,
                                              platform::PrinterEntry entry)
{
    auto copy = std::make_shared<platform::MemoryStore>();
    entry.mayChange = true;
    copy->Add(entry);
    for (const auto& [name, value] : printers.Values(entry.name)) copy->SetValue(entry.name, name, value);
    copy->SetDefaultRecord(entry.name, printers.DefaultRecord(entry.name));
    const std::u16string key = platform::PrinterKeyPath(entry.name);
    for (const auto& [name, value] : registry.KeyValues(key)) copy->SetKeyValue(key, name, value);
    return copy;
}

// Takes a picture of a sheet on this record; why not, if it could not.
std::string Take(Context& context, std::u16string name, const Picture& picture, const std::string& file,
                 RecordBuffer record)
{
    auto steps = ParseScript(picture.way);
    Step snapshot;
    snapshot.kind = StepKind::Snapshot;
    snapshot.text = WideArgument("the folder's name", file);
    steps.push_back(snapshot);

    bool taken = false;
    const auto write = [&](HWND top, const std::string& path) {
        WriteSnapshot(top, path);
        taken = true;
    };
    const auto script =
        std::make_shared<ScriptDesktop>(steps, ScriptLinks{[](const Json&) {}, [] { return Json(); }, write}, true);
    const PrinterHandle printer(name);
    RecordBuffer out = RecordBuffer::Zeroed(2 * RecordSize);
    RunSheet(script, nullptr, [&](HWND owner) {
        const DWORD mode = DM_COPY | DM_PROMPT | (record.Record() ? DM_MODIFY : 0);
        return context.Entry<DocumentPropertiesEntry>("DrvDocumentProperties")(owner, printer, name.data(),
                                                                               out.Record(), record.Record(), mode);
    });
    if (taken) return {};
    return script->Trouble().empty() ? "the sheet could not be shown" : script->Trouble();
}

void ShowProgress(std::size_t done)
{
    if (!::isatty(STDERR_FILENO)) return;
    std::fprintf(stderr, "\r%zu of %zu pictures%s", done, std::size(Pictures), done == std::size(Pictures) ? "\n" : "");
}

void RunSnapshots(Context& context, const SnapshotsOptions& options)
{
    const RecordBuffer record = RecordBuffer::Load(options.record);
    context.Module();
    const platform::PrinterEntry entry = context.Printer(options.printer);
    std::error_code error;
    std::filesystem::create_directories(options.folder, error);
    if (error) throw Failure("cannot make the folder " + options.folder + ": " + error.message());

    const auto copy = CopyOf(context.Store(), context.Store(), entry);
    platform::CurrentEnvironment().printers = copy;
    platform::CurrentEnvironment().registry = copy;
    std::string failures;
    std::size_t done = 0;
    const auto sizes = copy->Value(entry.name, CustomSizes);
    for (const Picture& picture : Pictures) {
        const bool none = std::string_view(picture.name).starts_with(WithoutSizes);
        if (sizes) copy->SetValue(entry.name, CustomSizes, none ? NoSizes : *sizes);
        const std::string file = (std::filesystem::path(options.folder) / picture.name).string() + ".png";
        std::string why = Take(context, entry.name, picture, file, record);
        // What a record locks is shown as it is without the record.
        if (!why.empty()) {
            copy->SetDefaultRecord(entry.name, {});
            why = Take(context, entry.name, picture, file, {});
            copy->SetDefaultRecord(entry.name, context.Store().DefaultRecord(entry.name));
        }
        if (!why.empty()) failures += (failures.empty() ? "" : "; ") + std::string(picture.name) + ": " + why;
        ShowProgress(++done);
    }
    if (!failures.empty()) throw Failure("not every picture could be taken: " + failures);
}

}  // namespace

void AddSnapshotsCommand(CLI::App& program, Context& context)
{
    CLI::App* command = program.add_subcommand("snapshots", "Write a picture (PNG) of every page and of every dialog");
    const auto options = std::make_shared<SnapshotsOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command->add_option("-o,--output", options->folder, "Where the pictures go; made when it does not exist")
        ->required()
        ->check(FileName())
        ->type_name("FOLDER");
    command->add_option("--record", options->record, "Settings over the printer's defaults")
        ->type_name("FILE")
        ->check(FileName());
    command->callback([options, &context] { RunSnapshots(context, *options); });
}

}  // namespace host
