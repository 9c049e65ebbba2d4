#include "gdi_fixture.h"

namespace gdi_test {

namespace {

using platform::TraceOwner;
using platform::TraceValue;

std::string Joined(const Lines& parts, const char* open, const char* close)
{
    std::string text = open;
    for (const std::string& part : parts) text += (&part == &parts.front() ? "" : ",") + part;
    return text + close;
}

std::string HexOf(const TraceValue::Binary& binary)
{
    std::string text = "x";
    for (const std::uint8_t byte : binary.bytes) text += Hex(byte).substr(4);
    return text;
}

}  // namespace

std::string Text(const TraceValue& traced)
{
    const auto& value = traced.value;
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    if (const auto* text = std::get_if<std::u16string>(&value)) return '"' + platform::ToUtf8(*text) + '"';
    if (const auto* binary = std::get_if<TraceValue::Binary>(&value)) return HexOf(*binary);
    Lines parts;
    if (const auto* array = std::get_if<TraceValue::Array>(&value)) {
        for (const TraceValue& part : *array) parts.push_back(Text(part));
        return Joined(parts, "[", "]");
    }
    if (const auto* fields = std::get_if<TraceValue::Object>(&value)) {
        for (const auto& [name, part] : *fields) parts.push_back(name + ":" + Text(part));
        return Joined(parts, "{", "}");
    }
    return "null";
}

void TraceLog::Call(const platform::TraceCall& call)
{
    const std::string context = std::get_if<std::monostate>(&call.context.value) ? "no dc" : "dc";
    const std::string owner = call.on.kind == TraceOwner::Kind::Job       ? " on job"
                              : call.on.kind == TraceOwner::Kind::Control ? " on " + std::to_string(call.on.control)
                                                                          : "";
    lines_.push_back(context + owner + ": " + call.function + " " + Text(TraceValue(call.args)) + " = " +
                     Text(call.result));
}

Drawing::Drawing() : contexts_(platform::gdi::ContextCount()), objects_(platform::gdi::ObjectCount())
{
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.fonts = platform::MakeBuiltinFonts();
    environment.desktop = nullptr;
    environment.trace = nullptr;
    environment.faults.Clear();

    platform::user::DialogTemplate layout;
    layout.width = 100;
    layout.height = 80;
    layout.controls.resize(1);
    layout.controls[0].className = u"Static";
    layout.controls[0].id = ControlNumber;
    layout.controls[0].style = WS_CHILD | WS_VISIBLE | SS_WHITEFRAME;
    layout.controls[0].rect = {10, 20, 60, 50};
    dialog = platform::user::MakeDialog({}, layout);
    control = platform::user::Control(dialog, ControlNumber);
    platform::user::Get(dialog)->As<platform::user::DialogState>()->picture = picture;
    SetLastError(0);
}

Drawing::~Drawing()
{
    platform::CurrentEnvironment().trace = nullptr;
    platform::CurrentEnvironment().faults.Clear();
    platform::user::Destroy(dialog);
    EXPECT_EQ(platform::gdi::ContextCount(), contexts_) << "contexts that were not given back";
    EXPECT_EQ(platform::gdi::ObjectCount(), objects_) << "objects that were not deleted";
}

HDC Drawing::Job(platform::gdi::EscapeTarget* escapes)
{
    platform::gdi::JobDevice device;
    device.physicalWidth = 5100;
    device.physicalHeight = 6600;
    device.offsetX = device.offsetY = 100;
    device.printableWidth = 4900;
    device.printableHeight = 6400;
    return platform::gdi::CreateJobContext(device, page, escapes);
}

}  // namespace gdi_test
