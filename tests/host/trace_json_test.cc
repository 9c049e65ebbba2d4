#include "host/trace_json.h"

#include "host/errors.h"

namespace {

using namespace host;
using platform::TraceCall;
using platform::TraceOwner;
using platform::TraceValue;

TEST(Trace, IsOneLineACall)
{
    const TraceValue pen(TraceValue::Object{
        {"pen", TraceValue::Object{{"style", 0}, {"width", 1}, {"color", 0xFFFFFF}}}
    });
    const std::pair<TraceCall, const char*> rows[] = {
        {{"GetClientRect", {}, {TraceOwner::Kind::Control, 1019}, {}, TraceValue::Array{0, 0, 137, 161}},
         R"({"call": "GetClientRect", "dc": null, "on": 1019, "args": [], "result": [0, 0, 137, 161]})"     },
        {{"SelectObject", 3, {TraceOwner::Kind::Control, 0}, {pen}, TraceValue::Object{{"stock", 7}}},
         R"({"call": "SelectObject", "dc": 3, "on": 0, "args": [{"pen": {"style": 0, "width": 1, )"
         R"("color": 16777215}}], "result": {"stock": 7}})"                                                 },
        {{"ExtEscape", 9, {TraceOwner::Kind::Job, 0}, {20736, TraceValue::Binary{{0x32, 0x0A}}, 0, {}}, 1},
         R"({"call": "ExtEscape", "dc": 9, "on": "job", "args": [20736, "320a", 0, null], "result": 1})"    },
        {{"TextOutW", 5, {}, {std::u16string(u"\u00C4\"")}, {}},
         "{\"call\": \"TextOutW\", \"dc\": 5, \"on\": null, \"args\": [\"\xC3\x84\\\"\"], \"result\": null}"},
    };
    for (const auto& [call, line] : rows) EXPECT_EQ(ToLine(TraceLine(call)), line);
}

TEST(TraceFile, TellsThatItCannotBeWritten)
{
    EXPECT_THROW(TraceFile("/nowhere/trace"), Failure);
    TraceFile full("/dev/full");
    full.Call({"GetDC", {}, {}, {}, 1});
    EXPECT_THROW(full.Check(), Failure);
}

}  // namespace
