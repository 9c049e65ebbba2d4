// qd480 record and document-properties
#include "tests/program/program.h"

using testing::AllOf;
using testing::HasSubstr;

namespace {

using RecordCommand = ProgramTest;

TEST_F(RecordCommand, MakesShowsAndChangesRecords)
{
    run.Put("r.json", R"({"dmSize": 220, "dmZoom": 100, "dmWatermark": {"wmText": "DRAFT"}})");
    EXPECT_EQ(run("record make r.json -o r"), Done());
    EXPECT_EQ(run.Contents("r").size(), 1848u);
    EXPECT_EQ(run("record set r dmZoom=150 dmWatermark.wmText= -o s"), Done());
    EXPECT_EQ(run("record diff r s"),
              (Result{1, "{\"dmZoom\": [100, 150], \"dmWatermark.wmText\": [\"DRAFT\", \"\"]}\n", ""}));
    EXPECT_EQ(run("record diff r r"), Answered("{}"));
    std::string hidden = run.Contents("r");
    hidden[740] = 1;
    EXPECT_EQ(run("record diff r -", hidden),
              (Result{1, "{}\n", "qd480: the records differ from byte 740 on, where no field shows it\n"}));
}

TEST_F(RecordCommand, GoesThroughStandardInputAndOutput)
{
    EXPECT_EQ(run("record show -", "short"), Answered("{}"));
    std::string record(80, '\0'), changed = record;
    changed[74] = '\x12';
    EXPECT_EQ(run("record set - dmFields=0x120000", record), Done(changed));
}

TEST_F(RecordCommand, RefusesWhatDoesNotFit)
{
    run.Put("r", std::string(1848, '\0'));
    const std::string name(32, 'n');
    const std::vector<Refusal> rows = {
        {"dmZom=1",            "there is no field \"dmZom\" in the record\n"                                },
        {"dmZoom",             "\"dmZoom\": FIELD=VALUE is wanted\n"                                        },
        {"dmZoom=32768",       "dmZoom=32768: dmZoom takes a number from -32768 to 32767\n"                 },
        {"dmNupOn=-1",         "dmNupOn=-1: dmNupOn takes a number from 0 to 255\n"                         },
        {"dmWatermark=1",      "dmWatermark has fields of its own; name one, as dmWatermark.wmText\n"       },
        {"dmFormName=" + name, "dmFormName=" + name + ": dmFormName takes a text of at most 31 characters\n"},
    };
    ExpectRefused(run, 2, "record set r -o s ", rows);
    EXPECT_FALSE(std::filesystem::exists(run.Path("s")));
}

TEST_F(RecordCommand, NamesTheFileThatItCannotUse)
{
    run.Put("bad", R"({"dmZoom": })");
    run.Put("unfit", R"({"dmZoom": 1.5})");
    run.Put("twice", R"({"dmZoom": 1, "dmWatermark": {"wmId": 1, "wmId": 2}})");
    run.Put("short", "short");
    run.Put("r", std::string(80, '\0'));
    const std::vector<Refusal> rows = {
        {"set r dmFields=1 -o none/s",    "cannot write none/s: No such file or directory\n"              },
        {"set r dmFields=1 -o /dev/full", "cannot write /dev/full: No space left on device\n"             },
        {"show none",                     "cannot read none: No such file or directory\n"                 },
        {"make bad",                      "bad is no JSON: parse error at line 1, column 12"              },
        {"make unfit",                    "unfit: the field dmZoom takes a number from -32768 to 32767\n" },
        {"make twice",                    "twice: the field wmId is given twice\n"                        },
        {"set short dmZoom=1",            "short: the record of 5 bytes does not reach the field dmZoom\n"},
    };
    ExpectRefused(run, 3, "record ", rows);
}

using DocumentProperties = ProgramTest;

TEST_F(DocumentProperties, AnswersTheDefaultRecordOrItsSize)
{
    EXPECT_EQ(run("document-properties NAME --mode 2"), Answered(R"({"result": 1848})"));
    EXPECT_EQ(run("document-properties NAME --mode 0 -o r"), Answered(R"({"result": 1848})"));
    EXPECT_EQ(run.Contents("r"), "");
    EXPECT_EQ(run("document-properties NAME --mode 2 -o r --platform country=1"), Answered(R"({"result": 1})"));
    EXPECT_EQ(run.Contents("r").size(), 1848u);
    EXPECT_THAT(run("record show r").out,
                AllOf(HasSubstr(R"({"dmDeviceName": "Ordana Quillet 4820E", "dmSpecVersion": 1025, )"),
                      HasSubstr(R"("dmPaperSize": 1, )"), HasSubstr(R"("dmZoom": 100, )")));
}

TEST_F(DocumentProperties, LayTheCallersRecordOverThePrinters)
{
    run("document-properties NAME --mode 2 -o r");
    run("record set r dmZoom=150 dmCopies=3 -o stored");
    run("record set r dmZoom=180 -o mine");
    run("printer record NAME --set stored");
    EXPECT_EQ(run("document-properties NAME --mode 2 -o answer"), Answered(R"({"result": 1})"));
    EXPECT_EQ(run("record diff r answer").out, "{\"dmCopies\": [1, 3], \"dmZoom\": [100, 150]}\n");
    run("document-properties NAME --mode 2 --in mine -o answer");
    EXPECT_EQ(run("record diff r answer").out, "{\"dmZoom\": [100, 180]}\n");
}

TEST_F(DocumentProperties, ShowNoWindow)
{
    EXPECT_EQ(run("document-properties NAME --mode 6 -o r"),
              Failed("--mode 6 asks for a window (4); that is qd480 sheet", 2));
    EXPECT_EQ(run("document-properties None --mode 2"), Failed(R"(there is no printer "None" in the store)"));
}

}  // namespace
