// The rules of the Quality page, driven as a user drives them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls.h"
#include "tests/support/setup_sheet.h"

namespace {

using testing::ElementsAre;
using testing_support::ElsewherePage;
using testing_support::Fields;
using testing_support::Sheet;

constexpr char Lowest[] = "dmResolutionChoice=600 dmResolution=600 dmPrintQuality=600";
constexpr char LowestWithTonerSave[] = "dmResolutionChoice=600 dmResolution=600 dmPrintQuality=600 dmTonerSave=1";

// The document sheet with the Quality page in front.
class QualitySheet : public Sheet {
  public:
    explicit QualitySheet(const char* fields = "") : Sheet(Fields(fields)) { Page(u"Quality"); }

    // "TSA": Toner Save, Smoothtone and All Raster, small where they are disabled; '?' where the controls of one
    // do not agree.
    std::string Usable()
    {
        return {Letter('t', {IDC_TONER_SAVE_GROUP, IDC_TONER_SAVE_OFF, IDC_TONER_SAVE_ON}),
                Letter('s', {IDC_SMOOTHTONE_LABEL, IDC_SMOOTHTONE}),
                Letter('a', {IDC_ALL_RASTER_LABEL, IDC_ALL_RASTER_OFF, IDC_ALL_RASTER_ON})};
    }
    void GoAwayAndComeBack() { Page(ElsewherePage).Page(u"Quality"); }

  private:
    char Letter(char letter, std::vector<int> controls)
    {
        const auto enabled = std::ranges::count_if(controls, [this](int control) { return Enabled(control); });
        if (enabled == 0) return letter;
        return enabled == std::ssize(controls) ? static_cast<char>(letter - 'a' + 'A') : '?';
    }
};

TEST(QualityPage, ShowsAFreshRecord)
{
    QualitySheet sheet;
    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600", u"1200 x 600", u"1200 x 1200"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 1);
    EXPECT_THAT(sheet.Items(IDC_SMOOTHTONE), ElementsAre(u"Off", u"Light", u"Medium", u"Dark"));
    EXPECT_EQ(sheet.Selection(IDC_SMOOTHTONE), 2);
    EXPECT_THAT(sheet.Items(IDC_TONER_DENSITY), ElementsAre(u"Extra Light", u"Light", u"Medium Light", u"Medium",
                                                            u"Medium Dark", u"Dark", u"Extra Dark"));
    EXPECT_EQ(sheet.Selection(IDC_TONER_DENSITY), 3);
    for (const int control : {IDC_QUALITY_PAGE_LAYOUT, IDC_TONER_SAVE_OFF, IDC_ALL_RASTER_OFF, IDC_PRINTER_TRUETYPE})
        EXPECT_TRUE(sheet.Checked(control)) << control;
    EXPECT_EQ(sheet.Usable(), "tSA");
    EXPECT_TRUE(sheet.Enabled(IDC_PRINTER_TRUETYPE));
    EXPECT_FALSE(sheet.Enabled(IDC_QUALITY_PREVIEW));
    EXPECT_EQ(sheet.Changes(), 0);
}

TEST(QualityPage, AResolutionIsStoredAndDecidesOnTonerSave)
{
    struct Row {
        const char16_t* text;
        int choice, dotsPerInch;
        const char* usable;
    };
    for (const Row& row : {
             Row{u"1200 x 1200", 1200, 1200, "tSA"},
             {u"600 x 600",   600,  600,  "TSA"},
             {u"1200 x 600",  2,    600,  "tSA"},
    }) {
        QualitySheet sheet;
        sheet.Choose(IDC_RESOLUTION, 2).Choose(IDC_RESOLUTION, row.text);
        EXPECT_EQ(sheet.Usable(), row.usable) << row.choice;
        EXPECT_EQ(sheet.Changes(), 2) << "every pick tells the sheet";
        sheet.GoAwayAndComeBack();
        EXPECT_EQ(sheet.Text(IDC_RESOLUTION), row.text) << row.choice;
        EXPECT_EQ(sheet.Usable(), row.usable) << row.choice;
        const DriverDevMode record = sheet.Ok();
        EXPECT_EQ(record.dmResolutionChoice, row.choice);
        EXPECT_EQ(record.dmResolution, row.dotsPerInch);
        EXPECT_EQ(record.dmPrintQuality, row.dotsPerInch);
    }
}

TEST(QualityPage, ResolutionsThatAreNoneOfOursShowAsTheHighest)
{
    for (const char* fields : {"dmPrintQuality=300", "dmPrintQuality=2", "dmPrintQuality=-4"})
        EXPECT_EQ(QualitySheet(fields).Selection(IDC_RESOLUTION), 2) << fields;
}

TEST(QualityPage, TonerSaveLeavesOnlyTheLowestResolution)
{
    QualitySheet sheet(Lowest);
    sheet.Click(IDC_TONER_SAVE_ON);

    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 0);
    EXPECT_EQ(sheet.Usable(), "TsA");
    EXPECT_EQ(sheet.Changes(), 1);
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmTonerSave, 1);
    EXPECT_EQ(record.dmSmoothtone, 2) << "the locked value stays";
}

