// The Form Overlay dialogs on top of a sheet, with the list that a page keeps: loaded before the list dialog and
// loaded anew behind it.
#include "pages/overlay_dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "module.h"
#include "pages/overlay_browse.h"
#include "platform/kernel.h"
#include "platform/kernel/memory.h"
#include "platform/services.h"
#include "platform/user/window.h"
#include "resources/control_numbers.h"
#include "tests/support/failing_places.h"
#include "tests/support/overlays.h"
#include "tests/support/sheet_driver.h"
#include "watermark/overlay_list.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;
using Names = std::vector<std::u16string>;

const std::vector<OverlayEntry> Three = {Overlay(u"Letterhead", u"/forms/letterhead.oxl"),
                                         Overlay(u"Invoice", u"/forms/invoice.oxl"),
                                         Overlay(u"Draft", u"/forms/draft.oxl")};

std::vector<OverlayEntry> WithPending()
{
    std::vector<OverlayEntry> rows = Three;
    rows.back().ovPending = 1;
    return rows;
}

// A folder that exists, for the file dialog.
class Forms {
  public:
    Forms() : path_(std::filesystem::temp_directory_path() / ("overlays." + std::to_string(::getpid())))
    {
        std::filesystem::create_directories(path_);
    }
    ~Forms() { std::filesystem::remove_all(path_); }
    Forms(const Forms&) = delete;
    Forms& operator=(const Forms&) = delete;
    std::u16string Within(std::u16string_view name) const { return path_.u16string() + u"/" + std::u16string(name); }
    void Make(const char* name) const { std::ofstream(path_ / name) << "x"; }
    std::u16string Folder() const { return path_.u16string(); }

  private:
    std::filesystem::path path_;
};

class OverlayDialogs : public testing::Test {
  protected:
    ~OverlayDialogs() override
    {
        Close();
        OverlayIndex = 0;
        EXPECT_EQ(platform::memory::BlockCount(), blocks_);
    }
    // Brings up the list dialog with the row chosen.
    Sheet& Open(const std::vector<OverlayEntry>& rows, int index = 0)
    {
        sheet_.reset();
        sheet_ = std::make_unique<Sheet>(Sheet::Prepare(),
                                         [&](TestMachine& machine) { StoreOverlays(machine, TestPrinter, rows); });
        OverlayIndex = index;
        Again();
        return *sheet_;
    }
    void Again()
    {
        ended_ = -2;
        sheet_->Try([this](HWND page) {
            LoadOverlayList(OverlayList, OverlaySelected, OverlayEditing, OverlayIndex);
            ended_ = DialogBoxParamW(ResourceHandle, ResourceName(IDD_OVERLAY_LIST), page, OverlayList_DlgProc, 0);
            FreeOverlayEntries(OverlayList);
            LoadOverlayList(OverlayList, OverlaySelected, OverlayEditing, OverlayIndex);
            listed_.clear();
            for (const OverlayEntry* row = OverlayList; row; row = NextOverlay(row)) listed_.emplace_back(row->ovName);
            FreeOverlayEntries(OverlayList);
            OverlayList = nullptr;
            return platform::user::Outcome::Done;
        });
    }
    void Close()
    {
        sheet_.reset();
        FreeOverlayEntries(OverlayList);
        OverlayList = OverlaySelected = OverlayEditing = nullptr;
    }
    Sheet& Dialog() { return *sheet_; }
    SteppedDesktop& Desktop() { return sheet_->Machine().Desktop(); }
    StoredOverlays Stored() { return OverlaysOf(sheet_->Machine(), TestPrinter); }
    Names StoredNames()
    {
        Names names;
        for (const OverlayEntry& row : Stored().rows) names.emplace_back(row.ovName);
        return names;
    }
    // New, Edit and Delete as letters, those that can be used.
    std::string Usable()
    {
        std::string usable;
        if (Dialog().Enabled(IDC_OVL_NEW)) usable += 'N';
        if (Dialog().Enabled(IDC_OVL_EDIT)) usable += 'E';
        if (Dialog().Enabled(IDC_OVL_DELETE)) usable += 'D';
        return usable;
    }
    // A new row with a file in the folder.
    void Add(const std::u16string& name, const std::u16string& file)
    {
        Desktop().fileAnswers.push_back(forms_.Within(file));
        Dialog().Click(IDC_OVL_NEW).Type(IDC_OVL_NAME, name).Click(IDC_OVL_BROWSE).Click(IDOK);
    }
    INT_PTR ended_ = -2;
    Names listed_;  // after the dialog, loaded anew
    Forms forms_;
    std::size_t blocks_ = platform::memory::BlockCount();

