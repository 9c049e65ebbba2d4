// The Setup page: what it shows at first, what each control stores, who may do what, and what it draws.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/setup_page.h"
#include "platform/controls.h"
#include "spooler/document_sheet.h"
#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

void Booklet(DriverDevMode& record)
{
    record.dmDefaultSource = record.dmDuplexOn = record.dmNupOn = 1;
    record.dmBookletPaper = 1;
    record.dmNupCount = 2;
}

TEST(SetupPage, ShowsAFreshRecord)
{
    SetupSheet sheet;

    EXPECT_THAT(sheet.Items(IDC_NUP), ElementsAre(u"Off", u"2-up", u"4-up", u"6-up", u"9-up", u"16-up"));
    EXPECT_THAT(sheet.Items(IDC_DUPLEX), ElementsAre(u"Off", u"Short Edge Binding", u"Long Edge Binding",
                                                     u"Booklet Left Binding", u"Booklet Right Binding"));
    EXPECT_THAT(sheet.Items(IDC_PAPER_SOURCE), ElementsAre(u"Auto", u"Tray1", u"Manual Feed"));
    EXPECT_THAT(sheet.ItemData(IDC_PAPER_SOURCE), ElementsAre(7, 1, 4));
    EXPECT_THAT(sheet.Items(IDC_MEDIA_TYPE),
                ElementsAre(u"Plain Paper", u"Transparency", u"Envelope", u"Postcard", u"Thick Paper"));
    EXPECT_THAT(sheet.ItemData(IDC_MEDIA_TYPE), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(sheet.Items(IDC_WATERMARK), ElementsAre(u"<NONE>", u"CONFIDENTIAL", u"TOP SECRET", u"COPY",
                                                        u"DO NOT COPY", u"DRAFT", u"FINAL", u"PROOF"));
    EXPECT_THAT(sheet.Items(IDC_OVERLAY), ElementsAre(u"<NONE>"));
    for (const int list : {IDC_NUP, IDC_DUPLEX, IDC_PAPER_SOURCE, IDC_MEDIA_TYPE, IDC_WATERMARK, IDC_OVERLAY})
        EXPECT_EQ(sheet.Selection(list), 0) << list;
    EXPECT_EQ(sheet.EnabledLetters(), "Nbs Dg");
    EXPECT_TRUE(sheet.Checked(IDC_GUIDE_PAPER));
    EXPECT_TRUE(sheet.Checked(IDC_SETUP_PAGE_LAYOUT));
    for (const int control : {IDC_WATERMARK_FIRST_PAGE, IDC_OVERLAY_FIRST_PAGE, IDC_SETUP_PREVIEW})
        EXPECT_FALSE(sheet.Enabled(control)) << control;
    EXPECT_TRUE(sheet.Enabled(IDC_EDIT_OVERLAY));
    EXPECT_EQ(sheet.Changes(), 0);
}

TEST(SetupPage, IsTheFirstPage) { EXPECT_EQ(PageTable[0].dialogTemplate, IDD_SETUP); }

TEST(SetupPage, ShowsNupByItsCount)
{
    const std::pair<SHORT, int> rows[] = {
        {1,  0 },
        {2,  1 },
        {4,  2 },
        {6,  3 },
        {9,  4 },
        {16, 5 },
        {0,  -1},
        {3,  -1},
        {-2, -1}
    };
    for (const auto& [count, position] : rows) {
        SetupSheet sheet([count = count](DriverDevMode& record) { record.dmNupCount = count; });
        EXPECT_EQ(sheet.Selection(IDC_NUP), position) << count;
        EXPECT_EQ(sheet.Enabled(IDC_NUP_STYLE), position != 0) << count;
        EXPECT_EQ(sheet.Settings().dmNupCount, count);
    }
}

TEST(SetupPage, EveryNupRowStoresItsCount)
{
    constexpr SHORT counts[] = {1, 2, 4, 6, 9, 16};
    SetupSheet sheet;
    for (int row = 5; row >= 0; --row) {
        sheet.Choose(IDC_NUP, row);
        EXPECT_EQ(sheet.Settings().dmNupCount, counts[row]);
        EXPECT_EQ(sheet.Settings().dmNupOn, row == 0 ? 0 : 1);
    }
    EXPECT_EQ(sheet.Changes(), 6);
}

TEST(SetupPage, CommandsAreAnsweredByTheControlAlone)
{
    SetupSheet sheet;
    constexpr int CloseUp = 8;
    for (const int list : {IDC_NUP, IDC_WATERMARK, IDC_DUPLEX, IDC_PAPER_SOURCE, IDC_MEDIA_TYPE, IDC_OVERLAY}) {
        EXPECT_EQ(sheet.Notice(list, CloseUp), TRUE) << list;
        EXPECT_EQ(sheet.Changes(), 0) << "only a pick counts: " << list;
    }
    EXPECT_EQ(sheet.Notice(IDC_GUIDE_PAPER, BN_CLICKED), TRUE);
    EXPECT_EQ(sheet.Notice(IDC_GUIDE_PAPER, CloseUp), TRUE);
    EXPECT_EQ(sheet.Changes(), 2) << "any notice of a check box counts";
    for (const int other : {IDC_DUPLEX_ICON, IDC_NUP_GROUP, IDC_QUALITY_PAGE_LAYOUT, IDC_STATIC})
        EXPECT_EQ(sheet.Notice(other, BN_CLICKED), FALSE) << other;
}

TEST(SetupPage, OtherMessagesAreLeftToTheDialog)
{
    SetupSheet sheet;
    for (const UINT message : {WM_PAINT, WM_CONTEXTMENU, WM_DESTROY, WM_SETFONT})
        EXPECT_EQ(sheet.Send(message, 0, 0), FALSE) << message;
    for (const UINT code : {PSN_KILLACTIVE, PSN_QUERYCANCEL}) {
        NMHDR notification{nullptr, 0, code};
        sheet.Change([](DriverDevMode& record) { record.dmZoom = 50; });
        EXPECT_EQ(sheet.Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification)), FALSE) << code;
        EXPECT_EQ(sheet.Items(IDC_DUPLEX).size(), 5u) << "these change nothing";
    }
    NMHDR other{nullptr, 0, 1234};
    EXPECT_EQ(sheet.Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&other)), FALSE);
    EXPECT_EQ(sheet.Items(IDC_DUPLEX).size(), 3u) << "any other one refreshes the page";
}

