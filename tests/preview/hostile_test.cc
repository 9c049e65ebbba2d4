// Records that no page would write, windows of any size, and every call of the platform failing once at each
// place. The rig expects that no object is left and that each context is given back as it came.
#include <random>
#include <span>

#include "platform/seams/environment.h"
#include "preview_rig.h"

namespace preview_test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

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

// Counts stay small and the face known, or few records would get as far as a watermark.
TEST(AnyRecord, OfRandomBytesIsDrawn)
{
    std::mt19937 random(4820);
    for (int round = 0; round < 100; ++round) {
        DriverDevMode record = Marked();
        const DriverDevMode marked = record;
        for (std::uint8_t& byte : std::span(reinterpret_cast<std::uint8_t*>(&record), sizeof record))
            if (random() % 4 == 0) byte = static_cast<std::uint8_t>(random());
        record.dmNupCount = static_cast<SHORT>(record.dmNupCount % 20);
        record.dmNupOn &= 1;
        std::ranges::copy(marked.dmWatermark.wmFaceName, record.dmWatermark.wmFaceName);
        Preview(static_cast<int>(random() % 400), static_cast<int>(random() % 400)).Draw(record);
    }
}

TEST(AnyWindow, MayBeGone)
{
    Preview preview;
    preview.DrawOn(nullptr, A4());
    EXPECT_EQ(preview.Calls("GetDC"), 0) << "the screen is nobody's picture";
}

// Records that between them go every way through the drawing.
TEST(AnyCall, MayFailOnceAtEachPlace)
{
    platform::FaultPlan& faults = platform::CurrentEnvironment().faults;
    for (const DriverDevMode& record : {Marked("wmAngleMode=2 dmNupOn=1 dmNupCount=2 dmDuplexOn=1"),
                                        A4("dmBookletPaper=9 dmDuplexOn=1"), A4("dmFitToPaper=2 dmOutputPaper=11"),
                                        A4("dmFitToPaper=1 dmZoom=200"), Marked("wmSize=8"), A4("dmPaperSize=260")}) {
        Preview preview;
        faults.CountCalls(true);
        const Lines whole = preview.Draw(record);
        const auto calls = faults.Calls();
        ASSERT_GT(calls.size(), 15u);
        for (const auto& [function, count] : calls) {
            for (std::uint64_t call = 1; call <= count; ++call) {
                testing_support::Machine::Fail(function, call);
                preview.Draw(record);
                preview.ExpectAllGivenBack();
                ASSERT_FALSE(testing::Test::HasFailure()) << function << ", call " << call;
            }
        }
        faults.Clear();
        EXPECT_EQ(preview.Draw(record), whole) << "nothing lasts";
    }
}

}  // namespace
}  // namespace preview_test
