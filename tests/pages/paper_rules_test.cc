// The rules that join the choices of the Paper page to each other and to those of the Setup page.
#include <gtest/gtest.h>

#include "pages/paper_fit.h"
#include "platform/controls.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
using Prepare = void (*)(DriverDevMode& record);
using Step = std::function<void(PaperSheet& sheet)>;

// Choices of the Setup page.
void Nothing(DriverDevMode&) {}
void Nup(DriverDevMode& record) { SetFields(record, "dmNupOn=1 dmNupCount=4"); }
void LongEdge(DriverDevMode& record) { record.dmDuplexOn = record.dmDuplexBinding = 1; }
void ShortEdge(DriverDevMode& record) { SetFields(record, "dmDuplexOn=1 dmDuplexBinding=2"); }
void Booklet(DriverDevMode& record)
{
    record.dmDuplexOn = record.dmDuplexBinding = 1;
    record.dmBookletPaper = record.dmPaperSize;
    record.dmNupOn = 1;
    record.dmNupCount = 2;
}

// Choices of this page.
void Scaled(DriverDevMode& record) { SetFields(record, "dmFitToPaper=1 dmZoom=150"); }
void Fitted(DriverDevMode& record) { SetFields(record, "dmFitToPaper=2 dmOutputPaper=9"); }
void Proof(DriverDevMode& record) { SetFields(record, "dmCopies=3 dmCollateMode=1 dmProofPrint=1"); }
void ThreeCopies(DriverDevMode& record) { record.dmCopies = 3; }
void ShiftOn(DriverDevMode& record) { record.dmImageShiftOn = 1; }

struct Pair {
    const char* name;
    Prepare paper, setup;
    const char *fit, *copies;  // what the page shows and the record holds
};

TEST(PaperRules, TheSetupPageLimitsFitAndCopies)
{
    const Pair pairs[] = {
        {"plain",              Nothing,     Nothing,   "-FoS 100 | 0 100", "N 1 ru p- | 1 0 0"},
        {"scaled",             Scaled,      Nothing,   "-foS 150 | 1 150", "N 1 ru p- | 1 0 0"},
        {"fitted",             Fitted,      Nothing,   "xFOs 100 | 2 100", "N 1 ru p- | 1 0 0"},
        {"three",              ThreeCopies, Nothing,   "-FoS 100 | 0 100", "N 3 Ru p- | 3 0 0"},
        {"proof",              Proof,       Nothing,   "-FoS 100 | 0 100", "N 3 Rc Px | 3 1 1"},
        {"plain, N-up",        Nothing,     Nup,       "-fos 100 | 0 100", "N 1 ru p- | 1 0 0"},
        {"scaled, N-up",       Scaled,      Nup,       "-fos 150 | 0 150", "N 1 ru p- | 1 0 0"},
        {"fitted, N-up",       Fitted,      Nup,       "-fos 100 | 0 100", "N 1 ru p- | 1 0 0"},
        {"proof, N-up",        Proof,       Nup,       "-fos 100 | 0 100", "N 3 Rc Px | 3 1 1"},
        {"scaled, long edge",  Scaled,      LongEdge,  "-foS 150 | 1 150", "N 1 ru p- | 1 0 0"},
        {"fitted, short edge", Fitted,      ShortEdge, "xFOs 100 | 2 100", "N 1 ru p- | 1 0 0"},
        {"three, short edge",  ThreeCopies, ShortEdge, "-FoS 100 | 0 100", "N 3 ru p- | 3 0 0"},
        {"proof, long edge",   Proof,       LongEdge,  "-FoS 100 | 0 100", "N 3 ru p- | 3 0 0"},
        {"scaled, booklet",    Scaled,      Booklet,   "-fos 150 | 0 150", "n 1 ru p- | 1 0 0"},
        {"fitted, booklet",    Fitted,      Booklet,   "-fos 100 | 0 100", "n 1 ru p- | 1 0 0"},
        {"three, booklet",     ThreeCopies, Booklet,   "-fos 100 | 0 100", "n 1 ru p- | 1 0 0"},
        {"proof, booklet",     Proof,       Booklet,   "-fos 100 | 0 100", "n 1 ru p- | 1 0 0"},
    };
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.name);
        {
            PaperSheet opened([&](DriverDevMode& record) {
                pair.paper(record);
                pair.setup(record);
            });
            EXPECT_EQ(opened.Fit(), pair.fit);
            EXPECT_EQ(opened.Copies(), pair.copies);
        }
        PaperSheet inFront(pair.paper);
        inFront.ChangeElsewhere(pair.setup);
        EXPECT_EQ(inFront.Fit(), pair.fit);
        EXPECT_EQ(inFront.Copies(), pair.copies);
    }
}

