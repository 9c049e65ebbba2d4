#include "host/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/context.h"
#include "host/errors.h"

namespace host {

namespace {

std::string Why(int error) { return std::generic_category().message(error); }

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor()
    {
        if (number_ > 2) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return number_; }
    int Close()  // 0 or the error number
    {
        const int number = std::exchange(number_, -1);
        return ::close(number) == 0 ? 0 : errno;
    }

  private:
    int number_;
};

int WriteAll(int file, std::span<const std::uint8_t> bytes)  // 0 or the error number
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return 0;
}

[[noreturn]] void FailWriting(const std::string& path, int error)
{
    throw Failure("cannot write " + path + ": " + Why(error));
}

void WriteStraight(const std::string& path, std::span<const std::uint8_t> bytes)
{
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (file < 0) FailWriting(path, errno);
    if (const int error = WriteAll(file, bytes)) FailWriting(path, error);
    if (const int error = file.Close()) FailWriting(path, error);
}

mode_t ModeFor(const struct stat* existing)
{
    if (existing) return existing->st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// existing is null when there is no such file yet.
void WriteBeside(const std::string& path, const struct stat* existing, std::span<const std::uint8_t> bytes)
{
    std::error_code ignored;  // a path that can't be resolved is taken as it stands
    const auto resolved = std::filesystem::canonical(path, ignored);
    const std::string target = existing && !ignored ? resolved.string() : path;
    if (existing && ::access(target.c_str(), W_OK) != 0) FailWriting(path, errno);

    std::string temporary = target + ".XXXXXX";
    Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (file < 0) FailWriting(path, errno);
    int error = WriteAll(file, bytes);
    if (!error && ::fchmod(file, ModeFor(existing)) != 0) error = errno;
    if (const int closing = file.Close(); !error) error = closing;
    if (!error && ::rename(temporary.c_str(), target.c_str()) != 0) error = errno;
    if (error) {
        ::unlink(temporary.c_str());
        FailWriting(path, error);
    }
}

}  // namespace

std::string InputName(const std::string& path) { return path == "-" ? "standard input" : path; }

std::vector<std::uint8_t> ReadFile(const std::string& path, std::size_t limit)
{
    const auto fail = [&](const std::string& why) { throw Failure("cannot read " + InputName(path) + ": " + why); };

    Descriptor file(path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file < 0) fail(Why(errno));
    std::vector<std::uint8_t> bytes;
    for (;;) {
        constexpr std::size_t Step = 64 << 10;
        const std::size_t length = bytes.size();
        bytes.resize(length + Step);
        ssize_t got;
        do got = ::read(file, bytes.data() + length, Step);
        while (got < 0 && errno == EINTR);
        if (got < 0) fail(Why(errno));
        bytes.resize(length + static_cast<std::size_t>(got));
        if (got == 0) return bytes;
        if (bytes.size() > limit) fail("it is longer than " + std::to_string(limit) + " bytes");
    }
}

std::string ReadTextFile(const std::string& path, std::size_t limit)
{
    const auto bytes = ReadFile(path, limit);
    return {bytes.begin(), bytes.end()};
}

void WriteFile(const std::string& path, std::span<const std::uint8_t> bytes)
{
    if (path == "-") return PrintBytes(bytes);
    struct stat status;
    const bool exists = ::stat(path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) FailWriting(path, errno);
    if (exists && !S_ISREG(status.st_mode)) return WriteStraight(path, bytes);
    WriteBeside(path, exists ? &status : nullptr, bytes);
}

}  // namespace host
