// qd480 sheet and device-sheet, played by scripts.
#include "tests/program/program.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string Sheet = "sheet NAME --platform country=1 --script - ";
const std::string Change = "page \"Quality\"\nchoose IDC_RESOLUTION \"600 x 600\"\n";

// What a run looks like whose sheet answered this.
Result Ended(int answer, int status = 0, const std::string& why = "")
{
    return {status, R"({"end": {"result": )" + std::to_string(answer) + "}}\n",
            why.empty() ? "" : "qd480: " + why + "\n"};
}

using SheetCommand = ProgramTest;

TEST_F(SheetCommand, TellsOkFromCancelAndWritesWhatOkPublished)
{
    for (const std::string entry : {"document-properties", "advanced", "sheets"}) {
        const std::string sheet = Sheet + "-o " + entry + " --entry " + entry;
        const Result cancelled = Ended(entry == "document-properties" ? 2 : 0, 1);
        EXPECT_EQ(run(sheet, Change + "cancel"), cancelled);
        EXPECT_EQ(run(sheet, ""), cancelled);
        EXPECT_FALSE(std::filesystem::exists(run.Path(entry)));
        EXPECT_EQ(run(sheet, Change + "ok"), Ended(1));
        EXPECT_EQ(run.Contents(entry).size(), 1848u);
        EXPECT_THAT(run("record show " + entry).out, HasSubstr(R"("dmResolutionChoice": 600)"));
    }
}

TEST_F(SheetCommand, KeepsWhatApplyPublishedAndStoresTheDefaultAfterOkAlone)
{
    const Result result = run(Sheet + "-o r --store-default", Change + "apply\nrecord\ncancel");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, StartsWith(R"({"record": {"dmDeviceName": "Ordana Quillet 4820E")"));
    EXPECT_EQ(run.Contents("r").size(), 1848u);
    EXPECT_EQ(run("printer record NAME"), Done());
    run(Sheet + "-o r --store-default", Change + "ok");
    EXPECT_EQ(run("printer record NAME"), Done(run.Contents("r")));
}

// An input of the public part alone gets the private part too when there is room for it.
TEST_F(SheetCommand, TheRoomDecidesWhatAShortRecordBecomes)
{
    run(Sheet + "-o r", Change + "ok");
    run(Sheet + "--in r -o s", "ok");
    EXPECT_EQ(run("record diff r s"), Answered("{}"));
    run("record set r dmDriverExtra=0 -o short");
    run(Sheet + "--entry sheets --in short -o s --room 1847", "ok");
    EXPECT_EQ(run.Contents("s").size(), 220u);
    run(Sheet + "--entry sheets --in short -o s --room 1848", "ok");
    EXPECT_EQ(run.Contents("s").size(), 1848u);
}

TEST_F(SheetCommand, EndsWithStatus3WhenStrictAndRefused)
{
    const Result result = run(Sheet + "--strict", "dump # first\nclick 4711\nok");
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.out, HasSubstr("{\"refused\": {\"line\": 2, \"control\": 4711, \"reason\": \"absent\"}}\n"));
    EXPECT_EQ(result.err, "qd480: line 2 of the script was refused: control 4711 is absent\n");
    EXPECT_EQ(run(Sheet + "--strict", "choose IDC_NUP 6").err,
              "qd480: line 1 of the script was refused: control 1003 has no such row\n");
    EXPECT_EQ(run(Sheet + "--strict --no-permission", "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nok").status, 3);
}

TEST_F(SheetCommand, TracesEveryDrawingCall)
{
    EXPECT_EQ(run(Sheet + "--trace t --platform fonts=builtin", "ok"), Ended(1));
    for (const char* call : {
             R"({"call": "GetDC", "dc": 3, "on": 1029, "args": [], "result": 3})",
             R"({"call": "GetClientRect", "dc": null, "on": 1029, "args": [], "result": [0, 0, 137, 161]})",
             R"({"call": "SelectObject", "dc": 3, "on": 1029, "args": [{"pen": {"style": 0, "width": 1, )"
             R"("color": 16777215}}], "result": {"stock": 7}})",
             R"({"call": "ExtTextOutW", "dc": 5, "on": 1029, "args": [0, 0, 2, [0, 0, 137, 1], "", 0, null], )"
             R"("result": 1})",
         })
        EXPECT_THAT(run.Contents("t"), HasSubstr(call + std::string("\n")));
    EXPECT_EQ(run(Sheet + "--trace /dev/full", "ok").err,
              "qd480: cannot write the trace /dev/full: No space left on device\n");
}

TEST_F(SheetCommand, SaysWhyNoSheetCameUp)
{
    EXPECT_EQ(run(Sheet + "--platform missing=compstui.dll", "ok"),
              Ended(-1, 3, "the sheet could not be shown: DrvDocumentProperties answered -1"));
    EXPECT_EQ(run("sheet Other --script -"), Failed(R"(there is no printer "Other" in the store)"));
    // The record's place before the user has any work with it, a picture's when it is taken.
    EXPECT_EQ(run(Sheet + "-o no/r", "ok"), Failed("cannot write no/r: No such file or directory"));
    EXPECT_EQ(run(Sheet, "snapshot /dev/full\nok").err, "qd480: cannot write /dev/full: No space left on device\n");
}

