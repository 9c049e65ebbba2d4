// The rules that join the choices of the Paper page to each other and to those of the Setup page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "pages/paper_fit.h"
#include "platform/controls.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
using Prepare = void (*)(DriverDevMode& record);

// Choices of the Setup page.
void Nothing(DriverDevMode&) {}
void Nup(DriverDevMode& record)
{
    record.dmNupOn = 1;
    record.dmNupCount = 4;
}
void LongEdge(DriverDevMode& record) { record.dmDuplexOn = record.dmDuplexBinding = 1; }
void ShortEdge(DriverDevMode& record)
{
    record.dmDuplexOn = 1;
    record.dmDuplexBinding = 2;
}
void Booklet(DriverDevMode& record)
{
    record.dmDuplexOn = record.dmDuplexBinding = 1;
    record.dmBookletPaper = record.dmPaperSize;
    record.dmNupOn = 1;
    record.dmNupCount = 2;
}

// Choices of this page.
void Scaled(DriverDevMode& record)
{
    record.dmFitToPaper = 1;
    record.dmZoom = 150;
}
void Fitted(DriverDevMode& record)
{
    record.dmFitToPaper = 2;
    record.dmOutputPaper = 9;
}
void Proof(DriverDevMode& record)
{
    record.dmCopies = 3;
    record.dmCollateMode = record.dmProofPrint = 1;
}
void ThreeCopies(DriverDevMode& record) { record.dmCopies = 3; }

struct PairCase {
    const char* name;
    Prepare paper, setup;
    const char* line;  // what the page shows and the record holds
};
std::string PairName(const testing::TestParamInfo<PairCase>& test) { return test.param.name; }

// Both ways that a choice of the Setup page can reach this one.
std::string Opened(const PairCase& pair, std::string (PaperSheet::*line)())
{
    PaperSheet sheet([&](DriverDevMode& record) {
        pair.paper(record);
        pair.setup(record);
    });
    return (sheet.*line)();
}
std::string BroughtToTheFront(const PairCase& pair, std::string (PaperSheet::*line)())
{
    PaperSheet sheet(pair.paper);
    return (sheet.ChangeElsewhere(pair.setup).*line)();
}

class FitRules : public testing::TestWithParam<PairCase> {};
INSTANTIATE_TEST_SUITE_P(PaperRules, FitRules,
                         testing::Values(PairCase{"Plain", Nothing, Nothing, "-FoS 100 | 0 100"},
                                         PairCase{"Scaled", Scaled, Nothing, "-foS 150 | 1 150"},
                                         PairCase{"Fitted", Fitted, Nothing, "xFOs 100 | 2 100"},
                                         PairCase{"PlainNup", Nothing, Nup, "-fos 100 | 0 100"},
                                         PairCase{"ScaledNup", Scaled, Nup, "-fos 150 | 0 150"},
                                         PairCase{"FittedNup", Fitted, Nup, "-fos 100 | 0 100"},
                                         PairCase{"PlainBooklet", Nothing, Booklet, "-fos 100 | 0 100"},
                                         PairCase{"ScaledBooklet", Scaled, Booklet, "-fos 150 | 0 150"},
                                         PairCase{"FittedBooklet", Fitted, Booklet, "-fos 100 | 0 100"},
                                         PairCase{"ScaledDuplex", Scaled, LongEdge, "-foS 150 | 1 150"},
                                         PairCase{"FittedDuplex", Fitted, ShortEdge, "xFOs 100 | 2 100"}),
                         PairName);

TEST_P(FitRules, HoldWhenThePageOpens) { EXPECT_EQ(Opened(GetParam(), &PaperSheet::Fit), GetParam().line); }
TEST_P(FitRules, HoldWhenThePageComesToTheFront)
{
    EXPECT_EQ(BroughtToTheFront(GetParam(), &PaperSheet::Fit), GetParam().line);
}

