// A machine for tests without windows: one printer in a store in memory, and facts to choose from.
#pragma once

#include <memory>
#include <string>

#include "platform/seams/environment.h"
#include "platform/seams/memory_stores.h"
#include "platform/seams/system_facts.h"

namespace testing_support {

inline constexpr char16_t OfficePrinter[] = u"Office";
inline constexpr char16_t OfficeDriver[] = u"Quillet";
inline constexpr int UnitedStates = 1, Germany = 49;  // countries

class Machine {
  public:
    explicit Machine(platform::FixedFactValues facts = {},
                     platform::PrinterEntry printer = {OfficePrinter, OfficeDriver})
    {
        store->Add(printer);
        platform::Environment& environment = platform::CurrentEnvironment();
        environment.printers = store;
        environment.registry = store;
        environment.facts = platform::MakeFixedFacts(facts);
        environment.faults.Clear();
    }
    ~Machine()
    {
        platform::Environment& environment = platform::CurrentEnvironment();
        environment.faults.Clear();
        environment.printers = nullptr;
        environment.registry = nullptr;
        environment.facts = platform::MakeFixedFacts({});
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    static platform::FixedFactValues InCountry(int country)
    {
        platform::FixedFactValues facts;
        facts.country = country;
        return facts;
    }
    // The call-th call of a platform function fails.
    static void Fail(const char* function, std::uint64_t call = 1)
    {
        platform::CurrentEnvironment().faults.Add(function, call, false);
    }

    std::shared_ptr<platform::MemoryStore> store = std::make_shared<platform::MemoryStore>();
};

}  // namespace testing_support
