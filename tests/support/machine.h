// A machine for tests without windows: one printer in a store in memory, built-in fonts, and facts to choose from.
// With it all goes that tests plug into the environment.
#pragma once

#include <memory>
#include <string>

#include "platform/seams/environment.h"
#include "platform/seams/fonts.h"
#include "platform/seams/memory_stores.h"
#include "platform/seams/system_facts.h"

namespace testing_support {

inline constexpr char16_t OfficePrinter[] = u"Office";
inline constexpr char16_t OfficeDriver[] = u"Quillet";
inline constexpr int UnitedStates = 1, Germany = 49;  // countries

class Machine {
  public:
    explicit Machine(const platform::FixedFactValues& facts = {},
                     const platform::PrinterEntry& printer = {OfficePrinter, OfficeDriver})
    {
        store->Add(printer);
        platform::Environment& environment = platform::CurrentEnvironment();
        environment.printers = store;
        environment.registry = store;
        environment.fonts = platform::MakeBuiltinFonts();
        environment.faults.Clear();
        UseFacts(facts);
    }
    ~Machine()
    {
        platform::Environment& environment = platform::CurrentEnvironment();
        environment.faults.Clear();
        environment.printers = nullptr;
        environment.registry = nullptr;
        environment.fonts = nullptr;
        environment.desktop = nullptr;
        environment.trace = nullptr;
        UseFacts({});
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    static platform::FixedFactValues InCountry(int country)
    {
        platform::FixedFactValues facts;
        facts.country = country;
        return facts;
    }
    static void UseFacts(const platform::FixedFactValues& facts)
    {
        platform::CurrentEnvironment().facts = platform::MakeFixedFacts(facts);
    }
    // From now on the call-th call of a platform function fails, and no other.
    static void Fail(const std::string& function, std::uint64_t call = 1)
    {
        platform::CurrentEnvironment().faults.Clear();
        platform::CurrentEnvironment().faults.Add(function, call, false);
    }
    operator platform::PrinterStore&() const { return *store; }

    std::shared_ptr<platform::MemoryStore> store = std::make_shared<platform::MemoryStore>();
};

}  // namespace testing_support
