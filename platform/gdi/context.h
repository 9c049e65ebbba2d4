// Device contexts: whose picture they draw on and the state that drawing goes by, and the table that their
// handles are looked up in. Numbers count up from 1 and are never given out twice.
#pragma once

#include <memory>
#include <optional>

#include "platform/gdi/job.h"
#include "platform/gdi/mapping.h"
#include "platform/gdi/objects.h"

namespace platform::gdi {

enum class ContextKind { Screen, Window, Memory, Job };

struct Context {
    Context(ContextKind contextKind, const Device& contextDevice);
    ~Context();
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    const ContextKind kind;
    const Device device;
    std::uint32_t number = 0;

    HWND window = nullptr;             // of a window's context
    int control = 0;                   // its number; 0 for a dialog itself
    bool drawn = false;                // whether something has been drawn on its picture
    std::shared_ptr<Surface> surface;  // of a job's context; may be null
    EscapeTarget* escapes = nullptr;   // of a job's context; may be null

    std::shared_ptr<Object> pen, brush, font;
    std::shared_ptr<Object> bitmap;  // of a memory context
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backgroundColor = RGB(255, 255, 255);
    int backgroundMode = OPAQUE;
    int rasterMode = R2_COPYPEN;
    UINT textAlign = TA_LEFT | TA_TOP;
    POINT position{0, 0};  // logical
    Mapping mapping;
    std::optional<RECT> clip;  // device units
};

HDC AddContext(std::unique_ptr<Context> context);
QD_API Context* PeekContext(HDC handle);  // null for what is none
Context* FindContext(HDC handle);         // null, with the last error set, for what is none
bool RemoveContext(HDC handle);

// Null, with the last error set: there is no such window. A null window is the screen.
HDC OpenContext(HWND window);
// False, with the last error set, for what OpenContext has not given. Tells the desktop what has changed.
bool CloseContext(HDC handle);

// A memory context with the other one's resolution; null: the screen's.
HDC CreateMemoryContext(const Context* like);

// The object before; null, with the last error set, if the object does not go with the context. For a
// region, which is copied, the kind of the clip.
HGDIOBJ Select(Context& context, HGDIOBJ object);
int SelectClip(Context& context, const Region* region);

int Capability(const Context& context, int index);

}  // namespace platform::gdi
