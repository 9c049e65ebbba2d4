// What is painted when, and in which order.
#include <gmock/gmock.h>

#include "tests/platform/user_rig.h"

namespace user_tests {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Paint, OnlyWhatIsInvalidIsPainted)
{
    Rig rig({Make(u"Button", 20, Shown | BS_OWNERDRAW | WS_DISABLED), Make(u"Static", 29, Shown | SS_WHITEFRAME),
             Make(u"Button", 21, Shown | BS_OWNERDRAW), Make(u"Button", 22, WS_CHILD | BS_OWNERDRAW),
             Make(u"Edit", 10, Stop)});
    rig.Up([&] {
        const auto painted = [&] {
            PaintPending();
            auto first = rig.Log();
            PaintPending();
            EXPECT_THAT(rig.Log(), IsEmpty());
            return first;
        };
        EXPECT_THAT(painted(), IsEmpty());
        InvalidateRect(rig[21], nullptr, FALSE);
        InvalidateRect(rig[20], nullptr, FALSE);
        EXPECT_THAT(painted(), ElementsAre("draw 20", "draw 21")) << "in the order of the template";
        InvalidateRect(rig.dialog, nullptr, FALSE);
        EXPECT_THAT(painted(), ElementsAre("paint", "draw 20", "draw 21"));
        EnableWindow(rig[29], FALSE);
        ShowWindow(rig[29], SW_HIDE);
        EXPECT_THAT(painted(), IsEmpty());
        EnableWindow(rig[21], FALSE);
        EXPECT_THAT(painted(), ElementsAre("draw 21")) << "it paints its state itself";
        InvalidateRect(rig[22], nullptr, TRUE);
        EXPECT_THAT(painted(), IsEmpty()) << "hidden";
        ShowWindow(rig[22], SW_SHOW);
        EXPECT_THAT(painted(), ElementsAre("draw 22"));
        Send(rig[21], WM_SETREDRAW, FALSE, 0);
        InvalidateRect(rig[21], nullptr, TRUE);
        EXPECT_THAT(painted(), IsEmpty());
    });
}

TEST(Paint, ErasingClearsTheRectangleAndPlainInvalidatingDoesNot)
{
    Rig rig({Make(u"Button", 20, Shown | BS_OWNERDRAW), Make(u"Edit", 10, Stop)});
    rig.Up([&] {
        rig.desktop->picture->Take();
        Invalidate(rig[20], false);
        Invalidate(rig[10], true);
        PaintPending();
        EXPECT_THAT(rig.desktop->picture->Take(), IsEmpty());
        Invalidate(rig[20], true);
        Invalidate(rig[20], false);
        PaintPending();
        Invalidate(rig.dialog, true);
        PaintPending();
        EXPECT_THAT(rig.desktop->picture->Take(),
                    ElementsAre("clip none", "erase 10,10,60,30", "clip none", "erase 0,0,200,100"));
    });
}

}  // namespace user_tests