TEST(PaperRules, DuplexBindsOnlyWhenItIsOnAndHasABindingOrABooklet)
{
    struct DuplexCase {
        SHORT on, binding, booklet;
        const char* line;
    };
    const DuplexCase cases[] = {
        {0, 1, 0, "N 3 Rc Px | 3 1 1"},
        {1, 0, 0, "N 3 Rc Px | 3 1 1"},
        {1, 2, 0, "N 3 ru p- | 3 0 0"},
        {0, 0, 9, "n 1 ru p- | 1 0 0"}, // one copy is uncollated
        {1, 0, 9, "n 1 ru p- | 1 0 0"},
    };
    for (const DuplexCase& one : cases) {
        PaperSheet sheet([&](DriverDevMode& record) {
            Proof(record);
            record.dmDuplexOn = one.on;
            record.dmDuplexBinding = one.binding;
            record.dmBookletPaper = one.booklet;
        });
        EXPECT_EQ(sheet.GoAwayAndComeBack().Copies(), one.line) << one.on << one.binding << one.booklet;
    }
}

TEST(PaperRules, ScalingComesBackAs100AfterPagesHaveSharedSheets)
{
    PaperSheet sheet(Scaled);
    EXPECT_EQ(sheet.ChangeElsewhere(Nup).Fit(), "-fos 150 | 0 150");
    EXPECT_EQ(sheet.ChangeElsewhere(Fields("dmNupOn=0")).Fit(), "-FoS 100 | 0 100");
}

TEST(PaperRules, CopiesCanBeChosenAgainAfterABooklet)
{
    PaperSheet sheet(Proof);
    sheet.ChangeElsewhere(Booklet).ChangeElsewhere(Fields("dmDuplexOn=0 dmBookletPaper=0"));
    EXPECT_EQ(sheet.Copies(), "N 1 ru p- | 1 0 0");
    sheet.Type(IDC_COPIES, u"2");
    EXPECT_EQ(sheet.Copies(), "N 2 Ru p- | 2 0 0");
}

void CheckFit(PaperSheet& sheet) { sheet.Click(IDC_FIT_TO_PAPER); }
void CheckFitTwice(PaperSheet& sheet) { sheet.Click(IDC_FIT_TO_PAPER).Click(IDC_FIT_TO_PAPER); }
void PressDefault(PaperSheet& sheet) { sheet.Click(IDC_DEFAULT); }
Step ScaleTo(const char16_t* text)
{
    return [text](PaperSheet& sheet) { sheet.Type(IDC_SCALING, text); };
}
void UncheckThenScale(PaperSheet& sheet) { sheet.Click(IDC_FIT_TO_PAPER).Type(IDC_SCALING, u"20"); }
void UnscaleThenFit(PaperSheet& sheet) { sheet.Type(IDC_SCALING, u"100").Click(IDC_FIT_TO_PAPER); }
void PickAnotherOutput(PaperSheet& sheet) { sheet.Choose(IDC_OUTPUT_SIZE, 2); }
// Unchecked with a scaling in the record, as a step of another page may leave it.
void ScaleElsewhereThenUncheck(PaperSheet& sheet) { sheet.Change(Fields("dmZoom=80")).Click(IDC_FIT_TO_PAPER); }

