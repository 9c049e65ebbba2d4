// The way of a form overlay: made in the dialogs of the Setup page, taken along by the sheet's OK, made by a job,
// and then there to be chosen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "events/document_event.h"
#include "platform/kernel/memory.h"
#include "platform/kernel/unicode.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "tests/support/overlays.h"
#include "tests/support/sheet_driver.h"
#include "watermark/overlay_list.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

class OverlayWay : public testing::Test {
  protected:
    ~OverlayWay() override
    {
        sheet_.reset();
        EXPECT_EQ(OverlayList, nullptr);
        EXPECT_EQ(platform::memory::BlockCount(), blocks_);
    }
    Sheet& Open(const std::vector<OverlayEntry>& rows, const Sheet::Prepare& prepare = {})
    {
        sheet_.reset();
        sheet_ =
            std::make_unique<Sheet>(prepare, [&](TestMachine& machine) { StoreOverlays(machine, TestPrinter, rows); });
        sheet_->Page(u"Setup");
        return *sheet_;
    }
    // A new overlay in the dialogs, which stay open.
    void Make(const std::u16string& name)
    {
        const auto file = (std::filesystem::temp_directory_path() / (platform::ToUtf8(name) + ".oxl")).u16string();
        sheet_->Machine().Desktop().fileAnswers.push_back(file);
        sheet_->Click(IDC_EDIT_OVERLAY).Click(IDC_OVL_NEW).Type(IDC_OVL_NAME, name);
        sheet_->Click(IDC_OVL_BROWSE).Click(IDOK);
    }
    std::vector<OverlayEntry> Stored() { return OverlaysOf(sheet_->Machine(), TestPrinter).rows; }
    // A job prints to its end in the process that had the sheet up.
    void Print() { DrvDocumentEvent(nullptr, nullptr, DOCUMENTEVENT_ENDDOC, 0, nullptr, 0, nullptr); }
    static std::u16string FileIn(const DriverDevMode& record) { return record.dmOverlayFile; }

    const std::u16string made_ = (std::filesystem::temp_directory_path() / "Contract.oxl").u16string();

  private:
    std::size_t blocks_ = platform::memory::BlockCount();
    std::unique_ptr<Sheet> sheet_;
};

TEST_F(OverlayWay, LeadsThroughAJobBackIntoTheList)
{
    Sheet& first = Open({Overlay(u"Letterhead", u"/letterhead.oxl")});
    Make(u"Contract");
    first.Click(IDOK);
    EXPECT_EQ(first.Template(), IDD_SETUP);
    EXPECT_THAT(first.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead"));
    const DriverDevMode record = first.Ok();
    EXPECT_EQ(record.dmOverlayState, 2);
    EXPECT_EQ(FileIn(record), made_);
    EXPECT_EQ(record.dmOverlayIndex, 0);
    Print();
    ASSERT_EQ(Stored().size(), 2u);
    EXPECT_EQ(Stored()[1].ovPending, 0u);

    Sheet& second = Open(Stored());
    EXPECT_THAT(second.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead", u"Contract"));
    const DriverDevMode chosen = second.Choose(IDC_OVERLAY, u"Contract").Ok();
    EXPECT_EQ(chosen.dmOverlayState, 1);
    EXPECT_EQ(chosen.dmOverlayIndex, 2);
    EXPECT_EQ(FileIn(chosen), made_);
}

TEST_F(OverlayWay, KeepsTheChoiceUntilTheSheetsOk)
{
    Sheet& sheet = Open({Overlay(u"Letterhead", u"/letterhead.oxl")});
    sheet.Choose(IDC_OVERLAY, 1);
    Make(u"Contract");
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Selection(IDC_OVERLAY), 1);
    EXPECT_EQ(sheet.Settings().dmOverlayState, 1);
    EXPECT_EQ(FileIn(sheet.Settings()), u"/letterhead.oxl");
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmOverlayState, 2);
    EXPECT_EQ(FileIn(record), made_);
    EXPECT_EQ(record.dmOverlayIndex, 1);
}

TEST_F(OverlayWay, EndsWithThePendingRowsDeletion)
{
    Sheet& sheet = Open({});
    Make(u"Contract");
    sheet.Click(IDOK);
    sheet.Click(IDC_EDIT_OVERLAY);
    EXPECT_THAT(sheet.Items(IDC_OVL_LIST), ElementsAre(u"<NONE>", u"Contract"));
    EXPECT_FALSE(sheet.Enabled(IDC_OVL_NEW));
    sheet.Choose(IDC_OVL_LIST, 1).Click(IDC_OVL_DELETE).Click(IDOK);
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmOverlayState, 0);
    EXPECT_EQ(FileIn(record), u"<NONE>");
    EXPECT_TRUE(Stored().empty());
}

TEST_F(OverlayWay, EndsWhenASheetOpensAgainWithoutAJob)
{
    Sheet& sheet = Open({Overlay(u"Letterhead", u"/letterhead.oxl"), Overlay(u"Contract", u"/contract.oxl", 1)});
    EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead"));
    sheet.Click(IDC_EDIT_OVERLAY);
    EXPECT_THAT(sheet.Items(IDC_OVL_LIST), ElementsAre(u"<NONE>", u"Letterhead"));
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Ok().dmOverlayState, 0);
    EXPECT_EQ(Stored().size(), 1u);
}

TEST_F(OverlayWay, TakesNothingFromACancelledListDialog)
{
    Sheet& sheet = Open({Overlay(u"Letterhead", u"/letterhead.oxl"), Overlay(u"Invoice", u"/invoice.oxl")});
    sheet.Choose(IDC_OVERLAY, 2).Click(IDC_EDIT_OVERLAY).Click(IDC_OVL_DELETE).Click(IDC_OVL_DELETE);
    sheet.Click(IDCANCEL);
    EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>", u"Letterhead", u"Invoice"));
    Make(u"Contract");
    sheet.Click(IDCANCEL);
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmOverlayState, 1);
    EXPECT_EQ(FileIn(record), u"/invoice.oxl");
    EXPECT_EQ(Stored().size(), 2u);
}

// The record names a row that is still to be made, or none at all.
TEST_F(OverlayWay, ReadsNoReleasedRowForAnIndexWithoutARow)
{
    for (const SHORT index : {SHORT{2}, SHORT{3}, SHORT{-1}}) {
        Sheet& sheet = Open({Overlay(u"Letterhead", u"/letterhead.oxl"), Overlay(u"Contract", u"/contract.oxl", 1)},
                            [=](DriverDevMode& record) { record.dmOverlayIndex = index; });
        EXPECT_EQ(sheet.Selection(IDC_OVERLAY), -1);
        EXPECT_EQ(FileIn(sheet.Ok()), u"<NONE>") << index;
    }
}

}  // namespace
