// The rules that join the choices of the Setup page: each change on one control with each state of the others.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;
using Prepare = void (*)(DriverDevMode& record);

constexpr DWORD Tray2Flag = 0x80;

// Letter, with what else a choice of paper writes.
void Plain(DriverDevMode& record)
{
    record.dmPaperWidthPriv = 2550;
    record.dmPaperLengthPriv = 3300;
}
void Tray1(DriverDevMode& record)
{
    Plain(record);
    record.dmDefaultSource = 1;
}
void Tray2There(DriverDevMode& record)
{
    Plain(record);
    record.dmDeviceFlags |= Tray2Flag;
}
void Tray2(DriverDevMode& record)
{
    Tray2There(record);
    record.dmDefaultSource = 2;
}
void Transparency(DriverDevMode& record)
{
    Tray1(record);
    record.dmMediaIndex = 1;
}
void LongEdge(DriverDevMode& record)
{
    Tray1(record);
    record.dmDuplexOn = record.dmDuplexBinding = 1;
}
void LongEdgeNup(DriverDevMode& record)
{
    LongEdge(record);
    record.dmNupOn = record.dmNupBorder = 1;
    record.dmNupCount = 4;
}
void Booklet(DriverDevMode& record)
{
    Tray1(record);
    record.dmDuplexOn = record.dmNupOn = record.dmNupBorder = 1;
    record.dmBookletPaper = 1;
    record.dmNupCount = 2;
}
// As an application may have it.
void BookletFromAuto(DriverDevMode& record)
{
    Booklet(record);
    record.dmDefaultSource = 7;
}
void Nup(DriverDevMode& record)
{
    Tray1(record);
    record.dmNupOn = record.dmNupBorder = record.dmNupVertical = record.dmNupDescending = 1;
    record.dmNupCount = 4;
}
void Scaled(DriverDevMode& record)
{
    Tray1(record);
    record.dmFitToPaper = 1;
    record.dmZoom = 150;
}
void Fitted(DriverDevMode& record)
{
    Tray1(record);
    record.dmFitToPaper = 2;
    record.dmOutputPaper = 9;
}
void TwoCopies(DriverDevMode& record)
{
    Tray1(record);
    record.dmCopies = 2;
}
void TwoCollated(DriverDevMode& record)
{
    TwoCopies(record);
    record.dmCollateMode = 1;
}

struct StateRow {
    const char* name;
    Prepare prepare;
};
constexpr StateRow States[] = {
    {"Plain",           Plain          },
    {"Tray1",           Tray1          },
    {"Tray2There",      Tray2There     },
    {"Tray2",           Tray2          },
    {"Transparency",    Transparency   },
    {"LongEdge",        LongEdge       },
    {"LongEdgeNup",     LongEdgeNup    },
    {"Booklet",         Booklet        },
    {"BookletFromAuto", BookletFromAuto},
    {"Nup",             Nup            },
    {"Scaled",          Scaled         },
    {"Fitted",          Fitted         },
    {"TwoCopies",       TwoCopies      },
    {"TwoCollated",     TwoCollated    },
};

struct ChangeRow {
    const char* name;
    int control;
    const char16_t* row;
};
constexpr ChangeRow Changes[] = {
    {"NupOff",       IDC_NUP,          u"Off"                  },
    {"Nup6",         IDC_NUP,          u"6-up"                 },
    {"BorderLine",   IDC_BORDER_LINE,  nullptr                 },
    {"DuplexOff",    IDC_DUPLEX,       u"Off"                  },
    {"ShortEdge",    IDC_DUPLEX,       u"Short Edge Binding"   },
    {"LongEdge",     IDC_DUPLEX,       u"Long Edge Binding"    },
    {"BookletLeft",  IDC_DUPLEX,       u"Booklet Left Binding" },
    {"BookletRight", IDC_DUPLEX,       u"Booklet Right Binding"},
    {"GuidePaper",   IDC_GUIDE_PAPER,  nullptr                 },
    {"Auto",         IDC_PAPER_SOURCE, u"Auto"                 },
    {"Tray1",        IDC_PAPER_SOURCE, u"Tray1"                },
    {"Tray2",        IDC_PAPER_SOURCE, u"Tray2"                },
    {"ManualFeed",   IDC_PAPER_SOURCE, u"Manual Feed"          },
    {"PlainPaper",   IDC_MEDIA_TYPE,   u"Plain Paper"          },
    {"Transparency", IDC_MEDIA_TYPE,   u"Transparency"         },
    {"Envelope",     IDC_MEDIA_TYPE,   u"Envelope"             },
};

