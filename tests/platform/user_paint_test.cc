// What is painted when, and in which order.
#include <gmock/gmock.h>

#include "tests/platform/user_rig.h"

namespace user_tests {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<ControlTemplate> Pictures()
{
    return {Make(u"Button", 20, Shown | BS_OWNERDRAW | WS_DISABLED), Make(u"Static", 29, Shown | SS_WHITEFRAME),
            Make(u"Button", 21, Shown | BS_OWNERDRAW), Make(u"Button", 22, WS_CHILD | BS_OWNERDRAW),
            Make(u"Edit", 10, Stop)};
}

std::vector<std::string> Paint(Rig& rig)
{
    PaintPending();
    return rig.Log();
}

struct PaintRow {
    const char* what;
    void (*change)(const Rig& rig);
    std::vector<std::string> painted;
};

TEST(Paint, OnlyWhatIsInvalidIsPainted)
{
    const PaintRow rows[] = {
        {"nothing",                               [](const Rig&) {},                                              {}                    },
        {"one control",                           [](const Rig& rig) { InvalidateRect(rig[21], nullptr, TRUE); }, {"draw 21"}           },
        {"controls in the order of the template",
         [](const Rig& rig) {
             InvalidateRect(rig[21], nullptr, FALSE);
             InvalidateRect(rig[20], nullptr, FALSE);
         },                                                                                                       {"draw 20", "draw 21"}},
        {"the dialog",
         [](const Rig& rig) { InvalidateRect(rig.dialog, nullptr, FALSE); },
         {"paint", "draw 20", "draw 21"}                                                                                                },
        {"changes of controls",
         [](const Rig& rig) {
             EnableWindow(rig[29], FALSE);
             ShowWindow(rig[29], SW_HIDE);
         },                                                                                                       {}                    },
        {"a change of an owner-drawn one",        [](const Rig& rig) { EnableWindow(rig[21], FALSE); },           {"draw 21"}           },
        {"one that stays hidden",                 [](const Rig& rig) { InvalidateRect(rig[22], nullptr, TRUE); }, {}                    },
        {"one that is shown",                     [](const Rig& rig) { ShowWindow(rig[22], SW_SHOW); },           {"draw 22"}           },
        {"one without redrawing",
         [](const Rig& rig) {
             Send(rig[21], WM_SETREDRAW, FALSE, 0);
             InvalidateRect(rig[21], nullptr, TRUE);
         },                                                                                                       {}                    },
    };
    for (const PaintRow& row : rows) {
        Rig rig(Pictures());
        rig.Up([&] {
            row.change(rig);
            EXPECT_EQ(Paint(rig), row.painted) << row.what;
            EXPECT_THAT(Paint(rig), IsEmpty()) << row.what;
        });
    }
}

TEST(Paint, ErasingClearsTheRectangleAndPlainInvalidatingDoesNot)
{
    Rig rig({Make(u"Button", 20, Shown | BS_OWNERDRAW), Make(u"Edit", 10, Stop)});
    rig.Up([&] {
        rig.desktop->erased.clear();
        Invalidate(rig[20], false);
        Invalidate(rig[10], true);
        PaintPending();
        EXPECT_THAT(rig.desktop->erased, IsEmpty());
        Invalidate(rig[20], true);
        Invalidate(rig[20], false);
        PaintPending();
        Invalidate(rig.dialog, true);
        PaintPending();
        EXPECT_THAT(rig.desktop->erased, ElementsAre("10,10,60,30", "0,0,200,100"));
    });
}

}  // namespace user_tests
