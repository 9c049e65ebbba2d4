// Runs qd480 as a process of its own, in a folder of its own with a store of its own.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

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
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Words as a shell would pass them. {} in a word is the folder.
    Result operator()(const std::vector<std::string>& words, const std::string& input = "") const;
    // The same without waiting for it. What it reads and writes is in files that end in name; the caller waits
    // for the process.
    pid_t Start(const std::vector<std::string>& words, const std::string& input, const std::string& name) const;

    std::filesystem::path Path(const std::string& name) const { return folder_ / name; }
    void Put(const std::string& name, const std::string& contents) const;
    std::string Contents(const std::string& name) const;

    std::string display, qtPlatform;  // what DISPLAY and QT_QPA_PLATFORM name

  private:
    std::filesystem::path folder_;
};

// What a run that has done its work looks like.
inline Result Done(const std::string& out = "") { return {0, out, ""}; }