struct PairRow {
    const char* change;
    const char* states;
    const char* difference;
};
constexpr PairRow Pairs[] = {
    {"NupOff",       "Plain Tray1 Tray2There Tray2 Transparency LongEdge TwoCopies TwoCollated",                         "told"                                                                     },
    {"NupOff",       "LongEdgeNup",                                                                                      "nup=Off -border oborder -style dmNupOn=0 dmNupCount=1 dmNupBorder=0 told" },
    {"NupOff",       "Booklet BookletFromAuto Scaled Fitted",                                                            "locked"                                                                   },
    {"NupOff",       "Nup",
     "nup=Off -border oborder -style dmNupOn=0 dmNupCount=1 dmNupVertical=0 dmNupDescending=0 dmNupBorder=0 told"                                                                                   },
    {"Nup6",         "Plain Tray1 Tray2There Tray2 Transparency LongEdge TwoCopies TwoCollated",
     "nup=6-up +border +style dmNupOn=1 dmNupCount=6 told"                                                                                                                                          },
    {"Nup6",         "LongEdgeNup Nup",                                                                                  "nup=6-up dmNupCount=6 told"                                               },
    {"Nup6",         "Booklet BookletFromAuto Scaled Fitted",                                                            "locked"                                                                   },
    {"BorderLine",   "Plain Tray1 Tray2There Tray2 Transparency LongEdge Scaled Fitted TwoCopies TwoCollated",           "locked"                                                                   },
    {"BorderLine",   "LongEdgeNup Booklet BookletFromAuto Nup",                                                          "oborder dmNupBorder=0 told"                                               },
    {"DuplexOff",    "Plain Tray1 Tray2There Tray2 Nup Scaled Fitted TwoCopies TwoCollated",                             "told"                                                                     },
    {"DuplexOff",    "Transparency",                                                                                     "locked"                                                                   },
    {"DuplexOff",    "LongEdge LongEdgeNup",                                                                             "duplex=Off -guide dmDuplexOn=0 dmDuplexBinding=0 told"                    },
    {"DuplexOff",    "Booklet BookletFromAuto",
     "nup=Off +nup -border oborder duplex=Off -guide dmNupOn=0 dmNupCount=1 dmNupBorder=0 dmBookletPaper=0 "
     "dmDuplexOn=0 told"                                                                                                                                                                            },
    {"ShortEdge",    "Plain Tray2There Tray2",                                                                           "box told"                                                                 },
    {"ShortEdge",    "Tray1 Nup Scaled Fitted TwoCopies TwoCollated",
     "duplex=Short Edge Binding +guide dmDuplexOn=1 dmDuplexBinding=3 told"                                                                                                                         },
    {"ShortEdge",    "Transparency",                                                                                     "locked"                                                                   },
    {"ShortEdge",    "LongEdge LongEdgeNup",                                                                             "duplex=Short Edge Binding dmDuplexBinding=3 told"                         },
    {"ShortEdge",    "Booklet",
     "nup=Off +nup -border oborder duplex=Short Edge Binding dmNupOn=0 dmNupCount=1 dmNupBorder=0 dmBookletPaper=0 "
     "dmDuplexBinding=3 told"                                                                                                                                                                       },
    {"ShortEdge",    "BookletFromAuto",                                                                                  "duplex=Off -guide dmBookletPaper=0 dmDuplexOn=0 box told"                 },
    {"LongEdge",     "Plain Tray2There Tray2",                                                                           "box told"                                                                 },
    {"LongEdge",     "Tray1 Nup Scaled Fitted TwoCopies TwoCollated",
     "duplex=Long Edge Binding +guide dmDuplexOn=1 dmDuplexBinding=1 told"                                                                                                                          },
    {"LongEdge",     "Transparency",                                                                                     "locked"                                                                   },
    {"LongEdge",     "LongEdge LongEdgeNup",                                                                             "told"                                                                     },
    {"LongEdge",     "Booklet",
     "nup=Off +nup -border oborder duplex=Long Edge Binding dmNupOn=0 dmNupCount=1 dmNupBorder=0 dmBookletPaper=0 "
     "dmDuplexBinding=1 told"                                                                                                                                                                       },
    {"LongEdge",     "BookletFromAuto",                                                                                  "duplex=Off -guide dmBookletPaper=0 dmDuplexOn=0 box told"                 },
    {"BookletLeft",  "Plain Tray2There Tray2",                                                                           "box told"                                                                 },
    {"BookletLeft",  "Tray1 TwoCollated",
     "nup=2-up -nup +border duplex=Booklet Left Binding +guide dmNupOn=1 dmNupCount=2 dmBookletPaper=1 dmDuplexOn=1 "
     "told"                                                                                                                                                                                         },
    {"BookletLeft",  "Transparency",                                                                                     "locked"                                                                   },
    {"BookletLeft",  "LongEdge",
     "nup=2-up -nup +border duplex=Booklet Left Binding dmNupOn=1 dmNupCount=2 dmBookletPaper=1 dmDuplexBinding=0 "
     "told"                                                                                                                                                                                         },
    {"BookletLeft",  "LongEdgeNup",
     "nup=2-up -nup -style duplex=Booklet Left Binding dmNupCount=2 dmBookletPaper=1 dmDuplexBinding=0 told"                                                                                        },
    {"BookletLeft",  "Booklet",                                                                                          "told"                                                                     },
    {"BookletLeft",  "BookletFromAuto",                                                                                  "duplex=Off -guide dmBookletPaper=0 dmDuplexOn=0 box told"                 },
    {"BookletLeft",  "Nup",
     "nup=2-up -nup -style duplex=Booklet Left Binding +guide dmNupCount=2 dmBookletPaper=1 dmDuplexOn=1 told"                                                                                      },
    {"BookletLeft",  "Scaled Fitted TwoCopies",                                                                          "absent"                                                                   },
    {"BookletRight", "Plain Tray2There Tray2",                                                                           "dmBookletRight=1 box told"                                                },
    {"BookletRight", "Tray1 TwoCollated",
     "nup=2-up -nup +border duplex=Booklet Right Binding +guide dmNupOn=1 dmNupCount=2 dmBookletPaper=1 dmDuplexOn=1 "
     "dmBookletRight=1 told"                                                                                                                                                                        },
    {"BookletRight", "Transparency",                                                                                     "locked"                                                                   },
    {"BookletRight", "LongEdge",
     "nup=2-up -nup +border duplex=Booklet Right Binding dmNupOn=1 dmNupCount=2 dmBookletPaper=1 dmDuplexBinding=0 "
     "dmBookletRight=1 told"                                                                                                                                                                        },
    {"BookletRight", "LongEdgeNup",
     "nup=2-up -nup -style duplex=Booklet Right Binding dmNupCount=2 dmBookletPaper=1 dmDuplexBinding=0 "
     "dmBookletRight=1 told"                                                                                                                                                                        },
    {"BookletRight", "Booklet",                                                                                          "duplex=Booklet Right Binding dmBookletRight=1 told"                       },
    {"BookletRight", "BookletFromAuto",                                                                                  "duplex=Off -guide dmBookletPaper=0 dmDuplexOn=0 dmBookletRight=1 box told"},
    {"BookletRight", "Nup",
     "nup=2-up -nup -style duplex=Booklet Right Binding +guide dmNupCount=2 dmBookletPaper=1 dmDuplexOn=1 "
     "dmBookletRight=1 told"                                                                                                                                                                        },
    {"BookletRight", "Scaled Fitted TwoCopies",                                                                          "absent"                                                                   },
    {"GuidePaper",   "Plain Tray1 Tray2There Tray2 Transparency Nup Scaled Fitted TwoCopies TwoCollated",                "locked"                                                                   },
    {"GuidePaper",   "LongEdge LongEdgeNup Booklet BookletFromAuto",                                                     "oguide dmGuidePaper=0 told"                                               },
    {"Auto",         "Plain Tray2There",                                                                                 "told"                                                                     },
    {"Auto",         "Tray1 Transparency Nup Scaled Fitted TwoCopies TwoCollated",                                       "source=Auto dmDefaultSource=7 told"                                       },
    {"Auto",         "Tray2",                                                                                            "source=Auto media:5 dmDefaultSource=7 told"                               },
    {"Auto",         "LongEdge LongEdgeNup Booklet",                                                                     "box"                                                                      },
    {"Auto",         "BookletFromAuto",                                                                                  "source=Tray1 box"                                                         },
    {"Tray1",        "Plain Tray2There BookletFromAuto",                                                                 "source=Tray1 dmDefaultSource=1 told"                                      },
    {"Tray1",        "Tray1 Transparency LongEdge LongEdgeNup Booklet Nup Scaled Fitted TwoCopies TwoCollated",          "told"                                                                     },
    {"Tray1",        "Tray2",                                                                                            "source=Tray1 media:5 dmDefaultSource=1 told"                              },
    {"Tray2",
     "Plain Tray1 Transparency LongEdge LongEdgeNup Booklet BookletFromAuto Nup Scaled Fitted TwoCopies TwoCollated",    "absent"                                                                   },
    {"Tray2",        "Tray2There",                                                                                       "source=Tray2 media:1 dmDefaultSource=2 told"                              },
    {"Tray2",        "Tray2",                                                                                            "told"                                                                     },
    {"ManualFeed",   "Plain Tray1 Tray2There Transparency Nup Scaled Fitted TwoCopies TwoCollated",
     "source=Manual Feed dmDefaultSource=4 told"                                                                                                                                                    },
    {"ManualFeed",   "Tray2",                                                                                            "source=Manual Feed media:5 dmDefaultSource=4 told"                        },
    {"ManualFeed",   "LongEdge LongEdgeNup Booklet",                                                                     "box"                                                                      },
    {"ManualFeed",   "BookletFromAuto",                                                                                  "source=Tray1 box"                                                         },
    {"PlainPaper",
     "Plain Tray1 Tray2There Tray2 LongEdge LongEdgeNup Booklet BookletFromAuto Nup Scaled Fitted TwoCopies "
     "TwoCollated",                                                                                                      "told"                                                                     },
    {"PlainPaper",   "Transparency",                                                                                     "+duplex media=Plain Paper dmMediaIndex=0 told"                            },
    {"Transparency", "Plain Tray1 Nup Scaled Fitted TwoCopies TwoCollated",
     "-duplex media=Transparency dmMediaIndex=1 told"                                                                                                                                               },
    {"Transparency", "Tray2There",                                                                                       "-duplex source:3 media=Transparency dmMediaIndex=1 told"                  },
    {"Transparency", "Tray2",                                                                                            "absent"                                                                   },
    {"Transparency", "Transparency",                                                                                     "told"                                                                     },
    {"Transparency", "LongEdge LongEdgeNup Booklet BookletFromAuto",                                                     "box told"                                                                 },
    {"Envelope",     "Plain Tray1 LongEdge LongEdgeNup Booklet BookletFromAuto Nup Scaled Fitted TwoCopies TwoCollated",
     "media=Envelope dmPaperSize=27 dmPaperLength=2598 dmPaperWidth=1299 dmMediaIndex=2 dmPaperWidthPriv=1299 "
     "dmPaperLengthPriv=2598 told"                                                                                                                                                                  },
    {"Envelope",     "Tray2There",
     "source:3 media=Envelope dmPaperSize=27 dmPaperLength=2598 dmPaperWidth=1299 dmMediaIndex=2 dmPaperWidthPriv=1299 "
     "dmPaperLengthPriv=2598 told"                                                                                                                                                                  },
    {"Envelope",     "Tray2",                                                                                            "absent"                                                                   },
    {"Envelope",     "Transparency",
     "+duplex media=Envelope dmPaperSize=27 dmPaperLength=2598 dmPaperWidth=1299 dmMediaIndex=2 dmPaperWidthPriv=1299 "
     "dmPaperLengthPriv=2598 told"                                                                                                                                                                  },
};

