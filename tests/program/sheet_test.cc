// qd480 sheet, played by scripts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr char Printer[] = "Ordana Quillet 4820E";
constexpr std::size_t RecordSize = 1848;

std::vector<std::string> Sheet(std::vector<std::string> more)
{
    std::vector<std::string> words = {"sheet", Printer, "--platform", "country=1", "--script", "-"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

constexpr char Change[] = "page \"Quality\"\nchoose IDC_RESOLUTION \"600 x 600\"\n";

TEST(SheetCommand, TellsOkFromCancelAndWritesWhatOkPublished)
{
    const std::pair<const char*, int> cancelled[] = {
        {"document-properties", 2},
        {"advanced",            0},
        {"sheets",              0},
    };
    for (const auto& [entry, answer] : cancelled) {
        Program run;
        const std::vector<std::string> sheet = Sheet({"--entry", entry, "-o", "r"});
        const std::string end = "{\"end\": {\"result\": " + std::to_string(answer) + "}}\n";
        EXPECT_EQ(run(sheet, std::string(Change) + "cancel"), (Result{1, end, ""}));
        EXPECT_EQ(run(sheet, ""), (Result{1, end, ""}));
        EXPECT_FALSE(std::filesystem::exists(run.Path("r")));
        EXPECT_EQ(run(sheet, std::string(Change) + "ok"), Done("{\"end\": {\"result\": 1}}\n"));
        EXPECT_EQ(run.Contents("r").size(), RecordSize);
        EXPECT_THAT(run({"record", "show", "r"}).out, HasSubstr("\"dmResolutionChoice\": 600"));
    }
}

TEST(SheetCommand, KeepsWhatApplyPublishedAfterCancel)
{
    Program run;
    const Result result = run(Sheet({"-o", "r"}), std::string(Change) + "apply\nrecord\ncancel");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, StartsWith("{\"record\": {\"dmDeviceName\": \"Ordana Quillet 4820E\""));
    EXPECT_EQ(run.Contents("r").size(), RecordSize);
}

TEST(SheetCommand, StoresTheDefaultAfterOkAlone)
{
    Program run;
    run(Sheet({"--store-default"}), std::string(Change) + "apply\ncancel");
    EXPECT_EQ(run({"printer", "record", Printer, "-o", "none"}).status, 0);
    EXPECT_EQ(run.Contents("none"), "");
    run(Sheet({"--store-default", "-o", "r"}), std::string(Change) + "ok");
    run({"printer", "record", Printer, "-o", "s"});
    EXPECT_EQ(run.Contents("r"), run.Contents("s"));
}

TEST(SheetCommand, OpensOnTheSetupPageAndPublishesABooklet)
{
    Program run;
    const Result result = run(Sheet({"--strict"}),
                              "choose IDC_PAPER_SOURCE \"Tray1\"\nchoose IDC_DUPLEX \"Booklet Left Binding\"\n"
                              "choose IDC_WATERMARK \"CONFIDENTIAL\"\ndump\nok\nrecord\n");
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* part : {
             "{\"dump\": {\"template\": 1001, \"title\": \"Setup\"",
             "\"applyEnabled\": true, \"changes\": 3",
             "\"dmDefaultSource\": 1,",
             "\"dmDuplexOn\": 1,",
             "\"dmBookletPaper\": 1,",
             "\"dmNupOn\": 1, \"dmNupCount\": 2,",
             "\"wmText\": \"CONFIDENTIAL\"",
         })
        EXPECT_THAT(result.out, HasSubstr(part));
}

TEST(SheetCommand, TellsARefusedChoice)
{
    Program run;
    const Result result = run(Sheet({}), "choose IDC_DUPLEX \"Long Edge Binding\"\nok\n");
    EXPECT_EQ(result.out,
              "{\"message\": {\"caption\": \"Warning\", \"text\": \"Selected paper source can't work with duplex "
              "printing.\\nOnly Tray1 is supported.\", \"style\": 48, \"answer\": \"ok\"}}\n"
              "{\"end\": {\"result\": 1}}\n");
}

