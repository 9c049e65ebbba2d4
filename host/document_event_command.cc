// qd480 document-event: one event of a printing job by itself.
#include <CLI/CLI.hpp>
#include <cstring>
#include <memory>
#include <optional>

#include "host/arguments.h"
#include "host/commands.h"
#include "host/files.h"
#include "host/print_job.h"
#include "host/printer_handle.h"

namespace host {

namespace {

constexpr std::size_t WordBytes = sizeof(void*);
constexpr std::uint32_t MostOutputRoom = 1u << 20;  // bytes
constexpr std::uint8_t Untouched = 0xCC;

struct DocumentEventOptions {
    std::string printer, record;
    std::int64_t code = 0;
    std::optional<std::string> input, output;
    std::optional<std::uint32_t> room;
    bool informationContext = false;
};

// The event's number without the bits that do not count.
int EventOf(const DocumentEventOptions& options) { return static_cast<int>(options.code & 0xFFFF); }

bool TakesRecord(int event) { return event == DOCUMENTEVENT_CREATEDCPRE || event == DOCUMENTEVENT_RESETDCPRE; }

// Where the input's word that refers to the record begins.
std::size_t RecordWordAt(int event) { return event == DOCUMENTEVENT_CREATEDCPRE ? offsetof(CreationWords, record) : 0; }

std::vector<std::uint8_t> BuiltInput(const DocumentEventOptions& options, const std::u16string& name)
{
    const int event = EventOf(options);
    if (!TakesRecord(event)) return {};
    if (event == DOCUMENTEVENT_RESETDCPRE) return std::vector<std::uint8_t>(WordBytes);
    const CreationWords words{name.c_str(), name.c_str(), nullptr, options.informationContext ? 1u : 0u};
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&words);
    return {bytes, bytes + sizeof words};
}

std::vector<std::uint8_t> InputOf(const DocumentEventOptions& options, const std::u16string& name, void* record)
{
    std::vector<std::uint8_t> input;
    if (options.input) {
        auto bytes = FromHex(*options.input);
        if (!bytes) throw UsageError("--in takes pairs of hexadecimal digits");
        input = std::move(*bytes);
    } else {
        input = BuiltInput(options, name);
    }
    const std::size_t at = RecordWordAt(EventOf(options));
    if (TakesRecord(EventOf(options)) && input.size() >= at + WordBytes)
        std::memcpy(input.data() + at, &record, WordBytes);
    return input;
}

JobRecord RecordOf(Context& context, const DocumentEventOptions& options, HANDLE printer, const std::u16string& name)
{
    if (!options.record.empty()) return JobRecord::FromFile(options.record);
    const AsideFromFaults aside;
    return AskForRecord(context, printer, name, RecordBuffer());
}

void Check(const DocumentEventOptions& options)
{
    if (options.informationContext && (EventOf(options) != DOCUMENTEVENT_CREATEDCPRE || options.input))
        throw UsageError("--information-context goes with event 1 and without --in");
}

void RunDocumentEvent(Context& context, const DocumentEventOptions& options)
{
    Check(options);
    context.KeepStoreFrom("-o", options.output.value_or(""));
    context.PlugIn();
    const std::u16string name = context.Printer(options.printer).name;
    const PrinterHandle printer(name);
    JobRecord record = RecordOf(context, options, printer, name);
    const JobRecord held = record;  // by the job's context; the other one is the event's
    void* const reference = &record.Settings();
    std::vector<std::uint8_t> input = InputOf(options, name, reference);
    const std::size_t room = options.room.value_or(TakesRecord(EventOf(options)) ? WordBytes : 0);
    // A word of room is always there, so that an output that is too small is seen to be left alone.
    std::vector<std::uint8_t> output(std::max(room, WordBytes), Untouched);

    RenderingSide rendering(held, nullptr);
    const JobContext job(platform::gdi::JobDevice{}, rendering);
    const HDC handle = EventOf(options) == DOCUMENTEVENT_CREATEDCPRE ? nullptr : HDC{job};
    const int result = context.Entry<DocumentEventEntry>("DrvDocumentEvent")(
        printer, handle, static_cast<int>(options.code), static_cast<ULONG>(input.size()),
        input.empty() ? nullptr : input.data(), static_cast<ULONG>(room), output.data());
    if (options.output) WriteFile(*options.output, record.Bytes());
    Print({
        {"result",    result                },
        { "stored", std::memcmp(output.data(), &reference, sizeof reference) == 0}
    });
}

}  // namespace

void AddDocumentEventCommand(CLI::App& program, Context& context)
{
    CLI::App* command =
        program.add_subcommand("document-event", "Send one event of a printing job, through DrvDocumentEvent");
    const auto options = std::make_shared<DocumentEventOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command
        ->add_option("CODE", options->code,
                     "1 before a context is created, 2 after it; 3 before it is reset, 4 after it; 5 start of the "
                     "document, 6 start of a page, 7 end of a page, 8 end of the document; others have no meaning here")
        ->required()
        ->transform(WholeNumber(INT32_MIN, UINT32_MAX))
        ->type_name("");
    command
        ->add_option("--in", options->input,
                     "The input as it is, of any length; under codes 1 and 3 the word that refers to the record, where "
                     "the input reaches so far, becomes its address")
        ->type_name("HEX");
    command
        ->add_option("--record", options->record,
                     "The record, its bytes as they are; without it the printer's default record")
        ->type_name("FILE")
        ->check(FileName());
    command
        ->add_option("--room", options->room,
                     "The output's size, up to " + std::to_string(MostOutputRoom) +
                         "; by default a word's under codes 1 and 3, otherwise 0")
        ->transform(WholeNumber(0, MostOutputRoom))
        ->type_name("BYTES");
    command->add_flag("--information-context", options->informationContext,
                      "Under code 1: the context is one to ask, not to print");
    command->add_option("-o,--output", options->output, "Where the record goes as the event left it")
        ->type_name("FILE")
        ->check(FileName());
    command->footer(
        "Without --in the input of codes 1 and 3 is built around the record; other codes have none.\n"
        "Prints {\"result\": 1, \"stored\": true}; stored tells whether the output took the record's reference.");
    command->callback([options, &context] { RunDocumentEvent(context, *options); });
}

}  // namespace host
