// The Paper page as a whole: what it shows, what it stores, its defaults, and what it tells the sheet.
#include "pages/paper_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/paper_combo.h"
#include "platform/controls.h"
#include "platform/user/window.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(PaperPage, ShowsAFreshRecord)
{
    PaperSheet sheet;
    EXPECT_EQ(sheet.Text(IDC_DOCUMENT_SIZE), u"Letter (8.5 x 11 inch)");
    EXPECT_EQ(sheet.Fit(), "-FoS 100 | 0 100");
    EXPECT_EQ(sheet.Copies(), "N 1 ru p- | 1 0 0");
    EXPECT_EQ(sheet.Shift(), "off xy 0 0 | 0 0 0");
    EXPECT_TRUE(sheet.Checked(IDC_PORTRAIT));
    EXPECT_FALSE(sheet.Checked(IDC_ROTATED));
    EXPECT_TRUE(sheet.Checked(IDC_PAPER_PAGE_LAYOUT));
    EXPECT_FALSE(sheet.Enabled(IDC_PAPER_PREVIEW));
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmPaperLength, 3300) << "the filler of a default record gives way to the size in dots";
    EXPECT_EQ(record.dmPaperWidth, 2550);
}

TEST(PaperPage, StoresEveryChoice)
{
    PaperSheet sheet({}, FormAndCard);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Legal (8.5 x 14 inch)").Type(IDC_SCALING, u"150").Type(IDC_COPIES, u"3");
    sheet.Click(IDC_COLLATED).Click(IDC_PROOF_PRINT).Click(IDC_LANDSCAPE).Click(IDC_ROTATED).Click(IDC_SHIFT_ON);
    sheet.Type(IDC_SHIFT_X, u"-20").Type(IDC_SHIFT_Y, u"25");
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmPaperSize, 5);
    EXPECT_EQ(record.dmPaperLength, 4200);
    EXPECT_EQ(record.dmPaperWidth, 2550);
    EXPECT_EQ(record.dmPaperLengthPriv, 4200);
    EXPECT_EQ(record.dmPaperWidthPriv, 2550);
    EXPECT_EQ(record.dmFitToPaper, 1);
    EXPECT_EQ(record.dmZoom, 150);
    EXPECT_EQ(record.dmCopies, 3);
    EXPECT_EQ(record.dmCollateMode, 1);
    EXPECT_EQ(record.dmProofPrint, 1);
    EXPECT_EQ(record.dmOrientation, 2);
    EXPECT_EQ(record.dmImageRotated, 1);
    EXPECT_EQ(record.dmImageShiftOn, 1);
    EXPECT_EQ(record.dmImageShiftX, -20);
    EXPECT_EQ(record.dmImageShiftY, 25);
}

TEST(PaperPage, StoresACustomSizeByCodeAndExtentAndTakesItAnewInFront)
{
    PaperSheet sheet({}, FormAndCard);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Card (8.50x11.00 inch)");
    sheet.ChangeElsewhere([](DriverDevMode& record) { record.dmPaperLength = record.dmPaperWidth = 1; });
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmPaperSize, 258);
    EXPECT_EQ(record.dmPaperLength, 3300);
    EXPECT_EQ(record.dmPaperWidth, 2550);
    EXPECT_EQ(record.dmPaperLengthPriv, 3300);
    EXPECT_EQ(record.dmFormName[0], 0);
}

TEST(PaperPage, ShowsARecordOfItsOwnKind)
{
    PaperSheet sheet(
        Fields("dmOrientation=2 dmImageRotated=1 dmImageShiftOn=1 dmImageShiftX=-50 dmImageShiftY=25 dmCopies=999 "
               "dmCollateMode=1 dmZoom=400 dmFitToPaper=1"));
    EXPECT_TRUE(sheet.Checked(IDC_LANDSCAPE));
    EXPECT_FALSE(sheet.Checked(IDC_PORTRAIT));
    EXPECT_TRUE(sheet.Checked(IDC_ROTATED));
    EXPECT_EQ(sheet.Shift(), "on XY -50 25 | 1 -50 25");
    EXPECT_EQ(sheet.Copies(), "N 999 Rc P- | 999 1 0");
    EXPECT_EQ(sheet.Fit(), "-foS 400 | 1 400");
}

