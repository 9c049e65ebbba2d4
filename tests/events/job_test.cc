// Whole jobs, event by event as the platform sends them.
#include <cstring>

#include "events/document_event.h"
#include "events/stamping.h"
#include "platform/kernel.h"
#include "platform/spooler/printers.h"
#include "settings/defaults.h"
#include "spooler/printer_data.h"
#include "tests/events/rendering_side.h"
#include "tests/spooler/printer_fixture.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;
using testing::IsSubsetOf;

class Jobs : public PrinterTest {
  protected:
    Jobs()
    {
        lstrcpyW(PrinterName, OfficePrinter);
        BuildDefaultSettings(&portrait, nullptr, u"", 0);
        portrait.dmPrintQuality = 300;
        portrait.dmWatermarkOn = 1;
        portrait.dmWatermark.wmSize = 72;
        portrait.dmWatermark.wmFirstPageOnly = 0;
        CopyToField(portrait.dmWatermark.wmFaceName, 32, u"Arial");
        CopyToField(portrait.dmWatermark.wmText, 73, u"COPY");
        landscape = portrait;
        landscape.dmOrientation = 2;
        StampReady = StampRepeat = false;
        StampPageCount = 0;
        StoreOverlay(1);
    }
    ~Jobs() override
    {
        PrinterName[0] = 0;
        platform::CurrentEnvironment().faults.Clear();
    }
    void StoreOverlay(std::uint8_t pending)
    {
        platform::Bytes list(4 + 1060);
        list[4 + 1048] = pending;
        Store(u"OverlayDataSize", 4, LittleEndian(1064));
        Store(u"OverlayData", 3, list);
    }
    std::uint8_t OverlayFlag() { return Stored(u"OverlayData")[4 + 1048]; }

    int Event(int code, ULONG inputBytes = 0, void* input = nullptr)
    {
        DriverDevMode* output = nullptr;
        const int result = DrvDocumentEvent(printer, side.job, code, inputBytes, input, sizeof output, &output);
        // The rendering side works with the record that the event hands on.
        if (output) side.held = *output;
        results.push_back(result);
        return result;
    }
    void Page()
    {
        Event(DOCUMENTEVENT_STARTPAGE);
        Event(DOCUMENTEVENT_ENDPAGE);
    }
    // Two pages in portrait, a reset, and one in landscape.
    Log Job()
    {
        results.clear();
        DriverDevMode first = portrait, second = landscape, *reset = &second;
        void* creation[4] = {nullptr, nullptr, &first, nullptr};
        Event(DOCUMENTEVENT_CREATEDCPRE, sizeof creation, creation);
        Event(DOCUMENTEVENT_CREATEDCPOST);
        Event(DOCUMENTEVENT_STARTDOC);
        Page();
        Page();
        Event(DOCUMENTEVENT_RESETDCPRE, sizeof reset, &reset);
        Event(DOCUMENTEVENT_RESETDCPOST);
        Page();
        Event(DOCUMENTEVENT_ENDDOC);
        Event(DOCUMENTEVENT_DELETEDC);
        return side.Take();
    }

    RenderingSide side;
    DriverDevMode portrait{}, landscape{};
    std::vector<int> results;
};

const Log WholeJob = {
    "20736 in 20",
    "20737 in 20",
    "20738 in 255",
    "20739 in 255",
    "20740 in 255",
    // Two pages in portrait.
    "5001 out 1848",
    "mark 2829625512",
    "text COPY at 900,1450",
    "mark 0",
    "5001 out 1848",
    "mark 2829625512",
    "text COPY at 900,1450",
    "mark 0",
    // One in landscape.
    "5001 out 1848",
    "mark 2829625512",
    "text COPY at 1300,1050",
    "mark 0",
};

TEST_F(Jobs, SendTheirHeaderAndStampEachPage)
{
    EXPECT_EQ(Job(), WholeJob);
    EXPECT_EQ(results, (std::vector<int>{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0}));
    EXPECT_EQ(OverlayFlag(), 0);
}

TEST_F(Jobs, StampTheirFirstPageAloneIfSoWished)
{
    portrait.dmWatermark.wmFirstPageOnly = landscape.dmWatermark.wmFirstPageOnly = 1;
    Log expected(WholeJob.begin(), WholeJob.begin() + 9);
    expected.insert(expected.end(), {"5001 out 1848", "5001 out 1848"});
    EXPECT_EQ(Job(), expected);
    EXPECT_EQ(Job(), expected);
}

TEST_F(Jobs, RepeatTheStampFromTheResetOn)
{
    landscape.dmNupOn = 1;
    landscape.dmNupCount = 2;
    Log expected = WholeJob;
    expected.insert(expected.end() - 1, 3, "text COPY at 1300,1050");
    EXPECT_EQ(Job(), expected);
}

// A call that fails while the mapping is set may shift the stamp.
Log WithoutPlaces(Log log)
{
    for (std::string& line : log) line.erase(std::min(line.find(" at "), line.size()));
    return log;
}

// Every call of the module, failing once: the job goes on and misses one page's stamp at most, and the context
// keeps all its settings.
TEST_F(Jobs, LeaveTheContextAsItWasWhateverFails)
{
    SetTextColor(side.job, 0x123456);
    SetBkMode(side.job, OPAQUE);
    SetROP2(side.job, R2_WHITE);
    SetTextAlign(side.job, TA_CENTER | TA_BASELINE);
    SetWindowOrgEx(side.job, 3, -4, nullptr);
    SetViewportOrgEx(side.job, 50, 60, nullptr);
    SelectObject(side.job, GetStockObject(ANSI_FIXED_FONT));
    const auto state = StateOf(side.job);

    auto& faults = platform::CurrentEnvironment().faults;
    faults.CountCalls(true);
    EXPECT_EQ(Job(), WholeJob);
    const auto calls = faults.Calls();
    EXPECT_EQ(StateOf(side.job), state);
    EXPECT_GE(calls.size(), 25u);
    for (const auto& [function, count] : calls) {
        if (function == "GlobalFree" || function == "ClosePrinter") continue;  // what they refuse stays
        for (std::uint64_t call = 1; call <= count; ++call) {
            faults.Clear();
            Machine::Fail(function.c_str(), call);
            StoreOverlay(1);
            const Log log = WithoutPlaces(Job());
            EXPECT_THAT(log, IsSubsetOf(WithoutPlaces(WholeJob))) << function << " " << call;
            EXPECT_GE(log.size() + 4, WholeJob.size()) << function << " " << call;
            EXPECT_EQ(StateOf(side.job), state) << function << " " << call;
            EXPECT_EQ(platform::gdi::ObjectCount(), 0u) << function << " " << call;
            EXPECT_EQ(platform::gdi::ContextCount(), 1u) << function << " " << call;
            EXPECT_EQ(results.size(), 13u);
        }
    }
}

}  // namespace
