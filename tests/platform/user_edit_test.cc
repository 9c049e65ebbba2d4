// Edit controls and the up-down arrows beside them.
#include <gmock/gmock.h>

#include "tests/platform/user_rig.h"

namespace user_tests {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr DWORD ArrowStyle = Shown | UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_ALIGNRIGHT;

TEST(Edit, TypingKeepsToLimitsAndDigits)
{
    const struct {
        const char* what;
        DWORD style;
        WPARAM limit;
        const char16_t* before;
        const char16_t* typed;
        const char16_t* after;
        std::size_t changes;
    } rows[] = {
        {"beyond the limit",       Stop,             3, u"",       u"12345", u"123",   3},
        {"limit counts what goes", Stop,             3, u"999",    u"12",    u"12",    2},
        {"digits only",            Stop | ES_NUMBER, 9, u"",       u"1a-2",  u"12",    2},
        {"nothing accepted",       Stop | ES_NUMBER, 9, u"7",      u"ab",    u"7",     0},
        {"no limit",               Stop,             0, u"",       u"12345", u"12345", 5},
        {"no control characters",  Stop,             9, u"",       u"a\tb",  u"ab",    2},
        {"letters before",         Stop | ES_NUMBER, 9, u"letter", u"5",     u"5",     1},
    };
    for (const auto& row : rows) {
        Rig rig({Make(u"Edit", 10, row.style, row.before)});
        rig.Up([&] {
            Send(rig[10], EM_LIMITTEXT, row.limit, 0);
            EXPECT_EQ(Type(rig[10], row.typed), Outcome::Done);
            EXPECT_EQ(rig.Text(rig[10]), row.after) << row.what;
            EXPECT_EQ(rig.Log().size(), row.changes) << row.what;
        });
    }
}

TEST(Edit, WhatAWindowReportsIsHeldToTheRulesOfTyping)
{
    const struct {
        const char16_t* before;
        const char16_t* wanted;
        std::size_t caret;
        const char16_t* after;
        std::size_t caretAfter;
        std::size_t changes;
    } rows[] = {
        {u"12",  u"132",  2, u"132", 2, 1},
        {u"12",  u"1x2",  2, u"12",  0, 0},
        {u"12",  u"1x32", 3, u"132", 2, 1},
        {u"a2",  u"a23",  3, u"a23", 3, 1},
        {u"123", u"13",   1, u"13",  1, 1},
        {u"123", u"1234", 4, u"123", 0, 0},
        {u"123", u"",     0, u"",    0, 1},
    };
    for (const auto& row : rows) {
        Rig rig({Make(u"Edit", 10, Stop | ES_NUMBER, row.before)});
        rig.Up([&] {
            Send(rig[10], EM_LIMITTEXT, 3, 0);
            EXPECT_EQ(EditTo(rig[10], row.wanted, row.caret), Outcome::Done);
            EXPECT_EQ(rig.Text(rig[10]), row.after);
            EXPECT_EQ(Find(rig[10])->As<EditState>()->caret, row.caretAfter);
            EXPECT_EQ(rig.Log().size(), row.changes);
        });
    }
}

TEST(Edit, RefusesWhatAUserCannotDo)
{
    Rig rig({Make(u"Edit", 10, Grey), Make(u"Edit", 11, Gone), Make(u"Edit", 12, Stop | ES_READONLY),
             Make(u"Static", 13, Shown), Make(u"Edit", 15, Grey, u"1"), Make(u"msctls_updown32", 16, ArrowStyle)});
    rig.Up([&] {
        EXPECT_EQ(Type(rig[10], u"x"), Outcome::Disabled);
        EXPECT_EQ(Spin(rig[16], true), Outcome::Disabled);
        EXPECT_EQ(Append(rig[11], u"x"), Outcome::Hidden);
        EXPECT_EQ(Paste(rig[12], u"x"), Outcome::ReadOnly);
        EXPECT_EQ(Type(rig[13], u"x"), Outcome::Unsuited);
        EXPECT_EQ(EditTo(rig[14], u"x", 0), Outcome::Absent);
        EXPECT_THAT(rig.Log(), IsEmpty());
    });
}

LPARAM Range(int lower, int upper)
{
    return static_cast<LPARAM>(MakeLong(static_cast<DWORD>(upper), static_cast<DWORD>(lower)));
}

TEST(UpDown, AClickWritesTheFieldWithinTheRange)
{
    const struct {
        const char16_t* before;
        int lower, upper;
        bool up;
        const char16_t* after;
    } rows[] = {
        {u"5",   1,   10,  true,  u"6"  },
        {u"5",   1,   10,  false, u"4"  },
        {u"10",  1,   10,  true,  u"10" },
        {u"300", 25,  200, true,  u"200"},
        {u"300", 25,  200, false, u"200"},
        {u"0",   -50, 50,  false, u"-1" },
        {u"-50", -50, 50,  false, u"-50"},
        {u"",    76,  216, true,  u"76" },
        {u"x",   76,  216, false, u"76" },
        {u"3",   10,  1,   true,  u"2"  },
    };
    for (const auto& row : rows) {
        Rig rig({Make(u"Edit", 10, Stop, row.before), Make(u"msctls_updown32", 11, ArrowStyle)});
        EXPECT_EQ(Find(rig[10])->rect.right, Find(rig[11])->rect.left) << "the arrows take their place";
        rig.Up([&] {
            Send(rig[11], UDM_SETRANGE, 0, Range(row.lower, row.upper));
            EXPECT_THAT(rig.Log(), IsEmpty());
            EXPECT_EQ(Spin(rig[11], row.up), Outcome::Done);
            EXPECT_EQ(rig.Text(rig[10]), row.after) << testing::PrintToString(std::u16string(row.before));
            EXPECT_THAT(rig.Log(), ElementsAre("change 10"));
        });
    }
}

}  // namespace user_tests
