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

TEST_F(PrinterData, IsALengthAndTheBytes)
{
    for (const auto& [slot, data] : {
             std::pair{0, u"PrinterData"    },
             {1, u"CustomPaperData"},
             {3, u"OverlayData"    },
    }) {
        const Bytes bytes = {1, 2, static_cast<std::uint8_t>(slot)};
        EXPECT_TRUE(WritePrinterBlob(printer, bytes.data(), 3, slot));
        const std::u16string size = std::u16string(data) + u"Size";
        EXPECT_EQ(machine.store->Value(OfficePrinter, size), (platform::StoredValue{REG_DWORD, LittleEndian(3)}));
        EXPECT_EQ(machine.store->Value(OfficePrinter, data), (platform::StoredValue{REG_BINARY, bytes}));
        EXPECT_EQ(Blob(slot), bytes);
    }
    for (int slot : {-1, 4})
        EXPECT_FALSE(WritePrinterBlob(printer, "x", 1, slot) || ReadPrinterBlob(printer, nullptr, slot));
}

TEST_F(PrinterData, GoesByTheStoredLength)
{
    EXPECT_EQ(ReadOverlayBlob(printer, nullptr), nullptr);
    Store(u"OverlayDataSize", REG_DWORD, {3, 0, 0, 0});
    EXPECT_EQ(ReadOverlayBlob(printer, nullptr), nullptr);
    const struct {
        Bytes size, data, read;  // empty: null
    } rows[] = {
        {{3, 0, 0, 0},             {7, 8, 9}, {7, 8, 9}      },
        {{0, 0, 0, 0},             {7, 8, 9}, {}             },
        {{2, 0, 0, 0},             {7, 8, 9}, {}             }, // no room for the bytes
        {{5, 0, 0, 0},             {7, 8, 9}, {7, 8, 9, 0, 0}}, // a length from a write that failed in its middle
        {{3},                      {7, 8, 9}, {7, 8, 9}      },
        {{3, 0, 0, 0, 0},          {7, 8, 9}, {}             }, // no 32-bit number
        {{0xFF, 0xFF, 0xFF, 0xFF}, {7},       {}             }, // more than any process has
    };
    for (const auto& row : rows) {
        Store(u"OverlayDataSize", REG_DWORD, row.size);
        Store(u"OverlayData", REG_BINARY, row.data);
        EXPECT_EQ(Blob(OverlaySlot), row.read) << testing::PrintToString(row.size);
    }
}

TEST_F(PrinterData, OfAFailedWriteHasTheNewLengthBesideTheOldBytes)
{
    EXPECT_TRUE(WritePrinterBlob(printer, "abc", 3, OverlaySlot));
    Machine::Fail("SetPrinterDataW");
    EXPECT_FALSE(WritePrinterBlob(printer, "defgh", 5, OverlaySlot));
    EXPECT_EQ(Blob(OverlaySlot), (Bytes{'a', 'b', 'c'}));
    Machine::Fail("SetPrinterDataW", 2);
    EXPECT_FALSE(WritePrinterBlob(printer, "defgh", 5, OverlaySlot));
    EXPECT_EQ(Blob(OverlaySlot), (Bytes{'a', 'b', 'c', 0, 0}));
}

TEST_F(PrinterData, ThatCannotBeReadIsNull)
{
    EXPECT_TRUE(WritePrinterBlob(printer, "abc", 3, OverlaySlot));
    for (const auto& [function, call] : {
             std::pair{"GetPrinterDataW", 1u},
             {"GetPrinterDataW", 2u},
             {"GlobalAlloc",     1u},
    }) {
        Machine::Fail(function, call);
        EXPECT_EQ(Blob(OverlaySlot), Bytes()) << function << call;
    }
    EXPECT_EQ(GetPrinterInfo(printer, 77), nullptr);
    EXPECT_EQ(GetDriverInfo(nullptr, 3), nullptr);
}

TEST_F(PrinterData, HoldsWholeCustomPapersOnly)
{
    for (const auto& [length, expected] : {
             std::pair{55,   0 },
             {56,   1 },
             {120,  2 },
             {2800, 50},
             {0,    0 },
    }) {
        Store(u"CustomPaperDataSize", REG_DWORD, LittleEndian(static_cast<DWORD>(length)));
        Store(u"CustomPaperData", REG_BINARY, Bytes(static_cast<std::size_t>(length), 1));
        int count = -1;
        const auto papers = ReadCustomPapers(printer, &count);
        EXPECT_EQ(papers != nullptr, length > 0) << length;
        EXPECT_EQ(count, expected) << length;
    }
}

TEST_F(PrinterData, WithoutAStoredBlockIsMadeOfTheLocale)
{
    struct Row {
        int country;
        UINT codePage;
        Bytes block;
    };
    for (const Row& row : {
             Row{49, 1252, {0x00, 0x04, 8, 0, 1, 0, 0, 0}},
             {1,  1252, {0x00, 0x04, 8, 0, 0, 0, 0, 0}},
             {81, 932,  {0x00, 0x04, 8, 0, 5, 0, 0, 0}},
             {1,  437,  {0x00, 0x04, 8, 0, 4, 0, 0, 0}},
    }) {
        platform::FixedFactValues facts = Machine::InCountry(row.country);
        facts.codePage = row.codePage;
        platform::CurrentEnvironment().facts = platform::MakeFixedFacts(facts);
        EXPECT_EQ(BytesOf(*ReadPrinterDataBlock(printer)), row.block) << row.country;
    }
}

}  // namespace
