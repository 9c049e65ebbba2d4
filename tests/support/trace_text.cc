#include "tests/support/trace_text.h"

#include <utility>

#include "platform/kernel/unicode.h"

namespace testing_support {

using platform::TraceOwner;
using platform::TraceValue;

std::string TraceText(const TraceValue& value)
{
    const auto listed = [](const auto& values, const auto& textOf) {
        std::string list;
        for (const auto& one : values) list += (list.empty() ? "" : ",") + textOf(one);
        return list;
    };
    const auto& held = value.value;
    if (const auto* number = std::get_if<std::int64_t>(&held)) return std::to_string(*number);
    if (const auto* text = std::get_if<std::u16string>(&held)) return '"' + platform::ToUtf8(*text) + '"';
    if (const auto* values = std::get_if<TraceValue::Array>(&held)) return '[' + listed(*values, TraceText) + ']';
    if (const auto* fields = std::get_if<TraceValue::Object>(&held))
        return '{' + listed(*fields, [](const auto& one) { return one.first + ':' + TraceText(one.second); }) + '}';
    const auto* binary = std::get_if<TraceValue::Binary>(&held);
    if (!binary) return "null";
    std::string text = "x";
    for (const std::uint8_t byte : binary->bytes)
        for (const int digit : {byte >> 4, byte & 15}) text += "0123456789abcdef"[digit];
    return text;
}

void TraceLines::Call(const platform::TraceCall& call)
{
    std::string line = call.on.kind == TraceOwner::Kind::Control ? std::to_string(call.on.control)
                       : call.on.kind == TraceOwner::Kind::Job   ? "job"
                                                                 : "-";
    line += std::string(" ") + call.function + ' ' + TraceText(TraceValue(call.args));
    if (withResults_) line += " = " + TraceText(call.result);
    lines_.push_back(std::move(line));
}

std::vector<std::string> TraceLines::Take() { return std::exchange(lines_, {}); }

}  // namespace testing_support
