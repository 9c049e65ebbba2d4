// The rules of the Quality page, driven as a user drives them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "platform/controls.h"
#include "resources/control_numbers.h"
#include "tests/support/sheet_driver.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing_support::ElsewherePage;
using testing_support::Sheet;

constexpr int TonerSaveControls[] = {IDC_TONER_SAVE_GROUP, IDC_TONER_SAVE_OFF, IDC_TONER_SAVE_ON};
constexpr int SmoothtoneControls[] = {IDC_SMOOTHTONE_LABEL, IDC_SMOOTHTONE};
constexpr int AllRasterControls[] = {IDC_ALL_RASTER_LABEL, IDC_ALL_RASTER_OFF, IDC_ALL_RASTER_ON};

// The document sheet with the Quality page in front.
class QualitySheet : public Sheet {
  public:
    explicit QualitySheet(const Prepare& prepare = {}) : Sheet(prepare) { Page(u"Quality"); }

    // 1 or 0 if the controls agree, -1 if they don't.
    int AllEnabled(std::span<const int> controls)
    {
        int enabled = 0;
        for (const int control : controls) enabled += Enabled(control) ? 1 : 0;
        if (enabled == 0) return 0;
        return enabled == static_cast<int>(controls.size()) ? 1 : -1;
    }
    // Leaves the page and comes back.
    void GoAwayAndComeBack() { Page(ElsewherePage).Page(u"Quality"); }
};

using Prepare = void (*)(DriverDevMode& record);

void Lowest(DriverDevMode& record) { record.dmResolutionChoice = record.dmResolution = record.dmPrintQuality = 600; }

void LowestWithTonerSave(DriverDevMode& record)
{
    Lowest(record);
    record.dmTonerSave = 1;
}

TEST(QualityPage, ShowsAFreshRecord)
{
    QualitySheet sheet;

    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600", u"1200 x 600", u"1200 x 1200"));
    EXPECT_THAT(sheet.ItemData(IDC_RESOLUTION), ElementsAre(0, 1, 2));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 1);
    EXPECT_THAT(sheet.Items(IDC_SMOOTHTONE), ElementsAre(u"Off", u"Light", u"Medium", u"Dark"));
    EXPECT_EQ(sheet.Selection(IDC_SMOOTHTONE), 2);
    EXPECT_THAT(sheet.Items(IDC_TONER_DENSITY), ElementsAre(u"Extra Light", u"Light", u"Medium Light", u"Medium",
                                                            u"Medium Dark", u"Dark", u"Extra Dark"));
    EXPECT_EQ(sheet.Selection(IDC_TONER_DENSITY), 3);
    EXPECT_TRUE(sheet.Checked(IDC_QUALITY_PAGE_LAYOUT));
    EXPECT_TRUE(sheet.Checked(IDC_TONER_SAVE_OFF));
    EXPECT_TRUE(sheet.Checked(IDC_ALL_RASTER_OFF));
    EXPECT_TRUE(sheet.Checked(IDC_PRINTER_TRUETYPE));
    EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), 0);
    EXPECT_EQ(sheet.AllEnabled(SmoothtoneControls), 1);
    EXPECT_EQ(sheet.AllEnabled(AllRasterControls), 1);
    EXPECT_TRUE(sheet.Enabled(IDC_PRINTER_TRUETYPE));
    EXPECT_FALSE(sheet.Enabled(IDC_QUALITY_PREVIEW));
    EXPECT_EQ(sheet.Changes(), 0);
}

struct ResolutionCase {
    const char16_t* text;
    int choice, dotsPerInch;
    bool tonerSavePossible;
};

class EveryResolution : public testing::TestWithParam<ResolutionCase> {};
INSTANTIATE_TEST_SUITE_P(QualityPage, EveryResolution,
                         testing::Values(ResolutionCase{u"600 x 600", 600, 600, true},
                                         ResolutionCase{u"1200 x 600", 2, 600, false},
                                         ResolutionCase{u"1200 x 1200", 1200, 1200, false}));

TEST_P(EveryResolution, IsStoredAndDecidesOnTonerSave)
{
    QualitySheet sheet;
    sheet.Choose(IDC_RESOLUTION, GetParam().text);

    EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), GetParam().tonerSavePossible ? 1 : 0);
    EXPECT_EQ(sheet.Changes(), 1);
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmResolutionChoice, GetParam().choice);
    EXPECT_EQ(record.dmResolution, GetParam().dotsPerInch);
    EXPECT_EQ(record.dmPrintQuality, GetParam().dotsPerInch);
}

