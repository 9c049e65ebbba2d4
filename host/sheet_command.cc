// qd480 sheet: the document sheet, in windows or played by a script.
#include <CLI/CLI.hpp>
#include <memory>

#include "driver_dev_mode.h"
#include "host/arguments.h"
#include "host/commands.h"
#include "host/entries.h"
#include "host/files.h"
#include "host/printer_handle.h"
#include "host/record_file.h"
#include "host/record_json.h"
#include "host/sheet_session.h"
#include "platform/services/sheet_service.h"
#include "store/sqlite_store.h"

namespace host {

namespace {

constexpr char DocumentProperties[] = "document-properties", Advanced[] = "advanced", Sheets[] = "sheets";

// pdmOut has room for any record, whatever a caller says about it.
constexpr std::size_t LeastOutput = 4096;
constexpr DWORD MostRoom = 1u << 20;  // bytes

struct SheetCommandOptions {
    std::string printer, in, out, entry = DocumentProperties;
    std::optional<DWORD> room;
    bool noPermission = false, storeDefault = false;
    SheetOptions sheet;
};

void Check(const SheetCommandOptions& options)
{
    if (options.room && options.entry != Sheets) throw UsageError("--room goes with --entry sheets");
    if (options.noPermission && options.entry == Advanced) {
        throw UsageError("--no-permission does not go with --entry advanced, which has no mode");
    }
    if (options.in == "-" && options.sheet.script == "-") {
        throw UsageError("standard input cannot be both the record and the script");
    }
    if (options.out == "-" && !options.sheet.script.empty()) {
        throw UsageError("standard output cannot take the record beside the script's lines; give -o FILE");
    }
}

// The entries, on one printer and one pair of records.
class DocumentSheet {
  public:
    DocumentSheet(Context& context, const SheetCommandOptions& options)
        : context_(context),
          options_(options),
          name_(NameOf(context, options)),
          printer_(name_),
          in_(RecordBuffer::Load(options.in)),
          out_(RecordBuffer::Zeroed(std::max<std::size_t>(LeastOutput, options.room.value_or(0))))
    {
    }

    int Run(SheetSession& session)
    {
        const auto record = [this] { return Published().empty() ? Json() : RecordToJson(Published()); };
        if (options_.entry == Sheets) {
            return session.Run(
                "DrvDocumentPropertySheets", [this](HWND owner) { return RunSheets(owner); }, record);
        }
        if (options_.entry == Advanced) {
            return session.Run(
                "DrvAdvancedDocumentProperties", [this](HWND owner) { return RunAdvanced(owner); }, record);
        }
        return session.Run(
            "DrvDocumentProperties", [this](HWND owner) { return RunProperties(owner); }, record);
    }

    // What the sheet has put into the output: an untouched one promises no bytes.
    std::span<const std::uint8_t> Published() const { return out_.Promised(); }

  private:
    static std::u16string NameOf(Context& context, const SheetCommandOptions& options)
    {
        context.PlugIn();
        return context.Printer(options.printer).name;
    }

    DWORD Mode() const
    {
        return DM_COPY | DM_PROMPT | (options_.in.empty() ? 0 : DM_MODIFY) |
               (options_.noPermission ? DM_NOPERMISSION : 0);
    }

    LONG RunProperties(HWND owner)
    {
        return context_.Entry<DocumentPropertiesEntry>("DrvDocumentProperties")(owner, printer_, name_.data(),
                                                                                out_.Record(), in_.Record(), Mode());
    }

    LONG RunAdvanced(HWND owner)
    {
        return context_.Entry<AdvancedDocumentPropertiesEntry>("DrvAdvancedDocumentProperties")(
            owner, printer_, name_.data(), out_.Record(), in_.Record());
    }

    // As the print subsystem does it; the answer is what the sheet reported.
    LONG RunSheets(HWND owner)
    {
        DOCUMENTPROPERTYHEADER header{};
        header.cbSize = sizeof header;
        header.hPrinter = printer_;
        header.pszPrinterName = name_.data();
        header.pdmIn = in_.Record();
        header.pdmOut = out_.Record();
        header.cbOut = options_.room.value_or(RecordSize);
        header.fMode = Mode();
        DWORD result = 0;
        const LONG ran = platform::services::RunCommonSheet(
            owner, context_.Entry<DocumentPropertySheetsEntry>("DrvDocumentPropertySheets"),
            reinterpret_cast<LPARAM>(&header), &result);
        return ran > 0 ? static_cast<LONG>(result) : ran;
    }

    Context& context_;
    const SheetCommandOptions& options_;
    std::u16string name_;
    PrinterHandle printer_;
    RecordBuffer in_, out_;
};

int RunSheetCommand(Context& context, const SheetCommandOptions& options)
{
    Check(options);
    const NamedFile in{"--in", options.in}, out{"-o", options.out}, script{"--script", options.sheet.script};
    NeedOwnFile({"--trace", options.sheet.trace}, {in, out});
    NeedOwnFile(out, {script});
    context.KeepStoreFrom("-o", options.out);
    // Where the record cannot be written to, the user is told before the work.
    std::unique_ptr<PendingFile> file;
    if (!options.out.empty() && options.out != "-") file = std::make_unique<PendingFile>(options.out);
    SheetSession session(context, options.sheet);
    DocumentSheet sheet(context, options);
    const int status = sheet.Run(session);
    const auto record = sheet.Published();
    if (!record.empty()) {
        if (file) {
            file->Write(record);
            file->Commit();
        } else if (!options.out.empty()) {
            WriteFile(options.out, record);
        }
    }
    if (options.storeDefault && status == Done) {
        if (!context.Store().SetDefaultRecord(WideArgument("the printer's name", options.printer),
                                              {record.begin(), record.end()})) {
            throw Failure("cannot store the default record of \"" + options.printer + "\"");
        }
    }
    return status;
}

}  // namespace

void AddSheetCommand(CLI::App& program, Context& context)
{
    CLI::App* command = program.add_subcommand("sheet", "Open the document sheet, or play a script on it");
    auto options = std::make_shared<SheetCommandOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command->add_option("--in", options->in, "Settings over the printer's defaults; - is standard input")
        ->type_name("FILE")
        ->check(FileName());
    command->add_option("-o,--output", options->out, "Write what the sheet published by Apply or OK")
        ->type_name("FILE")
        ->check(FileName());
    command->add_option("--entry", options->entry, "The module's entry to go through; default document-properties")
        ->check(CLI::IsMember({DocumentProperties, Advanced, Sheets}));
    command
        ->add_option("--room", options->room,
                     "The room that the caller says the output has, up to " + std::to_string(MostRoom) +
                         ", under --entry sheets")
        ->transform(WholeNumber(0, MostRoom))
        ->type_name("BYTES");
    command->add_flag("--no-permission", options->noPermission, "As a user who may not change the settings");
    command->add_flag("--store-default", options->storeDefault,
                      "After OK, store the settings as the printer's default record");
    options->sheet.AddTo(*command);
    command->callback([&context, options] { context.status = RunSheetCommand(context, *options); });
}

}  // namespace host
