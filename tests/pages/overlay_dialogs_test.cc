// The Form Overlay dialogs: the list, its rows and their editor, the file dialog, and what is stored.
#include <gtest/gtest.h>

#include "platform/services.h"
#include "tests/support/overlay_sheet.h"

namespace {

using namespace testing_support;

// The list dialog, with this row chosen.
class ListDialog : public OverlaySheet {
  public:
    explicit ListDialog(const std::vector<OverlayEntry>& rows = ThreeForms, int index = 0) : OverlaySheet(rows, index)
    {
        Click(IDC_EDIT_OVERLAY);
    }
    // "<NONE> [Letterhead] Invoice Draft NED": the rows, the selected one in brackets; New, Edit and Delete, where
    // they can be used.
    std::string List() { return Listed(Items(IDC_OVL_LIST), Selection(IDC_OVL_LIST)) + " " + Usable(); }
    SteppedDesktop& User() { return Machine().Desktop(); }
};

TEST(OverlayDialogs, StoreOneNewRowAtATimeAsPendingAndKeepTheChoice)
{
    ListDialog dialog(ThreeForms, 1);
    dialog.Add(u"Contract", u"contract");
    EXPECT_EQ(dialog.User().messagesSeen,
              Names{u"Close the open dialogs with OK and print the form from this application: that print job makes "
                    u"the overlay file.\nThen open these settings again and choose the overlay in the list."});
    EXPECT_EQ(dialog.List(), "<NONE> Letterhead Invoice Draft [Contract] D");
    EXPECT_EQ(dialog.Choose(IDC_OVL_LIST, 0).Enabled(IDC_OVL_DELETE), false);
    dialog.Choose(IDC_OVL_LIST, 4).Click(IDOK);
    EXPECT_EQ(OverlayIndex, 1);
    const StoredOverlays stored = dialog.Stored();
    EXPECT_EQ(stored.size, 4u + 4 * 1060);
    EXPECT_EQ(stored.index, 1u);
    ASSERT_EQ(stored.rows.size(), 4u);
    EXPECT_EQ(std::u16string(stored.rows[3].ovName), u"Contract");
    EXPECT_EQ(stored.rows[3].ovPath, dialog.Path(u"contract.oxl"));
    EXPECT_EQ(stored.rows[3].ovPending, 1u);
}

TEST(OverlayDialogs, EditNameAndPathInPlace)
{
    ListDialog dialog(ThreeForms, 1);
    dialog.MakeFile("other.oxl");
    dialog.Choose(IDC_OVL_LIST, 2).Click(IDC_OVL_EDIT).Type(IDC_OVL_NAME, u"Cancelled").Click(IDCANCEL);
    dialog.Click(IDC_OVL_EDIT);
    EXPECT_EQ(dialog.Text(IDC_OVL_NAME) + dialog.Text(IDC_OVL_PATH), u"Invoice/forms/invoice.oxl");
    dialog.User().fileAnswers = {dialog.Path(u"other.oxl")};
    dialog.Type(IDC_OVL_NAME, u"Bill").Click(IDC_OVL_BROWSE).Click(IDOK);
    EXPECT_EQ(dialog.List(), "<NONE> Letterhead [Bill] Draft NED");
    dialog.Click(IDOK);
    const StoredOverlays stored = dialog.Stored();
    EXPECT_EQ(stored.index, 2u);
    ASSERT_EQ(stored.rows.size(), 3u);
    EXPECT_EQ(stored.rows[1].ovPath, dialog.Path(u"other.oxl"));
    EXPECT_EQ(stored.rows[1].ovPending, 0u);
}

TEST(OverlayDialogs, SelectWhatFollowsADeletedRow)
{
    ListDialog dialog(ThreeForms, 1);
    dialog.Click(IDC_OVL_DELETE);
    EXPECT_EQ(dialog.List(), "<NONE> [Invoice] Draft NED");
    dialog.Choose(IDC_OVL_LIST, 2).Click(IDC_OVL_DELETE);
    EXPECT_EQ(dialog.List(), "<NONE> [Invoice] NED");
    dialog.Click(IDC_OVL_DELETE);
    EXPECT_EQ(dialog.List(), "[<NONE>] N");
    dialog.Send(WM_COMMAND, IDC_OVL_DELETE, 0);
    EXPECT_EQ(dialog.List(), "[<NONE>] N");
    dialog.Click(IDOK);
    EXPECT_EQ(dialog.Stored().size, 0u);
    EXPECT_EQ(OverlayIndex, 0);
}

TEST(OverlayDialogs, TakeBackEveryChangeWithCancel)
{
    ListDialog dialog(ThreeForms, 1);
    dialog.Click(IDC_OVL_DELETE);
    dialog.Add(u"Contract", u"contract").Choose(IDC_OVL_LIST, 0).Click(IDCANCEL);
    EXPECT_EQ(OverlayIndex, 1);
    EXPECT_EQ(dialog.Items(IDC_OVERLAY), (Names{u"<NONE>", u"Letterhead", u"Invoice", u"Draft"}));
}

TEST(OverlayDialogs, SuggestANameForAnEmptyOne)
{
    ListDialog dialog;
    dialog.User().fileAnswers = {dialog.Path(u"a")};
    dialog.Click(IDC_OVL_NEW).Click(IDOK);
    EXPECT_EQ(dialog.Text(IDC_OVL_NAME), u"Form Overlay-4-");
    dialog.Click(IDOK);
    EXPECT_EQ(dialog.User().messagesSeen, Names{u"The specific file is not found in this directory."});
    dialog.Click(IDC_OVL_BROWSE).Click(IDOK);
    EXPECT_EQ(dialog.List(), "<NONE> Letterhead Invoice Draft [Form Overlay-4-] D");
}

TEST(OverlayDialogs, LimitNamesAndLetPathsComeFromBrowsingOnly)
{
    ListDialog dialog;
    dialog.Click(IDC_OVL_NEW).Type(IDC_OVL_NAME, std::u16string(300, u'n'));
    EXPECT_EQ(dialog.Text(IDC_OVL_NAME).size(), 260u);
    const HWND path = dialog.Handle(IDC_OVL_PATH);
    EXPECT_EQ(dialog.Try([path](HWND) { return platform::user::Type(path, u"x"); }), platform::user::Outcome::ReadOnly);
}

TEST(OverlayDialogs, BrowseForANewFileOrFromThePathOfTheRow)
{
    constexpr DWORD New = 0xA8082E, OfTheRow = 0xA8182E;
    const std::u16string here = std::filesystem::current_path().u16string();
    for (const auto& [path, asked, flags] : {
             std::tuple{u"",                   here + u"|",           New     },
             {u"/forms/invoice.oxl", u"/forms|invoice.oxl", OfTheRow},
             {u"/invoice.oxl",       u"/|invoice.oxl",      OfTheRow},
             {u"here.oxl",           here + u"|here.oxl",   OfTheRow},
    }) {
        ListDialog dialog({Overlay(u"A", path)}, 1);
        dialog.Click(flags == New ? IDC_OVL_NEW : IDC_OVL_EDIT).Click(IDC_OVL_BROWSE);
        ASSERT_EQ(dialog.User().filesAsked.size(), 1u);
        const platform::FileDialogRequest& request = dialog.User().filesAsked[0];
        EXPECT_EQ(request.save, flags == New);
        EXPECT_EQ(request.title, u"File");
        EXPECT_EQ(request.directory + u"|" + request.name, asked) << platform::ToUtf8(path);
        EXPECT_EQ(request.defaultExtension, u"oxl");
        EXPECT_EQ(request.flags, flags);
        std::u16string filters;
        for (const auto& filter : request.filters) filters += filter.name + u"|" + filter.patterns + u"|";
        EXPECT_EQ(filters, u"Palette Files (*.oxl)|*.oxl|All Files (*.*)|*.*|");
    }
}

TEST(OverlayDialogs, RefusePathsThatARowHasNoRoomFor)
{
    for (const auto& [length, nameLength, refused] : {
             std::tuple<std::size_t, std::size_t, bool>{250, 10, true },
               {249, 10, false},
               {300, 10, true }
    }) {
        ListDialog dialog;
        std::u16string folder = dialog.Folder();
        while (folder.size() < length)
            folder += u"/" + std::u16string(std::min<std::size_t>(200, length - folder.size() - 1), u'f');
        std::filesystem::create_directories(folder);
        const std::u16string name = std::u16string(nameLength - 4, u'n') + u".oxl";
        dialog.User().fileAnswers = {folder + u"/" + name, dialog.Path(u"short")};
        dialog.Click(IDC_OVL_NEW).Click(IDC_OVL_BROWSE);
        EXPECT_EQ(dialog.Text(IDC_OVL_PATH), refused ? dialog.Path(u"short.oxl") : folder + u"/" + name) << length;
        const Names said = {u"The path you entered, '" + name + u"', is too long. Enter shorter path."};
        EXPECT_EQ(dialog.User().messagesSeen, refused ? said : Names{});
    }
}

// A list box without room shows fewer rows, and OK stores what it shows.
TEST(OverlayDialogs, ShowWhatTheListBoxHasRoomFor)
{
    ListDialog dialog(ThreeForms, 1);
    dialog.Click(IDCANCEL);
    dialog.Machine().Fail("LB_INSERTSTRING", 3);
    dialog.Click(IDC_EDIT_OVERLAY);
    EXPECT_EQ(dialog.List(), "<NONE> [Letterhead] NED");
    dialog.Machine().Fail("LB_INSERTSTRING");
    dialog.Add(u"Contract", u"contract");
    EXPECT_EQ(dialog.List(), "<NONE> [Letterhead] NED");
    dialog.Click(IDOK);
    EXPECT_EQ(dialog.StoredNames(), Names{u"Letterhead"});
}

}  // namespace
