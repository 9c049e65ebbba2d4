// The trace: every drawing call and escape of the module, in order, as it was called.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/types.h"

namespace platform {

// A value of a traced call: nothing, a number, a text, bytes, a row of values, or named values.
struct TraceValue {
    using Array = std::vector<TraceValue>;
    using Object = std::vector<std::pair<std::string, TraceValue>>;
    struct Binary {
        std::vector<std::uint8_t> bytes;
    };
    std::variant<std::monostate, std::int64_t, std::u16string, Binary, Array, Object> value;

    TraceValue() = default;
    TraceValue(std::int64_t number) : value(number) {}
    TraceValue(int number) : value(std::int64_t{number}) {}
    TraceValue(DWORD number) : value(std::int64_t{number}) {}
    TraceValue(std::u16string text) : value(std::move(text)) {}
    TraceValue(Binary bytes) : value(std::move(bytes)) {}
    TraceValue(Array values) : value(std::move(values)) {}
    TraceValue(Object values) : value(std::move(values)) {}
};

// What the context of a call belongs to.
struct TraceOwner {
    enum class Kind { None, Control, Job } kind = Kind::None;
    int control = 0;  // 0 for a dialog itself
};

struct TraceCall {
    const char* function = "";
    TraceValue context;  // number of the context, or nothing
    TraceOwner on;
    TraceValue::Array args;
    TraceValue result;
};

class QD_API TraceSink {
  public:
    virtual ~TraceSink() = default;
    virtual void Call(const TraceCall& call) = 0;
};

}  // namespace platform
