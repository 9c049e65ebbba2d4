#include "platform/services/sheet_service.h"

#include "platform/user/windows.h"
#include "tests/platform/quiet_desktop.h"

namespace {

using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;
using user::Outcome;
using user::SheetButton;

constexpr int OptionTree = 99, ShowButton = 100;

// A device sheet with one option, as a module describes it, and what the service asked of it.
struct Caller {
    std::vector<std::string> calls;
    std::vector<WORD> callbacks;  // reasons
    std::u16string title;         // of the sheet, while it is up
    LONG_PTR added = -1, setResult = -1;
    std::optional<LPARAM> endResult;
    PROPSHEETUI_INFO* info = nullptr;

    COLORADJUSTMENT adjustment{24, 0, 0, 10000, 10000, 25000, 0, 10000, 0, 0, 0, 0};
    OPTPARAM param{};
    OPTTYPE type{};
    OPTITEM item{};
    COMPROPSHEETUI options{};
};
Caller* caller;

LONG OnCallback(CPSUICBPARAM* params)
{
    EXPECT_EQ(params->UserData, reinterpret_cast<ULONG_PTR>(caller));
    caller->callbacks.push_back(params->Reason);
    return CPSUICB_ACTION_NONE;
}

void Describe(Caller& self)
{
    self.param.cbSize = sizeof self.param;
    self.param.Style = PUSHBUTTON_TYPE_HTCLRADJ;
    self.param.pData = reinterpret_cast<WCHAR*>(&self.adjustment);
    self.type.cbSize = sizeof self.type;
    self.type.Type = TVOT_PUSHBUTTON;
    self.type.Count = 1;
    self.type.pOptParam = &self.param;
    self.item.cbSize = sizeof self.item;
    self.item.Flags = OPTIF_CALLBACK;
    self.item.pName = const_cast<WCHAR*>(ResourceName(64792));
    self.item.pOptType = &self.type;
    self.options.cbSize = sizeof self.options;
    self.options.UserData = reinterpret_cast<ULONG_PTR>(&self);
    self.options.pfnCallBack = OnCallback;
    self.options.pOptItem = &self.item;
    self.options.cOptItem = 1;
    self.options.pOptItemName = const_cast<WCHAR*>(u"A driver");
}

LONG_PTR CallIn(UINT function, LPARAM parameter)
{
    return caller->info->pfnComPropSheet(caller->info->hComPropSheet, function, parameter, 0);
}

LONG SheetFunction(PROPSHEETUI_INFO* info, LPARAM lParam)
{
    Caller& self = *reinterpret_cast<Caller*>(info->lParamInit);
    EXPECT_EQ(info->cbSize, sizeof *info);
    self.info = info;
    switch (info->Reason) {
        case PROPSHEETUI_REASON_INIT:
            self.calls.push_back("init");
            EXPECT_EQ(lParam, info->lParamInit);
            EXPECT_EQ(CallIn(77, 0), 0) << "an unknown function";
            self.added = CallIn(CPSFUNC_ADD_PCOMPROPSHEETUIW, reinterpret_cast<LPARAM>(&self.options));
            info->UserData = 42;
            return 1;
        case PROPSHEETUI_REASON_GET_INFO_HEADER: {
            self.calls.push_back("header");
            auto& header = *reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(lParam);
            header.Flags = PSUIHDRF_PROPTITLE;
            header.pTitle = const_cast<WCHAR*>(u"Printer");
            return 1;
        }
        case PROPSHEETUI_REASON_SET_RESULT:
            self.calls.push_back("result");
            self.endResult = reinterpret_cast<const SETRESULT_INFO*>(lParam)->Result;
            info->Result = 7;
            return 1;
        default:
            self.calls.push_back("destroy");
            EXPECT_EQ(info->UserData, 42U);
            return 1;
    }
}

class SheetService : public testing::Test {
  protected:
    SheetService() { Describe(caller_); }
    LONG Run(std::function<void(HWND)> act)
    {
        desktop_->run = std::move(act);
        return services::RunCommonSheet(nullptr, SheetFunction, reinterpret_cast<LPARAM>(&caller_), &result_);
    }

    testing_support::QuietDesktopPlugged desktop_;
    Caller caller_;
    DWORD result_ = 99;

