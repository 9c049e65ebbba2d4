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

class Event : public testing::TestWithParam<EventRow> {};

TEST_P(Event, Answers)
{
    Program run;
    std::vector<std::string> words = {"document-event", Printer};
    words.insert(words.end(), GetParam().more.begin(), GetParam().more.end());
    words.insert(words.end(), {"--", GetParam().code});
    EXPECT_EQ(run(words), Done("{\"result\": " + std::to_string(GetParam().result) +
                               ", \"stored\": " + (GetParam().stored ? "true" : "false") + "}\n"));
}

const std::string Word(16, '0');

INSTANTIATE_TEST_SUITE_P(
    Program, Event,
    testing::Values(
        EventRow{
            "1", {},
             1, true
},
        EventRow{"1", {"--room", "8"}, 1, true}, EventRow{"1", {"--room", "100"}, 1, true},
        EventRow{"1", {"--room", "7"}, 1, false}, EventRow{"1", {"--room", "0"}, 1, false},
        EventRow{"1", {"--information-context"}, 0, false}, EventRow{"1", {"--in", Word + Word + Word + Word}, 1, true},
        EventRow{"1", {"--in", Word + Word + Word + "0100000000000000"}, 0, false},
        EventRow{"1", {"--in", Word + Word + Word}, 0, false},
        EventRow{"1", {"--in", Word + Word + Word + Word + "00"}, 0, false}, EventRow{"1", {"--in", ""}, 0, false},
        EventRow{"2", {}, 1, false}, EventRow{"3", {}, 1, true}, EventRow{"3", {"--room", "7"}, 1, false},
        EventRow{"3", {"--in", Word}, 1, true}, EventRow{"3", {"--in", Word + "00"}, 1, false},
        EventRow{"3", {"--in", "00"}, 1, false}, EventRow{"4", {}, 1, false}, EventRow{"5", {}, 1, false},
        EventRow{"6", {}, 1, false}, EventRow{"7", {}, 1, false},
        EventRow{"7", {"--platform", "fail=GlobalAlloc"}, 0, false}, EventRow{"8", {}, 1, false},
        EventRow{"9", {}, 0, false}, EventRow{"10", {}, 0, false}, EventRow{"11", {}, 0, false},
        EventRow{"0", {}, 0, false}, EventRow{"65538", {}, 1, false}, EventRow{"-65531", {}, 1, false}));

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
