// The rules that join the choices of the Paper page to each other and to those of the Setup page.
#include <gtest/gtest.h>

#include "pages/paper_fit.h"
#include "platform/controls.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;

// Choices of the Setup page.
constexpr char Nup[] = " dmNupOn=1 dmNupCount=4";
constexpr char LongEdge[] = " dmDuplexOn=1 dmDuplexBinding=1";
constexpr char Booklet[] = " dmDuplexOn=1 dmDuplexBinding=1 dmBookletPaper=1 dmNupOn=1 dmNupCount=2";

// Choices of this page.
constexpr char Scaled[] = "dmFitToPaper=1 dmZoom=150";
constexpr char Proof[] = "dmCopies=3 dmCollateMode=1 dmProofPrint=1";
constexpr char ShiftOn[] = "dmImageShiftOn=1";

TEST(PaperRules, TheSetupPageLimitsFitAndCopies)
{
    // What the page shows and the record holds.
    for (const auto& [paper, setup, fit, copies] : {
             std::tuple{Scaled, Nup,             "-fos 150 | 0 150", "N 1 ru p- | 1 0 0"},
             {Proof,  LongEdge,        "-FoS 100 | 0 100", "N 3 ru p- | 3 0 0"},
             {Proof,  Booklet,         "-fos 100 | 0 100", "n 1 ru p- | 1 0 0"},
             {Proof,  " dmDuplexOn=1", "-FoS 100 | 0 100", "N 3 Rc Px | 3 1 1"}, // without a binding
    }) {
        PaperSheet sheet(Fields(paper + std::string(setup)));
        EXPECT_EQ(sheet.GoAwayAndComeBack().Fit(), fit) << paper << setup;
        EXPECT_EQ(sheet.Copies(), copies) << paper << setup;
    }
}

TEST(PaperRules, FitAndScalingExcludeEachOther)
{
    PaperSheet sheet;
    sheet.Click(IDC_FIT_TO_PAPER).Choose(IDC_OUTPUT_SIZE, 2);
    EXPECT_EQ(sheet.Fit(), "xFOs 100 | 2 100");
    sheet.Click(IDC_FIT_TO_PAPER).Type(IDC_SCALING, u"150");
    EXPECT_EQ(sheet.Fit(), "-foS 150 | 1 150");
    sheet.Type(IDC_SCALING, u"100");
    EXPECT_EQ(sheet.Fit(), "-FoS 100 | 0 100");
    sheet.Click(IDC_FIT_TO_PAPER).Change(Fields("dmZoom=80")).Click(IDC_FIT_TO_PAPER);
    EXPECT_EQ(sheet.Fit(), "-FoS 100 | 1 80") << "with a scaling that another page has left in the record";
}

TEST(PaperRules, ScalingComesBackAs100AfterPagesHaveSharedSheets)
{
    PaperSheet sheet(Fields(Scaled));
    EXPECT_EQ(sheet.ChangeElsewhere(Fields(Nup)).Fit(), "-fos 150 | 0 150");
    EXPECT_EQ(sheet.ChangeElsewhere(Fields("dmNupOn=0")).Fit(), "-FoS 100 | 0 100");
}

TEST(PaperRules, FitTakesThePaperThatTheListShows)
{
    PaperSheet sheet({}, {}, Germany);
    EXPECT_EQ(sheet.Click(IDC_FIT_TO_PAPER).Settings().dmOutputPaper, 9);
    EXPECT_EQ(FitOn, 9);
    sheet.Choose(IDC_OUTPUT_SIZE, u"A5 (148 x 210 mm)");
    EXPECT_EQ(FitOn, 11);
    EXPECT_EQ(sheet.Click(IDC_FIT_TO_PAPER).Click(IDC_FIT_TO_PAPER).Settings().dmOutputPaper, 11);
}

