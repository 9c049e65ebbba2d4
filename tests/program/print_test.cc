// qd480 print
#include "tests/program/pdf.h"
#include "tests/program/program.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

class Print : public ProgramTest {
  protected:
    Result Job(const std::string& words) const
    {
        return run(
            "print NAME -o out.pdf --platform country=1 --platform user=anna --platform language=0409 --platform "
            "time=2005-12-31T17:45:00 " +
            words);
    }
    Result JobOf(const std::vector<PdfPage>& pages, const std::string& words = "") const
    {
        run.Put("in.pdf", MakePdf(pages));
        return Job("in.pdf " + words);
    }
    // The default record with these fields changed, as the file r.
    void PutRecord(const std::string& fields) const
    {
        run("document-properties NAME --mode 2 -o r --platform country=1");
        ASSERT_EQ(run("record set r -o r " + fields), Done());
    }
    Pdf Out() const { return Pdf(run.Contents("out.pdf")); }
};

std::string Damaged(std::string pdf, const std::string& old, const std::string& now)
{
    return pdf.replace(pdf.find(old), old.size(), now);
}

const std::string Watermark =
    "dmWatermarkOn=1 dmWatermark.wmText=DRAFT dmWatermark.wmFaceName=Arial dmWatermark.wmSize=72 ";

TEST_F(Print, CentresThePageInWhatThePrinterReaches)
{
    const std::pair<PdfPage, const char*> rows[] = {
        {{"0 0 200 300"},                               "q 1 0 0 1 206 246 cm /Page Do Q\n"                   },
        {{"0 0 612 792"},                               "q 0.960784 0 0 0.960784 12 15.529412 cm /Page Do Q\n"},
        {{"300 -100 0 -50"},                            "q 1 0 0 1 156 471 cm /Page Do Q\n"                   },
        {{"0 0 1176 100"},                              "q 0.5 0 0 0.5 12 371 cm /Page Do Q\n"                },
        {{"0 0 300 100", "/Rotate 90"},                 "q 0 -1 1 0 256 546 cm /Page Do Q\n"                  },
        {{"0 0 300 100", "/Rotate 180"},                "q -1 0 0 -1 456 446 cm /Page Do Q\n"                 },
        {{"0 0 300 100", "/Rotate -90"},                "q 0 1 -1 0 356 246 cm /Page Do Q\n"                  },
        {{"0 0 100 1176", "/Rotate 450"},               "q 0 -0.5 0.5 0 12 421 cm /Page Do Q\n"               },
        {{"0 0 612 792", "/CropBox [100 200 700 400]"}, "q 1 0 0 1 -50 96 cm /Page Do Q\n"                    },
        {{"0 0 100 100", "/UserUnit 2"},                "q 2 0 0 2 206 296 cm /Page Do Q\n"                   },
        {{"0 0 100 100", "", {}},                       ""                                                    },
    };
    std::vector<PdfPage> pages;
    for (const auto& row : rows) pages.push_back(row.first);
    ASSERT_EQ(JobOf(pages), Done());
    Pdf out = Out();
    for (std::size_t page = 0; page < pages.size(); ++page) {
        EXPECT_EQ(out.Box(page), "[ 0 0 612 792 ]");
        EXPECT_EQ(out.Contents(page), rows[page].second) << pages[page].box << ' ' << pages[page].more;
    }
    EXPECT_EQ(out.Object(8, "/Page").getDict().getKey("/BBox").unparse(), "[ 100 200 612 400 ]");
}

// Contents may be cut anywhere, notes are for the screen or for paper, and a password may be needed for changes alone.
TEST_F(Print, TakesOfPagesWhatIsForPaper)
{
    constexpr int ForScreen = 0, ForPaper = 4;
    std::vector<PdfPage> pages(3);
    pages[0].contents = {"BT /F1 12 Tf 72", "72 Td (Joined) Tj", "ET"};
    pages[1].noteFlags = ForScreen;
    pages[2].noteFlags = ForPaper;
    run.Put("open.pdf", MakePdf(pages));
    run.Told("qpdf --encrypt '' owner 256 -- open.pdf in.pdf");
    ASSERT_EQ(Job("in.pdf"), Done());
    EXPECT_THAT(run.Told("pdftotext -l 1 out.pdf -"), HasSubstr("Joined"));
    EXPECT_THAT(run.Told("pdftotext -f 2 -l 2 out.pdf -"), AllOf(HasSubstr("Body"), Not(HasSubstr("Note"))));
    EXPECT_THAT(run.Told("pdftotext -f 3 out.pdf -"), AllOf(HasSubstr("Body"), HasSubstr("Note")));
}

