// The Setup page: what it shows at first, its pictures and defaults, who may do what, and the order of N-up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/setup_page.h"
#include "platform/controls.h"
#include "platform/services.h"
#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::StartsWith;

constexpr char Booklet[] = "dmDefaultSource=1 dmDuplexOn=1 dmNupOn=1 dmBookletPaper=1 dmNupCount=2";

TEST(SetupPage, ShowsAFreshRecord)
{
    SetupSheet sheet;
    EXPECT_THAT(sheet.Items(IDC_NUP), ElementsAre(u"Off", u"2-up", u"4-up", u"6-up", u"9-up", u"16-up"));
    EXPECT_THAT(sheet.Items(IDC_DUPLEX), ElementsAre(u"Off", u"Short Edge Binding", u"Long Edge Binding",
                                                     u"Booklet Left Binding", u"Booklet Right Binding"));
    EXPECT_THAT(sheet.Items(IDC_PAPER_SOURCE), ElementsAre(u"Auto", u"Tray1", u"Manual Feed"));
    EXPECT_THAT(sheet.Items(IDC_MEDIA_TYPE),
                ElementsAre(u"Plain Paper", u"Transparency", u"Envelope", u"Postcard", u"Thick Paper"));
    EXPECT_THAT(sheet.Items(IDC_WATERMARK), ElementsAre(u"<NONE>", u"CONFIDENTIAL", u"TOP SECRET", u"COPY",
                                                        u"DO NOT COPY", u"DRAFT", u"FINAL", u"PROOF"));
    EXPECT_TRUE(sheet.Checked(IDC_GUIDE_PAPER));
    EXPECT_FALSE(sheet.Enabled(IDC_SETUP_PREVIEW));
    EXPECT_EQ(sheet.Changes(), 0);
}

TEST(SetupPage, ThePictureModeIsNoChangeAndGoesWithThePage)
{
    SetupSheet sheet;
    EXPECT_EQ(sheet.Pick(IDC_SETUP_PRINTER_FIGURE), "dmPreviewMode=1");
    EXPECT_EQ(sheet.Difference([&] { sheet.GoAwayAndComeBack(); }), "dmPreviewMode=0");
}

TEST(SetupPage, DefaultRestoresThePage)
{
    SetupSheet sheet(
        Fields(std::string(Booklet) +
               " dmPaperWidthPriv=2550 dmPaperLengthPriv=3300 dmNupVertical=1 dmNupDescending=1 dmNupBorder=1 "
               "dmGuidePaper=0 dmBookletRight=1 dmCollateMode=1 dmWatermarkOn=1 wmId=3 dmCopies=3 dmOrientation=2"));
    sheet.Click(IDC_SETUP_PRINTER_FIGURE);
    EXPECT_EQ(
        sheet.Pick(IDC_DEFAULT),
        "nup=Off +nup -border oborder duplex=Off -guide xguide watermark=<NONE> -watermarkFirst source=Auto "
        "dmDefaultSource=7 dmNupOn=0 dmNupCount=1 dmNupVertical=0 dmNupDescending=0 dmNupBorder=0 "
        "dmWatermarkOn=0 dmBookletPaper=0 dmDuplexOn=0 dmGuidePaper=1 dmBookletRight=0 dmPreviewMode=0 told told");
}

TEST(SetupPage, DefaultTakesThePaperWithTheMedia)
{
    for (const auto& [fields, country, paper, length, width] : {
             std::tuple{"dmMediaIndex=0 dmPaperSize=5",  1,  5, 1500, 897 }, // plain paper stays, as the record has it
             {"dmMediaIndex=4 dmPaperSize=5",  1,  1, 3300, 2550},
             {"dmMediaIndex=2 dmPaperSize=27", 49, 9, 3507, 2480},
    }) {
        const DriverDevMode record = SetupSheet(Fields(fields), {}, country).Click(IDC_DEFAULT).Settings();
        EXPECT_EQ(record.dmPaperSize, paper) << fields;
        EXPECT_EQ(record.dmPaperLengthPriv, length) << fields;
        EXPECT_EQ(record.dmPaperWidthPriv, width) << fields;
    }
}

