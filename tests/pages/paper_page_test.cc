// The Paper page as a whole: what it shows, what it stores, its defaults, and what it tells the sheet.
#include "pages/paper_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/paper_combo.h"
#include "platform/controls.h"
#include "platform/user/window.h"
#include "tests/support/failing_places.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

const std::vector<CustomPaperEntry> Forms = {Entry(257, u"Form", 0, 2100, 2970), Entry(258, u"Card", 1, 800, 1100, 8)};

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
    PaperSheet sheet({}, Forms);
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

TEST(PaperPage, StoresACustomSizeByCodeAndExtent)
{
    PaperSheet sheet({}, Forms);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Card (8.50x11.00 inch)");
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(record.dmPaperSize, 258);
    EXPECT_EQ(record.dmPaperLength, 3300);
    EXPECT_EQ(record.dmPaperWidth, 2550);
    EXPECT_EQ(record.dmPaperLengthPriv, 3300);
    EXPECT_EQ(record.dmFormName[0], 0);
}

TEST(PaperPage, TakesTheSizeOfARowAnewWhenItComesToTheFront)
{
    PaperSheet sheet([](DriverDevMode& record) { record.dmPaperSize = 257; }, Forms);
    sheet.ChangeElsewhere([](DriverDevMode& record) { record.dmPaperLength = record.dmPaperWidth = 1; });
    EXPECT_EQ(sheet.Settings().dmPaperLength, 3507);
    EXPECT_EQ(sheet.Settings().dmPaperWidth, 2480);
}

TEST(PaperPage, ShowsARecordOfItsOwnKind)
{
    PaperSheet sheet([](DriverDevMode& record) {
        record.dmOrientation = 2;
        record.dmImageRotated = 1;
        record.dmImageShiftOn = 1;
        record.dmImageShiftX = -50;
        record.dmImageShiftY = 25;
        record.dmCopies = 999;
        record.dmCollateMode = 1;
        record.dmZoom = 400;
        record.dmFitToPaper = 1;
    });
    EXPECT_TRUE(sheet.Checked(IDC_LANDSCAPE));
    EXPECT_FALSE(sheet.Checked(IDC_PORTRAIT));
    EXPECT_TRUE(sheet.Checked(IDC_ROTATED));
    EXPECT_EQ(sheet.Shift(), "on XY -50 25 | 1 -50 25");
    EXPECT_EQ(sheet.Copies(), "N 999 Rc P- | 999 1 0");
    EXPECT_EQ(sheet.Fit(), "-foS 400 | 1 400");
}

struct DefaultCase {
    int country;
    SHORT media, code;
    int selection;
    SHORT output;
};

// Everything of the page that differs from its default.
void Busy(DriverDevMode& record)
{
    record.dmPaperSize = 258;
    record.dmCopies = 3;
    record.dmCollateMode = record.dmProofPrint = 1;
    record.dmOrientation = 2;
    record.dmFitToPaper = 2;
    record.dmOutputPaper = 11;
    record.dmImageShiftOn = record.dmImageRotated = 1;
    record.dmImageShiftX = 5;
    record.dmImageShiftY = -5;
}

TEST(PaperPage, DefaultRestoresEverythingInEveryCountryAndForEveryMedia)
{
    const DefaultCase cases[] = {
        {UnitedStates, 0, 1,   0, 1},
        {UnitedStates, 1, 1,   0, 1},
        {UnitedStates, 2, 27,  0, 1},
        {UnitedStates, 3, 216, 0, 1},
        {UnitedStates, 4, 1,   0, 1},
        {Germany,      0, 9,   1, 9},
        {Germany,      1, 9,   1, 9},
        {Germany,      2, 27,  0, 9},
        {Germany,      3, 216, 0, 9},
        {Germany,      4, 9,   1, 9},
    };
    for (const DefaultCase& one : cases) {
        PaperSheet sheet(
            [&](DriverDevMode& record) {
                Busy(record);
                record.dmMediaIndex = one.media;
            },
            Forms, one.country);
        sheet.Click(IDC_PAPER_PRINTER_FIGURE).Click(IDC_DEFAULT);
        SCOPED_TRACE(std::to_string(one.country) + " media " + std::to_string(one.media));
        EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), one.selection);
        EXPECT_EQ(sheet.Fit(), "-FoS 100 | 0 100");
        EXPECT_EQ(sheet.Copies(), "N 1 ru p- | 1 0 0");
        EXPECT_EQ(sheet.Shift(), "off xy 0 0 | 0 0 0");
        EXPECT_TRUE(sheet.Checked(IDC_PORTRAIT));
        EXPECT_FALSE(sheet.Checked(IDC_ROTATED));
        EXPECT_TRUE(sheet.Checked(IDC_PAPER_PAGE_LAYOUT));
        EXPECT_EQ(sheet.ItemData(IDC_OUTPUT_SIZE).at(static_cast<std::size_t>(sheet.Selection(IDC_OUTPUT_SIZE))),
                  one.output);
        const DriverDevMode record = sheet.Ok();
        EXPECT_EQ(record.dmPaperSize, one.code);
        EXPECT_EQ(record.dmPaperLength, one.code == 1 ? 3300 : one.code == 9 ? 3507 : one.code == 27 ? 2598 : 1748);
        EXPECT_EQ(record.dmOrientation, 1);
        EXPECT_EQ(record.dmOutputPaper, one.output);
        EXPECT_EQ(record.dmImageRotated, 0);
        EXPECT_EQ(record.dmPreviewMode, 0);
        EXPECT_EQ(record.dmMediaIndex, one.media);
    }
}

