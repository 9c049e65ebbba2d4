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
    void Clear();  // no faults, counters at 0, counting off
    void CountCalls(bool on) { counting_ = on; }
    const std::map<std::string, std::uint64_t, std::less<>>& Calls() const { return calls_; }

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
    std::map<std::string, std::uint64_t, std::less<>> calls_;
    bool counting_ = false;
    bool planned_ = false;
};

}  // namespace platform
