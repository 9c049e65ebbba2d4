// The helpers that pages share.
#include "pages/page_framework.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/seams/environment.h"
#include "platform/user/window.h"
#include "resources/control_numbers.h"
#include "tests/support/records.h"
#include "tests/support/sheet_driver.h"

namespace {

using testing::ElementsAre;
using testing_support::Fields;
using testing_support::Sheet;
using testing_support::TestMachine;

class FillCombo : public testing::Test {
  protected:
    // The Smoothtone list of the Quality page with other strings; what it reads, or other.
    WORD Fill(int first, int last, OptionKey option, WORD other = 0)
    {
        sheet.Page(u"Quality");
        sheet.Try([&](HWND page) {
            FillComboFromStrings(page, IDC_SMOOTHTONE, first, last, option, &other);
            return platform::user::Outcome::Done;
        });
        return other;
    }
    Sheet sheet{Fields("dmTonerDensity=5")};
};

TEST_F(FillCombo, ReplacesTheRowsAndReadsTheOptionWithoutSelecting)
{
    EXPECT_EQ(Fill(IDS_MEMORY_FIRST, IDS_MEMORY_LAST, TonerDensityOption), 5);
    EXPECT_THAT(sheet.Items(IDC_SMOOTHTONE), ElementsAre(u"16", u"144"));
    EXPECT_THAT(sheet.ItemData(IDC_SMOOTHTONE), ElementsAre(0, 1));
    EXPECT_EQ(sheet.Selection(IDC_SMOOTHTONE), -1);
}

TEST_F(FillCombo, AnUnknownGroupLeavesTheBufferAsItWas)
{
    EXPECT_EQ(Fill(IDS_DUPLEX_FIRST, IDS_DUPLEX_LONG_EDGE, {1305, 1302}, 4711), 4711);
    EXPECT_THAT(sheet.Items(IDC_SMOOTHTONE), ElementsAre(u"Off", u"Short Edge Binding", u"Long Edge Binding"));
}

TEST(LoadResString, ATextHoldsUntilTheNextOnItsSlot)
{
    const TestMachine machine;
    const std::u16string_view first = LoadResString(IDS_UNIT_MM, 0);
    const std::u16string_view other = LoadResString(IDS_UNIT_INCH, 1);
    EXPECT_EQ(first, u"mm");
    EXPECT_EQ(other, u"inch");
    const WCHAR* second = LoadResString(IDS_UNIT_INCH, 0);
    EXPECT_EQ(second, first.data());
    EXPECT_EQ(first, u"in");
    EXPECT_EQ(std::u16string_view(LoadResString(3, 0)), u"") << "a string that there is not";
}

}  // namespace
