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
};

std::string Hex(Random& random)
{
    const char digit = "123456789abcdef"[random() % 15];
    return std::string(2 * (1 + random() % 20'000), digit);
}

// A watermark and a custom size under a new name, and the record for the printer.
std::string Script(int number)
{
    const std::string name = "\"Own" + std::to_string(number) + "\"\nok\n";
    return "page \"Setup\"\nclick IDC_EDIT_WATERMARK\nclick IDC_WM_NEW\ntype IDC_WM_NAME " + name +
           "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nclick IDC_CP_NEW\ntype IDC_CP_NAME " + name +
           "type IDC_COPIES \"7\"\nok\n";
}

// A list of one overlay, which waits for a job to make its file, or has been made.
std::string Overlays(bool waits)
{
    std::string row(2 * 1060, '0');
    row.replace(0, 4, "4f00").replace(2 * 524, 4, "2f00");
    row[2 * 1048 + 1] = waits ? '1' : '0';
    return "00000000" + row;
}

Work Something(int process, Random& random)
{
    const std::string mine = "Mine" + std::to_string(process);
    switch (random() % 7) {
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
        default:
            return {"sheet NAME --platform country=49 --platform fonts=builtin --store-default --script -",
                    Script(process)};
    }
}

bool OneDigit(const std::string& hex) { return hex.find_first_not_of(hex.front()) == hex.npos; }

// Every value is one that some process has written whole; the two or three values of a list may be of two of them.
void CheckValues(const nlohmann::json& values)
{
    for (const auto& [name, value] : values.items()) {
        const std::string hex = value.value("hex", "");
        if (name == "Shared" || name.starts_with("Mine")) {
            EXPECT_TRUE(!hex.empty() && OneDigit(hex)) << name;
        } else if (name.starts_with("Watermark")) {
            EXPECT_EQ(hex.size(), 6000u) << name;
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
    ASSERT_EQ(run("sheet NAME --store-default --strict --script -", Script(0)).status, 0);
    Random random(20'480);
    int killed = 0;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        std::vector<pid_t> children;
        for (int i = 0; i < Processes; ++i) {
            const auto [line, input] = Something(i, random);
            children.push_back(run.Start(line, input, std::to_string(i)));
        }
        std::shuffle(children.begin(), children.end(), random);
        for (const pid_t child : children) {
            ::usleep(random() % 40'000);
            ::kill(child, SIGKILL);
        }
        for (const pid_t child : children) {
            int status = 0;
            ::waitpid(child, &status, 0);
            killed += WIFSIGNALED(status);
            // A sheet is cancelled (1) at the end of its script when another one has taken its names.
            EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) <= 1) << status;
        }

        for (const char* what : {"data", "registry"}) {
            const Result left = run(std::string("printer ") + what + " NAME");
            ASSERT_EQ(left.status, 0) << left.err;
            CheckValues(nlohmann::json::parse(left.out));
        }
        ASSERT_EQ(run("printer record NAME -o record").status, 0);
        EXPECT_THAT(run.Contents("record").size(), AnyOf(0u, 1848u));
    }
    EXPECT_GT(killed, rounds);
    EXPECT_EQ(nlohmann::json::parse(run("printer data NAME MineKept").out)["MineKept"]["hex"], "77777777");
    // All that was left half done is gone, and the store goes on.
    EXPECT_EQ(run("sheet NAME --platform country=49 --script - --strict", "ok\n").status, 0);
}

}  // namespace
