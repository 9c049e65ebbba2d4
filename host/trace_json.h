// The trace as JSON lines.
#pragma once

#include <string>

#include "host/json.h"
#include "host/json_lines.h"
#include "platform/seams/trace.h"

namespace host {

Json TraceLine(const platform::TraceCall& call);

// Writes a line for each call.
class TraceFile : public platform::TraceSink {
  public:
    explicit TraceFile(const std::string& path) : lines_("the trace", path) {}  // made empty; Failure when it can't be
    void Call(const platform::TraceCall& call) override { lines_.Add(TraceLine(call)); }
    void Check() { lines_.Check(); }  // Failure when not all could be written

  private:
    JsonLines lines_;
};

}  // namespace host
