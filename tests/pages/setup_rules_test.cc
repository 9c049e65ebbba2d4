// The rules that join the choices of the Setup page: what each state shows, and what a change on one control does
// with the others.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;

// Records that break the rules, and what the page makes of them: N-up, border line, style, duplex and guide paper,
// large where they can be used.
TEST(SetupRules, OddRecordsShowAsTheyCan)
{
    constexpr char Booklet[] = "dmDefaultSource=1 dmDuplexOn=1 dmNupOn=1 dmNupBorder=1 dmBookletPaper=1 dmNupCount=2 ";
    // The record, its row of duplex and how many there are, what can be used, the row of N-up, and its copies.
    for (const auto& [booklet, fields, duplex, bindings, enabled, nup, copies] : {
             std::tuple{"",      "dmDefaultSource=1 dmMediaIndex=1 dmDuplexOn=1 dmDuplexBinding=1", "Off",                  5u, "Nbs dg",
                        "Off",                                                                                                                    1},
             {"",      "dmDefaultSource=1 dmDuplexOn=1 dmDuplexBinding=2",                "Short Edge Binding",   5u, "Nbs DG", "Off",  1},
             {"",      "dmNupOn=1 dmNupCount=3",                                          "Off",                  5u, "NBS Dg", "",     1},
             {"",      "dmZoom=99",                                                       "Off",                  3u, "nbs Dg", "Off",  1},
             {Booklet, "dmDefaultSource=7",                                               "Booklet Left Binding", 5u, "nBs DG", "2-up", 1},
             {Booklet, "dmCopies=3",                                                      "Booklet Left Binding", 5u, "nBs DG", "2-up", 1},
             {Booklet, "dmCopies=3 dmCollateMode=1",                                      "Booklet Left Binding", 5u, "nBs DG", "2-up", 3},
             {Booklet, "dmZoom=150",                                                      "",                     3u, "nbs DG", "Off",  1},
    }) {
        SetupSheet sheet(Fields(booklet + std::string(fields)));
        EXPECT_EQ(sheet.Row(IDC_DUPLEX), duplex) << fields;
        EXPECT_EQ(sheet.Items(IDC_DUPLEX).size(), bindings) << fields;
        EXPECT_EQ(sheet.EnabledLetters(), enabled) << fields;
        EXPECT_EQ(sheet.Row(IDC_NUP), nup) << fields;
        EXPECT_EQ(sheet.Settings().dmCopies, copies) << fields;
        EXPECT_EQ(sheet.Changes(), 0);
    }
}

// The record in a state, on Letter, with what else a choice of paper writes.
Sheet::Prepare In(const std::string& state)
{
    // clang-format off
    static const std::map<std::string, const char*> states = {
        {"Plain",           ""},
        {"Tray1",           "dmDefaultSource=1"},
        {"Tray2There",      "dmDeviceFlags=128"},
        {"Tray2",           "dmDeviceFlags=128 dmDefaultSource=2"},
        {"Transparency",    "dmDefaultSource=1 dmMediaIndex=1"},
        {"LongEdge",        "dmDefaultSource=1 dmDuplexOn=1 dmDuplexBinding=1"},
        {"LongEdgeNup",     "dmDefaultSource=1 dmDuplexOn=1 dmDuplexBinding=1 dmNupOn=1 dmNupBorder=1 dmNupCount=4"},
        {"Booklet",         "dmDefaultSource=1 dmDuplexOn=1 dmNupOn=1 dmNupBorder=1 dmBookletPaper=1 dmNupCount=2"},
        {"BookletFromAuto", "dmDefaultSource=7 dmDuplexOn=1 dmNupOn=1 dmNupBorder=1 dmBookletPaper=1 dmNupCount=2"},
        {"BookletRight",    "dmDefaultSource=1 dmDuplexOn=1 dmNupOn=1 dmNupBorder=1 dmBookletPaper=1 dmNupCount=2 "
                            "dmBookletRight=1"},
        {"Nup",             "dmDefaultSource=1 dmNupOn=1 dmNupBorder=1 dmNupVertical=1 dmNupDescending=1 dmNupCount=4"},
        {"Scaled",          "dmDefaultSource=1 dmFitToPaper=1 dmZoom=150"},
        {"TwoCopies",       "dmDefaultSource=1 dmCopies=2"},
        {"TwoCollated",     "dmDefaultSource=1 dmCopies=2 dmCollateMode=1"},
    };
    // clang-format on
    return Fields("dmPaperWidthPriv=2550 dmPaperLengthPriv=3300 " + std::string(states.at(state)));
}

