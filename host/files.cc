#include "host/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
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

// What a signal that ends the program still has to take away; empty: nothing.
char unfinished[PATH_MAX] = "";
constexpr int EndingSignals[] = {SIGHUP, SIGINT, SIGTERM};

void RemoveAndEnd(int signal)
{
    if (unfinished[0]) ::unlink(unfinished);
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

// Signals that are ignored stay so.
void OnEndingSignals(void (*from)(int), void (*to)(int))
{
    for (const int signal : EndingSignals) {
        struct sigaction action;
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == from) std::signal(signal, to);
    }
}

// Holds those signals back while the file and its name are not both there.
class HeldSignals {
  public:
    HeldSignals()
    {
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : EndingSignals) sigaddset(&held, signal);
        ::sigprocmask(SIG_BLOCK, &held, &before_);
    }
    ~HeldSignals() { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

  private:
    sigset_t before_;
};

mode_t ModeOfNewFiles()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

void NeedOwnFile(const NamedFile& written, std::initializer_list<NamedFile> others)
{
    namespace fs = std::filesystem;
    if (written.path.empty() || written.path == "-") return;
    std::error_code unknown;
    const bool there = fs::exists(written.path, unknown);
    if (there && !fs::is_regular_file(written.path, unknown)) return;
    for (const NamedFile& other : others) {
        if (other.path.empty() || other.path == "-") continue;
        const bool same = there ? fs::equivalent(written.path, other.path, unknown)
                                : fs::weakly_canonical(fs::absolute(written.path, unknown), unknown) ==
                                      fs::weakly_canonical(fs::absolute(other.path, unknown), unknown);
        if (same) throw UsageError(written.path + ": " + written.name + " and " + other.name + " cannot be one file");
    }
}

std::string InputName(const std::string& path) { return path == "-" ? "standard input" : path; }

std::string BesideProgram(const char* file)
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) throw Failure("cannot find this program's own folder: " + error.message());
    return program.parent_path() / file;
}

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

PendingFile::PendingFile(const std::string& path) : path_(path), target_(path)
{
    struct stat status;
    const bool exists = ::stat(path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) Fail(errno);
    if (exists && !S_ISREG(status.st_mode)) {
        file_ = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
        if (file_ < 0) Fail(errno);
        return;
    }
    MakeBeside(exists, exists ? status.st_mode & 07777 : ModeOfNewFiles());
}

void PendingFile::MakeBeside(bool exists, unsigned mode)
{
    if (exists) {
        std::error_code ignored;  // a path that can't be resolved is taken as it stands
        const auto resolved = std::filesystem::canonical(path_, ignored);
        if (!ignored) target_ = resolved.string();
        if (::access(target_.c_str(), W_OK) != 0) Fail(errno);
    }
    std::string name = target_ + ".XXXXXX";
    if (name.size() >= sizeof unfinished) Fail(ENAMETOOLONG);
    const HeldSignals held;
    file_ = ::mkostemp(name.data(), O_CLOEXEC);
    if (file_ < 0) Fail(errno);
    temporary_ = name;
    std::memcpy(unfinished, name.c_str(), name.size() + 1);
    OnEndingSignals(SIG_DFL, RemoveAndEnd);
    if (::fchmod(file_, mode) != 0) {
        const int error = errno;
        Drop();
        Fail(error);
    }
}

PendingFile::~PendingFile() { Drop(); }

void PendingFile::Drop()
{
    if (file_ >= 0) ::close(std::exchange(file_, -1));
    if (temporary_.empty()) return;
    const HeldSignals held;
    ::unlink(temporary_.c_str());
    Forget();
}

// The file beside is no more.
void PendingFile::Forget()
{
    temporary_.clear();
    unfinished[0] = '\0';
    OnEndingSignals(RemoveAndEnd, SIG_DFL);
}

void PendingFile::Write(std::span<const std::uint8_t> bytes)
{
    if (const int error = WriteAll(file_, bytes)) Fail(error);
}

void PendingFile::Commit()
{
    if (::close(std::exchange(file_, -1)) != 0) Fail(errno);
    if (temporary_.empty()) return;
    const HeldSignals held;
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) Fail(errno);
    Forget();
}

void PendingFile::Fail(int error) const { throw Failure("cannot write " + path_ + ": " + Why(error)); }

void WriteFile(const std::string& path, std::span<const std::uint8_t> bytes)
{
    if (path == "-") return PrintBytes(bytes);
    PendingFile file(path);
    file.Write(bytes);
    file.Commit();
}

}  // namespace host
