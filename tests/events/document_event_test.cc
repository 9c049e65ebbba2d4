#include <limits>

#include "tests/events/stamp_fixture.h"

namespace {

using namespace testing_support;
using testing::IsEmpty;

constexpr ULONG Word = sizeof(void*);

class DocumentEvents : public StampTest {
  protected:
    DocumentEvents() { record.dmWatermark.wmAngleMode = 2; }
    // What the platform hands over when a context is made; the reset has the record alone.
    int Create()
    {
        const void* const input[4] = {u"", u"", &record, nullptr};
        return Event(DOCUMENTEVENT_CREATEDCPRE, sizeof input, input);
    }
    int Reset()
    {
        const void* const input = &record;
        return Event(DOCUMENTEVENT_RESETDCPRE, sizeof input, &input);
    }
};

TEST_F(DocumentEvents, OfWhichNothingIsToBeDoneAreAnswered)
{
    for (const int code : {2, 4, 6, 0x10006, -0xFFFE}) EXPECT_EQ(Event(code), 1) << code;  // 0xFFFF0002
    for (const int code : {0, 9, 10, 11, 12, 255, -1, 0x10009, std::numeric_limits<int>::min()})
        EXPECT_EQ(Event(code), 0) << code;
    EXPECT_THAT(side.Take(), IsEmpty());
}

TEST_F(DocumentEvents, ACreationIsTakenWithItsFourWordsAndAResetWithItsOne)
{
    constexpr struct {
        int event;
        ULONG inputBytes, room;
        ULONG_PTR informationContext;
        int result;
        bool taken, stored;
    } Rows[] = {
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
    for (const auto& row : Rows) {
        record.dmPrintQuality = -3;
        StampRepeat = StampReady = true;
        const void* creation[5] = {u"", u"", &record, reinterpret_cast<void*>(row.informationContext)};
        const void* reset[2] = {&record};
        const void* output = nullptr;
        const void* input = row.event == 1 ? creation : reset;
        EXPECT_EQ(Event(row.event, row.inputBytes, input, row.room, &output), row.result) << row.inputBytes;
        EXPECT_EQ(record.dmPrintQuality, row.taken ? 600 : -3) << row.inputBytes << " " << row.informationContext;
        EXPECT_EQ(output, row.stored ? &record : nullptr) << row.room;
        EXPECT_FALSE(StampRepeat);
    }
}

TEST_F(DocumentEvents, AQualityThatIsNoResolutionIsReplaced)
{
    constexpr SHORT Rows[][3] = {
        {-3,  0,    600 },
        {-3,  1200, 1200},
        {-1,  -1,   600 },
        {-4,  1,    1   },
        {0,   1200, 0   },
        {300, 1200, 300 },
    };
    for (const auto& [quality, resolution, after] : Rows) {
        record.dmPrintQuality = quality;
        record.dmResolution = resolution;
        Create();
        EXPECT_EQ(record.dmPrintQuality, after) << quality << ", " << resolution;
    }
}

TEST_F(DocumentEvents, ARecordIsNotTouchedBehindItsEnd)
{
    constexpr int Rows[][3] = {
        {220, 1628, 1200},
        {220, 1627, 600 },
        {220, 0,    600 },
        {92,  0,    600 },
        {91,  0,    -3  },
        {0,   0,    1200},
    };
    for (const auto& [publicBytes, privateBytes, qualityAfter] : Rows) {
        SetFields(record, "dmPrintQuality=-3 dmResolution=1200 wmAngle=0");
        record.dmSize = static_cast<WORD>(publicBytes);
        record.dmDriverExtra = static_cast<WORD>(privateBytes);
        EXPECT_EQ(publicBytes == 92 ? Reset() : Create(), 1);
        EXPECT_EQ(record.dmPrintQuality, qualityAfter) << publicBytes << " + " << privateBytes;
        const bool whole = qualityAfter == 1200;
        EXPECT_EQ(record.dmWatermark.wmAngle, whole ? 53 : 0) << "the diagonal of the page";
        EXPECT_EQ(StampReady, whole);
    }
    record.dmWatermarkOn = 2;
    EXPECT_EQ(Reset(), 1);
    EXPECT_FALSE(StampReady);
}

TEST_F(DocumentEvents, APageIsStampedFromWhatTheRenderingSideHolds)
{
    constexpr std::tuple<int, DWORD, SHORT, const char*> rows[] = {
        {1,  1, 300, "text COPY at 900,1450" }, // answer, on, quality, the text that the page gets
        {1,  1, -3,  "text COPY at 1800,2900"}, // 600
        {1,  2, 300, ""                      },
        {1,  0, 300, ""                      },
        {0,  1, 300, ""                      },
        {-1, 1, 300, ""                      },
    };
    for (const auto& [answer, on, quality, text] : rows) {
        side.held = record;
        side.held.dmWatermarkOn = on;
        side.held.dmPrintQuality = quality;
        side.held.dmWatermark.wmAngleMode = 0;
        side.answer = answer;
        EXPECT_EQ(Event(7), 1);
        Log expected = {"5001 out 1848"};
        if (*text) expected.insert(expected.end(), {"mark 2829625512", text, "mark 0"});
        EXPECT_EQ(side.Take(), expected) << answer << ", " << on;
    }
    EXPECT_EQ(StampPageCount, 2u);
    Machine::Fail("GlobalAlloc");
    EXPECT_EQ(Event(7), 0);
    EXPECT_THAT(side.Take(), IsEmpty());
}

}  // namespace