// Everything of the page that differs from its default.
void Busy(DriverDevMode& record)
{
    SetFields(record,
              "dmPaperSize=258 dmCopies=3 dmCollateMode=1 dmProofPrint=1 dmOrientation=2 dmFitToPaper=2 "
              "dmOutputPaper=11 dmImageShiftOn=1 dmImageRotated=1 dmImageShiftX=5 dmImageShiftY=-5");
}

TEST(PaperPage, DefaultRestoresEverythingInEveryCountryAndForEveryMedia)
{
    struct DefaultCase {
        int country;
        SHORT media, code, length;
        int selection;
        SHORT output;
    };
    const DefaultCase cases[] = {
        {UnitedStates, 0, 1,   3300, 0, 1},
        {UnitedStates, 2, 27,  2598, 0, 1},
        {Germany,      0, 9,   3507, 1, 9},
        {Germany,      1, 9,   3507, 1, 9},
        {Germany,      2, 27,  2598, 0, 9},
        {Germany,      3, 216, 1748, 0, 9},
        {Germany,      4, 9,   3507, 1, 9},
    };
    for (const DefaultCase& one : cases) {
        SCOPED_TRACE(std::to_string(one.country) + " media " + std::to_string(one.media));
        PaperSheet sheet(
            [&](DriverDevMode& record) {
                Busy(record);
                record.dmMediaIndex = one.media;
            },
            FormAndCard, one.country);
        sheet.Click(IDC_PAPER_PRINTER_FIGURE).Click(IDC_DEFAULT);
        EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), one.selection);
        EXPECT_EQ(sheet.Fit(), "-FoS 100 | 0 100");
        EXPECT_EQ(sheet.Copies(), "N 1 ru p- | 1 0 0");
        EXPECT_EQ(sheet.Shift(), "off xy 0 0 | 0 0 0");
        EXPECT_TRUE(sheet.Checked(IDC_PORTRAIT));
        EXPECT_FALSE(sheet.Checked(IDC_ROTATED));
        EXPECT_TRUE(sheet.Checked(IDC_PAPER_PAGE_LAYOUT));
        EXPECT_EQ(sheet.Code(IDC_OUTPUT_SIZE), one.output);
        const DriverDevMode record = sheet.Ok();
        EXPECT_EQ(record.dmPaperSize, one.code);
        EXPECT_EQ(record.dmPaperLength, one.length);
        EXPECT_EQ(record.dmOrientation, 1);
        EXPECT_EQ(record.dmOutputPaper, one.output);
        EXPECT_EQ(record.dmImageRotated, 0);
        EXPECT_EQ(record.dmPreviewMode, 0);
        EXPECT_EQ(record.dmMediaIndex, one.media);
    }
}

TEST(PaperPage, DefaultLeavesWhatIsTheSetupPagesAndLeadsToTheCopies)
{
    PaperSheet sheet(Fields("dmDefaultSource=1 dmNupOn=1 dmNupCount=4 dmDuplexOn=1 dmDuplexBinding=1 dmWatermarkOn=1"));
    sheet.Click(IDC_DEFAULT);
    const DriverDevMode record = sheet.Settings();
    EXPECT_EQ(record.dmDefaultSource, 1);
    EXPECT_EQ(record.dmNupCount, 4);
    EXPECT_EQ(record.dmDuplexOn, 1);
    EXPECT_EQ(record.dmWatermarkOn, 1u);
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

TEST(PaperPage, AnswersMessagesAsADialogDoes)
{
    PaperSheet sheet;
    DRAWITEMSTRUCT item{};
    EXPECT_EQ(sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item)), TRUE);
    for (const UINT message : {WM_PAINT, WM_CONTEXTMENU, WM_DESTROY}) EXPECT_EQ(sheet.Send(message, 0, 0), FALSE);
    for (const UINT code : {PSN_SETACTIVE, PSN_KILLACTIVE, PSN_QUERYCANCEL, PSN_RESET, PSN_QUERYINITIALFOCUS}) {
        NMHDR notification{nullptr, 0, code};
        EXPECT_EQ(sheet.Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification)), FALSE) << code;
    }
    const int before = sheet.Changes();
    constexpr int OtherCode = 0x0700;
    for (const int control : {IDC_DOCUMENT_SIZE, IDC_OUTPUT_SIZE, IDC_SCALING, IDC_SHIFT_X, IDC_SHIFT_Y, IDC_COPIES})
        EXPECT_EQ(sheet.Notice(control, OtherCode), TRUE) << control;
    EXPECT_EQ(sheet.Changes(), before);
    EXPECT_EQ(sheet.Notice(IDC_SCALING_LABEL, BN_CLICKED), FALSE);
    EXPECT_EQ(sheet.Notice(IDC_QUALITY_PAGE_LAYOUT, BN_CLICKED), FALSE);
}

