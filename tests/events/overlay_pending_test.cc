#include "events/overlay_pending.h"

#include "tests/support/printer_fixture.h"

namespace {

using namespace testing_support;
using platform::Bytes;

constexpr std::size_t Row = 1060, Flag = 1048;

// A header and rows of random-looking bytes with those flags, cut or lengthened to size.
Bytes List(const std::vector<std::uint8_t>& flags, std::size_t size)
{
    Bytes bytes(4 + flags.size() * Row);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + 1);
    for (std::size_t i = 0; i < flags.size(); ++i)
        for (std::size_t byte = 0; byte < 4; ++byte) bytes[4 + i * Row + Flag + byte] = byte == 1 ? flags[i] : 0;
    bytes.resize(size);
    return bytes;
}

using OverlayPending = PrinterTest;

TEST_F(OverlayPending, ClearsEveryFlagAndNothingElse)
{
    const struct {
        std::vector<std::uint8_t> before, after;
        std::size_t bytes;
    } Rows[] = {
        {{0, 1, 0}, {0, 0, 0}, 3184       },
        {{1, 1, 9}, {0, 0, 0}, 3184       },
        {{1},       {0},       1064       },
        {{0, 1},    {0, 0},    1064 + 1052}, // ends behind the flag of its last row
        {{1, 1},    {0, 1},    1064 + 1051}, // ends within the flag
        {{1, 1},    {0, 1},    1064 + 1   },
        {{0, 0},    {0, 0},    2124       },
        {{},        {},        4          },
        {{},        {},        3          },
    };
    for (const auto& row : Rows) {
        Store(u"OverlayData", List(row.before, row.bytes));
        EXPECT_EQ(ResetOverlayPending(), 1);
        EXPECT_EQ(Stored(u"OverlayData"), List(row.after, row.bytes)) << row.bytes;
        EXPECT_EQ(Stored(u"OverlayDataSize"), DwordBytes(static_cast<DWORD>(row.bytes)));
    }
}

TEST_F(OverlayPending, APrinterThatCannotBeOpenedKeepsItsFlags)
{
    const Bytes pending = List({1}, 1064);
    Store(u"OverlayData", pending);
    for (const std::uint64_t call : {1u, 2u}) {
        Machine::Fail("OpenPrinterW", call);
        SetLastError(0);
        EXPECT_EQ(ResetOverlayPending(), 0);
        EXPECT_EQ(GetLastError(), 87u);
        EXPECT_EQ(Stored(u"OverlayData"), pending);
    }
    platform::CurrentEnvironment().faults.Clear();
    PrinterName[0] = 0;
    EXPECT_EQ(ResetOverlayPending(), 0);
}

}  // namespace
