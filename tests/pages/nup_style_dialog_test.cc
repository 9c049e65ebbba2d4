// N-up Style: the four orders, OK and Cancel.
#include <gtest/gtest.h>

#include "pages/nup_style_dialog.h"
#include "platform/services.h"
#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;

struct OrderRow {
    int radio;
    BYTE vertical, descending;
};
constexpr OrderRow Orders[] = {
    {IDC_HORIZ_ASCENDING,  0, 0},
    {IDC_HORIZ_DESCENDING, 0, 1},
    {IDC_VERT_ASCENDING,   1, 0},
    {IDC_VERT_DESCENDING,  1, 1},
};

// The dialog over a page that has this order.
class NupStyle : public SetupSheet {
  public:
    explicit NupStyle(const OrderRow& order)
        : SetupSheet([order](DriverDevMode& record) {
              record.dmNupOn = record.dmNupBorder = 1;
              record.dmNupCount = 9;
              record.dmNupVertical = order.vertical;
              record.dmNupDescending = order.descending;
          })
    {
        Click(IDC_NUP_STYLE);
    }

    // "" if the order of the record is this one and all else is as it was.
    bool Has(const OrderRow& order)
    {
        const DriverDevMode record = Settings();
        return record.dmNupVertical == order.vertical && record.dmNupDescending == order.descending &&
               record.dmNupOn == 1 && record.dmNupCount == 9 && record.dmNupBorder == 1;
    }
};

TEST(NupStyle, ShowsTheOrderAndKeepsIt)
{
    for (const OrderRow& order : Orders) {
        NupStyle dialog(order);
        EXPECT_EQ(dialog.Template(), IDD_NUP_STYLE);
        for (const OrderRow& other : Orders) EXPECT_EQ(dialog.Checked(other.radio), other.radio == order.radio);
        dialog.Click(IDOK);
        EXPECT_TRUE(dialog.Has(order)) << order.radio;
        EXPECT_EQ(dialog.Changes(), 1) << "the sheet is told all the same";
    }
}

TEST(NupStyle, OkTakesTheOrderThatWasClicked)
{
    for (const OrderRow& from : Orders) {
        for (const OrderRow& to : Orders) {
            NupStyle dialog(from);
            dialog.Click(to.radio);
            EXPECT_TRUE(dialog.Has(from)) << "nothing is written yet";
            dialog.Click(IDOK);
            EXPECT_TRUE(dialog.Has(to)) << from.radio << " " << to.radio;
        }
    }
}

TEST(NupStyle, CancelKeepsTheOrder)
{
    NupStyle dialog(Orders[0]);
    dialog.Click(IDC_VERT_DESCENDING).Click(IDCANCEL);
    EXPECT_TRUE(dialog.Has(Orders[0]));
    EXPECT_EQ(dialog.Template(), IDD_SETUP);
    EXPECT_EQ(dialog.Changes(), 1) << "the page does not look at the result";
    dialog.Click(IDC_NUP_STYLE);
    EXPECT_TRUE(dialog.Checked(IDC_HORIZ_ASCENDING)) << "the click is forgotten";
}

TEST(NupStyle, HelpIsOfTheDialogAsAWhole)
{
    NupStyle dialog(Orders[0]);
    dialog.Click(IDC_HELP);
    ASSERT_EQ(dialog.HelpSeenSoFar().size(), 1u);
    EXPECT_EQ(dialog.HelpSeenSoFar()[0].command, HELP_CONTEXT);
    EXPECT_EQ(dialog.HelpSeenSoFar()[0].context, 1141u);
    HELPINFO info{};
    info.cbSize = sizeof info;
    EXPECT_EQ(dialog.Send(WM_HELP, 0, reinterpret_cast<LPARAM>(&info)), FALSE);
    EXPECT_EQ(dialog.HelpSeenSoFar().size(), 1u);
}

TEST(NupStyle, AnswersEveryCommandAndNothingElse)
{
    NupStyle dialog(Orders[0]);
    EXPECT_EQ(dialog.Notice(IDC_NUP_STYLE_GROUP, 0), TRUE);
    EXPECT_EQ(dialog.Notice(4711, 0), TRUE);
    for (const UINT message : {WM_PAINT, WM_NOTIFY, WM_DRAWITEM, WM_DESTROY})
        EXPECT_EQ(dialog.Send(message, 0, 0), FALSE) << message;
}

}  // namespace
