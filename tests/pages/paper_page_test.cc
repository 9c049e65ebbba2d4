// The Paper page as a whole: what it shows, what it stores, its defaults, and what it tells the sheet.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/paper_sheet.h"
#include "tests/support/watermarks.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::HasSubstr;

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
    constexpr char Busy[] =
        "dmPaperSize=258 dmCopies=3 dmCollateMode=1 dmProofPrint=1 dmOrientation=2 dmFitToPaper=2 "
        "dmOutputPaper=11 dmImageShiftOn=1 dmImageRotated=1 dmImageShiftX=5 dmImageShiftY=-5 dmMediaIndex=";
    for (const auto& [country, media, code, length, output] : {
             std::tuple{UnitedStates, "2", 27,  2598, 1},
             {Germany,      "0", 9,   3507, 9},
             {Germany,      "1", 9,   3507, 9},
             {Germany,      "3", 216, 1748, 9}
    }) {
        PaperSheet sheet(Fields(std::string(Busy) + media), FormAndCard, country);
        sheet.Click(IDC_PAPER_PRINTER_FIGURE).Click(IDC_DEFAULT);
        EXPECT_EQ(sheet.Code(IDC_DOCUMENT_SIZE), code) << media;
        EXPECT_EQ(sheet.Code(IDC_OUTPUT_SIZE), output) << media;
        EXPECT_EQ(sheet.Fit() + " " + sheet.Copies() + " " + sheet.Shift(),
                  "-FoS 100 | 0 100 N 1 ru p- | 1 0 0 off xy 0 0 | 0 0 0");
        const DriverDevMode record = sheet.Ok();
        EXPECT_EQ(record.dmPaperLength, length);
        EXPECT_EQ(record.dmOutputPaper, output);
        EXPECT_EQ(record.dmOrientation, 1);
        EXPECT_EQ(record.dmImageRotated + record.dmPreviewMode, 0);
    }
}

TEST(PaperPage, DefaultLeadsToTheCopies)
{
    EXPECT_EQ(PaperSheet().Click(IDC_DEFAULT).Press(platform::user::Key::Up).Settings().dmCopies, 2);
}

TEST(PaperPage, TellsTheSheetOfWhatChangesAndDrawsWhatMayHaveChanged)
{
    // Words to the sheet, as the handlers count: fit and scaling tell of the number that they write too.
    using Act = std::function<void(PaperSheet&)>;
    // clang-format off
    const std::tuple<Act, int, bool> rows[] = {
        {[](auto& sheet) { sheet.Choose(IDC_DOCUMENT_SIZE, 1); },    1, true},
        {[](auto& sheet) { sheet.Click(IDC_FIT_TO_PAPER); },         2, true},
        {[](auto& sheet) { sheet.Type(IDC_SCALING, u"50"); },        2, true},
        {[](auto& sheet) { sheet.Type(IDC_COPIES, u"5"); },          1, false},
        {[](auto& sheet) { sheet.Click(IDC_LANDSCAPE); },            1, true},
        {[](auto& sheet) { sheet.Click(IDC_ROTATED); },              0, false},
        {[](auto& sheet) { sheet.Click(IDC_SHIFT_ON); },             1, false},
        {[](auto& sheet) { sheet.Click(IDC_PAPER_PRINTER_FIGURE); }, 1, true},
        {[](auto& sheet) { sheet.Click(IDC_DEFAULT); },              5, true},
        {[](auto& sheet) { sheet.GoAwayAndComeBack(); },             0, true},
    };
    // clang-format on
    for (const auto& [act, told, drawn] : rows) {
        PaperSheet sheet;
        sheet.Drawn();
        const int before = sheet.Changes();
        act(sheet);
        EXPECT_EQ(sheet.Changes() - before, told);
        EXPECT_EQ(!sheet.Drawn().empty(), drawn);
    }
}

TEST(PaperPage, ShowsCollationAndOrientationAsIcons)
{
    for (const auto& [fields, collation, orientation] : {
             std::tuple{"dmCopies=2",                                 "9515", "9514"},
             {"dmCopies=2 dmCollateMode=1 dmOrientation=2", "9512", "9513"}
    }) {
        PaperSheet sheet(Fields(fields));
        sheet.Drawn();
        auto lines = sheet.Click(IDC_PAPER_PAGE_LAYOUT).Drawn();
        std::erase_if(lines, [](const std::string& line) { return line.find("DrawIcon") == line.npos; });
        EXPECT_THAT(lines, ElementsAre(HasSubstr(collation), HasSubstr(orientation)));
    }
}

TEST(PaperPage, BringsTheJobsWatermarkUpToDate)
{
    StoredWatermark stored;
    stored.name = stored.text = u"New";
    for (const DWORD on : {0u, 1u}) {
        PaperSheet sheet(Fields("wmId=1 dmWatermarkOn=" + std::to_string(on)), {}, UnitedStates,
                         [&](TestMachine& machine) { StoreWatermarks(machine, {stored}, TestPrinter); });
        EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), on ? u"New" : u"");
    }
}

}  // namespace
