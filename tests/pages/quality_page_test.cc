// The rules of the Quality page, driven as a user drives them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/watched_sheet.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

constexpr char Lowest[] = "dmResolutionChoice=600 dmResolution=600 dmPrintQuality=600";
constexpr char LowestWithTonerSave[] = "dmResolutionChoice=600 dmResolution=600 dmPrintQuality=600 dmTonerSave=1";

constexpr NamedControl QualityControls[] = {
    {IDC_QUALITY_PRINTER_FIGURE, "figure"         },
    {IDC_RESOLUTION,             "resolution"     },
    {IDC_TONER_SAVE_GROUP,       "tonerSaveGroup" },
    {IDC_TONER_SAVE_OFF,         "tonerSaveOff"   },
    {IDC_TONER_SAVE_ON,          "tonerSaveOn"    },
    {IDC_ALL_RASTER_LABEL,       "rasterLabel"    },
    {IDC_ALL_RASTER_OFF,         "rasterOff"      },
    {IDC_ALL_RASTER_ON,          "rasterOn"       },
    {IDC_SMOOTHTONE_LABEL,       "smoothtoneLabel"},
    {IDC_SMOOTHTONE,             "smoothtone"     },
    {IDC_TONER_DENSITY,          "density"        },
    {IDC_PRINTER_TRUETYPE,       "fonts"          },
};

// The document sheet with the Quality page in front.
class QualitySheet : public WatchedSheet {
  public:
    explicit QualitySheet(const std::string& fields = "") : WatchedSheet(u"Quality", QualityControls, Fields(fields)) {}

    // "TSA": Toner Save, Smoothtone and All Raster, where they can be used.
    std::string Usable()
    {
        return Sheet::Usable({
            {'T', IDC_TONER_SAVE_ON},
            {'S', IDC_SMOOTHTONE   },
            {'A', IDC_ALL_RASTER_ON}
        });
    }
};