class EveryChange : public testing::TestWithParam<ChangeRow> {};
INSTANTIATE_TEST_SUITE_P(SetupRules, EveryChange, testing::ValuesIn(Changes),
                         [](const auto& test) { return std::string(test.param.name); });

bool Names(const std::string& states, const std::string& state)
{
    return (" " + states + " ").find(" " + state + " ") != std::string::npos;
}

TEST_P(EveryChange, MeetsEveryState)
{
    for (const StateRow& state : States) {
        std::vector<std::string> expected;
        for (const PairRow& pair : Pairs)
            if (pair.change == std::string(GetParam().name) && Names(pair.states, state.name))
                expected.push_back(pair.difference);
        SetupSheet sheet(state.prepare);
        EXPECT_THAT(expected, testing::ElementsAre(sheet.Pick(GetParam().control, GetParam().row))) << state.name;
    }
}

struct RefusalRow {
    Prepare state;
    int control;
    const char16_t* row;
    const char* message;
};

TEST(SetupRules, RefusalsSayWhy)
{
    constexpr char Source[] = "Selected paper source can't work with duplex printing.\nOnly Tray1 is supported.";
    constexpr char Media[] = "Transparency can't work with duplex printing,\nPlease choose other Media Type.";
    const RefusalRow rows[] = {
        {Plain,    IDC_DUPLEX,       u"Long Edge Binding", Source},
        {LongEdge, IDC_PAPER_SOURCE, u"Manual Feed",       Source},
        {LongEdge, IDC_MEDIA_TYPE,   u"Transparency",      Media },
    };
    for (const RefusalRow& row : rows) {
        SetupSheet sheet(row.state);
        sheet.Choose(row.control, row.row);
        ASSERT_EQ(sheet.Machine().Desktop().boxesSeen.size(), 1u);
        const auto& box = sheet.Machine().Desktop().boxesSeen[0];
        EXPECT_EQ(platform::ToUtf8(box.text), row.message);
        EXPECT_EQ(box.caption, u"Warning");
        EXPECT_EQ(box.style, MB_ICONEXCLAMATION);
    }
}