// Every edge of the states of fit to paper that a user can walk.
TEST(PaperRules, FitAndScalingExcludeEachOther)
{
    struct Walk {
        const char* name;
        Prepare start;
        Step step;
        const char* line;
    };
    const Walk walks[] = {
        {"plain to fitted",            Nothing, CheckFit,                  "xFOs 100 | 2 100"},
        {"plain to scaled",            Nothing, ScaleTo(u"150"),           "-foS 150 | 1 150"},
        {"scaled to plain",            Scaled,  ScaleTo(u"100"),           "-FoS 100 | 0 100"},
        {"scaled to scaled",           Scaled,  ScaleTo(u"75"),            "-foS 75 | 1 75"  },
        {"fitted to plain",            Fitted,  CheckFit,                  "-FoS 100 | 0 100"},
        {"fitted to fitted",           Fitted,  PickAnotherOutput,         "xFOs 100 | 2 100"},
        {"there and back",             Nothing, CheckFitTwice,             "-FoS 100 | 0 100"},
        {"fitted to scaled",           Fitted,  UncheckThenScale,          "-foS 20 | 1 20"  },
        {"scaled to fitted",           Scaled,  UnscaleThenFit,            "xFOs 100 | 2 100"},
        {"default of scaled",          Scaled,  PressDefault,              "-FoS 100 | 0 100"},
        {"default of fitted",          Fitted,  PressDefault,              "-FoS 100 | 0 100"},
        {"default under N-up",         Nup,     PressDefault,              "-fos 100 | 0 100"},
        {"fitted to record's scaling", Fitted,  ScaleElsewhereThenUncheck, "-FoS 100 | 1 80" },
    };
    for (const Walk& walk : walks) {
        PaperSheet sheet(walk.start);
        walk.step(sheet);
        EXPECT_EQ(sheet.Fit(), walk.line) << walk.name;
    }
}

TEST(PaperRules, FitTakesThePaperThatTheListShows)
{
    PaperSheet sheet({}, {}, Germany);
    sheet.Click(IDC_FIT_TO_PAPER);
    EXPECT_EQ(sheet.Settings().dmOutputPaper, 9);
    EXPECT_EQ(FitOn, 9);
    sheet.Choose(IDC_OUTPUT_SIZE, u"A5 (148 x 210 mm)");
    EXPECT_EQ(sheet.Settings().dmOutputPaper, 11);
    EXPECT_EQ(FitOn, 11);
    sheet.Click(IDC_FIT_TO_PAPER);
    EXPECT_EQ(FitOn, 0);
    sheet.GoAwayAndComeBack().Click(IDC_FIT_TO_PAPER);
    EXPECT_EQ(sheet.Settings().dmOutputPaper, 11);
}

TEST(PaperRules, RecordsThatBreakTheStatesOfFitAreShownAsTheyCan)
{
    struct OddCase {
        BYTE fit;
        SHORT zoom;
        const char* line;
    };
    // Out of range shows as 100 and stays until it is typed.
    const OddCase cases[] = {
        {0, 150, "-FoS 100 | 0 100"},
        {1, 100, "-foS 100 | 1 100"},
        {1, 19,  "-foS 100 | 1 19" },
        {1, 20,  "-foS 20 | 1 20"  },
        {1, 400, "-foS 400 | 1 400"},
        {1, 401, "-foS 100 | 1 401"},
        {2, 150, "xFOs 150 | 2 100"},
        {3, 150, "-foS 150 | 3 150"},
    };
    for (const OddCase& one : cases) {
        PaperSheet sheet([&](DriverDevMode& record) {
            record.dmFitToPaper = one.fit;
            record.dmZoom = one.zoom;
            record.dmOutputPaper = 9;
        });
        EXPECT_EQ(sheet.Fit(), one.line) << int{one.fit} << ' ' << one.zoom;
    }
}