TEST_P(EveryResolution, ShowsAgainWhenThePageComesBack)
{
    QualitySheet sheet;
    sheet.Choose(IDC_RESOLUTION, GetParam().text);
    sheet.GoAwayAndComeBack();

    EXPECT_EQ(sheet.Text(IDC_RESOLUTION), GetParam().text);
    EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), GetParam().tonerSavePossible ? 1 : 0);
}

TEST(QualityPage, ResolutionsThatAreNoneOfOursShowAsTheHighest)
{
    for (const SHORT quality : {SHORT{300}, SHORT{2}, SHORT{-4}}) {
        QualitySheet sheet([quality](DriverDevMode& record) { record.dmPrintQuality = quality; });
        EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 2) << quality;
    }
}

TEST(QualityPage, HighestAndBackToLowestEnablesTonerSaveAndSmoothtone)
{
    QualitySheet sheet;
    sheet.Choose(IDC_RESOLUTION, 2);
    EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), 0);
    sheet.Choose(IDC_RESOLUTION, 0);
    EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), 1);
    EXPECT_EQ(sheet.AllEnabled(SmoothtoneControls), 1);
}

TEST(QualityPage, TonerSaveLeavesOnlyTheLowestResolution)
{
    QualitySheet sheet(Lowest);
    sheet.Click(IDC_TONER_SAVE_ON);

    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 0);
    EXPECT_EQ(sheet.AllEnabled(SmoothtoneControls), 0);
    EXPECT_EQ(sheet.Changes(), 1);
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmTonerSave, 1);
    EXPECT_EQ(record.dmSmoothtone, 2) << "the locked value stays";
}

TEST(QualityPage, TonerSaveOffBringsTheResolutionsBack)
{
    QualitySheet sheet(LowestWithTonerSave);
    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600"));
    EXPECT_EQ(sheet.AllEnabled(SmoothtoneControls), 0);
    sheet.Click(IDC_TONER_SAVE_OFF);

    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600", u"1200 x 600", u"1200 x 1200"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 0);
    EXPECT_EQ(sheet.AllEnabled(SmoothtoneControls), 1);
    EXPECT_EQ(sheet.Changes(), 1);
    EXPECT_EQ(sheet.Ok().dmTonerSave, 0);
}

TEST(QualityPage, PickingTheOnlyRowUnderTonerSaveUnlocksNothing)
{
    QualitySheet sheet(LowestWithTonerSave);
    sheet.Choose(IDC_RESOLUTION, 0);

    EXPECT_EQ(sheet.AllEnabled(SmoothtoneControls), 0);
    EXPECT_EQ(sheet.Settings().dmTonerSave, 1);
}

TEST(QualityPage, ARecordWithTonerSaveAndAHighResolutionSelectsNothing)
{
    QualitySheet sheet([](DriverDevMode& record) {
        record.dmTonerSave = 1;
        record.dmResolutionChoice = record.dmResolution = record.dmPrintQuality = 1200;
    });

    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), -1);
    EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), 0);
}

TEST(QualityPage, AFixedResolutionLocksTonerSaveAndSmoothtone)
{
    for (const SHORT fixed : {SHORT{1}, SHORT{2}}) {
        QualitySheet sheet([fixed](DriverDevMode& record) {
            Lowest(record);
            record.dmFixedResolution = fixed;
        });
        EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600"));
        sheet.Choose(IDC_RESOLUTION, 0);
        EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), 0);
        EXPECT_EQ(sheet.AllEnabled(SmoothtoneControls), 0);
    }
}

struct RasterCase {
    const char* name;
    Prepare prepare;
    bool possible;
};

class RasterAgainstLayout : public testing::TestWithParam<RasterCase> {};
INSTANTIATE_TEST_SUITE_P(
    QualityPage, RasterAgainstLayout,
    testing::Values(RasterCase{"PlainPage", [](DriverDevMode&) {}, true},
                    RasterCase{"Scaled", [](DriverDevMode& record) { record.dmFitToPaper = 1; }, false},
                    RasterCase{"FittedToPaper", [](DriverDevMode& record) { record.dmFitToPaper = 2; }, false},
                    RasterCase{"Nup", [](DriverDevMode& record) { record.dmNupOn = 1; }, false},
                    RasterCase{"NupOfAnotherKind", [](DriverDevMode& record) { record.dmNupOn = 2; }, true},
                    RasterCase{"Booklet", [](DriverDevMode& record) { record.dmBookletPaper = 9; }, false},
                    RasterCase{"Duplex", [](DriverDevMode& record) { record.dmDuplexOn = 1; }, true}),
    [](const auto& test) { return test.param.name; });

