// The functions as a module calls them: values, failures, stale windows.
#include <gmock/gmock.h>

#include "platform/kernel.h"
#include "platform/seams/environment.h"
#include "platform/seams/system_facts.h"
#include "tests/platform/fresh_environment.h"
#include "tests/platform/user_rig.h"

namespace user_tests {

TEST(Functions, NumbersOfAField)
{
    Rig rig({Make(u"Edit", 10, Stop)});
    const auto number = [&](const char16_t* text, bool isSigned) {
        EXPECT_TRUE(SetDlgItemTextW(rig.dialog, 10, text));
        BOOL translated = 7;
        const UINT value = GetDlgItemInt(rig.dialog, 10, &translated, isSigned);
        return translated ? std::to_string(isSigned ? std::int64_t{static_cast<int>(value)} : value) : "none";
    };
    EXPECT_EQ(number(u"150", true), "150");
    EXPECT_EQ(number(u" 7", true), "7");
    EXPECT_EQ(number(u"-5", true), "-5");
    EXPECT_EQ(number(u"2147483647", true), "2147483647");
    EXPECT_EQ(number(u"-2147483648", true), "-2147483648");
    EXPECT_EQ(number(u"4294967295", false), "4294967295");
    for (const char16_t* text : {u"", u"-", u"12a", u"2147483648"}) EXPECT_EQ(number(text, true), "none");
    for (const char16_t* text : {u"-5", u"4294967296", u"99999999999999999999999999"})
        EXPECT_EQ(number(text, false), "none");
    for (const auto& [isSigned, text] : {
             std::pair{TRUE,  u"-8"        },
             std::pair{FALSE, u"4294967288"}
    }) {
        EXPECT_TRUE(SetDlgItemInt(rig.dialog, 10, static_cast<UINT>(-8), isSigned));
        EXPECT_EQ(rig.Text(rig[10]), text);
    }
}

TEST(Functions, SlotsOfADialogHoldAMachineWord)
{
    Rig rig({Make(u"Edit", 10, Stop | ES_NUMBER)});
    const auto word = reinterpret_cast<LONG_PTR>(&rig);
    EXPECT_EQ(SetWindowLongW(rig.dialog, DWL_USER, word), 0);
    EXPECT_EQ(GetWindowLongW(rig.dialog, DWL_USER), word);
    EXPECT_EQ(GetWindowLongW(rig.dialog, DWL_DLGPROC), reinterpret_cast<LONG_PTR>(&RigProcedure));
    EXPECT_EQ(GetWindowLongW(rig[10], GWL_ID), 10);
    EXPECT_EQ(GetWindowLongW(rig[10], GWL_STYLE), static_cast<LONG_PTR>(Stop | ES_NUMBER));
    EXPECT_EQ(EnableWindow(rig[10], FALSE), FALSE);  // the state before
    EXPECT_NE(GetWindowLongW(rig[10], GWL_STYLE) & WS_DISABLED, 0);
    EXPECT_EQ(EnableWindow(rig[10], TRUE), TRUE);
    EXPECT_EQ(ShowWindow(rig[10], SW_HIDE), TRUE);
    EXPECT_EQ(ShowWindow(rig[10], SW_SHOW), FALSE);
    EXPECT_EQ(GetWindowLongW(rig[10], DWL_USER), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(Functions, FindTopLevelWindowsHereAndElsewhere)
{
    platform::FixedFactValues facts;
    facts.windows = u"VWClass500";
    platform::CurrentEnvironment().facts = platform::MakeFixedFacts(facts);
    Rig rig({Make(u"Edit", 10, Stop)});
    WCHAR text[] = u"....";
    EXPECT_TRUE(SetWindowTextW(rig.dialog, u"Mine"));
    EXPECT_EQ(GetWindowTextW(rig.dialog, text, 4), 3);
    EXPECT_EQ(std::u16string(text), u"Min");
    EXPECT_EQ(GetWindowTextW(rig.dialog, text, 0), 0);
    EXPECT_EQ(FindWindowW(nullptr, u"Mine"), rig.dialog);
    EXPECT_EQ(FindWindowW(u"EDIT", nullptr), nullptr);
    EXPECT_NE(FindWindowW(u"VWClass500", nullptr), nullptr);
    EXPECT_EQ(FindWindowW(u"VWClass501", nullptr), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    platform::CurrentEnvironment().facts = platform::MakeFixedFacts({});
}

template <class Result, class... Arguments>
void FailsOnNoWindow(Result (*function)(HWND, Arguments...))
{
    for (const std::uintptr_t stale : {std::uintptr_t{0x123456}, ~std::uintptr_t{0}})
        EXPECT_EQ(platform::Refusal(function(reinterpret_cast<HWND>(stale), Arguments{}...)),
                  ERROR_INVALID_WINDOW_HANDLE);
}

template <class... Functions>
void AllFailOnNoWindow(Functions... functions)
{
    (FailsOnNoWindow(functions), ...);
}

TEST(Functions, FailOnWindowsThatAreGone)
{
    AllFailOnNoWindow(GetDlgItem, SendMessageW, SendDlgItemMessageW, GetParent, SetFocus, EnableWindow, IsWindowEnabled,
                      ShowWindow, GetWindowLongW, SetWindowLongW, SetWindowTextW, GetWindowTextW, SetDlgItemTextW,
                      GetDlgItemTextW, SetDlgItemInt, GetDlgItemInt, CheckDlgButton, IsDlgButtonChecked,
                      CheckRadioButton, EndDialog, InvalidateRect);
}

}  // namespace user_tests
