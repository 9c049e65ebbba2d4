// Strings of the module by number.
#include <gtest/gtest.h>

#include "platform/kernel/modules.h"
#include "platform/kernel/unicode.h"
#include "settings/model_tables.h"
#include "tests/support/sheet_driver.h"

namespace {

// Texts that no page or capability shows in another test.
TEST(StringTable, HoldsTheTexts)
{
    const testing_support::TestMachine machine;
    for (const auto& [number, text] : {
             std::pair{707u,  u"Invalid DEVMODE structure."    },
             {1349u, u"Double Postcard (148 x 200 mm)"},
             {4215u, u"Dark"                          }
    })
        EXPECT_EQ(platform::ToUtf8(platform::modules::String(machine.Module(), number)), platform::ToUtf8(text));
}

TEST(StringTable, NamesEveryRowOfTheModel)
{
    const testing_support::TestMachine machine;
    const auto named = [&](DWORD number) { return !platform::modules::String(machine.Module(), number).empty(); };
    for (const PaperEntry& paper : PaperTable) EXPECT_TRUE(named(paper.nameString)) << paper.code;
    for (const BinEntry& bin : BinTable) EXPECT_TRUE(named(bin.nameString)) << bin.code;
    for (const MediaEntry& media : MediaTable) EXPECT_TRUE(named(media.nameString)) << media.index;
}

}  // namespace