TEST(SetupPage, ThePictureModeIsNoChange)
{
    SetupSheet sheet;
    EXPECT_EQ(sheet.Pick(IDC_SETUP_PRINTER_FIGURE, nullptr), "dmPreviewMode=1");
    EXPECT_EQ(sheet.Pick(IDC_SETUP_PAGE_LAYOUT, nullptr), "dmPreviewMode=0");
    sheet.Click(IDC_SETUP_PRINTER_FIGURE);
    sheet.ChangeElsewhere([](DriverDevMode&) {});
    EXPECT_TRUE(sheet.Checked(IDC_SETUP_PAGE_LAYOUT));
    EXPECT_FALSE(sheet.Checked(IDC_SETUP_PRINTER_FIGURE));
    EXPECT_EQ(sheet.Settings().dmPreviewMode, 0);
}

TEST(SetupPage, PublishesAtApplyAndKeepsItsLists)
{
    SetupSheet sheet([](DriverDevMode& record) { record.dmDefaultSource = 1; });
    sheet.Choose(IDC_DUPLEX, u"Short Edge Binding").Choose(IDC_WATERMARK, u"DRAFT").Apply();
    EXPECT_EQ(sheet.Published().dmDuplexBinding, 3);
    sheet.Choose(IDC_WATERMARK, u"COPY");
    const DriverDevMode record = sheet.Ok();
    EXPECT_EQ(std::u16string(record.dmWatermark.wmText), u"COPY");
    EXPECT_EQ(record.dmDuplexBinding, 3);
}