TEST(QualityPage, ShowsAFreshRecord)
{
    QualitySheet sheet;
    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600", u"1200 x 600", u"1200 x 1200"));
    EXPECT_THAT(sheet.Items(IDC_SMOOTHTONE), ElementsAre(u"Off", u"Light", u"Medium", u"Dark"));
    EXPECT_THAT(sheet.ItemData(IDC_SMOOTHTONE), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(sheet.Items(IDC_TONER_DENSITY), ElementsAre(u"Extra Light", u"Light", u"Medium Light", u"Medium",
                                                            u"Medium Dark", u"Dark", u"Extra Dark"));
    EXPECT_EQ(sheet.Usable(), "SA");
    EXPECT_FALSE(sheet.Enabled(IDC_QUALITY_PREVIEW));
    EXPECT_EQ(sheet.Changes(), 0);
}

TEST(QualityPage, RecordsOfEveryKindShow)
{
    for (const auto& [fields, resolution, usable, resolutions] : {
             std::tuple{"dmPrintQuality=300",                         "1200 x 1200", "TSA", 3u}, // none of ours: the highest
             {"dmTonerSave=1 dmPrintQuality=1200",          "",            "A",   1 }, // not on the short list
             {"dmResolutionChoice=600 dmFixedResolution=2", "600 x 600",   "A",   1 },
    }) {
        QualitySheet sheet(fields);
        EXPECT_EQ(sheet.Row(IDC_RESOLUTION), resolution) << fields;
        EXPECT_EQ(sheet.Usable(), usable) << fields;
        EXPECT_EQ(sheet.Items(IDC_RESOLUTION).size(), resolutions) << fields;
    }
    QualitySheet odd("dmSmoothtone=4 dmTonerDensity=-1");
    EXPECT_EQ(odd.Selection(IDC_SMOOTHTONE), -1);
    EXPECT_EQ(odd.Selection(IDC_TONER_DENSITY), -1);
    EXPECT_EQ(odd.Settings().dmTonerDensity, -1) << "showing changes nothing";
}

TEST(QualityPage, AChangeIsStoredAndDecidesOnOthers)
{
    // clang-format off
    const std::tuple<const char*, int, const char16_t*, const char*> rows[] = {
        {"", IDC_RESOLUTION, u"1200 x 1200",
         "resolution=1200 x 1200 dmPrintQuality=1200 dmResolution=1200 dmResolutionChoice=1200 told"},
        {"", IDC_RESOLUTION, u"1200 x 600", "told"},
        {"", IDC_RESOLUTION, u"600 x 600",
         "resolution=600 x 600 +tonerSaveGroup +tonerSaveOff +tonerSaveOn dmResolutionChoice=600 told"},
        {Lowest, IDC_RESOLUTION, u"1200 x 600",
         "resolution=1200 x 600 -tonerSaveGroup -tonerSaveOff -tonerSaveOn dmResolutionChoice=2 told"},
        {Lowest, IDC_TONER_SAVE_ON, nullptr,
         "resolution:1 otonerSaveOff xtonerSaveOn -smoothtoneLabel -smoothtone dmTonerSave=1 told"},
        {LowestWithTonerSave, IDC_TONER_SAVE_OFF, nullptr,
         "resolution:3 xtonerSaveOff otonerSaveOn +smoothtoneLabel +smoothtone dmTonerSave=0 told"},
        {"", IDC_ALL_RASTER_ON, nullptr,
         "orasterOff xrasterOn -fonts ofonts dmAllRaster=1 dmPrinterTrueType=0 told"},
        {"dmAllRaster=1", IDC_ALL_RASTER_OFF, nullptr,
         "xrasterOff orasterOn +fonts xfonts dmAllRaster=0 dmPrinterTrueType=1 told"},
        {"", IDC_SMOOTHTONE, u"Dark", "smoothtone=Dark dmSmoothtone=3 told"},
        {"", IDC_TONER_DENSITY, u"Extra Light", "density=Extra Light dmTonerDensity=0 told"},
        {"", IDC_PRINTER_TRUETYPE, nullptr, "ofonts dmPrinterTrueType=0 told"},
        {"", IDC_QUALITY_PRINTER_FIGURE, nullptr, "xfigure dmPreviewMode=1"},
        // What is chosen already.
        {Lowest, IDC_TONER_SAVE_OFF, nullptr, ""},
        {LowestWithTonerSave, IDC_TONER_SAVE_ON, nullptr, ""},
        {"", IDC_ALL_RASTER_OFF, nullptr, ""},
        {"dmAllRaster=1", IDC_ALL_RASTER_ON, nullptr, ""},
    };
    // clang-format on
    for (const auto& [fields, control, row, difference] : rows)
        EXPECT_EQ(QualitySheet(fields).Pick(control, row), difference) << fields << control;
}

TEST(QualityPage, GraphicsAndTextModesFollowAllRasterOnlyWhenThePageComesBack)
{
    QualitySheet sheet;
    const auto comeBack = [&] { return sheet.Difference([&] { sheet.GoAwayAndComeBack(); }); };
    sheet.Click(IDC_ALL_RASTER_ON);
    EXPECT_EQ(comeBack(), "dmGraphicsMode=0 dmTextMode=1");
    sheet.Click(IDC_ALL_RASTER_OFF);
    EXPECT_EQ(comeBack(), "dmGraphicsMode=1 dmTextMode=2");
    sheet.Click(IDC_QUALITY_PRINTER_FIGURE);
    EXPECT_EQ(comeBack(), "ofigure dmPreviewMode=0") << "the picture mode is lost";
    sheet.Click(IDC_ALL_RASTER_ON).Click(IDC_QUALITY_PRINTER_FIGURE).Apply();
    EXPECT_EQ(sheet.Published().dmTextMode, 2) << "Apply is before the page comes back";
}

TEST(QualityPage, DefaultRestoresThePage)
{
    QualitySheet sheet(std::string(LowestWithTonerSave) +
                       " dmSmoothtone=0 dmTonerDensity=6 dmAllRaster=1 dmPrinterTrueType=0 dmFixedResolution=1");
    sheet.Click(IDC_QUALITY_PRINTER_FIGURE);
    EXPECT_EQ(sheet.Pick(IDC_DEFAULT),
              "ofigure resolution:3 resolution=1200 x 600 xtonerSaveOff otonerSaveOn xrasterOff orasterOn "
              "+smoothtoneLabel smoothtone=Medium +smoothtone density=Medium +fonts xfonts dmTonerSave=0 dmAllRaster=0 "
              "dmGraphicsMode=1 dmTextMode=2 dmPrinterTrueType=1 dmSmoothtone=2 dmFixedResolution=0 dmTonerDensity=3 "
              "dmPreviewMode=0 dmResolutionChoice=2 told");
    sheet.Drawn();
    EXPECT_EQ(sheet.Pick(IDC_DEFAULT), "");
    EXPECT_FALSE(sheet.Drawn().empty());
    QualitySheet fixed("dmFixedResolution=2");
    EXPECT_EQ(fixed.Click(IDC_DEFAULT).Settings().dmFixedResolution, 2) << "other than 1";
}

}  // namespace