TEST(PaperPage, DefaultLeavesWhatIsTheSetupPages)
{
    PaperSheet sheet([](DriverDevMode& record) {
        record.dmDefaultSource = 1;
        record.dmNupOn = 1;
        record.dmNupCount = 4;
        record.dmDuplexOn = record.dmDuplexBinding = 1;
        record.dmWatermarkOn = 1;
    });
    sheet.Click(IDC_DEFAULT);
    const DriverDevMode record = sheet.Settings();
    EXPECT_EQ(record.dmDefaultSource, 1);
    EXPECT_EQ(record.dmNupCount, 4);
    EXPECT_EQ(record.dmDuplexOn, 1);
    EXPECT_EQ(record.dmWatermarkOn, 1u);
}

TEST(PaperPage, DefaultLeadsToTheCopies)
{
    PaperSheet sheet;
    sheet.Click(IDC_DEFAULT).Press(platform::user::Key::Up);
    EXPECT_EQ(sheet.Settings().dmCopies, 2);
}

// What each action tells the sheet, as its handlers count.
struct ToldCase {
    const char* name;
    std::function<void(PaperSheet&)> act;
    int told;
};

TEST(PaperPage, TellsTheSheetOfWhatChanges)
{
    const ToldCase cases[] = {
        {"paper",       [](auto& sheet) { sheet.Choose(IDC_DOCUMENT_SIZE, 0); },    1},
        {"fit",         [](auto& sheet) { sheet.Click(IDC_FIT_TO_PAPER); },         2}, // with the 100 that it writes
        {"scaling",     [](auto& sheet) { sheet.Type(IDC_SCALING, u"50"); },        2},
        {"copies",      [](auto& sheet) { sheet.Type(IDC_COPIES, u"5"); },          1},
        {"portrait",    [](auto& sheet) { sheet.Click(IDC_PORTRAIT); },             1},
        {"rotated",     [](auto& sheet) { sheet.Click(IDC_ROTATED); },              0},
        {"shift on",    [](auto& sheet) { sheet.Click(IDC_SHIFT_ON); },             1},
        {"figure",      [](auto& sheet) { sheet.Click(IDC_PAPER_PRINTER_FIGURE); }, 1},
        {"coming back", [](auto& sheet) { sheet.GoAwayAndComeBack(); },             0},
    };
    for (const ToldCase& one : cases) {
        PaperSheet sheet;
        const int before = sheet.Changes();
        one.act(sheet);
        EXPECT_EQ(sheet.Changes() - before, one.told) << one.name;
    }
}

// What each action draws anew: the picture, and with it the icons.
TEST(PaperPage, DrawsThePictureAnewWhenItMayHaveChanged)
{
    const ToldCase cases[] = {
        {"paper",     [](auto& sheet) { sheet.Choose(IDC_DOCUMENT_SIZE, 1); },    1},
        {"fit",       [](auto& sheet) { sheet.Click(IDC_FIT_TO_PAPER); },         1},
        {"scaling",   [](auto& sheet) { sheet.Type(IDC_SCALING, u"50"); },        1},
        {"landscape", [](auto& sheet) { sheet.Click(IDC_LANDSCAPE); },            1},
        {"copies",    [](auto& sheet) { sheet.Type(IDC_COPIES, u"5"); },          0},
        {"rotated",   [](auto& sheet) { sheet.Click(IDC_ROTATED); },              0},
        {"shift on",  [](auto& sheet) { sheet.Click(IDC_SHIFT_ON); },             0},
        {"figure",    [](auto& sheet) { sheet.Click(IDC_PAPER_PRINTER_FIGURE); }, 1},
        {"default",   [](auto& sheet) { sheet.Click(IDC_DEFAULT); },              1},
    };
    for (const ToldCase& one : cases) {
        PaperSheet sheet;
        sheet.Drawn();
        one.act(sheet);
        EXPECT_EQ(!sheet.Drawn().empty(), one.told != 0) << one.name;
    }
}

