// What the picture of the Watermark dialog draws, call by call, on Letter with the built-in fonts: DRAFT at the
// height 600 is 1500 wide. The picture is 153 by 169 pixels, the frame about it 171 by 189.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/gdi/job.h"
#include "tests/support/watermark_sheet.h"
#include "watermark/placement.h"

namespace {

using namespace testing_support;
using Lines = std::vector<std::string>;

constexpr const char16_t* Level = u"1|20|72|0|0|0|0|0|0|Times New Roman";

struct Page {
    SHORT resolution = 600, orientation = 1, paper = 1;
};

WatermarkSheet::Prepare On(Page page)
{
    return [=](DriverDevMode& record) {
        record.dmResolution = page.resolution;
        record.dmOrientation = page.orientation;
        record.dmPaperSize = page.paper;
    };
}

// The last drawing of the picture, without the frame: its shapes, mapping, colour and text.
Lines Drawing(const Lines& all)
{
    Lines drawn;
    for (const std::string& line : all) {
        if (line.starts_with("1171 GetDC")) drawn.clear();
        for (const char* name : {"1171 Rectangle", "CreateRectRgn", "1171 PaintRgn", "1171 SetMapMode",
                                 "1171 SetWindowExtEx", "1171 SetViewportExtEx", "1171 SetTextColor", "1171 TextOutW"})
            if (line.find(name) != line.npos) drawn.push_back(line.substr(line.find(' ') + 1));
    }
    return drawn;
}

Lines DrawnFor(const std::u16string& attributes, Page page, const std::u16string& text = u"DRAFT")
{
    WatermarkSheet sheet(
        {
            {u"A", text, attributes}
    },
        1, true, On(page));
    return Drawing(sheet.Drawn());
}

TEST(WatermarkPreview, FillsTheHeightWithAPortraitPage)
{
    EXPECT_THAT(DrawnFor(Level, {}),
                testing::ElementsAre("Rectangle [10,-1,142,170]", "CreateRectRgn [11,0,141,169]",
                                     testing::StartsWith("PaintRgn"), "SetMapMode [8]", "SetTextColor [13421772]",
                                     "SetWindowExtEx [6600,6600,null]", "SetViewportExtEx [169,169,null]",
                                     "TextOutW [2079,2900,\"DRAFT\",5]", "SetMapMode [1]"));
}

TEST(WatermarkPreview, PutsTheMappingBackLast)
{
    WatermarkSheet sheet(
        {
            {u"A", u"DRAFT", Level}
    },
        1, true, On({}));
    const Lines lines = sheet.Drawn();
    const auto released = std::find_if(lines.rbegin(), lines.rend(),
                                       [](const std::string& line) { return line.starts_with("1171 ReleaseDC"); });
    ASSERT_LT(released + 1, lines.rend());
    EXPECT_EQ(*(released + 1), "1171 SetMapMode [1]");
}

TEST(WatermarkPreview, FillsTheWidthWithALandscapePage)
{
    EXPECT_THAT(DrawnFor(Level, {600, 2, 1}),
                testing::ElementsAre("Rectangle [-1,24,154,144]", "CreateRectRgn [0,25,153,143]",
                                     testing::StartsWith("PaintRgn"), "SetMapMode [8]", "SetTextColor [13421772]",
                                     "SetWindowExtEx [6600,6600,null]", "SetViewportExtEx [153,153,null]",
                                     "TextOutW [2450,3178,\"DRAFT\",5]", "SetMapMode [1]"));
}

struct TextRow {
    const char16_t* attributes;
    Page page;
    const char* text;
};

TEST(WatermarkPreview, PlacesTheTextAsOnTheJobsPage)
{
    for (const TextRow& row : {
  // 300 dots per inch and any other resolution: the page as the model has it; the shift is 214.
             TextRow{Level,                                       {300},  "TextOutW [1039,1450,\"DRAFT\",5]"},
             {Level,                                       {400},  "TextOutW [1039,1450,\"DRAFT\",5]"},
             {Level,                                       {1200}, "TextOutW [4259,5800,\"DRAFT\",5]"},
 // Upright: x = 2400 - 300, y = 3200 + 750.
             {u"1|20|72|0|0|0|0|1|90|Times New Roman",     {},     "TextOutW [2529,3950,\"DRAFT\",5]"},
 // Position 100: step 199; -100: step 1.
             {u"1|20|72|1|100|-100|0|0|0|Times New Roman", {},     "TextOutW [-297,6068,\"DRAFT\",5]"},
    })
        EXPECT_THAT(DrawnFor(row.attributes, row.page), testing::Contains(row.text)) << row.page.resolution;
}

std::string LastFont(const Lines& all)
{
    std::string last;
    for (const std::string& line : all)
        if (line.find("CreateFontIndirectW") != line.npos) last = line;
    last.erase(std::remove(last.begin(), last.end(), '"'), last.end());
    return last;
}

struct FontRow {
    const char16_t* attributes;
    SHORT resolution;
    const char* height;
};

TEST(WatermarkPreview, DrawsNoTextSmallerThanCanBeSeen)
{
    for (const FontRow& row : {
             FontRow{u"1|20|8|0|0|0|0|0|0|Times New Roman",  300, "lfHeight:-80"},
             {u"1|20|19|0|0|0|0|0|0|Times New Roman", 300, "lfHeight:-80"},
             {u"1|20|20|0|0|0|0|0|0|Times New Roman", 300, "lfHeight:-83"},
             {u"1|20|8|0|0|0|0|0|0|Times New Roman",  600, "lfHeight:-80"},
    }) {
        WatermarkSheet sheet(
            {
                {u"A", u"DRAFT", row.attributes}
        },
            1, true, On({row.resolution}));
        EXPECT_THAT(LastFont(sheet.Drawn()), testing::HasSubstr(row.height));
    }
}

TEST(WatermarkPreview, FollowsTheFields)
{
    WatermarkSheet sheet(
        {
            {u"A", u"DRAFT", Level}
    },
        1, true, On({}));
    sheet.Drawn();
    sheet.Type(IDC_WM_SHADING, u"100");
    EXPECT_THAT(Drawing(sheet.Drawn()), testing::Contains("SetTextColor [0]"));
    sheet.Type(IDC_WM_TEXT, u"X");
    EXPECT_THAT(Drawing(sheet.Drawn()), testing::Contains(testing::EndsWith(",\"X\",1]")));
    sheet.Click(IDC_WM_BOLD).Choose(IDC_WM_FACE, u"Arial");
    EXPECT_THAT(LastFont(sheet.Drawn()),
                testing::AllOf(testing::HasSubstr("lfWeight:700"), testing::HasSubstr("lfFaceName:Arial")));
}

TEST(WatermarkPreview, AFaceThatIsNotThereLeavesThePageEmpty)
{
    EXPECT_THAT(DrawnFor(u"1|20|72|0|0|0|0|0|0|Nowhere Sans", {}),
                testing::ElementsAre("Rectangle [10,-1,142,170]", "CreateRectRgn [11,0,141,169]",
                                     testing::StartsWith("PaintRgn"), "SetMapMode [8]", "SetTextColor [13421772]",
                                     "SetMapMode [1]"));
}

TEST(WatermarkPreview, TheFrameIsSunken)
{
    WatermarkSheet sheet(
        {
            {u"A", u"DRAFT", Level}
    },
        1);
    const Lines drawn = sheet.Drawn();
    EXPECT_THAT(drawn, testing::Contains("- CreateSolidBrush [8421504]"));
    EXPECT_THAT(drawn, testing::Contains("2129 Rectangle [0,0,171,189]"));
    DRAWITEMSTRUCT item{};
    item.CtlID = IDC_WM_FRAME;
    sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
    const Lines frame = sheet.Drawn();
    EXPECT_THAT(frame, testing::Contains("2129 Rectangle [0,0,171,189]"));
    EXPECT_THAT(frame, testing::Not(testing::Contains(testing::StartsWith("1171"))));
    item.CtlID = IDC_WM_LIST;
    sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_TRUE(sheet.Drawn().empty());
}

TEST(WatermarkPreview, TheDiagonalIsThatOfThePage)
{
    WatermarkSheet portrait(
        {
            {u"A", u"DRAFT"}
    },
        1, true, On({600, 1, 1}));
    EXPECT_EQ(WatermarkEdit.wmAngle, 53);
    EXPECT_EQ(portrait.Field(IDC_WM_ANGLE), "53");
    WatermarkSheet landscape(
        {
            {u"A", u"DRAFT"}
    },
        1, true, On({600, 2, 1}));
    EXPECT_EQ(WatermarkEdit.wmAngle, 37);
    EXPECT_EQ(landscape.Field(IDC_WM_ANGLE), "37");
}

}  // namespace
