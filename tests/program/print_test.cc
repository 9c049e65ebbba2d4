// qd480 print
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/program/pdf.h"
#include "tests/program/program.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

Result Print(const Program& run, const std::string& words)
{
    return run(
        "print NAME -o out.pdf --platform country=1 --platform user=anna --platform language=0409 "
        "--platform time=2005-12-31T17:45:00 " +
        words);
}

Result PrintPages(const Program& run, const std::vector<PdfPage>& pages, const std::string& words = "")
{
    run.Put("in.pdf", MakePdf(pages));
    return Print(run, "in.pdf " + words);
}

// The default record with these fields changed, as the file r.
void PutRecord(const Program& run, const std::string& fields)
{
    run("document-properties NAME --mode 2 -o r --platform country=1");
    ASSERT_EQ(run("record set r -o r " + fields), Done());
}

const std::string Watermark =
    "dmWatermarkOn=1 dmWatermark.wmText=DRAFT dmWatermark.wmFaceName=Arial dmWatermark.wmSize=72 ";

// What is there under names that begin as the output's.
std::vector<std::string> Outputs(const Program& run)
{
    std::vector<std::string> names = run.Names();
    names.erase(std::remove_if(names.begin(), names.end(), [](const auto& name) { return name.find("out") != 0; }),
                names.end());
    return names;
}

std::string TextOf(const Program& run, int page)
{
    const std::string number = std::to_string(page);
    return OutputOf("pdftotext -f " + number + " -l " + number + " " + run.Path("out.pdf").string() + " -");
}

TEST(Print, CentresThePageInWhatThePrinterReaches)
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
    Program run;
    std::vector<PdfPage> pages;
    for (const auto& row : rows) pages.push_back(row.first);
    ASSERT_EQ(PrintPages(run, pages), Done());
    Pdf out(run.Contents("out.pdf"));
    for (std::size_t page = 0; page < pages.size(); ++page) {
        EXPECT_EQ(out.Box(page), "[ 0 0 612 792 ]");
        EXPECT_EQ(out.Contents(page), rows[page].second) << pages[page].box << ' ' << pages[page].more;
    }
    EXPECT_EQ(out.Object(8, "/Page").getDict().getKey("/BBox").unparse(), "[ 100 200 612 400 ]");
}

// Contents may be cut anywhere, notes are for the screen or for paper, and a password may be needed for changes alone.
TEST(Print, TakesOfPagesWhatIsForPaper)
{
    constexpr char Box[] = "0 0 612 792", Body[] = "BT /F1 9 Tf (Body) Tj ET\n";
    constexpr int ForScreen = 0, ForPaper = 4;
    const std::vector<std::string> cut = {"BT /F1 12 Tf 72", "72 Td (Joined) Tj", "ET"};
    const std::vector<PdfPage> pages = {
        {Box, "",     cut      },
        { Box, "", {Body}, ForScreen},
        { Box, "", {Body},  ForPaper}
    };
    Program run;
    run.Put("in.pdf", Encrypted(MakePdf(pages), ""));
    ASSERT_EQ(Print(run, "in.pdf"), Done());
    EXPECT_THAT(TextOf(run, 1), HasSubstr("Joined"));
    EXPECT_THAT(TextOf(run, 2), AllOf(HasSubstr("Body"), Not(HasSubstr("Note"))));
    EXPECT_THAT(TextOf(run, 3), AllOf(HasSubstr("Body"), HasSubstr("Note")));
}

TEST(Print, TakesThePaperOfTheRecord)
{
    Program run;
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
        {"dmPaperSize=306",                                                 "[ 0 0 612 792 ]"      },
        {"dmPaperSize=250",                                                 "[ 0 0 612 792 ]"      },
    };
    for (const auto& [fields, box] : rows) {
        PutRecord(run, fields);
        ASSERT_EQ(Print(run, "--record r"), Done());
        EXPECT_EQ(Pdf(run.Contents("out.pdf")).Box(0), box) << fields;
    }
}

constexpr char Header[] =
    "{\"event\": 1, \"result\": 1}\n"
    "{\"event\": 2, \"result\": 1}\n"
    "{\"escape\": 20736, \"size\": 20, \"text\": \"20051231\"}\n"
    "{\"escape\": 20737, \"size\": 20, \"text\": \"1745\"}\n"
    "{\"escape\": 20738, \"size\": 255, \"text\": \"OS: Microsoft Windows XP (5.1.2600.2) ENU\"}\n"
    "{\"escape\": 20739, \"size\": 255, \"text\": \"Username: anna;App Filename: \"}\n"
    "{\"escape\": 20740, \"size\": 255, \"text\": \";31/12/2005;17:45\"}\n"
    "{\"event\": 5, \"result\": 1}\n";

constexpr char BarePage[] =
    "{\"event\": 6, \"result\": 1}\n"
    "{\"escape\": 5001, \"size\": 0, \"text\": \"\"}\n"
    "{\"event\": 7, \"result\": 1}\n";

