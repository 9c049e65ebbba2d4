// qd480 device-sheet, played by scripts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

using testing::HasSubstr;

namespace {

constexpr char Printer[] = "Ordana Quillet 4820E";
constexpr char Confirmed[] = "{\"end\": {\"result\": 1}}\n", Dismissed[] = "{\"end\": {\"result\": 0}}\n";
constexpr char One[] = "{\"tray2\": {\"type\": \"REG_BINARY\", \"hex\": \"31000000\"}}\n";
constexpr char Zero[] = "{\"tray2\": {\"type\": \"REG_BINARY\", \"hex\": \"30000000\"}}\n";
constexpr char Block[] =
    "{\"PrinterData\": {\"type\": \"REG_BINARY\", \"hex\": \"0004080000000000\"}, "
    "\"PrinterDataSize\": {\"type\": \"REG_DWORD\", \"value\": 8}}\n";

std::vector<std::string> DeviceSheet(std::vector<std::string> more = {}, const char* printer = Printer)
{
    std::vector<std::string> words = {"device-sheet", printer, "--platform", "country=1", "--script", "-"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

TEST(DeviceSheetCommand, TellsOkFromCancelAndWritesTray2ForBoth)
{
    Program run;
    EXPECT_EQ(run(DeviceSheet(), "cancel"), (Result{1, Dismissed, ""}));
    EXPECT_EQ(run({"printer", "registry", Printer}), Done(Zero));
    EXPECT_EQ(run({"printer", "data", Printer}), Done("{}\n"));
    run({"printer", "registry", Printer, "tray2", "--hex", "31000000"});
    EXPECT_EQ(run(DeviceSheet(), "ok"), Done(Confirmed));
    EXPECT_EQ(run({"printer", "registry", Printer}), Done(One));
    EXPECT_EQ(run({"printer", "data", Printer}), Done(Block));
}

TEST(DeviceSheetCommand, PlaysTheOptionAndAbout)
{
    Program run;
    const Result result = run(DeviceSheet({"--strict"}), "choose 99 0 # no list\n");
    EXPECT_EQ(result.status, 3);
    const Result played =
        run(DeviceSheet({"--strict"}), "click 100\nanswer ok\nrow 99 0\ndump\npage \"About\"\ndump\nrecord\nok");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_THAT(played.out, HasSubstr("{\"message\": {\"caption\": \"Halftone Color Adjustment\""));
    EXPECT_THAT(played.out, HasSubstr("\"rows\": [[\"Ordana Quillet 4820E\"], [\"Halftone Color Adjustment\"]], "
                                      "\"selection\": 0}"));
    EXPECT_THAT(played.out, HasSubstr("{\"dump\": {\"template\": 1288, \"title\": \"About\""));
    EXPECT_THAT(played.out, HasSubstr("{\"id\": 1, \"class\": \"Button\", \"text\": \"&OK\", \"enabled\": false, "
                                      "\"visible\": false}"));
    EXPECT_THAT(played.out, HasSubstr("{\"record\": null}"));
}

TEST(DeviceSheetCommand, StoresNothingWithoutPermission)
{
    Program run;
    EXPECT_EQ(run(DeviceSheet({"--no-permission"}), "ok"), Done(Confirmed));
    EXPECT_EQ(run({"printer", "data", Printer}), Done("{}\n"));
}

TEST(DeviceSheetCommand, TestsTheRightsThroughPrinterProperties)
{
    Program run;
    EXPECT_EQ(run(DeviceSheet({"--entry", "printer-properties"}), "cancel"), (Result{1, Dismissed, ""}));
    EXPECT_EQ(run({"printer", "data", Printer}), Done("{\"Permission\": {\"type\": \"REG_DWORD\", \"value\": 1}}\n"));
    EXPECT_EQ(run({"printer", "registry", Printer}), Done("{}\n"));
    run({"printer", "add", "R", "--read-only"});
    EXPECT_EQ(run(DeviceSheet({"--entry", "printer-properties"}, "R"), "ok"), Done(Confirmed));
    EXPECT_EQ(run({"printer", "data", "R"}), Done("{}\n"));
}

TEST(DeviceSheetCommand, SaysWhyNoSheetCameUp)
{
    Program run;
    const std::vector<std::string> missing = {"--platform", "missing=compstui.dll", "--entry", "printer-properties"};
    EXPECT_EQ(run(DeviceSheet(missing), "ok"),
              (Result{3, Confirmed, "qd480: the sheet could not be shown: PrinterProperties answered 1\n"}));
    EXPECT_EQ(run(DeviceSheet({"--platform", "fail=HeapCreate"}), "ok"),
              (Result{3, "{\"end\": {\"result\": -1}}\n",
                      "qd480: the sheet could not be shown: DrvDevicePropertySheets answered -1\n"}));
    EXPECT_EQ(run(DeviceSheet({"--entry", "printer-properties", "--no-permission"})).status, 2);
}

// What the device sheet stores is what the record of a job begins with, until its own Default takes it out.
TEST(DeviceSheetCommand, ReachesTheDocumentSheetThroughTheRegistry)
{
    Program run;
    run({"printer", "registry", Printer, "tray2", "--hex", "31000000"});
    run(DeviceSheet(), "cancel");
    const std::vector<std::string> sheet = {"sheet", Printer, "--script", "-", "--strict", "-o", "r"};
    run(sheet, "page \"Device Options Setting\"\nok");
    EXPECT_THAT(run({"record", "show", "r"}).out, HasSubstr("\"dmDeviceFlags\": 128"));
    run(sheet, "page \"Device Options Setting\"\nclick IDC_DEFAULT\nok");
    EXPECT_THAT(run({"record", "show", "r"}).out, HasSubstr("\"dmDeviceFlags\": 0"));
    EXPECT_EQ(run({"printer", "registry", Printer}), Done(One));
}

}  // namespace
