// The rules that join the choices of the Setup page: what a change on one control does with the others.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;

// Records on Letter, with what else a choice of paper writes.
constexpr char Plain[] = "", Landscape[] = "dmOrientation=2";
constexpr char Tray2There[] = "dmDeviceFlags=128", Tray2[] = "dmDeviceFlags=128 dmDefaultSource=2";
constexpr char Transparency[] = "dmDefaultSource=1 dmMediaIndex=1";
constexpr char LongEdge[] = "dmDefaultSource=1 dmDuplexOn=1 dmDuplexBinding=1";
constexpr char LongEdgeNup[] = "dmDefaultSource=1 dmDuplexOn=1 dmDuplexBinding=1 dmNupOn=1 dmNupBorder=1 dmNupCount=4";
constexpr char Nup[] = "dmDefaultSource=1 dmNupOn=1 dmNupBorder=1 dmNupVertical=1 dmNupDescending=1 dmNupCount=4";
constexpr char TwoCollated[] = "dmDefaultSource=1 dmCopies=2 dmCollateMode=1";
constexpr char Booklet[] = "dmDefaultSource=1 dmDuplexOn=1 dmNupOn=1 dmNupBorder=1 dmBookletPaper=1 dmNupCount=2";
constexpr char BookletFromAuto[] =
    "dmDefaultSource=7 dmDuplexOn=1 dmNupOn=1 dmNupBorder=1 dmBookletPaper=1 dmNupCount=2";
Sheet::Prepare On(const char* record)
{
    return Fields("dmPaperWidthPriv=2550 dmPaperLengthPriv=3300 " + std::string(record));
}

TEST(SetupRules, EveryChangeMeetsTheRecord)
{
    // A record, a control and its row, null for a click, and what is different then.
    // clang-format off
    const std::tuple<const char*, int, const char16_t*, const char*> rows[] = {
        {Nup, IDC_NUP, u"Off",
         "nup=Off -border oborder -style dmNupOn=0 dmNupCount=1 dmNupVertical=0 dmNupDescending=0 dmNupBorder=0 "
         "told"},
        {LongEdge, IDC_NUP, u"6-up", "nup=6-up +border +style dmNupOn=1 dmNupCount=6 told"},
        {Booklet, IDC_BORDER_LINE, nullptr, "oborder dmNupBorder=0 told"},
        {LongEdge, IDC_DUPLEX, u"Off", "duplex=Off -guide dmDuplexOn=0 dmDuplexBinding=0 told"},
        {Booklet, IDC_DUPLEX, u"Off",
         "nup=Off +nup -border oborder duplex=Off -guide dmNupOn=0 dmNupCount=1 dmNupBorder=0 dmBookletPaper=0 "
         "dmDuplexOn=0 told"},
        {Nup, IDC_DUPLEX, u"Short Edge Binding",
         "duplex=Short Edge Binding +guide dmDuplexOn=1 dmDuplexBinding=3 told"},
        {Booklet, IDC_DUPLEX, u"Short Edge Binding",
         "nup=Off +nup -border oborder duplex=Short Edge Binding dmNupOn=0 dmNupCount=1 dmNupBorder=0 "
         "dmBookletPaper=0 dmDuplexBinding=3 told"},
        {BookletFromAuto, IDC_DUPLEX, u"Short Edge Binding",
         "duplex=Off -guide dmBookletPaper=0 dmDuplexOn=0 box told"},
        {TwoCollated, IDC_DUPLEX, u"Booklet Left Binding",
         "nup=2-up -nup +border duplex=Booklet Left Binding +guide dmNupOn=1 dmNupCount=2 dmBookletPaper=1 "
         "dmDuplexOn=1 told"},
        {LongEdgeNup, IDC_DUPLEX, u"Booklet Left Binding",
         "nup=2-up -nup -style duplex=Booklet Left Binding dmNupCount=2 dmBookletPaper=1 dmDuplexBinding=0 told"},
        {Tray2, IDC_DUPLEX, u"Booklet Right Binding", "dmBookletRight=1 box told"},
        {Booklet, IDC_GUIDE_PAPER, nullptr, "oguide dmGuidePaper=0 told"},
        {Tray2, IDC_PAPER_SOURCE, u"Auto", "source=Auto media:5 dmDefaultSource=7 told"},
        {Booklet, IDC_PAPER_SOURCE, u"Auto", "box"},
        {BookletFromAuto, IDC_PAPER_SOURCE, u"Auto", "source=Tray1 box"},
        {BookletFromAuto, IDC_PAPER_SOURCE, u"Tray1", "source=Tray1 dmDefaultSource=1 told"},
        {Tray2There, IDC_PAPER_SOURCE, u"Tray2", "source=Tray2 media:1 dmDefaultSource=2 told"},
        {Transparency, IDC_PAPER_SOURCE, u"Manual Feed", "source=Manual Feed dmDefaultSource=4 told"},
        {Transparency, IDC_MEDIA_TYPE, u"Plain Paper", "+duplex media=Plain Paper dmMediaIndex=0 told"},
        {Tray2There, IDC_MEDIA_TYPE, u"Transparency", "-duplex source:3 media=Transparency dmMediaIndex=1 told"},
        {LongEdge, IDC_MEDIA_TYPE, u"Transparency", "box told"},
        {Plain, IDC_MEDIA_TYPE, u"Envelope",
         "media=Envelope dmPaperSize=27 dmPaperLength=2598 dmPaperWidth=1299 dmMediaIndex=2 dmPaperWidthPriv=1299 "
         "dmPaperLengthPriv=2598 told"},
        {Landscape, IDC_MEDIA_TYPE, u"Postcard",
         "media=Postcard dmPaperSize=216 dmPaperLength=1181 dmPaperWidth=1748 dmMediaIndex=3 dmPaperWidthPriv=1748 "
         "dmPaperLengthPriv=1181 told"},
    };
    // clang-format on
    for (const auto& [record, control, row, difference] : rows)
        EXPECT_EQ(SetupSheet(On(record)).Pick(control, row), difference) << control << " meets " << record;
}