TEST(Print, RunsTheEventsOfARealJob)
{
    Program run;
    ASSERT_EQ(Print(run, "--pages 2 --reset-at 2 --events e"), Done());
    EXPECT_EQ(run.Contents("e"), std::string(Header) + BarePage +
                                     "{\"event\": 3, \"result\": 1}\n"
                                     "{\"event\": 4, \"result\": 1}\n" +
                                     BarePage +
                                     "{\"event\": 8, \"result\": 1}\n"
                                     "{\"event\": 10, \"result\": 0}\n");
}

TEST(Print, MarksTheWatermarkForTheRenderingSide)
{
    Program run;
    PutRecord(run, Watermark);
    ASSERT_EQ(Print(run, "--record r --events e --trace t"), Done());
    EXPECT_THAT(run.Contents("e"), HasSubstr("{\"escape\": 5001, \"size\": 0, \"text\": \"\"}\n"
                                             "{\"escape\": -1465341784, \"size\": 4, \"text\": \"¨¨¨¨\"}\n"
                                             "{\"escape\": -1465341784, \"size\": 4, \"text\": \"\"}\n"
                                             "{\"event\": 7, \"result\": 1}\n"));
    EXPECT_THAT(run.Contents("t"), HasSubstr("\"on\": \"job\", \"args\": [-1465341784, 4, \"a8a8a8a8\", 0, null], "
                                             "\"result\": 1}\n{\"call\": \"ExtTextOutW\", "));
}

TEST(Print, StampsAllPagesWithOneObject)
{
    Program run;
    PutRecord(run, Watermark);
    ASSERT_EQ(PrintPages(run, {{}, {}, {}, {}}, "--record r"), Done());
    Pdf out(run.Contents("out.pdf"));
    for (std::size_t page = 0; page < 4; ++page) {
        EXPECT_EQ(out.Contents(page), "q 0.960784 0 0 0.960784 12 15.529412 cm /Page Do Q\nq /Stamp Do Q\n");
        EXPECT_EQ(out.Object(page, "/Stamp").getObjGen(), out.Object(0, "/Stamp").getObjGen());
    }
    EXPECT_NE(out.Object(0, "/Page").getObjGen(), out.Object(1, "/Page").getObjGen());
}

TEST(Print, DrawsTheWatermarkAsTextWithItsFont)
{
    Program run;
    PutRecord(run, Watermark);
    PrintPages(run, {{}}, "--record r");
    const std::string out = run.Path("out.pdf").string();
    EXPECT_THAT(OutputOf("qpdf --check " + out), HasSubstr("No syntax or stream encoding errors found"));
    EXPECT_THAT(TextOf(run, 1), AllOf(HasSubstr("DRAFT"), HasSubstr("Body")));
    EXPECT_THAT(OutputOf("pdffonts " + out), HasSubstr("LiberationSans                       CID TrueType      "
                                                       "Identity-H       yes"));
    EXPECT_EQ(OutputOf("pdfimages -list " + out + " | tail -n +3"), "");
}

// Size 72 is 300 dots high and, by the fixed metrics, 5 * 150 wide; the printable area begins 12 points in.
TEST(Print, PutsTheWatermarkWhereTheModuleDraws)
{
    Program run;
    PutRecord(run, Watermark + "dmPrintQuality=300 dmWatermark.wmAngleMode=0");
    Print(run, "--record r --platform fonts=builtin --trace t");
    EXPECT_THAT(run.Contents("t"), HasSubstr("\"args\": [825, 1450, 0, null, \"DRAFT\", 5, null]"));
    EXPECT_THAT(OutputOf("pdftotext -bbox " + run.Path("out.pdf").string() + " -"),
                HasSubstr("<word xMin=\"210.000000\" yMin=\"3"));
}

// The sixth escape asks for the first page's settings.
TEST(Print, LeavesAPageUnstampedWhoseSettingsAreNotToBeHad)
{
    Program run;
    PutRecord(run, Watermark);
    EXPECT_EQ(Print(run, "--pages 2 --record r --platform fail=ExtEscape:6").status, 0);
    Pdf out(run.Contents("out.pdf"));
    EXPECT_EQ(out.Contents(0), "");
    EXPECT_EQ(out.Contents(1), "q /Stamp Do Q\n");
}

TEST(Print, HandsOutAnUncheckedRecordAsItIs)
{
    Program run;
    PutRecord(run, Watermark + "dmPrintQuality=-3 dmResolution=0 dmWatermark.wmAngleMode=2");
    std::string hex;
    for (const unsigned char byte : run.Contents("r"))
        hex += {"0123456789abcdef"[byte >> 4], "0123456789abcdef"[byte & 15]};
    const std::string settings = "[5001, 0, null, 1848], \"result\": \"" + hex + '"';
    ASSERT_EQ(Print(run, "--record r --unchecked --trace t"), Done());
    EXPECT_THAT(run.Contents("t"), HasSubstr(settings));
    ASSERT_EQ(Print(run, "--record r --trace t"), Done());
    EXPECT_THAT(run.Contents("t"), Not(HasSubstr(settings)));
    run.Put("r", "short");
    EXPECT_EQ(Print(run, "--record r --unchecked"), Done());
}

