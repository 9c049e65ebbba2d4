#include "platform/gdi/text.h"

#include <algorithm>
#include <cstdlib>

#include "platform/gdi/drawing.h"
#include "platform/kernel/last_error.h"
#include "platform/seams/environment.h"
#include "platform/seams/fonts.h"

namespace platform::gdi {

namespace {

LONG ScaledHeight(LONG height, const Mapping& mapping)
{
    const LONG scaled = std::abs(mapping.Down(height));
    if (height == 0) return 0;
    return (height < 0 ? -1 : 1) * std::max(1, scaled);
}

TextSpec SpecOf(const Context& context, POINT origin, std::u16string_view text)
{
    TextSpec spec;
    spec.font = context.font->As<Font>()->description;
    spec.font.lfHeight = ScaledHeight(spec.font.lfHeight, context.mapping);
    spec.font.lfWidth = std::abs(context.mapping.Across(spec.font.lfWidth));
    spec.origin = origin;
    spec.align = context.textAlign & ~TA_UPDATECP;
    spec.color = context.textColor & 0xFFFFFF;
    if (context.backgroundMode == OPAQUE) spec.background = context.backgroundColor & 0xFFFFFF;
    spec.text = text;
    return spec;
}

// The current position goes on by the text's width; where it cannot be measured it stays.
void Advance(Context& context, std::u16string_view text)
{
    SIZE extent{};
    const UINT side = context.textAlign & TA_CENTER;
    if (side == TA_CENTER || !MeasureText(context, text, &extent)) return;
    context.position.x = Sum(context.position.x, side == TA_RIGHT ? -extent.cx : extent.cx);
}

}  // namespace

bool DrawTextAt(Context& context, POINT at, UINT options, const RECT* rectangle, std::u16string_view text)
{
    if (!text.empty() && !NotOnMemory(context)) return false;
    if (rectangle != nullptr && (options & ETO_OPAQUE)) FillRectangle(context, *rectangle, context.backgroundColor);
    if (text.empty()) return true;

    const bool fromPosition = (context.textAlign & TA_UPDATECP) != 0;
    const POINT reference = fromPosition ? context.position : at;
    OnSurface(context, [&](Surface& surface, POINT offset) {
        TextSpec spec = SpecOf(context, Moved(context.mapping.ToDevice(reference), offset), text);
        if (rectangle != nullptr && (options & ETO_CLIPPED))
            spec.clip = Moved(context.mapping.ToDevice(*rectangle), offset);
        surface.Text(spec);
    });
    if (fromPosition) Advance(context, text);
    return true;
}

bool MeasureText(const Context& context, std::u16string_view text, SIZE* extent)
{
    FontService* fonts = CurrentEnvironment().fonts.get();
    if (fonts == nullptr) {
        SetError(ERROR_GEN_FAILURE);
        return false;
    }
    *extent = fonts->Extent(context.font->As<Font>()->description, text);
    return true;
}

int EnumerateFonts(const WCHAR* face, FONTENUMPROCW callback, LPARAM parameter)
{
    const std::shared_ptr<FontService> fonts = CurrentEnvironment().fonts;
    if (!fonts || callback == nullptr) {
        SetError(callback == nullptr ? ERROR_INVALID_PARAMETER : ERROR_GEN_FAILURE);
        return 0;
    }
    int result = 1;
    for (const FontDescription& found : face != nullptr ? fonts->Styles(face) : fonts->Families()) {
        result = callback(&found.font, &found.metrics, found.type, parameter);
        if (result == 0) break;
    }
    return result;
}

}  // namespace platform::gdi
