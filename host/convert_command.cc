// qd480 convert: the translation of a record between formats; qd480 can-print: whether a job with one prints.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>

#include "host/arguments.h"
#include "host/commands.h"
#include "host/context.h"
#include "host/entries.h"
#include "host/files.h"
#include "host/printer_handle.h"
#include "host/record_file.h"
#include "platform/kernel/last_error.h"

namespace host {

namespace {

constexpr std::uint32_t MostRoom = 1u << 24;  // bytes

struct ConvertOptions {
    std::string printer, in, templateFile;
    std::optional<std::string> out;
    std::uint32_t mode = 0, room = 0;
    bool noOutput = false;
};

// BYTES of room, zero-filled or beginning with the template; it is never null, however little room there is.
std::vector<std::uint8_t> Output(const ConvertOptions& options)
{
    std::vector<std::uint8_t> buffer;
    if (!options.templateFile.empty()) buffer = ReadFile(options.templateFile);
    buffer.resize(options.room);
    buffer.reserve(std::max<std::size_t>(options.room, RecordHeaderSize));
    return buffer;
}

void RunConvert(Context& context, const ConvertOptions& options)
{
    if (options.in == "-" && options.templateFile == "-") {
        throw UsageError("standard input cannot be both the record and the template");
    }
    context.KeepStoreFrom("-o", options.out.value_or(""));
    context.PlugIn();
    const std::u16string name = WideArgument("the printer's name", options.printer);
    RecordBuffer input = RecordBuffer::Load(options.in);
    std::vector<std::uint8_t> buffer = Output(options);
    auto* const output = options.noOutput ? nullptr : reinterpret_cast<DEVMODEW*>(buffer.data());
    const auto entry = context.Entry<ConvertDevModeEntry>("DrvConvertDevMode");
    LONG needed = static_cast<LONG>(options.room);
    platform::SetError(ERROR_SUCCESS);
    const BOOL result = entry(name.c_str(), input.Record(), output, &needed, options.mode);
    const DWORD error = platform::LastError();
    if (options.out) WriteFile(*options.out, buffer);
    Print({
        {"result",    result != FALSE},
        {"lastError", error          },
        {"needed",    needed         }
    });
}

struct CanPrintOptions {
    std::string printer, record;
};

constexpr DWORD MessageChars = 256;

void RunCanPrint(Context& context, const CanPrintOptions& options)
{
    context.PlugIn();
    const std::u16string name = context.Printer(options.printer).name;
    RecordBuffer record = RecordBuffer::Load(options.record);
    const PrinterHandle printer(name);
    std::u16string message(MessageChars, u'\0');
    DEVQUERYPRINT_INFO info{sizeof info, 1, printer, record.Record(), message.data(), MessageChars, 0};
    const BOOL result = context.Entry<QueryPrintEntry>("DevQueryPrintEx")(&info);
    Json json = {
        {"result", result}
    };
    if (!result) {
        json["message"] = Text(UpToTerminator(message));
        json["needed"] = info.cchNeeded;
    }
    Print(json);
}

}  // namespace

void AddConvertCommand(CLI::App& program, Context& context)
{
    CLI::App* command =
        program.add_subcommand("convert", "Translate a record between formats, through DrvConvertDevMode");
    const auto options = std::make_shared<ConvertOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command
        ->add_option("--mode", options->mode,
                     "1 into the output's own form, 2 into the form of version 3.51, 4 the driver's default")
        ->required()
        ->transform(WholeNumber(0, UINT32_MAX))
        ->type_name("N");
    command
        ->add_option("--room", options->room, "Bytes that the output has room for, up to " + std::to_string(MostRoom))
        ->required()
        ->transform(WholeNumber(0, MostRoom))
        ->type_name("BYTES");
    command->add_option("--in", options->in, "The record to translate; without it there is none")
        ->type_name("FILE")
        ->check(FileName());
    command->add_option("--template", options->templateFile, "What the output begins with; without it zeros")
        ->type_name("FILE")
        ->check(FileName());
    command->add_flag("--no-output", options->noOutput, "Give no output at all");
    command->add_option("-o,--output", options->out, "Where the whole output goes, BYTES long")
        ->type_name("FILE")
        ->check(FileName());
    command->footer("Prints {\"result\": true, \"lastError\": 0, \"needed\": 300}.");
    command->callback([options, &context] { RunConvert(context, *options); });
}

void AddCanPrintCommand(CLI::App& program, Context& context)
{
    CLI::App* command =
        program.add_subcommand("can-print", "Ask whether a job with a record can print, through DevQueryPrintEx");
    const auto options = std::make_shared<CanPrintOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command->add_option("FILE", options->record, "The job's record")->required()->check(FileName())->type_name("");
    command->footer(
        "Prints {\"result\": 1}, or {\"result\": 0, \"message\": \"...\", \"needed\": 27} with the length of the "
        "message and its terminator.");
    command->callback([options, &context] { RunCanPrint(context, *options); });
}

}  // namespace host
