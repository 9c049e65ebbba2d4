// qd480 device-sheet: the driver's part of the printer's own properties, in windows or played by a script.
#include <CLI/CLI.hpp>
#include <memory>

#include "host/commands.h"
#include "host/entries.h"
#include "host/printer_handle.h"
#include "host/sheet_session.h"
#include "platform/services/sheet_service.h"

namespace host {

namespace {

constexpr char DeviceSheets[] = "device-sheets", PrinterPropertiesName[] = "printer-properties";

struct DeviceSheetOptions {
    std::string printer, entry = DeviceSheets;
    bool noPermission = false;
    SheetOptions sheet;
};

LONG RunDeviceSheets(Context& context, HWND owner, HANDLE printer, std::u16string& name, bool noPermission)
{
    DEVICEPROPERTYHEADER header{};
    header.cbSize = sizeof header;
    header.Flags = noPermission ? DPS_NOPERMISSION : 0;
    header.hPrinter = printer;
    header.pszPrinterName = name.data();
    DWORD result = 0;
    const LONG ran =
        platform::services::RunCommonSheet(owner, context.Entry<DevicePropertySheetsEntry>("DrvDevicePropertySheets"),
                                           reinterpret_cast<LPARAM>(&header), &result);
    return ran > 0 ? static_cast<LONG>(result) : ran;
}

int RunDeviceSheet(Context& context, const DeviceSheetOptions& options)
{
    if (options.noPermission && options.entry == PrinterPropertiesName) {
        throw UsageError("--no-permission does not go with --entry printer-properties, which asks for itself");
    }
    SheetSession session(context, options.sheet);
    context.PlugIn();
    std::u16string name = context.Printer(options.printer).name;
    const PrinterHandle printer(name);
    const auto noRecord = [] { return Json(); };
    if (options.entry == PrinterPropertiesName) {
        const auto entry = context.Entry<PrinterPropertiesEntry>("PrinterProperties");
        return session.Run(
            "PrinterProperties", [&](HWND owner) { return entry(owner, printer); }, noRecord);
    }
    return session.Run(
        "DrvDevicePropertySheets",
        [&](HWND owner) { return RunDeviceSheets(context, owner, printer, name, options.noPermission); }, noRecord);
}

}  // namespace

void AddDeviceSheetCommand(CLI::App& program, Context& context)
{
    CLI::App* command = program.add_subcommand("device-sheet", "Open the device sheet, or play a script on it");
    const auto options = std::make_shared<DeviceSheetOptions>();
    command->add_option("NAME", options->printer, "The printer")->required()->type_name("");
    command->add_option("--entry", options->entry, "The module's entry to go through; default device-sheets")
        ->check(CLI::IsMember({DeviceSheets, PrinterPropertiesName}));
    command->add_flag("--no-permission", options->noPermission, "As a user who may not change the printer");
    options->sheet.AddTo(*command);
    command->callback([&context, options] { context.status = RunDeviceSheet(context, *options); });
}

}  // namespace host