  private:
    std::unique_ptr<Sheet> sheet_;
};

TEST_F(OverlayDialogs, ListTheRowsWithTheChosenOneSelected)
{
    Open(Three, 2);
    EXPECT_EQ(Dialog().Template(), IDD_OVERLAY_LIST);
    EXPECT_THAT(Dialog().Items(IDC_OVL_LIST), ElementsAre(u"<NONE>", u"Letterhead", u"Invoice", u"Draft"));
    EXPECT_EQ(Dialog().Selection(IDC_OVL_LIST), 2);
    EXPECT_EQ(Usable(), "NED");
}

struct ButtonRow {
    bool pending;
    int selected;
    const char* usable;
};

TEST_F(OverlayDialogs, OfferWhatTheSelectedRowAllows)
{
    for (const ButtonRow& row : {
             ButtonRow{false, 0, "N"  },
             ButtonRow{false, 1, "NED"},
             ButtonRow{false, 3, "NED"},
             ButtonRow{true,  0, ""   },
             ButtonRow{true,  1, "D"  },
             ButtonRow{true,  3, "D"  },
    }) {
        Open(row.pending ? WithPending() : Three, row.selected);
        EXPECT_EQ(Usable(), row.usable) << "opened on " << row.selected;
        Dialog().Choose(IDC_OVL_LIST, 0);
        Dialog().Choose(IDC_OVL_LIST, row.selected);
        EXPECT_EQ(Usable(), row.usable) << "chosen " << row.selected;
    }
}

TEST_F(OverlayDialogs, StoreANewRowAsPendingAndKeepTheChoice)
{
    Open(Three, 1);
    Add(u"Contract", u"contract");
    EXPECT_THAT(Dialog().Items(IDC_OVL_LIST), ElementsAre(u"<NONE>", u"Letterhead", u"Invoice", u"Draft", u"Contract"));
    EXPECT_EQ(Dialog().Selection(IDC_OVL_LIST), 4);
    EXPECT_EQ(Usable(), "D");
    Dialog().Click(IDOK);
    EXPECT_EQ(ended_, 1);
    EXPECT_EQ(OverlayIndex, 1);
    const StoredOverlays stored = Stored();
    EXPECT_EQ(stored.size, 4u + 4 * 1060);
    EXPECT_EQ(stored.index, 1u);
    ASSERT_EQ(stored.rows.size(), 4u);
    EXPECT_EQ(std::u16string(stored.rows[3].ovName), u"Contract");
    EXPECT_EQ(std::u16string(stored.rows[3].ovPath), forms_.Within(u"contract.oxl"));
    EXPECT_EQ(stored.rows[3].ovPending, 1u);
    EXPECT_EQ(listed_, (Names{u"<NONE>", u"Letterhead", u"Invoice", u"Draft", u"Contract"}));
}

TEST_F(OverlayDialogs, TellOnceWhatANewOverlayNeeds)
{
    Open({});
    Add(u"Contract", u"contract");
    ASSERT_EQ(Desktop().messagesSeen.size(), 1u);
    EXPECT_EQ(Desktop().messagesSeen[0],
              u"Close the open dialogs with OK and print the form from this application: that print job makes the "
              u"overlay file.\nThen open these settings again and choose the overlay in the list.");
}

TEST_F(OverlayDialogs, ChooseTheSelectedRowAtOk)
{
    Open(Three, 1);
    Dialog().Choose(IDC_OVL_LIST, 3).Click(IDOK);
    EXPECT_EQ(OverlayIndex, 3);
    EXPECT_EQ(Stored().index, 3u);
}

