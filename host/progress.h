// Tells a person at a terminal how far long work has come: one line on standard error, written over and taken
// away at the end. Silent elsewhere and for work that is soon done.
#pragma once

#include <chrono>
#include <string>

namespace host {

class Progress {
  public:
    Progress();
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Tell(const std::string& how);

  private:
    using Clock = std::chrono::steady_clock;
    bool terminal_;
    bool shown_ = false;
    Clock::time_point next_;
};

}  // namespace host
