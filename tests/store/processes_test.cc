// Several processes on one store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <set>
#include <stdexcept>

#include "platform/registry.h"
#include "store/sqlite_store.h"
#include "tests/store/temporary.h"

using platform::Bytes;
using platform::StoredValue;
using store::SqliteStore;
using testing::ElementsAre;

namespace {

constexpr char16_t First[] = u"Ordana Quillet 4820E";

pid_t Start(const std::function<void()>& work)
{
    const pid_t child = ::fork();
    if (child != 0) return child;
    try {
        work();
        ::_exit(0);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        ::_exit(1);
    }
}

int Finish(pid_t child)
{
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

std::u16string Name(int process, int number)
{
    return {static_cast<char16_t>(u'A' + process), static_cast<char16_t>(u'0' + number)};
}

TEST(Processes, ThatMakeOneStoreAtOnceAllWork)
{
    for (int round = 0; round < 10; ++round) {
        TemporaryFolder folder;
        std::vector<pid_t> children;
        for (int i = 0; i < 4; ++i) {
            children.push_back(Start([&, i] {
                SqliteStore store(folder / "new" / "f");
                store.SetValue(First, Name(i, 0), {REG_BINARY, {1}});
            }));
        }
        for (const pid_t child : children) EXPECT_EQ(Finish(child), 0);
        SqliteStore store(folder / "new" / "f");
        EXPECT_EQ(store.Printers().size(), 1u);
        EXPECT_EQ(store.Values(First).size(), 4u);
    }
}

TEST(Processes, ThatWriteAtOnceLoseNothing)
{
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "f");
    }
    std::vector<pid_t> children;
    for (int i = 0; i < 4; ++i) {
        children.push_back(Start([&, i] {
            SqliteStore store(folder / "f");
            for (int number = 0; number < 50; ++number) {
                store.SetValue(First, Name(i, number),
                               {
                                   REG_DWORD, {static_cast<BYTE>(number), 0, 0, 0}
                });
            }
        }));
    }
    for (const pid_t child : children) EXPECT_EQ(Finish(child), 0);
    SqliteStore store(folder / "f");
    for (int i = 0; i < 4; ++i) {
        for (int number = 0; number < 50; ++number) {
            EXPECT_EQ(store.Value(First, Name(i, number)), (StoredValue{
                                                               REG_DWORD, {static_cast<BYTE>(number), 0, 0, 0}
            }));
        }
    }
}

// What a process writes tells who has written it and how long it is, and is longer than a page more often than not.
constexpr BYTE Turns = 80;
Bytes Signed(BYTE process, int turn, std::size_t length)
{
    Bytes bytes(length, static_cast<BYTE>(process * Turns + turn));
    const auto size = static_cast<std::uint32_t>(length);
    std::memcpy(bytes.data(), &size, sizeof size);
    return bytes;
}

bool Whole(const Bytes& bytes, BYTE processes)
{
    return bytes.size() >= 8 && bytes.back() < processes * Turns && bytes == Signed(0, bytes.back(), bytes.size());
}

// Reads everything there is and leaves when something is not whole.
void ReadOn(const std::filesystem::path& file, BYTE most)
{
    SqliteStore store(file);
    for (;;) {
        for (const auto& [name, value] : store.Values(First))
            if (!Whole(value.bytes, most)) throw std::runtime_error("half a value");
        const Bytes record = store.DefaultRecord(First);
        if (!record.empty() && !Whole(record, most)) throw std::runtime_error("half a record");
    }
}

// Writes over and over: a value that all share, one of its own, the record, and a value of the printer's key.
void WriteOn(const std::filesystem::path& file, BYTE process, std::mt19937 random)
{
    for (int turn = 0;;) {
        SqliteStore store(file);
        for (int run = 0; run < 20; ++run, ++turn) {
            const Bytes bytes = Signed(process, turn % Turns, 8 + random() % 30'000);
            switch (random() % 5) {
                case 0:
                    store.SetValue(First, u"Shared", {REG_BINARY, bytes});
                    break;
                case 1:
                    store.SetValue(First, Name(process, 0), {REG_BINARY, bytes});
                    break;
                case 2:
                    store.SetDefaultRecord(First, bytes);
                    break;
                case 3:
                    store.SetKeyValue(platform::PrinterKeyPath(First), u"Shared", {REG_BINARY, bytes});
                    break;
                default:
                    store.DeleteValue(First, Name(process, 1));
                    store.SetValue(First, Name(process, 1), {REG_BINARY, bytes});
            }
        }
    }
}

// Rounds of readers and writers that are killed one after the other, each at any moment; QD480_KILLING_ROUNDS
// makes more of them.
TEST(Processes, ThatAreKilledAtRandomLeaveWholeValuesOfSomeone)
{
    constexpr BYTE Writers = 3, Readers = 2;
    const char* more = std::getenv("QD480_KILLING_ROUNDS");
    const int rounds = more ? std::atoi(more) : 25;
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "f");
        store.SetValue(First, u"Kept", {REG_BINARY, Signed(0, 77, 9'000)});
    }
    std::mt19937 random(4820);
    std::set<int> writers;  // of the shared value and the record
    for (int round = 0; round < rounds; ++round) {
        std::vector<pid_t> children;
        for (BYTE i = 0; i < Writers; ++i)
            children.push_back(Start([&, seed = random(), i] { WriteOn(folder / "f", i, std::mt19937(seed)); }));
        for (BYTE i = 0; i < Readers; ++i) children.push_back(Start([&] { ReadOn(folder / "f", Writers); }));
        std::shuffle(children.begin(), children.end(), random);
        for (const pid_t child : children) {
            ::usleep(random() % 15'000);
            ::kill(child, SIGKILL);
        }
        for (const pid_t child : children) EXPECT_EQ(Finish(child), SIGKILL) << round;

        SqliteStore store(folder / "f");
        const auto values = store.Values(First);
        for (const auto& [name, value] : values) ASSERT_TRUE(Whole(value.bytes, Writers)) << round;
        EXPECT_EQ(values.at(u"Kept").bytes, Signed(0, 77, 9'000));
        const Bytes record = store.DefaultRecord(First);
        ASSERT_TRUE(record.empty() || Whole(record, Writers));
        if (values.contains(u"Shared")) writers.insert(values.at(u"Shared").bytes.back() / Turns);
        if (!record.empty()) writers.insert(record.back() / Turns);
        for (const auto& [name, value] : store.KeyValues(platform::PrinterKeyPath(First)))
            EXPECT_TRUE(Whole(value.bytes, Writers)) << round;
        EXPECT_EQ(store.Printers().size(), 1u);
    }
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
    EXPECT_GT(writers.size(), 1u) << "hardly anything has been written";
}

}  // namespace
