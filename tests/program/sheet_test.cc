// qd480 sheet, played by scripts.
#include <gmock/gmock.h>

#include "tests/program/program.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string Sheet = "sheet NAME --platform country=1 --script - ";
const std::string Change = "page \"Quality\"\nchoose IDC_RESOLUTION \"600 x 600\"\n";

TEST(SheetCommand, TellsOkFromCancelAndWritesWhatOkPublished)
{
    for (const auto& [entry, answer] : {
             std::pair("document-properties", "2"), {"advanced", "0"},
               {"sheets",   "0"}
    }) {
        Program run;
        const std::string sheet = Sheet + "-o r --entry " + entry;
        const Result cancelled{1, std::string("{\"end\": {\"result\": ") + answer + "}}\n", ""};
        EXPECT_EQ(run(sheet, Change + "cancel"), cancelled);
        EXPECT_EQ(run(sheet, ""), cancelled);
        EXPECT_FALSE(std::filesystem::exists(run.Path("r")));
        EXPECT_EQ(run(sheet, Change + "ok"), Done("{\"end\": {\"result\": 1}}\n"));
        EXPECT_EQ(run.Contents("r").size(), 1848u);
        EXPECT_THAT(run("record show r").out, HasSubstr("\"dmResolutionChoice\": 600"));
    }
}

TEST(SheetCommand, KeepsWhatApplyPublishedAfterCancel)
{
    Program run;
    const Result result = run(Sheet + "-o r", Change + "apply\nrecord\ncancel");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, StartsWith("{\"record\": {\"dmDeviceName\": \"Ordana Quillet 4820E\""));
    EXPECT_EQ(run.Contents("r").size(), 1848u);
}

TEST(SheetCommand, StoresTheDefaultAfterOkAlone)
{
    Program run;
    run(Sheet + "--store-default", Change + "apply\ncancel");
    EXPECT_EQ(run("printer record NAME"), Done());
    run(Sheet + "--store-default -o r", Change + "ok");
    EXPECT_EQ(run("printer record NAME"), Done(run.Contents("r")));
}

TEST(SheetCommand, OpensOnTheSetupPageAndPublishesABooklet)
{
    const Result result = Program()(Sheet + "--strict",
                                    "choose IDC_PAPER_SOURCE \"Tray1\"\nchoose IDC_DUPLEX \"Booklet Left Binding\"\n"
                                    "choose IDC_WATERMARK \"CONFIDENTIAL\"\ndump\nok\nrecord\n");
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* part :
         {"{\"dump\": {\"template\": 1001, \"title\": \"Setup\"", "\"applyEnabled\": true, \"changes\": 3",
          "\"dmDefaultSource\": 1,", "\"dmDuplexOn\": 1,", "\"dmBookletPaper\": 1,",
          "\"dmNupOn\": 1, \"dmNupCount\": 2,", "\"wmText\": \"CONFIDENTIAL\""})
        EXPECT_THAT(result.out, HasSubstr(part));
}

TEST(SheetCommand, TellsARefusedChoice)
{
    EXPECT_EQ(Program()(Sheet, "choose IDC_DUPLEX \"Long Edge Binding\"\nok\n").out,
              "{\"message\": {\"caption\": \"Warning\", \"text\": \"Selected paper source can't work with duplex "
              "printing.\\nOnly Tray1 is supported.\", \"style\": 48, \"answer\": \"ok\"}}\n"
              "{\"end\": {\"result\": 1}}\n");
}

// 5 8/16 by 9 1/16 inches; typing is limited at once, and put right when a field is left.
TEST(SheetCommand, MakesACustomSizeAndFindsItAgain)
{
    Program run;
    const std::string page = "page \"Paper\"\n",
                      make =
                          "click IDC_EDIT_CUSTOM\nclick IDC_CP_NEW\ntype IDC_CP_NAME \"Invitation\"\n"
                          "type IDC_CP_WIDTH_INCH \"5\"\ntype IDC_CP_WIDTH_SIXTEENTHS \"8\"\n"
                          "type IDC_CP_HEIGHT_INCH \"9\"\ntype IDC_CP_HEIGHT_SIXTEENTHS \"1\"\nok\nok\n";
    EXPECT_EQ(run(Sheet + "--strict --store-default", page + make).status, 0);
    EXPECT_THAT(run(Sheet + "-o r", page + "dump\nok").out, HasSubstr("\"text\": \"Invitation (5.50x9.06 inch)\""));
    EXPECT_THAT(run("record show r").out, AllOf(HasSubstr("\"dmPaperSize\": 257"), HasSubstr("\"dmPaperWidth\": 1650"),
                                                HasSubstr("\"dmPaperLength\": 2718")));
    EXPECT_THAT(run("capabilities NAME --only DC_PAPERNAMES").out, HasSubstr("Invitation"));

    // Where the list has gone, the record keeps its code.
    run("printer data NAME CustomPaperDataSize --delete");
    EXPECT_THAT(run(Sheet + "--in r -o s", page + "dump\nok").out, HasSubstr("\"text\": \"Letter (8.5 x 11 inch)\""));
    EXPECT_THAT(run("record show s").out, HasSubstr("\"dmPaperSize\": 257"));
    EXPECT_EQ(run(Sheet + "--strict --no-permission", page + "click IDC_EDIT_CUSTOM\nok").status, 3);
}

