// A machine with one printer that a handle is open on and whose name the module knows, and the check that a test
// gives everything back.
#pragma once

#include <gtest/gtest.h>

#include <array>

#include "module.h"
#include "platform/kernel/memory.h"
#include "platform/spooler/printers.h"
#include "settings/options.h"
#include "spooler/printer_data.h"
#include "tests/support/records.h"
#include "tests/support/stored_bytes.h"

namespace testing_support {

// Blocks, heaps and printer handles that the platform has given out and not got back.
inline std::array<std::size_t, 3> GivenOut()
{
    return {platform::memory::BlockCount(), platform::memory::HeapCount(), platform::spooler::OpenCount()};
}

class PrinterTest : public testing::Test {
  protected:
    PrinterTest()
    {
        // The module's code is linked into the test, its resources are in the library.
        if (!ModuleHandle) DllInitialize(LoadLibraryW(QD_MODULE_PATH), DLL_PROCESS_ATTACH, nullptr);
        lstrcpyW(PrinterName, OfficePrinter);
    }
    ~PrinterTest() override
    {
        CurrentSettings = nullptr;
        if (printer) platform::spooler::Close(printer);
        EXPECT_EQ(GivenOut(), before);
    }
    // Bytes with their number beside them.
    void Store(const char16_t* value, const platform::Bytes& bytes)
    {
        StoreSized(machine, OfficePrinter, value, bytes, static_cast<DWORD>(bytes.size()));
    }
    platform::Bytes Stored(const char16_t* value) { return StoredBytes(machine, OfficePrinter, value); }

    const std::array<std::size_t, 3> before = GivenOut();
    Machine machine;
    HANDLE printer = platform::spooler::Open(OfficePrinter, 0);
};

}  // namespace testing_support
