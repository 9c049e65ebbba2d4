#include "gdi_fixture.h"

namespace gdi_test {

namespace {

std::string Joined(const Lines& parts, char between)
{
    std::string text;
    for (const std::string& part : parts) {
        if (&part != &parts.front()) text += between;
        text += part;
    }
    return text;
}

std::string Shown(POINT point) { return Joined({std::to_string(point.x), std::to_string(point.y)}, ','); }

std::string Shown(const RECT& box)
{
    return Joined({Shown(POINT{box.left, box.top}), Shown(POINT{box.right, box.bottom})}, ',');
}

std::string Shown(const platform::PenSpec& pen)
{
    return Joined({std::to_string(pen.style), std::to_string(pen.width), Hex(pen.color)}, '/');
}

std::string Shown(const platform::BrushSpec& brush) { return brush ? Hex(*brush) : "none"; }

}  // namespace

std::string Hex(COLORREF color)
{
    constexpr char Digits[] = "0123456789abcdef";
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4) text += Digits[color >> shift & 15];
    return text;
}

void SurfaceLog::Add(const Lines& words) { lines_.push_back(Joined(words, ' ')); }

void SurfaceLog::SetClip(const std::optional<RECT>& clip) { Add({"clip", clip ? Shown(*clip) : "none"}); }

void SurfaceLog::Line(const platform::PenSpec& pen, POINT from, POINT to)
{
    Add({"line", Shown(from), "to", Shown(to), "pen", Shown(pen)});
}

void SurfaceLog::Rectangle(const platform::PenSpec& pen, const platform::BrushSpec& brush, const RECT& box)
{
    Add({"rectangle", Shown(box), "pen", Shown(pen), "brush", Shown(brush)});
}

void SurfaceLog::Polygon(const platform::PenSpec& pen, const platform::BrushSpec& brush, std::span<const POINT> points)
{
    Lines words = {"polygon"};
    for (const POINT& point : points) words.push_back(Shown(point));
    words.insert(words.end(), {"pen", Shown(pen), "brush", Shown(brush)});
    Add(words);
}

void SurfaceLog::Arc(const platform::PenSpec& pen, const RECT& box, POINT start, POINT end)
{
    Add({"arc", Shown(box), "from", Shown(start), "to", Shown(end), "pen", Shown(pen)});
}

void SurfaceLog::Fill(const RECT& box, COLORREF color) { Add({"fill", Shown(box), Hex(color)}); }

void SurfaceLog::Text(const platform::TextSpec& text)
{
    Lines words = {"text", Shown(text.origin), platform::ToUtf8(text.text)};
    words.insert(words.end(), {"height", std::to_string(text.font.lfHeight), "color", Hex(text.color)});
    if (text.background) words.insert(words.end(), {"on", Hex(*text.background)});
    if (text.clip) words.insert(words.end(), {"within", Shown(*text.clip)});
    Add(words);
}

void SurfaceLog::Image(const RECT& target, const platform::PixelImage& image)
{
    Lines words = {"image", Shown(target), "of",
                   Joined({std::to_string(image.width), std::to_string(image.height)}, 'x')};
    if (image.pixels.size() <= 16)
        for (const std::uint32_t pixel : image.pixels) words.push_back(pixel >> 24 ? Hex(pixel) : "-");
    Add(words);
}

void SurfaceLog::Erase(const RECT& box) { Add({"erase", Shown(box)}); }

Drawing::Drawing() : contexts_(platform::gdi::ContextCount()), objects_(platform::gdi::ObjectCount())
{
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
}

Drawing::~Drawing()
{
    platform::CurrentEnvironment().trace = nullptr;
    for (const HDC job : jobs_) platform::gdi::DeleteJobContext(job);
    for (const auto& [window, context] : taken_) EXPECT_EQ(ReleaseDC(window, context), 1);
    for (const HGDIOBJ object : owned_) EXPECT_TRUE(DeleteObject(object));
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
    return jobs_.emplace_back(platform::gdi::CreateJobContext(device, page, escapes));
}

HDC Drawing::Context(HWND window) { return taken_.emplace_back(window, GetDC(window)).second; }

}  // namespace gdi_test
