#include "tests/program/program.h"

#include <fcntl.h>
#include <sys/wait.h>

#include <iomanip>
#include <sstream>

namespace {

std::vector<std::string> Words(const std::string& line)
{
    std::vector<std::string> words = {QD_PROGRAM_PATH};
    std::istringstream rest(line);
    for (std::string word; rest >> std::quoted(word, '\'');)
        words.push_back(word == "NAME" ? "Ordana Quillet 4820E" : word);
    return words;
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

void ExpectRefused(const Program& run, int status, const std::string& command, const std::vector<Refusal>& rows,
                   const std::string& input)
{
    for (const auto& [words, why] : rows) {
        const Result result = run(command + words, input);
        EXPECT_EQ(result, (Result{status, "", result.err})) << words;
        EXPECT_EQ(result.err.substr(0, why.size() + 7), "qd480: " + why) << words;
    }
}

Result Program::operator()(const std::string& line, const std::string& input) const
{
    const pid_t child = Start(line, input, "");
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status), Contents(".out"), Contents(".err")};
}

pid_t Program::Start(const std::string& line, const std::string& input, const std::string& name) const
{
    std::vector<std::string> words = Words(line);
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    Put(".in" + name, input);
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::setenv("DISPLAY", display.c_str(), 1);
    ::unsetenv("WAYLAND_DISPLAY");
    ::setenv("QT_QPA_PLATFORM", qtPlatform.c_str(), 1);
    ::setenv("XDG_DATA_HOME", folder_.Path().c_str(), 1);
    ::setenv("LC_ALL", "C", 1);
    if (::chdir(folder_.Path().c_str()) != 0) ::_exit(126);
    Redirect(Path(".in" + name), O_RDONLY, STDIN_FILENO);
    Redirect(Path(".out" + name), O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
    Redirect(Path(".err" + name), O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
}