TEST(QualityPage, TonerSaveOffBringsTheResolutionsBack)
{
    QualitySheet sheet(LowestWithTonerSave);
    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600"));
    sheet.Choose(IDC_RESOLUTION, 0);
    EXPECT_EQ(sheet.Usable(), "TsA") << "the only row unlocks nothing";
    sheet.Click(IDC_TONER_SAVE_OFF);

    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600", u"1200 x 600", u"1200 x 1200"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 0);
    EXPECT_EQ(sheet.Usable(), "TSA");
    EXPECT_EQ(sheet.Changes(), 2);
    EXPECT_EQ(sheet.Ok().dmTonerSave, 0);
}

TEST(QualityPage, ARecordWithTonerSaveAndAHighResolutionSelectsNothing)
{
    QualitySheet sheet("dmTonerSave=1 dmResolutionChoice=1200 dmResolution=1200 dmPrintQuality=1200");
    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), -1);
    EXPECT_EQ(sheet.Usable(), "tsA");
}

TEST(QualityPage, AFixedResolutionLocksTonerSaveAndSmoothtone)
{
    for (const char* fixed : {" dmFixedResolution=1", " dmFixedResolution=2"}) {
        QualitySheet sheet((Lowest + std::string(fixed)).c_str());
        EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600"));
        sheet.Choose(IDC_RESOLUTION, 0);
        EXPECT_EQ(sheet.Usable(), "tsA") << fixed;
    }
}

TEST(QualityPage, AllRasterNeedsAPlainPage)
{
    struct Row {
        const char* fields;
        bool possible;
    };
    for (const Row& row : {
             Row{"",                 true },
             {"dmFitToPaper=1",   false},
             {"dmFitToPaper=2",   false},
             {"dmNupOn=1",        false},
             {"dmNupOn=2",        true },
             {"dmBookletPaper=9", false},
             {"dmDuplexOn=1",     true },
    }) {
        SCOPED_TRACE(row.fields);
        QualitySheet sheet("dmAllRaster=1 dmPrinterTrueType=1");
        sheet.Page(ElsewherePage).Change(Fields(row.fields));
        EXPECT_EQ(sheet.Settings().dmAllRaster, 1) << "until this page comes back";
        sheet.Change(Fields("dmPrinterTrueType=1")).Page(u"Quality");
        EXPECT_EQ(sheet.Usable(), row.possible ? "tSA" : "tSa");
        EXPECT_EQ(sheet.Checked(IDC_ALL_RASTER_ON), row.possible);
        EXPECT_EQ(sheet.Checked(IDC_ALL_RASTER_OFF), !row.possible);
        EXPECT_EQ(sheet.Enabled(IDC_PRINTER_TRUETYPE), !row.possible);
        EXPECT_EQ(sheet.Checked(IDC_PRINTER_TRUETYPE), !row.possible);
        EXPECT_EQ(sheet.Settings().dmAllRaster, row.possible);
        EXPECT_EQ(sheet.Settings().dmPrinterTrueType, !row.possible);
    }
}