class CopiesRules : public testing::TestWithParam<PairCase> {};
INSTANTIATE_TEST_SUITE_P(PaperRules, CopiesRules,
                         testing::Values(PairCase{"One", Nothing, Nothing, "N 1 ru p- | 1 0 0"},
                                         PairCase{"Three", ThreeCopies, Nothing, "N 3 Ru p- | 3 0 0"},
                                         PairCase{"Proof", Proof, Nothing, "N 3 Rc Px | 3 1 1"},
                                         PairCase{"OneLongEdge", Nothing, LongEdge, "N 1 ru p- | 1 0 0"},
                                         PairCase{"ThreeShortEdge", ThreeCopies, ShortEdge, "N 3 ru p- | 3 0 0"},
                                         PairCase{"ProofLongEdge", Proof, LongEdge, "N 3 ru p- | 3 0 0"},
                                         PairCase{"OneBooklet", Nothing, Booklet, "n 1 ru p- | 1 0 0"},
                                         PairCase{"ThreeBooklet", ThreeCopies, Booklet, "n 1 ru p- | 1 0 0"},
                                         PairCase{"ProofBooklet", Proof, Booklet, "n 1 ru p- | 1 0 0"},
                                         PairCase{"ProofNup", Proof, Nup, "N 3 Rc Px | 3 1 1"},
                                         PairCase{"ProofScaled", Proof, Scaled, "N 3 Rc Px | 3 1 1"}),
                         PairName);

TEST_P(CopiesRules, HoldWhenThePageOpens) { EXPECT_EQ(Opened(GetParam(), &PaperSheet::Copies), GetParam().line); }
TEST_P(CopiesRules, HoldWhenThePageComesToTheFront)
{
    EXPECT_EQ(BroughtToTheFront(GetParam(), &PaperSheet::Copies), GetParam().line);
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
    EXPECT_EQ(sheet.ChangeElsewhere([](DriverDevMode& record) { record.dmNupOn = 0; }).Fit(), "-FoS 100 | 0 100");
}

TEST(PaperRules, CopiesCanBeChosenAgainAfterABooklet)
{
    PaperSheet sheet(Proof);
    EXPECT_EQ(sheet.ChangeElsewhere(Booklet).Copies(), "n 1 ru p- | 1 0 0");
    EXPECT_EQ(
        sheet.ChangeElsewhere([](DriverDevMode& record) { record.dmDuplexOn = record.dmBookletPaper = 0; }).Copies(),
        "N 1 ru p- | 1 0 0");
    sheet.Type(IDC_COPIES, u"2");
    EXPECT_EQ(sheet.Copies(), "N 2 Ru p- | 2 0 0");
}

// Every edge of the states of fit to paper that a user can walk.
struct Walk {
    const char* name;
    Prepare start;
    std::function<void(PaperSheet&)> step;
    const char* line;
};
void CheckFit(PaperSheet& sheet) { sheet.Click(IDC_FIT_TO_PAPER); }
void ScaleTo(PaperSheet& sheet, const char16_t* text) { sheet.Type(IDC_SCALING, text); }

class FitStates : public testing::TestWithParam<Walk> {};
INSTANTIATE_TEST_SUITE_P(
    PaperRules, FitStates,
    testing::Values(Walk{"PlainToFitted", Nothing, CheckFit, "xFOs 100 | 2 100"},
                    Walk{"PlainToScaled", Nothing, [](auto& sheet) { ScaleTo(sheet, u"150"); }, "-foS 150 | 1 150"},
                    Walk{"ScaledToPlain", Scaled, [](auto& sheet) { ScaleTo(sheet, u"100"); }, "-FoS 100 | 0 100"},
                    Walk{"ScaledToScaled", Scaled, [](auto& sheet) { ScaleTo(sheet, u"75"); }, "-foS 75 | 1 75"},
                    Walk{"FittedToPlain", Fitted, CheckFit, "-FoS 100 | 0 100"},
                    Walk{"FittedToFitted", Fitted, [](auto& sheet) { sheet.Choose(IDC_OUTPUT_SIZE, 2); },
                         "xFOs 100 | 2 100"},
                    Walk{"ThereAndBack", Nothing,
                         [](auto& sheet) {
                             CheckFit(sheet);
                             CheckFit(sheet);
                         },
                         "-FoS 100 | 0 100"},
                    Walk{"FittedToScaled", Fitted,
                         [](auto& sheet) {
                             CheckFit(sheet);
                             ScaleTo(sheet, u"20");
                         },
                         "-foS 20 | 1 20"},
                    Walk{"ScaledToFitted", Scaled,
                         [](auto& sheet) {
                             ScaleTo(sheet, u"100");
                             CheckFit(sheet);
                         },
                         "xFOs 100 | 2 100"},
                    Walk{"PlainByDefault", Nothing, [](auto& sheet) { sheet.Click(IDC_DEFAULT); }, "-FoS 100 | 0 100"},
                    Walk{"ScaledByDefault", Scaled, [](auto& sheet) { sheet.Click(IDC_DEFAULT); }, "-FoS 100 | 0 100"},
                    Walk{"FittedByDefault", Fitted, [](auto& sheet) { sheet.Click(IDC_DEFAULT); }, "-FoS 100 | 0 100"},
                    Walk{"DefaultUnderNup", Nup, [](auto& sheet) { sheet.Click(IDC_DEFAULT); }, "-fos 100 | 0 100"},
                    // Unchecked with a scaling in the record, as a step of another page may leave it.
                    Walk{"FittedToTheRecordsScaling", Fitted,
                         [](auto& sheet) {
                             sheet.Change([](DriverDevMode& record) { record.dmZoom = 80; });
                             CheckFit(sheet);
                         },
                         "-FoS 100 | 1 80"}),
    [](const auto& test) { return test.param.name; });

