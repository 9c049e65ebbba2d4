#include "platform/gdi/context.h"

#include <map>

#include "platform/gdi/system_colors.h"
#include "platform/gdi/window_area.h"
#include "platform/kernel/last_error.h"
#include "platform/user.h"
#include "platform/user/windows.h"

namespace platform::gdi {

namespace {

constexpr std::uintptr_t ContextTag = 1;

struct Contexts {
    std::map<HDC, std::unique_ptr<Context>> table;
    std::uint32_t next = 1;
};

Contexts& All()
{
    // Never destroyed: contexts may be given back while the process ends.
    static Contexts* contexts = new Contexts;
    return *contexts;
}

std::shared_ptr<Object> Held(std::shared_ptr<Object> object)
{
    ++object->selections;
    return object;
}

HGDIOBJ Exchange(std::shared_ptr<Object>& held, std::shared_ptr<Object> object)
{
    HGDIOBJ before = held->handle;
    ++object->selections;
    --held->selections;
    held = std::move(object);
    return before;
}

HGDIOBJ Refused(DWORD error)
{
    SetError(error);
    return nullptr;
}

}  // namespace

Context::Context(ContextKind contextKind, const Device& contextDevice)
    : kind(contextKind),
      device(contextDevice),
      pen(Held(StockObject(BLACK_PEN))),
      brush(Held(StockObject(WHITE_BRUSH))),
      font(Held(StockObject(SYSTEM_FONT)))
{
    if (kind == ContextKind::Memory) bitmap = Held(DefaultBitmap());
}

Context::~Context()
{
    for (const auto& object : {pen, brush, font, bitmap})
        if (object) --object->selections;
}

HDC AddContext(std::unique_ptr<Context> context)
{
    Contexts& contexts = All();
    context->number = contexts.next;
    const HDC handle = reinterpret_cast<HDC>(std::uintptr_t{contexts.next} << 2 | ContextTag);
    contexts.table.emplace(handle, std::move(context));
    ++contexts.next;
    return handle;
}

Context* PeekContext(HDC handle)
{
    const auto found = All().table.find(handle);
    return found != All().table.end() ? found->second.get() : nullptr;
}

Context* FindContext(HDC handle)
{
    Context* context = PeekContext(handle);
    if (context == nullptr) SetError(ERROR_INVALID_HANDLE);
    return context;
}

bool RemoveContext(HDC handle)
{
    if (All().table.erase(handle) > 0) return true;
    SetError(ERROR_INVALID_HANDLE);
    return false;
}

std::size_t ContextCount() { return All().table.size(); }

HDC OpenContext(HWND window)
{
    if (window == nullptr) return AddContext(std::make_unique<Context>(ContextKind::Screen, Device{}));
    const auto control = ControlNumber(window);
    if (!control) {
        SetError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    auto context = std::make_unique<Context>(ContextKind::Window, Device{});
    context->window = window;
    context->control = *control;
    context->textColor = SystemColor(COLOR_BTNTEXT);  // readable on a dark desktop too
    return AddContext(std::move(context));
}

bool CloseContext(HDC handle)
{
    const Context* context = FindContext(handle);
    if (context == nullptr) return false;
    if (context->kind != ContextKind::Window && context->kind != ContextKind::Screen) {
        SetError(ERROR_INVALID_HANDLE);
        return false;
    }
    const HWND changed = context->drawn ? context->window : nullptr;
    RemoveContext(handle);
    if (changed != nullptr) user::Changed(changed);
    return true;
}

HDC CreateMemoryContext(const Context* like)
{
    Device device = like != nullptr ? like->device : Device{};
    device.bitsPerPixel = 32;
    return AddContext(std::make_unique<Context>(ContextKind::Memory, device));
}

HGDIOBJ Select(Context& context, HGDIOBJ handle)
{
    const auto object = FindObject(handle);
    if (!object) return nullptr;
    if (object->As<Pen>() != nullptr) return Exchange(context.pen, object);
    if (object->As<Brush>() != nullptr) return Exchange(context.brush, object);
    if (object->As<Font>() != nullptr) return Exchange(context.font, object);
    if (const Region* region = object->As<Region>())
        return reinterpret_cast<HGDIOBJ>(static_cast<std::uintptr_t>(SelectClip(context, region)));
    if (object->As<Bitmap>() != nullptr) {
        if (context.kind != ContextKind::Memory) return Refused(ERROR_INVALID_PARAMETER);
        // One context at a time draws on a bitmap.
        if (object->selections > 0 && !object->permanent && object != context.bitmap) return Refused(ERROR_BUSY);
        return Exchange(context.bitmap, object);
    }
    return Refused(ERROR_INVALID_HANDLE);
}

int SelectClip(Context& context, const Region* region)
{
    context.clip = region != nullptr ? std::optional(region->box) : std::nullopt;
    return region != nullptr && region->Empty() ? NULLREGION : SIMPLEREGION;
}

int Capability(const Context& context, int index)
{
    const Device& device = context.device;
    switch (index) {
        case HORZRES:
            return device.width;
        case VERTRES:
            return device.height;
        case BITSPIXEL:
            return device.bitsPerPixel;
        case LOGPIXELSX:
            return device.dotsPerInchX;
        case LOGPIXELSY:
            return device.dotsPerInchY;
        case PHYSICALWIDTH:
            return device.physicalWidth;
        case PHYSICALHEIGHT:
            return device.physicalHeight;
        case PHYSICALOFFSETX:
            return device.offsetX;
        case PHYSICALOFFSETY:
            return device.offsetY;
        default:
            return 0;
    }
}

}  // namespace platform::gdi
