// qd480 device-sheet, played by scripts.
#include <gmock/gmock.h>

#include "tests/program/program.h"

using testing::AllOf;
using testing::HasSubstr;

namespace {

const std::string Confirmed = "{\"end\": {\"result\": 1}}\n", Dismissed = "{\"end\": {\"result\": 0}}\n";
const std::string One = "{\"tray2\": {\"type\": \"REG_BINARY\", \"hex\": \"31000000\"}}\n";
const std::string Sheet = "device-sheet NAME --platform country=1 --script - ";

using DeviceSheetCommand = ProgramTest;

TEST_F(DeviceSheetCommand, TellsOkFromCancelAndWritesTray2ForBoth)
{
    EXPECT_EQ(run(Sheet, "cancel"), (Result{1, Dismissed, ""}));
    EXPECT_EQ(run("printer registry NAME"), Done("{\"tray2\": {\"type\": \"REG_BINARY\", \"hex\": \"30000000\"}}\n"));
    EXPECT_EQ(run(Sheet + "--no-permission", "ok"), Done(Confirmed));
    EXPECT_EQ(run("printer data NAME"), Done("{}\n"));
    run("printer registry NAME tray2 --hex 31000000");
    EXPECT_EQ(run(Sheet, "ok"), Done(Confirmed));
    EXPECT_EQ(run("printer registry NAME"), Done(One));
    EXPECT_EQ(run("printer data NAME"), Done("{\"PrinterData\": {\"type\": \"REG_BINARY\", \"hex\": "
                                             "\"0004080000000000\"}, "
                                             "\"PrinterDataSize\": {\"type\": \"REG_DWORD\", \"value\": 8}}\n"));
    run("sheet NAME --script - -o r", "ok");
    EXPECT_THAT(run("record show r").out, HasSubstr("\"dmDeviceFlags\": 128")) << "what a job begins with";
}

TEST_F(DeviceSheetCommand, PlaysTheOptionAndAbout)
{
    EXPECT_EQ(run(Sheet + "--strict", "choose 99 0 # no list\n").status, 3);
    const Result played =
        run(Sheet + "--strict", "click 100\nanswer ok\nrow 99 0\ndump\npage \"About\"\ndump\nrecord\nok");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_THAT(played.out, AllOf(HasSubstr("{\"message\": {\"caption\": \"Halftone Color Adjustment\""),
                                  HasSubstr("\"rows\": [[\"Ordana Quillet 4820E\"], [\"Halftone Color Adjustment\"]], "
                                            "\"selection\": 0}"),
                                  HasSubstr("{\"dump\": {\"template\": 1288, \"title\": \"About\""),
                                  HasSubstr("{\"id\": 1, \"class\": \"Button\", \"text\": \"&OK\", \"enabled\": false, "
                                            "\"visible\": false}"),
                                  HasSubstr("{\"record\": null}")));
}

TEST_F(DeviceSheetCommand, TestsTheRightsThroughPrinterProperties)
{
    EXPECT_EQ(run(Sheet + "--entry printer-properties", "cancel"), (Result{1, Dismissed, ""}));
    EXPECT_EQ(run("printer data NAME"), Done("{\"Permission\": {\"type\": \"REG_DWORD\", \"value\": 1}}\n"));
    EXPECT_EQ(run("printer registry NAME"), Done("{}\n"));
    run("printer add R --read-only");
    EXPECT_EQ(run("device-sheet R --script - --entry printer-properties", "ok"), Done(Confirmed));
    EXPECT_EQ(run("printer data R"), Done("{}\n"));
}

TEST_F(DeviceSheetCommand, SaysWhyNoSheetCameUp)
{
    EXPECT_EQ(run(Sheet + "--platform missing=compstui.dll --entry printer-properties", "ok"),
              (Result{3, Confirmed, "qd480: the sheet could not be shown: PrinterProperties answered 1\n"}));
    EXPECT_EQ(run(Sheet + "--platform fail=HeapCreate", "ok"),
              (Result{3, "{\"end\": {\"result\": -1}}\n",
                      "qd480: the sheet could not be shown: DrvDevicePropertySheets answered -1\n"}));
    EXPECT_EQ(run(Sheet + "--entry printer-properties --no-permission").status, 2);
}

}  // namespace
