// Whole jobs, event by event as the platform sends them.
#include "events/document_event.h"
#include "events/stamping.h"
#include "platform/kernel.h"
#include "platform/spooler/printers.h"
#include "settings/defaults.h"
#include "spooler/printer_data.h"
#include "tests/events/rendering_side.h"
#include "tests/spooler/printer_fixture.h"
#include "tests/support/overlays.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;

class Jobs : public PrinterTest {
  protected:
    Jobs()
    {
        lstrcpyW(PrinterName, OfficePrinter);
        BuildDefaultSettings(&portrait, nullptr, u"", 0);
        SetFields(portrait, "dmPrintQuality=300 dmWatermarkOn=1 wmSize=72 wmFirstPageOnly=0");
        CopyToField(portrait.dmWatermark.wmFaceName, 32, u"Arial");
        CopyToField(portrait.dmWatermark.wmText, 73, u"COPY");
        landscape = portrait;
        landscape.dmOrientation = 2;
        StampReady = StampRepeat = false;
        StampPageCount = 0;
        StoreOverlays(machine, OfficePrinter, {Overlay(u"A", u"/a.oxl", 1)});
    }
    ~Jobs() override { PrinterName[0] = 0; }
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

const Log Header = {"20736 in 20", "20737 in 20", "20738 in 255", "20739 in 255", "20740 in 255"};

// What has come, and a page with the text so many times.
Log With(Log log, const char* text, std::size_t times = 1)
{
    log.insert(log.end(), {"5001 out 1848", "mark 2829625512"});
    log.insert(log.end(), times, text);
    log.push_back("mark 0");
    return log;
}
const Log Portrait = With(With(Header, "text COPY at 900,1450"), "text COPY at 900,1450");
const Log WholeJob = With(Portrait, "text COPY at 1300,1050");

TEST_F(Jobs, SendTheirHeaderStampEachPageAndLeaveTheContextAsItWas)
{
    SetTextColor(side.job, 0x123456);
    SetROP2(side.job, R2_WHITE);
    SetTextAlign(side.job, TA_CENTER | TA_BASELINE);
    SetWindowOrgEx(side.job, 3, -4, nullptr);
    SetViewportOrgEx(side.job, 50, 60, nullptr);
    SelectObject(side.job, GetStockObject(ANSI_FIXED_FONT));
    const auto state = StateOf(side.job);
    EXPECT_EQ(Job(), WholeJob);
    EXPECT_EQ(StateOf(side.job), state);
    EXPECT_EQ(results, (std::vector<int>{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0}));
    EXPECT_EQ(OverlaysOf(machine, OfficePrinter).rows[0].ovPending, 0u);
}

TEST_F(Jobs, StampTheirFirstPageAloneIfSoWished)
{
    portrait.dmWatermark.wmFirstPageOnly = landscape.dmWatermark.wmFirstPageOnly = 1;
    Log expected = With(Header, "text COPY at 900,1450");
    expected.insert(expected.end(), {"5001 out 1848", "5001 out 1848"});
    EXPECT_EQ(Job(), expected);
    EXPECT_EQ(Job(), expected);
}

TEST_F(Jobs, RepeatTheStampFromTheResetOn)
{
    landscape.dmNupOn = 1;
    landscape.dmNupCount = 2;
    EXPECT_EQ(Job(), With(Portrait, "text COPY at 1300,1050", 4));
    landscape.dmNupCount = 1;
    EXPECT_EQ(Job(), WholeJob);
}

}  // namespace