TEST_F(OverlayDialogs, EditNameAndPathInPlace)
{
    forms_.Make("other.oxl");
    Open(Three, 2);
    Dialog().Click(IDC_OVL_EDIT);
    EXPECT_EQ(Dialog().Template(), IDD_OVERLAY_EDIT);
    EXPECT_EQ(Dialog().Text(IDC_OVL_NAME), u"Invoice");
    EXPECT_EQ(Dialog().Text(IDC_OVL_PATH), u"/forms/invoice.oxl");
    Desktop().fileAnswers.push_back(forms_.Within(u"other.oxl"));
    Dialog().Type(IDC_OVL_NAME, u"Bill").Click(IDC_OVL_BROWSE).Click(IDOK);
    EXPECT_THAT(Dialog().Items(IDC_OVL_LIST), ElementsAre(u"<NONE>", u"Letterhead", u"Bill", u"Draft"));
    EXPECT_EQ(Dialog().Selection(IDC_OVL_LIST), 2);
    EXPECT_EQ(Usable(), "NED");
    EXPECT_TRUE(Desktop().messagesSeen.empty());
    Dialog().Click(IDOK);
    const StoredOverlays stored = Stored();
    ASSERT_EQ(stored.rows.size(), 3u);
    EXPECT_EQ(std::u16string(stored.rows[1].ovName), u"Bill");
    EXPECT_EQ(std::u16string(stored.rows[1].ovPath), forms_.Within(u"other.oxl"));
    EXPECT_EQ(stored.rows[1].ovPending, 0u);
    EXPECT_EQ(OverlayIndex, 2);
}

TEST_F(OverlayDialogs, EditTheHeadWhereTheChoiceIsNotListed)
{
    Open(Three, 7);
    EXPECT_EQ(Dialog().Selection(IDC_OVL_LIST), -1);
    Dialog().Click(IDC_OVL_DELETE).Click(IDC_OVL_EDIT);
    EXPECT_EQ(Dialog().Text(IDC_OVL_NAME), u"<NONE>");
    Dialog().Type(IDC_OVL_NAME, u"Bill").Click(IDOK);
    EXPECT_EQ(Dialog().Items(IDC_OVL_LIST), (Names{u"<NONE>", u"Letterhead", u"Invoice", u"Draft"}));
    Dialog().Click(IDOK);
    EXPECT_EQ(StoredNames(), (Names{u"Letterhead", u"Invoice", u"Draft"}));
    EXPECT_EQ(OverlayIndex, 7);
}

TEST_F(OverlayDialogs, LeaveTheRowWhenTheEditorIsCancelled)
{
    Open(Three, 2);
    Dialog().Click(IDC_OVL_EDIT).Type(IDC_OVL_NAME, u"Bill").Click(IDCANCEL);
    Dialog().Click(IDC_OVL_NEW).Type(IDC_OVL_NAME, u"More").CloseDialog();
    EXPECT_EQ(Dialog().Items(IDC_OVL_LIST), (Names{u"<NONE>", u"Letterhead", u"Invoice", u"Draft"}));
    Dialog().Click(IDOK);
    EXPECT_EQ(StoredNames(), (Names{u"Letterhead", u"Invoice", u"Draft"}));
}

struct DeleteRow {
    int deleted;
    int selected;
    Names left;
    const char* usable;
};

TEST_F(OverlayDialogs, SelectWhatFollowsADeletedRow)
{
    for (const DeleteRow& row : {
             DeleteRow{1, 1, {u"Invoice", u"Draft"},      "NED"},
             DeleteRow{2, 2, {u"Letterhead", u"Draft"},   "NED"},
             DeleteRow{3, 2, {u"Letterhead", u"Invoice"}, "NED"},
    }) {
        Open(Three, row.deleted);
        Dialog().Click(IDC_OVL_DELETE);
        EXPECT_EQ(Dialog().Selection(IDC_OVL_LIST), row.selected) << row.deleted;
        EXPECT_EQ(Usable(), row.usable);
        Dialog().Click(IDOK);
        EXPECT_EQ(StoredNames(), row.left);
        EXPECT_EQ(OverlayIndex, row.selected);
    }
}

TEST_F(OverlayDialogs, DeleteDownToTheHead)
{
    Open(Three, 1);
    Dialog().Click(IDC_OVL_DELETE).Click(IDC_OVL_DELETE).Click(IDC_OVL_DELETE);
    EXPECT_THAT(Dialog().Items(IDC_OVL_LIST), ElementsAre(u"<NONE>"));
    EXPECT_EQ(Usable(), "N");
    Dialog().Send(WM_COMMAND, IDC_OVL_DELETE, 0);
    EXPECT_THAT(Dialog().Items(IDC_OVL_LIST), ElementsAre(u"<NONE>"));
    Dialog().Click(IDOK);
    EXPECT_EQ(Stored().size, 0u);
    EXPECT_EQ(OverlayIndex, 0);
}

