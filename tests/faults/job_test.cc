// A whole job: an application asks for the record, prints three pages with a watermark, and ends an overlay's
// waiting.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "events/document_event.h"
#include "events/stamping.h"
#include "module.h"
#include "platform/kernel.h"
#include "platform/spooler/printers.h"
#include "settings/defaults.h"
#include "settings/wide_text.h"
#include "spooler/document_properties.h"
#include "spooler/printer_data.h"
#include "tests/faults/every_place.h"
#include "tests/support/overlays.h"
#include "tests/support/records.h"
#include "tests/support/rendering_side.h"

namespace testing_support {
namespace {

// What an event answers, in the order of the job.
struct Event {
    int code;
    int result;
};
constexpr Event Job[] = {
    {DOCUMENTEVENT_CREATEDCPRE,  1},
    {DOCUMENTEVENT_CREATEDCPOST, 1},
    {DOCUMENTEVENT_STARTDOC,     1},
    {DOCUMENTEVENT_STARTPAGE,    1},
    {DOCUMENTEVENT_ENDPAGE,      1},
    {DOCUMENTEVENT_STARTPAGE,    1},
    {DOCUMENTEVENT_ENDPAGE,      1},
    {DOCUMENTEVENT_RESETDCPRE,   1},
    {DOCUMENTEVENT_RESETDCPOST,  1},
    {DOCUMENTEVENT_STARTPAGE,    1},
    {DOCUMENTEVENT_ENDPAGE,      1},
    {DOCUMENTEVENT_ENDDOC,       1},
    {DOCUMENTEVENT_DELETEDC,     0},
};

DriverDevMode AskedFor()
{
    DriverDevMode record;
    BuildDefaultSettings(&record, OfficeDriver, OfficePrinter, 0);
    record.dmPrintQuality = 300;
    record.dmWatermarkOn = 1;
    record.dmWatermark = {};
    record.dmWatermark.wmSize = 72;
    record.dmWatermark.wmShading = 20;
    CopyBounded(record.dmWatermark.wmFaceName, u"Arial", std::size(record.dmWatermark.wmFaceName));
    CopyBounded(record.dmWatermark.wmText, u"COPY", std::size(record.dmWatermark.wmText));
    return record;
}

// Sends one event; the rendering side works with the record that comes back.
int Send(HANDLE printer, RenderingSide& side, int code, DriverDevMode& record)
{
    DriverDevMode *reset = &record, *output = nullptr;
    void* creation[4] = {nullptr, nullptr, &record, nullptr};
    const bool creates = code == DOCUMENTEVENT_CREATEDCPRE;
    void* input = creates ? static_cast<void*>(creation) : &reset;
    const int result = DrvDocumentEvent(printer, side.job, code, creates ? sizeof creation : sizeof reset, input,
                                        sizeof output, &output);
    if (output) side.held = *output;
    return result;
}

// The escapes and texts of the job; where a text stands depends on what could be set.
Log WithoutPlaces(Log log)
{
    for (std::string& line : log) line.erase(std::min(line.find(" at "), line.size()));
    return log;
}

// What the rendering side got while nothing failed.
struct Heard {
    Log log;
    std::vector<std::string> inputs;
};

void WalkTheJob(Attempt& attempt, Heard& whole)
{
    Machine machine;
    StoreOverlays(machine, OfficePrinter, {Overlay(u"Kept", u"/k.oxl"), Overlay(u"New", u"/n.oxl", 1)});
    const platform::Bytes pending = machine.store->Value(OfficePrinter, u"OverlayData")->bytes;
    RenderingSide side;
    side.leavesNothing = false;  // not where nothing can be given back
    for (int setting : {0, 1}) SetWindowOrgEx(side.job, 3 * setting, -4 * setting, nullptr);
    SetTextColor(side.job, 0x123456);
    SetTextAlign(side.job, TA_CENTER | TA_BASELINE);
    const auto state = StateOf(side.job);
    HANDLE printer = platform::spooler::Open(OfficePrinter, 0);
    std::u16string name = OfficePrinter;
    DriverDevMode asked = AskedFor(), record = asked;
    PrinterName[0] = 0;
    StampPageCount = 0;

    attempt.Begin();
    const LONG answer = DrvDocumentProperties(nullptr, printer, name.data(), PublicPart(&record), PublicPart(&asked),
                                              DM_MODIFY | DM_COPY);
    EXPECT_THAT(answer, testing::AnyOf(IDOK, -1));
    if (answer != IDOK) {
        EXPECT_EQ(BytesOf(record), BytesOf(asked));
    }
    std::uint64_t silent = 0;
    for (const Event& event : Job) {
        const int result = Send(printer, side, event.code, record);
        if (event.code == DOCUMENTEVENT_ENDPAGE && result == 0)
            ++silent;
        else
            EXPECT_EQ(result, event.result) << event.code;
    }
    attempt.End();

    platform::spooler::Close(printer);
    EXPECT_LE(silent, attempt.Failed({"GlobalAlloc"}));  // only a page without a buffer is not known
    EXPECT_EQ(StampPageCount, 0);
    // A setting comes back unless it is refused for good.
    if (attempt.Clean() || attempt.Single()) {
        EXPECT_EQ(StateOf(side.job), state);
    }
    const Log log = WithoutPlaces(side.log);
    if (attempt.Clean()) {
        whole = {log, side.inputs};
        EXPECT_EQ(log.size(), 5u + 3 * 4);
    }
    EXPECT_THAT(log, testing::IsSubsetOf(whole.log));
    if (attempt.Single() && record.dmWatermarkOn == 1) {  // the record may not have been merged
        EXPECT_GE(log.size() + 4, whole.log.size());      // no more than one page's stamp
    }
    // The head of the job tells what it would or, where something could not be known, less; never something else.
    const std::string system = "OS: ", user = "Username: ";
    for (const std::string& input : side.inputs) {
        const bool short_ = input.empty() || input[0] == 0;
        const bool known = std::ranges::find(whole.inputs, input) != whole.inputs.end();
        EXPECT_TRUE(short_ || known || input.starts_with(system) || input.starts_with(user)) << input;
    }
    // The overlay waits on or is there to be used; nothing else of the list changes.
    platform::Bytes ready = pending;
    ready[4 + sizeof(OverlayEntry) + offsetof(OverlayEntry, ovPending)] = 0;
    const platform::Bytes stored = machine.store->Value(OfficePrinter, u"OverlayData")->bytes;
    EXPECT_THAT(stored, testing::AnyOf(pending, ready));
    if (attempt.Clean()) {
        EXPECT_EQ(stored, ready);
    }
    EXPECT_EQ(machine.store->Value(OfficePrinter, u"OverlayDataSize")->bytes.size(), 4u);
    EXPECT_EQ(machine.store->Values(OfficePrinter).size(), 2u);
}

class TheJob : public FailingCalls {};
TEST_P(TheJob, GoesOn)
{
    if (!ModuleHandle) DllInitialize(LoadLibraryW(QD_MODULE_PATH), DLL_PROCESS_ATTACH, nullptr);
    Heard whole;
    TryEveryPlace("the job", GetParam(), 1, [&whole](Attempt& attempt) { WalkTheJob(attempt, whole); });
}
INSTANTIATE_TEST_SUITE_P(EveryCallThatFails, TheJob, testing::ValuesIn(EveryWay), NameOfWay);

}  // namespace
}  // namespace testing_support
