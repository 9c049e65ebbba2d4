// N-up Style: the four orders, OK and Cancel.
#include <gtest/gtest.h>

#include "platform/services.h"
#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;

struct OrderRow {
    int radio;
    const char *fields, *taken;  // from the first order
};
constexpr OrderRow Orders[] = {
    {IDC_HORIZ_ASCENDING,  "dmNupVertical=0 dmNupDescending=0", "told"                                  },
    {IDC_HORIZ_DESCENDING, "dmNupVertical=0 dmNupDescending=1", "dmNupDescending=1 told"                },
    {IDC_VERT_ASCENDING,   "dmNupVertical=1 dmNupDescending=0", "dmNupVertical=1 told"                  },
    {IDC_VERT_DESCENDING,  "dmNupVertical=1 dmNupDescending=1", "dmNupVertical=1 dmNupDescending=1 told"},
};

SetupSheet NineUp(const OrderRow& order)
{
    return SetupSheet(Fields(std::string("dmNupOn=1 dmNupBorder=1 dmNupCount=9 ") + order.fields));
}

TEST(NupStyle, ShowsTheOrderAndKeepsIt)
{
    for (const OrderRow& order : Orders) {
        SetupSheet sheet = NineUp(order);
        const auto look = [&](SetupSheet& self) {
            self.Click(IDC_NUP_STYLE);
            for (const OrderRow& other : Orders)
                EXPECT_EQ(self.Checked(other.radio), other.radio == order.radio) << order.radio;
            self.Click(IDOK);
        };
        EXPECT_EQ(sheet.Difference(look), "told") << "the sheet is told all the same";
    }
}

TEST(NupStyle, OkTakesTheOrderThatWasClickedLast)
{
    for (const OrderRow& order : Orders) {
        SetupSheet sheet = NineUp(Orders[0]);
        const auto choose = [&](SetupSheet& self) {
            self.Click(IDC_NUP_STYLE).Click(IDC_VERT_DESCENDING).Click(order.radio);
            EXPECT_EQ(self.Settings().dmNupVertical + self.Settings().dmNupDescending, 0) << "nothing is written yet";
            self.Click(IDOK);
        };
        EXPECT_EQ(sheet.Difference(choose), order.taken);
    }
}

TEST(NupStyle, CancelKeepsTheOrder)
{
    SetupSheet sheet = NineUp(Orders[0]);
    const auto cancel = [](SetupSheet& self) { self.Click(IDC_NUP_STYLE).Click(IDC_VERT_DESCENDING).Click(IDCANCEL); };
    EXPECT_EQ(sheet.Difference(cancel), "told") << "the page does not look at the result";
    sheet.Click(IDC_NUP_STYLE);
    EXPECT_TRUE(sheet.Checked(IDC_HORIZ_ASCENDING)) << "the click is forgotten";
}

TEST(NupStyle, HelpIsOfTheDialogAsAWhole)
{
    SetupSheet sheet = NineUp(Orders[0]);
    sheet.Click(IDC_NUP_STYLE).Click(IDC_HELP);
    ASSERT_EQ(sheet.HelpSeenSoFar().size(), 1u);
    EXPECT_EQ(sheet.HelpSeenSoFar()[0].command, HELP_CONTEXT);
    EXPECT_EQ(sheet.HelpSeenSoFar()[0].context, 1141u);
    HELPINFO info{};
    info.cbSize = sizeof info;
    EXPECT_EQ(sheet.Send(WM_HELP, 0, reinterpret_cast<LPARAM>(&info)), FALSE);
    EXPECT_EQ(sheet.HelpSeenSoFar().size(), 1u);
    EXPECT_EQ(sheet.Notice(4711, 0), TRUE) << "answers every command";
}

}  // namespace
