// A job as the print subsystem and the rendering side run it around the module: the events in their order, on the
// job's context, and the answers to the module's escapes.
#pragma once

#include <memory>

#include "host/entries.h"
#include "host/job_record.h"
#include "host/json_lines.h"
#include "platform/gdi/job.h"

namespace host {

// Stands where the rendering side does: hands out the record that the context holds and takes all else.
class RenderingSide : public platform::gdi::EscapeTarget {
  public:
    // lines may be null.
    RenderingSide(const JobRecord& record, JsonLines* lines) : record_(record), lines_(lines) {}
    int Escape(int code, std::span<const std::uint8_t> input, std::span<std::uint8_t> output) override;

  private:
    const JobRecord& record_;
    JsonLines* lines_;
};

class JobContext {
  public:
    JobContext(const platform::gdi::JobDevice& device, RenderingSide& escapes)
        : handle_(platform::gdi::CreateJobContext(device, nullptr, &escapes))
    {
    }
    ~JobContext() { platform::gdi::DeleteJobContext(handle_); }
    JobContext(const JobContext&) = delete;
    JobContext& operator=(const JobContext&) = delete;
    operator HDC() const { return handle_; }

  private:
    HDC handle_;
};

// The words of an event's input; the module looks at the record and the flag alone.
struct CreationWords {
    const WCHAR* driver;
    const WCHAR* device;
    void* record;
    std::uintptr_t informationContext;
};

class PrintJob {
  public:
    // Creates the context and starts the document. events, a line for each event and escape, may be null.
    // Failure, here and below, when an event fails.
    PrintJob(Context& context, HANDLE printer, const std::u16string& name, const JobRecord& record,
             const platform::gdi::JobDevice& device, JsonLines* events);
    ~PrintJob();  // a job that has not ended is aborted
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    void Reset();
    void Page(std::shared_ptr<platform::Surface> surface);  // what is drawn at its end comes there
    void End();

  private:
    void Abort();
    int Tell(int event, std::span<std::uint8_t> input = {}, std::span<std::uint8_t> output = {});
    void Send(int event, std::span<std::uint8_t> input = {}, std::span<std::uint8_t> output = {});

    DocumentEventEntry* entry_;
    HANDLE printer_;
    const JobRecord& record_;
    JsonLines* events_;
    RenderingSide rendering_;
    std::unique_ptr<JobContext> context_;  // null before it is created
    bool open_ = false;
};

}  // namespace host