// The mark of the shell stays for the process: the test takes it back.
TEST(SetupPage, OverlaysAreNotEditedInTheShell)
{
    for (const auto& [module, shell] : {
             std::pair{u"C:\\WINDOWS\\system32\\SHELL32.DLLX", false},
             {u"c:\\windows\\System32\\shell32.dll",  true },
             {u"",                                    true }, // once in the shell
    }) {
        EXPECT_EQ(SetupSheet({}, {}, 1, module).Enabled(IDC_EDIT_OVERLAY), !shell) << platform::ToUtf8(module);
        EXPECT_EQ(ShellHosted, shell);
    }
    ShellHosted = 0;
}

// The icons that are drawn into the static of the binding, and where the picture is painted.
std::string Icons(SetupSheet& sheet)
{
    std::string icons;
    for (const std::string& line : sheet.Drawn()) {
        if (line.starts_with("4014 DrawIcon")) icons += line.substr(line.find("icon:") + 5, 4) + " ";
        if (line.starts_with("1019 GetDC")) icons += "picture ";
    }
    return icons;
}
std::string PaintedIcons(SetupSheet& sheet)
{
    sheet.Drawn();
    sheet.Send(WM_PAINT, 0, 0);
    return Icons(sheet);
}

TEST(SetupPage, TheIconShowsTheBinding)
{
    SetupSheet sheet(Fields("dmDefaultSource=1"));
    for (const auto& [binding, icon] : {
             std::pair{u"Short Edge Binding",    "9516 "},
             {u"Long Edge Binding",     "9517 "},
             {u"Booklet Left Binding",  "9518 "},
             {u"Booklet Right Binding", "9519 "},
             {u"Off",                   "9514 "},
    }) {
        sheet.Choose(IDC_DUPLEX, binding);
        EXPECT_EQ(PaintedIcons(sheet), icon);
        sheet.Choose(IDC_DUPLEX, binding);
        EXPECT_THAT(Icons(sheet), StartsWith(icon + std::string("picture "))) << "at once";
    }
    SetupSheet other(Fields(std::string(Booklet) + " dmDefaultSource=7"));
    EXPECT_EQ(PaintedIcons(other), "") << "a booklet's is drawn for Tray1 alone";
    other.Choose(IDC_DUPLEX, u"Long Edge Binding").Drawn();
    other.Choose(IDC_DUPLEX, u"Long Edge Binding");
    EXPECT_EQ(Icons(other), "picture 9514 ") << "a refused one never";
}

TEST(SetupPage, ThePageLayoutIsDrawnForItsOwnItemAlone)
{
    SetupSheet sheet;
    DRAWITEMSTRUCT item{};
    item.CtlID = IDC_PAPER_PREVIEW;
    const auto draw = [&] {
        sheet.Drawn();
        EXPECT_EQ(sheet.Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item)), FALSE);
        return sheet.Drawn();
    };
    const auto picture = testing::AnyOf(StartsWith("1029 "), StartsWith("1019 "));
    EXPECT_THAT(draw(), testing::Each(testing::Not(picture)));
    sheet.Click(IDC_SETUP_PRINTER_FIGURE);
    EXPECT_THAT(draw(), testing::Contains(StartsWith("1029 "))) << "the figure, for whichever item";
}

TEST(NupStyle, OkTakesTheOrderThatWasClickedLastAndCancelNone)
{
    SetupSheet sheet(Fields("dmNupOn=1 dmNupBorder=1 dmNupCount=9"));
    const auto choose = [&](int button) {
        sheet.Click(IDC_NUP_STYLE).Click(IDC_VERT_DESCENDING).Click(IDC_VERT_ASCENDING).Click(button);
    };
    EXPECT_EQ(sheet.Difference([&] { choose(IDCANCEL); }), "told") << "the page does not look at the result";
    EXPECT_TRUE(sheet.Click(IDC_NUP_STYLE).Checked(IDC_HORIZ_ASCENDING)) << "the click is forgotten";
    HELPINFO info{};
    info.cbSize = sizeof info;
    EXPECT_EQ(sheet.Send(WM_HELP, 0, reinterpret_cast<LPARAM>(&info)), FALSE) << "the controls have no help";
    EXPECT_TRUE(sheet.HelpSeenSoFar().empty());
    EXPECT_EQ(sheet.Notice(4711, 0), TRUE);
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Difference([&] { choose(IDOK); }), "dmNupVertical=1 told");
}

}  // namespace
