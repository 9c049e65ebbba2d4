// The Form Overlay dialogs on top of a sheet, with the list that a page keeps: loaded before the list dialog and
// loaded anew behind it.
#include "pages/overlay_dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "module.h"
#include "pages/overlay_browse.h"
#include "platform/kernel.h"
#include "platform/kernel/memory.h"
#include "platform/services.h"
#include "resources/control_numbers.h"
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
        sheet_.reset();
        FreeOverlayEntries(OverlayList);
        OverlayList = OverlaySelected = OverlayEditing = nullptr;
        OverlayIndex = 0;
        EXPECT_EQ(platform::memory::BlockCount(), blocks_);
    }
    // Brings up the list dialog with the row chosen.
    Sheet& Open(const std::vector<OverlayEntry>& rows, int index = 0)
    {
        sheet_.reset();
        sheet_ = std::make_unique<Sheet>(
            Sheet::Prepare(), [&](TestMachine& machine) { StoreOverlays(machine, TestPrinter, rows); });
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

  private:
    std::size_t blocks_ = platform::memory::BlockCount();
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

}  // namespace