TEST(SetupPage, DefaultRestoresThePage)
{
    SetupSheet sheet([](DriverDevMode& record) {
        Booklet(record);
        record.dmPaperWidthPriv = 2550;
        record.dmPaperLengthPriv = 3300;
        record.dmNupVertical = record.dmNupDescending = record.dmNupBorder = 1;
        record.dmGuidePaper = 0;
        record.dmBookletRight = record.dmCollateMode = 1;
        record.dmWatermarkOn = 1;
        record.dmWatermark.wmId = 3;
        record.dmCopies = 3;
        record.dmOrientation = 2;
    });
    sheet.Click(IDC_SETUP_PRINTER_FIGURE);
    EXPECT_EQ(
        sheet.Pick(IDC_DEFAULT, nullptr),
        "nup=Off +nup -border oborder duplex=Off -guide xguide watermark=<NONE> -watermarkFirst source=Auto "
        "dmDefaultSource=7 dmNupOn=0 dmNupCount=1 dmNupVertical=0 dmNupDescending=0 dmNupBorder=0 "
        "dmWatermarkOn=0 dmBookletPaper=0 dmDuplexOn=0 dmGuidePaper=1 dmBookletRight=0 dmPreviewMode=0 told told");
    EXPECT_TRUE(sheet.Checked(IDC_SETUP_PAGE_LAYOUT));
}

struct DefaultPaperRow {
    SHORT media;
    int country;
    SHORT before, after;
};

TEST(SetupPage, DefaultTakesThePaperWithTheMedia)
{
    const DefaultPaperRow rows[] = {
        {0, 1,  5,   5}, // plain paper stays
        {4, 1,  5,   1},
        {4, 49, 5,   9},
        {2, 49, 27,  9},
        {3, 1,  216, 1},
    };
    for (const DefaultPaperRow& row : rows) {
        SetupSheet sheet(
            [&row](DriverDevMode& record) {
                record.dmMediaIndex = row.media;
                record.dmPaperSize = row.before;
            },
            {}, row.country);
        sheet.Click(IDC_DEFAULT);
        EXPECT_EQ(sheet.Settings().dmPaperSize, row.after) << row.media << " " << row.country;
        EXPECT_EQ(sheet.Settings().dmMediaIndex, 0);
    }
}

TEST(SetupPage, DefaultKeepsNupLockedWherePagesAreScaled)
{
    SetupSheet sheet([](DriverDevMode& record) { record.dmZoom = 50; });
    sheet.Click(IDC_DEFAULT);
    EXPECT_EQ(sheet.EnabledLetters(), "nbs Dg");
    EXPECT_EQ(sheet.Settings().dmZoom, 50) << "belongs to the Paper page";
}

struct OwnerRow {
    const char16_t* module;
    bool shell;
};

// The mark of the shell stays for the process: the test takes it back.
TEST(SetupPage, OverlaysAreEditedByWhoMayAndNotInTheShell)
{
    const OwnerRow rows[] = {
        {u"",                                    false},
        {u"C:\\Program Files\\app.exe",          false},
        {u"C:\\WINDOWS\\system32\\SHELL32.DLL",  true },
        {u"c:\\windows\\System32\\shell32.dll",  true },
        {u"C:\\WINDOWS\\system32\\SHELL32.DLLX", false},
        {u"D:\\WINDOWS\\system32\\SHELL32.DLL",  false},
    };
    for (const OwnerRow& row : rows) {
        SetupSheet sheet({}, {}, 1, row.module);
        EXPECT_EQ(sheet.Enabled(IDC_EDIT_OVERLAY), !row.shell) << platform::ToUtf8(row.module);
        EXPECT_TRUE(sheet.Enabled(IDC_EDIT_WATERMARK));
        ShellHosted = 0;
    }
    SetupSheet reader({}, [](TestMachine& machine) {
        machine.store->Remove(TestPrinter);
        machine.store->Add({TestPrinter, TestPrinter, false});
    });
    EXPECT_FALSE(reader.Enabled(IDC_EDIT_OVERLAY));
    EXPECT_TRUE(reader.Enabled(IDC_EDIT_WATERMARK)) << "the dialog shows without being changed";
}

TEST(SetupPage, OnceInTheShellOverlaysStayLocked)
{
    {
        SetupSheet sheet({}, {}, 1, u"C:\\WINDOWS\\system32\\SHELL32.DLL");
        EXPECT_EQ(ShellHosted, 1);
    }
    SetupSheet sheet;
    EXPECT_FALSE(sheet.Enabled(IDC_EDIT_OVERLAY));
    ShellHosted = 0;
}

