// qd480 document-event
#include "tests/program/program.h"

namespace {

using DocumentEvent = ProgramTest;

TEST_F(DocumentEvent, AnswersAndSaysWhetherItStored)
{
    const std::string word(16, '0'), three = word + word + word;
    const std::tuple<std::string, int, bool> rows[] = {
        {"1",                                    1, true },
        {"1 --room 7",                           1, false},
        {"1 --information-context",              0, false},
        {"1 --in " + three + word,               1, true },
        {"1 --in " + three,                      0, false},
        {"1 --in " + three + "0100000000000000", 0, false},
        {"3 --in " + word,                       1, true },
        {"3 --in " + word + "00",                1, false},
        {"7",                                    1, false},
        {"7 --platform fail=GlobalAlloc",        0, false},
        {"65538",                                1, false},
        {"-- -65531",                            1, false},
    };
    for (const auto& [words, result, stored] : rows)
        EXPECT_EQ(run("document-event NAME " + words), Done("{\"result\": " + std::to_string(result) +
                                                            ", \"stored\": " + (stored ? "true" : "false") + "}\n"))
            << words;
}

TEST_F(DocumentEvent, LeavesTheRecordAsTheEventMadeIt)
{
    run("document-properties NAME --mode 2 -o r");
    run("record set r dmPrintQuality=-3 dmResolution=0 dmPaperSize=1 dmWatermarkOn=1 dmWatermark.wmAngleMode=2 "
        "dmWatermark.wmFaceName=Arial -o r");
    const std::string ready = "{\"dmPrintQuality\": [-3, 600], \"dmWatermark.wmAngle\": [0, 53]}\n";
    for (const auto& [code, changes] : {
             std::pair("1", ready), {"3",                       ready },
               {"1 --information-context", "{}\n"}
    }) {
        run(std::string("document-event NAME --record r -o s --platform fonts=builtin ") + code);
        EXPECT_EQ(run("record diff r s").out, changes) << code;
    }
}

TEST_F(DocumentEvent, StandsAnyRecord)
{
    for (const std::string& record : {std::string(), std::string(1848, '\xFF')})
        for (const char* code : {"1", "3", "7"})
            EXPECT_EQ(run(std::string("document-event NAME --record - ") + code, record).status, 0) << code;
}

TEST_F(DocumentEvent, RefusesWhatMakesNoInput)
{
    ExpectRefused(run, 2, "document-event NAME ",
                  {
                      {"1 --in 0",                "--in takes pairs of hexadecimal digits\n"                  },
                      {"3 --information-context", "--information-context goes with event 1 and without --in\n"},
                      {"five",                    ""                                                          },
    });
}

}  // namespace