TEST(PaperRules, NumbersAreTakenDigitByDigit)
{
    struct Typed {
        int field;
        std::u16string keys;
        std::vector<const char*> lines;  // one behind each key
    };
    // clang-format off
    const Typed cases[] = {
        {IDC_SCALING, u"100",  {"-foS 1 | 1 20", "-foS 10 | 1 20", "-FoS 100 | 0 100"}},
        {IDC_SCALING, u"401",  {"-foS 4 | 1 20", "-foS 40 | 1 40", "-foS 400 | 1 400"}},
        {IDC_SCALING, u"2-5x", {"-foS 2 | 1 20", "-foS 2 | 1 20", "-foS 25 | 1 25", "-foS 25 | 1 25"}},
        {IDC_COPIES,  u"1234", {"N 1 ru p- | 1 0 0", "N 12 Ru p- | 12 0 0", "N 123 Ru p- | 123 0 0", "N 123 Ru p- | 123 0 0"}},
        {IDC_COPIES,  u"002",  {"N 0 ru p- | 1 0 0", "N 00 ru p- | 1 0 0", "N 002 Ru p- | 2 0 0"}},
        {IDC_SHIFT_X, u"-50",  {"on XY - 0 | 1 0 0", "on XY -5 0 | 1 -5 0", "on XY -50 0 | 1 -50 0"}},
        {IDC_SHIFT_X, u"505",  {"on XY 5 0 | 1 5 0", "on XY 50 0 | 1 50 0", "on XY 0 0 | 1 0 0"}},
        {IDC_SHIFT_X, u"5--",  {"on XY 5 0 | 1 5 0", "on XY 5- 0 | 1 0 0", "on XY 0 0 | 1 0 0"}},
        {IDC_SHIFT_X, u"7a",   {"on XY 7 0 | 1 7 0", "on XY 0 0 | 1 0 0"}},
    };
    // clang-format on
    for (const auto& [field, keys, lines] : cases) {
        PaperSheet sheet(ShiftOn);
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
    struct Left {
        int field;
        std::u16string text;
        const char *inside, *after;
    };
    const Left cases[] = {
        {IDC_SCALING, u"",      "-foS  | 1 20",          "-foS 20 | 1 20"       },
        {IDC_SCALING, u"19",    "-foS 19 | 1 20",        "-foS 20 | 1 20"       },
        {IDC_SCALING, u"099",   "-foS 099 | 1 99",       "-foS 99 | 1 99"       },
        {IDC_SCALING, u"abc",   "-foS abc | 1 20",       "-foS 20 | 1 20"       },
        {IDC_SCALING, u"-50",   "-foS -50 | 1 20",       "-foS 20 | 1 20"       },
        {IDC_SCALING, u"1000",  "-FoS 100 | 0 100",      "-FoS 100 | 0 100"     },
        {IDC_SCALING, u"999",   "-foS 400 | 1 400",      "-foS 400 | 1 400"     },
        {IDC_COPIES,  u"",      "N  ru p- | 1 0 0",      "N 1 ru p- | 1 0 0"    },
        {IDC_COPIES,  u"0",     "N 0 ru p- | 1 0 0",     "N 1 ru p- | 1 0 0"    },
        {IDC_COPIES,  u"-5",    "N -5 ru p- | 1 0 0",    "N 1 ru p- | 1 0 0"    },
        {IDC_COPIES,  u"12\n3", "N 12 Ru p- | 12 0 0",   "N 12 Ru p- | 12 0 0"  },
        {IDC_COPIES,  u"99999", "N 999 Ru p- | 999 0 0", "N 999 Ru p- | 999 0 0"},
        {IDC_SHIFT_X, u"",      "on XY  0 | 1 0 0",      "on XY 0 0 | 1 0 0"    },
        {IDC_SHIFT_X, u"-",     "on XY - 0 | 1 0 0",     "on XY 0 0 | 1 0 0"    },
        {IDC_SHIFT_X, u"-07",   "on XY -07 0 | 1 -7 0",  "on XY -7 0 | 1 -7 0"  },
        {IDC_SHIFT_X, u"51",    "on XY 0 0 | 1 0 0",     "on XY 0 0 | 1 0 0"    },
        {IDC_SHIFT_X, u"-51",   "on XY 0 0 | 1 0 0",     "on XY 0 0 | 1 0 0"    },
        {IDC_SHIFT_Y, u"26",    "on XY 0 0 | 1 0 0",     "on XY 0 0 | 1 0 0"    },
        {IDC_SHIFT_Y, u"-26",   "on XY 0 0 | 1 0 0",     "on XY 0 0 | 1 0 0"    },
        {IDC_SHIFT_Y, u"-255",  "on XY 0 -25 | 1 0 -25", "on XY 0 -25 | 1 0 -25"},
        {IDC_SHIFT_Y, u" 5",    "on XY 0 0 | 1 0 0",     "on XY 0 0 | 1 0 0"    },
    };
    for (const Left& one : cases) {
        SCOPED_TRACE(std::to_string(one.field) + " \"" + platform::ToUtf8(one.text) + '"');
        PaperSheet sheet(ShiftOn);
        sheet.Paste(one.field, one.text);
        EXPECT_EQ(sheet.LineOf(one.field), one.inside);
        sheet.Focus(IDC_LANDSCAPE);
        EXPECT_EQ(sheet.LineOf(one.field), one.after);
    }
}

TEST(PaperRules, ArrowsStopAtTheirEnds)
{
    struct Spun {
        int field, arrows;
        const char16_t *low, *high;  // one arrow from the ends
        const char *least, *greatest;
    };
    const Spun cases[] = {
        {IDC_SCALING, IDC_SCALING_SPIN, u"21",  u"399", "-foS 20 | 1 20",        "-foS 400 | 1 400"     },
        {IDC_COPIES,  IDC_COPIES_SPIN,  u"2",   u"998", "N 1 ru p- | 1 0 0",     "N 999 Ru p- | 999 0 0"},
        {IDC_SHIFT_X, IDC_SHIFT_X_SPIN, u"-49", u"49",  "on XY -50 0 | 1 -50 0", "on XY 50 0 | 1 50 0"  },
        {IDC_SHIFT_Y, IDC_SHIFT_Y_SPIN, u"-24", u"24",  "on XY 0 -25 | 1 0 -25", "on XY 0 25 | 1 0 25"  },
    };
    for (const Spun& one : cases) {
        PaperSheet sheet(ShiftOn);
        sheet.Type(one.field, one.low).Spin(one.arrows, false, 2);
        EXPECT_EQ(sheet.LineOf(one.field), one.least);
        sheet.Type(one.field, one.high).Spin(one.arrows, true, 2);
        EXPECT_EQ(sheet.LineOf(one.field), one.greatest);
    }
}

TEST(PaperRules, ProofPrintComesWithCollationAndGoesWithTheLastCopy)
{
    PaperSheet sheet;
    struct Case {
        std::function<void()> act;
        const char* line;
    };
    const Case steps[] = {
        {[&] { sheet.Type(IDC_COPIES, u"2"); },      "N 2 Ru p- | 2 0 0"},
        {[&] { sheet.Click(IDC_COLLATED); },         "N 2 Rc P- | 2 1 0"},
        {[&] { sheet.Click(IDC_PROOF_PRINT); },      "N 2 Rc Px | 2 1 1"},
        {[&] { sheet.Spin(IDC_COPIES_SPIN, true); }, "N 3 Rc Px | 3 1 1"},
        {[&] { sheet.Click(IDC_UNCOLLATED); },       "N 3 Ru p- | 3 0 0"},
        {[&] { sheet.Click(IDC_COLLATED); },         "N 3 Rc P- | 3 1 0"},
        {[&] { sheet.Click(IDC_PROOF_PRINT); },      "N 3 Rc Px | 3 1 1"},
        {[&] { sheet.Type(IDC_COPIES, u""); },       "N  ru p- | 1 0 0" },
        {[&] { sheet.Append(IDC_COPIES, u"4"); },    "N 4 Ru p- | 4 0 0"},
        {[&] { sheet.Focus(IDC_PORTRAIT); },         "N 4 Ru p- | 4 0 0"},
    };
    for (const Case& step : steps) {
        step.act();
        EXPECT_EQ(sheet.Copies(), step.line);
    }
}

TEST(PaperRules, CopiesOfARecordAreLimitedAndOneIsUncollated)
{
    for (const auto& [copies, line] : {
             std::pair<SHORT, const char*>{0,    "N 0 ru p- | 1 0 0"      },
             {1,    "N 1 ru p- | 1 0 0"      },
             {1000, "N 1000 Rc Px | 999 1 1" },
             {-1,   "N 65535 Rc Px | 999 1 1"}
    }) {
        PaperSheet sheet([copies = copies](DriverDevMode& record) {
            Proof(record);
            record.dmCopies = copies;
        });
        EXPECT_EQ(sheet.Copies(), line) << copies;
    }
}

TEST(PaperRules, ImageShiftKeepsItsValuesWhileItIsOff)
{
    PaperSheet sheet(Fields("dmImageShiftX=5 dmImageShiftY=-7"));
    EXPECT_EQ(sheet.Shift(), "off xy 5 -7 | 0 5 -7");
    sheet.Click(IDC_SHIFT_ON);
    EXPECT_EQ(sheet.Shift(), "on XY 5 -7 | 1 5 -7");
    sheet.Click(IDC_SHIFT_OFF);
    EXPECT_EQ(sheet.Shift(), "off xy 5 -7 | 0 5 -7");
}

TEST(PaperRules, ImageShiftBeyondTheSheetIsDroppedWhenThePageOpens)
{
    PaperSheet sheet(Fields("dmImageShiftX=51 dmImageShiftY=-26"));
    EXPECT_EQ(sheet.Shift(), "off xy 0 0 | 0 0 0");
}

TEST(PaperRules, ABookletTakesEveryPaperThatIsChosen)
{
    PaperSheet sheet(Booklet, FormAndCard, Germany);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Form (210.0x297.0 mm)");
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 257);
    sheet.Click(IDC_EDIT_CUSTOM).Row(IDC_CP_LIST, 1).Click(IDOK);
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 258);
    sheet.Click(IDC_DEFAULT);
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 9);
    sheet.Change(Fields("dmBookletPaper=0")).Choose(IDC_DOCUMENT_SIZE, 0);
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 0);
}