TEST(SetupRules, ACountThatThereIsNotSelectsNothing)
{
    EXPECT_EQ(SetupSheet(Fields("dmNupOn=1 dmNupCount=3")).Row(IDC_NUP), "");
}

TEST(SetupRules, RefusalsSayWhy)
{
    constexpr char Source[] = "Selected paper source can't work with duplex printing.\nOnly Tray1 is supported.";
    constexpr char Media[] = "Transparency can't work with duplex printing,\nPlease choose other Media Type.";
    for (const auto& [record, control, row, message] : {
             std::tuple{Plain,    IDC_DUPLEX,     u"Long Edge Binding", Source},
             {LongEdge, IDC_MEDIA_TYPE, u"Transparency",      Media },
    }) {
        SetupSheet sheet(On(record));
        sheet.Choose(control, row);
        ASSERT_EQ(sheet.Machine().Desktop().boxesSeen.size(), 1u);
        const auto& box = sheet.Machine().Desktop().boxesSeen[0];
        EXPECT_EQ(platform::ToUtf8(box.text), message);
        EXPECT_EQ(box.caption, u"Warning");
        EXPECT_EQ(box.style, MB_ICONEXCLAMATION);
    }
}

TEST(SetupRules, ABookletIsOneCopyOrCollated)
{
    const std::string copies = std::string(Booklet) + " dmCopies=2 dmCollateMode=";
    EXPECT_EQ(SetupSheet(Fields(copies + "0")).Settings().dmCopies, 1);
    EXPECT_EQ(SetupSheet(Fields(copies + "1")).Settings().dmCopies, 2);
}

// A booklet takes the paper that comes out of the printer.
TEST(SetupRules, ABookletIsLaidOutOnTheOutputPaper)
{
    SetupSheet sheet(Fields("dmDefaultSource=1 dmOutputPaper=9 dmImageShiftX=7 dmImageShiftY=-7"));
    sheet.Choose(IDC_DUPLEX, u"Booklet Left Binding");
    EXPECT_EQ(sheet.Settings().dmImageShiftX, 0);
    EXPECT_EQ(sheet.Settings().dmImageShiftY, 0);
    // The list still holds the booklets after the Paper page has come to fit, until this page comes back.
    sheet.Change(Fields("dmFitToPaper=2")).Choose(IDC_DUPLEX, u"Booklet Right Binding");
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 9);
}

}  // namespace
