// What the left panel and the icon of the resolution draw, call by call. Colours are the desktop's classic
// ones: face 0xF0F0F0, shadow 0xA0A0A0, highlight 0xFFFFFF.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>

#include "platform/controls.h"
#include "platform/gdi/job.h"
#include "resources/control_numbers.h"
#include "tests/support/records.h"
#include "tests/support/sheet_driver.h"

namespace {

using namespace testing;
using testing_support::Fields;
using testing_support::Sheet;

using Lines = std::vector<std::string>;

const Lines ClearFrame = {
    "- CreatePen [0,1,16777215]",
    "- CreateSolidBrush [15790320]",
    "1069 Rectangle [0,0,137,161]",
};

Lines Icon(int number)
{
    const std::string icon = std::to_string(number);
    return {
        "- CreateSolidBrush [15790320]",
        "9520 FillRect [[0,0,32,32],{brush:{color:15790320}}]",
        "- LoadIconW [" + icon + "]",
        "9520 DrawIcon [0,0,{icon:" + icon + "}]",
    };
}

// Without the calls that only get, select and give back.
Lines Shown(Lines drawn)
{
    std::erase_if(drawn, [](const std::string& line) {
        const std::string call = line.substr(line.find(' ') + 1);
        return call.starts_with("Get") || call.starts_with("Select") || call.starts_with("Release") ||
               call.starts_with("Delete");
    });
    return drawn;
}

// The Quality page in front, and what it draws from then on.
class QualitySheet : public Sheet {
  public:
    explicit QualitySheet(Prepare prepare = {}) : Sheet(std::move(prepare))
    {
        Page(u"Quality");
        opening = Shown(Drawn());
    }
    Lines DrawItem(int item, int window)
    {
        DRAWITEMSTRUCT drawItem{};
        drawItem.CtlType = ODT_BUTTON;
        drawItem.CtlID = static_cast<UINT>(item);
        drawItem.hwndItem = Handle(window);
        EXPECT_EQ(Send(WM_DRAWITEM, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&drawItem)), FALSE);
        return Shown(Drawn());
    }
    Lines opening;
};

TEST(LeftPanel, DrawsTheFrameThePageLayoutAndTheIcon)
{
    const Lines drawn = QualitySheet().opening;
    EXPECT_THAT(std::span(drawn).first(3), ElementsAreArray(ClearFrame));
    EXPECT_THAT(drawn, IsSupersetOf({StartsWith("1069 ExtTextOutW "), StartsWith("1064 ")}));
    EXPECT_THAT(std::span(drawn).last(4), ElementsAreArray(Icon(IDI_RESOLUTION_600)));
}

TEST(LeftPanel, DrawsThePrinterFigureOverTheFrameAndLeavesNothingBehind)
{
    QualitySheet sheet;
    const std::size_t contexts = platform::gdi::ContextCount(), objects = platform::gdi::ObjectCount();
    sheet.Click(IDC_QUALITY_PRINTER_FIGURE);
    const Lines drawn = Shown(sheet.Drawn());
    EXPECT_THAT(std::span(drawn).first(3),
                ElementsAre("1069 CreateCompatibleDC []", "- LoadBitmapW [1298]",
                            AllOf(StartsWith("1069 StretchBlt [0,0,137,161,"), EndsWith(",0,0,137,161,13369376]"))));
    EXPECT_THAT(std::span(drawn).subspan(3), ElementsAreArray(Icon(IDI_RESOLUTION_600)));
    sheet.Click(IDC_QUALITY_PAGE_LAYOUT);
    EXPECT_EQ(platform::gdi::ContextCount(), contexts);
    EXPECT_EQ(platform::gdi::ObjectCount(), objects);
}

TEST(LeftPanel, DrawsNothingInAModeThatItDoesNotKnow)
{
    QualitySheet sheet;
    sheet.Change(Fields("dmPreviewMode=7")).Choose(IDC_RESOLUTION, 2);
    EXPECT_THAT(Shown(sheet.Drawn()), ElementsAreArray(Icon(IDI_RESOLUTION_1200)));
}

// A picture of whatever page brings the page layout, but the frame is sunken for this page's alone.
TEST(LeftPanel, DrawsThePageLayoutForPicturesAlone)
{
    QualitySheet sheet;
    for (const auto& [item, window] : {
             std::pair{IDC_DEFAULT,        IDC_DEFAULT        },
             {IDC_DEVICE_PREVIEW, IDC_QUALITY_PREVIEW}
    }) {
        const Lines drawn = sheet.DrawItem(item, window);
        EXPECT_THAT(std::span(drawn).first(3), ElementsAreArray(ClearFrame));
        EXPECT_THAT(std::span(drawn).subspan(3), Each(Not(StartsWith("1069 "))));
        EXPECT_EQ(drawn.size() == 7, item == IDC_DEFAULT);
    }
}

TEST(ResolutionIcon, IsNoneWithoutASelection)
{
    QualitySheet sheet;
    EXPECT_THAT(Shown(sheet.Choose(IDC_RESOLUTION, 0).Drawn()), Contains("- LoadIconW [9521]"));
    QualitySheet none(Fields("dmTonerSave=1 dmPrintQuality=1200"));
    EXPECT_THAT(none.opening, Each(Not(HasSubstr("LoadIconW"))));
}

}  // namespace
