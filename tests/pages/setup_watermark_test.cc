// The watermark on the Setup page: choosing one for the job.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/kernel/memory.h"
#include "tests/support/watermark_sheet.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;

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
    for (const auto& [id, on, shown, text] : {
             std::tuple{SHORT{2}, 1u, "Second", u"Second text"},
             {SHORT{1}, 5u, "First",  u"First text" },
             {SHORT{2}, 0u, "<NONE>", u"?"          },
             {SHORT{0}, 1u, "<NONE>", u"?"          },
    }) {
        SetupSheet sheet(Chosen(id, on), TwoStored);
        EXPECT_EQ(sheet.Row(IDC_WATERMARK), shown) << id;
        EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), text) << id;
        EXPECT_EQ(sheet.Settings().dmWatermark.wmFirstPageOnly, 1);
        EXPECT_EQ(sheet.Changes(), 0);
    }
}

TEST(SetupWatermark, APickIsCopiedWholeAndFirstPageOnlyGoesWithIt)
{
    SetupSheet sheet({}, TwoStored);
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK, u"First"), "watermark=First +watermarkFirst dmWatermarkOn=1 dmWatermark told");
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK_FIRST_PAGE), "xwatermarkFirst dmWatermark told");
    EXPECT_EQ(sheet.Settings().dmWatermark.wmFirstPageOnly, 1);
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK, u"Second"), "watermark=Second owatermarkFirst dmWatermark told");
    const WatermarkRecord row = sheet.Settings().dmWatermark;
    EXPECT_EQ(row.wmId, 2);
    EXPECT_EQ(std::u16string(row.wmFaceName), u"Courier New");
    EXPECT_EQ(row.wmAngle, 90);
    EXPECT_EQ(row.wmFirstPageOnly, 0);
    sheet.Click(IDC_WATERMARK_FIRST_PAGE);
    EXPECT_EQ(sheet.Pick(IDC_WATERMARK, u"<NONE>"),
              "watermark=<NONE> -watermarkFirst owatermarkFirst dmWatermarkOn=0 dmWatermark told");
}

TEST(SetupWatermark, OkTakesTheRowOfTheDialog)
{
    const std::size_t blocks = platform::memory::BlockCount();
    {
        SetupSheet sheet(Chosen(1), TwoStored);
        const auto after = [&](const std::function<void()>& walk) {
            return sheet.Difference([&] {
                sheet.Click(IDC_EDIT_WATERMARK);
                walk();
            });
        };
        sheet.Click(IDC_EDIT_WATERMARK).Click(IDC_WM_DELETE).Click(IDC_WM_DELETE).CloseDialog();
        EXPECT_EQ(sheet.Items(IDC_WATERMARK).size(), 3u) << "what Cancel brings back";
        EXPECT_EQ(after([&] { sheet.Choose(IDC_WM_LIST, 2).Click(IDC_WM_ITALIC).Click(IDOK); }),
                  "watermark=Second dmWatermark told told");
        EXPECT_EQ(sheet.Settings().dmWatermark.wmItalic, 1);
        EXPECT_EQ(after([&] { sheet.Choose(IDC_WM_LIST, 0).Click(IDOK); }),
                  "watermark=<NONE> -watermarkFirst dmWatermarkOn=0 dmWatermark told told");
        EXPECT_EQ(after([&] { sheet.Click(IDC_WM_NEW).Type(IDC_WM_TEXT, u"MINE").Click(IDOK); }),
                  "watermark:4 watermark=Watermark +watermarkFirst dmWatermarkOn=1 dmWatermark told told");
        EXPECT_EQ(after([&] { sheet.Click(IDC_WM_DELETE).Click(IDOK); }),
                  "watermark:3 watermark=Second dmWatermark told told");
        EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), u"Second text");
        sheet.Ok();
        EXPECT_EQ(WatermarkHead, nullptr);
    }
    EXPECT_EQ(platform::memory::BlockCount(), blocks) << "every list goes with the sheet";
}

}  // namespace
