// Walks through the module again and again, each time with other platform calls that fail: at each place one call
// alone, that function from there on, and everything from there on. A walk makes its own machine, turns the faults
// on when all stands and off before it looks at what has come of it.
//
// Of the places about one in every so many is tried; all of them by tools/every_failure.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <set>
#include <string>

#include "platform/seams/fault_plan.h"

namespace testing_support {

class Attempt {
  public:
    enum class Mode { Clean, Once, Later, All };
    Attempt() = default;
    Attempt(Mode mode, std::string function, std::uint64_t call)
        : mode_(mode), function_(std::move(function)), call_(call)
    {
    }

    void Begin() const;
    void End();  // more than once does no harm

    bool Clean() const { return mode_ == Mode::Clean; }
    bool Single() const { return mode_ == Mode::Once; }
    std::string Name() const;
    // To be called where something has been done: whatever has failed since then failed in one of these places.
    void Note(std::initializer_list<int> places);
    bool FailedAt(std::initializer_list<int> places) const
    {
        return std::ranges::any_of(places, [this](int place) { return places_.contains(place); });
    }
    // How often calls of these functions have failed.
    std::uint64_t Failed(std::initializer_list<const char*> functions) const;
    std::uint64_t Failed() const;  // of any
    const platform::FaultPlan::Counters& Calls() const { return calls_; }

  private:
    Mode mode_ = Mode::Clean;
    std::string function_;
    std::uint64_t call_ = 0;
    platform::FaultPlan::Counters calls_, failures_;
    std::set<int> places_;
    std::uint64_t noted_ = 0;  // failures so far
};

// Tries the places in one way and checks after each that nothing has been kept but what could not be given back,
// that the walk ends, and at last that it still goes as it did before the first.
void TryEveryPlace(const char* what, Attempt::Mode mode, std::uint64_t every,
                   const std::function<void(Attempt&)>& walk);

// A walk's tests, one for each way to fail.
class FailingCalls : public testing::TestWithParam<Attempt::Mode> {};
inline constexpr Attempt::Mode EveryWay[] = {Attempt::Mode::Once, Attempt::Mode::Later, Attempt::Mode::All};
inline std::string NameOfWay(const testing::TestParamInfo<Attempt::Mode>& way)
{
    constexpr const char* Names[] = {"", "Once", "FromThereOn", "WithAllOthers"};
    return Names[static_cast<std::size_t>(way.param)];
}

}  // namespace testing_support
