// A machine with one printer that a handle is open on, and the check that a test gives everything back.
#pragma once

#include <gtest/gtest.h>

#include "module.h"
#include "platform/kernel/memory.h"
#include "platform/spooler/printers.h"
#include "tests/support/machine.h"
#include "tests/support/records.h"

namespace testing_support {

// What the platform has given out and not got back.
struct GivenOut {
    std::size_t blocks = platform::memory::BlockCount();
    std::size_t heaps = platform::memory::HeapCount();
    std::size_t printers = platform::spooler::OpenCount();
    bool operator==(const GivenOut&) const = default;
};

inline void PrintTo(const GivenOut& given, std::ostream* out)
{
    *out << given.blocks << " blocks, " << given.heaps << " heaps, " << given.printers << " printer handles";
}

class PrinterTest : public testing::Test {
  protected:
    PrinterTest()
    {
        // The module's code is linked into the test, its resources are in the library.
        if (!ModuleHandle) DllInitialize(LoadLibraryW(QD_MODULE_PATH), DLL_PROCESS_ATTACH, nullptr);
    }
    ~PrinterTest() override
    {
        if (printer) platform::spooler::Close(printer);
        EXPECT_EQ(GivenOut(), before);
    }
    void Store(const char16_t* name, DWORD type, const platform::Bytes& bytes)
    {
        machine.store->SetValue(OfficePrinter, name, {type, bytes});
    }
    platform::Bytes Stored(const char16_t* name)
    {
        const auto value = machine.store->Value(OfficePrinter, name);
        return value ? value->bytes : platform::Bytes{};
    }

    GivenOut before;
    Machine machine;
    HANDLE printer = platform::spooler::Open(OfficePrinter, 0);
};

inline platform::Bytes LittleEndian(DWORD value)
{
    return {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 24)};
}

}  // namespace testing_support
