// Several processes on one store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdio>
#include <functional>

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

// Each writer writes values of one byte over and over, longer than a page; a reader sees one of them whole.
TEST(Processes, ThatReadNeverSeeHalfAValue)
{
    TemporaryFolder folder;
    SqliteStore store(folder / "f");
    store.SetDefaultRecord(First, Bytes(30'000, 1));
    std::vector<pid_t> children;
    for (BYTE i = 1; i <= 2; ++i) {
        children.push_back(Start([&, i] {
            SqliteStore mine(folder / "f");
            for (int run = 0; run < 40; ++run) mine.SetDefaultRecord(First, Bytes(30'000u + i, i));
        }));
    }
    for (int run = 0; run < 200; ++run) {
        const Bytes record = store.DefaultRecord(First);
        ASSERT_GE(record.size(), 30'000u);
        ASSERT_EQ(record, Bytes(record.size(), record[0]));
    }
    for (const pid_t child : children) EXPECT_EQ(Finish(child), 0);
}

TEST(Processes, ThatAreKilledLeaveAWholeStore)
{
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "f");
    }
    for (int round = 0; round < 5; ++round) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = Start([&] {
            SqliteStore store(folder / "f");
            for (BYTE run = 0;; ++run) {
                store.SetValue(First, u"V", {REG_BINARY, Bytes(50'000, run)});
                if (run == 3 && ::write(ready[1], "", 1) != 1) ::_exit(1);
            }
        });
        char byte;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        ::kill(child, SIGKILL);
        Finish(child);
        ::close(ready[0]);
        ::close(ready[1]);

        SqliteStore store(folder / "f");
        const Bytes bytes = store.Value(First, u"V")->bytes;
        ASSERT_EQ(bytes.size(), 50'000u);
        EXPECT_EQ(bytes, Bytes(bytes.size(), bytes[0]));
        EXPECT_TRUE(store.SetValue(First, u"V", {REG_BINARY, {1}}));
    }
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
}

}  // namespace
