// The texts that pages share.
#include "pages/page_framework.h"

#include <gtest/gtest.h>

#include "resources/control_numbers.h"
#include "tests/support/sheet_driver.h"

namespace {

TEST(LoadResString, ATextHoldsUntilTheNextOnItsSlot)
{
    const testing_support::TestMachine machine;
    const std::u16string_view first = LoadResString(IDS_UNIT_MM, 0);
    const std::u16string_view other = LoadResString(IDS_UNIT_INCH, 1);
    EXPECT_EQ(first, u"mm");
    EXPECT_EQ(other, u"inch");
    EXPECT_EQ(LoadResString(IDS_UNIT_INCH, 0), first.data());
    EXPECT_EQ(first, u"in");
    EXPECT_EQ(std::u16string_view(LoadResString(3, 0)), u"") << "a string that there is not";
}

}  // namespace
