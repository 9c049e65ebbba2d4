// The commands of qd480, one a file. Each adds itself and its options to the program; its callback runs when
// the whole command line has been checked, and throws UsageError or Failure when it cannot do its work.
#pragma once

namespace CLI {
class App;
}

namespace host {

class Context;

void AddPrinterCommand(CLI::App& program, Context& context);
void AddRecordCommand(CLI::App& program, Context& context);
void AddDocumentPropertiesCommand(CLI::App& program, Context& context);
void AddCapabilitiesCommand(CLI::App& program, Context& context);
void AddConvertCommand(CLI::App& program, Context& context);
void AddCanPrintCommand(CLI::App& program, Context& context);
void AddUpgradeCommand(CLI::App& program, Context& context);
void AddEventCommand(CLI::App& program, Context& context);
void AddSheetCommand(CLI::App& program, Context& context);
void AddDeviceSheetCommand(CLI::App& program, Context& context);
void AddSnapshotsCommand(CLI::App& program, Context& context);
void AddPrintCommand(CLI::App& program, Context& context);
void AddDocumentEventCommand(CLI::App& program, Context& context);

}  // namespace host
