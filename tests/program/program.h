// Runs qd480 as a process of its own, in a folder of its own with a store of its own.
#pragma once

#include <gmock/gmock.h>
#include <sys/types.h>

#include "tests/store/temporary.h"

struct Result {
    int status;  // the exit status; 1000 and the signal when one ended it
    std::string out, err;
    bool operator==(const Result& other) const
    {
        return status == other.status && out == other.out && err == other.err;
    }
};
void PrintTo(const Result& run, std::ostream* stream);

class Program {
  public:
    // The words of a line as the shell passes them; NAME is the printer that every new store has.
    Result operator()(const std::string& line, const std::string& input = "") const;
    // The same without waiting for it. What it reads and writes is in files that end in name; the caller waits
    // for the process.
    pid_t Start(const std::string& line, const std::string& input, const std::string& name) const;

    // What another command of the machine prints in that folder.
    std::string Told(const std::string& command) const;

    std::filesystem::path Path(const std::string& name) const { return folder_ / name; }
    void Put(const std::string& name, const std::string& contents) const { ::Put(Path(name), contents); }
    std::vector<std::string> Names() const { return folder_.Names(); }
    std::string Contents(const std::string& name) const { return ::Contents(Path(name)); }

    std::string display, qtPlatform;  // what DISPLAY and QT_QPA_PLATFORM name

  private:
    TemporaryFolder folder_;
};

// What a run that has done its work looks like, one that answers a line, and one that only says why it could not.
inline Result Done(const std::string& out = "") { return {0, out, ""}; }
inline Result Answered(const std::string& line) { return Done(line + "\n"); }
inline Result Failed(const std::string& why, int status = 3) { return {status, "", "qd480: " + why + "\n"}; }

// Expects of each line, its words behind the command, that it ends with this status and says nothing but why: what
// stands on standard error begins with the row's text.
struct Refusal {
    std::string words, why;
};
void ExpectRefused(const Program& run, int status, const std::string& command, const std::vector<Refusal>& rows = {{}},
                   const std::string& input = "");

struct ProgramTest : testing::Test {
    Program run;
};