struct IconRow {
    const char16_t* binding;
    const char* icon;
};

// The icons that a paint draws into the static of the binding.
std::vector<std::string> Icons(SetupSheet& sheet)
{
    sheet.Drawn();
    sheet.Send(WM_PAINT, 0, 0);
    std::vector<std::string> icons;
    for (const std::string& line : sheet.Drawn())
        if (line.find("4014 DrawIcon") != std::string::npos) icons.push_back(line);
    return icons;
}

TEST(SetupPage, TheIconShowsTheBinding)
{
    const IconRow rows[] = {
        {u"Short Edge Binding",    "9516"},
        {u"Long Edge Binding",     "9517"},
        {u"Booklet Left Binding",  "9518"},
        {u"Booklet Right Binding", "9519"},
        {u"Off",                   "9514"},
    };
    SetupSheet sheet([](DriverDevMode& record) { record.dmDefaultSource = 1; });
    for (const IconRow& row : rows) {
        sheet.Choose(IDC_DUPLEX, row.binding);
        EXPECT_THAT(Icons(sheet), ElementsAre(HasSubstr(row.icon))) << row.icon;
    }
}

TEST(SetupPage, TheIconOfABookletIsDrawnForTray1Alone)
{
    SetupSheet sheet([](DriverDevMode& record) {
        Booklet(record);
        record.dmDefaultSource = 7;
    });
    EXPECT_TRUE(Icons(sheet).empty());
    sheet.Choose(IDC_PAPER_SOURCE, u"Tray1");
    EXPECT_EQ(Icons(sheet).size(), 1u);
}

TEST(SetupPage, APickDrawsItsIconAtOnce)
{
    SetupSheet sheet([](DriverDevMode& record) { record.dmDefaultSource = 1; });
    sheet.Drawn();
    sheet.Choose(IDC_DUPLEX, u"Long Edge Binding");
    const auto lines = sheet.Drawn();
    const auto icon = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.find("4014 DrawIcon") != std::string::npos;
    });
    const auto picture =
        std::find_if(lines.begin(), lines.end(), [](const std::string& line) { return line.starts_with("1019 "); });
    ASSERT_NE(icon, lines.end());
    EXPECT_LT(icon, picture) << "before the picture is painted";
}

TEST(SetupPage, ARefusedBindingIsNeverDrawn)
{
    for (const char16_t* binding : {u"Long Edge Binding", u"Booklet Right Binding"}) {
        SetupSheet sheet;
        sheet.Drawn();
        sheet.Choose(IDC_DUPLEX, binding);
        for (const std::string& line : sheet.Drawn())
            if (line.starts_with("4014 DrawIcon")) {
                EXPECT_THAT(line, HasSubstr("9514"));
            }
    }
}

TEST(SetupPage, ThePageLayoutIsDrawnForItsOwnItemAlone)
{
    SetupSheet sheet;
    DRAWITEMSTRUCT item{};
    item.CtlID = IDC_PAPER_PREVIEW;
    sheet.Drawn();
    EXPECT_EQ(sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item)), FALSE);
    EXPECT_THAT(sheet.Drawn(),
                testing::Each(AllOf(testing::Not(StartsWith("1029 ")), testing::Not(StartsWith("1019 ")))));
    sheet.Click(IDC_SETUP_PRINTER_FIGURE).Drawn();
    sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_THAT(sheet.Drawn(), Contains(StartsWith("1029 "))) << "the figure, for whichever item";
}

TEST(SetupPage, WithoutASheetTheProcedureDoesNothing)
{
    DriverDevMode* const open = CurrentSettings;
    CurrentSettings = nullptr;
    for (const UINT message : {WM_INITDIALOG, WM_COMMAND, WM_NOTIFY, WM_DRAWITEM, WM_PAINT, WM_HELP})
        EXPECT_EQ(PageLayout_DlgProc(nullptr, message, 0, 0), FALSE);
    CurrentSettings = open;
}

}  // namespace
