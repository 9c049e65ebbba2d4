#include "spooler/printer_data.h"

#include "platform/registry.h"
#include "tests/spooler/printer_fixture.h"

namespace {

using namespace testing_support;
using platform::Bytes;

class PrinterData : public PrinterTest {
  protected:
    Bytes Blob(int slot)
    {
        DWORD size = 0xEEEE;
        const auto block = ReadPrinterBlob(printer, &size, slot);
        if (!block) return {};
        return {block.get(), block.get() + size};
    }
};

struct SlotRow {
    int slot;
    const char16_t *size, *data;
};
constexpr SlotRow Slots[] = {
    {0, u"PrinterDataSize",     u"PrinterData"    },
    {1, u"CustomPaperDataSize", u"CustomPaperData"},
    {3, u"OverlayDataSize",     u"OverlayData"    },
};

TEST_F(PrinterData, IsALengthAndTheBytes)
{
    for (const SlotRow& row : Slots) {
        const Bytes bytes = {1, 2, static_cast<std::uint8_t>(row.slot)};
        EXPECT_TRUE(WritePrinterBlob(printer, bytes.data(), 3, row.slot));
        EXPECT_EQ(*machine.store->Value(OfficePrinter, row.size), (platform::StoredValue{
                                                                      REG_DWORD, {3, 0, 0, 0}
        }));
        EXPECT_EQ(*machine.store->Value(OfficePrinter, row.data), (platform::StoredValue{REG_BINARY, bytes}));
        EXPECT_EQ(Blob(row.slot), bytes);
    }
    for (int slot : {-1, 4})
        EXPECT_FALSE(WritePrinterBlob(printer, "x", 1, slot) || ReadPrinterBlob(printer, nullptr, slot));
}

struct StoredRow {
    Bytes size, data;
    Bytes read;  // empty: null
};

TEST_F(PrinterData, GoesByTheStoredLength)
{
    EXPECT_EQ(ReadOverlayBlob(printer, nullptr), nullptr);
    Store(u"OverlayDataSize", REG_DWORD, {3, 0, 0, 0});
    EXPECT_EQ(ReadOverlayBlob(printer, nullptr), nullptr);
    const std::vector<StoredRow> rows = {
        {{3, 0, 0, 0},             {7, 8, 9}, {7, 8, 9}      },
        {{0, 0, 0, 0},             {7, 8, 9}, {}             },
        {{2, 0, 0, 0},             {7, 8, 9}, {}             }, // no room for the bytes
        {{5, 0, 0, 0},             {7, 8, 9}, {7, 8, 9, 0, 0}}, // a length from a write that failed in its middle
        {{3},                      {7, 8, 9}, {7, 8, 9}      },
        {{3, 0, 0, 0, 0},          {7, 8, 9}, {}             }, // no 32-bit number
        {{0xFF, 0xFF, 0xFF, 0xFF}, {7},       {}             }, // more than any process has
    };
    for (const StoredRow& row : rows) {
        Store(u"OverlayDataSize", REG_DWORD, row.size);
        Store(u"OverlayData", REG_BINARY, row.data);
        EXPECT_EQ(Blob(OverlaySlot), row.read) << testing::PrintToString(row.size);
    }
}

TEST_F(PrinterData, OfAFailedWriteHasTheNewLengthBesideTheOldBytes)
{
    EXPECT_TRUE(WritePrinterBlob(printer, "abc", 3, OverlaySlot));
    Machine::Fail("SetPrinterDataW", 1);
    EXPECT_FALSE(WritePrinterBlob(printer, "defgh", 5, OverlaySlot));
    EXPECT_EQ(Blob(OverlaySlot), (Bytes{'a', 'b', 'c'}));
    Machine::Fail("SetPrinterDataW", 3);
    EXPECT_FALSE(WritePrinterBlob(printer, "defgh", 5, OverlaySlot));
    EXPECT_EQ(Blob(OverlaySlot), (Bytes{'a', 'b', 'c', 0, 0}));
}

struct FaultRow {
    const char* function;
    std::uint64_t call;
};

TEST_F(PrinterData, ThatCannotBeReadIsNull)
{
    constexpr FaultRow rows[] = {
        {"GetPrinterDataW", 1},
        {"GetPrinterDataW", 2},
        {"GlobalAlloc",     1}
    };
    EXPECT_TRUE(WritePrinterBlob(printer, "abc", 3, OverlaySlot));
    for (const FaultRow& row : rows) {
        platform::CurrentEnvironment().faults.Clear();
        Machine::Fail(row.function, row.call);
        EXPECT_EQ(Blob(OverlaySlot), Bytes()) << row.function << row.call;
    }
}

struct CountRow {
    DWORD length;
    bool block;
    int count;
};

TEST_F(PrinterData, HoldsWholeCustomPapersOnly)
{
    constexpr CountRow rows[] = {
        {55,   true,  0 },
        {56,   true,  1 },
        {120,  true,  2 },
        {2800, true,  50},
        {0,    false, 0 }
    };
    for (const CountRow& row : rows) {
        Store(u"CustomPaperDataSize", REG_DWORD, LittleEndian(row.length));
        Store(u"CustomPaperData", REG_BINARY, Bytes(row.length, 1));
        int count = -1;
        const auto papers = ReadCustomPapers(printer, &count);
        EXPECT_EQ(papers != nullptr, row.block) << row.length;
        EXPECT_EQ(count, row.count) << row.length;
    }
}

struct DefaultBlockRow {
    int country;
    UINT codePage;
    Bytes block;
};

TEST(PrinterDataBlock, WithoutAStoredOneIsMadeOfTheLocale)
{
    const std::vector<DefaultBlockRow> rows = {
        {49, 1252, {0x00, 0x04, 8, 0, 1, 0, 0, 0}},
        {1,  1252, {0x00, 0x04, 8, 0, 0, 0, 0, 0}},
        {81, 932,  {0x00, 0x04, 8, 0, 5, 0, 0, 0}},
        {1,  437,  {0x00, 0x04, 8, 0, 4, 0, 0, 0}},
    };
    for (const DefaultBlockRow& row : rows) {
        platform::FixedFactValues facts;
        facts.country = row.country;
        facts.codePage = row.codePage;
        const Machine machine(facts);
        HANDLE printer = platform::spooler::Open(OfficePrinter, 0);
        EXPECT_EQ(BytesOf(*ReadPrinterDataBlock(printer)), row.block) << row.country;
        platform::spooler::Close(printer);
    }
}

TEST_F(PrinterData, InfoIsOneBlock)
{
    const auto printerInfo = GetPrinterInfo(printer, 2);
    ASSERT_NE(printerInfo, nullptr);
    EXPECT_EQ(std::u16string(InfoIn<PRINTER_INFO_2W>(printerInfo).pPrinterName), OfficePrinter);
    const auto driverInfo = GetDriverInfo(printer, 3);
    ASSERT_NE(driverInfo, nullptr);
    EXPECT_EQ(std::u16string(InfoIn<DRIVER_INFO_3W>(driverInfo).pName), OfficeDriver);
}

TEST_F(PrinterData, InfoThatCannotBeHadIsNull)
{
    constexpr FaultRow rows[] = {
        {"GetPrinterW", 1},
        {"GetPrinterW", 2},
        {"GlobalAlloc", 1}
    };
    for (const FaultRow& row : rows) {
        platform::CurrentEnvironment().faults.Clear();
        Machine::Fail(row.function, row.call);
        EXPECT_EQ(GetPrinterInfo(printer, 2), nullptr) << row.function << row.call;
    }
    EXPECT_EQ(GetPrinterInfo(printer, 77), nullptr);
    EXPECT_EQ(GetDriverInfo(nullptr, 3), nullptr);
}

}  // namespace