TEST(SetupRules, ARefusalWithoutItsTextsStillShows)
{
    SetupSheet sheet(LongEdge);
    sheet.Machine().Fail("LoadStringW");
    platform::CurrentEnvironment().faults.Add("LoadStringW", 2, false);
    sheet.Choose(IDC_PAPER_SOURCE, u"Auto");
    ASSERT_EQ(sheet.Machine().Desktop().messagesSeen.size(), 1u);
    EXPECT_EQ(sheet.Row(IDC_PAPER_SOURCE), "Tray1");
}

// A booklet takes the paper that comes out of the printer.
TEST(SetupRules, ABookletIsLaidOutOnTheOutputPaper)
{
    SetupSheet sheet([](DriverDevMode& record) {
        Tray1(record);
        record.dmOutputPaper = 9;
        record.dmImageShiftX = 7;
        record.dmImageShiftY = -7;
    });
    EXPECT_EQ(sheet.Pick(IDC_DUPLEX, u"Booklet Left Binding"),
              "nup=2-up -nup +border duplex=Booklet Left Binding +guide dmNupOn=1 dmNupCount=2 dmImageShiftX=0 "
              "dmImageShiftY=0 dmBookletPaper=1 dmDuplexOn=1 told");
    // The list still holds the booklets after the Paper page has come to fit, until this page comes back.
    sheet.Change([](DriverDevMode& record) { record.dmFitToPaper = 2; });
    sheet.Choose(IDC_DUPLEX, u"Booklet Right Binding");
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 9);
}

