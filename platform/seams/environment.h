// What is plugged into the layer. Process-wide; set it before the first call of the module and not while
// a dialog is up. Each member may be absent: then functions that need it fail as on a machine without it.
#pragma once

#include <memory>

#include "platform/seams/fault_plan.h"
#include "platform/types.h"

namespace platform {

class PrinterStore;
class RegistryStore;
class FontService;
class SystemFacts;
class Desktop;
class TraceSink;

struct Environment {
    std::shared_ptr<PrinterStore> printers;
    std::shared_ptr<RegistryStore> registry;
    std::shared_ptr<FontService> fonts;
    std::shared_ptr<SystemFacts> facts;  // never null: starts as MakeFixedFacts({})
    std::shared_ptr<Desktop> desktop;
    std::shared_ptr<TraceSink> trace;
    FaultPlan faults;
};

QD_API Environment& CurrentEnvironment();

}  // namespace platform
