// The watermark on the Setup page: choosing one for the job.
#include <gtest/gtest.h>

#include "platform/kernel/memory.h"
#include "tests/support/watermark_sheet.h"

namespace {

using namespace testing_support;

void TwoStored(TestMachine& machine)
{
    StoreWatermarks(machine, {
                                 {u"First",  u"First text",  u"1|20|72|0|0|0|0|0|0|Arial"       },
                                 {u"Second", u"Second text", u"1|50|36|0|0|0|2|1|90|Courier New"}
    });
}

TEST(SetupWatermark, ShowsThatOfTheRecordAsItIsStoredNow)
{
    for (const auto& [fields, shown, text] : {
             std::tuple{"wmId=2 dmWatermarkOn=1", "Second", u"Second text"},
             {"wmId=1 dmWatermarkOn=5", "First",  u"First text" },
             {"wmId=2 dmWatermarkOn=0", "<NONE>", u""           },
             {"wmId=0 dmWatermarkOn=1", "<NONE>", u""           },
    }) {
        SetupSheet sheet(Fields(fields + std::string(" wmFirstPageOnly=1")), TwoStored);
        EXPECT_EQ(sheet.Row(IDC_WATERMARK), shown) << fields;
        EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), text) << fields;
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
        SetupSheet sheet(Fields("wmId=1 dmWatermarkOn=1"), TwoStored);
        const auto after = [&](const auto& walk) {
            return sheet.Difference([&] { walk(sheet.Click(IDC_EDIT_WATERMARK)); });
        };
        EXPECT_EQ(after([](Sheet& dialog) { dialog.Choose(IDC_WM_LIST, 2).Click(IDOK); }),
                  "watermark=Second dmWatermark told told");
        EXPECT_EQ(after([](Sheet& dialog) { dialog.Choose(IDC_WM_LIST, 0).Click(IDOK); }),
                  "watermark=<NONE> -watermarkFirst dmWatermarkOn=0 dmWatermark told told");
        EXPECT_EQ(after([](Sheet& dialog) { dialog.Click(IDC_WM_NEW).Click(IDOK); }),
                  "watermark:4 watermark=Watermark +watermarkFirst dmWatermarkOn=1 dmWatermark told told");
        EXPECT_EQ(after([](Sheet& dialog) { dialog.Click(IDC_WM_DELETE).Click(IDOK); }),
                  "watermark:3 watermark=Second dmWatermark told told");
    }
    EXPECT_EQ(platform::memory::BlockCount(), blocks) << "every list goes with the sheet";
}

}  // namespace
