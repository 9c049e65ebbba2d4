// qd480 document-event
#include "tests/program/program.h"

namespace {

TEST(DocumentEvent, AnswersAndSaysWhetherItStored)
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
        EXPECT_EQ(
            Program()("document-event NAME " + words),
            Done("{\"result\": " + std::to_string(result) + ", \"stored\": " + (stored ? "true" : "false") + "}\n"))
            << words;
}

// What the events 1 and 3 do to a record.
TEST(DocumentEvent, MakesTheRecordReadyInPlace)
{
    Program run;
    run("document-properties NAME --mode 2 -o r");
    run("record set r dmPrintQuality=-3 dmResolution=0 dmPaperSize=1 dmWatermarkOn=1 dmWatermark.wmAngleMode=2 "
        "dmWatermark.wmFaceName=Arial -o r");
    for (const char* code : {"1", "3"}) {
        run(std::string("document-event NAME --record r -o s --platform fonts=builtin ") + code);
        EXPECT_EQ(run("record diff r s").out, "{\"dmPrintQuality\": [-3, 600], \"dmWatermark.wmAngle\": [0, 53]}\n");
    }
    run("document-event NAME 1 --record r -o s --information-context");
    EXPECT_EQ(run("record diff r s"), Done("{}\n"));
}

TEST(DocumentEvent, StandsAnyRecord)
{
    for (const std::string& record : {std::string(), std::string(1848, '\xFF')})
        for (const char* code : {"1", "3", "7"})
            EXPECT_EQ(Program()(std::string("document-event NAME --record - ") + code, record).status, 0) << code;
}

TEST(DocumentEvent, RefusesWhatMakesNoInput)
{
    EXPECT_EQ(Program()("document-event NAME 1 --in 0"),
              (Result{2, "", "qd480: --in takes pairs of hexadecimal digits\n"}));
    EXPECT_EQ(Program()("document-event NAME 3 --information-context"),
              (Result{2, "", "qd480: --information-context goes with event 1 and without --in\n"}));
    EXPECT_EQ(Program()("document-event NAME five").status, 2);
}

}  // namespace
