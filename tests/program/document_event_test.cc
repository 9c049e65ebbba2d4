// qd480 document-event
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

using testing::HasSubstr;

namespace {

constexpr char Printer[] = "Ordana Quillet 4820E";

struct EventRow {
    const char* code;
    std::vector<std::string> more;
    int result;
    bool stored;
};

TEST(DocumentEvent, AnswersAndSaysWhetherItStored)
{
    const std::string word(16, '0'), three = word + word + word;
    const std::vector<EventRow> rows = {
        {"1",      {},                                   1, true },
        {"1",      {"--room", "7"},                      1, false},
        {"1",      {"--information-context"},            0, false},
        {"1",      {"--in", three + word},               1, true },
        {"1",      {"--in", three},                      0, false},
        {"1",      {"--in", three + "0100000000000000"}, 0, false},
        {"3",      {"--in", word},                       1, true },
        {"3",      {"--in", word + "00"},                1, false},
        {"7",      {},                                   1, false},
        {"7",      {"--platform", "fail=GlobalAlloc"},   0, false},
        {"65538",  {},                                   1, false},
        {"-65531", {},                                   1, false},
    };
    for (const EventRow& row : rows) {
        std::vector<std::string> words = {"document-event", Printer};
        words.insert(words.end(), row.more.begin(), row.more.end());
        words.insert(words.end(), {"--", row.code});
        EXPECT_EQ(Program()(words), Done("{\"result\": " + std::to_string(row.result) +
                                         ", \"stored\": " + (row.stored ? "true" : "false") + "}\n"))
            << row.code;
    }
}

// What the events 1 and 3 do to a record.
TEST(DocumentEvent, MakesTheRecordReadyInPlace)
{
    Program run;
    run({"document-properties", Printer, "--mode", "2", "-o", "r"});
    run({"record", "set", "r", "dmPrintQuality=-3", "dmResolution=0", "dmPaperSize=1", "dmWatermarkOn=1",
         "dmWatermark.wmAngleMode=2", "dmWatermark.wmFaceName=Arial", "-o", "r"});
    for (const char* code : {"1", "3"}) {
        run({"document-event", Printer, code, "--record", "r", "-o", "s", "--platform", "fonts=builtin"});
        EXPECT_EQ(run({"record", "diff", "r", "s"}).out,
                  "{\"dmPrintQuality\": [-3, 600], \"dmWatermark.wmAngle\": [0, 53]}\n");
    }
    run({"document-event", Printer, "1", "--record", "r", "-o", "s", "--information-context"});
    EXPECT_EQ(run({"record", "diff", "r", "s"}), Done("{}\n"));
}

TEST(DocumentEvent, StandsAnyRecord)
{
    Program run;
    run.Put("empty", "");
    run.Put("full", std::string(1848, '\xFF'));
    for (const char* file : {"empty", "full"}) {
        for (const char* code : {"1", "3", "7"})
            EXPECT_EQ(run({"document-event", Printer, code, "--record", file}).status, 0) << file << code;
    }
}

TEST(DocumentEvent, RefusesWhatMakesNoInput)
{
    EXPECT_EQ(Program()({"document-event", Printer, "1", "--in", "0"}),
              (Result{2, "", "qd480: --in takes pairs of hexadecimal digits\n"}));
    EXPECT_EQ(Program()({"document-event", Printer, "3", "--information-context"}),
              (Result{2, "", "qd480: --information-context goes with event 1 and without --in\n"}));
    EXPECT_EQ(Program()({"document-event", Printer, "five"}).status, 2);
}

}  // namespace
