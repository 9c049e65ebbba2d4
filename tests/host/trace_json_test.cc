#include "host/trace_json.h"

#include "host/errors.h"

namespace {

using namespace host;
using platform::TraceCall;
using platform::TraceOwner;
using platform::TraceValue;

struct Row {
    TraceCall call;
    const char* line;
};

class Trace : public testing::TestWithParam<Row> {};

TEST_P(Trace, IsOneLineACall) { EXPECT_EQ(ToLine(TraceLine(GetParam().call)), GetParam().line); }

const TraceValue Pen(TraceValue::Object{
    {"pen", TraceValue::Object{{"style", 0}, {"width", 1}, {"color", 0xFFFFFF}}}
});

INSTANTIATE_TEST_SUITE_P(
    Host, Trace,
    testing::Values(
        Row{
            {"GetClientRect", {}, {TraceOwner::Kind::Control, 1019}, {}, TraceValue::Array{0, 0, 137, 161}},
            R"({"call": "GetClientRect", "dc": null, "on": 1019, "args": [], "result": [0, 0, 137, 161]})"
},
        Row{{"SelectObject", 3, {TraceOwner::Kind::Control, 0}, {Pen}, TraceValue::Object{{"stock", 7}}},
            R"({"call": "SelectObject", "dc": 3, "on": 0, "args": [{"pen": {"style": 0, "width": 1, )"
            R"("color": 16777215}}], "result": {"stock": 7}})"},
        Row{{"ExtEscape", 9, {TraceOwner::Kind::Job, 0}, {20736, TraceValue::Binary{{0x32, 0x0A}}, 0, {}}, 1},
            R"({"call": "ExtEscape", "dc": 9, "on": "job", "args": [20736, "320a", 0, null], "result": 1})"},
        Row{{"TextOutW", 5, {}, {std::u16string(u"\u00C4\"")}, {}},
            "{\"call\": \"TextOutW\", \"dc\": 5, \"on\": null, \"args\": [\"\xC3\x84\\\"\"], \"result\": null}"}));

TEST(TraceFile, TellsThatItCannotBeWritten)
{
    EXPECT_THROW(TraceFile("/nowhere/trace"), Failure);
    TraceFile full("/dev/full");
    full.Call({"GetDC", {}, {}, {}, 1});
    EXPECT_THROW(full.Check(), Failure);
}

}  // namespace
