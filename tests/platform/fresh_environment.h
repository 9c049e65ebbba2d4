// A plain environment for each test: stores in memory with one printer, built-in fonts, fixed facts, no faults.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/kernel.h"
#include "platform/seams/environment.h"
#include "platform/seams/fonts.h"
#include "platform/seams/memory_stores.h"
#include "platform/seams/system_facts.h"

namespace platform {

inline const std::u16string Printer = u"Office";
inline const std::u16string LockedPrinter = u"Locked";

// Why a call failed: it gave nothing, and its error is taken.
template <class Result>
DWORD Refusal(Result result)
{
    EXPECT_EQ(result, Result{});
    const DWORD error = GetLastError();
    SetLastError(0);
    return error;
}

class FreshEnvironment : public ::testing::Test {
  protected:
    FreshEnvironment()
    {
        store->Add({Printer, u"Quillet", true});
        store->Add({LockedPrinter, u"Quillet", false});
        Environment& environment = CurrentEnvironment();
        environment.printers = store;
        environment.registry = store;
        environment.fonts = MakeBuiltinFonts();
        environment.desktop = nullptr;
        environment.trace = nullptr;
        environment.faults.Clear();
        UseFacts({});
        SetLastError(0);
    }
    ~FreshEnvironment() override { CurrentEnvironment().faults.Clear(); }

    static void UseFacts(const FixedFactValues& values) { CurrentEnvironment().facts = MakeFixedFacts(values); }

    std::shared_ptr<MemoryStore> store = std::make_shared<MemoryStore>();
};

}  // namespace platform
