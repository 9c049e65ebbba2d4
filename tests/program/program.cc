#include "tests/program/program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <ostream>

namespace {

std::string Slurp(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Redirect(const std::filesystem::path& path, int flags, int descriptor)
{
    const int file = ::open(path.c_str(), flags, 0600);
    if (file < 0 || ::dup2(file, descriptor) < 0) ::_exit(126);
}

}  // namespace

void PrintTo(const Result& run, std::ostream* stream)
{
    *stream << "status " << run.status << "\nout: " << run.out << "err: " << run.err;
}

Program::Program()
{
    std::string name = (std::filesystem::temp_directory_path() / "qd480.XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
}

Program::~Program()
{
    std::error_code ignored;  // what a test leaves behind fails no test
    std::filesystem::remove_all(folder_, ignored);
}

Result Program::operator()(const std::vector<std::string>& words, const std::string& input) const
{
    const pid_t child = Start(words, input, "");
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status), Contents(".out"), Contents(".err")};
}

pid_t Program::Start(const std::vector<std::string>& given, const std::string& input, const std::string& name) const
{
    std::vector<std::string> words = given;
    for (std::string& word : words) {
        if (const auto mark = word.find("{}"); mark != std::string::npos) word.replace(mark, 2, folder_.string());
    }
    Put(".in" + name, input);
    const pid_t child = ::fork();
    if (child == 0) {
        ::setenv("DISPLAY", display.c_str(), 1);
        ::unsetenv("WAYLAND_DISPLAY");
        ::setenv("QT_QPA_PLATFORM", qtPlatform.c_str(), 1);
        ::setenv("XDG_DATA_HOME", folder_.c_str(), 1);
        ::setenv("LC_ALL", "C", 1);
        if (::chdir(folder_.c_str()) != 0) ::_exit(126);
        Redirect(Path(".in" + name), O_RDONLY, STDIN_FILENO);
        Redirect(Path(".out" + name), O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
        Redirect(Path(".err" + name), O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
        std::string program = QD_PROGRAM_PATH;
        std::vector<char*> arguments = {program.data()};
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        ::execv(arguments[0], arguments.data());
        ::_exit(127);
    }
    return child;
}

void Program::Put(const std::string& name, const std::string& contents) const
{
    std::ofstream(Path(name), std::ios::binary | std::ios::trunc) << contents;
}

std::string Program::Contents(const std::string& name) const { return Slurp(Path(name)); }
