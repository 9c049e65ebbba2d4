#include "platform/gdi/call.h"

#include "platform/gdi/window_area.h"
#include "platform/seams/environment.h"

namespace platform::gdi {

std::recursive_mutex& DrawingLock()
{
    static auto* lock = new std::recursive_mutex;
    return *lock;
}

Call::Call(const char* function) : lock_(DrawingLock()), function_(function)
{
    if (!CurrentEnvironment().trace) return;
    traced_ = std::make_unique<TraceCall>();
    traced_->function = function;
}

Call::Call(const char* function, HDC context) : Call(function)
{
    context_ = context;
    const Context* owner = traced_ ? PeekContext(context) : nullptr;
    if (owner == nullptr) return;
    // Now: the call itself may give the context back.
    traced_->context = Show(context);
    if (owner->kind == ContextKind::Job) traced_->on.kind = TraceOwner::Kind::Job;
    if (owner->kind == ContextKind::Window) traced_->on = {TraceOwner::Kind::Control, owner->control};
}

Call& Call::On(HWND window)
{
    if (!traced_) return *this;
    if (const auto control = ControlNumber(window)) traced_->on = {TraceOwner::Kind::Control, *control};
    return *this;
}

HDC Call::Made(HDC context)
{
    if (traced_) traced_->context = Show(context);
    return context;
}

void Call::Trace(TraceValue result)
{
    traced_->result = std::move(result);
    // A sink may go while the call runs.
    if (const auto sink = CurrentEnvironment().trace) sink->Call(*traced_);
}

}  // namespace platform::gdi
