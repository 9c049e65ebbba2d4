// Files of the command line. Every failure names the file and why.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

namespace host {

inline constexpr std::size_t FileLimit = std::size_t{64} << 20;  // bytes; more is no record, value or script

// How messages name an input.
std::string InputName(const std::string& path);

// The path of a file in this program's own folder. Failure when that can't be found.
std::string BesideProgram(const char* file);

// The whole file, or all of standard input for "-". Failure when it can't be read or is longer than limit.
std::vector<std::uint8_t> ReadFile(const std::string& path, std::size_t limit = FileLimit);
std::string ReadTextFile(const std::string& path, std::size_t limit = FileLimit);

// A file of the command line and what names it there.
struct NamedFile {
    const char* name;
    std::string path;
};
// UsageError when a file that is written would take away what another one holds. Names that are empty or "-", and
// pipes and devices, which keep nothing, are no files here.
void NeedOwnFile(const NamedFile& written, std::initializer_list<NamedFile> others);

// A file that is written whole or not at all: beside its place, and moved there at the end. When it is dropped
// before that, or a signal ends the program, nothing is left of it. What is no regular file (a pipe, a device)
// is written straight away. One at a time.
class PendingFile {
  public:
    explicit PendingFile(const std::string& path);  // Failure when there can be no such file
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    int Descriptor() const { return file_; }
    void Write(std::span<const std::uint8_t> bytes);
    void Commit();
    [[noreturn]] void Fail(int error) const;  // Failure: the path and why

  private:
    void MakeBeside(bool exists, unsigned mode);
    void Drop();
    void Forget();

    std::string path_, target_, temporary_;  // temporary_ is empty when target_ is written straight away
    int file_ = -1;
};

// The file whole or not at all, as above. "-" is standard output.
void WriteFile(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace host