TEST_F(OverlayDialogs, MakeRoomForANewRowByDeletingThePendingOne)
{
    Open(WithPending(), 3);
    Dialog().Click(IDC_OVL_DELETE);
    EXPECT_EQ(Usable(), "NED");
    Add(u"Contract", u"contract");
    Dialog().Click(IDC_OVL_DELETE);
    EXPECT_EQ(Usable(), "NED");
    Dialog().Click(IDOK);
    EXPECT_EQ(StoredNames(), (Names{u"Letterhead", u"Invoice"}));
}

TEST_F(OverlayDialogs, TakeBackEveryChangeWithCancel)
{
    Open(Three, 1);
    Dialog().Click(IDC_OVL_DELETE);
    Add(u"Contract", u"contract");
    Dialog().Choose(IDC_OVL_LIST, 0).Click(IDCANCEL);
    EXPECT_EQ(ended_, 0);
    EXPECT_EQ(OverlayIndex, 1);
    EXPECT_EQ(StoredNames(), (Names{u"Letterhead", u"Invoice", u"Draft"}));
    EXPECT_EQ(listed_, (Names{u"<NONE>", u"Letterhead", u"Invoice", u"Draft"}));
}

TEST_F(OverlayDialogs, SuggestANameForAnEmptyOne)
{
    Open(Three);
    Desktop().fileAnswers.push_back(forms_.Within(u"a"));
    Dialog().Click(IDC_OVL_NEW).Click(IDOK);
    EXPECT_EQ(Dialog().Text(IDC_OVL_NAME), u"Form Overlay-4-");
    EXPECT_TRUE(Desktop().messagesSeen.empty());
    Dialog().Click(IDOK);
    EXPECT_EQ(Desktop().messagesSeen, Names{u"The specific file is not found in this directory."});
    Dialog().Click(IDC_OVL_BROWSE).Click(IDOK);
    EXPECT_EQ(Dialog().Template(), IDD_OVERLAY_LIST);
    EXPECT_EQ(Dialog().Items(IDC_OVL_LIST).back(), u"Form Overlay-4-");
}

TEST_F(OverlayDialogs, LimitNamesAndLetPathsComeFromBrowsingOnly)
{
    Open({});
    Dialog().Click(IDC_OVL_NEW).Type(IDC_OVL_NAME, std::u16string(300, u'n'));
    EXPECT_EQ(Dialog().Text(IDC_OVL_NAME).size(), 260u);
    const HWND path = Dialog().Handle(IDC_OVL_PATH);
    EXPECT_EQ(Dialog().Try([path](HWND) { return platform::user::Type(path, u"x"); }),
              platform::user::Outcome::ReadOnly);
}

TEST_F(OverlayDialogs, BrowseFromTheCurrentFolderForANewFile)
{
    Open({});
    Dialog().Click(IDC_OVL_NEW).Click(IDC_OVL_BROWSE);
    ASSERT_EQ(Desktop().filesAsked.size(), 1u);
    const platform::FileDialogRequest& request = Desktop().filesAsked[0];
    EXPECT_TRUE(request.save);
    EXPECT_EQ(request.title, u"File");
    EXPECT_EQ(request.directory, std::filesystem::current_path().u16string());
    EXPECT_EQ(request.name, u"");
    EXPECT_EQ(request.defaultExtension, u"oxl");
    EXPECT_EQ(request.flags, 0xA8082Eu);
    ASSERT_EQ(request.filters.size(), 2u);
    EXPECT_EQ(request.filters[0].name, u"Palette Files (*.oxl)");
    EXPECT_EQ(request.filters[0].patterns, u"*.oxl");
    EXPECT_EQ(request.filters[1].name, u"All Files (*.*)");
    EXPECT_EQ(request.filters[1].patterns, u"*.*");
    EXPECT_EQ(Dialog().Text(IDC_OVL_PATH), u"");
}

struct StartRow {
    std::u16string path, folder, name;
};