TEST(PaperPage, APickWithoutASelectionStoresNothing)
{
    PaperSheet sheet(Fields("dmOutputPaper=11"));
    sheet.OnPage([](HWND page) {
        SendDlgItemMessageW(page, IDC_DOCUMENT_SIZE, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        SendDlgItemMessageW(page, IDC_OUTPUT_SIZE, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    });
    sheet.Notice(IDC_DOCUMENT_SIZE, CBN_SELCHANGE);
    sheet.Notice(IDC_OUTPUT_SIZE, CBN_SELCHANGE);
    EXPECT_EQ(sheet.Settings().dmPaperSize, 1);
    EXPECT_EQ(sheet.Settings().dmOutputPaper, 11);
}

TEST(PaperPage, ThePictureModeIsLostWhenThePageComesBack)
{
    PaperSheet sheet(Fields("dmPreviewMode=1"));
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 0) << "coming to the front shows the page layout";
    sheet.Click(IDC_PAPER_PRINTER_FIGURE);
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 1);
    sheet.GoAwayAndComeBack();
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 0);
    EXPECT_TRUE(sheet.Checked(IDC_PAPER_PAGE_LAYOUT));
}

TEST(PaperPage, BringsTheJobsWatermarkUpToDate)
{
    const auto store = [](TestMachine& machine) {
        const auto put = [&](const char16_t* name, std::u16string_view text) {
            platform::Bytes bytes(3000);
            std::memcpy(bytes.data(), text.data(), text.size() * sizeof(char16_t));
            machine.store->SetValue(TestPrinter, name, {3, bytes});
        };
        put(u"WatermarkText", u"1\r\nNew\r\n");
        put(u"WatermarkTextName", u"1\r\nName\r\n");
        put(u"WatermarkAttributes", u"1|20|72|0|0|0|0|0|0|Arial\r\n");
    };
    for (const DWORD on : {0u, 1u}) {
        PaperSheet sheet(
            [on](DriverDevMode& record) {
                record.dmWatermarkOn = on;
                record.dmWatermark.wmId = 1;
            },
            {}, UnitedStates, true, store);
        EXPECT_EQ(std::u16string(sheet.Settings().dmWatermark.wmText), on ? u"New" : u"");
    }
}

// Whichever question about the lists fails, no paper without a code gets into the record.
TEST(PaperPage, TakesNoPaperWithoutACode)
{
    PaperSheet sheet({}, FormAndCard, Germany);
    auto& faults = platform::CurrentEnvironment().faults;
    for (std::uint64_t call = 1; call <= 12; ++call) {
        SCOPED_TRACE(call);
        faults.Clear();
        faults.Add("SendDlgItemMessageW", call, false);
        sheet.Click(IDC_DEFAULT).Click(IDC_FIT_TO_PAPER);
        faults.Clear();
        EXPECT_GT(sheet.Settings().dmPaperSize, 0);
        EXPECT_GT(sheet.Settings().dmOutputPaper, 0);
    }
}

}  // namespace
