// Buttons, lists and list views.
#include <gmock/gmock.h>

#include "platform/seams/environment.h"
#include "tests/platform/user_rig.h"

namespace user_tests {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> Checked(const Rig& rig, std::vector<int> ids)
{
    std::erase_if(ids, [&](int id) { return IsDlgButtonChecked(rig.dialog, id) == 0; });
    return ids;
}

std::vector<ControlTemplate> Radios()
{
    const DWORD radio = Shown | BS_AUTORADIOBUTTON;
    return {Make(u"Button", 20, radio | WS_GROUP | WS_TABSTOP), Make(u"Button", 21, radio), Make(u"Button", 22, radio),
            Make(u"Button", 23, radio | WS_GROUP | WS_TABSTOP), Make(u"Button", 24, radio)};
}

TEST(Button, ARadioGroupIsTheRunFromOneGroupStyleToTheNext)
{
    Rig rig(Radios());
    rig.Up([&] {
        Click(rig[21]);
        Click(rig[24]);
        EXPECT_THAT(Checked(rig, {20, 21, 22, 23, 24}), ElementsAre(21, 24));
        Click(rig[22]);
        EXPECT_THAT(Checked(rig, {20, 21, 22, 23, 24}), ElementsAre(22, 24));
        EXPECT_THAT(rig.Log(), ElementsAre("click 21", "click 24", "click 22"));
        CheckRadioButton(rig.dialog, 20, 22, 20);
        EXPECT_THAT(Checked(rig, {20, 21, 22, 23, 24}), ElementsAre(20, 24));
        EXPECT_THAT(rig.Log(), IsEmpty());  // a program's checks are silent
    });
}

TEST(Button, ChangesBeforeItNotifies)
{
    UINT then = 9;
    Rig rig({Make(u"Button", 20, Stop | BS_AUTOCHECKBOX)}, [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND) then = IsDlgButtonChecked(dialog, 20);
        return FALSE;
    });
    rig.Up([&] {
        Click(rig[20]);
        EXPECT_EQ(then, BST_CHECKED);
        Click(rig[20]);
        EXPECT_EQ(then, BST_UNCHECKED);
    });
}

TEST(Button, PlainOnesOnlyNotifyAndGroupBoxesDoNothing)
{
    Rig rig({Make(u"Button", 20, Stop | BS_RADIOBUTTON), Make(u"Button", 21, Stop | BS_GROUPBOX),
             Make(u"Button", 22, Stop | BS_PUSHBUTTON)});
    rig.Up([&] {
        EXPECT_EQ(Click(rig[20]), Outcome::Done);
        EXPECT_EQ(Click(rig[21]), Outcome::Unsuited);
        SetCheck(rig[22], BST_CHECKED);
        EXPECT_THAT(Checked(rig, {20, 21, 22}), IsEmpty());
        EXPECT_THAT(rig.Log(), ElementsAre("click 20"));
    });
}

// Leaving a field may take away what was about to be clicked.
TEST(Button, IsNotClickedWhenLeavingTheFieldGreysIt)
{
    Rig rig({Make(u"Edit", 10, Stop), Make(u"Button", 1, Stop)},
            [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
                if (message == WM_COMMAND && HighWord(wParam) == EN_KILLFOCUS) Enable(Control(dialog, 1), false);
                return FALSE;
            });
    rig.Up([&] {
        EXPECT_EQ(Click(rig[1]), Outcome::Disabled);
        EXPECT_THAT(rig.Log(), ElementsAre("killfocus 10"));
    });
}

// The two kinds of list differ in their message numbers alone.
struct ListKind {
    const char16_t* className;
    DWORD style;
    UINT add, insert, remove, reset, select, selection, text, textLength, count, data, setData;
};
constexpr ListKind ListKinds[] = {
    {u"ComboBox", Stop | CBS_DROPDOWNLIST, CB_ADDSTRING, CB_INSERTSTRING, CB_DELETESTRING, CB_RESETCONTENT,
     CB_SETCURSEL,                                                                                                        CB_GETCURSEL, CB_GETLBTEXT, CB_GETLBTEXTLEN, CB_GETCOUNT, CB_GETITEMDATA, CB_SETITEMDATA},
    {u"ListBox",  Stop | LBS_NOTIFY,       LB_ADDSTRING, LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT, LB_SETCURSEL,
     LB_GETCURSEL,                                                                                                                      LB_GETTEXT,   LB_GETTEXTLEN,   LB_GETCOUNT, LB_GETITEMDATA, LB_SETITEMDATA},
};

