#include "settings/record_copy.h"

#include <array>

#include "tests/support/records.h"

namespace {

using namespace testing_support;

// Room for a record, filled with a byte that shows what was not written.
struct Buffer {
    Buffer(std::size_t count, WORD version, WORD size, WORD extra) : bytes(count, 0xEE)
    {
        get()->dmSpecVersion = version;
        get()->dmDriverVersion = 848;
        get()->dmSize = size;
        get()->dmDriverExtra = extra;
    }
    DEVMODEW* get() { return reinterpret_cast<DEVMODEW*>(bytes.data()); }

    RecordImage bytes;
};

// Both versions, both sizes and the copies.
std::array<int, 5> ShapeOf(const DEVMODEW* r)
{
    return {r->dmSpecVersion, r->dmDriverVersion, r->dmSize, r->dmDriverExtra, r->dmCopies};
}
using Shape = decltype(ShapeOf(nullptr));

// Each byte of the private section is its place in it.
DriverDevMode Numbered()
{
    DriverDevMode record = BusyRecord();
    auto* section = reinterpret_cast<std::uint8_t*>(&record) + 220;
    for (std::size_t k = 0; k < 1628; ++k) section[k] = static_cast<std::uint8_t>(k % 251);
    return record;
}

TEST(RecordSpecVersion, FollowsFromTheSize)
{
    constexpr WORD rows[][3] = {
        {188, 1,  800 },
        {212, 1,  1024},
        {220, 1,  1025},
        {221, 77, 77  },
        {0,   5,  5   },
        {64,  0,  0   }
    };
    for (const auto& [size, own, expected] : rows)
        EXPECT_EQ(RecordSpecVersion(Buffer(220, own, size, 0).get()), expected) << size;
    EXPECT_EQ(RecordSpecVersion(nullptr), 0);
}

TEST(CopyRecordParts, KeepsTheShapeOfTheTarget)
{
    constexpr WORD rows[][4] = {
        {220, 1628, 1848, 1025},
        {220, 0,    220,  1025},
        {212, 112,  324,  1024},
        {188, 112,  300,  800 },
        {188, 0,    188,  800 },
        {220, 3000, 1848, 1025}
    };
    const DriverDevMode source = Numbered();
    for (const auto& [size, extra, copied, version] : rows) {
        Buffer target(std::size_t{size} + extra, 7, size, extra);
        EXPECT_EQ(CopyRecordParts(PublicPart(&source), target.get()), copied);
        EXPECT_EQ(ShapeOf(target.get()), (Shape{version, 848, size, extra, 7}));
        EXPECT_EQ(target.get()->dmDeviceName[0], u'B');
        EXPECT_EQ(extra < 100 ? 99 : target.bytes[size + 99u], 99) << size;
        EXPECT_EQ(extra <= 1628 ? 0xEE : target.bytes[1848], 0xEE);
    }
}

TEST(CopyRecordParts, TakesThePrivatePartFromBehindTheSourcesOwnSize)
{
    Buffer source(188 + 10, 800, 188, 10);
    source.bytes[188] = 0x42;
    DriverDevMode target = Numbered();
    EXPECT_EQ(CopyRecordParts(source.get(), PublicPart(&target)), 198);
    EXPECT_EQ(target.dmPrivSignature & 0xFF, 0x42u);
    EXPECT_EQ(target.dmDriverVersion, 296);
    EXPECT_EQ(target.dmSize, 220);
}

TEST(CopyRecordParts, RefusesARecordWithoutVersion)
{
    DriverDevMode whole = BusyRecord();
    const RecordImage before = BytesOf(whole);
    Buffer unknown(220, 0, 100, 0);
    EXPECT_EQ(CopyRecordParts(unknown.get(), PublicPart(&whole)), -1);
    EXPECT_EQ(CopyRecordParts(PublicPart(&whole), unknown.get()), -1);
    EXPECT_EQ(CopyRecordParts(nullptr, PublicPart(&whole)), -1);
    EXPECT_EQ(BytesOf(whole), before);
}

TEST(CopyRecordOut, TakesTheShapeOfTheInputAsFarAsTheRecordReaches)
{
    const std::tuple<WORD, WORD, Shape> rows[] = {
  // size and extra of the input
        {220, 1628, {1025, 296, 220, 1628, 7}},
        {300, 2000, {1025, 296, 220, 1628, 7}},
        {220, 0,    {1025, 848, 220, 0, 7}   },
        {188, 112,  {800, 848, 188, 112, 7}  },
        {188, 1628, {800, 296, 188, 1628, 7} },
    };
    const DriverDevMode current = Numbered();
    for (const auto& [size, extra, out] : rows) {
        Buffer input(std::size_t{size} + extra, 1025, size, extra);
        Buffer output(static_cast<std::size_t>(out[2] + out[3]), 9, 9, 9);
        EXPECT_TRUE(CopyRecordOut(&current, input.get(), output.get()));
        EXPECT_EQ(ShapeOf(output.get()), out);
    }
}

TEST(CopyRecordOut, TakesNoInputOrTheOutputAsInput)
{
    const DriverDevMode current = Numbered();
    DriverDevMode output{};
    EXPECT_TRUE(CopyRecordOut(&current, nullptr, PublicPart(&output)));
    EXPECT_EQ(BytesOf(output), BytesOf(current));
    Buffer record(220 + 4, 1025, 220, 4), unknown(220, 0, 100, 0);
    EXPECT_TRUE(CopyRecordOut(&current, record.get(), record.get()));
    EXPECT_EQ(record.get()->dmCopies, 7);
    for (std::uint8_t k = 0; k < 4; ++k) EXPECT_EQ(record.bytes[220u + k], k);
    EXPECT_FALSE(CopyRecordOut(&current, nullptr, nullptr));
    EXPECT_FALSE(CopyRecordOut(&current, unknown.get(), record.get()));
}

}  // namespace