TEST_F(Print, TakesThePaperOfTheRecord)
{
    // 100 x 200 mm under 257 and 300, then 8 8/16 x 5 inches under 300: of two with the same code the last one.
    const std::string millimetres = "D007E803" + std::string(100, '0'),
                      inches = "F4012003000008000100" + std::string(88, '0');
    run("printer data NAME CustomPaperDataSize --dword 168");
    run("printer data NAME CustomPaperData --hex 0101" + millimetres + "2C01" + millimetres + "2C01" + inches);
    const std::pair<const char*, const char*> rows[] = {
        {"dmPaperSize=1",                                                   "[ 0 0 612 792 ]"      },
        {"dmPaperSize=9",                                                   "[ 0 0 595.2 841.68 ]" },
        {"dmPaperSize=9 dmOrientation=2",                                   "[ 0 0 841.68 595.2 ]" },
        {"dmPaperSize=256 dmFields=3 dmPaperWidth=1000 dmPaperLength=2000", "[ 0 0 283.44 566.88 ]"},
        {"dmPaperSize=256 dmFields=3 dmPaperWidth=0 dmPaperLength=-5",      "[ 0 0 612 792 ]"      },
        {"dmPaperSize=257",                                                 "[ 0 0 283.44 566.88 ]"},
        {"dmPaperSize=300",                                                 "[ 0 0 609.36 360 ]"   },
        {"dmPaperSize=300 dmOrientation=2",                                 "[ 0 0 360 609.36 ]"   },
        {"dmPaperSize=300 dmOrientation=0",                                 "[ 0 0 360 609.36 ]"   },
        {"dmPaperSize=9 dmOrientation=3",                                   "[ 0 0 595.2 841.68 ]" },
        {"dmPaperSize=306",                                                 "[ 0 0 612 792 ]"      },
        {"dmPaperSize=250",                                                 "[ 0 0 612 792 ]"      },
    };
    for (const auto& [fields, box] : rows) {
        PutRecord(fields);
        ASSERT_EQ(Job("--record r --unchecked"), Done());
        EXPECT_EQ(Out().Box(0), box) << fields;
    }
}

std::string Event(int code, int result = 1)
{
    return R"({"event": )" + std::to_string(code) + R"(, "result": )" + std::to_string(result) + "}\n";
}

TEST_F(Print, RunsTheEventsOfARealJob)
{
    const std::string start = R"({"escape": 20736, "size": 20, "text": "20051231"}
{"escape": 20737, "size": 20, "text": "1745"}
{"escape": 20738, "size": 255, "text": "OS: Microsoft Windows XP (5.1.2600.2) ENU"}
{"escape": 20739, "size": 255, "text": "Username: anna;App Filename: "}
{"escape": 20740, "size": 255, "text": ";31/12/2005;17:45"}
)",
                      page = Event(6) + R"({"escape": 5001, "size": 0, "text": ""})" + '\n' + Event(7);
    ASSERT_EQ(Job("--pages 2 --reset-at 2 --events e"), Done());
    EXPECT_EQ(run.Contents("e"),
              Event(1) + Event(2) + start + Event(5) + page + Event(3) + Event(4) + page + Event(8) + Event(10, 0));
}

