#include "platform/services/sheet_service.h"

#include "platform/user/windows.h"
#include "tests/platform/quiet_desktop.h"

namespace {

using namespace platform;
using testing::ElementsAre;
using user::Outcome;
using user::SheetButton;

constexpr int OptionTree = 99, ShowButton = 100;

LONG OnCallback(CPSUICBPARAM* params)
{
    reinterpret_cast<std::vector<WORD>*>(params->UserData)->push_back(params->Reason);
    return CPSUICB_ACTION_NONE;
}

// A device sheet with one option, as a module describes it, and what the service asked of it.
class SheetService : public testing::Test {
  protected:
    SheetService()
    {
        param.cbSize = sizeof param;
        param.Style = PUSHBUTTON_TYPE_HTCLRADJ;
        param.pData = reinterpret_cast<WCHAR*>(&adjustment);
        type.cbSize = sizeof type;
        type.Type = TVOT_PUSHBUTTON;
        type.Count = 1;
        type.pOptParam = &param;
        item.cbSize = sizeof item;
        item.Flags = OPTIF_CALLBACK;
        item.pName = const_cast<WCHAR*>(ResourceName(64792));
        item.pOptType = &type;
        options.cbSize = sizeof options;
        options.UserData = reinterpret_cast<ULONG_PTR>(&callbacks);
        options.pfnCallBack = OnCallback;
        options.pOptItem = &item;
        options.cOptItem = 1;
        options.pOptItemName = const_cast<WCHAR*>(u"A driver");
    }

    LONG Run(std::function<void(HWND)> act)
    {
        desktop->run = std::move(act);
        return services::RunCommonSheet(nullptr, SheetFunction, reinterpret_cast<LPARAM>(this), &result);
    }
    static LONG SheetFunction(PROPSHEETUI_INFO* info, LPARAM lParam)
    {
        SheetService& self = *reinterpret_cast<SheetService*>(info->lParamInit);
        self.calls.push_back(info->Reason);
        if (info->Reason == PROPSHEETUI_REASON_INIT) {
            EXPECT_EQ(lParam, info->lParamInit);
            self.sheet = info->hComPropSheet;
            EXPECT_EQ(self.CallIn(77, 0), 0) << "an unknown function";
            self.added = self.CallIn(CPSFUNC_ADD_PCOMPROPSHEETUIW, reinterpret_cast<LPARAM>(&self.options));
            info->UserData = 42;
        } else if (info->Reason == PROPSHEETUI_REASON_GET_INFO_HEADER) {
            auto& header = *reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(lParam);
            header.Flags = PSUIHDRF_PROPTITLE;
            header.pTitle = const_cast<WCHAR*>(u"Printer");
        } else if (info->Reason == PROPSHEETUI_REASON_SET_RESULT) {
            self.endResult = reinterpret_cast<const SETRESULT_INFO*>(lParam)->Result;
            info->Result = 7;
        }
        EXPECT_EQ(info->UserData, 42U);
        return 1;
    }
    LONG_PTR CallIn(UINT function, LPARAM parameter) const { return pfnComPropSheet(sheet, function, parameter, 0); }

    COLORADJUSTMENT adjustment{24, 0, 0, 10000, 10000, 25000, 0, 10000, 0, 0, 0, 0};
    OPTPARAM param{};
    OPTTYPE type{};
    OPTITEM item{};
    COMPROPSHEETUI options{};

    testing_support::QuietDesktopPlugged desktop;
    HANDLE sheet = nullptr;
    std::vector<UINT> calls;
    std::vector<WORD> callbacks;  // reasons
    LONG_PTR added = -1;
    std::optional<LPARAM> endResult;
    DWORD result = 99;
};

TEST_F(SheetService, CallsInOrderAndTakesTheResultReportedAtTheEnd)
{
    for (const auto button : {SheetButton::Ok, SheetButton::Cancel}) {
        const LONG outcome = button == SheetButton::Ok ? CPSUI_OK : CPSUI_CANCEL;
        calls.clear();
        EXPECT_GT(Run([&](HWND top) {
                      EXPECT_EQ(user::Find(top)->text, u"Printer Properties");
                      EXPECT_GT(CallIn(CPSFUNC_SET_RESULT, 0), 0) << "which the end overrules";
                      user::PressButton(top, button);
                  }),
                  0);
        EXPECT_THAT(calls, ElementsAre(PROPSHEETUI_REASON_INIT, PROPSHEETUI_REASON_GET_INFO_HEADER,
                                       PROPSHEETUI_REASON_SET_RESULT, PROPSHEETUI_REASON_DESTROY));
        EXPECT_EQ(endResult, outcome);
        EXPECT_EQ(result, 7U);
        EXPECT_EQ(services::TakeSheetOutcome(), outcome);
        EXPECT_EQ(services::TakeSheetOutcome(), std::nullopt);
        EXPECT_EQ(CallIn(CPSFUNC_SET_RESULT, 0), 0) << "a sheet that has ended";
    }
}

TEST_F(SheetService, RefusesOptionsAndPagesThatAreNotWhole)
{
    DLGPAGE page{sizeof page, 0, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return 0; }, nullptr, 0, 4711, 0};
    options.pDlgPage = &page;
    options.cDlgPage = 1;
    Run({});
    EXPECT_EQ(added, 0);
    options.cDlgPage = 0;
    type.Type = TVOT_PUSHBUTTON + 1;
    Run({});
    EXPECT_EQ(added, 0);
}

TEST_F(SheetService, ShowsTheOptionsAsATreeAndServesTheSelectedOne)
{
    Run([&](HWND top) {
        const HWND page = user::DialogOf(top), tree = user::Control(page, OptionTree);
        const auto& state = *user::Find(tree)->As<user::TreeState>();
        const auto button = [&] { return user::Find(user::Control(page, ShowButton))->enabled; };
        ASSERT_EQ(state.rows.size(), 2u);
        EXPECT_EQ(state.rows[0].text, u"A driver");
        EXPECT_EQ(state.rows[1].text, u"Halftone Color Adjustment");
        EXPECT_EQ(state.rows[1].level, 1);
        EXPECT_EQ(state.selection, 1);
        EXPECT_TRUE(button());
        EXPECT_EQ(user::SelectRow(tree, 2), Outcome::NoRow);
        EXPECT_EQ(user::SelectRow(tree, 0), Outcome::Done);
        EXPECT_FALSE(button());
        user::Press(top, user::Key::Up);
        EXPECT_EQ(state.selection, 0);
        for (const auto key : {user::Key::Down, user::Key::Down, user::Key::Tab, user::Key::Space})
            user::Press(top, key);
        EXPECT_EQ(state.selection, 1);
        EXPECT_THAT(callbacks, ElementsAre(CPSUICB_REASON_PUSHBUTTON));
        user::PressButton(top, SheetButton::Ok);
    });
    EXPECT_THAT(callbacks, ElementsAre(CPSUICB_REASON_PUSHBUTTON, CPSUICB_REASON_APPLYNOW));
    ASSERT_EQ(desktop->boxes.size(), 1U);
    EXPECT_EQ(desktop->boxes[0].caption, u"Halftone Color Adjustment");
    EXPECT_NE(desktop->boxes[0].text.find(u"Blue gamma 2.5000"), std::u16string::npos);
}

}  // namespace
