#include "gdi_fixture.h"

#include <sstream>

namespace gdi_test {

std::string Hex(COLORREF color)
{
    constexpr char Digits[] = "0123456789abcdef";
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4) text += Digits[color >> shift & 15];
    return text;
}

namespace {

std::ostream& operator<<(std::ostream& out, POINT point) { return out << point.x << ',' << point.y; }

std::ostream& operator<<(std::ostream& out, const RECT& box)
{
    return out << POINT{box.left, box.top} << ',' << POINT{box.right, box.bottom};
}

std::ostream& operator<<(std::ostream& out, const platform::PenSpec& pen)
{
    return out << " pen " << pen.style << '/' << pen.width << '/' << Hex(pen.color);
}

std::ostream& operator<<(std::ostream& out, const platform::BrushSpec& brush)
{
    return out << " brush " << (brush ? Hex(*brush) : "none");
}

}  // namespace

template <class... Parts>
void SurfaceLog::Add(const Parts&... parts)
{
    std::ostringstream line;
    (line << ... << parts);
    lines_.push_back(line.str());
}

void SurfaceLog::SetClip(const std::optional<RECT>& clip) { clip ? Add("clip ", *clip) : Add("clip none"); }

void SurfaceLog::Line(const platform::PenSpec& pen, POINT from, POINT to) { Add("line ", from, " to ", to, pen); }

void SurfaceLog::Rectangle(const platform::PenSpec& pen, const platform::BrushSpec& brush, const RECT& box)
{
    Add("rectangle ", box, pen, brush);
}

void SurfaceLog::Polygon(const platform::PenSpec& pen, const platform::BrushSpec& brush, std::span<const POINT> points)
{
    std::ostringstream corners;
    for (const POINT& point : points) corners << ' ' << point;
    Add("polygon", corners.str(), pen, brush);
}

void SurfaceLog::Arc(const platform::PenSpec& pen, const RECT& box, POINT start, POINT end)
{
    Add("arc ", box, " from ", start, " to ", end, pen);
}

void SurfaceLog::Fill(const RECT& box, COLORREF color) { Add("fill ", box, ' ', Hex(color)); }

void SurfaceLog::Text(const platform::TextSpec& text)
{
    std::ostringstream rest;
    if (text.background) rest << " on " << Hex(*text.background);
    if (text.clip) rest << " within " << *text.clip;
    Add("text ", text.origin, ' ', platform::ToUtf8(text.text), " height ", text.font.lfHeight, " color ",
        Hex(text.color), rest.str());
}

void SurfaceLog::Image(const RECT& target, const platform::PixelImage& image)
{
    std::string pixels;
    if (image.pixels.size() <= 16)
        for (const std::uint32_t pixel : image.pixels) pixels += pixel >> 24 ? ' ' + Hex(pixel) : " -";
    Add("image ", target, " of ", image.width, 'x', image.height, pixels);
}

void SurfaceLog::Erase(const RECT& box) { Add("erase ", box); }

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
    for (const HDC memory : memories_) EXPECT_TRUE(DeleteDC(memory));
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

HDC Drawing::Memory(int width, int height, UINT bits, const void* pixels)
{
    const HDC memory = memories_.emplace_back(CreateCompatibleDC(nullptr));
    SelectObject(memory, Own(CreateBitmap(width, height, 1, bits, pixels)));
    return memory;
}

HDC Drawing::Context(HWND window) { return taken_.emplace_back(window, GetDC(window)).second; }

}  // namespace gdi_test
