// The watermark on the Setup page: choosing one for the job.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/kernel/memory.h"
#include "tests/support/watermark_sheet.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

void TwoStored(TestMachine& machine)
{
    StoreWatermarks(machine, {
                                 {u"First",  u"First text",  u"1|20|72|0|0|0|0|0|0|Arial"       },
                                 {u"Second", u"Second text", u"1|50|36|0|0|0|2|1|90|Courier New"}
    });
}

Sheet::Prepare Chosen(SHORT id, DWORD on = 1)
{
    return [=](DriverDevMode& record) {
        record.dmWatermarkOn = on;
        record.dmWatermark.wmId = id;
        record.dmWatermark.wmFirstPageOnly = 1;
        record.dmWatermark.wmText[0] = u'?';
    };
}

TEST(SetupWatermark, ShowsThatOfTheRecordAsItIsStoredNow)
{
    struct Row {
        SHORT id;
        DWORD on;
        const char* shown;
        const char16_t* text;
    };
    for (const Row& row : {
             Row{2, 1, "Second", u"Second text"},
             Row{1, 5, "First",  u"First text" },
             Row{2, 0, "<NONE>", u"?"          },
             Row{0, 1, "<NONE>", u"?"          },
    }) {
        SetupSheet sheet(Chosen(row.id, row.on), TwoStored);
        EXPECT_EQ(sheet.Row(IDC_WATERMARK), row.shown) << row.id;
        EXPECT_EQ(sheet.Enabled(IDC_WATERMARK_FIRST_PAGE), row.text != std::u16string(u"?")) << row.id;
        EXPECT_TRUE(sheet.Checked(IDC_WATERMARK_FIRST_PAGE)) << row.id;
        EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), row.text) << row.id;
        EXPECT_EQ(sheet.Settings().dmWatermark.wmFirstPageOnly, 1);
        EXPECT_EQ(sheet.Changes(), 0);
    }
}

TEST(SetupWatermark, APickIsCopiedWhole)
{
    SetupSheet sheet({}, TwoStored);
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK, u"Second"),
              "watermark=Second +watermarkFirst dmWatermarkOn=1 dmWatermark told");
    const WatermarkRecord row = sheet.Settings().dmWatermark;
    EXPECT_EQ(row.wmId, 2);
    EXPECT_EQ(std::u16string(row.wmName), u"Second");
    EXPECT_EQ(std::u16string(row.wmText), u"Second text");
    EXPECT_EQ(std::u16string(row.wmFaceName), u"Courier New");
    EXPECT_EQ(row.wmSize, 36);
    EXPECT_EQ(row.wmAngle, 90);
    EXPECT_EQ(WatermarkIndex, 2);
}

TEST(SetupWatermark, FirstPageOnlyGoesWithTheChoice)
{
    SetupSheet sheet({}, TwoStored);
    sheet.Choose(IDC_WATERMARK, u"First");
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK_FIRST_PAGE, nullptr), "xwatermarkFirst dmWatermark told");
    EXPECT_EQ(sheet.Settings().dmWatermark.wmFirstPageOnly, 1);
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK, u"Second"), "watermark=Second owatermarkFirst dmWatermark told");
    EXPECT_EQ(sheet.Settings().dmWatermark.wmFirstPageOnly, 0);
    sheet.Click(IDC_WATERMARK_FIRST_PAGE);
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK, u"<NONE>"),
              "watermark=<NONE> -watermarkFirst owatermarkFirst dmWatermarkOn=0 dmWatermark told");
}

// What the page shows and stores after a walk through the dialog.
std::string After(SetupSheet& sheet, const std::function<void(SetupSheet&)>& walk)
{
    return sheet.Difference([&](SetupSheet& self) {
        self.Click(IDC_EDIT_WATERMARK);
        EXPECT_EQ(self.Template(), IDD_WATERMARK);
        walk(self);
    });
}

