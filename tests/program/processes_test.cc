// Writers, readers, sheets and jobs as processes of their own on one store, killed at any moment.
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <csignal>
#include <nlohmann/json.hpp>
#include <random>

#include "tests/program/program.h"

namespace {

using testing::AnyOf;
using Random = std::mt19937;

constexpr int Processes = 5;

struct Work {
    std::string line, input;
    int mostStatus = 0;  // how it may end by itself
};

std::string Hex(Random& random)
{
    const char digit = "123456789abcdef"[random() % 15];
    return std::string(2 * (1 + random() % 20'000), digit);
}

// A watermark and a custom size under a new name in the place of the first ones, and the record for the printer.
std::string Script(int round, int process)
{
    const std::string name = "\"Own" + std::to_string(round) + "." + std::to_string(process) + "\"\nok\n";
    return "page \"Setup\"\nclick IDC_EDIT_WATERMARK\nchoose IDC_WM_LIST 1\nclick IDC_WM_DELETE\n"
           "click IDC_WM_NEW\ntype IDC_WM_NAME " +
           name +
           "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nrow IDC_CP_LIST 0\nclick IDC_CP_DELETE\n"
           "click IDC_CP_NEW\ntype IDC_CP_NAME " +
           name + "type IDC_COPIES \"7\"\nok\n";
}

// A list of one overlay, which waits for a job to make its file, or has been made.
std::string Overlays(bool waits)
{
    std::string row(2 * 1060, '0');
    row.replace(0, 4, "4f00").replace(2 * 524, 4, "2f00");
    row[2 * 1048 + 1] = waits ? '1' : '0';
    return "00000000" + row;
}

Work Something(int round, int process, Random& random)
{
    const std::string mine = "Mine" + std::to_string(process);
    switch (random() % 9) {
        case 0:
            return {"printer data NAME " + mine + " --hex " + Hex(random), ""};
        case 1:
            return {"printer registry NAME Shared --hex " + Hex(random), ""};
        case 2:
            return {"printer data NAME Shared --hex " + Hex(random), ""};
        case 3:
            return {"print NAME --pages 1 -o " + mine + ".pdf", ""};
        case 4:
            return {"printer data NAME OverlayData --hex " + Overlays(true), ""};
        case 5:
            return {"capabilities NAME", ""};
        default:
            // Cancelled (1) where another one has just changed the lists under its hands.
            return {"sheet NAME --platform country=49 --platform fonts=builtin --store-default --script -",
                    Script(round, process), 1};
    }
}

bool OneDigit(const std::string& hex) { return hex.find_first_not_of(hex.front()) == hex.npos; }

// A value of watermarks: as many lines as the first one says, or as many as there are; nothing behind them.
std::ptrdiff_t LinesOf(const std::string& hex, bool counted)
{
    std::string text;
    for (std::size_t at = 0; at < hex.size(); at += 4)
        text += static_cast<char>(std::stoi(hex.substr(at, 2), nullptr, 16));
    const std::size_t end = std::min(text.find('\0'), text.size());
    EXPECT_EQ(text.find_first_not_of('\0', end), text.npos);
    const std::ptrdiff_t lines = std::count(text.begin(), text.end(), '\n') - counted;
    EXPECT_TRUE(!counted || lines == std::atoi(text.c_str())) << text;
    return lines;
}

// Every value is one that some process has written whole; the two or three values of a list may be of two of them.
void CheckValues(const nlohmann::json& values)
{
    for (const auto& [name, value] : values.items()) {
        const std::string hex = value.value("hex", "");
        if (name == "Shared" || name.starts_with("Mine")) {
            EXPECT_TRUE(!hex.empty() && OneDigit(hex)) << name;
        } else if (name.starts_with("Watermark")) {
            EXPECT_EQ(hex.size(), 6000u) << name;
            EXPECT_EQ(LinesOf(hex, name != "WatermarkAttributes"), 7);  // one for one
        } else if (name == "CustomPaperData") {
            EXPECT_EQ(hex.size() % 112, 0u);
            // "Own" or "New Paper" begins each name.
            for (std::size_t row = 0; row < hex.size(); row += 112)
                EXPECT_THAT(hex.substr(row + 28, 8), AnyOf("4f007700", "4e006500")) << row;
        } else if (name == "OverlayData") {
            EXPECT_THAT(hex, AnyOf(Overlays(true), Overlays(false)));
        } else if (name == "OverlayDataSize") {
            EXPECT_EQ(value["value"], 1064);
        } else {
            EXPECT_EQ(name, "CustomPaperDataSize");
            EXPECT_EQ(value["value"].get<int>() % 56, 0);
        }
    }
}

// QD480_KILLING_ROUNDS makes more rounds.
TEST(Processes, ThatAreKilledAtRandomLeaveTheStoreWhole)
{
    const char* more = std::getenv("QD480_KILLING_ROUNDS");
    const int rounds = more ? std::atoi(more) : 12;
    Program run;
    ASSERT_EQ(run("printer data NAME MineKept --hex 77777777"), Done());
    ASSERT_EQ(run("printer data NAME OverlayDataSize --dword 1064"), Done());
    ASSERT_EQ(run("printer data NAME OverlayData --hex " + Overlays(true)), Done());
    ASSERT_EQ(run("sheet NAME --store-default --script -", Script(0, 0)).status, 0);  // there is no size yet to delete
    Random random(20'480);
    int killed = 0, accepted = 0;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        std::vector<std::pair<pid_t, int>> children;  // with the most that their status may be
        for (int i = 0; i < Processes; ++i) {
            const Work work = Something(round, i, random);
            children.emplace_back(run.Start(work.line, work.input, std::to_string(i)), work.mostStatus);
        }
        std::shuffle(children.begin(), children.end(), random);
        // One of them may end its work, however slow the machine is.
        for (std::size_t i = 1; i < children.size(); ++i) {
            ::usleep(random() % 15'000);
            ::kill(children[i].first, SIGKILL);
        }
        for (const auto& [child, most] : children) {
            int status = 0;
            ::waitpid(child, &status, 0);
            killed += WIFSIGNALED(status);
            accepted += most == 1 && status == 0;
            EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) <= most) << status;
        }

        for (const char* what : {"data", "registry"}) {
            const Result left = run(std::string("printer ") + what + " NAME");
            ASSERT_EQ(left.status, 0) << left.err;
            CheckValues(nlohmann::json::parse(left.out));
        }
        ASSERT_EQ(run("printer record NAME -o record").status, 0);
        if (run.Contents("record").empty()) continue;
        const Result record = run("record show record");
        ASSERT_EQ(record.status, 0) << record.err;
        EXPECT_EQ(nlohmann::json::parse(record.out)["dmCopies"], 7);
    }
    EXPECT_GT(killed, rounds / 2);
    EXPECT_GT(accepted, 0);
    EXPECT_EQ(nlohmann::json::parse(run("printer data NAME MineKept").out)["MineKept"]["hex"], "77777777");
    // All that was left half done is gone, and the store goes on.
    EXPECT_EQ(run("sheet NAME --platform country=49 --script - --strict", "ok\n").status, 0);
}

}  // namespace
