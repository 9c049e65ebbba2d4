#include "host/print_job.h"

#include <algorithm>
#include <string>

#include "platform/kernel/code_pages.h"
#include "platform/seams/surface.h"

namespace host {

namespace {

constexpr int GetSettingsEscape = 5001;

template <class T>
std::span<std::uint8_t> BytesOf(T& value)
{
    return {reinterpret_cast<std::uint8_t*>(&value), sizeof value};
}

Json NarrowText(std::span<const std::uint8_t> payload)
{
    const auto end = std::ranges::find(payload, 0);
    return Text(platform::FromNarrow(std::string(payload.begin(), end)));
}

}  // namespace

int RenderingSide::Escape(int code, std::span<const std::uint8_t> input, std::span<std::uint8_t> output)
{
    if (lines_) {
        lines_->Add({
            {"escape", code             },
            {"size",   input.size()     },
            {"text",   NarrowText(input)}
        });
    }
    if (code == GetSettingsEscape) {
        const auto known = record_.Bytes().first(std::min(output.size(), record_.Bytes().size()));
        std::fill(std::ranges::copy(known, output.begin()).out, output.end(), std::uint8_t{0});
    }
    return 1;
}

PrintJob::PrintJob(Context& context, HANDLE printer, const std::u16string& name, const JobRecord& record,
                   const platform::gdi::JobDevice& device, JsonLines* events)
    : entry_(context.Entry<DocumentEventEntry>("DrvDocumentEvent")),
      printer_(printer),
      record_(record),
      events_(events),
      rendering_(record, events)
{
    // The module makes the record that it is shown ready in place; the context's own stays as it was asked for.
    JobRecord shown = record;
    CreationWords words{name.c_str(), name.c_str(), &shown.Settings(), 0};
    void* taken = nullptr;
    Send(DOCUMENTEVENT_CREATEDCPRE, BytesOf(words), BytesOf(taken));
    context_ = std::make_unique<JobContext>(device, rendering_);
    open_ = true;
    try {
        Send(DOCUMENTEVENT_CREATEDCPOST);
        Send(DOCUMENTEVENT_STARTDOC);
    } catch (...) {
        Abort();
        throw;
    }
}

PrintJob::~PrintJob() { Abort(); }

void PrintJob::Abort()
{
    if (!open_) return;
    open_ = false;
    Tell(DOCUMENTEVENT_ABORTDOC);
    Tell(DOCUMENTEVENT_DELETEDC);
}

void PrintJob::Reset()
{
    JobRecord shown = record_;
    void* word = &shown.Settings();
    void* taken = nullptr;
    Send(DOCUMENTEVENT_RESETDCPRE, BytesOf(word), BytesOf(taken));
    Send(DOCUMENTEVENT_RESETDCPOST);
}

void PrintJob::Page(std::shared_ptr<platform::Surface> surface)
{
    platform::gdi::SetJobSurface(*context_, std::move(surface));
    Send(DOCUMENTEVENT_STARTPAGE);
    Send(DOCUMENTEVENT_ENDPAGE);
}

void PrintJob::End()
{
    Send(DOCUMENTEVENT_ENDDOC);
    open_ = false;
    Tell(DOCUMENTEVENT_DELETEDC);
}

int PrintJob::Tell(int event, std::span<std::uint8_t> input, std::span<std::uint8_t> output)
{
    const int result = entry_(printer_, context_ ? HDC{*context_} : nullptr, event, static_cast<ULONG>(input.size()),
                              input.data(), static_cast<ULONG>(output.size()), output.data());
    if (events_) {
        events_->Add({
            {"event",  event },
            {"result", result}
        });
    }
    return result;
}

void PrintJob::Send(int event, std::span<std::uint8_t> input, std::span<std::uint8_t> output)
{
    if (Tell(event, input, output) < 0) throw Failure("the job failed at event " + std::to_string(event));
}

}  // namespace host
