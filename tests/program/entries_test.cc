// qd480 capabilities, convert, can-print, upgrade, event, document-event
#include "tests/program/program.h"

namespace {

using Entries = ProgramTest;

// The last one has more papers than can be counted: 27 and 65509 are 0 in the 16 bits that count the names.
TEST_F(Entries, ACapabilityStandsUnderItsNameOrItsNumber)
{
    EXPECT_EQ(run("--platform country=49 capabilities NAME --only DC_MEDIAREADY --only 19"),
              Answered(R"({"DC_MEDIAREADY": {"code": 29, "answer": 1, "withoutOutput": 3, "output": ["A4"]}, )"
                       R"("19": {"code": 19, "answer": -1, "withoutOutput": -1}})"));
    EXPECT_EQ(run("capabilities NAME --only DC_BINS --platform fail=GlobalAlloc:1"),
              Answered(R"({"DC_BINS": {"code": 6, "answer": 4, "withoutOutput": -1, "output": [7, 1, 2, 4]}})"));
    run("printer data NAME CustomPaperDataSize --dword 3668504");
    run("printer data NAME CustomPaperData --hex 00");
    EXPECT_EQ(run("capabilities NAME --only DC_PAPERNAMES"),
              Answered(R"({"DC_PAPERNAMES": {"code": 16, "answer": 0, "withoutOutput": 0, "output": []}})"));
}

// The printer, too, is the entry's to find.
TEST_F(Entries, AConversionTellsTheEntrysAnswerAndLeavesTheWholeBuffer)
{
    const std::pair<const char*, const char*> rows[] = {
        {"NAME --mode 4 --room 2000 -o default",                 R"(true, "lastError": 122, "needed": 1848)"  },
        {"NAME --mode 2 --room 299 --in default",                R"(false, "lastError": 122, "needed": 300)"  },
        {"NAME --mode 2 --room 300 --in default -o old",         R"(true, "lastError": 0, "needed": 300)"     },
        {"NAME --mode 1 --room 299 --in default --template old", R"(false, "lastError": 87, "needed": 299)"   },
        {"NAME --mode 2 --room 0454",                            R"(false, "lastError": 87, "needed": 454)"   },
        {"Nowhere --mode 4 --room 1848",                         R"(false, "lastError": 1801, "needed": 1848)"},
        {"NAME --mode 4 --room 0x738 --no-output -o zeros",      R"(false, "lastError": 122, "needed": 1848)" },
    };
    for (const auto& [words, answer] : rows)
        EXPECT_EQ(run(std::string("convert ") + words), Done(std::string(R"({"result": )") + answer + "}\n")) << words;
    EXPECT_EQ(run.Contents("default").size(), 2000u);
    EXPECT_EQ(run.Contents("old").size(), 300u);
    EXPECT_EQ(run.Contents("zeros"), std::string(1848, '\0'));
    EXPECT_EQ(run("can-print NAME old"), Answered(R"({"result": 1})"));
    EXPECT_EQ(run("--platform fail=GlobalAlloc can-print NAME old"),
              Answered(R"({"result": 0, "message": "Memory allocation failed", "needed": 25})"));
}

TEST_F(Entries, NumbersAndFilesThatMakeNoInputAreRefused)
{
    for (const char* words : {"convert NAME --mode 2 --room 16777217", "convert NAME --mode 2 --room 300 --in ''",
                              "convert NAME --mode 2 --room 300 --in - --template -", "can-print NAME ''",
                              "event NAME 5th", "upgrade NAME --level -1", "capabilities NAME --only +2"})
        ExpectRefused(run, 2, words);
}

TEST_F(Entries, AnUpgradeWritesTheBlockAndWantsSizes)
{
    run("printer data NAME PrinterData --hex 20030400FFFFFFFF");
    run("printer data NAME PrinterDataSize --dword 8");
    run("printer data NAME CustomPaperDataSize --dword 30");
    run("printer data NAME CustomPaperData --hex ''");
    EXPECT_EQ(run("upgrade NAME"), Answered(R"({"result": true, "lastError": 0})"));
    EXPECT_EQ(run("printer data NAME PrinterData"),
              Answered(R"({"PrinterData": {"type": "REG_BINARY", "hex": "0004080000000000"}})"));
    EXPECT_EQ(run("upgrade NAME --level 2"), Answered(R"({"result": false, "lastError": 87})"));
}

TEST_F(Entries, AnEventNeedsNoPrinterButARefreshTheHelpers)
{
    EXPECT_EQ(run("event Nowhere 3"), Answered(R"({"result": true})"));
    EXPECT_EQ(run("--platform missing=spoolss.dll event NAME 5"), Answered(R"({"result": false})"));
}

using DocumentEvent = ProgramTest;

TEST_F(DocumentEvent, AnswersAndSaysWhetherItStored)
{
    const std::string word(16, '0'), three = word + word + word;
    const std::pair<std::string, std::string> rows[] = {
        {"1",                                    R"(1, "stored": true)" },
        {"1 --room 7",                           R"(1, "stored": false)"},
        {"1 --information-context",              R"(0, "stored": false)"},
        {"1 --in " + three + word,               R"(1, "stored": true)" },
        {"1 --in " + three,                      R"(0, "stored": false)"},
        {"1 --in " + three + "0100000000000000", R"(0, "stored": false)"},
        {"3 --in " + word,                       R"(1, "stored": true)" },
        {"3 --in " + word + "00",                R"(1, "stored": false)"},
        {"7",                                    R"(1, "stored": false)"},
        {"7 --platform fail=GlobalAlloc",        R"(0, "stored": false)"},
        {"65538",                                R"(1, "stored": false)"},
        {"-- -65531",                            R"(1, "stored": false)"},
    };
    for (const auto& [words, result] : rows)
        EXPECT_EQ(run("document-event NAME " + words), Answered(R"({"result": )" + result + "}")) << words;
}

TEST_F(DocumentEvent, LeavesTheRecordAsTheEventMadeIt)
{
    run("document-properties NAME --mode 2 -o r");
    run("record set r dmPrintQuality=-3 dmResolution=0 dmPaperSize=1 dmWatermarkOn=1 dmWatermark.wmAngleMode=2 "
        "dmWatermark.wmFaceName=Arial -o r");
    for (const char* code : {"1", "3"}) {
        run(std::string("document-event NAME --record r -o s --platform fonts=builtin ") + code);
        EXPECT_EQ(run("record diff r s").out, "{\"dmPrintQuality\": [-3, 600], \"dmWatermark.wmAngle\": [0, 53]}\n");
    }
    run("document-event NAME --record r -o s 1 --information-context");
    EXPECT_EQ(run("record diff r s"), Answered("{}"));
}

TEST_F(DocumentEvent, RefusesWhatMakesNoInput)
{
    const std::vector<Refusal> rows = {
        {"1 --in 0",                "--in takes pairs of hexadecimal digits\n"                  },
        {"3 --information-context", "--information-context goes with event 1 and without --in\n"},
        {"five",                    ""                                                          },
    };
    ExpectRefused(run, 2, "document-event NAME ", rows);
}

}  // namespace