// What a change does in each of some states.
TEST(SetupRules, EveryChangeMeetsTheStates)
{
    struct Row {
        const char* states;
        int control;
        const char16_t* row;  // null: a click
        const char* difference;
    };
    // clang-format off
    const Row rows[] = {
        {"Plain", IDC_NUP, u"Off", "told"},
        {"Nup", IDC_NUP, u"Off",
         "nup=Off -border oborder -style dmNupOn=0 dmNupCount=1 dmNupVertical=0 dmNupDescending=0 dmNupBorder=0 "
         "told"},
        {"Plain LongEdge", IDC_NUP, u"6-up", "nup=6-up +border +style dmNupOn=1 dmNupCount=6 told"},
        {"LongEdgeNup", IDC_NUP, u"6-up", "nup=6-up dmNupCount=6 told"},
        {"Booklet Nup", IDC_BORDER_LINE, nullptr, "oborder dmNupBorder=0 told"},
        {"Plain", IDC_DUPLEX, u"Off", "told"},
        {"LongEdge", IDC_DUPLEX, u"Off", "duplex=Off -guide dmDuplexOn=0 dmDuplexBinding=0 told"},
        {"Booklet", IDC_DUPLEX, u"Off",
         "nup=Off +nup -border oborder duplex=Off -guide dmNupOn=0 dmNupCount=1 dmNupBorder=0 dmBookletPaper=0 "
         "dmDuplexOn=0 told"},
        {"Plain Tray2", IDC_DUPLEX, u"Short Edge Binding", "box told"},
        {"Tray1 Nup Scaled TwoCopies", IDC_DUPLEX, u"Short Edge Binding",
         "duplex=Short Edge Binding +guide dmDuplexOn=1 dmDuplexBinding=3 told"},
        {"LongEdge", IDC_DUPLEX, u"Short Edge Binding", "duplex=Short Edge Binding dmDuplexBinding=3 told"},
        {"Booklet", IDC_DUPLEX, u"Short Edge Binding",
         "nup=Off +nup -border oborder duplex=Short Edge Binding dmNupOn=0 dmNupCount=1 dmNupBorder=0 "
         "dmBookletPaper=0 dmDuplexBinding=3 told"},
        {"BookletFromAuto", IDC_DUPLEX, u"Short Edge Binding",
         "duplex=Off -guide dmBookletPaper=0 dmDuplexOn=0 box told"},
        {"Tray1", IDC_DUPLEX, u"Long Edge Binding",
         "duplex=Long Edge Binding +guide dmDuplexOn=1 dmDuplexBinding=1 told"},
        {"Plain Tray2", IDC_DUPLEX, u"Booklet Left Binding", "box told"},
        {"Tray1 TwoCollated", IDC_DUPLEX, u"Booklet Left Binding",
         "nup=2-up -nup +border duplex=Booklet Left Binding +guide dmNupOn=1 dmNupCount=2 dmBookletPaper=1 "
         "dmDuplexOn=1 told"},
        {"LongEdge", IDC_DUPLEX, u"Booklet Left Binding",
         "nup=2-up -nup +border duplex=Booklet Left Binding dmNupOn=1 dmNupCount=2 dmBookletPaper=1 "
         "dmDuplexBinding=0 told"},
        {"LongEdgeNup", IDC_DUPLEX, u"Booklet Left Binding",
         "nup=2-up -nup -style duplex=Booklet Left Binding dmNupCount=2 dmBookletPaper=1 dmDuplexBinding=0 told"},
        {"Booklet", IDC_DUPLEX, u"Booklet Left Binding", "told"},
        {"BookletRight", IDC_DUPLEX, u"Booklet Left Binding", "duplex=Booklet Left Binding dmBookletRight=0 told"},
        {"Nup", IDC_DUPLEX, u"Booklet Left Binding",
         "nup=2-up -nup -style duplex=Booklet Left Binding +guide dmNupCount=2 dmBookletPaper=1 dmDuplexOn=1 told"},
        {"Plain Tray2", IDC_DUPLEX, u"Booklet Right Binding", "dmBookletRight=1 box told"},
        {"Tray1", IDC_DUPLEX, u"Booklet Right Binding",
         "nup=2-up -nup +border duplex=Booklet Right Binding +guide dmNupOn=1 dmNupCount=2 dmBookletPaper=1 "
         "dmDuplexOn=1 dmBookletRight=1 told"},
        {"BookletFromAuto", IDC_DUPLEX, u"Booklet Right Binding",
         "duplex=Off -guide dmBookletPaper=0 dmDuplexOn=0 dmBookletRight=1 box told"},
        {"LongEdge Booklet", IDC_GUIDE_PAPER, nullptr, "oguide dmGuidePaper=0 told"},
        {"Plain", IDC_PAPER_SOURCE, u"Auto", "told"},
        {"Tray1", IDC_PAPER_SOURCE, u"Auto", "source=Auto dmDefaultSource=7 told"},
        {"Tray2", IDC_PAPER_SOURCE, u"Auto", "source=Auto media:5 dmDefaultSource=7 told"},
        {"LongEdge Booklet", IDC_PAPER_SOURCE, u"Auto", "box"},
        {"BookletFromAuto", IDC_PAPER_SOURCE, u"Auto", "source=Tray1 box"},
        {"Plain BookletFromAuto", IDC_PAPER_SOURCE, u"Tray1", "source=Tray1 dmDefaultSource=1 told"},
        {"LongEdge", IDC_PAPER_SOURCE, u"Tray1", "told"},
        {"Tray2", IDC_PAPER_SOURCE, u"Tray1", "source=Tray1 media:5 dmDefaultSource=1 told"},
        {"Plain", IDC_PAPER_SOURCE, u"Tray2", "absent"},
        {"Tray2There", IDC_PAPER_SOURCE, u"Tray2", "source=Tray2 media:1 dmDefaultSource=2 told"},
        {"Tray2", IDC_PAPER_SOURCE, u"Tray2", "told"},
        {"Plain Transparency Nup", IDC_PAPER_SOURCE, u"Manual Feed", "source=Manual Feed dmDefaultSource=4 told"},
        {"LongEdge Booklet", IDC_PAPER_SOURCE, u"Manual Feed", "box"},
        {"Plain Tray2", IDC_MEDIA_TYPE, u"Plain Paper", "told"},
        {"Transparency", IDC_MEDIA_TYPE, u"Plain Paper", "+duplex media=Plain Paper dmMediaIndex=0 told"},
        {"Plain Nup", IDC_MEDIA_TYPE, u"Transparency", "-duplex media=Transparency dmMediaIndex=1 told"},
        {"Tray2There", IDC_MEDIA_TYPE, u"Transparency", "-duplex source:3 media=Transparency dmMediaIndex=1 told"},
        {"Tray2", IDC_MEDIA_TYPE, u"Transparency", "absent"},
        {"Transparency", IDC_MEDIA_TYPE, u"Transparency", "told"},
        {"LongEdge Booklet", IDC_MEDIA_TYPE, u"Transparency", "box told"},
        {"Plain Booklet", IDC_MEDIA_TYPE, u"Envelope",
         "media=Envelope dmPaperSize=27 dmPaperLength=2598 dmPaperWidth=1299 dmMediaIndex=2 dmPaperWidthPriv=1299 "
         "dmPaperLengthPriv=2598 told"},
    };
    // clang-format on
    for (const Row& row : rows) {
        std::istringstream names(row.states);
        for (std::string state; names >> state;)
            EXPECT_EQ(SetupSheet(In(state)).Pick(row.control, row.row), row.difference)
                << row.control << " meets " << state;
    }
}

