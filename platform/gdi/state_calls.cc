// The calls that make contexts and set what they draw by.
#include "platform/gdi/call.h"

using namespace platform::gdi;
using platform::SetError;
using platform::TraceValue;

namespace {

template <class T>
T Exchanged(T& held, T value)
{
    return std::exchange(held, value);
}

bool Valid(bool valid)
{
    if (!valid) SetError(ERROR_INVALID_PARAMETER);
    return valid;
}

template <class T>
void Give(T* output, T value)
{
    if (output != nullptr) *output = value;
}

}  // namespace

extern "C" {

HDC CreateCompatibleDC(HDC context)
{
    if (context == nullptr) return Call("CreateCompatibleDC").Run(HDC{}, [] { return CreateMemoryContext(nullptr); });
    return Call("CreateCompatibleDC", context).Run(HDC{}, [](Context& c) { return CreateMemoryContext(&c); });
}

BOOL DeleteDC(HDC context)
{
    return Call("DeleteDC", context).Run(FALSE, [&](Context& c) {
        // What is lent by a window or a job is given back another way.
        if (c.kind == ContextKind::Memory) return RemoveContext(context);
        SetError(ERROR_INVALID_HANDLE);
        return false;
    });
}

int GetDeviceCaps(HDC context, int index)
{
    return Call("GetDeviceCaps", context).With(index).Run(0, [&](Context& c) { return Capability(c, index); });
}

int SetBkMode(HDC context, int mode)
{
    return Call("SetBkMode", context).With(mode).Run(0, [&](Context& c) {
        return Valid(mode == TRANSPARENT || mode == OPAQUE) ? Exchanged(c.backgroundMode, mode) : 0;
    });
}

COLORREF SetBkColor(HDC context, COLORREF color)
{
    return Call("SetBkColor", context).With(color).Run(CLR_INVALID, [&](Context& c) {
        return Exchanged(c.backgroundColor, color);
    });
}

COLORREF SetTextColor(HDC context, COLORREF color)
{
    return Call("SetTextColor", context).With(color).Run(CLR_INVALID, [&](Context& c) {
        return Exchanged(c.textColor, color);
    });
}

UINT SetTextAlign(HDC context, UINT align)
{
    return Call("SetTextAlign", context).With(align).Run(GDI_ERROR, [&](Context& c) {
        return Exchanged(c.textAlign, align);
    });
}

UINT GetTextAlign(HDC context)
{
    return Call("GetTextAlign", context).Run(GDI_ERROR, [](Context& c) { return c.textAlign; });
}

int SetROP2(HDC context, int mode)
{
    return Call("SetROP2", context).With(mode).Run(0, [&](Context& c) {
        return Valid(mode == R2_BLACK || mode == R2_COPYPEN || mode == R2_WHITE) ? Exchanged(c.rasterMode, mode) : 0;
    });
}

int SetMapMode(HDC context, int mode)
{
    return Call("SetMapMode", context).With(mode).Run(0, [&](Context& c) {
        const int before = c.mapping.Mode();
        return Valid(c.mapping.SetMode(mode, c.device)) ? before : 0;
    });
}

BOOL SetWindowOrgEx(HDC context, int x, int y, POINT* before)
{
    const auto work = [&](Context& c) {
        Give(before, c.mapping.WindowOrigin());
        c.mapping.SetWindowOrigin({x, y});
        return TRUE;
    };
    return Call("SetWindowOrgEx", context).With(x, y).WithOutput(before).Run(FALSE, work, OutputOr(FALSE, before));
}

BOOL SetViewportOrgEx(HDC context, int x, int y, POINT* before)
{
    const auto work = [&](Context& c) {
        Give(before, c.mapping.ViewportOrigin());
        c.mapping.SetViewportOrigin({x, y});
        return TRUE;
    };
    return Call("SetViewportOrgEx", context).With(x, y).WithOutput(before).Run(FALSE, work, OutputOr(FALSE, before));
}

BOOL SetWindowExtEx(HDC context, int x, int y, SIZE* before)
{
    const auto work = [&](Context& c) {
        const SIZE extent = c.mapping.WindowExtent();
        if (!Valid(c.mapping.SetWindowExtent({x, y}, c.device))) return FALSE;
        Give(before, extent);
        return TRUE;
    };
    return Call("SetWindowExtEx", context).With(x, y).WithOutput(before).Run(FALSE, work, OutputOr(FALSE, before));
}

BOOL SetViewportExtEx(HDC context, int x, int y, SIZE* before)
{
    const auto work = [&](Context& c) {
        const SIZE extent = c.mapping.ViewportExtent();
        if (!Valid(c.mapping.SetViewportExtent({x, y}, c.device))) return FALSE;
        Give(before, extent);
        return TRUE;
    };
    return Call("SetViewportExtEx", context).With(x, y).WithOutput(before).Run(FALSE, work, OutputOr(FALSE, before));
}

int SelectClipRgn(HDC context, HRGN region)
{
    return Call("SelectClipRgn", context).With(region).Run(ERROR_REGION, [&](Context& c) {
        if (region == nullptr) return SelectClip(c, nullptr);
        const Region* clip = FindAs<Region>(region);
        return clip != nullptr ? SelectClip(c, clip) : ERROR_REGION;
    });
}

int ExtEscape(HDC context, int code, int inputBytes, const CHAR* input, int outputBytes, CHAR* output)
{
    constexpr int Failed = -1;
    const auto work = [&](Context& c) {
        if (c.escapes == nullptr) return 0;
        const bool given = (input != nullptr || inputBytes == 0) && (output != nullptr || outputBytes == 0);
        if (!Valid(given && inputBytes >= 0 && outputBytes >= 0)) return Failed;
        return c.escapes->Escape(code,
                                 {reinterpret_cast<const std::uint8_t*>(input), static_cast<std::size_t>(inputBytes)},
                                 {reinterpret_cast<std::uint8_t*>(output), static_cast<std::size_t>(outputBytes)});
    };
    const auto shown = [&](int result) {
        if (output == nullptr) return Show(result);
        return result > 0 ? Show(BytesArgument{output, outputBytes}) : TraceValue();
    };
    Call call("ExtEscape", context);
    call.With(code, inputBytes, BytesArgument{input, inputBytes}, outputBytes).WithOutput(output);
    return call.Run(Failed, work, shown);
}

}  // extern "C"
