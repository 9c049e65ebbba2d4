// What the picture of the Watermark dialog draws, call by call, on Letter with the built-in fonts: DRAFT at the
// height 600 is 1500 wide. The picture is 153 by 169 pixels, the frame about it 171 by 189.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/watermark_sheet.h"

namespace {

using namespace testing_support;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Lines = std::vector<std::string>;

constexpr const char16_t* Level = u"1|20|72|0|0|0|0|0|0|Times New Roman";

// The dialog over a page with one watermark.
class Preview : public WatermarkSheet {
  public:
    explicit Preview(const char16_t* attributes = Level, const char* page = "dmResolution=600")
        : WatermarkSheet(
              {
                  {u"A", u"DRAFT", attributes}
    },
              1, true, testing_support::Fields(page))
    {
    }
    // The last drawing of the picture, without the frame: its shapes, mapping, colour and text.
    Lines Drawing()
    {
        Lines drawn;
        for (const std::string& line : Drawn()) {
            if (line.starts_with("1171 GetDC")) drawn.clear();
            // The font that measures the text comes before the one that draws it.
            if (line.find("CreateFontIndirectW") != line.npos && drawn.back().starts_with("CreateFontIndirectW"))
                drawn.pop_back();
            for (const char* name :
                 {"1171 Rectangle", "CreateRectRgn", "1171 PaintRgn", "1171 SetMapMode", "1171 SetWindowExtEx",
                  "1171 SetViewportExtEx", "1171 SetTextColor", "1171 TextOutW", "CreateFontIndirectW"})
                if (line.find(name) != line.npos) drawn.push_back(line.substr(line.find(' ') + 1));
        }
        for (std::string& line : drawn) std::erase(line, '"');
        return drawn;
    }
};

TEST(WatermarkPreview, FillsTheHeightOrTheWidthWithThePage)
{
    for (const auto& [page, frame, clip, viewport, text] : {
             std::tuple{"dmResolution=600",                 "Rectangle [10,-1,142,170]", "CreateRectRgn [11,0,141,169]",
                        "SetViewportExtEx [169,169,null]", "TextOutW [2079,2900,DRAFT,5]"},
             {"dmResolution=600 dmOrientation=2", "Rectangle [-1,24,154,144]", "CreateRectRgn [0,25,153,143]",
                        "SetViewportExtEx [153,153,null]", "TextOutW [2450,3178,DRAFT,5]"},
    })
        EXPECT_THAT(Preview(Level, page).Drawing(),
                    ElementsAre(frame, clip, StartsWith("PaintRgn"), "SetMapMode [8]", "SetTextColor [13421772]",
                                StartsWith("CreateFontIndirectW"), "SetWindowExtEx [6600,6600,null]", viewport, text,
                                "SetMapMode [1]"));
}

TEST(WatermarkPreview, FollowsTheFields)
{
    Preview preview;
    preview.Type(IDC_WM_SHADING, u"100").Type(IDC_WM_TEXT, u"X").Click(IDC_WM_BOLD).Choose(IDC_WM_FACE, u"Arial");
    EXPECT_THAT(preview.Drawing(),
                testing::AllOf(Contains("SetTextColor [0]"), Contains(testing::EndsWith(",X,1]")),
                               Contains(HasSubstr("lfWeight:700")), Contains(HasSubstr("lfFaceName:Arial"))));
}

TEST(WatermarkPreview, PlacesTheTextAsOnTheJobsPage)
{
    for (const auto& [attributes, resolution, text] : {
             std::tuple{Level,                                       300,  "TextOutW [1039,1450,DRAFT,5]"},
             {Level,                                       400,  "TextOutW [1039,1450,DRAFT,5]"}, // as the model has the page, the shift is 214
             {Level,                                       1200, "TextOutW [4259,5800,DRAFT,5]"},
             {u"1|20|72|0|0|0|0|1|90|Times New Roman",     600,  "TextOutW [2529,3950,DRAFT,5]"},
             {u"1|20|72|1|100|-100|0|0|0|Times New Roman", 600,  "TextOutW [-297,6068,DRAFT,5]"}, // steps 199 and 1
             {u"1|20|19|0|0|0|0|0|0|Times New Roman",      300,  "lfHeight:-80"                },
             {u"1|20|20|0|0|0|0|0|0|Times New Roman",      300,  "lfHeight:-83"                },
    })
        EXPECT_THAT(Preview(attributes, ("dmResolution=" + std::to_string(resolution)).c_str()).Drawing(),
                    Contains(HasSubstr(text)))
            << platform::ToUtf8(attributes) << " at " << resolution;
}

TEST(WatermarkPreview, AFaceThatIsNotThereLeavesThePageEmpty)
{
    EXPECT_THAT(Preview(u"1|20|72|0|0|0|0|0|0|Nowhere Sans").Drawing(),
                ElementsAre("Rectangle [10,-1,142,170]", "CreateRectRgn [11,0,141,169]", StartsWith("PaintRgn"),
                            "SetMapMode [8]", "SetTextColor [13421772]", "SetMapMode [1]"));
}

TEST(WatermarkPreview, TheFrameIsDrawnForItselfAlone)
{
    Preview sheet;
    EXPECT_THAT(sheet.Drawn(), Contains("- CreateSolidBrush [8421504]"));
    DRAWITEMSTRUCT item{};
    item.CtlID = IDC_WM_FRAME;
    sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
    const auto elsewhere = testing::Not(StartsWith("1171"));
    EXPECT_THAT(sheet.Drawn(), testing::AllOf(Contains("2129 Rectangle [0,0,171,189]"), testing::Each(elsewhere)));
    item.CtlID = IDC_WM_LIST;
    sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_TRUE(sheet.Drawn().empty());
}

}  // namespace
