#include "events/paper_metrics.h"
#include "tests/events/stamp_fixture.h"
#include "tests/support/custom_papers.h"
#include "tests/support/trace_text.h"

namespace {

using namespace testing_support;

class Stamping : public StampTest {
  protected:
    Stamping() { SetFields(record, "dmPaperWidth=1000 dmPaperLength=2000"); }
    PaperMetrics Metrics(int orientation, int code)
    {
        PaperMetrics metrics{};
        GetPaperMetrics(printer, &metrics, record, orientation, code);
        return metrics;
    }
    std::vector<std::string> StampTraced()
    {
        const auto trace = std::make_shared<TraceLines>();
        platform::CurrentEnvironment().trace = trace;
        StampPage(side.job);
        return trace->Take();
    }
};

TEST_F(Stamping, MeasuresPagesInTheJobsResolution)
{
    constexpr struct {
        SHORT quality;
        int orientation, code;
        std::array<WORD, 5> metrics;  // width, height, both of what can be printed, margin
    } Rows[] = {
        {600,  1, 1,   {5100, 6600, 4898, 6398, 100}  },
        {300,  2, 1,   {3300, 2550, 3199, 2449, 50}   },
        {1200, 1, 9,   {9920, 14028, 9520, 13628, 200}},
        {300,  1, 256, {1181, 2362, 1081, 2262, 50}   },
        {300,  2, 256, {2362, 1181, 2262, 1081, 50}   },
        {300,  1, 270, {2550, 3300, 2450, 3200, 50}   },
        {300,  1, 100, {2550, 3300, 2449, 3199, 50}   },
        {-1,   1, 11,  {1748, 2480, 1648, 2380, 50}   },
    };
    for (const auto& row : Rows) {
        record.dmPrintQuality = row.quality;
        const PaperMetrics m = Metrics(row.orientation, row.code);
        EXPECT_EQ((std::array{m.width, m.height, m.printableWidth, m.printableHeight, m.leftMargin}), row.metrics)
            << "paper " << row.code << " at " << row.quality;
        EXPECT_EQ(m.topMargin, m.leftMargin);
    }
}

TEST_F(Stamping, AStoredSizeIsTheLastRowWithItsCode)
{
    StorePapers(machine, {Entry(270, u"a", 0, 1000, 2000), Entry(270, u"b", 1, 800, 1100, 8, 0),
                          Entry(271, u"c", 1, 850, 1199, 0, 15)});
    const auto size = [&](int code) { return std::pair<int, int>(Metrics(1, code).width, Metrics(1, code).height); };
    EXPECT_EQ(size(270), std::pair(2539, 3295)) << "215 by 279 mm";
    EXPECT_EQ(size(271), std::pair(2397, 3578)) << "203 by 303 mm: hundredths of an inch do not count";
}

// COPY is twice as wide as its font is high.
TEST_F(Stamping, PlacesTheTextOnEveryPageAtEveryAngle)
{
    constexpr std::tuple<const char*, LONG, LONG> rows[] = {
        {"dmPaperSize=1 wmAngleMode=3 wmAngle=30",                                                  865,  1620},
        {"wmAngle=91",                                                                              1055, 1902},
        {"wmAngle=-180 dmPrintQuality=-1",                                                          1500, 1750},
        {"wmAngle=120 dmPrintQuality=600 dmOrientation=2",                                          3240, 3069},
        {"wmAngle=-120 dmPrintQuality=1200 dmPaperSize=9 dmOrientation=1 wmSize=36",                5259, 6430},
        {"wmAngle=-30 dmPrintQuality=300 dmOrientation=2 wmSize=72 wmPositionX=50 wmPositionY=-50", 2348, 281 },
        {"wmAngle=-90 dmPaperSize=256 dmOrientation=1 wmPositionX=0 wmPositionY=0",                 650,  800 },
        {"wmAngle=45 dmOrientation=2 wmSize=8 wmPositionX=-100 wmPositionY=100",                    -22,  1006},
    };
    for (const auto& [fields, x, y] : rows) {
        SetFields(record, fields);
        ASSERT_EQ(PrepareWatermark(nullptr, record), 1);
        EXPECT_EQ(std::pair(StampX, StampY), std::pair(x, y)) << fields;
    }
}

TEST_F(Stamping, TheTextMayBeEmptyOrWithoutTerminator)
{
    CopyToField(record.dmWatermark.wmText, 73, u"");
    PrepareWatermark(nullptr, record);
    const auto calls = StampTraced();
    EXPECT_THAT(calls, testing::Contains(testing::HasSubstr(",0,null,\"\",0,null]")));
    EXPECT_THAT(calls, testing::Contains(testing::HasSubstr("ExtEscape")).Times(2));

    std::ranges::fill(record.dmWatermark.wmText, u'M');
    PrepareWatermark(nullptr, record);
    EXPECT_EQ(std::u16string(StampText.data()), std::u16string(73, u'M'));
    EXPECT_THAT(StampTraced(), testing::Contains(testing::HasSubstr("M\",73,null]")));
}

}  // namespace
