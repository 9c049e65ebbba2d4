// What is drawn for one sheet, shape by shape, also of records that no page would write and on windows of any size.
// The rig expects that no object is left and that each context is given back as it came.
#include "preview_rig.h"
#include "tests/support/custom_papers.h"

namespace preview_test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

TEST(Page, HasANumberThreeBarsAndADottedFrame)
{
    EXPECT_THAT(Preview().Draw(A4()),
                ElementsAre("box 11,0,119,154 null ffffff", "map 2480,-3507 to 106,-150 at 12,1",
                            "text 205,50 \"1\" in 50,50,2409,3436 Times New Roman -1613/400 000000",
                            "box 347,1894,2131,2177 null 000000", "box 347,2460,2131,2743 null 000000",
                            "box 347,3026,2131,3309 null 000000", "box 50,50,2429,3456 dot1:000000 none"));
    EXPECT_THAT(Preview().Draw(A4("dmOrientation=2"), {"text", "box 220"}),
                ElementsAre("text 269,50 \"1\" in 50,50,3451,2424 Times New Roman -1142/400 000000",
                            "box 220,1338,3285,1536 null 000000", "box 220,1734,3285,1932 null 000000",
                            "box 220,2130,3285,2328 null 000000"))
        << "wider than high the bars take nine tenths of the frame";
    EXPECT_THAT(Preview().Draw(A4("dmPrintQuality=600"), {"map", "text", "box 100"}),
                ElementsAre("map 4960,-7014 to 106,-150 at 12,1",
                            "text 410,100 \"1\" in 100,100,4819,6873 Times New Roman -3225/400 000000",
                            "box 100,100,4859,6913 dot1:000000 none"))
        << "in the dots of the job";
    EXPECT_THAT(Preview(30, 30).Draw(A4(), {"text", "box 131"}),
                ElementsAre("text 286,126 \"1\" in 131,126,2218,3256 Times New Roman -1619/400 000000",
                            "box 131,126,2348,3380 dot1:000000 none"))
        << "margins of less than a pixel grow";
}

// Two bars instead of three, and numbers of two digits.
TEST(Page, IsSimplerWithSixteenOnASheet)
{
    const Lines drawn = Preview().Draw(A4("dmNupOn=1 dmNupCount=16"));
    ASSERT_EQ(drawn.size(), 1u + 16 * 5);
    EXPECT_THAT(Lines(drawn.begin() + 1 + 9 * 5, drawn.begin() + 1 + 10 * 5),
                ElementsAre("map 2480,-3507 to 26,-38 at 38,77",
                            "text 251,93 \"10\" in 96,93,2289,3322 Times New Roman -1547/400 000000",
                            "box 382,1960,2097,2375 null 000000", "box 382,2790,2097,3205 null 000000",
                            "box 96,93,2383,3413 dot1:000000 none"));
    EXPECT_THAT(drawn, Contains(StartsWith("text 251,93 \"9\" in")));
    EXPECT_THAT(drawn, Contains(StartsWith("text 251,93 \"16\" in")));
}

TEST(Page, IsGreyInTonerSaveButForTheFrame)
{
    const Lines drawn = Preview().Draw(A4("dmTonerSave=1 dmNupBorder=1"));
    ASSERT_EQ(drawn.size(), 7u);
    EXPECT_THAT(Lines(drawn.begin() + 2, drawn.begin() + 6), Each(testing::EndsWith("7f7f7f")));
    EXPECT_EQ(drawn.back(), "box 50,50,2429,3456 solid1:000000 none");
}

