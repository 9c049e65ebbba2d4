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
    const struct {
        const char16_t* text;
        bool isSigned;
        UINT value;
        bool translated;
    } rows[] = {
        {u"150",                        true,  150,                            true },
        {u"-5",                         true,  static_cast<UINT>(-5),          true },
        {u"-5",                         false, 0,                              false},
        {u"",                           true,  0,                              false},
        {u"-",                          true,  0,                              false},
        {u" 7",                         true,  7,                              true },
        {u"2147483647",                 true,  2147483647,                     true },
        {u"2147483648",                 true,  0,                              false},
        {u"-2147483648",                true,  static_cast<UINT>(-2147483648), true },
        {u"2147483648",                 false, 2147483648,                     true },
        {u"4294967295",                 false, 4294967295,                     true },
        {u"4294967296",                 false, 0,                              false},
        {u"99999999999999999999999999", false, 0,                              false},
    };
    Rig rig({Make(u"Edit", 10, Stop)});
    for (const auto& row : rows) {
        EXPECT_TRUE(SetDlgItemTextW(rig.dialog, 10, row.text));
        BOOL translated = 7;
        EXPECT_EQ(GetDlgItemInt(rig.dialog, 10, &translated, row.isSigned), row.value) << row.value;
        EXPECT_EQ(translated != FALSE, row.translated) << row.value;
    }
    EXPECT_TRUE(SetDlgItemInt(rig.dialog, 10, static_cast<UINT>(-8), TRUE));
    EXPECT_EQ(rig.Text(rig[10]), u"-8");
    SetDlgItemInt(rig.dialog, 10, static_cast<UINT>(-8), FALSE);
    EXPECT_EQ(rig.Text(rig[10]), u"4294967288");
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
