// Lists and list views.
#include <gmock/gmock.h>

#include "tests/platform/user_rig.h"

namespace user_tests {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Lists, NotifyForEveryPickButNotForTheProgram)
{
    struct Kind {
        const char16_t* className;
        DWORD style;
        UINT add, select, selection, reset;
    };
    for (const Kind& kind : {
             Kind{u"ComboBox", Stop | CBS_DROPDOWNLIST, CB_ADDSTRING, CB_SETCURSEL, CB_GETCURSEL, CB_RESETCONTENT},
             {u"ListBox",  Stop | LBS_NOTIFY,       LB_ADDSTRING, LB_SETCURSEL, LB_GETCURSEL, LB_RESETCONTENT},
    }) {
        Rig rig({Make(kind.className, 12, kind.style)});
        rig.Up([&] {
            Send(rig[12], kind.add, 0, reinterpret_cast<LPARAM>(u"a"));
            AppendItem(rig[12], u"b", 0);
            Send(rig[12], kind.select, 1, 0);
            EXPECT_EQ(rig.Text(rig[12]), kind.add == CB_ADDSTRING ? u"b" : u"");
            EXPECT_THAT(rig.Log(), IsEmpty());
            EXPECT_EQ(Pick(rig[12], 0), Outcome::Done);
            EXPECT_EQ(Pick(rig[12], 0), Outcome::Done);
            EXPECT_THAT(rig.Log(), ElementsAre("pick 12", "pick 12"));
            EXPECT_EQ(Pick(rig[12], 2), Outcome::NoRow);
            EXPECT_EQ(Pick(rig[12], -1), Outcome::NoRow);
            for (const Key key : {Key::Up, Key::Down, Key::Down}) Press(rig.dialog, key);
            EXPECT_EQ(Send(rig[12], kind.selection, 0, 0), 1);
            Press(rig.dialog, Key::Up);
            EXPECT_EQ(Send(rig[12], kind.selection, 0, 0), 0);
            EXPECT_THAT(rig.Log(), ElementsAre("pick 12", "pick 12"));
            Send(rig[12], kind.reset, 0, 0);
            EXPECT_EQ(Send(rig[12], kind.selection, 0, 0), CB_ERR);
        });
    }
}

class ListView : public testing::Test {
  protected:
    ListView() : rig({Make(u"Edit", 10, Stop), Make(u"SysListView32", 13, Stop | LVS_REPORT | LVS_SINGLESEL)})
    {
        for (int i = 0; i < 3; ++i) Insert(i, std::u16string(1, static_cast<char16_t>(u'a' + i)));
    }
    LRESULT Insert(int row, std::u16string text)
    {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        item.pszText = text.data();
        return Send(rig[13], LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    LRESULT SetState(int row, UINT state)
    {
        LVITEMW item{};
        item.state = state;
        item.stateMask = LVIS_SELECTED;
        return Send(rig[13], LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
    std::u16string Cell(int row)
    {
        WCHAR text[10] = {};
        LVITEMW item{};
        item.pszText = text;
        item.cchTextMax = 10;
        Send(rig[13], LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    LRESULT Mark() { return Send(rig[13], LVM_GETSELECTIONMARK, 0, 0); }
    Rig rig;
};

TEST_F(ListView, OneNoticePerRowThatChanges)
{
    rig.Up([&] {
        EXPECT_EQ(SetState(1, LVIS_SELECTED), TRUE);
        EXPECT_THAT(rig.Log(), ElementsAre("on 13:1"));
        SetState(1, LVIS_SELECTED);
        EXPECT_THAT(rig.Log(), IsEmpty());
        SetState(2, LVIS_SELECTED);
        EXPECT_THAT(rig.Log(), ElementsAre("off 13:1", "on 13:2"));
        SetState(-1, 0);
        EXPECT_THAT(rig.Log(), ElementsAre("off 13:2"));
        EXPECT_EQ(SetState(3, LVIS_SELECTED), FALSE);
    });
}

TEST_F(ListView, AUsersRowIsSelectedAndMarked)
{
    LRESULT markThen = -1;
    rig.answer = [&](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_NOTIFY) markThen = Mark();
        return FALSE;
    };
    rig.Up([&] {
        EXPECT_EQ(SelectRow(rig[13], 1), Outcome::Done);
        EXPECT_EQ(markThen, 1);
        EXPECT_THAT(rig.Log(), ElementsAre("killfocus 10", "on 13:1"));
        EXPECT_EQ(SelectRow(rig[13], 3), Outcome::NoRow);
        Press(rig.dialog, Key::Down);
        EXPECT_THAT(rig.Log(), ElementsAre("off 13:1", "on 13:2"));
        // A handler may empty the list while it is told of a change.
        rig.answer = [&](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
            return message == WM_NOTIFY && Send(rig[13], LVM_DELETEALLITEMS, 0, 0);
        };
        SelectRow(rig[13], 0);
        EXPECT_THAT(rig.Log(), ElementsAre("off 13:2"));
    });
}

TEST_F(ListView, RowsComeAndGoWithTheMark)
{
    Send(rig[13], LVM_SETSELECTIONMARK, 0, 1);
    EXPECT_EQ(Insert(0, u"0"), 0);
    EXPECT_EQ(Mark(), 2);
    EXPECT_EQ(Send(rig[13], LVM_DELETEITEM, 0, 0), TRUE);
    EXPECT_EQ(Mark(), 1);
    EXPECT_EQ(Send(rig[13], LVM_DELETEITEM, 1, 0), TRUE);
    EXPECT_EQ(Mark(), -1);
    EXPECT_EQ(Insert(99, u"z"), 2);
    EXPECT_EQ(Cell(2), u"z");
    Send(rig[13], LVM_DELETEALLITEMS, 0, 0);
    EXPECT_EQ(Send(rig[13], LVM_GETITEMCOUNT, 0, 0), 0);
    EXPECT_EQ(Send(rig[13], LVM_DELETEITEM, 0, 0), FALSE);
}

}  // namespace user_tests