// Mapping, clip and number.
TEST(Scaling, GrowsFromTheCornerAndIsCutOffAtTheCell)
{
    const std::pair<std::string, Lines> rows[] = {
        {"dmZoom=100", {"map 2480,-3507 to 106,-150 at 12,1", "text 205,50 \"1\" in 50,50,2409,3436"}       },
        {"dmZoom=50",  {"map 2480,-3507 to 53,-75 at 12,1", "text 205,50 \"1\" in 50,50,2386,3413"}         },
        {"dmZoom=200",
         {"map 2480,-3507 to 212,-300 at 12,1", "clip 12,1,116,149", "text 205,50 \"1\" in 50,50,2421,3448"}},
        {"dmZoom=101",
         {"map 2480,-3507 to 107,-151 at 12,1", "clip 12,1,116,149", "text 205,50 \"1\" in 50,50,2410,3437"}},
        {"dmZoom=1",   {"map 2480,-3507 to 1,-1 at 12,1", "text 2531,50 \"1\" in 50,50,-1,-1"}              },
    };
    for (const auto& [zoom, placed] : rows) {
        Lines drawn = Preview().Draw(A4("dmFitToPaper=1 " + zoom), {"map", "clip", "text"});
        for (std::string& line : drawn) line = line.substr(0, line.find(" Times"));
        EXPECT_EQ(drawn, placed) << zoom;
    }
    EXPECT_THAT(Preview().Draw(A4("dmFitToPaper=1 dmZoom=150 dmNupOn=1 dmNupCount=4"), {"clip"}),
                ElementsAre("clip 12,1,65,77", "clip 65,1,118,77", "clip 12,77,65,153", "clip 65,77,118,153"))
        << "each page at its own cell";
}

TEST(Frame, BelongsToThePictureThatIsDrawn)
{
    Preview quality;
    quality.Draw(A4());
    EXPECT_THAT(quality.Frame(),
                ElementsAre("box 0,0,137,161 solid1:ffffff f0f0f0", "strip 0,0,137,1 a0a0a0", "strip 0,0,1,161 a0a0a0",
                            "strip 136,0,137,161 ffffff", "strip 0,160,137,161 ffffff", "strip 1,1,136,2 ffffff",
                            "strip 1,1,2,160 ffffff", "strip 135,1,136,160 f0f0f0", "strip 1,159,136,160 f0f0f0"));
    // The rig sees that the context has its own colour again, wherever the setting of another one fails.
    for (const std::uint64_t call : {1, 2, 3, 4}) {
        testing_support::Machine::Fail("SetBkColor", call);
        quality.Draw(A4());
    }
    for (const int other : {IDC_SETUP_PREVIEW, IDC_PAPER_PREVIEW, IDC_DEVICE_PREVIEW}) {
        Preview preview(131, 154, other);
        EXPECT_FALSE(preview.Draw(A4()).empty()) << other;
        EXPECT_THAT(preview.Frame(), IsEmpty()) << other;
    }
}

