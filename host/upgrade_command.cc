// qd480 upgrade and qd480 event: what the print subsystem asks of the driver without a user.
#include <CLI/CLI.hpp>
#include <memory>

#include "host/arguments.h"
#include "host/commands.h"
#include "host/context.h"
#include "host/entries.h"
#include "platform/kernel/last_error.h"

namespace host {

namespace {

struct UpgradeOptions {
    std::string printer;
    std::uint32_t level = 1;
};

// The printer need not exist: that the entry finds out.
void RunUpgrade(Context& context, const UpgradeOptions& options)
{
    context.PlugIn();
    std::u16string name = WideArgument("the printer's name", options.printer);
    const DRIVER_UPGRADE_INFO_1W info{name.data(), nullptr};
    const auto entry = context.Entry<UpgradePrinterEntry>("DrvUpgradePrinter");
    platform::SetError(ERROR_SUCCESS);
    const BOOL result = entry(options.level, &info);
    Print({
        {"result",    result != FALSE      },
        {"lastError", platform::LastError()}
    });
}

struct EventOptions {
    std::string printer;
    int code = 0;
};

void RunEvent(Context& context, const EventOptions& options)
{
    context.PlugIn();
    const std::u16string name = WideArgument("the printer's name", options.printer);
    const BOOL result = context.Entry<PrinterEventEntry>("DrvPrinterEvent")(name.c_str(), options.code, 0, 0);
    Print({
        {"result", result != FALSE}
    });
}

}  // namespace

void AddUpgradeCommand(CLI::App& program, Context& context)
{
    CLI::App* command = program.add_subcommand(
        "upgrade", "Bring what an older driver stored with a printer up to date, through DrvUpgradePrinter");
    const auto options = std::make_shared<UpgradeOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command->add_option("--level", options->level, "The level of the upgrade's information, 1 unless said")
        ->transform(WholeNumber(0, UINT32_MAX))
        ->type_name("N");
    command->footer("Prints {\"result\": true, \"lastError\": 0}.");
    command->callback([options, &context] { RunUpgrade(context, *options); });
}

void AddEventCommand(CLI::App& program, Context& context)
{
    CLI::App* command = program.add_subcommand("event", "Tell the driver of a printer event, through DrvPrinterEvent");
    const auto options = std::make_shared<EventOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command->add_option("CODE", options->code, "3 initialize, 5 cache refresh, or any other number")
        ->required()
        ->transform(WholeNumber(INT32_MIN, INT32_MAX))
        ->type_name("");
    command->footer("Prints {\"result\": true}.");
    command->callback([options, &context] { RunEvent(context, *options); });
}

}  // namespace host
