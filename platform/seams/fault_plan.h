// The fault plan: which call of which platform function fails. Every function of the layer that can fail
// asks the plan first, by its own name; only calls that come in from outside the layer count. A message
// name (LB_INSERTSTRING) stands for a control that has no room for it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/types.h"

namespace platform {

class QD_API FaultPlan {
  public:
    // The call-th call (from 1) fails, with andLater every one behind it too.
    void Add(std::string_view name, std::uint64_t call, bool andLater);
    // The call-th of all calls, whatever the function, fails, and every one behind it.
    void AddAll(std::uint64_t call);
    void Clear();  // no faults, counters at 0, counting off
    void CountCalls(bool on) { counting_ = on; }
    using Counters = std::map<std::string, std::uint64_t, std::less<>>;
    const Counters& Calls() const { return calls_; }
    const Counters& Failures() const { return failures_; }  // the calls among them that have failed

    // Counts a call and tells whether it is to fail.
    bool Fails(const char* name) { return (counting_ || planned_) && CountedFails(name); }

    // Whether the layer offers a function or message of this name.
    static bool Offers(std::string_view name);

  private:
    struct Rule {
        std::uint64_t call;
        bool andLater;
    };
    bool CountedFails(const char* name);
    std::multimap<std::string, Rule, std::less<>> rules_;
    Counters calls_, failures_;
    std::uint64_t allCalls_ = 0, allFrom_ = 0;  // allFrom_ 0: never
    bool counting_ = false;
    bool planned_ = false;
};

}  // namespace platform