TEST(QualityPage, NupLeavesTheTrueTypeChoiceAsItIs)
{
    QualitySheet sheet("dmNupOn=1 dmPrinterTrueType=0");
    EXPECT_TRUE(sheet.Enabled(IDC_PRINTER_TRUETYPE));
    EXPECT_FALSE(sheet.Checked(IDC_PRINTER_TRUETYPE));
}

TEST(QualityPage, AllRasterTurnsTrueTypeOffAndItsEndTurnsItOn)
{
    QualitySheet sheet;
    int changes = 0;
    for (const auto& [button, fonts] : {
             std::pair{IDC_ALL_RASTER_ON,  true },
             {IDC_ALL_RASTER_OFF, false}
    }) {
        sheet.Click(button);
        EXPECT_EQ(sheet.Checked(IDC_PRINTER_TRUETYPE), !fonts);
        EXPECT_EQ(sheet.Enabled(IDC_PRINTER_TRUETYPE), !fonts);
        EXPECT_EQ(sheet.Settings().dmPrinterTrueType, !fonts);
        EXPECT_EQ(sheet.Changes(), ++changes);
    }
}

TEST(QualityPage, GraphicsAndTextModesFollowAllRasterOnlyWhenThePageComesBack)
{
    QualitySheet sheet;
    const auto modes = [](const DriverDevMode& record) {
        return std::to_string(record.dmGraphicsMode) + std::to_string(record.dmTextMode);
    };
    sheet.Click(IDC_ALL_RASTER_ON).Apply();
    EXPECT_EQ(sheet.Published().dmAllRaster, 1);
    EXPECT_EQ(modes(sheet.Published()), "12") << "Apply is before the page comes back";
    sheet.GoAwayAndComeBack();
    EXPECT_EQ(modes(sheet.Settings()), "01");
    sheet.Click(IDC_ALL_RASTER_OFF);
    EXPECT_EQ(modes(sheet.Settings()), "01");
    sheet.GoAwayAndComeBack();
    EXPECT_EQ(modes(sheet.Settings()), "12");
}

TEST(QualityPage, ListsAndCheckBoxAreStored)
{
    QualitySheet sheet;
    sheet.Choose(IDC_SMOOTHTONE, u"Dark").Choose(IDC_TONER_DENSITY, u"Extra Light").Click(IDC_PRINTER_TRUETYPE);

    EXPECT_EQ(sheet.Changes(), 3);
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmSmoothtone, 3);
    EXPECT_EQ(record.dmTonerDensity, 0);
    EXPECT_EQ(record.dmPrinterTrueType, 0);
}

TEST(QualityPage, ValuesThatTheListsCannotShowSelectNothing)
{
    QualitySheet sheet("dmSmoothtone=4 dmTonerDensity=-1");
    EXPECT_EQ(sheet.Selection(IDC_SMOOTHTONE), -1);
    EXPECT_EQ(sheet.Selection(IDC_TONER_DENSITY), -1);
    EXPECT_EQ(sheet.Settings().dmTonerDensity, -1) << "showing changes nothing";
}

TEST(QualityPage, ChoosingWhatIsChosenTellsNobody)
{
    struct Row {
        const char* fields;
        int control;
    };
    for (const Row& row : {
             Row{Lowest,              IDC_TONER_SAVE_OFF        },
             {LowestWithTonerSave, IDC_TONER_SAVE_ON         },
             {"",                  IDC_ALL_RASTER_OFF        },
             {"dmAllRaster=1",     IDC_ALL_RASTER_ON         },
             {"",                  IDC_QUALITY_PAGE_LAYOUT   },
             {"",                  IDC_QUALITY_PRINTER_FIGURE},
    }) {
        QualitySheet sheet(row.fields);
        const auto before = sheet.Items(IDC_RESOLUTION);
        sheet.Click(row.control);
        EXPECT_EQ(sheet.Changes(), 0) << row.control;
        EXPECT_FALSE(sheet.ApplyEnabled()) << row.control;
        EXPECT_EQ(sheet.Items(IDC_RESOLUTION), before) << row.control;
    }
}

