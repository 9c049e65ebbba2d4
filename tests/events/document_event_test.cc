#include "events/document_event.h"

#include <cstddef>
#include <limits>

#include "events/stamping.h"
#include "settings/defaults.h"
#include "tests/events/rendering_side.h"
#include "tests/support/machine.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr ULONG Word = sizeof(void*);

// What the platform hands over when a context is made; the reset has the record alone.
struct Creation {
    const WCHAR *driver, *device;
    const void* record;
    ULONG_PTR informationContext;
};
static_assert(sizeof(Creation) == 4 * sizeof(void*));

class DocumentEvents : public testing::Test {
  protected:
    DocumentEvents()
    {
        BuildDefaultSettings(&record, nullptr, u"", 0);
        record.dmPrintQuality = 300;
        record.dmWatermarkOn = 1;
        record.dmWatermark.wmSize = 72;
        record.dmWatermark.wmAngleMode = 2;
        CopyToField(record.dmWatermark.wmFaceName, 32, u"Arial");
        CopyToField(record.dmWatermark.wmText, 73, u"COPY");
        StampPageCount = 0;
        StampReady = StampRepeat = false;
    }
    int Event(int code, ULONG inputBytes = 0, const void* input = nullptr, ULONG room = 0, void* output = nullptr)
    {
        return DrvDocumentEvent(nullptr, side.job, code, inputBytes, const_cast<void*>(input), room, output);
    }
    int Create(const void* given)
    {
        const Creation input{u"", u"", given, 0};
        return Event(DOCUMENTEVENT_CREATEDCPRE, sizeof input, &input);
    }
    int Reset(const void* given) { return Event(DOCUMENTEVENT_RESETDCPRE, sizeof given, &given); }

    Machine machine;
    RenderingSide side;
    DriverDevMode record{};
};

struct CodeRow {
    int code, result;
};

TEST_F(DocumentEvents, OfWhichNothingIsToBeDoneAreAnswered)
{
    constexpr CodeRow Rows[] = {
        {0,                               0},
        {2,                               1},
        {4,                               1},
        {6,                               1},
        {9,                               0},
        {10,                              0},
        {11,                              0},
        {12,                              0},
        {255,                             0},
        {-1,                              0},
        {0x10006,                         1},
        {0x10009,                         0},
        {-0xFFFE,                         1}, // 0xFFFF0002
        {std::numeric_limits<int>::min(), 0},
    };
    for (const CodeRow& row : Rows) EXPECT_EQ(Event(row.code), row.result) << row.code;
    EXPECT_THAT(side.Take(), IsEmpty());
}

struct TransferRow {
    int event;
    ULONG inputBytes, room;
    ULONG_PTR informationContext;
    int result;
    bool taken, stored;
};

TEST_F(DocumentEvents, ACreationIsTakenWithItsFourWordsAndAResetWithItsOne)
{
    constexpr TransferRow Rows[] = {
        {1, 4 * Word,     Word,     0, 1, true,  true },
        {1, 4 * Word,     Word - 1, 0, 1, true,  false},
        {1, 4 * Word,     Word,     1, 0, false, false},
        {1, 4 * Word - 1, Word,     0, 0, false, false},
        {1, 4 * Word + 1, Word,     0, 0, false, false},
        {1, 0,            Word,     0, 0, false, false},
        {3, Word,         Word,     0, 1, true,  true },
        {3, Word,         Word + 1, 0, 1, true,  true },
        {3, Word,         Word - 1, 0, 1, true,  false},
        {3, Word - 1,     Word,     0, 1, false, false},
        {3, Word + 1,     Word,     0, 1, false, false},
        {3, 0,            Word,     0, 1, false, false},
    };
    for (const TransferRow& row : Rows) {
        record.dmPrintQuality = -3;
        StampRepeat = StampReady = true;
        const Creation creation[2] = {
            {u"", u"", &record, row.informationContext}
        };
        const void* reset[2] = {&record, nullptr};
        const void* output = nullptr;
        const void* input = row.event == 1 ? static_cast<const void*>(creation) : reset;
        EXPECT_EQ(Event(row.event, row.inputBytes, input, row.room, &output), row.result) << row.inputBytes;
        EXPECT_EQ(record.dmPrintQuality, row.taken ? 600 : -3) << row.inputBytes << " " << row.informationContext;
        EXPECT_EQ(output, row.stored ? &record : nullptr) << row.room;
        EXPECT_FALSE(StampRepeat);
    }
}