TEST_P(RasterAgainstLayout, IsForcedOffAndLocked)
{
    QualitySheet sheet([](DriverDevMode& record) {
        record.dmAllRaster = 1;
        record.dmPrinterTrueType = 1;
        GetParam().prepare(record);
    });
    const bool possible = GetParam().possible;

    EXPECT_EQ(sheet.AllEnabled(AllRasterControls), possible ? 1 : 0);
    EXPECT_EQ(sheet.Checked(IDC_ALL_RASTER_ON), possible);
    EXPECT_EQ(sheet.Checked(IDC_ALL_RASTER_OFF), !possible);
    EXPECT_EQ(sheet.Enabled(IDC_PRINTER_TRUETYPE), !possible);
    EXPECT_EQ(sheet.Checked(IDC_PRINTER_TRUETYPE), !possible);
    const DriverDevMode record = sheet.Settings();
    EXPECT_EQ(record.dmAllRaster, possible ? 1 : 0);
    EXPECT_EQ(record.dmPrinterTrueType, possible ? 0 : 1);
}

TEST(QualityPage, WhatAnotherPageLocksShowsWhenThePageComesBack)
{
    QualitySheet sheet([](DriverDevMode& record) { record.dmAllRaster = 1; });
    sheet.Page(ElsewherePage).Change([](DriverDevMode& record) { record.dmNupOn = 1; });
    EXPECT_EQ(sheet.Settings().dmAllRaster, 1);
    sheet.Page(u"Quality");

    EXPECT_EQ(sheet.AllEnabled(AllRasterControls), 0);
    EXPECT_EQ(sheet.Settings().dmAllRaster, 0);
}

TEST(QualityPage, NupLeavesTheTrueTypeChoiceAsItIs)
{
    QualitySheet sheet([](DriverDevMode& record) {
        record.dmNupOn = 1;
        record.dmPrinterTrueType = 0;
    });
    EXPECT_TRUE(sheet.Enabled(IDC_PRINTER_TRUETYPE));
    EXPECT_FALSE(sheet.Checked(IDC_PRINTER_TRUETYPE));
}

TEST(QualityPage, AllRasterTurnsTrueTypeOffAndItsEndTurnsItOn)
{
    QualitySheet sheet;
    sheet.Click(IDC_ALL_RASTER_ON);
    EXPECT_FALSE(sheet.Checked(IDC_PRINTER_TRUETYPE));
    EXPECT_FALSE(sheet.Enabled(IDC_PRINTER_TRUETYPE));
    EXPECT_EQ(sheet.Settings().dmPrinterTrueType, 0);

    sheet.Click(IDC_ALL_RASTER_OFF);
    EXPECT_TRUE(sheet.Checked(IDC_PRINTER_TRUETYPE));
    EXPECT_TRUE(sheet.Enabled(IDC_PRINTER_TRUETYPE));
    EXPECT_EQ(sheet.Settings().dmPrinterTrueType, 1);
    EXPECT_EQ(sheet.Changes(), 2);
}

TEST(QualityPage, GraphicsAndTextModesFollowAllRasterOnlyWhenThePageComesBack)
{
    const auto modes = [](int graphics, int text) {
        return AllOf(Field(&DriverDevMode::dmGraphicsMode, graphics), Field(&DriverDevMode::dmTextMode, text));
    };
    QualitySheet sheet;
    sheet.Click(IDC_ALL_RASTER_ON);
    EXPECT_THAT(sheet.Settings(), modes(1, 2));
    sheet.GoAwayAndComeBack();
    EXPECT_THAT(sheet.Settings(), modes(0, 1));
    sheet.Click(IDC_ALL_RASTER_OFF);
    EXPECT_THAT(sheet.Settings(), modes(0, 1));
    sheet.GoAwayAndComeBack();
    EXPECT_THAT(sheet.Settings(), modes(1, 2));
}

TEST(QualityPage, ApplyPublishesAllRasterBeforeTheModesFollow)
{
    QualitySheet sheet;
    sheet.Click(IDC_ALL_RASTER_ON).Apply();

    const DriverDevMode record = sheet.Published();
    EXPECT_EQ(record.dmAllRaster, 1);
    EXPECT_EQ(record.dmPrinterTrueType, 0);
    EXPECT_EQ(record.dmGraphicsMode, 1);
    EXPECT_EQ(record.dmTextMode, 2);
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
    QualitySheet sheet([](DriverDevMode& record) {
        record.dmSmoothtone = 4;
        record.dmTonerDensity = -1;
    });
    EXPECT_EQ(sheet.Selection(IDC_SMOOTHTONE), -1);
    EXPECT_EQ(sheet.Selection(IDC_TONER_DENSITY), -1);
    EXPECT_EQ(sheet.Settings().dmTonerDensity, -1) << "showing changes nothing";
}

struct NoChangeCase {
    Prepare prepare;
    int control;
};

