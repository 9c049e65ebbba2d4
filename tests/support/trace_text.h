// The trace of drawing calls as one line of text a call, for tests to compare: what is drawn on, the
// function, its arguments as compact JSON (bytes as x0aff), and the result where it is of interest. Contexts and
// handles of objects are left out, since their numbers say nothing.
#pragma once

#include <string>
#include <vector>

#include "platform/seams/trace.h"

namespace testing_support {

std::string TraceText(const platform::TraceValue& value);

class TraceLines : public platform::TraceSink {
  public:
    explicit TraceLines(bool withResults = false) : withResults_(withResults) {}
    void Call(const platform::TraceCall& call) override;

    // "1069 Rectangle [0,0,137,161]" or, with results, "- GetDC [] = 5", in the order of the calls; forgets them.
    std::vector<std::string> Take();

  private:
    const bool withResults_;
    std::vector<std::string> lines_;
};

}  // namespace testing_support