TEST_F(SheetCommand, RefusesWhatDoesNotGoTogether)
{
    const std::vector<Refusal> rows = {
        {"--room 5",                         "--room goes with --entry sheets"                           },
        {"--entry advanced --no-permission", "--no-permission does not go with"                          },
        {"--entry other",                    "--entry"                                                   },
        {"--in -",                           "standard input cannot be both"                             },
        {"-o -",                             "standard output cannot take"                               },
        {"",                                 R"(standard input: line 2 of the script: "jump" is no step)"},
    };
    ExpectRefused(run, 2, Sheet, rows, "ok\njump");
}

TEST_F(SheetCommand, NeedsAScriptWhereThereIsNoDisplay)
{
    const std::tuple<const char*, const char*, int> rows[] = {
        {"",        "",          2},
        {"",        "offscreen", 2},
        {":nosuch", "",          3},
    };
    for (const auto& [display, platform, status] : rows) {
        run.display = display;
        run.qtPlatform = platform;
        const Result result = run("sheet NAME");
        EXPECT_EQ(result.status, status) << display << platform;
        EXPECT_THAT(result.err, HasSubstr("--script"));
    }
    EXPECT_EQ(run("sheet NAME --strict"), Failed("--strict goes with --script FILE", 2));
}

const std::string DeviceSheet = "device-sheet NAME --platform country=1 --script - ";

using DeviceSheetCommand = ProgramTest;

TEST_F(DeviceSheetCommand, TellsOkFromCancelAndWritesTray2ForBoth)
{
    EXPECT_EQ(run(DeviceSheet, "cancel"), Ended(0, 1));
    EXPECT_EQ(run("printer registry NAME"), Answered(R"({"tray2": {"type": "REG_BINARY", "hex": "30000000"}})"));
    EXPECT_EQ(run(DeviceSheet + "--no-permission", "ok"), Ended(1));
    EXPECT_EQ(run("printer data NAME"), Answered("{}"));
    run("printer registry NAME tray2 --hex 31000000");
    EXPECT_EQ(run(DeviceSheet, "ok"), Ended(1));
    EXPECT_EQ(run("printer registry NAME"), Answered(R"({"tray2": {"type": "REG_BINARY", "hex": "31000000"}})"));
    EXPECT_EQ(run("printer data NAME"),
              Answered(R"({"PrinterData": {"type": "REG_BINARY", "hex": "0004080000000000"}, )"
                       R"("PrinterDataSize": {"type": "REG_DWORD", "value": 8}})"));
    run("sheet NAME --script - -o r", "ok");
    EXPECT_THAT(run("record show r").out, HasSubstr(R"("dmDeviceFlags": 128)")) << "what a job begins with";
}

TEST_F(DeviceSheetCommand, PlaysTheOptionAndAbout)
{
    EXPECT_EQ(run(DeviceSheet + "--strict", "choose 99 0 # no list\n").status, 3);
    const Result played =
        run(DeviceSheet + "--strict", "click 100\nanswer ok\nrow 99 0\ndump\npage \"About\"\ndump\nrecord\nok");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_THAT(
        played.out,
        AllOf(HasSubstr(R"({"message": {"caption": "Halftone Color Adjustment")"),
              HasSubstr(R"("rows": [["Ordana Quillet 4820E"], ["Halftone Color Adjustment"]], "selection": 0})"),
              HasSubstr(R"({"dump": {"template": 1288, "title": "About")"),
              HasSubstr(R"({"id": 1, "class": "Button", "text": "&OK", "enabled": false, "visible": false})"),
              HasSubstr(R"({"record": null})")));
}

TEST_F(DeviceSheetCommand, TestsTheRightsThroughPrinterProperties)
{
    EXPECT_EQ(run(DeviceSheet + "--entry printer-properties", "cancel"), Ended(0, 1));
    EXPECT_EQ(run("printer data NAME"), Answered(R"({"Permission": {"type": "REG_DWORD", "value": 1}})"));
    EXPECT_EQ(run("printer registry NAME"), Answered("{}"));
    run("printer add R --read-only");
    EXPECT_EQ(run("device-sheet R --script - --entry printer-properties", "ok"), Ended(1));
    EXPECT_EQ(run("printer data R"), Answered("{}"));
}

TEST_F(DeviceSheetCommand, SaysWhyNoSheetCameUp)
{
    EXPECT_EQ(run(DeviceSheet + "--platform missing=compstui.dll --entry printer-properties", "ok"),
              Ended(1, 3, "the sheet could not be shown: PrinterProperties answered 1"));
    EXPECT_EQ(run(DeviceSheet + "--platform fail=HeapCreate", "ok"),
              Ended(-1, 3, "the sheet could not be shown: DrvDevicePropertySheets answered -1"));
    EXPECT_EQ(run(DeviceSheet + "--entry printer-properties --no-permission").status, 2);
}

}  // namespace