struct QualityRow {
    SHORT quality, resolution, after;
};

TEST_F(DocumentEvents, AQualityThatIsNoResolutionIsReplaced)
{
    constexpr QualityRow Rows[] = {
        {-3,  0,    600 },
        {-3,  1200, 1200},
        {-1,  -1,   600 },
        {-4,  1,    1   },
        {0,   1200, 0   },
        {300, 1200, 300 },
    };
    for (const QualityRow& row : Rows) {
        record.dmPrintQuality = row.quality;
        record.dmResolution = row.resolution;
        Create(&record);
        EXPECT_EQ(record.dmPrintQuality, row.after) << row.quality << ", " << row.resolution;
    }
}

TEST_F(DocumentEvents, TheDiagonalOfThePageGoesIntoTheCallersRecord)
{
    for (const DWORD on : {1, 0, 2}) {
        for (const bool created : {true, false}) {
            record.dmWatermarkOn = on;
            record.dmWatermark.wmAngle = 0;
            StampReady = true;
            EXPECT_EQ(created ? Create(&record) : Reset(&record), 1);
            EXPECT_EQ(StampReady, on == 1);
            EXPECT_EQ(record.dmWatermark.wmAngle, on == 1 ? 53 : 0) << on;
        }
    }
    EXPECT_THAT(side.Take(), IsEmpty());
}

struct ShortRow {
    std::size_t publicBytes, privateBytes;
    SHORT qualityAfter;
};

TEST_F(DocumentEvents, ARecordIsNotTouchedBehindItsEnd)
{
    constexpr ShortRow Rows[] = {
        {220, 1628, 1200},
        {220, 1627, 600 },
        {220, 0,    600 },
        {92,  0,    600 },
        {91,  0,    -3  },
        {0,   0,    1200},
    };
    for (const ShortRow& row : Rows) {
        record.dmSize = static_cast<WORD>(row.publicBytes);
        record.dmDriverExtra = static_cast<WORD>(row.privateBytes);
        record.dmPrintQuality = -3;
        record.dmResolution = 1200;
        record.dmWatermark.wmAngle = 0;
        EXPECT_EQ(Create(&record), 1);
        EXPECT_EQ(record.dmPrintQuality, row.qualityAfter) << row.publicBytes << " + " << row.privateBytes;
        const bool whole = row.qualityAfter == 1200;
        EXPECT_EQ(record.dmWatermark.wmAngle, whole ? 53 : 0);
        EXPECT_EQ(StampReady, whole);
    }
}

struct PageRow {
    int answer;
    DWORD on;
    SHORT quality;
    const char* text;  // that the page gets; null: none
};

TEST_F(DocumentEvents, APageIsStampedFromWhatTheRenderingSideHolds)
{
    constexpr PageRow Rows[] = {
        {1,  1, 300, "text COPY at 900,1450" },
        {1,  1, -3,  "text COPY at 1800,2900"}, // 600
        {1,  2, 300, nullptr                 },
        {1,  0, 300, nullptr                 },
        {0,  1, 300, nullptr                 },
        {-1, 1, 300, nullptr                 },
    };
    for (const PageRow& row : Rows) {
        side.held = record;
        side.held.dmWatermarkOn = row.on;
        side.held.dmPrintQuality = row.quality;
        side.held.dmWatermark.wmAngleMode = 0;
        side.answer = row.answer;
        EXPECT_EQ(Event(7), 1);
        const Log log = side.Take();
        ASSERT_FALSE(log.empty());
        EXPECT_EQ(log[0], "5001 out 1848");
        if (row.text)
            EXPECT_THAT(log, ElementsAre("5001 out 1848", "mark 2829625512", row.text, "mark 0"));
        else
            EXPECT_EQ(log.size(), 1u) << row.answer << ", " << row.on;
    }
    EXPECT_EQ(StampPageCount, 2u);
    Machine::Fail("GlobalAlloc");
    EXPECT_EQ(Event(7), 0);
    EXPECT_THAT(side.Take(), IsEmpty());
}

}  // namespace