TEST_P(FitStates, AreWalked)
{
    PaperSheet sheet(GetParam().start);
    GetParam().step(sheet);
    EXPECT_EQ(sheet.Fit(), GetParam().line);
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
    EXPECT_EQ(sheet.Settings().dmOutputPaper, 11);
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
    const OddCase cases[] = {
        {0, 150, "-FoS 100 | 0 100"}, // no fit means 100
        {1, 100, "-foS 100 | 1 100"},
        {1, 10,  "-foS 100 | 1 10" }, // out of range shows as 100 and stays until it is
  // typed
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

// Typed digit by digit; the line after each.
struct Typed {
    const char* name;
    int control;
    std::vector<const char16_t*> keys;
    std::string (PaperSheet::*line)();
    std::vector<const char*> lines;
};

class Typing : public testing::TestWithParam<Typed> {};
INSTANTIATE_TEST_SUITE_P(
    PaperRules, Typing,
    testing::Values(
        Typed{
            "Scaling150",
            IDC_SCALING,
            {u"1",            u"5",             u"0"              },
            &PaperSheet::Fit,
            {"-foS 1 | 1 20", "-foS 15 | 1 20", "-foS 150 | 1 150"}
},
        Typed{"Scaling100",
              IDC_SCALING,
              {u"1", u"0", u"0"},
              &PaperSheet::Fit,
              {"-foS 1 | 1 20", "-foS 10 | 1 20", "-FoS 100 | 0 100"}},
        Typed{"ScalingAtItsEnds",
              IDC_SCALING,
              {u"4", u"0", u"0"},
              &PaperSheet::Fit,
              {"-foS 4 | 1 20", "-foS 40 | 1 40", "-foS 400 | 1 400"}},
        Typed{"Scaling401",
              IDC_SCALING,
              {u"4", u"0", u"1"},
              &PaperSheet::Fit,
              {"-foS 4 | 1 20", "-foS 40 | 1 40", "-foS 400 | 1 400"}},
        Typed{"Scaling999",
              IDC_SCALING,
              {u"9", u"9", u"9"},
              &PaperSheet::Fit,
              {"-foS 9 | 1 20", "-foS 99 | 1 99", "-foS 400 | 1 400"}},
        Typed{"ScalingTakesDigitsAlone",
              IDC_SCALING,
              {u"2", u"-", u"5", u"x"},
              &PaperSheet::Fit,
              {"-foS 2 | 1 20", "-foS 2 | 1 20", "-foS 25 | 1 25", "-foS 25 | 1 25"}},
        Typed{"Copies",
              IDC_COPIES,
              {u"1", u"2", u"3", u"4"},
              &PaperSheet::Copies,
              {"N 1 ru p- | 1 0 0", "N 12 Ru p- | 12 0 0", "N 123 Ru p- | 123 0 0", "N 123 Ru p- | 123 0 0"}},
        Typed{"CopiesFromZero",
              IDC_COPIES,
              {u"0", u"0", u"2"},
              &PaperSheet::Copies,
              {"N 0 ru p- | 1 0 0", "N 00 ru p- | 1 0 0", "N 002 Ru p- | 2 0 0"}},
        Typed{"CopiesAtTheirEnd",
              IDC_COPIES,
              {u"9", u"9", u"9"},
              &PaperSheet::Copies,
              {"N 9 Ru p- | 9 0 0", "N 99 Ru p- | 99 0 0", "N 999 Ru p- | 999 0 0"}},
        Typed{"ShiftX",
              IDC_SHIFT_X,
              {u"-", u"5", u"0"},
              &PaperSheet::Shift,
              {"on XY - 0 | 1 0 0", "on XY -5 0 | 1 -5 0", "on XY -50 0 | 1 -50 0"}},
        Typed{
            "ShiftXTooFar", IDC_SHIFT_X, {u"5", u"1"}, &PaperSheet::Shift, {"on XY 5 0 | 1 5 0", "on XY 0 0 | 1 0 0"}},
        Typed{"ShiftXTooFarBelow",
              IDC_SHIFT_X,
              {u"-", u"5", u"1"},
              &PaperSheet::Shift,
              {"on XY - 0 | 1 0 0", "on XY -5 0 | 1 -5 0", "on XY 0 0 | 1 0 0"}},
        Typed{"ShiftXAtItsEnd",
              IDC_SHIFT_X,
              {u"5", u"0", u"5"},
              &PaperSheet::Shift,
              {"on XY 5 0 | 1 5 0", "on XY 50 0 | 1 50 0", "on XY 0 0 | 1 0 0"}},
        Typed{"ShiftXWithALateSign",
              IDC_SHIFT_X,
              {u"5", u"-", u"-"},
              &PaperSheet::Shift,
              {"on XY 5 0 | 1 5 0", "on XY 5- 0 | 1 0 0", "on XY 0 0 | 1 0 0"}},
        Typed{"ShiftXWithLetters",
              IDC_SHIFT_X,
              {u"7", u"a"},
              &PaperSheet::Shift,
              {"on XY 7 0 | 1 7 0", "on XY 0 0 | 1 0 0"}},
        Typed{"ShiftY", IDC_SHIFT_Y, {u"2", u"5"}, &PaperSheet::Shift, {"on XY 0 2 | 1 0 2", "on XY 0 25 | 1 0 25"}},
        Typed{
            "ShiftYTooFar", IDC_SHIFT_Y, {u"2", u"6"}, &PaperSheet::Shift, {"on XY 0 2 | 1 0 2", "on XY 0 0 | 1 0 0"}},
        Typed{"ShiftYTooFarBelow",
              IDC_SHIFT_Y,
              {u"-", u"2", u"6"},
              &PaperSheet::Shift,
              {"on XY 0 - | 1 0 0", "on XY 0 -2 | 1 0 -2", "on XY 0 0 | 1 0 0"}}),
    [](const auto& test) { return test.param.name; });

TEST_P(Typing, IsTakenDigitByDigit)
{
    const auto& [name, control, keys, line, lines] = GetParam();
    PaperSheet sheet([](DriverDevMode& record) { record.dmImageShiftOn = 1; });
    ASSERT_EQ(keys.size(), lines.size());
    for (std::size_t k = 0; k < keys.size(); ++k) {
        if (k == 0)
            sheet.Type(control, keys[k]);
        else
            sheet.Append(control, keys[k]);
        EXPECT_EQ((sheet.*line)(), lines[k]) << k;
    }
}

// What a field holds when it is left, after a text was put in whole.
struct Left {
    const char* name;
    int control;
    const char16_t* text;
    const char* inside;
    const char* after;
    std::string (PaperSheet::*line)();
};

class Leaving : public testing::TestWithParam<Left> {};
INSTANTIATE_TEST_SUITE_P(
    PaperRules, Leaving,
    testing::Values(
        Left{"ScalingEmpty", IDC_SCALING, u"", "-foS  | 1 20", "-foS 20 | 1 20", &PaperSheet::Fit},
        Left{"ScalingTooSmall", IDC_SCALING, u"19", "-foS 19 | 1 20", "-foS 20 | 1 20", &PaperSheet::Fit},
        Left{"ScalingLeast", IDC_SCALING, u"20", "-foS 20 | 1 20", "-foS 20 | 1 20", &PaperSheet::Fit},
        Left{"ScalingZeros", IDC_SCALING, u"099", "-foS 099 | 1 99", "-foS 99 | 1 99", &PaperSheet::Fit},
        Left{"ScalingPastedLetters", IDC_SCALING, u"abc", "-foS abc | 1 20", "-foS 20 | 1 20", &PaperSheet::Fit},
        Left{"ScalingPastedMinus", IDC_SCALING, u"-50", "-foS -50 | 1 20", "-foS 20 | 1 20", &PaperSheet::Fit},
        Left{"ScalingPastedTooLong", IDC_SCALING, u"1000", "-FoS 100 | 0 100", "-FoS 100 | 0 100", &PaperSheet::Fit},
        Left{"CopiesEmpty", IDC_COPIES, u"", "N  ru p- | 1 0 0", "N 1 ru p- | 1 0 0", &PaperSheet::Copies},
        Left{"CopiesZero", IDC_COPIES, u"0", "N 0 ru p- | 1 0 0", "N 1 ru p- | 1 0 0", &PaperSheet::Copies},
        Left{"CopiesPastedMinus", IDC_COPIES, u"-5", "N -5 ru p- | 1 0 0", "N 1 ru p- | 1 0 0", &PaperSheet::Copies},
        Left{"CopiesPastedLines", IDC_COPIES, u"12\n3", "N 12 Ru p- | 12 0 0", "N 12 Ru p- | 12 0 0",
             &PaperSheet::Copies},
        Left{"CopiesPastedTooLong", IDC_COPIES, u"99999", "N 999 Ru p- | 999 0 0", "N 999 Ru p- | 999 0 0",
             &PaperSheet::Copies},
        Left{"ShiftEmpty", IDC_SHIFT_X, u"", "on XY  0 | 1 0 0", "on XY 0 0 | 1 0 0", &PaperSheet::Shift},
        Left{"ShiftSignAlone", IDC_SHIFT_X, u"-", "on XY - 0 | 1 0 0", "on XY 0 0 | 1 0 0", &PaperSheet::Shift},
        Left{"ShiftZeros", IDC_SHIFT_X, u"-07", "on XY -07 0 | 1 -7 0", "on XY -7 0 | 1 -7 0", &PaperSheet::Shift},
        Left{"ShiftPastedTooLong", IDC_SHIFT_Y, u"-255", "on XY 0 -25 | 1 0 -25", "on XY 0 -25 | 1 0 -25",
             &PaperSheet::Shift},
        Left{"ShiftPastedBlanks", IDC_SHIFT_Y, u" 5", "on XY 0 0 | 1 0 0", "on XY 0 0 | 1 0 0", &PaperSheet::Shift}),
    [](const auto& test) { return test.param.name; });

TEST_P(Leaving, PutsTheFieldRight)
{
    PaperSheet sheet([](DriverDevMode& record) { record.dmImageShiftOn = 1; });
    sheet.Paste(GetParam().control, GetParam().text);
    EXPECT_EQ((sheet.*GetParam().line)(), GetParam().inside);
    sheet.Focus(IDC_LANDSCAPE);
    EXPECT_EQ((sheet.*GetParam().line)(), GetParam().after);
}

// Arrows at their ends.
struct Spun {
    int control, arrows;
    const char16_t *top, *bottom;
    std::string (PaperSheet::*line)();
    const char *below, *above;
};

TEST(PaperRules, ArrowsStopAtTheirEnds)
{
    const Spun cases[] = {
        {IDC_SCALING, IDC_SCALING_SPIN, u"399", u"21",  &PaperSheet::Fit,    "-foS 20 | 1 20",        "-foS 400 | 1 400"     },
        {IDC_COPIES,  IDC_COPIES_SPIN,  u"998", u"2",   &PaperSheet::Copies, "N 1 ru p- | 1 0 0",     "N 999 Ru p- | 999 0 0"},
        {IDC_SHIFT_X, IDC_SHIFT_X_SPIN, u"49",  u"-49", &PaperSheet::Shift,  "on XY -50 0 | 1 -50 0",
         "on XY 50 0 | 1 50 0"                                                                                               },
        {IDC_SHIFT_Y, IDC_SHIFT_Y_SPIN, u"24",  u"-24", &PaperSheet::Shift,  "on XY 0 -25 | 1 0 -25",
         "on XY 0 25 | 1 0 25"                                                                                               },
    };
    for (const Spun& one : cases) {
        PaperSheet sheet([](DriverDevMode& record) { record.dmImageShiftOn = 1; });
        sheet.Type(one.control, one.bottom).Spin(one.arrows, false, 2);
        EXPECT_EQ((sheet.*one.line)(), one.below);
        sheet.Type(one.control, one.top).Spin(one.arrows, true, 2);
        EXPECT_EQ((sheet.*one.line)(), one.above);
    }
}

// Copies, collation and Proof Print as the user goes along.
TEST(PaperRules, ProofPrintComesWithCollationAndGoesWithTheLastCopy)
{
    PaperSheet sheet;
    struct Step {
        std::function<void()> act;
        const char* line;
    };
    const Step steps[] = {
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
    for (const Step& step : steps) {
        step.act();
        EXPECT_EQ(sheet.Copies(), step.line);
    }
}

TEST(PaperRules, CollationOfOneCopyIsForgottenAtOnce)
{
    PaperSheet sheet([](DriverDevMode& record) { record.dmCollateMode = record.dmProofPrint = 1; });
    EXPECT_EQ(sheet.Copies(), "N 1 ru p- | 1 0 0");
}

TEST(PaperRules, CopiesBeyondTheFieldAreLimitedWhenThePageOpens)
{
    for (const auto& [copies, line] : {
             std::pair<SHORT, const char*>{0,    "N 0 ru p- | 1 0 0"      },
             {1000, "N 1000 Ru p- | 999 0 0" },
             {-1,   "N 65535 Ru p- | 999 0 0"}
    }) {
        PaperSheet sheet([copies = copies](DriverDevMode& record) { record.dmCopies = copies; });
        EXPECT_EQ(sheet.Copies(), line) << copies;
    }
}

TEST(PaperRules, ImageShiftKeepsItsValuesWhileItIsOff)
{
    PaperSheet sheet([](DriverDevMode& record) {
        record.dmImageShiftX = 5;
        record.dmImageShiftY = -7;
    });
    EXPECT_EQ(sheet.Shift(), "off xy 5 -7 | 0 5 -7");
    sheet.Click(IDC_SHIFT_ON);
    EXPECT_EQ(sheet.Shift(), "on XY 5 -7 | 1 5 -7");
    sheet.Click(IDC_SHIFT_OFF);
    EXPECT_EQ(sheet.Shift(), "off xy 5 -7 | 0 5 -7");
}

TEST(PaperRules, ImageShiftBeyondTheSheetIsDroppedWhenThePageOpens)
{
    PaperSheet sheet([](DriverDevMode& record) {
        record.dmImageShiftX = 51;
        record.dmImageShiftY = -26;
    });
    EXPECT_EQ(sheet.Shift(), "off xy 0 0 | 0 0 0");
}

TEST(PaperRules, ABookletTakesEveryPaperThatIsChosen)
{
    PaperSheet sheet(Booklet, {Entry(257, u"Form", 0, 2100, 2970)}, Germany);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"A5 (148 x 210 mm)");
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 11);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Form (210.0x297.0 mm)");
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 257);
    sheet.Click(IDC_DEFAULT);
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 9);
    sheet.Change([](DriverDevMode& record) { record.dmBookletPaper = 0; }).Choose(IDC_DOCUMENT_SIZE, 0);
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
    PaperSheet sheet([](DriverDevMode& record) {
        record.dmDefaultSource = 2;
        record.dmDeviceFlags = 128;
    });
    EXPECT_FALSE(sheet.Enabled(IDC_EDIT_CUSTOM));
    sheet.ChangeElsewhere([](DriverDevMode& record) { record.dmDeviceFlags = 0; });
    EXPECT_TRUE(sheet.Enabled(IDC_EDIT_CUSTOM));
    EXPECT_EQ(sheet.ItemData(IDC_DOCUMENT_SIZE).size(), 16u);
    EXPECT_EQ(sheet.Settings().dmDefaultSource, 2) << "the Setup page decides";
    EXPECT_EQ(SelectedSource, 1);
}

}  // namespace
