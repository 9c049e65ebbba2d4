// Strings of the module by number.
#include <gtest/gtest.h>

#include "platform/kernel/modules.h"
#include "settings/model_tables.h"
#include "tests/support/sheet_driver.h"

namespace {

TEST(StringTable, NamesEveryRowOfTheModel)
{
    const testing_support::TestMachine machine;
    const auto named = [&](DWORD number) { return !platform::modules::String(machine.Module(), number).empty(); };
    for (const PaperEntry& paper : PaperTable) EXPECT_TRUE(named(paper.nameString)) << paper.code;
    for (const BinEntry& bin : BinTable) EXPECT_TRUE(named(bin.nameString)) << bin.code;
    for (const MediaEntry& media : MediaTable) EXPECT_TRUE(named(media.nameString)) << media.index;
    EXPECT_EQ(platform::modules::String(machine.Module(), 707), u"Invalid DEVMODE structure.");
}

}  // namespace
