#include "platform/gdi/trace_values.h"

#include <algorithm>

#include "platform/gdi/context.h"
#include "platform/gdi/objects.h"
#include "platform/gdi/pictures.h"

namespace platform::gdi {

namespace {

using Array = TraceValue::Array;
using Fields = TraceValue::Object;

// Every field but the name of the face, in the order of the structure.
template <class T>
struct FontField {
    const char* name;
    T LOGFONTW::*member;
};
constexpr FontField<LONG> LongFields[] = {
    {"lfHeight",      &LOGFONTW::lfHeight     },
    {"lfWidth",       &LOGFONTW::lfWidth      },
    {"lfEscapement",  &LOGFONTW::lfEscapement },
    {"lfOrientation", &LOGFONTW::lfOrientation},
    {"lfWeight",      &LOGFONTW::lfWeight     },
};
constexpr FontField<BYTE> ByteFields[] = {
    {"lfItalic",         &LOGFONTW::lfItalic        },
    {"lfUnderline",      &LOGFONTW::lfUnderline     },
    {"lfStrikeOut",      &LOGFONTW::lfStrikeOut     },
    {"lfCharSet",        &LOGFONTW::lfCharSet       },
    {"lfOutPrecision",   &LOGFONTW::lfOutPrecision  },
    {"lfClipPrecision",  &LOGFONTW::lfClipPrecision },
    {"lfQuality",        &LOGFONTW::lfQuality       },
    {"lfPitchAndFamily", &LOGFONTW::lfPitchAndFamily},
};

TraceValue Named(const char* name, TraceValue value)
{
    Fields fields;
    fields.emplace_back(name, std::move(value));
    return fields;
}

TraceValue ShowValue(const Pen& pen)
{
    Fields fields;
    fields.emplace_back("style", pen.style);
    fields.emplace_back("width", pen.width);
    fields.emplace_back("color", pen.color);
    return Named("pen", std::move(fields));
}

TraceValue ShowValue(const Brush& brush)
{
    return Named("brush", Named("color", brush.color ? TraceValue(*brush.color) : TraceValue()));
}

TraceValue ShowValue(const Font& font) { return Show(&font.description); }

TraceValue ShowValue(const Bitmap& bitmap)
{
    Fields fields;
    fields.emplace_back("id", bitmap.id != 0 ? TraceValue(bitmap.id) : TraceValue());
    fields.emplace_back("width", bitmap.width);
    fields.emplace_back("height", bitmap.height);
    fields.emplace_back("bits", bitmap.bits);
    return Named("bitmap", std::move(fields));
}

TraceValue ShowValue(const Region& region) { return Named("region", region.Empty() ? Array{} : Show(&region.box)); }

TraceValue ShowValue(const Palette&) { return {}; }

TraceValue Number(const void* handle) { return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(handle)); }

}  // namespace

TraceValue Show(int value) { return value; }

TraceValue Show(DWORD value) { return value; }

TraceValue Show(HGDIOBJ handle)
{
    const auto object = PeekObject(handle);
    return object && object->stock >= 0 ? Named("stock", object->stock) : ShowDescribed(handle);
}

TraceValue ShowDescribed(HGDIOBJ handle)
{
    if (handle == nullptr) return {};
    const auto object = PeekObject(handle);
    if (!object) return Number(handle);
    return std::visit([](const auto& value) { return ShowValue(value); }, object->value);
}

TraceValue Show(HDC handle)
{
    const Context* context = PeekContext(handle);
    return context != nullptr ? TraceValue(context->number) : TraceValue();
}

TraceValue Show(HICON handle)
{
    if (handle == nullptr) return {};
    const Icon* icon = PeekIcon(handle);
    return icon != nullptr ? Named("icon", icon->number) : Number(handle);
}

TraceValue Show(const RECT* box)
{
    if (box == nullptr) return {};
    return Array{box->left, box->top, box->right, box->bottom};
}

TraceValue Show(const RECT& box) { return Show(&box); }

TraceValue Show(POINT point) { return Array{point.x, point.y}; }

TraceValue Show(SIZE size) { return Array{size.cx, size.cy}; }

TraceValue Show(std::span<const POINT> points)
{
    if (points.data() == nullptr) return {};
    Array shown;
    for (const POINT& point : points) shown.push_back(Show(point));
    return shown;
}

TraceValue Show(std::span<const INT> numbers)
{
    if (numbers.data() == nullptr) return {};
    return Array(numbers.begin(), numbers.end());
}

TraceValue Show(const LOGFONTW* font)
{
    if (font == nullptr) return {};
    Fields fields;
    for (const auto& [name, member] : LongFields) fields.emplace_back(name, font->*member);
    for (const auto& [name, member] : ByteFields) fields.emplace_back(name, font->*member);
    const WCHAR* end = std::find(std::begin(font->lfFaceName), std::end(font->lfFaceName), u'\0');
    fields.emplace_back("lfFaceName", std::u16string(font->lfFaceName, end));
    return Named("font", std::move(fields));
}

TraceValue Show(const TextArgument& argument)
{
    if (argument.text == nullptr) return {};
    return std::u16string(argument.text, static_cast<std::size_t>(std::max<std::int64_t>(0, argument.length)));
}

TraceValue Show(const WCHAR* text)
{
    if (text == nullptr) return {};
    return std::u16string(text);
}

TraceValue Show(const BytesArgument& argument)
{
    if (argument.bytes == nullptr) return {};
    const auto* first = static_cast<const std::uint8_t*>(argument.bytes);
    return TraceValue::Binary{
        {first, first + std::max<std::int64_t>(0, argument.count)}
    };
}

TraceValue Show(const ResourceArgument& argument) { return Number(argument.name); }

}  // namespace platform::gdi