struct ShownRow {
    const char* name;
    Prepare state;
    const char* duplex;
    std::size_t bindings;
    const char* enabled;  // of N-up, border line, style, duplex, guide paper
    const char* nup;
    int copies;
};

class EveryState : public testing::TestWithParam<ShownRow> {};
INSTANTIATE_TEST_SUITE_P(SetupRules, EveryState,
                         testing::Values(ShownRow{"Plain", Plain, "Off", 5, "Nbs Dg", "Off", 1},
                                         ShownRow{"Tray2", Tray2, "Off", 5, "Nbs Dg", "Off", 1},
                                         ShownRow{"Transparency", Transparency, "Off", 5, "Nbs dg", "Off", 1},
                                         ShownRow{"TransparencyWithDuplex",
                                                  [](DriverDevMode& record) {
                                                      LongEdge(record);
                                                      record.dmMediaIndex = 1;
                                                  },
                                                  "Off", 5, "Nbs dg", "Off", 1},
                                         ShownRow{"LongEdge", LongEdge, "Long Edge Binding", 5, "Nbs DG", "Off", 1},
                                         ShownRow{"ShortEdge",
                                                  [](DriverDevMode& record) {
                                                      LongEdge(record);
                                                      record.dmDuplexBinding = 2;
                                                  },
                                                  "Short Edge Binding", 5, "Nbs DG", "Off", 1},
                                         ShownRow{"Booklet", Booklet, "Booklet Left Binding", 5, "nBs DG", "2-up", 1},
                                         ShownRow{"BookletRight",
                                                  [](DriverDevMode& record) {
                                                      Booklet(record);
                                                      record.dmBookletRight = 1;
                                                  },
                                                  "Booklet Right Binding", 5, "nBs DG", "2-up", 1},
                                         ShownRow{"BookletInThreeCopies",
                                                  [](DriverDevMode& record) {
                                                      Booklet(record);
                                                      record.dmCopies = 3;
                                                  },
                                                  "Booklet Left Binding", 5, "nBs DG", "2-up", 1},
                                         ShownRow{"BookletInThreeSets",
                                                  [](DriverDevMode& record) {
                                                      Booklet(record);
                                                      record.dmCopies = 3;
                                                      record.dmCollateMode = 1;
                                                  },
                                                  "Booklet Left Binding", 5, "nBs DG", "2-up", 3},
                                         ShownRow{"ScaledBooklet",
                                                  [](DriverDevMode& record) {
                                                      Booklet(record);
                                                      record.dmZoom = 150;
                                                  },
                                                  "", 3, "nbs DG", "Off", 1},
                                         ShownRow{"Nup", Nup, "Off", 5, "NBS Dg", "4-up", 1},
                                         ShownRow{"NupOfNoRow",
                                                  [](DriverDevMode& record) {
                                                      Nup(record);
                                                      record.dmNupCount = 3;
                                                  },
                                                  "Off", 5, "NBS Dg", "", 1},
                                         ShownRow{"Scaled", Scaled, "Off", 3, "nbs Dg", "Off", 1},
                                         ShownRow{"ZoomedWithoutMode",
                                                  [](DriverDevMode& record) { record.dmZoom = 99; }, "Off", 3, "nbs Dg",
                                                  "Off", 1},
                                         ShownRow{"Fitted", Fitted, "Off", 3, "nbs Dg", "Off", 1},
                                         ShownRow{"TwoCopies", TwoCopies, "Off", 3, "Nbs Dg", "Off", 2},
                                         ShownRow{"TwoCollated", TwoCollated, "Off", 5, "Nbs Dg", "Off", 2}),
                         [](const auto& test) { return test.param.name; });