TEST(PaperRules, RecordsThatBreakTheStatesOfFitAreShownAsTheyCan)
{
    // Out of range shows as 100 and stays until it is typed.
    for (const auto& [fields, line] : {
             std::pair{"dmZoom=150",                "-FoS 100 | 0 100"},
             {"dmFitToPaper=1 dmZoom=100", "-foS 100 | 1 100"},
             {"dmFitToPaper=1 dmZoom=19",  "-foS 100 | 1 19" },
             {"dmFitToPaper=1 dmZoom=20",  "-foS 20 | 1 20"  },
             {"dmFitToPaper=1 dmZoom=400", "-foS 400 | 1 400"},
             {"dmFitToPaper=1 dmZoom=401", "-foS 100 | 1 401"},
             {"dmFitToPaper=2 dmZoom=150", "xFOs 150 | 2 100"},
             {"dmFitToPaper=3 dmZoom=150", "-foS 150 | 3 150"},
    })
        EXPECT_EQ(PaperSheet(Fields(fields)).Fit(), line) << fields;
}

TEST(PaperRules, NumbersAreTakenDigitByDigit)
{
    // The lines behind each key.
    // clang-format off
    const std::tuple<int, std::u16string, std::vector<const char*>> rows[] = {
        {IDC_SCALING, u"100x", {"-foS 1 | 1 20", "-foS 10 | 1 20", "-FoS 100 | 0 100", "-FoS 100 | 0 100"}},
        {IDC_COPIES,  u"002",  {"N 0 ru p- | 1 0 0", "N 00 ru p- | 1 0 0", "N 002 Ru p- | 2 0 0"}},
        {IDC_COPIES,  u"1234", {"N 1 ru p- | 1 0 0", "N 12 Ru p- | 12 0 0", "N 123 Ru p- | 123 0 0", "N 123 Ru p- | 123 0 0"}},
        {IDC_SHIFT_X, u"-505", {"on XY - 0 | 1 0 0", "on XY -5 0 | 1 -5 0", "on XY -50 0 | 1 -50 0", "on XY -50 0 | 1 -50 0"}},
        {IDC_SHIFT_X, u"5--",  {"on XY 5 0 | 1 5 0", "on XY 5- 0 | 1 0 0", "on XY 0 0 | 1 0 0"}},
    };
    // clang-format on
    for (const auto& [field, keys, lines] : rows) {
        PaperSheet sheet(Fields(ShiftOn));
        sheet.Type(field, u"");
        for (std::size_t k = 0; k < lines.size(); ++k) {
            sheet.Append(field, keys.substr(k, 1));
            EXPECT_EQ(sheet.LineOf(field), lines[k]) << platform::ToUtf8(keys) << " key " << k;
        }
    }
}

// Digits are all that the keyboard gives; the clipboard gives anything.
TEST(PaperRules, LeavingAFieldPutsItRight)
{
    for (const auto& [field, text, inside, after] : {
             std::tuple{IDC_SCALING, u"",      "-foS  | 1 20",          "-foS 20 | 1 20"       },
             {IDC_SCALING, u"19",    "-foS 19 | 1 20",        "-foS 20 | 1 20"       },
             {IDC_SCALING, u"-50",   "-foS -50 | 1 20",       "-foS 20 | 1 20"       },
             {IDC_SCALING, u"999",   "-foS 400 | 1 400",      "-foS 400 | 1 400"     },
             {IDC_COPIES,  u"",      "N  ru p- | 1 0 0",      "N 1 ru p- | 1 0 0"    },
             {IDC_COPIES,  u"12\n3", "N 12 Ru p- | 12 0 0",   "N 12 Ru p- | 12 0 0"  },
             {IDC_COPIES,  u"99999", "N 999 Ru p- | 999 0 0", "N 999 Ru p- | 999 0 0"},
             {IDC_SHIFT_X, u"",      "on XY  0 | 1 0 0",      "on XY 0 0 | 1 0 0"    },
             {IDC_SHIFT_X, u"-07",   "on XY -07 0 | 1 -7 0",  "on XY -7 0 | 1 -7 0"  },
             {IDC_SHIFT_X, u"51",    "on XY 0 0 | 1 0 0",     "on XY 0 0 | 1 0 0"    },
             {IDC_SHIFT_Y, u"-26",   "on XY 0 0 | 1 0 0",     "on XY 0 0 | 1 0 0"    },
    }) {
        PaperSheet sheet(Fields(ShiftOn));
        sheet.Paste(field, text);
        EXPECT_EQ(sheet.LineOf(field), inside) << field << platform::ToUtf8(text);
        sheet.Focus(IDC_LANDSCAPE);
        EXPECT_EQ(sheet.LineOf(field), after) << field << platform::ToUtf8(text);
    }
}