// An input of the public part alone gets the private part too when there is room for it.
TEST(SheetCommand, TheRoomDecidesWhatAShortRecordBecomes)
{
    Program run;
    run(Sheet + "-o r", Change + "ok");
    run(Sheet + "--in r -o s", "ok");
    EXPECT_EQ(run("record diff r s"), Done("{}\n"));
    run("record set r dmDriverExtra=0 -o short");
    for (const auto& [room, published] : {
             std::pair("1847", 220u), {"1848", 1848u}
    }) {
        run(Sheet + "--entry sheets --in short -o s --room " + room, "ok");
        EXPECT_EQ(run.Contents("s").size(), published) << room;
    }
}

TEST(SheetCommand, StandsAnyInput)
{
    Program run;
    for (const std::string& input : {std::string(), std::string(72, '\xFF'), std::string(200000, '\x7F')}) {
        run.Put("any", input);
        EXPECT_EQ(run(Sheet + "--in any -o r", "ok").status, 0) << input.size();
    }
}

TEST(SheetCommand, EndsWithStatus3WhenStrictAndRefused)
{
    const Result result = Program()(Sheet + "--strict", "dump # first\nclick 4711\nok");
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.out, HasSubstr("{\"refused\": {\"line\": 2, \"control\": 4711, \"reason\": \"absent\"}}\n"));
    EXPECT_EQ(result.err, "qd480: line 2 of the script was refused: control 4711 is absent\n");
}

TEST(SheetCommand, TracesEveryDrawingCall)
{
    Program run;
    EXPECT_EQ(run(Sheet + "--trace t", "page \"Quality\"\nok").status, 0);
    EXPECT_THAT(run.Contents("t"), HasSubstr("{\"call\": \"GetDC\", \"dc\": "));
}

TEST(SheetCommand, SaysWhyNoSheetCameUp)
{
    EXPECT_EQ(Program()(Sheet + "--platform missing=compstui.dll", "ok"),
              (Result{3, "{\"end\": {\"result\": -1}}\n",
                      "qd480: the sheet could not be shown: DrvDocumentProperties answered -1\n"}));
    EXPECT_EQ(Program()("sheet Other --script -"),
              (Result{3, "", "qd480: there is no printer \"Other\" in the store\n"}));
}

TEST(SheetCommand, RefusesWhatDoesNotGoTogether)
{
    const std::pair<const char*, const char*> rows[] = {
        {"--room 5",                         "--room goes with --entry sheets"                          },
        {"--entry advanced --no-permission", "--no-permission does not go with"                         },
        {"--entry other",                    "--entry"                                                  },
        {"--in -",                           "standard input cannot be both"                            },
        {"-o -",                             "standard output cannot take"                              },
        {"",                                 "standard input: line 2 of the script: \"jump\" is no step"},
    };
    for (const auto& [words, message] : rows) {
        const Result result = Program()(Sheet + words, "ok\njump");
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, HasSubstr(message));
    }
}

TEST(SheetCommand, TellsWhereItCannotWrite)
{
    // The record's place before the user has any work with it, a picture's when it is taken.
    EXPECT_EQ(Program()(Sheet + "-o no/r", "ok"),
              (Result{3, "", "qd480: cannot write no/r: No such file or directory\n"}));
    const Result full = Program()(Sheet, "snapshot /dev/full\nok");
    EXPECT_EQ(full.status, 3);
    EXPECT_EQ(full.err, "qd480: cannot write /dev/full: No space left on device\n");
}

TEST(SheetCommand, NeedsAScriptWhereThereIsNoDisplay)
{
    struct DisplayRow {
        const char *display, *platform;
        int status;
    };
    Program run;
    for (const DisplayRow& row : {
             DisplayRow{"",        "",          2},
             {"",        "offscreen", 2},
             {":nosuch", "",          3}
    }) {
        run.display = row.display;
        run.qtPlatform = row.platform;
        const Result result = run("sheet NAME");
        EXPECT_EQ(result.status, row.status) << row.display << row.platform;
        EXPECT_THAT(result.err, HasSubstr("--script"));
    }
    EXPECT_THAT(run("sheet NAME --strict").err, HasSubstr("--strict goes with --script FILE"));
}

}  // namespace