TEST_F(OverlayDialogs, BrowseFromThePathOfTheRow)
{
    for (const StartRow& row : {
             StartRow{u"/forms/invoice.oxl", u"/forms",                                   u"invoice.oxl"},
             StartRow{u"/invoice.oxl",       u"/",                                        u"invoice.oxl"},
             StartRow{u"/forms/",            u"/forms",                                   u""           },
             StartRow{u"here.oxl",           std::filesystem::current_path().u16string(), u"here.oxl"   },
             StartRow{u"-New-",              std::filesystem::current_path().u16string(), u"-New-"      },
    }) {
        Open({Overlay(u"A", row.path)}, 1);
        Dialog().Click(IDC_OVL_EDIT).Click(IDC_OVL_BROWSE);
        ASSERT_EQ(Desktop().filesAsked.size(), 1u);
        EXPECT_FALSE(Desktop().filesAsked[0].save);
        EXPECT_EQ(Desktop().filesAsked[0].flags, 0xA8182Eu);
        EXPECT_EQ(Desktop().filesAsked[0].directory, row.folder);
        EXPECT_EQ(Desktop().filesAsked[0].name, row.name);
        EXPECT_EQ(Dialog().Text(IDC_OVL_PATH), row.path);
    }
}

TEST_F(OverlayDialogs, LetTheFileDialogRefuseAFileThatDoesNotExist)
{
    Open(Three, 2);
    forms_.Make("there.oxl");
    Desktop().fileAnswers = {forms_.Within(u"missing"), forms_.Within(u"there")};
    Dialog().Click(IDC_OVL_EDIT).Click(IDC_OVL_BROWSE);
    EXPECT_EQ(Dialog().Text(IDC_OVL_PATH), forms_.Within(u"there.oxl"));
    EXPECT_EQ(Desktop().messagesSeen.size(), 1u);
}

struct LongRow {
    int folder, name;
    bool refused;
};

TEST_F(OverlayDialogs, RefusePathsThatARowHasNoRoomFor)
{
    for (const LongRow& row : {
             LongRow{250, 10, true },
             LongRow{249, 10, false},
             LongRow{249, 11, true },
             LongRow{300, 10, true },
    }) {
        std::u16string folder = forms_.Folder();
        while (static_cast<int>(folder.size()) < row.folder)
            folder += u"/" + std::u16string(std::min<std::size_t>(200, row.folder - folder.size() - 1), u'f');
        std::filesystem::create_directories(folder);
        const std::u16string name = std::u16string(row.name - 4, u'n') + u".oxl";
        Open({});
        Desktop().fileAnswers = {folder + u"/" + name, forms_.Within(u"short")};
        Dialog().Click(IDC_OVL_NEW).Click(IDC_OVL_BROWSE);
        EXPECT_EQ(Dialog().Text(IDC_OVL_PATH), row.refused ? forms_.Within(u"short.oxl") : folder + u"/" + name);
        const Names said = {u"The path you entered, '" + name + u"', is too long. Enter shorter path."};
        EXPECT_EQ(Desktop().messagesSeen, row.refused ? said : Names{}) << row.folder << " and " << row.name;
    }
}

TEST_F(OverlayDialogs, StoreNothingWithoutThePrinter)
{
    Open(Three, 1);
    Dialog().Click(IDC_OVL_DELETE);
    Dialog().Machine().Fail("OpenPrinterW");
    Dialog().Click(IDOK);
    EXPECT_EQ(ended_, 1);
    EXPECT_EQ(StoredNames(), (Names{u"Letterhead", u"Invoice", u"Draft"}));
}

TEST_F(OverlayDialogs, AnswerWithHelp)
{
    Open(Three, 1);
    Dialog().Click(IDC_HELP).HelpOn(IDC_OVL_DELETE).Click(IDC_OVL_EDIT);
    Dialog().Click(IDC_HELP).HelpOn(IDC_OVL_PATH);
    NMHDR help{nullptr, 0, PSN_HELP};
    Dialog().Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&help));
    std::vector<std::tuple<int, UINT, DWORD>> seen;
    for (const HelpSeen& one : Dialog().HelpSeenSoFar()) seen.emplace_back(one.control, one.command, one.context);
    EXPECT_THAT(seen, ElementsAre(std::tuple(0, HELP_CONTEXT, 5113), std::tuple(IDC_OVL_DELETE, HELP_WM_HELP, 5113),
                                  std::tuple(0, HELP_CONTEXT, 5113), std::tuple(IDC_OVL_PATH, HELP_WM_HELP, 5113),
                                  std::tuple(0, HELP_FINDER, 0)));
}

