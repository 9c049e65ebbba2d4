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
    PrintSubsystem() : printer(spooler::Open(Printer, 0)) {}
    ~PrintSubsystem() override
    {
        spooler::Close(printer);
        EXPECT_EQ(spooler::OpenCount(), 0u);
    }

    HANDLE printer;
    WCHAR name[5] = u"Data";
    BYTE data[4] = {9, 9, 9, 9};
    DWORD type = 0, needed = 0;
};

// The error of an attempt to open.
DWORD Opening(std::u16string name, DWORD access)
{
    PRINTER_DEFAULTSW defaults{nullptr, nullptr, access};
    HANDLE opened = nullptr;
    if (!OpenPrinterW(name.data(), &opened, access ? &defaults : nullptr)) return Refusal(opened);
    EXPECT_TRUE(ClosePrinter(opened));
    return 0;
}

TEST_F(PrintSubsystem, OpensByNameAndRight)
{
    EXPECT_EQ(Opening(Printer, 0), 0u);
    EXPECT_EQ(Opening(Printer, PRINTER_ALL_ACCESS), 0u);
    EXPECT_EQ(Opening(LockedPrinter, 0), 0u);
    EXPECT_EQ(Opening(LockedPrinter, PRINTER_ACCESS_USE), 0u);
    EXPECT_EQ(Opening(LockedPrinter, PRINTER_ACCESS_ADMINISTER), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Opening(LockedPrinter, PRINTER_ALL_ACCESS), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Opening(u"Nowhere", 0), ERROR_INVALID_PRINTER_NAME);
    EXPECT_EQ(Opening(u"", 0), ERROR_INVALID_PRINTER_NAME);
    EXPECT_NE(Refusal(OpenPrinterW(nullptr, &printer, nullptr)), 0u);
    EXPECT_EQ(Refusal(ClosePrinter(nullptr)), ERROR_INVALID_HANDLE);
}

TEST_F(PrintSubsystem, StoredValuesAreReadWithinTheirRoom)
{
    const StoredValue value{
        REG_BINARY, {1, 2, 3}
    };
    store->SetValue(Printer, name, value);
    EXPECT_EQ(GetPrinterDataW(printer, name, &type, data, 2, &needed), ERROR_MORE_DATA);
    EXPECT_EQ(needed, 3u);
    EXPECT_EQ(data[0], 9);
    EXPECT_EQ(GetPrinterDataW(printer, name, &type, data, 4, &needed), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_BINARY);
    EXPECT_EQ(needed, 3u);
    EXPECT_EQ(data[2], 3);
    EXPECT_EQ(data[3], 9);
    WCHAR other[] = u"Other";
    EXPECT_EQ(GetPrinterDataW(printer, other, &type, data, 4, &needed), ERROR_FILE_NOT_FOUND);
    store->Remove(Printer);
    EXPECT_EQ(GetPrinterDataW(printer, name, &type, data, 4, &needed), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Refusal(GetPrinterW(printer, 2, nullptr, 0, &needed)), ERROR_INVALID_HANDLE);
}

class FullDisk : public MemoryStore {
    bool SetValue(std::u16string_view, std::u16string_view, const StoredValue&) override
    {
        throw StoreError("disk full");
    }
};

TEST_F(PrintSubsystem, ValuesAreWrittenByRightAndAsFarAsTheStoreCan)
{
    EXPECT_EQ(SetPrinterDataW(printer, name, REG_DWORD, data, 1), ERROR_SUCCESS);
    EXPECT_EQ(store->Value(Printer, name), (StoredValue{REG_DWORD, {9}}));
    store->Remove(Printer);
    store->Add({Printer, u"Quillet", false});
    EXPECT_EQ(SetPrinterDataW(printer, name, REG_DWORD, data, 1), ERROR_ACCESS_DENIED);
    EXPECT_EQ(store->Value(Printer, name), std::nullopt);
    const auto full = std::make_shared<FullDisk>();
    full->Add({Printer, u"Quillet", true});
    CurrentEnvironment().printers = full;
    EXPECT_EQ(SetPrinterDataW(printer, name, REG_DWORD, data, 1), ERROR_GEN_FAILURE);
    EXPECT_EQ(GetLastError(), ERROR_GEN_FAILURE);
}

// Asks for the size first and then, as a byte less is not enough, for the block, which starts with the answer.
std::vector<BYTE> Told(PRINTER_INFO_2W& info, HANDLE printer)
{
    DWORD needed = 0;
    EXPECT_EQ(Refusal(GetPrinterW(printer, 2, nullptr, 0, &needed)), ERROR_INSUFFICIENT_BUFFER);
    std::vector<BYTE> block(std::max<std::size_t>(needed, sizeof info));
    EXPECT_FALSE(GetPrinterW(printer, 2, block.data(), needed - 1, &needed));
    EXPECT_TRUE(GetPrinterW(printer, 2, block.data(), needed, &needed));
    std::memcpy(&info, block.data(), sizeof info);
    return block;
}

TEST_F(PrintSubsystem, TellsAboutTheDriver)
{
    alignas(DRIVER_INFO_3W) BYTE room[4096];
    ASSERT_TRUE(GetPrinterDriverW(printer, nullptr, 3, room, sizeof room, &needed));
    DRIVER_INFO_3W driver;
    std::memcpy(&driver, room, sizeof driver);
    EXPECT_EQ(std::u16string(driver.pConfigFile), u"C:\\WINDOWS\\system32\\spool\\DRIVERS\\W32X86\\3\\qd480ui.dll");
    EXPECT_EQ(driver.pHelpFile, nullptr);
    EXPECT_EQ(Refusal(GetPrinterDriverW(printer, nullptr, 1, room, sizeof room, &needed)), ERROR_INVALID_LEVEL);
}

TEST_F(PrintSubsystem, AStoredRecordThatClaimsMoreThanItHasIsFilledUp)
{
    DEVMODEW header{};
    header.dmSize = 220;
    header.dmDriverExtra = 1628;
    Bytes stored(230, 0xAA);
    std::memcpy(stored.data(), &header, sizeof header);
    for (const auto& [record, whole] : {
             std::pair{stored,      1848},
             std::pair{Bytes{1, 2}, 220 }
    }) {
        store->SetDefaultRecord(Printer, record);
        PRINTER_INFO_2W info;
        const auto block = Told(info, printer);
        const BYTE* given = reinterpret_cast<const BYTE*>(info.pDevMode);
        EXPECT_LE(given + whole, block.data() + block.size());
        EXPECT_EQ(given[record.size() - 1], record.back());
        EXPECT_EQ(given[record.size()], 0);
    }
}

}  // namespace
}  // namespace platform
