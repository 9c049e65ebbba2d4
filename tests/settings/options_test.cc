#include "settings/options.h"

#include <array>

#include "tests/support/machine.h"
#include "tests/support/records.h"

namespace {

using namespace testing_support;

// The record that options reach, for as long as the object lives.
class Options : public testing::Test {
  protected:
    Options() { CurrentSettings = &record; }
    ~Options() override { CurrentSettings = nullptr; }
    DriverDevMode record = BusyRecord();
};

using Buffer = std::vector<std::uint8_t>;

Buffer Read(int group, int key, std::size_t bytes)
{
    Buffer buffer(bytes, 0xEE);
    EXPECT_EQ(GetOption(group, key, buffer.data()), 1);
    return buffer;
}

TEST_F(Options, AreReadAs16BitsAndWrittenInTheFieldsWidth)
{
    const Buffer byte = {0x81, 0, 0xEE}, word = {0x81, 0x81, 0xEE};
    // What is read is from a record with 0x81 in the field's bytes; 0xEE is untouched.
    const std::tuple<int, int, const char*, Buffer> rows[] = {
        {1031, 1022, "dmTonerSave",       byte},
        {1031, 1026, "dmSmoothtone",      byte},
        {1031, 1030, "dmAllRaster",       byte},
        {1031, 1032, "dmGraphicsMode",    byte},
        {1031, 1035, "dmTextMode",        byte},
        {1031, 1062, "dmTonerDensity",    word},
        {1031, 2073, "dmPrinterTrueType", byte},
        {1031, 2109, "dmFixedResolution", word},
        {1033, 1155, "dmTotalMemory",     word},
        {3013, 1067, "dmPreviewMode",     word},
        {3013, 1089, "dmOrientation",     word},
        {3013, 1093, "dmDefaultSource",   word},
        {3013, 1095, "dmMediaIndex",      word},
        {3013, 1097, "dmZoom",            word},
        {3013, 1100, "dmCopies",          word},
        {3013, 1103, "dmCollateMode",     word},
        {3013, 1213, "dmProofPrint",      word},
        {3013, 9505, "dmImageShiftOn",    word},
        {3013, 9507, "dmImageRotated",    word},
    };
    for (const auto& [group, key, name, read] : rows) {
        record = BusyRecord();
        const RecordField& field = FieldOf(name);
        RecordImage expected = BytesOf(record);
        std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(field.offset), field.width, 0x81);
        const std::uint8_t in[] = {0x81, 0x81};
        EXPECT_EQ(SetOption(group, key, in), 1);
        EXPECT_EQ(BytesOf(record), expected) << name;
        EXPECT_EQ(Read(group, key, 3), read) << name;
    }
}

TEST_F(Options, OfAnotherGroupAreLeftAlone)
{
    const Buffer untouched(16, 0xEE);
    const RecordImage before = BytesOf(record);
    constexpr std::pair<int, int> rows[] = {
        {1033, 1022},
        {3013, 1155},
        {1031, 1014},
        {1032, 1024},
        {1031, 9999},
    };
    for (const auto& [group, key] : rows) {
        EXPECT_EQ(SetOption(group, key, untouched.data()), 1);
        EXPECT_EQ(Read(group, key, untouched.size()), untouched) << group << ' ' << key;
    }
    EXPECT_EQ(BytesOf(record), before);
}

TEST_F(Options, ResolutionTellsTheTwoModesOf600Apart)
{
    for (const SHORT choice : {600, 2, 1200}) {
        const SHORT resolution = choice == 2 ? 600 : choice;
        SetOption(ResolutionOption, choice);
        EXPECT_EQ(record.dmResolutionChoice, choice);
        EXPECT_EQ(record.dmResolution, resolution);
        EXPECT_EQ(record.dmPrintQuality, resolution);
        EXPECT_EQ(GetOption<SHORT>(ResolutionOption), choice);
    }
    record.dmPrintQuality = 300;  // where that is not 600, it decides
    record.dmResolutionChoice = 2;
    EXPECT_EQ(GetOption<SHORT>(ResolutionOption), 300);
}