TEST(QualityPage, OnlyAPickOfAListCounts)
{
    QualitySheet sheet;
    constexpr int CloseUp = 8;
    for (const int list : {IDC_RESOLUTION, IDC_SMOOTHTONE, IDC_TONER_DENSITY})
        EXPECT_EQ(sheet.Notice(list, CloseUp), TRUE) << list;
    EXPECT_EQ(sheet.Changes(), 0);
    EXPECT_EQ(sheet.Notice(IDC_RESOLUTION_GROUP, BN_CLICKED), FALSE);
}

TEST(QualityPage, OtherMessagesAreLeftToTheDialog)
{
    QualitySheet sheet;
    for (const UINT message : {WM_PAINT, WM_CONTEXTMENU, WM_DESTROY, WM_SETFONT})
        EXPECT_EQ(sheet.Send(message, 0, 0), FALSE) << message;
    for (const UINT code : {PSN_KILLACTIVE, PSN_QUERYCANCEL, PSN_RESET, PSN_QUERYINITIALFOCUS}) {
        NMHDR notification{nullptr, 0, code};
        EXPECT_EQ(sheet.Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification)), FALSE) << code;
    }
}

TEST(QualityPage, DefaultRestoresThePage)
{
    QualitySheet sheet(
        "dmResolutionChoice=600 dmResolution=600 dmPrintQuality=600 dmTonerSave=1 dmSmoothtone=0 dmTonerDensity=6 "
        "dmAllRaster=1 dmPrinterTrueType=0 dmFixedResolution=1");
    sheet.Click(IDC_QUALITY_PRINTER_FIGURE).Click(IDC_DEFAULT);

    EXPECT_EQ(sheet.Changes(), 1);
    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600", u"1200 x 600", u"1200 x 1200"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 1);
    EXPECT_TRUE(sheet.Checked(IDC_TONER_SAVE_OFF));
    EXPECT_TRUE(sheet.Checked(IDC_QUALITY_PAGE_LAYOUT));
    EXPECT_EQ(sheet.Usable(), "tSA");
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmResolutionChoice, 2);
    EXPECT_EQ(record.dmPrintQuality, 600);
    EXPECT_EQ(record.dmTonerSave, 0);
    EXPECT_EQ(record.dmSmoothtone, 2);
    EXPECT_EQ(record.dmTonerDensity, 3);
    EXPECT_EQ(record.dmAllRaster, 0);
    EXPECT_EQ(record.dmPrinterTrueType, 1);
    EXPECT_EQ(record.dmFixedResolution, 0);
    EXPECT_EQ(record.dmPreviewMode, 0);
}

TEST(QualityPage, DefaultKeepsAFixedResolutionOtherThanOne)
{
    QualitySheet sheet("dmFixedResolution=2");
    sheet.Click(IDC_DEFAULT);
    EXPECT_EQ(sheet.Settings().dmFixedResolution, 2);
}

TEST(QualityPage, DefaultAtTheDefaultsOnlyRepaints)
{
    QualitySheet sheet;
    sheet.Drawn();
    sheet.Click(IDC_DEFAULT);
    EXPECT_EQ(sheet.Changes(), 0);
    EXPECT_EQ(sheet.Usable(), "tSA");
    EXPECT_FALSE(sheet.Drawn().empty());
}

TEST(QualityPage, ThePictureModeIsKeptAndLostWhenThePageComesBack)
{
    QualitySheet sheet;
    sheet.Click(IDC_QUALITY_PRINTER_FIGURE);
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 1);
    sheet.GoAwayAndComeBack();
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 0);
    EXPECT_TRUE(sheet.Checked(IDC_QUALITY_PAGE_LAYOUT));
    EXPECT_FALSE(sheet.Checked(IDC_QUALITY_PRINTER_FIGURE));
}

}  // namespace
