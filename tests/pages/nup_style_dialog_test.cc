// N-up Style: the four orders, OK and Cancel.
#include <gtest/gtest.h>

#include "platform/services.h"
#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;

constexpr char NineUp[] = "dmNupOn=1 dmNupBorder=1 dmNupCount=9";

TEST(NupStyle, OkTakesTheOrderThatWasClickedLastAndCancelNone)
{
    for (const auto& [radio, taken] : {
             std::pair{IDC_HORIZ_ASCENDING,  "told"                                  },
             {IDC_HORIZ_DESCENDING, "dmNupDescending=1 told"                },
             {IDC_VERT_ASCENDING,   "dmNupVertical=1 told"                  },
             {IDC_VERT_DESCENDING,  "dmNupVertical=1 dmNupDescending=1 told"}
    }) {
        SetupSheet sheet(Fields(NineUp));
        const auto choose = [&, radio = radio](int button) {
            return sheet.Difference(
                [&] { sheet.Click(IDC_NUP_STYLE).Click(IDC_VERT_DESCENDING).Click(radio).Click(button); });
        };
        EXPECT_EQ(choose(IDCANCEL), "told") << "the page does not look at the result";
        EXPECT_TRUE(sheet.Click(IDC_NUP_STYLE).Checked(IDC_HORIZ_ASCENDING)) << "the click is forgotten";
        sheet.Click(IDOK);
        EXPECT_EQ(choose(IDOK), taken);
        EXPECT_TRUE(sheet.Click(IDC_NUP_STYLE).Checked(radio));
    }
}

TEST(NupStyle, HasNoHelpOnItsControlsAndAnswersEveryCommand)
{
    SetupSheet sheet(Fields(NineUp));
    sheet.Click(IDC_NUP_STYLE);
    HELPINFO info{};
    info.cbSize = sizeof info;
    EXPECT_EQ(sheet.Send(WM_HELP, 0, reinterpret_cast<LPARAM>(&info)), FALSE);
    EXPECT_TRUE(sheet.HelpSeenSoFar().empty());
    EXPECT_EQ(sheet.Notice(4711, 0), TRUE);
}

}  // namespace
