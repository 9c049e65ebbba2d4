// qd480 sheet, played by scripts.
#include <gmock/gmock.h>

#include "tests/program/program.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string Sheet = "sheet NAME --platform country=1 --script - ";
const std::string Change = "page \"Quality\"\nchoose IDC_RESOLUTION \"600 x 600\"\n";

using SheetCommand = ProgramTest;

TEST_F(SheetCommand, TellsOkFromCancelAndWritesWhatOkPublished)
{
    for (const auto& [entry, answer] : {
             std::pair("document-properties", "2"), {"advanced", "0"},
               {"sheets",   "0"}
    }) {
        const std::string file = entry, sheet = Sheet + "-o " + file + " --entry " + entry;
        const Result cancelled{1, std::string("{\"end\": {\"result\": ") + answer + "}}\n", ""};
        EXPECT_EQ(run(sheet, Change + "cancel"), cancelled);
        EXPECT_EQ(run(sheet, ""), cancelled);
        EXPECT_FALSE(std::filesystem::exists(run.Path(file)));
        EXPECT_EQ(run(sheet, Change + "ok"), Done("{\"end\": {\"result\": 1}}\n"));
        EXPECT_EQ(run.Contents(file).size(), 1848u);
        EXPECT_THAT(run("record show " + file).out, HasSubstr("\"dmResolutionChoice\": 600"));
    }
}

TEST_F(SheetCommand, KeepsWhatApplyPublishedAndStoresTheDefaultAfterOkAlone)
{
    const Result result = run(Sheet + "-o r --store-default", Change + "apply\nrecord\ncancel");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, StartsWith("{\"record\": {\"dmDeviceName\": \"Ordana Quillet 4820E\""));
    EXPECT_EQ(run.Contents("r").size(), 1848u);
    EXPECT_EQ(run("printer record NAME"), Done());
    run(Sheet + "-o r --store-default", Change + "ok");
    EXPECT_EQ(run("printer record NAME"), Done(run.Contents("r")));
}

TEST_F(SheetCommand, DumpsAndRecordsWhatTheUserHasChosen)
{
    const Result result = run(Sheet + "--strict",
                              "choose IDC_PAPER_SOURCE \"Tray1\"\nchoose IDC_DUPLEX \"Booklet Left Binding\"\n"
                              "choose IDC_WATERMARK \"CONFIDENTIAL\"\ndump\nok\nrecord\n");
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* part :
         {"{\"dump\": {\"template\": 1001, \"title\": \"Setup\"", "\"applyEnabled\": true, \"changes\": 3",
          "\"dmDefaultSource\": 1,", "\"dmDuplexOn\": 1,", "\"dmBookletPaper\": 1,",
          "\"dmNupOn\": 1, \"dmNupCount\": 2,", "\"wmText\": \"CONFIDENTIAL\""})
        EXPECT_THAT(result.out, HasSubstr(part));
}

// 5 8/16 by 9 1/16 inches.
TEST_F(SheetCommand, MakesACustomSizeAndFindsItAgain)
{
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
    EXPECT_EQ(run(Sheet + "--strict --no-permission", page + "click IDC_EDIT_CUSTOM\nok").status, 3);
}

// An input of the public part alone gets the private part too when there is room for it.
TEST_F(SheetCommand, TheRoomDecidesWhatAShortRecordBecomes)
{
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

TEST_F(SheetCommand, StandsAnyInput)
{
    for (const std::string& input : {std::string(), std::string(72, '\xFF'), std::string(200000, '\x7F')}) {
        run.Put("any", input);
        EXPECT_EQ(run(Sheet + "--in any -o r", "ok").status, 0) << input.size();
    }
}

TEST_F(SheetCommand, EndsWithStatus3WhenStrictAndRefused)
{
    const Result result = run(Sheet + "--strict --trace t", "dump # first\nclick 4711\nok");
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.out, HasSubstr("{\"refused\": {\"line\": 2, \"control\": 4711, \"reason\": \"absent\"}}\n"));
    EXPECT_EQ(result.err, "qd480: line 2 of the script was refused: control 4711 is absent\n");
    EXPECT_THAT(run.Contents("t"), HasSubstr("{\"call\": \"GetDC\", \"dc\": ")) << "the trace of what has been";
}

TEST_F(SheetCommand, SaysWhyNoSheetCameUp)
{
    EXPECT_EQ(run(Sheet + "--platform missing=compstui.dll", "ok"),
              (Result{3, "{\"end\": {\"result\": -1}}\n",
                      "qd480: the sheet could not be shown: DrvDocumentProperties answered -1\n"}));
    EXPECT_EQ(run("sheet Other --script -"), Failed("there is no printer \"Other\" in the store"));
    // The record's place before the user has any work with it, a picture's when it is taken.
    EXPECT_EQ(run(Sheet + "-o no/r", "ok"), Failed("cannot write no/r: No such file or directory"));
    EXPECT_EQ(run(Sheet, "snapshot /dev/full\nok").err, "qd480: cannot write /dev/full: No space left on device\n");
}

TEST_F(SheetCommand, RefusesWhatDoesNotGoTogether)
{
    ExpectRefused(run, 2, Sheet,
                  {
                      {"--room 5",                         "--room goes with --entry sheets"                          },
                      {"--entry advanced --no-permission", "--no-permission does not go with"                         },
                      {"--entry other",                    "--entry"                                                  },
                      {"--in -",                           "standard input cannot be both"                            },
                      {"-o -",                             "standard output cannot take"                              },
                      {"",                                 "standard input: line 2 of the script: \"jump\" is no step"},
    },
                  "ok\njump");
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
    ExpectRefused(run, 2, "sheet NAME --strict",
                  {
                      {"", "--strict goes with --script FILE"}
    });
}

}  // namespace