  private:
    struct Current {
        explicit Current(Caller* self) { caller = self; }
    } current_{&caller_};
};

TEST_F(SheetService, CallsInOrderAndTakesTheReportedResult)
{
    EXPECT_GT(Run([](HWND sheet) {
                  caller->title = user::Find(sheet)->text;
                  user::PressButton(sheet, SheetButton::Ok);
              }),
              0);
    EXPECT_THAT(caller_.calls, ElementsAre("init", "header", "result", "destroy"));
    EXPECT_EQ(caller_.title, u"Printer Properties");
    EXPECT_EQ(caller_.endResult, CPSUI_OK);
    EXPECT_EQ(result_, 7U);
    EXPECT_EQ(services::TakeSheetOutcome(), CPSUI_OK);
    EXPECT_EQ(services::TakeSheetOutcome(), std::nullopt);
}

TEST_F(SheetService, LetsTheEndDecideWhateverAPageHasSet)
{
    HANDLE handle = nullptr;
    Run([&](HWND sheet) {
        handle = caller->info->hComPropSheet;
        caller->setResult = CallIn(CPSFUNC_SET_RESULT, 0);
        EXPECT_THAT(caller->calls, ElementsAre("init", "header"));
        user::PressButton(sheet, SheetButton::Cancel);
    });
    EXPECT_GT(caller_.setResult, 0);
    EXPECT_EQ(caller_.endResult, CPSUI_CANCEL);
    EXPECT_THAT(caller_.callbacks, IsEmpty());
    EXPECT_EQ(pfnComPropSheet(handle, CPSFUNC_SET_RESULT, 0, CPSUI_OK), 0) << "a sheet that has ended";
}

TEST_F(SheetService, RefusesOptionsAndPagesThatAreNotWhole)
{
    caller_.type.Type = TVOT_PUSHBUTTON + 1;
    Run({});
    EXPECT_EQ(caller_.added, 0);

    Describe(caller_);
    DLGPAGE page{sizeof page, 0, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return 0; }, nullptr, 0, 4711, 0};
    caller_.options.pDlgPage = &page;
    caller_.options.cDlgPage = 1;
    Run({});
    EXPECT_EQ(caller_.added, 0);
}

TEST_F(SheetService, TellsTheCallbackOfTheButtonAndOfApply)
{
    Run([](HWND sheet) {
        EXPECT_EQ(user::Click(user::Control(user::DialogOf(sheet), ShowButton)), Outcome::Done);
        EXPECT_THAT(caller->callbacks, ElementsAre(CPSUICB_REASON_PUSHBUTTON));
        user::PressButton(sheet, SheetButton::Ok);
    });
    EXPECT_THAT(caller_.callbacks, ElementsAre(CPSUICB_REASON_PUSHBUTTON, CPSUICB_REASON_APPLYNOW));
    ASSERT_EQ(desktop_->boxes.size(), 1U);
    EXPECT_EQ(desktop_->boxes[0].caption, u"Halftone Color Adjustment");
    EXPECT_NE(desktop_->boxes[0].text.find(u"Blue gamma 2.5000"), std::u16string::npos);
}

TEST_F(SheetService, ShowsTheOptionsAsATreeAndServesTheSelectedOne)
{
    std::vector<std::pair<std::u16string, int>> rows;
    Run([&](HWND sheet) {
        const HWND page = user::DialogOf(sheet), tree = user::Control(page, OptionTree);
        const auto selection = [&] { return user::Find(tree)->As<user::TreeState>()->selection; };
        const auto button = [&] { return user::Find(user::Control(page, ShowButton))->enabled; };
        for (const auto& row : user::Find(tree)->As<user::TreeState>()->rows) rows.emplace_back(row.text, row.level);
        EXPECT_EQ(selection(), 1);
        EXPECT_TRUE(button());
        EXPECT_EQ(user::SelectRow(tree, 2), Outcome::NoRow);
        EXPECT_EQ(user::SelectRow(tree, 0), Outcome::Done);
        EXPECT_FALSE(button());
        user::Press(sheet, user::Key::Up);
        EXPECT_EQ(selection(), 0);
        user::Press(sheet, user::Key::Down);
        user::Press(sheet, user::Key::Down);
        EXPECT_EQ(selection(), 1);
        user::Press(sheet, user::Key::Tab);
        user::Press(sheet, user::Key::Space);
    });
    EXPECT_THAT(rows, ElementsAre(std::pair{u"A driver", 0}, std::pair{u"Halftone Color Adjustment", 1}));
    EXPECT_THAT(caller_.callbacks, ElementsAre(CPSUICB_REASON_PUSHBUTTON));
}

}  // namespace
