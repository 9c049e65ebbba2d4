// Focus, keys, and what a user can reach.
#include <gmock/gmock.h>

#include "tests/platform/user_rig.h"

namespace user_tests {

using testing::ElementsAre;

int FocusId() { return Find(GetFocus()) ? Find(GetFocus())->id : 0; }

std::vector<int> Press(const Rig& rig, Key key, int times)
{
    std::vector<int> reached;
    for (int i = 0; i < times; ++i) {
        EXPECT_EQ(platform::user::Press(rig.dialog, key), Outcome::Done);
        reached.push_back(FocusId());
    }
    return reached;
}

std::vector<ControlTemplate> Mixed()
{
    const DWORD radio = Shown | BS_AUTORADIOBUTTON;
    return {
        Make(u"Static", 30, Stop),  Make(u"Button", 31, Grey),  Make(u"Edit", 32, Stop),
        Make(u"Edit", 33, Gone),    Make(u"Edit", 34, Shown),   Make(u"Button", 20, radio | WS_GROUP | WS_TABSTOP),
        Make(u"Button", 21, radio), Make(u"Button", 22, radio), Make(u"Button", 1, Stop | WS_GROUP),
    };
}

TEST(Focus, InitialFocusIsTheProceduresIfItSetOneAndReturnedFalse)
{
    const struct {
        INT_PTR result;
        bool setsFocus, disablesFirst;
        int focus;
    } rows[] = {
        {TRUE,  false, false, 32},
        {FALSE, false, false, 32},
        {FALSE, true,  false, 1 },
        {TRUE,  true,  false, 32},
        {TRUE,  false, true,  20},
    };
    for (const auto& row : rows) {
        Rig rig(Mixed(), [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
            if (message != WM_INITDIALOG) return FALSE;
            if (row.setsFocus) SetFocus(GetDlgItem(dialog, 1));
            if (row.disablesFirst) EnableWindow(GetDlgItem(dialog, 32), FALSE);
            return row.result;
        });
        rig.Up([&] { EXPECT_EQ(FocusId(), row.focus) << row.result << row.setsFocus; });
    }
}

TEST(Keys, TabGoesThroughTheStopsInTheOrderOfTheTemplate)
{
    Rig rig(Mixed());
    rig.Up([&] {
        CheckRadioButton(rig.dialog, 20, 22, 21);
        EXPECT_THAT(Press(rig, Key::Tab, 3), ElementsAre(21, 1, 32));
        EXPECT_THAT(rig.Log(), ElementsAre("killfocus 32"));
        EXPECT_THAT(Press(rig, Key::BackTab, 3), ElementsAre(1, 21, 32));
        CheckRadioButton(rig.dialog, 20, 22, 0);
        EXPECT_THAT(Press(rig, Key::Tab, 1), ElementsAre(20));
    });
}

TEST(Keys, ArrowsClickThroughARadioGroup)
{
    Rig rig(Mixed());
    rig.Up([&] {
        Click(rig[20]);
        rig.Log();
        Enable(rig[21], false);
        EXPECT_THAT(Press(rig, Key::Down, 2), ElementsAre(22, 20));
        EXPECT_THAT(rig.Log(), ElementsAre("click 22", "click 20"));
        EXPECT_THAT(Press(rig, Key::Up, 1), ElementsAre(22));
        EXPECT_EQ(IsDlgButtonChecked(rig.dialog, 22), BST_CHECKED);
        EXPECT_EQ(IsDlgButtonChecked(rig.dialog, 20), BST_UNCHECKED);
    });
}

TEST(Keys, PressButtonsWhereTheFocusStays)
{
    const struct {
        const char* what;
        Key key;
        int focus;
        std::vector<std::string> told;
        Outcome outcome;
    } rows[] = {
        {"Enter in a field",       Key::Enter,  10, {"click 1"},   Outcome::Done    },
        {"Enter on a push button", Key::Enter,  5,  {"click 5"},   Outcome::Done    },
        {"Enter on a check box",   Key::Enter,  6,  {"click 1"},   Outcome::Done    },
        {"Escape",                 Key::Escape, 10, {"command 2"}, Outcome::Done    },
        {"Space on a check box",   Key::Space,  6,  {"click 6"},   Outcome::Done    },
        {"Space in a field",       Key::Space,  10, {"change 10"}, Outcome::Done    },
        {"Space on a combo box",   Key::Space,  12, {},            Outcome::Unsuited},
        {"F1",                     Key::F1,     12, {"help 12"},   Outcome::Done    },
    };
    for (const auto& row : rows) {
        Rig rig({Make(u"Edit", 10, Stop), Make(u"Button", 5, Stop), Make(u"Button", 6, Stop | BS_AUTOCHECKBOX),
                 Make(u"ComboBox", 12, Stop), Make(u"Button", 1, Stop | BS_DEFPUSHBUTTON)});
        rig.Up([&] {
            Focus(rig[row.focus]);
            rig.Log();
            EXPECT_EQ(platform::user::Press(rig.dialog, row.key), row.outcome) << row.what;
            EXPECT_EQ(rig.Log(), row.told) << row.what;
            EXPECT_EQ(FocusId(), row.focus) << row.what;
        });
    }
}

TEST(Focus, GoesWhenItsControlIsHiddenOrDisabled)
{
    Rig rig({Make(u"Edit", 10, Stop), Make(u"Edit", 11, Stop)});
    rig.Up([&] {
        ShowWindow(rig[10], SW_HIDE);
        EXPECT_EQ(SetFocus(rig[11]), nullptr);
        EnableWindow(rig[11], FALSE);
        EXPECT_THAT(rig.Log(), ElementsAre("killfocus 10", "killfocus 11"));
        EXPECT_EQ(SetFocus(rig[11]), nullptr);
        EXPECT_EQ(GetFocus(), nullptr);
    });
}

}  // namespace user_tests
