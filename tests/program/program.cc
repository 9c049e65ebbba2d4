#include "tests/program/program.h"

#include <sys/wait.h>

#include <regex>

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
    Put(".in" + name, input);
    const std::string folder = "'" + folder_.Path().string() + "'",
                      words = std::regex_replace(line, std::regex(R"(\bNAME\b)"), "'Ordana Quillet 4820E'"),
                      command = "cd " + folder + " && exec env -u WAYLAND_DISPLAY DISPLAY=" + display +
                                " QT_QPA_PLATFORM=" + qtPlatform + " XDG_DATA_HOME=" + folder +
                                " LC_ALL=C '" QD_PROGRAM_PATH "' " + words + " <.in" + name + " >.out" + name +
                                " 2>.err" + name;
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    ::_exit(127);
}

std::string Program::Told(const std::string& command) const
{
    EXPECT_NE(std::system(("cd '" + folder_.Path().string() + "' && " + command + " >.told 2>&1").c_str()), -1);
    return Contents(".told");
}
