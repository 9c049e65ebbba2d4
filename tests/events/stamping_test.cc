#include "events/stamping.h"

#include <gmock/gmock.h>

#include "events/paper_metrics.h"
#include "platform/gdi/job.h"
#include "platform/seams/surface.h"
#include "settings/defaults.h"
#include "spooler/printer_data.h"
#include "tests/support/custom_papers.h"
#include "tests/support/records.h"
#include "tests/support/trace_text.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

class Escapes : public platform::gdi::EscapeTarget {
  public:
    int Escape(int, std::span<const std::uint8_t>, std::span<std::uint8_t>) override { return 1; }
};

class Stamping : public testing::Test {
  protected:
    Stamping()
    {
        BuildDefaultSettings(&record, nullptr, u"", 0);
        SetFields(record, "dmWatermarkOn=1 wmSize=72 wmShading=20");
        CopyToField(record.dmWatermark.wmFaceName, 32, u"Arial");
        CopyToField(record.dmWatermark.wmText, 73, u"COPY");
        StampPageCount = 0;
        StampReady = StampRepeat = false;
        job = platform::gdi::CreateJobContext({}, std::make_shared<platform::RecordingSurface>(), &escapes);
    }
    ~Stamping() override
    {
        platform::gdi::DeleteJobContext(job);
        EXPECT_EQ(platform::gdi::ObjectCount(), 0u);
    }
    PaperMetrics Metrics(int orientation, int code, HANDLE printer = nullptr)
    {
        PaperMetrics metrics{};
        GetPaperMetrics(printer, &metrics, record, orientation, code);
        return metrics;
    }
    std::vector<std::string> StampTraced()
    {
        const auto trace = std::make_shared<TraceLines>();
        platform::CurrentEnvironment().trace = trace;
        StampPage(job);
        return trace->Take();
    }

    Machine machine;
    Escapes escapes;
    DriverDevMode record{};
    HDC job = nullptr;
};

TEST_F(Stamping, MeasuresPagesInTheJobsResolution)
{
    record.dmPaperWidth = 1000;
    record.dmPaperLength = 2000;
    constexpr struct {
        int quality, orientation, code;
        WORD width, height, printableWidth, printableHeight, margin;
    } Rows[] = {
        {600,  1, 1,   5100, 6600,  4898, 6398,  100},
        {300,  2, 1,   3300, 2550,  3199, 2449,  50 },
        {1200, 1, 9,   9920, 14028, 9520, 13628, 200},
        {300,  1, 256, 1181, 2362,  1081, 2262,  50 },
        {300,  2, 256, 2362, 1181,  2262, 1081,  50 },
        {300,  1, 270, 2550, 3300,  2450, 3200,  50 },
        {300,  1, 100, 2550, 3300,  2449, 3199,  50 },
        {-1,   1, 11,  1748, 2480,  1648, 2380,  50 },
    };
    for (const auto& row : Rows) {
        record.dmPrintQuality = static_cast<SHORT>(row.quality);
        const PaperMetrics metrics = Metrics(row.orientation, row.code);
        EXPECT_THAT((std::vector{metrics.width, metrics.height, metrics.printableWidth, metrics.printableHeight,
                                 metrics.leftMargin, metrics.topMargin}),
                    ElementsAre(row.width, row.height, row.printableWidth, row.printableHeight, row.margin, row.margin))
            << "paper " << row.code << " at " << row.quality;
    }
}

TEST_F(Stamping, AStoredSizeIsTheLastRowWithItsCode)
{
    StorePapers(machine, {Entry(270, u"a", 0, 1000, 2000), Entry(270, u"b", 1, 800, 1100, 8, 0),
                          Entry(271, u"c", 1, 850, 1199, 0, 15)});
    lstrcpyW(PrinterName, OfficePrinter);
    HANDLE printer = nullptr;
    ASSERT_TRUE(OpenPrinterW(PrinterName, &printer, nullptr));
    record.dmPrintQuality = 300;
    const auto size = [&](int code) {
        return std::pair<int, int>(Metrics(1, code, printer).width, Metrics(1, code, printer).height);
    };
    EXPECT_EQ(size(270), std::pair(2539, 3295)) << "215 by 279 mm";
    EXPECT_EQ(size(271), std::pair(2397, 3578)) << "203 by 303 mm: hundredths of an inch do not count";
    ClosePrinter(printer);
}

// COPY is twice as wide as its font is high.
TEST_F(Stamping, PlacesTheTextOnEveryPageAtEveryAngle)
{
    record.dmPaperWidth = 1000;
    record.dmPaperLength = 2000;
    record.dmWatermark.wmAngleMode = 3;
    constexpr struct {
        SHORT code, orientation, quality, size, angle, positionX, positionY;
        LONG x, y;
    } Rows[] = {
        {1,   1, 300,  72,  30,   0,    0,   865,  1620},
        {1,   1, 300,  72,  89,   0,    0,   1044, 1897},
        {1,   1, 300,  72,  91,   0,    0,   1055, 1902},
        {1,   1, 300,  72,  -89,  0,    0,   1344, 1297},
        {1,   1, 300,  72,  -91,  0,    0,   1355, 1302},
        {1,   1, -1,   72,  -180, 0,    0,   1500, 1750},
        {1,   2, 600,  72,  120,  0,    0,   3240, 3069},
        {9,   1, 1200, 36,  -120, 0,    0,   5259, 6430},
        {9,   2, 300,  72,  -30,  50,   -50, 2348, 281 },
        {256, 1, 300,  72,  -90,  0,    0,   650,  800 },
        {256, 2, 300,  8,   45,   -100, 100, -22,  1006},
        {270, 1, 600,  200, 180,  0,    0,   4066, 4033},
    };
    for (const auto& row : Rows) {
        record.dmPaperSize = row.code;
        record.dmOrientation = row.orientation;
        record.dmPrintQuality = row.quality;
        record.dmWatermark.wmSize = row.size;
        record.dmWatermark.wmAngle = row.angle;
        record.dmWatermark.wmPositionX = row.positionX;
        record.dmWatermark.wmPositionY = row.positionY;
        ASSERT_EQ(PrepareWatermark(nullptr, record), 1);
        EXPECT_EQ(StampX, row.x) << "paper " << row.code << ", angle " << row.angle;
        EXPECT_EQ(StampY, row.y) << "paper " << row.code << ", angle " << row.angle;
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