TEST(SetupRules, RefusalsSayWhy)
{
    constexpr char Source[] = "Selected paper source can't work with duplex printing.\nOnly Tray1 is supported.";
    constexpr char Media[] = "Transparency can't work with duplex printing,\nPlease choose other Media Type.";
    for (const auto& [state, control, row, message] : {
             std::tuple{"Plain",    IDC_DUPLEX,       u"Long Edge Binding", Source},
             {"LongEdge", IDC_PAPER_SOURCE, u"Manual Feed",       Source},
             {"LongEdge", IDC_MEDIA_TYPE,   u"Transparency",      Media },
    }) {
        SetupSheet sheet(In(state));
        sheet.Choose(control, row);
        ASSERT_EQ(sheet.Machine().Desktop().boxesSeen.size(), 1u);
        const auto& box = sheet.Machine().Desktop().boxesSeen[0];
        EXPECT_EQ(platform::ToUtf8(box.text), message);
        EXPECT_EQ(box.caption, u"Warning");
        EXPECT_EQ(box.style, MB_ICONEXCLAMATION);
    }
}

// A booklet takes the paper that comes out of the printer.
TEST(SetupRules, ABookletIsLaidOutOnTheOutputPaper)
{
    SetupSheet sheet(Fields("dmDefaultSource=1 dmOutputPaper=9 dmImageShiftX=7 dmImageShiftY=-7"));
    EXPECT_EQ(sheet.Pick(IDC_DUPLEX, u"Booklet Left Binding"),
              "nup=2-up -nup +border duplex=Booklet Left Binding +guide dmNupOn=1 dmNupCount=2 dmImageShiftX=0 "
              "dmImageShiftY=0 dmBookletPaper=1 dmDuplexOn=1 told");
    // The list still holds the booklets after the Paper page has come to fit, until this page comes back.
    sheet.Change(Fields("dmFitToPaper=2"));
    sheet.Choose(IDC_DUPLEX, u"Booklet Right Binding");
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 9);
}

}  // namespace
