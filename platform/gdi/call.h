// One drawing call that comes in from outside the layer. It asks the fault plan, looks the context up, keeps
// exceptions inside, and puts the call into the trace as it was made, with what came of it:
//
//     return Call("LineTo", context).With(x, y).Run(FALSE, [&](Context& c) { return DrawLineTo(c, {x, y}); });
#pragma once

#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <type_traits>

#include "platform/gdi/context.h"
#include "platform/gdi/trace_values.h"
#include "platform/kernel/last_error.h"

namespace platform::gdi {

// Held by every call, so that a job's thread and a sheet's do not meet in the tables. A callback may call again.
std::recursive_mutex& DrawingLock();

class Call {
  public:
    explicit Call(const char* function);  // of no context
    Call(const char* function, HDC context);
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    // The arguments that the trace shows, in their order.
    template <class... Args>
    Call& With(const Args&... args)
    {
        if (traced_) (traced_->args.push_back(Show(args)), ...);
        return *this;
    }
    // An output argument is what the call results in; one that the caller leaves out stands as null.
    template <class T>
    Call& WithOutput(const T* output)
    {
        if (traced_ && output == nullptr) traced_->args.emplace_back();
        return *this;
    }
    Call& On(HWND window);  // what is called belongs to this window
    HDC Made(HDC context);  // what is called has made this context

    // Runs work(Context&), or work() if no context is needed, unless the call is planned to fail; gives what it
    // gives, or failing. shown(result) is what the trace shows as the result.
    template <class R, class Work, class Shown>
    R Run(R failing, Work work, Shown shown)
    {
        R result = failing;
        if (!Fault(function_, std::is_pointer_v<R> ? ERROR_NOT_ENOUGH_MEMORY : ERROR_GEN_FAILURE)) {
            try {
                if constexpr (std::is_invocable_v<Work, Context&>) {
                    if (Context* context = FindContext(context_)) result = static_cast<R>(work(*context));
                } else {
                    result = static_cast<R>(work());
                }
            } catch (const std::bad_alloc&) {
                SetError(ERROR_NOT_ENOUGH_MEMORY);
            } catch (const std::exception&) {
                SetError(ERROR_GEN_FAILURE);
            }
        }
        if (traced_) Trace(shown(result));
        return result;
    }
    template <class R, class Work>
    R Run(R failing, Work work)
    {
        return Run(failing, work, [](R result) { return Show(result); });
    }

  private:
    void Trace(TraceValue result);

    std::lock_guard<std::recursive_mutex> lock_;
    const char* function_;
    HDC context_ = nullptr;
    std::unique_ptr<TraceCall> traced_;  // null: nobody listens
};

// What the trace shows of a function with an output argument: that argument, or nothing if the call failed.
// Where the caller wants no output it is the result itself.
template <class R, class T>
auto OutputOr(R failing, const T* output)
{
    return [failing, output](R result) {
        if (output == nullptr) return Show(result);
        return result == failing ? TraceValue() : Show(*output);
    };
}

}  // namespace platform::gdi
