#include "spooler/printer_data.h"

#include "platform/registry.h"
#include "tests/support/printer_fixture.h"

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
    for (const auto& [slot, name] :
         {std::pair(0, u"PrinterData"), std::pair(1, u"CustomPaperData"), std::pair(3, u"OverlayData")}) {
        const Bytes bytes = {1, 2, static_cast<std::uint8_t>(slot)};
        EXPECT_TRUE(WritePrinterBlob(printer, bytes.data(), 3, slot));
        const platform::StoredValue size{REG_DWORD, DwordBytes(3)}, data{REG_BINARY, bytes};
        EXPECT_EQ(machine.store->Value(OfficePrinter, name + std::u16string(u"Size")), size);
        EXPECT_EQ(machine.store->Value(OfficePrinter, name), data);
        EXPECT_EQ(Blob(slot), bytes);
    }
    for (int slot : {-1, 4})
        EXPECT_FALSE(WritePrinterBlob(printer, "x", 1, slot) || ReadPrinterBlob(printer, nullptr, slot));
}

TEST_F(PrinterData, GoesByTheStoredLength)
{
    EXPECT_EQ(ReadOverlayBlob(printer, nullptr), nullptr);
    machine.store->SetValue(OfficePrinter, u"OverlayDataSize",
                            {
                                REG_DWORD, {3, 0, 0, 0}
    });
    EXPECT_EQ(ReadOverlayBlob(printer, nullptr), nullptr);
    // size, bytes, what is read, empty: null
    const std::tuple<Bytes, Bytes, Bytes> rows[] = {
        {{3, 0, 0, 0},             {7, 8, 9}, {7, 8, 9}      },
        {{0, 0, 0, 0},             {7, 8, 9}, {}             },
        {{2, 0, 0, 0},             {7, 8, 9}, {}             }, // no room for the bytes
        {{5, 0, 0, 0},             {7, 8, 9}, {7, 8, 9, 0, 0}}, // a length from a write that failed in its middle
        {{3},                      {7, 8, 9}, {7, 8, 9}      },
        {{3, 0, 0, 0, 0},          {7, 8, 9}, {}             }, // no 32-bit number
        {{0xFF, 0xFF, 0xFF, 0xFF}, {7},       {}             }, // more than any process has
    };
    for (const auto& [size, bytes, read] : rows) {
        machine.store->SetValue(OfficePrinter, u"OverlayDataSize", {REG_DWORD, size});
        machine.store->SetValue(OfficePrinter, u"OverlayData", {REG_BINARY, bytes});
        EXPECT_EQ(Blob(OverlaySlot), read) << testing::PrintToString(size);
    }
}

TEST_F(PrinterData, OfAFailedWriteHasTheNewLengthBesideTheOldBytes)
{
    Store(u"OverlayData", {'a', 'b', 'c'});
    for (const auto& [call, read] : {std::pair(1u, Bytes{'a', 'b', 'c'}), std::pair(2u, Bytes{'a', 'b', 'c', 0, 0})}) {
        Machine::Fail("SetPrinterDataW", call);
        EXPECT_FALSE(WritePrinterBlob(printer, "defgh", 5, OverlaySlot));
        EXPECT_EQ(Blob(OverlaySlot), read);
    }
}

TEST_F(PrinterData, HoldsWholeCustomPapersOnly)
{
    constexpr std::pair<std::size_t, int> rows[] = {
        {0,    0 },
        {55,   0 },
        {56,   1 },
        {120,  2 },
        {2800, 50},
    };
    for (const auto& [length, expected] : rows) {
        Store(u"CustomPaperData", Bytes(length, 1));
        int count = -1;
        EXPECT_EQ(ReadCustomPapers(printer, &count) != nullptr, length > 0) << length;
        EXPECT_EQ(count, expected) << length;
    }
}

TEST_F(PrinterData, WithoutAStoredBlockIsMadeOfTheLocale)
{
    // country, code page, flags
    constexpr std::tuple<int, UINT, std::uint8_t> rows[] = {
        {49, 1252, 1},
        {1,  1252, 0},
        {81, 932,  5},
        {1,  437,  4},
    };
    for (const auto& [country, codePage, flags] : rows) {
        platform::FixedFactValues facts = Machine::InCountry(country);
        facts.codePage = codePage;
        Machine::UseFacts(facts);
        EXPECT_EQ(BytesOf(*ReadPrinterDataBlock(printer)), (Bytes{0, 4, 8, 0, flags, 0, 0, 0})) << country;
    }
}

}  // namespace
