// Writers, readers, sheets and jobs as processes of their own on one store, killed at any moment.
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <csignal>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <random>
#include <set>
#include <sstream>

#include "tests/program/program.h"

namespace {

using testing::AnyOf;
using testing::IsSupersetOf;
using Random = std::mt19937;

constexpr int Processes = 5;

struct Work {
    std::string line, input;
    int mostStatus = 0;  // how it may end by itself
    bool reads = false;
};

// One digit over and over behind the length, so that a part of it shows as one.
std::string Hex(Random& random)
{
    const std::size_t length = 1 + random() % 20'000;
    std::ostringstream hex;
    hex << std::hex << std::setfill('0') << std::setw(8) << length
        << std::string(length, "123456789abcdef"[random() % 15]);
    return hex.str() + (length % 2 ? "0" : "");
}
bool IsWhole(const std::string& hex)
{
    if (hex.size() < 9) return false;
    const std::size_t length = std::stoul(hex.substr(0, 8), nullptr, 16);
    return hex.size() == 8 + length + length % 2 && hex.find_first_not_of(hex[8], 8) >= 8 + length;
}

// What sheets have been asked to store: names of watermarks and sizes, those of the factory among them, and copies.
struct Asked {
    std::set<std::string> names;
    std::set<int> copies;
};

// A watermark and a custom size under a new name in the place of the first ones, and the record for the printer.
std::string Script(int round, int process, Asked& asked)
{
    const std::string own = "Own" + std::to_string(round) + "." + std::to_string(process);
    const int copies = 2 + (Processes * round + process) % 900;
    asked.names.insert(own);
    asked.copies.insert(copies);
    const std::string name = '"' + own + "\"\nok\n";
    return "page \"Setup\"\nclick IDC_EDIT_WATERMARK\nchoose IDC_WM_LIST 1\nclick IDC_WM_DELETE\n"
           "click IDC_WM_NEW\ntype IDC_WM_NAME " +
           name +
           "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nrow IDC_CP_LIST 0\nclick IDC_CP_DELETE\n"
           "click IDC_CP_NEW\ntype IDC_CP_NAME " +
           name + "type IDC_COPIES \"" + std::to_string(copies) + "\"\nok\n";
}

// A list of one overlay, which waits for a job to make its file, or has been made.
std::string Overlays(bool waits)
{
    std::string row(2 * 1060, '0');
    row.replace(0, 4, "4f00").replace(2 * 524, 4, "2f00");
    row[2 * 1048 + 1] = waits ? '1' : '0';
    return "00000000" + row;
}

Work Something(int round, int process, Random& random, Asked& asked)
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
            return {"capabilities NAME", "", 0, true};
        default:
            // Cancelled (1) where another one has just changed the lists under its hands.
            return {"sheet NAME --platform country=49 --platform fonts=builtin --store-default --script -",
                    Script(round, process, asked), 1};
    }
}

// The characters of a value up to its terminator, behind which nothing may stand. All are of 7 bits here.
std::string TextOf(const std::string& hex)
{
    std::string text;
    for (std::size_t at = 0; at < hex.size(); at += 4)
        text += static_cast<char>(std::stoi(hex.substr(at, 2), nullptr, 16));
    const std::size_t end = std::min(text.find('\0'), text.size());
    EXPECT_EQ(text.find_first_not_of('\0', end), text.npos);
    return text.substr(0, end);
}

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream rest(text);
    for (std::string line; std::getline(rest, line);) lines.push_back(line.substr(0, line.find('\r')));
    return lines;
}

