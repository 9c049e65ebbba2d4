// qd480 capabilities: what the printer can do, each capability asked without and with output.
#include <CLI/CLI.hpp>
#include <cstring>
#include <memory>

#include "host/arguments.h"
#include "host/commands.h"
#include "host/context.h"
#include "host/entries.h"
#include "host/job_record.h"
#include "host/printer_handle.h"
#include "host/record_file.h"

namespace host {

namespace {

// How the output of a capability is laid out, a row of the list each.
enum class Shape { None, Numbers16, Pairs32, Names };

struct Capability {
    const char* name;
    WORD code;
    Shape shape;
    std::size_t nameChars;
};
constexpr Capability Capabilities[] = {
    {"DC_FIELDS",           DC_FIELDS,           Shape::None,      0 },
    {"DC_PAPERS",           DC_PAPERS,           Shape::Numbers16, 0 },
    {"DC_PAPERSIZE",        DC_PAPERSIZE,        Shape::Pairs32,   0 },
    {"DC_MINEXTENT",        DC_MINEXTENT,        Shape::None,      0 },
    {"DC_MAXEXTENT",        DC_MAXEXTENT,        Shape::None,      0 },
    {"DC_BINS",             DC_BINS,             Shape::Numbers16, 0 },
    {"DC_DUPLEX",           DC_DUPLEX,           Shape::None,      0 },
    {"DC_SIZE",             DC_SIZE,             Shape::None,      0 },
    {"DC_EXTRA",            DC_EXTRA,            Shape::None,      0 },
    {"DC_VERSION",          DC_VERSION,          Shape::None,      0 },
    {"DC_DRIVER",           DC_DRIVER,           Shape::None,      0 },
    {"DC_BINNAMES",         DC_BINNAMES,         Shape::Names,     24},
    {"DC_ENUMRESOLUTIONS",  DC_ENUMRESOLUTIONS,  Shape::Pairs32,   0 },
    {"DC_FILEDEPENDENCIES", DC_FILEDEPENDENCIES, Shape::Names,     64},
    {"DC_TRUETYPE",         DC_TRUETYPE,         Shape::None,      0 },
    {"DC_PAPERNAMES",       DC_PAPERNAMES,       Shape::Names,     64},
    {"DC_ORIENTATION",      DC_ORIENTATION,      Shape::None,      0 },
    {"DC_COPIES",           DC_COPIES,           Shape::None,      0 },
    {"DC_MEDIAREADY",       DC_MEDIAREADY,       Shape::Names,     64},
    {"DC_STAPLE",           DC_STAPLE,           Shape::None,      0 },
    {"DC_PRINTRATEPPM",     DC_PRINTRATEPPM,     Shape::None,      0 },
    {"DC_COLORDEVICE",      DC_COLORDEVICE,      Shape::None,      0 },
};

struct CapabilitiesOptions {
    std::string printer, record;
    std::vector<std::string> only;
};

std::size_t RowBytes(const Capability& capability)
{
    switch (capability.shape) {
        case Shape::Numbers16:
            return sizeof(WORD);
        case Shape::Pairs32:
            return 2 * sizeof(LONG);
        case Shape::Names:
            return capability.nameChars * sizeof(WCHAR);
        case Shape::None:
            break;
    }
    return 0;
}

Json RowOf(const Capability& capability, const std::uint8_t* row)
{
    if (capability.shape == Shape::Numbers16) {
        WORD number;
        std::memcpy(&number, row, sizeof number);
        return number;
    }
    if (capability.shape == Shape::Pairs32) {
        LONG pair[2];
        std::memcpy(pair, row, sizeof pair);
        return Json::array({pair[0], pair[1]});
    }
    std::u16string name(capability.nameChars, u'\0');
    std::memcpy(name.data(), row, name.size() * sizeof(WCHAR));
    return Text(UpToTerminator(name));
}

// The capability of that name or number; one that has no name stands under its number.
Capability Named(const std::string& text)
{
    for (const Capability& row : Capabilities)
        if (text == row.name) return row;
    const auto code = NumberOf(text);
    if (!code || *code < 0 || *code > 0xFFFF) {
        throw UsageError("--only " + text +
                         ": neither the name of a capability (DC_PAPERS) nor a number from 0 to 65535");
    }
    for (const Capability& row : Capabilities)
        if (*code == row.code) return row;
    return {nullptr, static_cast<WORD>(*code), Shape::None, 0};
}

class Questions {
  public:
    Questions(Context& context, const CapabilitiesOptions& options)
        : ask_(context.Entry<DeviceCapabilitiesEntry>("DrvDeviceCapabilities")),
          name_(context.Printer(options.printer).name),
          printer_(name_),
          record_(RecordBuffer::Load(options.record))
    {
    }

    Json Ask(const Capability& capability)
    {
        const LONG without = ask_(printer_, name_.data(), capability.code, nullptr, record_.Record());
        // One row of room is always there: an output is asked with whatever the capability writes.
        std::vector<std::uint8_t> output(
            capability.shape == Shape::None ? 8 : RoomFor(capability.code) * RowBytes(capability));
        const LONG answer = ask_(printer_, name_.data(), capability.code, output.data(), record_.Record());
        Json json = {
            {"code",          capability.code},
            {"answer",        answer         },
            {"withoutOutput", without        }
        };
        if (capability.shape == Shape::None) return json;
        Json list = Json::array();
        const std::size_t filled = answer > 0 ? static_cast<std::size_t>(answer) : 0;
        for (std::size_t row = 0; row < filled; ++row)
            list.push_back(RowOf(capability, output.data() + row * RowBytes(capability)));
        json["output"] = list;
        return json;
    }

  private:
    // How many rows the output has room for. The answer of the run may have failed where the next one does not, so
    // that one aside from its planned faults counts.
    std::size_t RoomFor(WORD code)
    {
        const AsideFromFaults aside;
        const LONG rows = ask_(printer_, name_.data(), code, nullptr, record_.Record());
        return static_cast<std::size_t>(std::max<LONG>(rows, 0)) + MostSizesStoredMeanwhile;
    }

    DeviceCapabilitiesEntry* ask_;
    std::u16string name_;
    PrinterHandle printer_;
    RecordBuffer record_;
};

void RunCapabilities(Context& context, const CapabilitiesOptions& options)
{
    std::vector<Capability> wanted;
    for (const std::string& text : options.only) wanted.push_back(Named(text));
    if (wanted.empty()) wanted.assign(std::begin(Capabilities), std::end(Capabilities));
    context.PlugIn();
    Questions questions(context, options);
    Json answers = Json::object();
    for (const Capability& capability : wanted)
        answers[capability.name ? capability.name : std::to_string(capability.code)] = questions.Ask(capability);
    Print(answers);
}

}  // namespace

void AddCapabilitiesCommand(CLI::App& program, Context& context)
{
    CLI::App* command =
        program.add_subcommand("capabilities", "Ask what the printer can do, through DrvDeviceCapabilities");
    const auto options = std::make_shared<CapabilitiesOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command->add_option("--record", options->record, "Settings over the driver's defaults")
        ->type_name("FILE")
        ->check(FileName());
    command->add_option("--only", options->only, "Ask this capability alone, by name (DC_PAPERS) or number; repeatable")
        ->type_name("NAME-OR-CODE")
        ->allow_extra_args(false);
    command->footer(
        "Prints {\"DC_PAPERS\": {\"code\": 2, \"answer\": 27, \"withoutOutput\": 27, \"output\": [1, 9, ...]}, ...}: "
        "each capability is asked once without and once with output.");
    command->callback([options, &context] { RunCapabilities(context, *options); });
}

}  // namespace host
