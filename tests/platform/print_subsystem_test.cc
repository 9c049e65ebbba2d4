#include <algorithm>
#include <cstring>

#include "platform/registry.h"
#include "platform/spooler.h"
#include "platform/spooler/impersonation.h"
#include "platform/spooler/printers.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

class PrintSubsystem : public FreshEnvironment {
  protected:
    PrintSubsystem() : openBefore_(spooler::OpenCount()) {}
    ~PrintSubsystem() override { EXPECT_EQ(spooler::OpenCount(), openBefore_); }

  private:
    std::size_t openBefore_;
};

// A printer that is open as long as this lives.
class Opened {
  public:
    explicit Opened(const std::u16string& name, DWORD access = 0) : handle(spooler::Open(name, access)) {}
    ~Opened() { spooler::Close(handle); }
    operator HANDLE() const { return handle; }
    HANDLE handle;
};

struct OpenRow {
    std::u16string printer;
    bool defaults;
    DWORD access;
    DWORD error;
};

TEST_F(PrintSubsystem, OpensByNameAndRight)
{
    const OpenRow rows[] = {
        {Printer,       false, 0,                         0                         },
        {Printer,       true,  PRINTER_ALL_ACCESS,        0                         },
        {LockedPrinter, false, 0,                         0                         },
        {LockedPrinter, true,  PRINTER_ACCESS_USE,        0                         },
        {LockedPrinter, true,  PRINTER_ACCESS_ADMINISTER, ERROR_ACCESS_DENIED       },
        {LockedPrinter, true,  PRINTER_ALL_ACCESS,        ERROR_ACCESS_DENIED       },
        {u"Nowhere",    false, 0,                         ERROR_INVALID_PRINTER_NAME},
        {u"",           false, 0,                         ERROR_INVALID_PRINTER_NAME},
    };
    for (const OpenRow& row : rows) {
        SetLastError(0);
        std::u16string name = row.printer;
        PRINTER_DEFAULTSW defaults{nullptr, nullptr, row.access};
        HANDLE printer = nullptr;
        EXPECT_EQ(OpenPrinterW(name.data(), &printer, row.defaults ? &defaults : nullptr), row.error == 0);
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(spooler::Close(printer), row.error == 0);
    }
    HANDLE printer = nullptr;
    EXPECT_FALSE(OpenPrinterW(nullptr, &printer, nullptr));
    EXPECT_FALSE(ClosePrinter(nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(PrintSubsystem, StoredValuesAreReadWithinTheirRoom)
{
    store->SetValue(Printer, u"Data",
                    {
                        REG_BINARY, {1, 2, 3}
    });
    const Opened printer(Printer);
    WCHAR name[] = u"Data", other[] = u"Other";
    BYTE data[4] = {9, 9, 9, 9};
    DWORD type = 0, needed = 0;
    EXPECT_EQ(GetPrinterDataW(printer, name, &type, data, 2, &needed), ERROR_MORE_DATA);
    EXPECT_EQ(needed, 3u);
    EXPECT_EQ(data[0], 9);
    EXPECT_EQ(GetPrinterDataW(printer, name, &type, data, 4, &needed), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_BINARY);
    EXPECT_EQ(needed, 3u);
    EXPECT_EQ(data[2], 3);
    EXPECT_EQ(data[3], 9);
    EXPECT_EQ(GetPrinterDataW(printer, other, &type, data, 4, &needed), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(GetPrinterDataW(nullptr, name, &type, data, 4, &needed), ERROR_INVALID_HANDLE);
}

TEST_F(PrintSubsystem, TheRightToThePrinterDecidesWhetherValuesCanBeWritten)
{
    WCHAR name[] = u"Data";
    BYTE data[] = {5};
    const Opened printer(Printer), locked(LockedPrinter);
    EXPECT_EQ(SetPrinterDataW(printer, name, REG_DWORD, data, 1), ERROR_SUCCESS);
    EXPECT_EQ(store->Value(Printer, u"Data"), (StoredValue{REG_DWORD, {5}}));
    EXPECT_EQ(SetPrinterDataW(locked, name, REG_DWORD, data, 1), ERROR_ACCESS_DENIED);
    EXPECT_EQ(store->Value(LockedPrinter, u"Data"), std::nullopt);
}

// Asks for the size first and then, as a byte less is not enough, for the block, which starts with what is told.
template <class Info, class Ask>
std::vector<BYTE> Told(Info& info, Ask ask)
{
    DWORD needed = 0;
    EXPECT_FALSE(ask(nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    std::vector<BYTE> block(std::max<std::size_t>(needed, sizeof info));
    EXPECT_FALSE(ask(block.data(), needed - 1, &needed));
    EXPECT_TRUE(ask(block.data(), needed, &needed));
    std::memcpy(&info, block.data(), sizeof info);
    return block;
}

TEST_F(PrintSubsystem, TellsAboutThePrinterAndItsDriver)
{
    const Opened printer(Printer);
    PRINTER_INFO_2W info;
    const auto block =
        Told(info, [&](BYTE* room, DWORD size, DWORD* needed) { return GetPrinterW(printer, 2, room, size, needed); });
    EXPECT_EQ(std::u16string(info.pPrinterName), Printer);
    EXPECT_EQ(std::u16string(info.pDriverName), u"Quillet");
    EXPECT_EQ(info.pDevMode, nullptr);
    DRIVER_INFO_3W driver;
    const auto driverBlock = Told(driver, [&](BYTE* room, DWORD size, DWORD* needed) {
        return GetPrinterDriverW(printer, nullptr, 3, room, size, needed);
    });
    EXPECT_EQ(std::u16string(driver.pName), u"Quillet");
    EXPECT_EQ(std::u16string(driver.pConfigFile), u"C:\\WINDOWS\\system32\\spool\\DRIVERS\\W32X86\\3\\qd480ui.dll");
    EXPECT_EQ(driver.pHelpFile, nullptr);
}

TEST_F(PrintSubsystem, KnowsOneLevelOfEachQuestion)
{
    const Opened printer(Printer);
    BYTE room[4096];
    DWORD needed = 0;
    EXPECT_FALSE(GetPrinterW(printer, 1, room, sizeof room, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_LEVEL);
    SetLastError(0);
    EXPECT_FALSE(GetPrinterDriverW(printer, nullptr, 1, room, sizeof room, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_LEVEL);
}

// What GetPrinterW gives for a stored default record, as far as it may be read.
Bytes DefaultRecordGiven(HANDLE printer, std::size_t bytes)
{
    PRINTER_INFO_2W info;
    const auto block =
        Told(info, [&](BYTE* room, DWORD size, DWORD* needed) { return GetPrinterW(printer, 2, room, size, needed); });
    const BYTE* record = reinterpret_cast<const BYTE*>(info.pDevMode);
    EXPECT_LE(record + bytes, block.data() + block.size());
    return Bytes(record, record + bytes);
}

TEST_F(PrintSubsystem, AStoredRecordThatClaimsMoreThanItHasIsFilledUp)
{
    DEVMODEW header{};
    header.dmSpecVersion = 0x0401;
    header.dmSize = 220;
    header.dmDriverExtra = 1628;
    Bytes stored(230, 0xAA);
    std::memcpy(stored.data(), &header, sizeof header);
    store->SetDefaultRecord(Printer, stored);
    const Opened printer(Printer);
    const Bytes given = DefaultRecordGiven(printer, 1848);
    EXPECT_EQ(given[229], 0xAA);
    EXPECT_EQ(given[230], 0);

    store->SetDefaultRecord(Printer, Bytes{1, 2});
    EXPECT_EQ(DefaultRecordGiven(printer, 220)[2], 0);
}

TEST_F(PrintSubsystem, TheDriverDirectoryIsMeasuredInBytes)
{
    DWORD needed = 0;
    EXPECT_FALSE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(needed, 82u);
    WCHAR path[128];
    auto* room = reinterpret_cast<BYTE*>(path);
    ASSERT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, room, 255, &needed));
    EXPECT_EQ(std::u16string(path), u"C:\\WINDOWS\\system32\\spool\\DRIVERS\\W32X86");
    EXPECT_FALSE(GetPrinterDriverDirectoryW(nullptr, nullptr, 2, room, 255, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_LEVEL);
}

TEST_F(PrintSubsystem, ARemovedPrintersHandleIsInvalid)
{
    const Opened printer(Printer);
    store->Remove(Printer);
    DWORD needed = 0;
    WCHAR name[] = u"Data";
    EXPECT_EQ(GetPrinterDataW(printer, name, nullptr, nullptr, 0, &needed), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(GetPrinterW(printer, 2, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(PrintSubsystem, TheSubsystemsOwnRightsReachEveryPrinter)
{
    HANDLE token = RevertToPrinterSelf();
    ASSERT_NE(token, nullptr);
    EXPECT_EQ(RevertToPrinterSelf(), nullptr);
    EXPECT_NE(Opened(LockedPrinter, PRINTER_ALL_ACCESS).handle, nullptr);
    EXPECT_FALSE(ImpersonatePrinterClient(nullptr));
    EXPECT_TRUE(ImpersonatePrinterClient(token));
    EXPECT_EQ(spooler::Open(LockedPrinter, PRINTER_ALL_ACCESS), nullptr);
}

class FullDisk : public MemoryStore {
  public:
    bool SetValue(std::u16string_view, std::u16string_view, const StoredValue&) override
    {
        throw StoreError("disk full");
    }
};

TEST_F(PrintSubsystem, AStoreThatCannotWorkIsAGeneralFailure)
{
    const auto full = std::make_shared<FullDisk>();
    full->Add({Printer, u"Quillet", true});
    CurrentEnvironment().printers = full;
    const Opened printer(Printer);
    WCHAR name[] = u"Data";
    BYTE data[] = {5};
    EXPECT_EQ(SetPrinterDataW(printer, name, REG_BINARY, data, 1), ERROR_GEN_FAILURE);
    EXPECT_EQ(GetLastError(), ERROR_GEN_FAILURE);
}

}  // namespace
}  // namespace platform