std::string Damaged(std::string pdf, const std::string& old, const std::string& now)
{
    return pdf.replace(pdf.find(old), old.size(), now);
}

TEST(Print, RefusedInputsLeaveAnOldOutputAsItWas)
{
    const std::string one = MakePdf({{}}), two = MakePdf({{}, {}});
    const std::string locked = Encrypted(one, "secret"), unprintable = Encrypted(one, "", false),
                      begun = two.substr(0, 500), noEnd = one.substr(0, one.size() - 40),
                      badPage = Damaged(one, "/Type /Page ", "/Type (Pa"),
                      badStream = Damaged(two, "stream\nx\x9c", "stream\nxx"), none = MakePdf({}),
                      flat = MakePdf({{}, {"0 0 0 700"}});
    const std::pair<std::string, const char*> rows[] = {
        {locked,            "password"                   },
        {unprintable,       "lets nobody print"          },
        {"",                "it is empty"                },
        {"no PDF at all\n", "damaged"                    },
        {begun,             "damaged"                    },
        {noEnd,             "damaged"                    },
        {badPage,           "damaged"                    },
        {badStream,         "contents of page"           },
        {none,              "no pages"                   },
        {flat,              "page 2 has no possible size"},
    };
    for (const auto& [input, why] : rows) {
        Program run;
        run.Put("in.pdf", input);
        run.Put("out.pdf", "old");
        const Result result = Print(run, "in.pdf");
        EXPECT_EQ(result.status, 3) << why;
        EXPECT_THAT(result.err, AllOf(HasSubstr("in.pdf: "), HasSubstr(why)));
        EXPECT_EQ(run.Contents("out.pdf"), "old") << why;
        EXPECT_THAT(Outputs(run), ElementsAre("out.pdf"));
    }
}

TEST(Print, LeavesNoOutputWhenItFails)
{
    Program run;
    EXPECT_EQ(Print(run, "none.pdf"), (Result{3, "", "qd480: cannot read none.pdf: No such file or directory\n"}));
    EXPECT_EQ(Print(run, "--platform fail=GetPrinterW:1+").status, 3);
    EXPECT_THAT(Outputs(run), ElementsAre());
    EXPECT_EQ(run("print NAME -o /dev/full"), (Result{3, "", "qd480: cannot write /dev/full: Input/output error\n"}));
}

TEST(Print, MayPutTheOutputInTheInputsPlace)
{
    Program run;
    run.Put("out.pdf", MakePdf({{}, {}}));
    EXPECT_EQ(Print(run, "out.pdf"), Done());
    EXPECT_EQ(Pdf(run.Contents("out.pdf")).Count(), 2u);
}

TEST(Print, WritesOverNoneOfItsOtherFiles)
{
    Program run;
    run.Put("in.pdf", MakePdf({{}}));
    PutRecord(run, "dmCopies=2");
    const std::string in = run.Contents("in.pdf"), record = run.Contents("r");
    ASSERT_TRUE(std::filesystem::exists(run.Path("qd480/printers.db")));
    for (const char* words : {
             "-o out.pdf in.pdf --events ./in.pdf",
             "-o out.pdf in.pdf --trace in.pdf",
             "-o out.pdf --record r --events r",
             "-o r --record r",
             "-o out.pdf --events e --trace e",
             "-o out.pdf --events out.pdf",
             "-o out.pdf --trace out.pdf",
             "-o out.pdf --trace qd480/printers.db",
             "-o out.pdf --events qd480/printers.db",
             "-o qd480/printers.db",
         }) {
        const Result result = run(std::string("print NAME ") + words);
        EXPECT_EQ(result.status, 2) << words;
        EXPECT_THAT(result.err, HasSubstr("cannot be one file"));
    }
    EXPECT_EQ(run.Contents("in.pdf"), in);
    EXPECT_EQ(run.Contents("r"), record);
    EXPECT_EQ(Print(run, "--events /dev/null --trace /dev/null"), Done());
}

TEST(Print, GoesThroughStandardInputAndOutput)
{
    const Result result = Program()("print NAME - -o -", MakePdf({{}, {}, {}}));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Pdf(result.out).Count(), 3u);
}

TEST(Print, RefusesWhatDoesNotGoTogether)
{
    const std::pair<const char*, const char*> rows[] = {
        {"in.pdf --pages 2",    "--pages goes without an input" },
        {"--pages 0",           "--pages"                       },
        {"--unchecked",         "--unchecked goes with --record"},
        {"in.pdf --reset-at 2", "--reset-at 2 comes after"      },
        {"- --record -",        "standard input cannot be both" },
    };
    Program run;
    run.Put("in.pdf", MakePdf({{}}));
    for (const auto& [words, message] : rows) {
        const Result result = Print(run, words);
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_THAT(result.err, HasSubstr(message));
        EXPECT_THAT(Outputs(run), ElementsAre());
    }
}

}  // namespace
