// The functions as a module calls them: values, failures, stale windows.
#include <gmock/gmock.h>

#include "platform/kernel.h"
#include "platform/seams/environment.h"
#include "platform/seams/system_facts.h"
#include "tests/platform/user_rig.h"

namespace user_tests {

struct NumberRow {
    const char16_t* text;
    bool isSigned;
    UINT value;
    bool translated;
};

TEST(Functions, NumbersOfAField)
{
    const NumberRow rows[] = {
        {u"150",                        true,  150,                            true },
        {u"0",                          false, 0,                              true },
        {u"-5",                         true,  static_cast<UINT>(-5),          true },
        {u"-5",                         false, 0,                              false},
        {u"",                           true,  0,                              false},
        {u"-",                          true,  0,                              false},
        {u"12a",                        true,  0,                              false},
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
    for (const NumberRow& row : rows) {
        SetDlgItemTextW(rig.dialog, 10, row.text);
        BOOL translated = 7;
        EXPECT_EQ(GetDlgItemInt(rig.dialog, 10, &translated, row.isSigned), row.value) << row.value;
        EXPECT_EQ(translated != FALSE, row.translated) << row.value;
    }
    SetDlgItemInt(rig.dialog, 10, static_cast<UINT>(-8), TRUE);
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
    SetWindowTextW(rig.dialog, u"Mine");
    EXPECT_EQ(FindWindowW(nullptr, u"Mine"), rig.dialog);
    EXPECT_EQ(FindWindowW(u"EDIT", nullptr), nullptr);
    EXPECT_NE(FindWindowW(u"VWClass500", nullptr), nullptr);
    EXPECT_EQ(FindWindowW(u"VWClass501", nullptr), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    platform::CurrentEnvironment().facts = platform::MakeFixedFacts({});
}

// Every function, on a window that is gone, gives its failing result.
struct FunctionRow {
    const char* name;
    bool (*fails)(HWND dialog);
};

WCHAR Room[4];
const FunctionRow Functions[] = {
    {"GetDlgItem",          [](HWND w) { return GetDlgItem(w, 10) == nullptr; }                             },
    {"SendMessageW",        [](HWND w) { return SendMessageW(Control(w, 10), WM_GETTEXTLENGTH, 0, 0) == 0; }},
    {"SendDlgItemMessageW", [](HWND w) { return SendDlgItemMessageW(w, 10, WM_GETTEXTLENGTH, 0, 0) == 0; }  },
    {"GetParent",           [](HWND w) { return GetParent(Control(w, 10)) == nullptr; }                     },
    {"SetFocus",            [](HWND w) { return SetFocus(w) == nullptr; }                                   },
    {"EnableWindow",        [](HWND w) { return EnableWindow(Control(w, 11), TRUE) == FALSE; }              },
    {"IsWindowEnabled",     [](HWND w) { return IsWindowEnabled(w) == FALSE; }                              },
    {"ShowWindow",          [](HWND w) { return ShowWindow(Control(w, 10), SW_SHOW) == FALSE; }             },
    {"GetWindowLongW",      [](HWND w) { return GetWindowLongW(w, DWL_DLGPROC) == 0; }                      },
    {"SetWindowLongW",      [](HWND w) { return SetWindowLongW(w, DWL_DLGPROC, 0) == 0; }                   },
    {"SetWindowTextW",      [](HWND w) { return SetWindowTextW(w, u"x") == FALSE; }                         },
    {"GetWindowTextW",      [](HWND w) { return GetWindowTextW(Control(w, 10), Room, 4) == 0; }             },
    {"SetDlgItemTextW",     [](HWND w) { return SetDlgItemTextW(w, 10, u"x") == FALSE; }                    },
    {"GetDlgItemTextW",     [](HWND w) { return GetDlgItemTextW(w, 10, Room, 4) == 0; }                     },
    {"SetDlgItemInt",       [](HWND w) { return SetDlgItemInt(w, 10, 1, FALSE) == FALSE; }                  },
    {"GetDlgItemInt",       [](HWND w) { return GetDlgItemInt(w, 10, nullptr, FALSE) == 0; }                },
    {"CheckDlgButton",      [](HWND w) { return CheckDlgButton(w, 11, BST_CHECKED) == FALSE; }              },
    {"IsDlgButtonChecked",  [](HWND w) { return IsDlgButtonChecked(w, 12) == 0; }                           },
    {"CheckRadioButton",    [](HWND w) { return CheckRadioButton(w, 11, 12, 12) == FALSE; }                 },
    {"EndDialog",           [](HWND w) { return EndDialog(w, 1) == FALSE; }                                 },
    {"InvalidateRect",      [](HWND w) { return InvalidateRect(w, nullptr, TRUE) == FALSE; }                },
};

std::vector<ControlTemplate> AllThere()
{
    return {Make(u"Edit", 10, Stop, u"5"), Make(u"Button", 11, Grey | BS_AUTOCHECKBOX),
            Make(u"Button", 12, Stop | BS_AUTOCHECKBOX)};
}

TEST(Functions, FailOnWindowsThatAreGone)
{
    HWND gone = nullptr;
    {
        Rig rig(AllThere());
        gone = rig.dialog;
        CheckDlgButton(gone, 12, BST_CHECKED);
        rig.Up([&] {
            for (const FunctionRow& row : Functions) EXPECT_FALSE(row.fails(gone)) << row.name;
        });
    }
    for (const HWND stale : {gone, static_cast<HWND>(nullptr), reinterpret_cast<HWND>(~std::uintptr_t{0})})
        for (const FunctionRow& row : Functions) {
            SetLastError(0);
            EXPECT_TRUE(row.fails(stale)) << row.name;
            if (stale) {
                EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE) << row.name;
            }
        }
}

}  // namespace user_tests
