#include "preview_rig.h"

#include <algorithm>
#include <cstring>

#include "platform/user/windows.h"
#include "preview/page_preview.h"
#include "settings/options.h"
#include "spooler/printer_data.h"
#include "tests/support/records.h"
#include "tests/support/rendering_side.h"

namespace preview_test {

namespace {

namespace gdi = platform::gdi;
using namespace testing_support;

constexpr int FrameControl = 1069;

LONG Arg(const platform::TraceCall& call, std::size_t k)
{
    return static_cast<LONG>(std::get<std::int64_t>(call.args.at(k).value));
}

std::string Joined(std::initializer_list<std::int64_t> numbers)
{
    std::string text;
    for (const std::int64_t number : numbers) text += (text.empty() ? "" : ",") + std::to_string(number);
    return text;
}

std::string Hex(COLORREF color)
{
    char text[9];
    std::snprintf(text, sizeof text, "%06x", color);
    return text;
}

std::string PenText(const gdi::Context& context)
{
    const gdi::Pen& pen = *context.pen->As<gdi::Pen>();
    if (pen.style == PS_NULL) return " null";
    return (pen.style == PS_DOT ? " dot" : " solid") + std::to_string(pen.width) + ":" + Hex(pen.color);
}

// The pen and the brush.
std::string Tools(const gdi::Context& context)
{
    const auto& color = context.brush->As<gdi::Brush>()->color;
    return PenText(context) + ' ' + (color ? Hex(*color) : "none");
}

std::string FontText(const gdi::Context& context)
{
    const LOGFONTW& font = context.font->As<gdi::Font>()->description;
    const std::string turned = font.lfEscapement ? " turned " + std::to_string(font.lfEscapement) : "";
    return platform::ToUtf8(font.lfFaceName) + " " + std::to_string(font.lfHeight) + "/" +
           std::to_string(font.lfWeight) + turned;
}

std::string ClipText(const gdi::Context& context)
{
    if (!context.clip) return "clip none";
    return "clip " + Joined({context.clip->left, context.clip->top, context.clip->right, context.clip->bottom});
}

std::string ShapeText(const platform::TraceCall& call, const gdi::Context& context, POINT from)
{
    const std::string_view name = call.function;
    const auto arg = [&](std::size_t k) { return Arg(call, k); };
    const auto point = [&](std::size_t k) { return Joined({arg(k), arg(k + 1)}); };
    if (name == "Rectangle") return "box " + point(0) + ',' + point(2) + Tools(context);
    if (name == "LineTo") return "line " + Joined({from.x, from.y}) + ',' + point(0) + PenText(context);
    if (name == "Arc")
        return "arc " + point(0) + ',' + point(2) + " from " + point(4) + " to " + point(6) + PenText(context);
    if (name == "Polygon") return "polygon " + TraceText(call.args.at(0)) + Tools(context);
    if (name != "ExtTextOutW") return {};
    std::string box = TraceText(call.args.at(3));
    box = box.substr(1, box.size() - 2) + ' ';
    if (arg(2) == ETO_OPAQUE) return "strip " + box + Hex(context.backgroundColor);
    return "text " + point(0) + ' ' + TraceText(call.args.at(4)) + (arg(2) == ETO_CLIPPED ? " in " : " near ") + box +
           FontText(context) + ' ' + Hex(context.textColor) + (context.textAlign ? " aligned" : "") +
           (context.backgroundMode == TRANSPARENT ? "" : " opaque");
}

}  // namespace

DriverDevMode A4(const std::string& fields)
{
    DriverDevMode record{};
    SetFields(record, "dmOrientation=1 dmPaperSize=9 dmPrintQuality=300 dmResolution=300 dmZoom=100 " + fields);
    return record;
}

DriverDevMode Marked(const std::string& fields)
{
    DriverDevMode record = A4("dmWatermarkOn=1 wmSize=72 wmShading=20");
    std::u16string_view(u"DRAFT").copy(record.dmWatermark.wmText, 72);
    std::u16string_view(u"Times New Roman").copy(record.dmWatermark.wmFaceName, 31);
    SetFields(record, fields);
    return record;
}

void DrawingLog::Call(const platform::TraceCall& call)
{
    const auto* number = std::get_if<std::int64_t>(&call.context.value);
    if (!number) return;
    const std::string_view name = call.function;
    Opened& opened = open_[*number];
    if (name == "ReleaseDC") {
        EXPECT_EQ(opened.now, opened.fresh) << "a context given back in another state than it came in";
        return;
    }
    const HDC handle = reinterpret_cast<HDC>(static_cast<std::uintptr_t>(*number) << 2 | 1);
    const gdi::Context* context = gdi::PeekContext(handle);
    ASSERT_NE(context, nullptr) << call.function;
    opened.now = StateOf(handle);
    if (name == "GetDC") opened.fresh = opened.now;
    if (call.on.kind != platform::TraceOwner::Kind::Control) return;
    if (name == "SetWindowExtEx") opened.window = {Arg(call, 0), Arg(call, 1)};
    if (name == "SetViewportExtEx") opened.viewport = {Arg(call, 0), Arg(call, 1)};
    Shape(call, *context, opened);
    opened.position = context->position;
}

void DrawingLog::Shape(const platform::TraceCall& call, const gdi::Context& context, Opened& opened)
{
    const std::string shape = ShapeText(call, context, opened.position);
    if (shape.empty()) return;
    Lines& lines = drawn[call.on.control];
    std::string mapped = "map pixels";
    if (context.mapping.Mode() == MM_ISOTROPIC && opened.window && opened.viewport) {
        const POINT origin = context.mapping.ViewportOrigin();
        mapped = "map " + Joined({opened.window->cx, opened.window->cy}) + " to " +
                 Joined({opened.viewport->cx, opened.viewport->cy}) + " at " + Joined({origin.x, origin.y});
    }
    if (mapped != opened.mapped) lines.push_back(opened.mapped = mapped);
    if (const std::string clipped = ClipText(context); clipped != opened.clipped)
        lines.push_back(opened.clipped = clipped);
    lines.push_back(shape);
}

Preview::Preview(int width, int height, int picture, std::shared_ptr<platform::Surface> surface)
    : picture_(picture), log_(std::make_shared<DrawingLog>())
{
    user::DialogTemplate layout;
    layout.width = width + 6;
    layout.height = height + 7;
    constexpr DWORD Shown = WS_CHILD | WS_VISIBLE;
    layout.controls = {
        {u"Static", u"", 0, FrameControl, Shown | SS_WHITEFRAME, 0, {0, 0, width + 6, height + 7}},
        {u"Button", u"", 0, picture,      Shown | BS_OWNERDRAW,  0, {3, 3, 3 + width, 3 + height}},
    };
    dialog_ = user::MakeDialog({}, layout);
    if (!surface) surface = std::make_shared<platform::RecordingSurface>();
    user::Get(dialog_)->As<user::DialogState>()->picture = surface;
    platform::CurrentEnvironment().trace = log_;
}

Preview::~Preview()
{
    EXPECT_EQ(gdi::ContextCount(), 0u) << "contexts that were not given back";
    EXPECT_EQ(gdi::ObjectCount(), 0u) << "objects that were not deleted";
    user::Destroy(dialog_);
}

Lines Preview::Draw(const DriverDevMode& record)
{
    DriverDevMode settings = record;
    log_->drawn.clear();
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(picture_);
    item.hwndItem = user::Control(dialog_, picture_);
    std::u16string_view(TestPrinter).copy(PrinterName, PrinterNameChars - 1);
    CurrentSettings = &settings;
    DrawPagePreview(dialog_, item);
    CurrentSettings = nullptr;
    EXPECT_EQ(std::memcmp(&settings, &record, sizeof record), 0) << "drawing has changed the record";
    return log_->drawn[picture_];
}

Lines Preview::Draw(const DriverDevMode& record, const std::vector<std::string>& words)
{
    Lines lines = Draw(record);
    std::erase_if(lines, [&](const std::string& line) {
        return std::ranges::none_of(words, [&](const std::string& word) { return line.starts_with(word); });
    });
    return lines;
}

Lines Preview::Frame() const { return log_->drawn[FrameControl]; }

}  // namespace preview_test