TEST(PaperRules, ArrowsStopAtTheirEnds)
{
    // One arrow from the ends, and these.
    // clang-format off
    const std::tuple<int, int, const char16_t*, const char16_t*, const char*, const char*> rows[] = {
        {IDC_SCALING, IDC_SCALING_SPIN, u"21",  u"399", "-foS 20 | 1 20",        "-foS 400 | 1 400"},
        {IDC_COPIES,  IDC_COPIES_SPIN,  u"2",   u"998", "N 1 ru p- | 1 0 0",     "N 999 Ru p- | 999 0 0"},
        {IDC_SHIFT_X, IDC_SHIFT_X_SPIN, u"-49", u"49",  "on XY -50 0 | 1 -50 0", "on XY 50 0 | 1 50 0"},
        {IDC_SHIFT_Y, IDC_SHIFT_Y_SPIN, u"-24", u"24",  "on XY 0 -25 | 1 0 -25", "on XY 0 25 | 1 0 25"},
    };
    // clang-format on
    for (const auto& [field, arrows, low, high, least, greatest] : rows) {
        PaperSheet sheet(Fields(ShiftOn));
        sheet.Type(field, low).Spin(arrows, false, 2);
        EXPECT_EQ(sheet.LineOf(field), least);
        sheet.Type(field, high).Spin(arrows, true, 2);
        EXPECT_EQ(sheet.LineOf(field), greatest);
    }
}

TEST(PaperRules, CopiesOfARecordAreLimitedAndOneIsUncollated)
{
    for (const auto& [copies, line] : {
             std::pair{" dmCopies=1",    "N 1 ru p- | 1 0 0"      },
             {" dmCopies=1000", "N 1000 Rc Px | 999 1 1" },
             {" dmCopies=-1",   "N 65535 Rc Px | 999 1 1"}
    })
        EXPECT_EQ(PaperSheet(Fields(Proof + std::string(copies))).Copies(), line) << copies;
}

TEST(PaperRules, ImageShiftKeepsItsValuesWhileItIsOffAndLosesThoseBeyondTheSheet)
{
    PaperSheet sheet(Fields("dmImageShiftX=5 dmImageShiftY=-7"));
    sheet.Click(IDC_SHIFT_ON).Click(IDC_SHIFT_OFF);
    EXPECT_EQ(sheet.Shift(), "off xy 5 -7 | 0 5 -7");
    EXPECT_EQ(PaperSheet(Fields("dmImageShiftX=51 dmImageShiftY=-26")).Shift(), "off xy 0 0 | 0 0 0");
}

TEST(PaperRules, ABookletTakesEveryPaperThatIsChosen)
{
    PaperSheet sheet(Fields(Booklet), FormAndCard, Germany);
    const auto paper = [&](Sheet& after) { return after.Settings().dmBookletPaper; };
    EXPECT_EQ(paper(sheet.Choose(IDC_DOCUMENT_SIZE, u"Form (210.0x297.0 mm)")), 257);
    EXPECT_EQ(paper(sheet.Click(IDC_EDIT_CUSTOM).Row(IDC_CP_LIST, 1).Click(IDOK)), 258);
    EXPECT_EQ(paper(sheet.Click(IDC_DEFAULT)), 9);
    EXPECT_EQ(paper(sheet.Change(Fields("dmBookletPaper=0")).Choose(IDC_DOCUMENT_SIZE, 0)), 0);
}

TEST(PaperRules, TheSecondTrayGivesWayWhenItIsGone)
{
    PaperSheet sheet(Fields("dmDefaultSource=2 dmDeviceFlags=128"));
    sheet.ChangeElsewhere(Fields("dmDeviceFlags=0"));
    EXPECT_TRUE(sheet.Enabled(IDC_EDIT_CUSTOM));
    EXPECT_EQ(sheet.Settings().dmDefaultSource, 2) << "the Setup page decides";
    EXPECT_EQ(SelectedSource, 1);
}

