// qd480 print: a whole job, from an input's pages to a stamped PDF.
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "desktop/pdf_picture.h"
#include "host/arguments.h"
#include "host/commands.h"
#include "host/files.h"
#include "host/job_paper.h"
#include "host/print_job.h"
#include "host/print_pages.h"
#include "host/printer_handle.h"
#include "host/progress.h"
#include "host/trace_json.h"
#include "platform/seams/environment.h"
#include "platform/seams/surface.h"

namespace host {

namespace {

constexpr int MostEmptyPages = 100000;

struct PrintOptions {
    std::string printer, input, output, record, trace, events;
    bool unchecked = false;
    std::optional<int> pages;
    std::optional<std::size_t> resetAt;
};

void Check(const PrintOptions& options)
{
    if (options.unchecked && options.record.empty()) throw UsageError("--unchecked goes with --record FILE");
    if (options.pages && !options.input.empty()) throw UsageError("--pages goes without an input");
    if (options.input == "-" && options.record == "-") {
        throw UsageError("standard input cannot be both the input and the record");
    }
}

// The trace stays plugged in while the module runs the job.
class PluggedTrace {
  public:
    explicit PluggedTrace(const std::string& path)
    {
        if (path.empty()) return;
        file_ = std::make_shared<TraceFile>(path);
        platform::CurrentEnvironment().trace = file_;
    }
    ~PluggedTrace() { platform::CurrentEnvironment().trace = nullptr; }
    PluggedTrace(const PluggedTrace&) = delete;
    PluggedTrace& operator=(const PluggedTrace&) = delete;
    void Check()
    {
        if (file_) file_->Check();
    }

  private:
    std::shared_ptr<TraceFile> file_;
};

// What the module draws on the pages; the same drawing is one stamp, however many pages need it.
class Stamps {
  public:
    Stamps(PrintedPages& pages, const PaperSheet& sheet, const platform::gdi::JobDevice& device)
        : pages_(pages), sheet_(sheet), device_(device)
    {
    }

    std::shared_ptr<platform::Surface> NextPage()
    {
        drawing_->Clear();
        drawing_->SetClip(std::nullopt);
        return drawing_;
    }

    std::size_t OfThisPage()
    {
        if (drawing_->Count() == 0) return PrintedPages::NoStamp;
        for (const Stamp& stamp : stamps_)
            if (stamp.drawing.Same(*drawing_)) return stamp.number;
        const QByteArray picture =
            desktop::PdfPicture(*drawing_, device_.printableWidth, device_.printableHeight, device_.dotsPerInchX);
        if (picture.isEmpty()) throw Failure("cannot draw the stamp");
        stamps_.push_back({*drawing_, pages_.AddStamp(picture.toStdString(), sheet_)});
        return stamps_.back().number;
    }