// Every value is one that some process has written whole; the two or three values of a list may be of two of them.
void CheckValues(const nlohmann::json& values, const Asked& asked)
{
    const auto checkNames = [&](const std::vector<std::string>& names) {
        EXPECT_EQ(std::set(names.begin(), names.end()).size(), names.size()) << "a name twice";
        EXPECT_THAT(asked.names, IsSupersetOf(names));
    };
    for (const auto& [name, value] : values.items()) {
        const std::string hex = value.value("hex", "");
        if (name == "Shared" || name.starts_with("Mine")) {
            EXPECT_TRUE(IsWhole(hex)) << name;
        } else if (name.starts_with("Watermark")) {
            EXPECT_EQ(hex.size(), 6000u) << name;
            std::vector<std::string> lines = LinesOf(TextOf(hex));
            if (name != "WatermarkAttributes") {
                EXPECT_EQ(lines.front(), "7");
                lines.erase(lines.begin());
            }
            EXPECT_EQ(lines.size(), 7u);  // one for one
            if (name == "WatermarkTextName") checkNames(lines);
        } else if (name == "CustomPaperData") {
            EXPECT_EQ(hex.size() % 112, 0u);
            std::vector<std::string> names;
            for (std::size_t row = 0; row < hex.size(); row += 112) names.push_back(TextOf(hex.substr(row + 28, 84)));
            checkNames(names);
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

// What a reader saw: the model's 26 papers, the one stored size that a sheet made, and the row for sizes.
void CheckPapers(const nlohmann::json& capabilities, const Asked& asked)
{
    const std::vector<std::string> names = capabilities["DC_PAPERNAMES"]["output"];
    EXPECT_EQ(capabilities["DC_PAPERS"]["output"].size(), names.size());
    ASSERT_THAT(names.size(), AnyOf(27u, 28u));
    if (names.size() == 28) {
        EXPECT_TRUE(asked.names.contains(names[26].substr(0, names[26].find(' ')))) << names[26];
    }
}

// QD480_KILLING_ROUNDS makes more rounds.
TEST(Processes, ThatAreKilledAtRandomLeaveTheStoreWhole)
{
    const char* more = std::getenv("QD480_KILLING_ROUNDS");
    const int rounds = more ? std::atoi(more) : 12;
    Program run;
    ASSERT_EQ(run("printer data NAME MineKept --hex 000000047777"), Done());
    ASSERT_EQ(run("printer data NAME OverlayDataSize --dword 1064"), Done());
    ASSERT_EQ(run("printer data NAME OverlayData --hex " + Overlays(true)), Done());
    Asked asked = {
        {"CONFIDENTIAL", "TOP SECRET", "COPY", "DO NOT COPY", "DRAFT", "FINAL", "PROOF"},
        {      }
    };
    ASSERT_EQ(run("sheet NAME --store-default --script -", Script(0, 0, asked)).status, 0);  // no size to delete yet
    Random random(20'480);
    int killed = 0, accepted = 0, read = 0;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        struct Child {
            pid_t pid;
            Work work;
            std::string name;
        };
        std::vector<Child> children;
        for (int i = 0; i < Processes; ++i) {
            const Work work = Something(round, i, random, asked);
            const std::string name = std::to_string(i);
            children.push_back({run.Start(work.line, work.input, name), work, name});
        }
        std::shuffle(children.begin(), children.end(), random);
        // One of them may end its work, however slow the machine is, and so may every second reader.
        for (std::size_t i = 1; i < children.size(); ++i) {
            ::usleep(random() % 15'000);
            if (!children[i].work.reads || random() % 2) ::kill(children[i].pid, SIGKILL);
        }
        for (const auto& [child, work, name] : children) {
            int status = 0;
            ::waitpid(child, &status, 0);
            killed += WIFSIGNALED(status);
            accepted += work.mostStatus == 1 && status == 0;
            EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) <= work.mostStatus)
                << work.line << ": " << status << run.Contents(".err" + name);
            if (!work.reads || WIFSIGNALED(status)) continue;
            CheckPapers(nlohmann::json::parse(run.Contents(".out" + name)), asked);
            ++read;
        }
        for (const std::string& file : run.Names())
            if (file.ends_with(".pdf")) {
                EXPECT_EQ(run("print NAME " + file + " -o again").status, 0) << file;
            }

        for (const char* what : {"data", "registry"}) {
            const Result left = run(std::string("printer ") + what + " NAME");
            ASSERT_EQ(left.status, 0) << left.err;
            CheckValues(nlohmann::json::parse(left.out), asked);
        }
        ASSERT_EQ(run("printer record NAME -o record").status, 0);
        if (run.Contents("record").empty()) continue;
        const Result record = run("record show record");
        ASSERT_EQ(record.status, 0) << record.err;
        EXPECT_TRUE(asked.copies.contains(nlohmann::json::parse(record.out)["dmCopies"].get<int>())) << record.out;
    }
    EXPECT_GT(killed, rounds / 2);
    EXPECT_GT(accepted, 0);
    EXPECT_GT(read, 0);
    EXPECT_EQ(nlohmann::json::parse(run("printer data NAME MineKept").out)["MineKept"]["hex"], "000000047777");
    // All that was left half done is gone, and the store goes on.
    EXPECT_EQ(run("sheet NAME --platform country=49 --script - --strict", "ok\n").status, 0);
}

}  // namespace