// How the list ends.
std::string Paper(PaperSheet& sheet)
{
    const DriverDevMode record = sheet.Settings();
    return sheet.Shown(IDC_DOCUMENT_SIZE) + " | " + std::to_string(record.dmPaperSize) + " " +
           std::to_string(record.dmPaperWidth) + "x" + std::to_string(record.dmPaperLength) + " of " +
           std::to_string(sheet.Items(IDC_DOCUMENT_SIZE).size());
}

TEST(PaperCustom, TheSizeThatWasSelectedBecomesThePaper)
{
    using Use = std::function<void(Sheet & dialog)>;
    const Use cancel = [](Sheet& dialog) { dialog.Click(IDC_CP_NEW).Click(IDCANCEL); };
    const Use widen = [](Sheet& dialog) { dialog.Type(IDC_CP_WIDTH_MM, u"216").Click(IDOK); };
    const Use pickSecond = [](Sheet& dialog) { dialog.Row(IDC_CP_LIST, 1).Click(IDOK); };
    const Use deleteFirst = [](Sheet& dialog) { dialog.Row(IDC_CP_LIST, 0).Click(IDC_CP_DELETE).Click(IDOK); };
    const Use deleteAll = [](Sheet& dialog) { dialog.Click(IDC_CP_DELETE).Click(IDC_CP_DELETE).Click(IDOK); };
    const Use failToSave = [](Sheet& dialog) {
        dialog.Click(IDC_CP_DELETE).Machine().Fail("OpenPrinterW");
        dialog.Click(IDOK);
        platform::CurrentEnvironment().faults.Clear();
    };
    // Custom sizes are for plain paper alone: another media brings a paper of its own.
    for (const auto& [fields, use, line] : {
             std::tuple{"dmPaperSize=257",               widen,       "Form (216.0x297.0 mm) | 257 2551x3507 of 18"   },
             {"dmPaperSize=257",               pickSecond,  "Card (8.50x11.00 inch) | 258 2550x3300 of 18"  },
             {"dmPaperSize=258",               deleteFirst, "Card (8.50x11.00 inch) | 257 2550x3300 of 17"  },
             {"dmPaperSize=258",               deleteAll,   "A4 (210 x 297 mm) | 9 2480x3507 of 16"         },
             {"dmPaperSize=11",                cancel,      "A5 (148 x 210 mm) | 11 1748x2480 of 18"        },
             {"dmPaperSize=11",                failToSave,  "A5 (148 x 210 mm) | 11 1748x2480 of 18"        },
             {"dmMediaIndex=2 dmPaperSize=28", pickSecond,  "Envelope DL (110 x 220 mm) | 27 1299x2598 of 8"},
             {"dmMediaIndex=4 dmPaperSize=11", pickSecond,  "A4 (210 x 297 mm) | 9 2480x3507 of 16"         },
    }) {
        PaperSheet sheet(Fields(fields), FormAndCard, Germany);
        const int before = sheet.Changes();
        use(sheet.Click(IDC_EDIT_CUSTOM));
        EXPECT_EQ(Paper(sheet), line);
        EXPECT_EQ(sheet.Changes(), before + 1) << line;
        EXPECT_EQ(Paper(sheet.GoAwayAndComeBack()), line);
    }
}

TEST(PaperCustom, ADialogThatCannotBeShownChangesNothing)
{
    PaperSheet sheet(Fields("dmPaperSize=5"), FormAndCard);
    sheet.Click(IDC_EDIT_CUSTOM).Row(IDC_CP_LIST, 1).Click(IDOK);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Legal (8.5 x 14 inch)");
    sheet.Machine().Fail("DialogBoxParamW");
    sheet.Click(IDC_EDIT_CUSTOM);
    EXPECT_EQ(Paper(sheet), "Legal (8.5 x 14 inch) | 5 2550x4200 of 18");
}

}  // namespace