// Writes 0x01, 0x02, ... and expects them at the record's offsets that each byte of the buffer has; 0 is a spare one.
TEST_F(Options, StructuredOnesStandFieldByFieldInTheirBuffer)
{
    using Offsets = std::vector<std::size_t>;
    const std::tuple<int, int, Offsets> rows[] = {
        {1032, 1014, {276, 0, 278, 279, 280, 281, 282, 0, 284, 0, 286, 287, 288, 289}},
        {1032, 1017, {692, 693, 694, 695}                                            },
        {3013, 1017, {692, 693, 694, 695}                                            },
        {3013, 1087, {262, 0, 268, 269}                                              },
    };
    for (const auto& [group, key, offsets] : rows) {
        record = BusyRecord();
        RecordImage expected = BytesOf(record);
        Buffer in(offsets.size()), out(offsets.size(), 0xEE);
        for (std::size_t k = 0; k < in.size(); ++k) {
            in[k] = static_cast<std::uint8_t>(k + 1);
            if (offsets[k] != 0) expected[offsets[k]] = out[k] = in[k];
        }
        SetOption(group, key, in.data());
        EXPECT_EQ(BytesOf(record), expected) << group << ' ' << key;
        EXPECT_EQ(Read(group, key, in.size()), out) << group << ' ' << key;
    }
}

TEST_F(Options, DuplexIsReadSignExtendedAndWrittenFromItsLowHalf)
{
    SetOption(DuplexOption, DuplexPayload{0x0001FFFE, 3, 9, 0x00010001});
    EXPECT_EQ(record.dmDuplexOn, -2);
    EXPECT_EQ(record.dmDuplexBinding, 3);
    EXPECT_EQ(record.dmBookletPaper, 9);
    EXPECT_EQ(GetOption<DuplexPayload>(DuplexOption).on, -2);
    EXPECT_EQ(GetOption<DuplexPayload>(DuplexOption).guidePaper, 0x00010001u);
}

// From a record with length 254 and width 254.
TEST_F(Options, PaperIsReadWithTheSizeOfABuiltInCode)
{
    constexpr std::tuple<SHORT, PaperPayload, int> rows[] = {
        {9,   {9, 3507, 2480},   1  },
        {1,   {1, 3300, 2550},   49 },
        {223, {223, 2362, 1748}, 1  },
        {256, {256, 254, 254},   1  },
        {310, {310, 254, 254},   1  },
        {-3,  {1, 3300, 2550},   599},
        {0,   {9, 3507, 2480},   49 },
        {100, {9, 3507, 2480},   81 },
    };
    for (const auto& [code, expected, country] : rows) {
        const Machine machine(Machine::InCountry(country));
        record.dmPaperSize = code;
        record.dmPaperLength = record.dmPaperWidth = 254;
        const auto read = GetOption<PaperPayload>(PaperOption);
        EXPECT_EQ(BytesOf(read), BytesOf(expected)) << code;
        EXPECT_EQ(BytesOf(PaperPayload{record.dmPaperSize, record.dmPaperLength, record.dmPaperWidth}), BytesOf(read));
    }
}

TEST_F(Options, PaperIsWrittenToThePrivateSizeToo)
{
    SetOption(PaperOption, PaperPayload{300, 900, 800});
    const DriverDevMode& r = record;
    EXPECT_EQ((std::array{r.dmPaperSize, r.dmPaperLength, r.dmPaperWidth, r.dmPaperLengthPriv, r.dmPaperWidthPriv}),
              (std::array<SHORT, 5>{300, 900, 800, 900, 800}));
    EXPECT_EQ(PaperSizeDots(9), 3507u << 16 | 2480u);
}

TEST_F(Options, Tray2CanBeSetAndNotCleared)
{
    record.dmDeviceFlags = 0x7F;
    SetOption(Tray2Option, DWORD{0xFFFFFFFF});
    EXPECT_EQ(record.dmDeviceFlags, 0xFFu);
    EXPECT_EQ(GetOption<DWORD>(Tray2Option), 0x80u);
    SetOption(Tray2Option, DWORD{0});
    EXPECT_EQ(record.dmDeviceFlags, 0xFFu);
}

}  // namespace