TEST_P(EveryState, Shows)
{
    const ShownRow& row = GetParam();
    SetupSheet sheet(row.state);
    EXPECT_EQ(sheet.Row(IDC_DUPLEX), row.duplex);
    EXPECT_EQ(sheet.Items(IDC_DUPLEX).size(), row.bindings);
    EXPECT_EQ(sheet.EnabledLetters(), row.enabled);
    EXPECT_EQ(sheet.Row(IDC_NUP), row.nup);
    EXPECT_EQ(sheet.Settings().dmCopies, row.copies);
    EXPECT_EQ(sheet.Changes(), 0);
}

struct ElsewhereRow {
    const char* name;
    Prepare before, elsewhere;
    const char* difference;
};

class WhatThePaperPageChanges : public testing::TestWithParam<ElsewhereRow> {};
INSTANTIATE_TEST_SUITE_P(
    SetupRules, WhatThePaperPageChanges,
    testing::Values(
        ElsewhereRow{"Scaling", Nup, Scaled,
                     "nup=Off -nup -border -style duplex:3 dmFitToPaper=1 dmZoom=150 dmNupOn=0 dmNupCount=1 "
                     "dmNupVertical=0 dmNupDescending=0 dmNupBorder=0"},
        ElsewhereRow{"FullSizeAgain", Scaled,
                     [](DriverDevMode& record) {
                         record.dmFitToPaper = 0;
                         record.dmZoom = 100;
                     },
                     "+nup duplex:5 dmFitToPaper=0 dmZoom=100"},
        ElsewhereRow{"Copies", LongEdge, TwoCopies, "duplex:3 dmCopies=2"},
        ElsewhereRow{"Collation", TwoCopies, TwoCollated, "duplex:5 dmCollateMode=1"},
        ElsewhereRow{"CopiesOfABooklet", Booklet, TwoCopies, "duplex:3 duplex= dmCopies=2"},
        ElsewhereRow{"ShiftOfABooklet", Booklet,
                     [](DriverDevMode& record) { record.dmImageShiftX = record.dmImageShiftY = 5; }, ""},
        // The media is this page's own: what it has told last goes back into the record.
        ElsewhereRow{"MediaUnderDuplex", LongEdge, [](DriverDevMode& record) { record.dmMediaIndex = 1; }, ""},
        ElsewhereRow{"Tray2Gone", Tray2, [](DriverDevMode& record) { record.dmDeviceFlags = 0; },
                     "source:3 source=Auto media:5 dmDeviceFlags=0"},
        ElsewhereRow{"OutputPaperThatTray2DoesNotTake", Tray2There,
                     [](DriverDevMode& record) {
                         record.dmFitToPaper = 2;
                         record.dmOutputPaper = 215;
                     },
                     "-nup duplex:3 dmFitToPaper=2 dmOutputPaper=215"}),
    [](const auto& test) { return test.param.name; });

TEST_P(WhatThePaperPageChanges, ShowsWhenThisPageComesBack)
{
    SetupSheet sheet(GetParam().before);
    EXPECT_EQ(sheet.Difference([](SetupSheet& self) { self.ChangeElsewhere(GetParam().elsewhere); }),
              GetParam().difference);
}

}  // namespace
