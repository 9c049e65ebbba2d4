#include "settings/defaults.h"

#include "settings/user_locale.h"
#include "tests/support/machine.h"
#include "tests/support/records.h"

namespace {

using namespace testing_support;

DriverDevMode DefaultRecord(const WCHAR* device = nullptr)
{
    DriverDevMode record;
    std::memset(static_cast<void*>(&record), 0xEE, sizeof record);
    EXPECT_EQ(BuildDefaultSettings(&record, device, OfficePrinter, 0), 1);
    return record;
}

TEST(Defaults, AreThisImageInTheUnitedStates)
{
    const Machine machine;
    const std::vector<std::pair<int, RecordImage>> patches = {
        {0,    {'Q', 0, 'd', 0}                                                                      },
        {64,   {0x01, 0x04, 0x28, 0x01, 0xDC, 0x00, 0x5C, 0x06, 0x03, 0x4F, 0x00, 0x00}              },
        {76,   {1, 0, 1, 0, 0xFE, 0, 0xFE, 0, 100, 0, 1, 0, 7, 0, 0x58, 0x02, 1, 0, 1, 0, 0, 0, 3, 0}},
        {220,  {0x50, 0x52, 0x49, 0x56}                                                              },
        {252,  {0x88, 0xEB, 0xD3, 0x01, 0, 0, 0, 0, 46, 0}                                           },
        {266,  {100, 0}                                                                              },
        {272,  {0x81, 0x03, 0xDC, 0x05}                                                              },
        {278,  {1, 0}                                                                                },
        {286,  {90, 0, 55, 0}                                                                        },
        {700,  {1, 0, 0, 0}                                                                          },
        {708,  {1, 2, 1, 2, 0x58, 0x02}                                                              },
        {720,  {3, 0, 0x1B, 0x3A, 16, 0}                                                             },
        {732,  {100, 0, 0xFF, 0x7F, 0, 1}                                                            },
        {792,  {2, 0}                                                                                },
        {796,  {'0', 0}                                                                              },
        {1322, {'0', 0}                                                                              },
    };
    RecordImage image(1848);
    for (const auto& [offset, bytes] : patches) std::ranges::copy(bytes, image.begin() + offset);
    EXPECT_EQ(BytesOf(DefaultRecord(u"Qd")), image);
}

TEST(Defaults, TakeThePaperOfTheCountry)
{
    for (const bool a4 : {true, false}) {
        const auto countries = a4 ? std::vector{3, 44, 49, 60, 81, 499, 600} : std::vector{1, 2, 50, 52, 59, 500, 599};
        for (const int country : countries) {
            const Machine machine(Machine::InCountry(country));
            EXPECT_EQ(LocaleUsesA4(), a4) << country;
            EXPECT_EQ(DefaultRecord().dmPaperSize, a4 ? 9 : 1) << country;
        }
    }
}

TEST(Defaults, MissTray2WithoutTheRightToTheKey)
{
    const Machine machine({}, {OfficePrinter, OfficeDriver, false});
    const platform::Bytes installed = {'1', 0, 0, 0};
    machine.store->SetKeyValue(platform::PrinterKeyPath(OfficePrinter), u"tray2", {1, installed});
    EXPECT_EQ(DefaultRecord().dmDeviceFlags, 0u);
}

}  // namespace
