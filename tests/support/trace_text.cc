#include "tests/support/trace_text.h"

#include <utility>

#include "platform/kernel/unicode.h"

namespace testing_support {

namespace {

using platform::TraceOwner;
using platform::TraceValue;

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::string OwnerText(const TraceOwner& owner)
{
    switch (owner.kind) {
        case TraceOwner::Kind::Control:
            return std::to_string(owner.control);
        case TraceOwner::Kind::Job:
            return "job";
        case TraceOwner::Kind::None:
            break;
    }
    return "-";
}

}  // namespace

std::string TraceText(const TraceValue& value)
{
    return std::visit(Overloaded{
                          [](std::monostate) { return std::string("null"); },
                          [](std::int64_t number) { return std::to_string(number); },
                          [](const std::u16string& text) { return '"' + platform::ToUtf8(text) + '"'; },
                          [](const TraceValue::Binary& binary) {
                              std::string text = "x";
                              for (const std::uint8_t byte : binary.bytes)
                                  for (const int digit : {byte >> 4, byte & 15}) text += "0123456789abcdef"[digit];
                              return text;
                          },
                          [](const TraceValue::Array& values) {
                              std::string text;
                              for (const TraceValue& one : values) {
                                  if (!text.empty()) text += ',';
                                  text += TraceText(one);
                              }
                              return '[' + text + ']';
                          },
                          [](const TraceValue::Object& values) {
                              std::string text;
                              for (const auto& [name, one] : values) {
                                  if (!text.empty()) text += ',';
                                  text += name;
                                  text += ':';
                                  text += TraceText(one);
                              }
                              return '{' + text + '}';
                          },
                      },
                      value.value);
}

void TraceLines::Call(const platform::TraceCall& call)
{
    std::string line = OwnerText(call.on) + ' ' + call.function + ' ' + TraceText(TraceValue(call.args));
    if (withResults_) line += " = " + TraceText(call.result);
    const std::lock_guard lock(mutex_);
    lines_.push_back(std::move(line));
}

std::vector<std::string> TraceLines::Take()
{
    const std::lock_guard lock(mutex_);
    return std::exchange(lines_, {});
}

}  // namespace testing_support
