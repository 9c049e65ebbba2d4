// qd480 document-properties: asks for a record as an application does that shows no window.
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "host/arguments.h"
#include "host/commands.h"
#include "host/context.h"
#include "host/entries.h"
#include "host/files.h"
#include "host/printer_handle.h"
#include "host/record_file.h"

namespace host {

namespace {

constexpr std::size_t OutputRoom = 4096;  // bytes

struct DocumentPropertiesOptions {
    std::string name, input;
    std::optional<std::string> output;
    std::uint32_t mode = 0;
};

void Run(Context& context, const DocumentPropertiesOptions& options)
{
    if (options.mode & DM_PROMPT) {
        throw UsageError("--mode " + std::to_string(options.mode) + " asks for a window (4); that is qd480 sheet");
    }
    context.KeepStoreFrom("-o", options.output.value_or(""));
    std::u16string name = context.Printer(options.name).name;
    RecordBuffer input = RecordBuffer::Load(options.input);
    RecordBuffer output = options.output ? RecordBuffer::Zeroed(OutputRoom) : RecordBuffer();

    const auto entry = context.Entry<DocumentPropertiesEntry>("DrvDocumentProperties");
    const PrinterHandle printer(name);
    const LONG result = entry(nullptr, printer, name.data(), output.Record(), input.Record(), options.mode);
    if (options.output) WriteFile(*options.output, output.Promised());
    Print({
        {"result", result}
    });
}

}  // namespace

void AddDocumentPropertiesCommand(CLI::App& program, Context& context)
{
    CLI::App* command = program.add_subcommand("document-properties",
                                               "Ask for a record through DrvDocumentProperties, without a window");
    const auto options = std::make_shared<DocumentPropertiesOptions>();
    command->add_option("NAME", options->name, "The printer")->required()->type_name("");
    command
        ->add_option("--mode", options->mode,
                     "fMode, a sum of 1 update, 2 copy, 8 modify, 16 advanced, 32 no permission")
        ->required()
        ->type_name("N");
    command->add_option("--in", options->input, "The caller's record, merged over the printer's defaults")
        ->type_name("FILE")
        ->check(FileName());
    command->add_option("-o,--output", options->output, "Where the answered record goes; without it there is none")
        ->type_name("FILE")
        ->check(FileName());
    command->footer(
        "Prints {\"result\": 1}: 1 when a record was answered, 1848 when the call only asks for the size, "
        "-1 on failure.");
    command->callback([options, &context] { Run(context, *options); });
}

}  // namespace host