// An input of the public part alone gets the private part too when there is room for it.
TEST(SheetCommand, TheRoomDecidesWhatAShortRecordBecomes)
{
    Program run;
    run(Sheet({"-o", "r"}), std::string(Change) + "ok");
    run(Sheet({"--in", "r", "-o", "s"}), "ok");
    EXPECT_EQ(run({"record", "diff", "r", "s"}), Done("{}\n"));
    run({"record", "set", "r", "dmDriverExtra=0", "-o", "short"});
    for (const auto& [room, published] : {std::pair("1847", 220u), std::pair("1848", 1848u)}) {
        run(Sheet({"--entry", "sheets", "--in", "short", "--room", room, "-o", "s"}), "ok");
        EXPECT_EQ(run.Contents("s").size(), published) << room;
    }
}

TEST(SheetCommand, StandsAnyInput)
{
    Program run;
    run.Put("empty", "");
    run.Put("huge", std::string(72, '\xFF'));
    run.Put("long", std::string(200000, '\x7F'));
    for (const char* file : {"empty", "huge", "long"}) {
        EXPECT_EQ(run(Sheet({"--in", file, "-o", "r"}), "ok").status, 0) << file;
    }
}

TEST(SheetCommand, EndsWithStatus3WhenStrictAndRefused)
{
    Program run;
    const Result result = run(Sheet({"--strict"}), "dump # first\nclick 4711\nok");
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.out, HasSubstr("{\"refused\": {\"line\": 2, \"control\": 4711, \"reason\": \"absent\"}}\n"));
    EXPECT_EQ(result.err, "qd480: line 2 of the script was refused: control 4711 is absent\n");
}

TEST(SheetCommand, TracesEveryDrawingCall)
{
    Program run;
    EXPECT_EQ(run(Sheet({"--trace", "t"}), "page \"Quality\"\nok").status, 0);
    EXPECT_THAT(run.Contents("t"), HasSubstr("{\"call\": \"GetDC\", \"dc\": "));
}

TEST(SheetCommand, SaysWhyNoSheetCameUp)
{
    Program run;
    const Result result = run(Sheet({"--platform", "missing=compstui.dll"}), "ok");
    EXPECT_EQ(result, (Result{3, "{\"end\": {\"result\": -1}}\n",
                              "qd480: the sheet could not be shown: DrvDocumentProperties answered -1\n"}));
}

struct UsageRow {
    std::vector<std::string> words;
    const char* script;
    const char* message;
};

TEST(SheetCommand, RefusesWhatDoesNotGoTogether)
{
    const std::vector<UsageRow> rows = {
        {{"--room", "5"},                            "",         "--room goes with --entry sheets"                          },
        {{"--entry", "advanced", "--no-permission"}, "",         "--no-permission does not go with"                         },
        {{"--entry", "other"},                       "",         "--entry"                                                  },
        {{"--in", "-"},                              "",         "standard input cannot be both"                            },
        {{"-o", "-"},                                "",         "standard output cannot take"                              },
        {{},                                         "ok\njump", "standard input: line 2 of the script: \"jump\" is no step"},
    };
    for (const UsageRow& row : rows) {
        const Result result = Program()(Sheet(row.words), row.script);
        EXPECT_EQ(result.status, 2) << row.message;
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, HasSubstr(row.message));
    }
    EXPECT_EQ(Program()({"sheet", "Other", "--script", "-"}),
              (Result{3, "", "qd480: there is no printer \"Other\" in the store\n"}));
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
        const Result result = run({"sheet", Printer});
        EXPECT_EQ(result.status, row.status) << row.display << row.platform;
        EXPECT_THAT(result.err, HasSubstr("--script"));
    }
    EXPECT_THAT(run({"sheet", Printer, "--strict"}).err, HasSubstr("--strict goes with --script FILE"));
}

}  // namespace