TEST(SetupWatermark, ANewOneIsChosenAtOnce)
{
    SetupSheet sheet({}, TwoStored);
    EXPECT_EQ(After(sheet, [](SetupSheet& self) { self.Click(IDC_WM_NEW).Type(IDC_WM_TEXT, u"MINE").Click(IDOK); }),
              "watermark:4 watermark=Watermark +watermarkFirst dmWatermarkOn=1 dmWatermark told told");
    const WatermarkRecord row = sheet.Ok().dmWatermark;
    EXPECT_EQ(std::u16string(row.wmText), u"MINE");
    EXPECT_EQ(row.wmId, 3);
}

TEST(SetupWatermark, OkTakesTheRowOfTheDialog)
{
    SetupSheet sheet(Chosen(1), TwoStored);
    EXPECT_EQ(After(sheet, [](SetupSheet& self) { self.Choose(IDC_WM_LIST, 2).Click(IDC_WM_ITALIC).Click(IDOK); }),
              "watermark=Second owatermarkFirst dmWatermark told told");
    EXPECT_EQ(sheet.Settings().dmWatermark.wmItalic, 1);
    EXPECT_EQ(After(sheet, [](SetupSheet& self) { self.Choose(IDC_WM_LIST, 0).Click(IDOK); }),
              "watermark=<NONE> -watermarkFirst dmWatermarkOn=0 dmWatermark told told");
}

TEST(SetupWatermark, ADeletedRowIsGoneAfterOkAndBackAfterCancel)
{
    SetupSheet sheet(Chosen(1), TwoStored);
    sheet.Click(IDC_EDIT_WATERMARK).Click(IDC_WM_DELETE).Click(IDC_WM_DELETE).CloseDialog();
    EXPECT_THAT(sheet.Items(IDC_WATERMARK), ElementsAre(u"<NONE>", u"First", u"Second"));
    EXPECT_EQ(sheet.Row(IDC_WATERMARK), "First");
    EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), u"First text");
    sheet.Click(IDC_EDIT_WATERMARK).Click(IDC_WM_DELETE).Click(IDOK);
    EXPECT_THAT(sheet.Items(IDC_WATERMARK), ElementsAre(u"<NONE>", u"Second"));
    EXPECT_EQ(sheet.Row(IDC_WATERMARK), "Second");
    EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), u"Second text");
}

TEST(SetupWatermark, ADialogThatDoesNotComeUpChangesNothing)
{
    SetupSheet sheet(Chosen(2), TwoStored);
    sheet.Machine().Fail("DialogBoxParamW");
    sheet.Click(IDC_EDIT_WATERMARK);
    EXPECT_THAT(sheet.Items(IDC_WATERMARK), ElementsAre(u"<NONE>", u"First", u"Second"));
    EXPECT_EQ(sheet.Row(IDC_WATERMARK), "Second");
}

TEST(SetupWatermark, EveryListGoesWithTheSheet)
{
    const std::size_t blocks = platform::memory::BlockCount();
    for (const bool ok : {true, false}) {
        {
            SetupSheet sheet(Chosen(2), TwoStored);
            sheet.Click(IDC_EDIT_WATERMARK).Click(IDC_WM_NEW).Click(IDOK);
            sheet.Click(IDC_EDIT_WATERMARK).Click(IDC_WM_DELETE).Click(IDCANCEL);
            ok ? sheet.Ok() : sheet.Cancel();
            EXPECT_EQ(WatermarkHead, nullptr);
        }
        EXPECT_EQ(platform::memory::BlockCount(), blocks);
    }
}

TEST(SetupWatermark, WithoutAListThereIsNothingToChoose)
{
    SetupSheet sheet({}, TwoStored);
    sheet.Try([](HWND) {
        FreeWatermarkList();
        return platform::user::Outcome::Done;
    });
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK, u"Second"), "watermark=Second");
}

}  // namespace
