// Modal dialogs: from template to end, and what lies below meanwhile.
#include <gmock/gmock.h>

#include <array>

#include "platform/kernel.h"
#include "platform/kernel/modules.h"
#include "platform/seams/environment.h"
#include "tests/platform/fresh_environment.h"
#include "tests/platform/user_rig.h"

namespace user_tests {

using testing::ElementsAre;

HMODULE Dialogs()
{
    static const HMODULE module = platform::modules::Load(TEST_DIALOGS_PATH, nullptr);
    return module;
}

INT_PTR RunBox(HWND owner, int number = 101)
{
    return DialogBoxParamW(Dialogs(), ResourceName(number), owner, RigProcedure, 0);
}

TEST(Modal, TakesTheFocusWithANoticeAndGivesItBackWithout)
{
    Rig rig({Make(u"Edit", 10, Stop), Make(u"Button", 20, Shown | BS_OWNERDRAW)});
    rig.Up([&] {
        rig.desktop->runs = {[&](HWND top) {
            EXPECT_THAT(rig.Log(), ElementsAre("init", "killfocus 10", "paint"));
            EXPECT_EQ(GetFocus(), Control(top, 2));
            EXPECT_EQ(Find(top)->parent, rig.dialog);
            EXPECT_EQ(Focus(rig[10]), Outcome::Disabled);
            Invalidate(rig[20], false);
            PaintPending();
            EXPECT_THAT(rig.Log(), ElementsAre("draw 20"));
            EndDialog(top, 0);
        }};
        RunBox(rig[10]);
        EXPECT_EQ(GetFocus(), rig[10]);
        EXPECT_EQ(TopWindow(), rig.dialog);
        EXPECT_THAT(rig.Log(), ElementsAre("destroy"));
        PaintPending();
        EXPECT_THAT(rig.Log(), ElementsAre("paint", "draw 20"));
    });
}

TEST(Modal, IsCancelledWhenTheDesktopGivesUp)
{
    Rig rig({}, [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && LowWord(wParam) == IDCANCEL) EndDialog(dialog, 9);
        return FALSE;
    });
    EXPECT_EQ(RunBox(nullptr), 9);
    rig.answer = {};
    EXPECT_EQ(RunBox(nullptr), -1);
}

TEST(Modal, FailsWithAReason)
{
    Rig rig({});
    const auto refusal = [](HWND owner, int number) { return platform::Refusal(RunBox(owner, number) + 1); };
    EXPECT_EQ(refusal(nullptr, 999), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(refusal(nullptr, 102), ERROR_INVALID_PARAMETER) << "ends within its counts";
    EXPECT_EQ(refusal(nullptr, 103), 1407u) << "of an unknown class";
    EXPECT_EQ(refusal(reinterpret_cast<HWND>(0x123456), 101), ERROR_INVALID_WINDOW_HANDLE);
    platform::CurrentEnvironment().desktop = nullptr;
    EXPECT_EQ(refusal(nullptr, 101), ERROR_NOT_SUPPORTED);
}

TEST(MessageBox, IsShownByTheDesktopWithTheFocusAwayFromTheField)
{
    Rig rig({Make(u"Edit", 10, Stop)});
    rig.Up([&] {
        EXPECT_EQ(MessageBoxW(rig.dialog, u"Text", u"Warning", MB_OKCANCEL | MB_ICONEXCLAMATION), IDCANCEL);
        ASSERT_EQ(rig.desktop->boxes.size(), 1u);
        EXPECT_EQ(rig.desktop->boxes[0].text, u"Text");
        EXPECT_EQ(rig.desktop->boxes[0].caption, u"Warning");
        EXPECT_EQ(rig.desktop->boxes[0].style, 0x31u);
        EXPECT_EQ(GetFocus(), rig[10]);
        PaintPending();
        EXPECT_THAT(rig.Log(), ElementsAre("killfocus 10"));
        MessageBeep(1);
        EXPECT_THAT(rig.desktop->beeps, ElementsAre(1u));
    });
}

// Whatever a procedure does to its own window while it is told something, nothing breaks.
TEST(Windows, MayBeDestroyedDuringTheirOwnMessages)
{
    for (const UINT fatal : {WM_INITDIALOG, WM_COMMAND, WM_PAINT, WM_DRAWITEM, WM_NOTIFY, WM_DESTROY}) {
        Rig rig({});
        rig.answer = [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
            if (message == fatal) Destroy(dialog);
            return FALSE;
        };
        rig.layout.controls = {Make(u"Edit", 10, Stop), Make(u"Button", 20, Shown | BS_OWNERDRAW),
                               Make(u"SysListView32", 13, Stop), Make(u"Button", 21, Shown | BS_OWNERDRAW)};
        const HWND dialog = MakeDialog({nullptr, 3, nullptr, RigProcedure, 0, true}, rig.layout);
        LVITEMW item{};
        Send(Control(dialog, 13), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        rig.desktop->runs = {[&](HWND) {
            Type(Control(dialog, 10), u"12");
            SelectRow(Control(dialog, 13), 0);
        }};
        RunModal(dialog);
        Destroy(dialog);
        EXPECT_EQ(Find(dialog), nullptr);
        EXPECT_EQ(GetFocus(), nullptr);
    }
}

TEST(Template, EveryCutIsRefusedWithAReason)
{
    for (const int number : {100, 101}) {
        const auto whole = platform::modules::Resource(Dialogs(), platform::modules::DialogResource, number);
        ASSERT_TRUE(ParseDialogTemplate(whole, nullptr));
        for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
            // A buffer of its own, so that a sanitizer sees any read past it.
            const auto kept = whole.first(length);
            std::string why;
            EXPECT_FALSE(ParseDialogTemplate(std::vector(kept.begin(), kept.end()), &why)) << number << ":" << length;
            EXPECT_NE(why, "");
        }
    }
}

TEST(Template, UnitsBecomePixelsByTheNearest)
{
    constexpr std::array<int, 3> Rows[] = {
        {1,   2,   2  },
        {91,  137, 148},
        {-1,  -2,  -2 },
        {252, 378, 410},
    };
    for (const auto& [units, across, down] : Rows) {
        EXPECT_EQ(PixelsAcross(units), across) << units;
        EXPECT_EQ(PixelsDown(units), down) << units;
    }
}

}  // namespace user_tests
