#include "spooler/device_capabilities.h"

#include <gmock/gmock.h>

#include "spooler/paper_lists.h"
#include "tests/support/custom_papers.h"
#include "tests/support/printer_fixture.h"
#include "tests/support/records.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

class Capability : public PrinterTest {
  protected:
    LONG Ask(WORD code, void* output = nullptr, const DriverDevMode* record = nullptr)
    {
        return DrvDeviceCapabilities(printer, OfficePrinter, code, output, record ? PublicPart(record) : nullptr);
    }
    template <class T>
    std::vector<T> List(WORD code, std::size_t perRow = 1)
    {
        std::vector<T> list(static_cast<std::size_t>(Ask(code)) * perRow, T{77});
        EXPECT_EQ(Ask(code, list.data()), static_cast<LONG>(list.size() / perRow));
        return list;
    }
    std::vector<std::u16string> Names(WORD code, std::size_t slot)
    {
        const auto characters = List<WCHAR>(code, slot);
        std::vector<std::u16string> names;
        for (std::size_t at = 0; at < characters.size(); at += slot) names.emplace_back(&characters[at]);
        return names;
    }
};

TEST_F(Capability, AnswersNumbersOfTheMergedRecord)
{
    constexpr std::pair<int, LONG> Rows[] = {
        {DC_FIELDS,      20227            },
        {DC_MINEXTENT,   1270 << 16 | 762 },
        {DC_MAXEXTENT,   3556 << 16 | 2159},
        {DC_DUPLEX,      0                },
        {DC_SIZE,        220              },
        {DC_EXTRA,       1628             },
        {DC_VERSION,     1025             },
        {DC_DRIVER,      296              },
        {DC_TRUETYPE,    6                },
        {DC_ORIENTATION, 90               },
        {DC_COPIES,      999              },
        {DC_STAPLE,      0                },
        {DC_COLORDEVICE, 0                },
        {0,              -1               },
        {19,             -1               },
        {28,             -1               },
        {33,             -1               },
        {0xFFFF,         -1               },
    };
    for (const auto& [code, answer] : Rows) EXPECT_EQ(Ask(static_cast<WORD>(code)), answer) << "capability " << code;
    DriverDevMode record = BusyRecord();
    record.dmFields = DM_SCALE;
    EXPECT_EQ(Ask(DC_FIELDS, nullptr, &record), 20227 | 0x10) << "with the caller's record";
}

TEST_F(Capability, ListsFixedOutputs)
{
    EXPECT_THAT(List<WORD>(DC_BINS), ElementsAre(7, 1, 2, 4));
    EXPECT_THAT(Names(DC_BINNAMES, 24), ElementsAre(u"Auto", u"Tray1", u"Tray2", u"Manual Feed"));
    EXPECT_THAT(List<LONG>(DC_ENUMRESOLUTIONS, 2), ElementsAre(600, 600, 1200, 1200));
    WORD dependencies = 9;
    EXPECT_EQ(Ask(DC_FILEDEPENDENCIES, &dependencies), 0);
    EXPECT_EQ(dependencies, 0);
}

TEST_F(Capability, ListsThePapersInOneOrder)
{
    StorePapers(machine, {Entry(257, u"Card", 0, 1000, 2000), Entry(258, u"A Name", 1, 800, 1400, 8, 0),
                          Entry(300, u"Odd", 1, 800, 1100, 1, 0)});
    const auto codes = List<WORD>(DC_PAPERS);
    const auto sizes = List<LONG>(DC_PAPERSIZE, 2);
    const auto names = Names(DC_PAPERNAMES, 64);
    ASSERT_EQ(codes.size(), 30u);
    EXPECT_THAT(std::vector(codes.begin(), codes.begin() + 4), ElementsAre(1, 9, 5, 7));
    EXPECT_THAT(std::vector(codes.begin() + 25, codes.end()), ElementsAre(223, 257, 258, 300, 256));
    EXPECT_THAT(std::vector(sizes.begin(), sizes.begin() + 4), ElementsAre(2159, 2794, 2099, 2969));
    EXPECT_THAT(std::vector(sizes.begin() + 52, sizes.end()),
                ElementsAre(1000, 2000, 2150, 3550, 2040, 2790, 800, 800));
    EXPECT_EQ(names[0], u"Letter (8.5 x 11 inch)");
    EXPECT_THAT(
        std::vector(names.begin() + 26, names.end()),
        ElementsAre(u"Card (100 x 200 mm)", u"A Name (8.50 x 14.00 inch)", u"Odd (8.06 x 11.00 inch)", u"Custom"));
}

TEST_F(Capability, WritesNoMoreThanTheAnswerPromises)
{
    StorePapers(machine, platform::Bytes(40), 55);
    EXPECT_EQ(Ask(DC_PAPERSIZE), 27);
    EXPECT_EQ(DrvDeviceCapabilities(nullptr, nullptr, DC_PAPERNAMES, nullptr, nullptr), 27);
    constexpr std::pair<int, int> rows[] = {
        {1,     28    },
        {32740, 32767 },
        {32741, -32768},
        {65508, -1    },
        {65509, 0     },
        {65511, 2     },
    };
    for (const auto& [stored, names] : rows) {
        StorePapers(machine, platform::Bytes(56, 1), static_cast<DWORD>(stored) * 56);
        EXPECT_EQ(Ask(DC_PAPERS), stored + 27);
        EXPECT_EQ(Ask(DC_PAPERNAMES), names);
        const std::size_t end = 64 * static_cast<std::size_t>(std::max(names, 0));
        std::vector<WCHAR> slots(end + 64, 77);
        EXPECT_EQ(Ask(DC_PAPERNAMES, slots.data()), names);
        EXPECT_EQ(std::count(slots.begin() + static_cast<std::ptrdiff_t>(end), slots.end(), 77), 64) << stored;
        EXPECT_TRUE(end == 0 || slots[end - 64] != 77) << stored;
    }
}

TEST_F(Capability, ANameWithoutTerminatorEndsWithItsField)
{
    CustomPaperEntry entry = Entry(257, u"", -1, 32767, -32768, 32767, -1);
    std::fill(std::begin(entry.cpName), std::end(entry.cpName), u'x');
    StorePapers(machine, {entry});
    const auto names = Names(DC_PAPERNAMES, 64);
    EXPECT_EQ(names[26].substr(0, 23), std::u16string(21, u'x') + u" (");
    EXPECT_LT(names[26].size(), 64u);
}

TEST(CapabilityByCountry, SpeedAndReadyMediaFollowThePaperOfTheCountry)
{
    for (const bool metric : {false, true}) {
        const Machine machine(Machine::InCountry(metric ? 49 : 1));
        const auto ask = [](WORD code, void* output) {
            return DrvDeviceCapabilities(nullptr, nullptr, code, output, nullptr);
        };
        EXPECT_EQ(ask(DC_PRINTRATEPPM, nullptr), metric ? 20 : 21);
        EXPECT_EQ(ask(DC_MEDIAREADY, nullptr), 3);
        WCHAR media[64] = {};
        EXPECT_EQ(ask(DC_MEDIAREADY, media), 1);
        EXPECT_EQ(std::u16string(media), metric ? u"A4" : u"Letter");
    }
}

}  // namespace