class Lists : public testing::TestWithParam<ListKind> {
  protected:
    Lists() : rig({Make(GetParam().className, 12, GetParam().style)}), kind(GetParam()) {}
    LRESULT Tell(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) { return Send(rig[12], message, wParam, lParam); }
    LRESULT Insert(int row, const char16_t* text)
    {
        return Tell(kind.insert, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
    }
    std::vector<std::u16string> Items()
    {
        std::vector<std::u16string> items;
        for (const ListItem& item : Find(rig[12])->As<ListState>()->items) items.push_back(item.text);
        return items;
    }
    Rig rig;
    const ListKind& kind;
};
INSTANTIATE_TEST_SUITE_P(Kinds, Lists, testing::ValuesIn(ListKinds),
                         [](const auto& kind) { return kind.param.add == CB_ADDSTRING ? "ComboBox" : "ListBox"; });

TEST_P(Lists, InsertAtAPositionAndAtTheEnd)
{
    EXPECT_EQ(Insert(0, u"b"), 0);
    EXPECT_EQ(Insert(0, u"a"), 0);
    EXPECT_EQ(Insert(-1, u"A"), 2);
    EXPECT_EQ(Insert(4, u"far"), CB_ERR);
    EXPECT_THAT(Items(), ElementsAre(u"a", u"b", u"A"));
    EXPECT_EQ(Tell(kind.count), 3);
}

TEST_P(Lists, TheSelectionStaysWithItsRow)
{
    for (const char16_t* text : {u"a", u"b", u"c"}) Insert(-1, text);
    EXPECT_EQ(Tell(kind.select, 1), 1);
    Insert(1, u"0");
    EXPECT_EQ(Tell(kind.selection), 2);
    EXPECT_EQ(Tell(kind.remove, 0), 3);
    EXPECT_EQ(Tell(kind.selection), 1);
    Tell(kind.remove, 1);
    EXPECT_EQ(Tell(kind.selection), CB_ERR);
    EXPECT_EQ(Tell(kind.remove, 2), CB_ERR);
    Tell(kind.select, 1);
    EXPECT_EQ(Tell(kind.select, 2), CB_ERR);
    EXPECT_EQ(Tell(kind.selection), CB_ERR);
}

TEST_P(Lists, GiveTextAndDataOfARow)
{
    Insert(-1, u"Letter");
    Tell(kind.setData, 0, -1);
    std::u16string text(7, u'x');
    EXPECT_EQ(Tell(kind.textLength, 0), 6);
    EXPECT_EQ(Tell(kind.text, 0, reinterpret_cast<LPARAM>(text.data())), 6);
    EXPECT_EQ(text, std::u16string(u"Letter\0", 7));
    EXPECT_EQ(Tell(kind.data, 0), -1);
    for (const UINT message : {kind.text, kind.textLength, kind.data, kind.setData})
        EXPECT_EQ(Tell(message, 1, reinterpret_cast<LPARAM>(text.data())), CB_ERR);
}

TEST_P(Lists, NotifyForEveryPickButNotForTheProgram)
{
    rig.Up([&] {
        for (const char16_t* text : {u"a", u"b"}) Insert(-1, text);
        Tell(kind.select, 1);
        EXPECT_THAT(rig.Log(), IsEmpty());
        EXPECT_EQ(Pick(rig[12], 0), Outcome::Done);
        EXPECT_EQ(Pick(rig[12], 0), Outcome::Done);
        EXPECT_THAT(rig.Log(), ElementsAre("pick 12", "pick 12"));
        EXPECT_EQ(Pick(rig[12], 2), Outcome::NoRow);
        EXPECT_EQ(Pick(rig[12], -1), Outcome::NoRow);
        for (const Key key : {Key::Up, Key::Down, Key::Down}) Press(rig.dialog, key);
        EXPECT_EQ(Tell(kind.selection), 1);
        Press(rig.dialog, Key::Up);
        EXPECT_EQ(Tell(kind.selection), 0);
        EXPECT_THAT(rig.Log(), ElementsAre("pick 12", "pick 12"));
        Tell(kind.reset);
        EXPECT_EQ(Tell(kind.selection), CB_ERR);
    });
}

TEST(ComboBox, ShowsItsRowAsText)
{
    Rig rig({Make(u"ComboBox", 12, Stop | CBS_DROPDOWNLIST)});
    AppendItem(rig[12], u"600 x 600", 0);
    Send(rig[12], CB_SETCURSEL, 0, 0);
    WCHAR text[20];
    EXPECT_EQ(GetDlgItemTextW(rig.dialog, 12, text, 20), 9u);
    EXPECT_EQ(std::u16string(text), u"600 x 600");
    EXPECT_FALSE(SetDlgItemTextW(rig.dialog, 12, u"other"));
    Send(rig[12], CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_EQ(GetDlgItemTextW(rig.dialog, 12, text, 20), 0u);
}

TEST(ListBox, SortsWhatIsAddedButNotWhatIsInserted)
{
    Rig rig({Make(u"ListBox", 12, Stop | LBS_SORT)});
    for (const char16_t* text : {u"b", u"C", u"a"}) Send(rig[12], LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    Send(rig[12], LB_INSERTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(u"0"));
    std::u16string all;
    for (const ListItem& item : Find(rig[12])->As<ListState>()->items) all += item.text;
    EXPECT_EQ(all, u"abC0");
}

class ListView : public testing::Test {
  protected:
    ListView() : rig({Make(u"Edit", 10, Stop), Make(u"SysListView32", 13, Stop | LVS_REPORT | LVS_SINGLESEL)})
    {
        for (int i = 0; i < 2; ++i) {
            LVCOLUMNW column{};
            column.mask = LVCF_WIDTH;
            column.cx = 100 + i;
            Send(rig[13], LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
        }
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
    std::u16string Cell(int row, int column, int room = 10)
    {
        WCHAR text[10] = {};
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = room;
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

TEST_F(ListView, TheMarkIsNotTheSelection)
{
    rig.Up([&] {
        SetState(1, LVIS_SELECTED);
        EXPECT_EQ(Mark(), -1);
        EXPECT_EQ(Send(rig[13], LVM_SETSELECTIONMARK, 0, 2), -1);
        EXPECT_EQ(Mark(), 2);
        EXPECT_EQ(Send(rig[13], LVM_GETITEMSTATE, 2, LVIS_SELECTED), 0);
        EXPECT_EQ(Send(rig[13], LVM_GETITEMSTATE, 1, LVIS_SELECTED), LRESULT{LVIS_SELECTED});
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
    EXPECT_EQ(Cell(2, 0), u"z");
    Send(rig[13], LVM_DELETEALLITEMS, 0, 0);
    EXPECT_EQ(Send(rig[13], LVM_GETITEMCOUNT, 0, 0), 0);
    EXPECT_EQ(Send(rig[13], LVM_DELETEITEM, 0, 0), FALSE);
}

TEST_F(ListView, CellsTakeAndGiveTextAndTheExtendedStyleGrows)
{
    std::u16string text = u"[210 x 297]";
    LVITEMW item{};
    item.iSubItem = 1;
    item.pszText = text.data();
    EXPECT_EQ(Send(rig[13], LVM_SETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&item)), TRUE);
    EXPECT_EQ(Cell(1, 1, 5), u"[210");
    EXPECT_EQ(Cell(1, 0), u"b");
    item.iSubItem = 2;
    EXPECT_EQ(Send(rig[13], LVM_SETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&item)), FALSE);
    Send(rig[13], LVM_SETEXTENDEDLISTVIEWSTYLE, 0, 0x1);
    EXPECT_EQ(Send(rig[13], LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT), 0x1);
    EXPECT_EQ(Send(rig[13], LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0), LRESULT{LVS_EX_FULLROWSELECT | 0x1});
}

// A handler may empty the list while it is told of a change.
TEST_F(ListView, SurvivesBeingEmptiedByItsNotice)
{
    rig.answer = [&](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_NOTIFY) Send(rig[13], LVM_DELETEALLITEMS, 0, 0);
        return FALSE;
    };
    rig.Up([&] {
        SelectRow(rig[13], 0);
        EXPECT_THAT(rig.Log(), ElementsAre("killfocus 10", "on 13:0"));
    });
}

struct RoomRow {
    const char16_t* className;
    UINT message;
    const char* name;
    LRESULT result;
};

TEST(Room, RunsOutByTheNameOfTheMessage)
{
    const RoomRow rows[] = {
        {u"ComboBox",      CB_ADDSTRING,    "CB_ADDSTRING",    CB_ERRSPACE},
        {u"ComboBox",      CB_INSERTSTRING, "CB_INSERTSTRING", CB_ERRSPACE},
        {u"ListBox",       LB_ADDSTRING,    "LB_ADDSTRING",    LB_ERRSPACE},
        {u"ListBox",       LB_INSERTSTRING, "LB_INSERTSTRING", LB_ERRSPACE},
        {u"SysListView32", LVM_INSERTITEMW, "LVM_INSERTITEMW", -1         },
    };
    for (const RoomRow& row : rows) {
        Rig rig({Make(row.className, 12, Stop)});
        LVITEMW item{};
        const LPARAM input =
            row.message == LVM_INSERTITEMW ? reinterpret_cast<LPARAM>(&item) : reinterpret_cast<LPARAM>(u"row");
        platform::CurrentEnvironment().faults.Add(row.name, 2, false);
        EXPECT_EQ(SendMessageW(rig[12], row.message, 0, input), 0) << row.name;
        EXPECT_EQ(SendDlgItemMessageW(rig.dialog, 12, row.message, 0, input), row.result) << row.name;
        EXPECT_EQ(SendMessageW(rig[12], row.message, 0, input),
                  row.message == CB_ADDSTRING || row.message == LB_ADDSTRING ? 1 : 0);
    }
}

}  // namespace user_tests
