// Whole jobs, event by event as the platform sends them.
#include "tests/events/stamp_fixture.h"
#include "tests/support/overlays.h"

namespace {

using namespace testing_support;

class Jobs : public StampTest {
  protected:
    Jobs()
    {
        landscape = portrait;
        landscape.dmOrientation = 2;
        StoreOverlays(machine, OfficePrinter, {Overlay(u"A", u"/a.oxl", 1)});
    }
    void Send(int code, ULONG inputBytes = 0, const void* input = nullptr)
    {
        DriverDevMode* output = nullptr;
        results.push_back(Event(code, inputBytes, input, sizeof output, &output));
        // The rendering side works with the record that the event hands on.
        if (output) side.held = *output;
    }
    void Page()
    {
        Send(DOCUMENTEVENT_STARTPAGE);
        Send(DOCUMENTEVENT_ENDPAGE);
    }
    // Two pages in portrait, a reset, and one in landscape.
    Log Job()
    {
        results.clear();
        DriverDevMode first = portrait, second = landscape, *reset = &second;
        const void* creation[4] = {nullptr, nullptr, &first, nullptr};
        Send(DOCUMENTEVENT_CREATEDCPRE, sizeof creation, creation);
        Send(DOCUMENTEVENT_CREATEDCPOST);
        Send(DOCUMENTEVENT_STARTDOC);
        Page();
        Page();
        Send(DOCUMENTEVENT_RESETDCPRE, sizeof reset, &reset);
        Send(DOCUMENTEVENT_RESETDCPOST);
        Page();
        Send(DOCUMENTEVENT_ENDDOC);
        Send(DOCUMENTEVENT_DELETEDC);
        return side.Take();
    }

    DriverDevMode &portrait = record, landscape{};
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
