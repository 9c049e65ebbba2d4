#include "host/trace_json.h"

namespace host {

namespace {

using platform::TraceOwner;
using platform::TraceValue;

struct ToJson {
    Json operator()(std::monostate) const { return nullptr; }
    Json operator()(std::int64_t number) const { return number; }
    Json operator()(const std::u16string& text) const { return Text(text); }
    Json operator()(const TraceValue::Binary& binary) const { return Hex(binary.bytes); }
    Json operator()(const TraceValue::Array& values) const
    {
        Json array = Json::array();
        for (const TraceValue& value : values) array.push_back(std::visit(*this, value.value));
        return array;
    }
    Json operator()(const TraceValue::Object& members) const
    {
        Json object = Json::object();
        for (const auto& [name, value] : members) object[name] = std::visit(*this, value.value);
        return object;
    }
};

Json Value(const TraceValue& value) { return std::visit(ToJson{}, value.value); }

Json Owner(const TraceOwner& owner)
{
    switch (owner.kind) {
        case TraceOwner::Kind::Control:
            return owner.control;
        case TraceOwner::Kind::Job:
            return "job";
        case TraceOwner::Kind::None:
            break;
    }
    return nullptr;
}

}  // namespace

Json TraceLine(const platform::TraceCall& call)
{
    Json line;
    line["call"] = call.function;
    line["dc"] = Value(call.context);
    line["on"] = Owner(call.on);
    line["args"] = ToJson{}(call.args);
    line["result"] = Value(call.result);
    return line;
}

}  // namespace host