// Size 72 is 300 dots high and, by the fixed metrics, 5 * 150 wide; the printable area begins 12 points in.
TEST_F(Print, MarksTheWatermarkAndPutsItWhereTheModuleDraws)
{
    PutRecord(Watermark + "dmPrintQuality=300 dmWatermark.wmAngleMode=0");
    ASSERT_EQ(Job("--record r --platform fonts=builtin --events e --trace t"), Done());
    EXPECT_THAT(run.Contents("e"), HasSubstr(R"({"escape": 5001, "size": 0, "text": ""}
{"escape": -1465341784, "size": 4, "text": "¨¨¨¨"}
{"escape": -1465341784, "size": 4, "text": ""}
)" + Event(7)));
    EXPECT_THAT(run.Contents("t"), HasSubstr("\"on\": \"job\", \"args\": [-1465341784, 4, \"a8a8a8a8\", 0, null], "
                                             "\"result\": 1}\n{\"call\": \"ExtTextOutW\", "));
    EXPECT_THAT(run.Contents("t"), HasSubstr(R"("args": [825, 1450, 0, null, "DRAFT", 5, null])"));
    EXPECT_THAT(run.Told("pdftotext -bbox out.pdf -"), HasSubstr(R"(<word xMin="210.000000" yMin="3)"));
    PutRecord(Watermark + "dmPrintQuality=-1 dmResolution=600 dmWatermark.wmAngleMode=0");
    ASSERT_EQ(Job("--record r --unchecked --platform fonts=builtin --trace t"), Done());
    EXPECT_THAT(run.Contents("t"), HasSubstr(R"("args": [1650, 2900, 0, null, "DRAFT", 5, null])"));
}

TEST_F(Print, StampsAllPagesWithOneObjectOfTextAndItsFont)
{
    PutRecord(Watermark);
    ASSERT_EQ(JobOf({{}, {}, {}, {}}, "--record r"), Done());
    Pdf out = Out();
    for (std::size_t page = 0; page < 4; ++page) {
        EXPECT_EQ(out.Contents(page), "q 0.960784 0 0 0.960784 12 15.529412 cm /Page Do Q\nq /Stamp Do Q\n");
        EXPECT_EQ(out.Object(page, "/Stamp").getObjGen(), out.Object(0, "/Stamp").getObjGen());
    }
    EXPECT_NE(out.Object(0, "/Page").getObjGen(), out.Object(1, "/Page").getObjGen());
    EXPECT_THAT(run.Told("qpdf --check out.pdf"), HasSubstr("No syntax or stream encoding errors found"));
    EXPECT_THAT(run.Told("pdftotext -l 1 out.pdf -"), AllOf(HasSubstr("DRAFT"), HasSubstr("Body")));
    EXPECT_THAT(run.Told("pdffonts out.pdf"),
                HasSubstr("LiberationSans                       CID TrueType      Identity-H       yes"));
    EXPECT_EQ(run.Told("pdfimages -list out.pdf | tail -n +3"), "");
}

TEST_F(Print, StampsTheFirstPageOfTheJobAlone)
{
    PutRecord(Watermark + "dmWatermark.wmFirstPageOnly=1");
    ASSERT_EQ(Job("--record r --pages 3 --reset-at 2"), Done());
    Pdf out = Out();
    EXPECT_EQ(out.Contents(0) + out.Contents(1) + out.Contents(2), "q /Stamp Do Q\n");
}

TEST_F(Print, AbortsAJobThatBreaksOff)
{
    run.Put("in.pdf", Damaged(MakePdf({{}, {}}), "stream\nx\x9c", "stream\nxx"));
    EXPECT_EQ(Job("in.pdf --events e").status, 3);
    EXPECT_THAT(run.Contents("e"), testing::EndsWith(Event(7) + Event(9, 0) + Event(10, 0)));
}

TEST_F(Print, HandsOutAnUncheckedRecordAsItIs)
{
    PutRecord(Watermark + "dmPrintQuality=-3 dmResolution=0 dmWatermark.wmAngleMode=2");
    const std::string settings =
        R"([5001, 0, null, 1848], "result": ")" + run.Told("od -An -v -tx1 r | tr -d ' \n'") + '"';
    ASSERT_EQ(Job("--record r --unchecked --trace t"), Done());
    EXPECT_THAT(run.Contents("t"), HasSubstr(settings));
    ASSERT_EQ(Job("--record r --trace t"), Done());
    EXPECT_THAT(run.Contents("t"), Not(HasSubstr(settings)));
    run.Put("r", "short");
    EXPECT_EQ(Job("--record r --unchecked"), Done());
}

TEST_F(Print, RefusedInputsLeaveAnOldOutputAsItWas)
{
    const std::string one = MakePdf({{}}), two = MakePdf({{}, {}}), none = MakePdf({}),
                      flat = MakePdf({{}, {"0 0 0 700"}}), begun = two.substr(0, 500),
                      noEnd = one.substr(0, one.size() - 40), badPage = Damaged(one, "/Type /Page ", "/Type (Pa"),
                      badStream = Damaged(two, "stream\nx\x9c", "stream\nxx");
    run.Put("one.pdf", one);
    const std::pair<std::string, const char*> rows[] = {
        {run.Told("qpdf --encrypt secret owner 256 -- one.pdf -"),          "password"                   },
        {run.Told("qpdf --encrypt '' owner 256 --print=none -- one.pdf -"), "lets nobody print"          },
        {"",                                                                "it is empty"                },
        {"no PDF at all\n",                                                 "damaged"                    },
        {begun,                                                             "damaged"                    },
        {noEnd,                                                             "damaged"                    },
        {badPage,                                                           "damaged"                    },
        {badStream,                                                         "contents of page"           },
        {none,                                                              "no pages"                   },
        {flat,                                                              "page 2 has no possible size"},
    };
    run.Put("out.pdf", "old");
    for (const auto& [input, why] : rows) {
        run.Put("in.pdf", input);
        const Result result = Job("in.pdf");
        EXPECT_EQ(result.status, 3) << why;
        EXPECT_THAT(result.err, AllOf(HasSubstr("in.pdf: "), HasSubstr(why)));
        EXPECT_EQ(run.Contents("out.pdf"), "old") << why;
    }
    EXPECT_THAT(run.Names(), ElementsAre(".err", ".in", ".out", ".told", "in.pdf", "one.pdf", "out.pdf", "qd480"));
}

TEST_F(Print, LeavesNoOutputWhenItFails)
{
    EXPECT_EQ(Job("none.pdf"), Failed("cannot read none.pdf: No such file or directory"));
    EXPECT_EQ(Job("--platform fail=GetPrinterW:1+").status, 3);
    EXPECT_EQ(run("print NAME -o /dev/full"), Failed("cannot write /dev/full: Input/output error"));
    EXPECT_THAT(run.Names(), ElementsAre(".err", ".in", ".out", "qd480"));
}

TEST_F(Print, MayPutTheOutputInTheInputsPlaceOrOnStandardOutput)
{
    run.Put("out.pdf", MakePdf({{}, {}}));
    EXPECT_EQ(Job("out.pdf"), Done());
    EXPECT_EQ(Out().Count(), 2u);
    const Result result = run("print NAME - -o -", run.Contents("out.pdf"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Pdf(result.out).Count(), 2u);
}

TEST_F(Print, WritesOverNoneOfItsOtherFiles)
{
    run.Put("in.pdf", MakePdf({{}}));
    PutRecord("dmCopies=2");
    const std::string in = run.Contents("in.pdf"), record = run.Contents("r");
    const std::vector<Refusal> rows = {
        {"out.pdf in.pdf --events ./in.pdf",   "./in.pdf: --events and the input cannot be one file\n"},
        {"out.pdf in.pdf --trace in.pdf",      "in.pdf: --trace and the input cannot be one file\n"   },
        {"out.pdf --record r --events r",      "r: --events and --record cannot be one file\n"        },
        {"r --record r",                       "r: -o and --record cannot be one file\n"              },
        {"out.pdf --events e --trace ./e",     "./e: --trace and --events cannot be one file\n"       },
        {"out.pdf --events out.pdf",           "out.pdf: --events and -o cannot be one file\n"        },
        {"out.pdf --trace out.pdf",            "out.pdf: --trace and -o cannot be one file\n"         },
        {"out.pdf --trace qd480/printers.db",  "qd480/printers.db: --trace and "                      },
        {"out.pdf --events qd480/printers.db", "qd480/printers.db: --events and "                     },
        {"qd480/printers.db",                  "qd480/printers.db: -o and "                           },
    };
    ExpectRefused(run, 2, "print NAME -o ", rows);
    EXPECT_EQ(run.Contents("in.pdf"), in);
    EXPECT_EQ(run.Contents("r"), record);
    EXPECT_EQ(Job("--events /dev/null --trace /dev/null"), Done());
}

TEST_F(Print, RefusesWhatDoesNotGoTogether)
{
    run.Put("in.pdf", MakePdf({{}}));
    const std::vector<Refusal> rows = {
        {"in.pdf --pages 2",    "--pages goes without an input" },
        {"--pages 0",           "--pages"                       },
        {"--unchecked",         "--unchecked goes with --record"},
        {"in.pdf --reset-at 2", "--reset-at 2 comes after"      },
        {"- --record -",        "standard input cannot be both" },
    };
    ExpectRefused(run, 2, "print NAME -o out.pdf ", rows);
    EXPECT_FALSE(std::filesystem::exists(run.Path("out.pdf")));
}

}  // namespace