TEST(PaperRules, WithoutPermissionCustomSizesStayLocked)
{
    PaperSheet sheet({}, {}, UnitedStates, false);
    EXPECT_FALSE(sheet.Enabled(IDC_EDIT_CUSTOM));
    EXPECT_FALSE(sheet.GoAwayAndComeBack().Enabled(IDC_EDIT_CUSTOM));
    EXPECT_FALSE(sheet.Click(IDC_DEFAULT).Enabled(IDC_EDIT_CUSTOM));
    EXPECT_TRUE(sheet.Enabled(IDC_DOCUMENT_SIZE)) << "what belongs to the job stays free";
}

TEST(PaperRules, TheSecondTrayGivesWayWhenItIsGone)
{
    PaperSheet sheet(Fields("dmDefaultSource=2 dmDeviceFlags=128"));
    EXPECT_FALSE(sheet.Enabled(IDC_EDIT_CUSTOM));
    sheet.ChangeElsewhere(Fields("dmDeviceFlags=0"));
    EXPECT_TRUE(sheet.Enabled(IDC_EDIT_CUSTOM));
    EXPECT_EQ(sheet.ItemData(IDC_DOCUMENT_SIZE).size(), 16u);
    EXPECT_EQ(sheet.Settings().dmDefaultSource, 2) << "the Setup page decides";
    EXPECT_EQ(SelectedSource, 1);
}

}  // namespace
