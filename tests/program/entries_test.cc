// qd480 capabilities, convert, can-print, upgrade, event
#include "tests/program/program.h"

namespace {

using Entries = ProgramTest;

// The last one has more papers than can be counted: 27 and 65509 are 0 in the 16 bits that count the names.
TEST_F(Entries, ACapabilityStandsUnderItsNameOrItsNumber)
{
    EXPECT_EQ(run("--platform country=49 capabilities NAME --only DC_MEDIAREADY --only 31 --only 19"),
              Done("{\"DC_MEDIAREADY\": {\"code\": 29, \"answer\": 1, \"withoutOutput\": 3, \"output\": [\"A4\"]}, "
                   "\"DC_PRINTRATEPPM\": {\"code\": 31, \"answer\": 20, \"withoutOutput\": 20}, "
                   "\"19\": {\"code\": 19, \"answer\": -1, \"withoutOutput\": -1}}\n"));
    EXPECT_EQ(run("capabilities NAME --only DC_BINNAMES --platform fail=GlobalAlloc:1"),
              Done("{\"DC_BINNAMES\": {\"code\": 12, \"answer\": 4, \"withoutOutput\": -1, \"output\": "
                   "[\"Auto\", \"Tray1\", \"Tray2\", \"Manual Feed\"]}}\n"));
    run("printer data NAME CustomPaperDataSize --dword 3668504");
    run("printer data NAME CustomPaperData --hex 00");
    EXPECT_EQ(run("capabilities NAME --only DC_PAPERNAMES"),
              Done("{\"DC_PAPERNAMES\": {\"code\": 16, \"answer\": 0, \"withoutOutput\": 0, \"output\": []}}\n"));
}

// The printer, too, is the entry's to find.
TEST_F(Entries, AConversionTellsTheEntrysAnswerAndLeavesTheWholeBuffer)
{
    const std::pair<const char*, const char*> rows[] = {
        {"NAME --mode 4 --room 2000 -o default",                 "true, \"lastError\": 122, \"needed\": 1848"  },
        {"NAME --mode 2 --room 299 --in default",                "false, \"lastError\": 122, \"needed\": 300"  },
        {"NAME --mode 2 --room 300 --in default -o old",         "true, \"lastError\": 0, \"needed\": 300"     },
        {"NAME --mode 1 --room 299 --in default --template old", "false, \"lastError\": 87, \"needed\": 299"   },
        {"NAME --mode 2 --room 0454",                            "false, \"lastError\": 87, \"needed\": 454"   },
        {"Nowhere --mode 4 --room 1848",                         "false, \"lastError\": 1801, \"needed\": 1848"},
        {"NAME --mode 4 --room 0x738 --no-output -o zeros",      "false, \"lastError\": 122, \"needed\": 1848" },
    };
    for (const auto& [words, answer] : rows)
        EXPECT_EQ(run(std::string("convert ") + words), Done(std::string("{\"result\": ") + answer + "}\n")) << words;
    EXPECT_EQ(run.Contents("default").size(), 2000u);
    EXPECT_EQ(run.Contents("old").size(), 300u);
    EXPECT_EQ(run.Contents("zeros"), std::string(1848, '\0'));
    EXPECT_EQ(run("can-print NAME old"), Done("{\"result\": 1}\n"));
    EXPECT_EQ(run("--platform fail=GlobalAlloc can-print NAME old"),
              Done("{\"result\": 0, \"message\": \"Memory allocation failed\", \"needed\": 25}\n"));
}

TEST_F(Entries, NumbersAndFilesThatMakeNoInputAreRefused)
{
    ExpectRefused(run, 2, "",
                  {
                      {"convert NAME --mode 2 --room 16777217",                ""},
                      {"convert NAME --mode 2 --room 300 --in ''",             ""},
                      {"convert NAME --mode 2 --room 300 --in - --template -", ""},
                      {"can-print NAME ''",                                    ""},
                      {"event NAME 5th",                                       ""},
                      {"upgrade NAME --level -1",                              ""},
                      {"capabilities NAME --only +2",                          ""},
    });
}

TEST_F(Entries, AnUpgradeWritesTheBlockAndWantsSizes)
{
    run("printer data NAME PrinterData --hex 20030400FFFFFFFF");
    run("printer data NAME PrinterDataSize --dword 8");
    run("printer data NAME CustomPaperDataSize --dword 30");
    run("printer data NAME CustomPaperData --hex ''");
    EXPECT_EQ(run("upgrade NAME"), Done("{\"result\": true, \"lastError\": 0}\n"));
    EXPECT_EQ(run("printer data NAME PrinterData"),
              Done("{\"PrinterData\": {\"type\": \"REG_BINARY\", \"hex\": \"0004080000000000\"}}\n"));
    EXPECT_EQ(run("upgrade NAME --level 2"), Done("{\"result\": false, \"lastError\": 87}\n"));
}

TEST_F(Entries, AnEventNeedsNoPrinterButARefreshTheHelpers)
{
    EXPECT_EQ(run("event Nowhere 3"), Done("{\"result\": true}\n"));
    EXPECT_EQ(run("--platform missing=spoolss.dll event NAME 5"), Done("{\"result\": false}\n"));
}

}  // namespace