// A list box without room shows fewer rows, and OK stores what it shows.
TEST_F(OverlayDialogs, ShowWhatTheListBoxHasRoomFor)
{
    Open(Three, 1);
    Dialog().CloseDialog();
    Dialog().Machine().Fail("LB_INSERTSTRING", 3);
    Again();
    EXPECT_THAT(Dialog().Items(IDC_OVL_LIST), ElementsAre(u"<NONE>", u"Letterhead"));
    Dialog().Machine().Fail("LB_INSERTSTRING", 4);
    Add(u"Contract", u"contract");
    EXPECT_THAT(Dialog().Items(IDC_OVL_LIST), ElementsAre(u"<NONE>", u"Letterhead"));
    EXPECT_EQ(Usable(), "NED");
    Dialog().Click(IDOK);
    EXPECT_EQ(StoredNames(), Names{u"Letterhead"});
}

// Every call of every platform function fails once, over a walk through both dialogs: nothing is lost, released
// twice or walked through after its release, and what is stored is a list.
TEST_F(OverlayDialogs, SurviveEveryCallThatFails)
{
    forms_.Make("other.oxl");
    const auto walk = [&] {
        auto& dialog = Dialog();
        const auto click = [&](int control) {
            dialog.Try([control](HWND page) { return platform::user::Click(platform::user::Control(page, control)); });
        };
        const auto type = [&](int control, const char16_t* text) {
            dialog.Try([=](HWND page) { return platform::user::Type(platform::user::Control(page, control), text); });
        };
        const auto pick = [&](int row) {
            dialog.Try(
                [=](HWND page) { return platform::user::Pick(platform::user::Control(page, IDC_OVL_LIST), row); });
        };
        Desktop().fileAnswers = {forms_.Within(u"other.oxl"), forms_.Within(u"new.oxl")};
        pick(2);
        click(IDC_OVL_EDIT);
        type(IDC_OVL_NAME, u"Bill");
        click(IDC_OVL_BROWSE);
        click(IDC_HELP);
        click(IDOK);
        click(IDC_OVL_DELETE);
        click(IDC_OVL_NEW);
        click(IDOK);
        click(IDC_OVL_BROWSE);
        click(IDOK);
        pick(1);
        for (int i = 0; i < 3 && dialog.Template() != 0 && ended_ == -2; ++i) click(IDOK);
    };
    auto& faults = platform::CurrentEnvironment().faults;
    Open(Three, 1);
    Dialog().CloseDialog();
    faults.Clear();
    faults.CountCalls(true);
    Again();
    walk();
    EXPECT_EQ(ended_, 1);
    EXPECT_EQ(StoredNames(), (Names{u"Letterhead", u"Draft", u"Form Overlay-3-"}));
    const auto calls = faults.Calls();
    const auto places = testing_support::FailingPlaces({calls.begin(), calls.end()}, 10);
    EXPECT_GT(places.size(), 20u);
    for (const auto& [function, call] : places) {
        SCOPED_TRACE(function + " " + std::to_string(call));
        Open(Three, 1);
        Dialog().CloseDialog();
        faults.Clear();
        faults.Add(function, call, false);
        Again();
        walk();
        faults.Clear();
        const StoredOverlays stored = Stored();
        Close();
        if (function == "GlobalFree") ++blocks_;  // what cannot be freed stays
        EXPECT_EQ(platform::memory::BlockCount(), blocks_);
        EXPECT_TRUE(stored.size == 0 || stored.size == 4 + stored.rows.size() * sizeof(OverlayEntry));
        // What could not be loaded or shown is not there to be saved.
        const std::set<std::string> incomplete = {"GetPrinterDataW", "GlobalAlloc", "GlobalLock", "LB_INSERTSTRING",
                                                  "OpenPrinterW"};
        EXPECT_TRUE(incomplete.contains(function) || !stored.rows.empty());
    }
}

}  // namespace
