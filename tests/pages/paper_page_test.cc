// The Paper page as a whole: what it shows, what it stores, its defaults, and what it tells the sheet.
#include "pages/paper_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/paper_combo.h"
#include "platform/controls.h"
#include "platform/user/window.h"
#include "tests/support/paper_sheet.h"
#include "tests/support/watermarks.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(PaperPage, ShowsAFreshRecord)
{
    PaperSheet sheet(Fields("dmPreviewMode=1"));
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 0) << "coming to the front shows the page layout";
    EXPECT_EQ(sheet.Text(IDC_DOCUMENT_SIZE), u"Letter (8.5 x 11 inch)");
    EXPECT_EQ(sheet.Fit(), "-FoS 100 | 0 100");
    EXPECT_EQ(sheet.Copies(), "N 1 ru p- | 1 0 0");
    EXPECT_EQ(sheet.Shift(), "off xy 0 0 | 0 0 0");
    EXPECT_TRUE(sheet.Checked(IDC_PAPER_PAGE_LAYOUT));
    EXPECT_FALSE(sheet.Enabled(IDC_PAPER_PREVIEW));
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmPaperLength, 3300) << "the filler of a default record gives way to the size in dots";
    EXPECT_EQ(record.dmPaperWidth, 2550);
}

TEST(PaperPage, StoresEveryChoice)
{
    PaperSheet sheet;
    const std::string stored = sheet.Difference([&] {
        sheet.Choose(IDC_DOCUMENT_SIZE, u"Legal (8.5 x 14 inch)").Type(IDC_SCALING, u"150").Type(IDC_COPIES, u"3");
        sheet.Click(IDC_COLLATED).Click(IDC_PROOF_PRINT).Click(IDC_LANDSCAPE).Click(IDC_ROTATED).Click(IDC_SHIFT_ON);
        sheet.Type(IDC_SHIFT_X, u"-20").Type(IDC_SHIFT_Y, u"25");
    });
    EXPECT_THAT(stored, testing::StartsWith("dmOrientation=2 dmPaperSize=5 dmPaperLength=4200 dmCopies=3 "
                                            "dmFitToPaper=1 dmZoom=150 dmCollateMode=1 dmPaperLengthPriv=4200 "
                                            "dmImageShiftX=-20 dmImageShiftY=25 dmProofPrint=1 dmImageShiftOn=1 "
                                            "dmImageRotated=1 told"));
}

TEST(PaperPage, StoresACustomSizeByCodeAndExtentAndTakesItAnewInFront)
{
    PaperSheet sheet({}, FormAndCard);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Card (8.50x11.00 inch)");
    sheet.ChangeElsewhere(Fields("dmPaperLength=1 dmPaperWidth=1"));
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmPaperSize, 258);
    EXPECT_EQ(record.dmPaperLength, 3300);
    EXPECT_EQ(record.dmPaperWidth, 2550);
    EXPECT_EQ(record.dmFormName[0], 0);
}

TEST(PaperPage, DefaultRestoresEverythingInEveryCountryAndForEveryMedia)
{
    struct DefaultCase {
        int country;
        const char* media;
        SHORT code, length, output;
    };
    const DefaultCase cases[] = {
        {UnitedStates, "dmMediaIndex=0", 1,   3300, 1},
        {UnitedStates, "dmMediaIndex=2", 27,  2598, 1},
        {Germany,      "dmMediaIndex=0", 9,   3507, 9},
        {Germany,      "dmMediaIndex=1", 9,   3507, 9},
        {Germany,      "dmMediaIndex=3", 216, 1748, 9},
    };
    for (const DefaultCase& one : cases) {
        SCOPED_TRACE(std::to_string(one.country) + one.media);
        PaperSheet sheet(
            Fields("dmPaperSize=258 dmCopies=3 dmCollateMode=1 dmProofPrint=1 dmOrientation=2 dmFitToPaper=2 "
                   "dmOutputPaper=11 dmImageShiftOn=1 dmImageRotated=1 dmImageShiftX=5 dmImageShiftY=-5 " +
                   std::string(one.media)),
            FormAndCard, one.country);
        sheet.Click(IDC_PAPER_PRINTER_FIGURE).Click(IDC_DEFAULT);
        EXPECT_EQ(sheet.Code(IDC_DOCUMENT_SIZE), one.code);
        EXPECT_EQ(sheet.Code(IDC_OUTPUT_SIZE), one.output);
        EXPECT_EQ(sheet.Fit(), "-FoS 100 | 0 100");
        EXPECT_EQ(sheet.Copies(), "N 1 ru p- | 1 0 0");
        EXPECT_EQ(sheet.Shift(), "off xy 0 0 | 0 0 0");
        EXPECT_TRUE(sheet.Checked(IDC_PAPER_PAGE_LAYOUT));
        const DriverDevMode record = sheet.Ok();
        EXPECT_EQ(record.dmPaperLength, one.length);
        EXPECT_EQ(record.dmOrientation, 1);
        EXPECT_EQ(record.dmOutputPaper, one.output);
        EXPECT_EQ(record.dmImageRotated, 0);
        EXPECT_EQ(record.dmPreviewMode, 0);
    }
}