TEST(QualityPage, ChoosingWhatIsChosenTellsNobody)
{
    const NoChangeCase cases[] = {
        {Lowest,                                                IDC_TONER_SAVE_OFF        },
        {LowestWithTonerSave,                                   IDC_TONER_SAVE_ON         },
        {[](DriverDevMode&) {},                                 IDC_ALL_RASTER_OFF        },
        {[](DriverDevMode& record) { record.dmAllRaster = 1; }, IDC_ALL_RASTER_ON         },
        {[](DriverDevMode&) {},                                 IDC_QUALITY_PAGE_LAYOUT   },
        {[](DriverDevMode&) {},                                 IDC_QUALITY_PRINTER_FIGURE},
    };
    for (const NoChangeCase& one : cases) {
        QualitySheet sheet(one.prepare);
        const auto before = sheet.Items(IDC_RESOLUTION);
        sheet.Click(one.control);
        EXPECT_EQ(sheet.Changes(), 0) << one.control;
        EXPECT_FALSE(sheet.ApplyEnabled()) << one.control;
        EXPECT_EQ(sheet.Items(IDC_RESOLUTION), before) << one.control;
    }
}

TEST(QualityPage, EveryPickOfARowTellsTheSheet)
{
    QualitySheet sheet;
    for (const int list : {IDC_RESOLUTION, IDC_SMOOTHTONE, IDC_TONER_DENSITY}) sheet.Choose(list, 1).Choose(list, 1);
    EXPECT_EQ(sheet.Changes(), 6);
    EXPECT_TRUE(sheet.ApplyEnabled());
}

TEST(QualityPage, CommandsAreAnsweredByTheControlAlone)
{
    QualitySheet sheet;
    constexpr int CloseUp = 8;
    EXPECT_EQ(sheet.Notice(IDC_RESOLUTION, CloseUp), TRUE);
    EXPECT_EQ(sheet.Notice(IDC_SMOOTHTONE, CloseUp), TRUE);
    EXPECT_EQ(sheet.Notice(IDC_TONER_DENSITY, CloseUp), TRUE);
    EXPECT_EQ(sheet.Changes(), 0) << "only a pick counts";
    EXPECT_EQ(sheet.Notice(IDC_RESOLUTION, CBN_SELCHANGE), TRUE);
    EXPECT_EQ(sheet.Notice(IDC_DEFAULT, BN_CLICKED), TRUE);
    EXPECT_EQ(sheet.Notice(IDC_RESOLUTION_GROUP, BN_CLICKED), FALSE);
    EXPECT_EQ(sheet.Notice(IDC_SETUP_PAGE_LAYOUT, BN_CLICKED), FALSE);
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
    QualitySheet sheet([](DriverDevMode& record) {
        LowestWithTonerSave(record);
        record.dmSmoothtone = 0;
        record.dmTonerDensity = 6;
        record.dmAllRaster = 1;
        record.dmPrinterTrueType = 0;
        record.dmFixedResolution = 1;
    });
    sheet.Click(IDC_QUALITY_PRINTER_FIGURE).Click(IDC_DEFAULT);

    EXPECT_EQ(sheet.Changes(), 1);
    EXPECT_THAT(sheet.Items(IDC_RESOLUTION), ElementsAre(u"600 x 600", u"1200 x 600", u"1200 x 1200"));
    EXPECT_EQ(sheet.Selection(IDC_RESOLUTION), 1);
    EXPECT_TRUE(sheet.Checked(IDC_TONER_SAVE_OFF));
    EXPECT_TRUE(sheet.Checked(IDC_QUALITY_PAGE_LAYOUT));
    EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), 0);
    EXPECT_EQ(sheet.AllEnabled(SmoothtoneControls), 1);
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
    QualitySheet sheet([](DriverDevMode& record) { record.dmFixedResolution = 2; });
    sheet.Click(IDC_DEFAULT);
    EXPECT_EQ(sheet.Settings().dmFixedResolution, 2);
}

TEST(QualityPage, DefaultAtTheDefaultsOnlyRepaints)
{
    QualitySheet sheet;
    sheet.Drawn();
    sheet.Click(IDC_DEFAULT);

    EXPECT_EQ(sheet.Changes(), 0);
    EXPECT_EQ(sheet.AllEnabled(TonerSaveControls), 0);
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

TEST(QualityPage, CancelPublishesNothing)
{
    QualitySheet sheet;
    sheet.Choose(IDC_TONER_DENSITY, 6);
    const DriverDevMode nothing{};
    const DriverDevMode record = sheet.Cancel();
    EXPECT_EQ(std::memcmp(&record, &nothing, sizeof record), 0);
}

}  // namespace
