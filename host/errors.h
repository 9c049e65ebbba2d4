// How a command ends. A command that throws neither of these has done its work; its status is the context's.
#pragma once

#include <stdexcept>

namespace host {

// Exit statuses of the program.
inline constexpr int Done = 0;       // or the user pressed OK
inline constexpr int Cancelled = 1;  // or two records differ
inline constexpr int WrongUsage = 2;
inline constexpr int Failed = 3;

// The command line asks for what there is not. Status 2.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// What was asked for could not be done; the message names what and why. Status 3.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace host
