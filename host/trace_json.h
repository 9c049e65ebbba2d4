// The trace as JSON lines.
#pragma once

#include <memory>
#include <string>

#include "host/json.h"
#include "platform/seams/trace.h"

namespace host {

Json TraceLine(const platform::TraceCall& call);

// Writes a line for each call. A failure to write is kept for Check, since calls come from inside the module,
// which lets no exception through.
class TraceFile : public platform::TraceSink {
  public:
    explicit TraceFile(const std::string& path);  // made empty; Failure when it can't be
    ~TraceFile() override;
    void Call(const platform::TraceCall& call) override;
    void Check();  // Failure when not all could be written

  private:
    struct Output;
    std::unique_ptr<Output> output_;
};

}  // namespace host
