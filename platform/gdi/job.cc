#include "platform/gdi/job.h"

#include <algorithm>

#include "platform/gdi/call.h"
#include "platform/gdi/context.h"

namespace platform::gdi {

HDC CreateJobContext(const JobDevice& job, std::shared_ptr<Surface> surface, EscapeTarget* escapes)
{
    const std::lock_guard lock(DrawingLock());
    Device device;
    device.dotsPerInchX = std::max(1, job.dotsPerInchX);
    device.dotsPerInchY = std::max(1, job.dotsPerInchY);
    device.width = job.printableWidth;
    device.height = job.printableHeight;
    device.bitsPerPixel = 1;
    device.physicalWidth = job.physicalWidth;
    device.physicalHeight = job.physicalHeight;
    device.offsetX = job.offsetX;
    device.offsetY = job.offsetY;
    auto context = std::make_unique<Context>(ContextKind::Job, device);
    context->surface = std::move(surface);
    context->escapes = escapes;
    return AddContext(std::move(context));
}

bool SetJobSurface(HDC job, std::shared_ptr<Surface> surface)
{
    const std::lock_guard lock(DrawingLock());
    Context* context = PeekContext(job);
    if (context == nullptr || context->kind != ContextKind::Job) return false;
    context->surface = std::move(surface);
    return true;
}

void DeleteJobContext(HDC job)
{
    const std::lock_guard lock(DrawingLock());
    const Context* context = PeekContext(job);
    if (context != nullptr && context->kind == ContextKind::Job) RemoveContext(job);
}

}  // namespace platform::gdi
