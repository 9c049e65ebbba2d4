// Records that no page would write, and windows of any size. The rig expects that no object is left and that each
// context is given back as it came.
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

}  // namespace
}  // namespace preview_test