  private:
    struct Stamp {
        platform::RecordingSurface drawing;
        std::size_t number;
    };
    PrintedPages& pages_;
    PaperSheet sheet_;
    platform::gdi::JobDevice device_;
    std::shared_ptr<platform::RecordingSurface> drawing_ = std::make_shared<platform::RecordingSurface>();
    std::vector<Stamp> stamps_;
};

std::unique_ptr<PrintedPages> PagesOf(const PrintOptions& options)
{
    if (options.input.empty()) return PrintedPages::Empty(options.pages.value_or(1));
    if (options.input != "-") return PrintedPages::Of(options.input, InputName(options.input), {});
    constexpr std::size_t InputLimit = std::size_t{1} << 30;  // bytes
    const auto bytes = ReadFile(options.input, InputLimit);
    return PrintedPages::Of({}, InputName(options.input), {bytes.begin(), bytes.end()});
}

void RunJob(Context& context, const PrintOptions& options, PrintedPages& pages, Progress& progress)
{
    const std::u16string name = context.Printer(options.printer).name;
    const PrinterHandle printer(name);
    std::unique_ptr<JsonLines> events;
    if (!options.events.empty()) events = std::make_unique<JsonLines>("the events", options.events);
    PluggedTrace trace(options.trace);

    RecordBuffer given = options.unchecked ? RecordBuffer() : RecordBuffer::Load(options.record);
    const JobRecord asked = AskForRecord(context, printer, name, std::move(given));
    const JobRecord record = options.unchecked ? JobRecord::FromFile(options.record) : asked;
    const JobPaper paper = PaperOf(context, printer, name, record);
    const PaperSheet sheet{paper.WidthPoints(), paper.HeightPoints(), paper.MarginPoints()};
    Stamps stamps(pages, sheet, paper.Device());

    PrintJob job(context, printer, name, record, paper.Device(), events.get());
    for (std::size_t page = 0; page < pages.Count(); ++page) {
        progress.Tell("page " + std::to_string(page + 1) + " of " + std::to_string(pages.Count()));
        if (options.resetAt == page + 1) job.Reset();
        job.Page(stamps.NextPage());
        pages.Lay(page, sheet, stamps.OfThisPage());
    }
    job.End();
    if (events) events->Check();
    trace.Check();
}

void RunPrint(Context& context, const PrintOptions& options)
{
    Check(options);
    const NamedFile input{"the input", options.input}, record{"--record", options.record}, output{"-o", options.output};
    const NamedFile events{"--events", options.events}, trace{"--trace", options.trace};
    NeedOwnFile(output, {record});
    NeedOwnFile(events, {input, record, output});
    NeedOwnFile(trace, {input, record, output, events});
    for (const NamedFile& written : {output, events, trace}) context.KeepStoreFrom(written.name, written.path);
    context.PlugIn();
    context.Printer(options.printer);
    Progress progress;
    const auto pages = PagesOf(options);
    if (options.resetAt && *options.resetAt > pages->Count()) {
        throw UsageError("--reset-at " + std::to_string(*options.resetAt) + " comes after the last page, " +
                         std::to_string(pages->Count()));
    }
    for (const std::string& remark : pages->Remarks()) std::fprintf(stderr, "qd480: %s\n", remark.c_str());
    RunJob(context, options, *pages, progress);
    if (options.output == "-") {
        const std::string bytes = pages->WriteToMemory();
        return PrintBytes({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    }
    PendingFile file(options.output);
    const auto tell = [&](int percent) { progress.Tell("writing, " + std::to_string(percent) + " %"); };
    if (const int error = pages->Write(file.Descriptor(), tell)) file.Fail(error);
    file.Commit();
}

constexpr char Help[] =
    "Asks for the job's record through DrvDocumentProperties, then runs the job through DrvDocumentEvent. Each page\n"
    "of the input is centred on a page of the record's paper and orientation, made smaller if it is larger than what\n"
    "the printer reaches, never larger, and passes through unchanged; what the driver draws at the page's end comes\n"
    "on top as text with its font embedded. An input that needs a password, is damaged or has no page is refused, and\n"
    "no output is written then.\n"
    "N-up, booklet, scaling and toner are the rendering side's work and are not done here.\n"
    "Example: qd480 print \"Ordana Quillet 4820E\" letter.pdf -o stamped.pdf --record job.dm";

}  // namespace

void AddPrintCommand(CLI::App& program, Context& context)
{
    CLI::App* command = program.add_subcommand("print", "Print a PDF, or empty pages, to a stamped PDF");
    const auto options = std::make_shared<PrintOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command->add_option("INPUT", options->input, "A PDF, - is standard input; without it the pages are empty")
        ->check(FileName())
        ->type_name("");
    command->add_option("-o,--output", options->output, "Where the printed PDF goes; - is standard output")
        ->required()
        ->type_name("FILE")
        ->check(FileName());
    command->add_option("--record", options->record, "The job's settings over the printer's defaults")
        ->type_name("FILE")
        ->check(FileName());
    command->add_flag("--unchecked", options->unchecked, "The job's record is the file's bytes as they are");
    command
        ->add_option("--pages", options->pages,
                     "How many empty pages without an input, up to " + std::to_string(MostEmptyPages) + "; default 1")
        ->transform(WholeNumber(1, MostEmptyPages))
        ->type_name("N");
    command->add_option("--reset-at", options->resetAt, "Reset the job's context before this page, counted from 1")
        ->transform(WholeNumber(1, INT_MAX))
        ->type_name("N");
    command
        ->add_option("--trace", options->trace,
                     "Write the module's drawing calls and escapes as JSON lines: call, dc, on, args, result")
        ->type_name("FILE")
        ->check(FileName());
    command
        ->add_option("--events", options->events,
                     "Write every event with its result, and before it the escapes it sent, as JSON lines")
        ->type_name("FILE")
        ->check(FileName());
    command->footer(Help);
    command->callback([options, &context] { RunPrint(context, *options); });
}

}  // namespace host