TEST(PaperPage, DefaultLeavesWhatIsTheSetupPagesAndLeadsToTheCopies)
{
    PaperSheet sheet(Fields("dmDefaultSource=1 dmNupOn=1 dmNupCount=4 dmDuplexOn=1 dmDuplexBinding=1"));
    sheet.Click(IDC_DEFAULT);
    EXPECT_EQ(sheet.Settings().dmNupCount, 4);
    EXPECT_EQ(sheet.Settings().dmDuplexOn, 1);
    EXPECT_EQ(sheet.Press(platform::user::Key::Up).Settings().dmCopies, 2);
}

TEST(PaperPage, TellsTheSheetOfWhatChangesAndDrawsWhatMayHaveChanged)
{
    struct Action {
        const char* name;
        std::function<void(PaperSheet&)> act;
        int told;  // words to the sheet, as the handlers count
        bool drawn;
    };
    // Fit and scaling tell of the number that they write too.
    const Action actions[] = {
        {"paper",       [](auto& sheet) { sheet.Choose(IDC_DOCUMENT_SIZE, 1); },    1, true },
        {"fit",         [](auto& sheet) { sheet.Click(IDC_FIT_TO_PAPER); },         2, true },
        {"scaling",     [](auto& sheet) { sheet.Type(IDC_SCALING, u"50"); },        2, true },
        {"copies",      [](auto& sheet) { sheet.Type(IDC_COPIES, u"5"); },          1, false},
        {"landscape",   [](auto& sheet) { sheet.Click(IDC_LANDSCAPE); },            1, true },
        {"rotated",     [](auto& sheet) { sheet.Click(IDC_ROTATED); },              0, false},
        {"shift on",    [](auto& sheet) { sheet.Click(IDC_SHIFT_ON); },             1, false},
        {"figure",      [](auto& sheet) { sheet.Click(IDC_PAPER_PRINTER_FIGURE); }, 1, true },
        {"default",     [](auto& sheet) { sheet.Click(IDC_DEFAULT); },              5, true },
        {"coming back", [](auto& sheet) { sheet.GoAwayAndComeBack(); },             0, true },
    };
    for (const Action& action : actions) {
        PaperSheet sheet;
        sheet.Drawn();
        const int before = sheet.Changes();
        action.act(sheet);
        EXPECT_EQ(sheet.Changes() - before, action.told) << action.name;
        EXPECT_EQ(!sheet.Drawn().empty(), action.drawn) << action.name;
    }
}

TEST(PaperPage, ShowsCollationAndOrientationAsIcons)
{
    for (const bool other : {false, true}) {
        PaperSheet sheet([=](DriverDevMode& record) {
            record.dmCopies = 2;
            record.dmCollateMode = other ? 1 : 0;
            record.dmOrientation = other ? 2 : 1;
        });
        sheet.Drawn();
        sheet.Click(IDC_PAPER_PAGE_LAYOUT);
        std::vector<std::string> icons;
        for (const std::string& line : sheet.Drawn())
            if (line.find("DrawIcon") != std::string::npos) icons.push_back(line);
        EXPECT_THAT(icons, ElementsAre(HasSubstr(other ? "9512" : "9515"), HasSubstr(other ? "9513" : "9514")));
    }
}

TEST(PaperPage, BringsTheJobsWatermarkUpToDate)
{
    for (const DWORD on : {0u, 1u}) {
        PaperSheet sheet(Fields("wmId=1 dmWatermarkOn=" + std::to_string(on)), {}, UnitedStates, true,
                         [](TestMachine& machine) {
                             StoreWatermarks(machine,
                                             {
                                                 {u"Name", u"New"}
                             },
                                             TestPrinter);
                         });
        EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), on ? u"New" : u"");
    }
}

}  // namespace