// A stored size of 100 by 200 mm: 1181 by 2362 dots. Any other stored size is that of Letter, and so is each that
// cannot be looked up; as the sheet a stored size is never looked up. Its own size comes with the record.
TEST(CustomPaper, IsReadFromThePrinterOrComesWithTheRecord)
{
    Preview preview;
    testing_support::StorePapers(preview.Machine(), {testing_support::Entry(260, u"Small", 0, 1000, 2000)},
                                 testing_support::TestPrinter);
    const auto mapped = [&](const char* fields) { return preview.Draw(A4(fields), {"map"}).at(0); };
    EXPECT_EQ(mapped("dmPaperSize=260"), "map 1181,-2362 to 75,-150 at 28,1");
    EXPECT_THAT(mapped("dmPaperSize=270"), StartsWith("map 2550,-3300 "));
    EXPECT_THAT(mapped("dmPaperSize=256 dmPaperWidth=600 dmPaperLength=900"), StartsWith("map 708,-1062 "));
    EXPECT_THAT(preview.Draw(A4("dmFitToPaper=2 dmOutputPaper=260"), {"box 6"}),
                ElementsAre("box 6,0,131,77 null 404040", "box 6,0,125,154 null ffffff"));

    testing_support::Machine::Fail("OpenPrinterW");
    SetLastError(0);
    EXPECT_THAT(mapped("dmPaperSize=260"), StartsWith("map 2550,-3300 "));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

// The sheet and the mapping of the first page.
TEST(AnySize, IsDrawnAsFarAsThereIsRoom)
{
    const std::tuple<int, int, Lines> rows[] = {
        {0,     0,     {}                                                                    },
        {0,     154,   {}                                                                    },
        {1,     1,     {"box 0,0,0,1 null ffffff"}                                           },
        {2,     2,     {"box 0,0,1,2 null ffffff"}                                           },
        {107,   154,   {"box 0,1,107,152 null ffffff", "map 2480,-3507 to 52,-74 at 1,2"}    },
        {10000, 10,    {"box 4996,0,5003,10 null ffffff", "map 2480,-3507 to 2,-4 at 4997,1"}},
        {10,    10000, {"box 0,4993,10,5007 null ffffff", "map 2480,-3507 to 4,-6 at 1,4994"}},
    };
    for (const auto& [width, height, sheet] : rows) {
        Lines drawn = Preview(width, height).Draw(Marked("dmNupOn=1 dmNupCount=4"), {"box", "map"});
        if (drawn.size() > 2) drawn.resize(2);
        EXPECT_EQ(drawn, sheet) << width << " by " << height;
    }
}

// How many pages are drawn.
constexpr std::pair<const char*, std::size_t> RecordRows[] = {
    {"dmFitToPaper=1 dmZoom=0",                            0  },
    {"dmFitToPaper=1 dmZoom=-32768",                       0  },
    {"dmFitToPaper=1 dmZoom=32767",                        1  },
    {"dmNupOn=1 dmNupCount=0",                             0  },
    {"dmNupOn=1 dmNupCount=-2",                            0  },
    {"dmNupOn=1 dmNupCount=12",                            12 },
    {"dmNupOn=1 dmNupCount=200",                           200},
    {"dmNupOn=2 dmNupCount=4",                             1  },
    {"dmPaperSize=12345",                                  1  },
    {"dmPaperSize=-1",                                     1  },
    {"dmBookletPaper=12345 dmDuplexOn=1",                  1  },
    {"dmFitToPaper=2 dmOutputPaper=0",                     1  },
    {"dmFitToPaper=3",                                     1  },
    {"dmOrientation=0 dmDuplexOn=1",                       1  },
    {"dmPrintQuality=-1 dmResolution=-1 dmModelIndex=99",  1  },
 // Metrics of 0: there is nothing to draw.
    {"dmPaperSize=256",                                    0  },
    {"dmPaperSize=256 dmPaperWidth=1000",                  0  },
    {"dmFitToPaper=2 dmOutputPaper=256",                   0  },
    {"dmBookletPaper=256",                                 0  },
 // Less than its margins.
    {"dmPaperSize=256 dmPaperWidth=20 dmPaperLength=20",   1  },
    {"dmPaperSize=256 dmPaperWidth=32767 dmPaperLength=1", 0  },
};

TEST(AnyRecord, IsDrawnOrLeftOut)
{
    for (const auto& [fields, pages] : RecordRows)
        EXPECT_THAT(Preview().Draw(A4(fields), {"text"}), SizeIs(pages)) << fields;
    EXPECT_THAT(Preview().Draw(A4("dmPaperSize=256")), IsEmpty()) << "no sheet without metrics";
}

TEST(AnyRecord, MayHaveTextsWithoutTerminator)
{
    DriverDevMode record = Marked("wmSize=20");
    std::ranges::fill(record.dmWatermark.wmText, u'M');
    EXPECT_THAT(Preview().Draw(record, {"text -"}), SizeIs(1));
    std::ranges::fill(record.dmWatermark.wmFaceName, u'F');
    EXPECT_THAT(Preview().Draw(record, {"text -"}), IsEmpty());
}

}  // namespace
}  // namespace preview_test