TEST(PaperPage, ShowsCollationAndOrientationAsIcons)
{
    struct IconCase {
        SHORT collate, orientation;
        const char *collateIcon, *orientationIcon;
    };
    const IconCase cases[] = {
        {0, 1, "9515", "9514"},
        {1, 1, "9512", "9514"},
        {0, 2, "9515", "9513"},
        {1, 2, "9512", "9513"},
    };
    for (const IconCase& one : cases) {
        PaperSheet sheet([&](DriverDevMode& record) {
            record.dmCopies = 2;
            record.dmCollateMode = one.collate;
            record.dmOrientation = one.orientation;
        });
        sheet.Drawn();
        sheet.Click(IDC_PAPER_PAGE_LAYOUT);
        std::vector<std::string> icons;
        for (const std::string& line : sheet.Drawn())
            if (line.find("DrawIcon") != std::string::npos) icons.push_back(line);
        ASSERT_EQ(icons.size(), 2u);
        EXPECT_THAT(icons[0], HasSubstr(one.collateIcon));
        EXPECT_THAT(icons[1], HasSubstr(one.orientationIcon));
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
    PaperSheet sheet([](DriverDevMode& record) { record.dmOutputPaper = 11; });
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
    PaperSheet sheet([](DriverDevMode& record) { record.dmPreviewMode = 1; });
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

TEST(PaperPage, CancelPublishesNothing)
{
    PaperSheet sheet;
    sheet.Type(IDC_COPIES, u"5");
    EXPECT_EQ(sheet.Cancel().dmCopies, 0);
}

// A walk over the whole page; steps that a failed call has made impossible are left out.
void WalkThePage(PaperSheet& sheet)
{
    namespace user = platform::user;
    const auto click = [&](int control) {
        sheet.Try([=](HWND page) { return user::Click(user::Control(page, control)); });
    };
    const auto type = [&](int control, const char16_t* text) {
        sheet.Try([=](HWND page) { return user::Type(user::Control(page, control), text); });
    };
    const auto pick = [&](int control, int row) {
        sheet.Try([=](HWND page) { return user::Pick(user::Control(page, control), row); });
    };
    pick(IDC_DOCUMENT_SIZE, 17);
    type(IDC_SCALING, u"999");
    type(IDC_SCALING, u"100");
    click(IDC_FIT_TO_PAPER);
    pick(IDC_OUTPUT_SIZE, 4);
    click(IDC_SHIFT_ON);
    type(IDC_SHIFT_X, u"51");
    type(IDC_SHIFT_Y, u"-x");
    type(IDC_COPIES, u"7");
    click(IDC_COLLATED);
    click(IDC_PROOF_PRINT);
    click(IDC_LANDSCAPE);
    click(IDC_ROTATED);
    click(IDC_PAPER_PRINTER_FIGURE);
    sheet.GoAwayAndComeBack();
    click(IDC_DEFAULT);
}

bool IsLegal(const DriverDevMode& record)
{
    const auto between = [](int value, int least, int most) { return value >= least && value <= most; };
    return between(record.dmFitToPaper, 0, 2) && between(record.dmZoom, 20, 400) && between(record.dmCopies, 1, 999) &&
           between(record.dmCollateMode, 0, 1) && between(record.dmProofPrint, 0, 1) &&
           between(record.dmOrientation, 1, 2) && between(record.dmImageShiftX, -50, 50) &&
           between(record.dmImageShiftY, -25, 25) && between(record.dmImageShiftOn, 0, 1) && record.dmPaperSize > 0 &&
           record.dmOutputPaper > 0 && record.dmPaperLength > 0 && record.dmPaperWidth > 0;
}

// Whichever question about the lists fails, no paper without a code gets into the record.
TEST(PaperPage, TakesNoPaperWithoutACode)
{
    PaperSheet sheet({}, Forms, Germany);
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

// Calls of every platform function fail, a few of different ones in a walk: the sheet goes on, and its record stays
// legal.
TEST(PaperPage, SurvivesEveryCallThatFails)
{
    auto& faults = platform::CurrentEnvironment().faults;
    std::map<std::string, std::uint64_t> calls;
    {
        PaperSheet sheet([](DriverDevMode&) { platform::CurrentEnvironment().faults.CountCalls(true); }, Forms,
                         Germany);
        WalkThePage(sheet);
        calls.insert(faults.Calls().begin(), faults.Calls().end());
    }
    const auto places = testing_support::FailingPlaces({calls.begin(), calls.end()}, 100);
    EXPECT_GT(places.size(), 20u);
    constexpr std::size_t Together = 6;
    const std::size_t sheets = (places.size() + Together - 1) / Together;
    for (std::size_t first = 0; first < sheets; ++first) {
        std::string failing;
        for (std::size_t i = first; i < places.size(); i += sheets)
            failing += places[i].first + " " + std::to_string(places[i].second) + ", ";
        SCOPED_TRACE(failing);
        const auto add = [&](DriverDevMode&) {
            platform::CurrentEnvironment().trace = nullptr;
            for (std::size_t i = first; i < places.size(); i += sheets)
                faults.Add(places[i].first, places[i].second, false);
        };
        PaperSheet sheet(add, Forms, Germany);
        WalkThePage(sheet);
        faults.Clear();
        EXPECT_TRUE(IsLegal(sheet.Ok()));
    }
}

}  // namespace
