#include "host/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "host/errors.h"
#include "host/record_file.h"
#include "tests/store/temporary.h"

using host::ReadFile;
using host::WriteFile;
using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;

namespace {

std::string Complaint(const std::function<void()>& work)
{
    try {
        work();
        return "";
    } catch (const host::Failure& failure) {
        return failure.what();
    }
}

TEST(Files, AreReadUpToALimit)
{
    TemporaryFolder folder;
    Put(folder / "f", "12345");
    EXPECT_EQ(ReadFile(folder / "f", 5), (Bytes{'1', '2', '3', '4', '5'}));
    EXPECT_EQ(Complaint([&] { ReadFile(folder / "f", 4); }),
              "cannot read " + (folder / "f").string() + ": it is longer than 4 bytes");
    EXPECT_EQ(Complaint([&] { ReadFile(folder.Path()); }),
              "cannot read " + folder.Path().string() + ": Is a directory");
}

TEST(Files, AreWrittenWholeAndLeaveNothingBeside)
{
    TemporaryFolder folder;
    WriteFile(folder / "f", Bytes{'a', 'b'});
    WriteFile(folder / "f", Bytes{'c'});
    EXPECT_EQ(Contents(folder / "f"), "c");
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
}

TEST(Files, KeepTheirRightsAndTheirLinks)
{
    TemporaryFolder folder;
    Put(folder / "f", "old");
    ::chmod((folder / "f").c_str(), 0640);
    std::filesystem::create_symlink("f", folder / "link");
    WriteFile(folder / "link", Bytes{'n'});
    EXPECT_EQ(Contents(folder / "f"), "n");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    struct stat status;
    ASSERT_EQ(::stat((folder / "f").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST(PendingFile, LeavesNothingWhenItIsDroppedOrTheProgramEnds)
{
    TemporaryFolder folder;
    Put(folder / "f", "old");
    {
        host::PendingFile file(folder / "f");
        file.Write(Bytes{'n'});
    }
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const pid_t child = ::fork();
        if (child == 0) {
            host::PendingFile file(folder / "f");
            file.Write(Bytes{'n'});
            ::raise(signal);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
        EXPECT_THAT(folder.Names(), ElementsAre("f")) << signal;
    }
    EXPECT_EQ(Contents(folder / "f"), "old");
}

TEST(PendingFile, EndsNoLaterWork)
{
    TemporaryFolder folder;
    {
        host::PendingFile file(folder / "f");
        file.Commit();
    }
    struct sigaction action;
    ASSERT_EQ(::sigaction(SIGINT, nullptr, &action), 0);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
}

TEST(Files, ThatAreDevicesAreWrittenStraight)
{
    EXPECT_NO_THROW(WriteFile("/dev/null", Bytes{'n'}));
    EXPECT_FALSE(std::filesystem::is_regular_file("/dev/null"));
}

TEST(RecordBuffer, HasWhatItPromises)
{
    Bytes record(72);
    record[68] = 220, record[70] = 0x5C, record[71] = 0x06;
    host::RecordBuffer buffer(record);
    EXPECT_EQ(buffer.Whole().size(), 1848u);
    EXPECT_EQ(buffer.Promised().size(), 1848u);
    record[68] = record[69] = record[70] = record[71] = 0xFF;
    EXPECT_EQ(host::RecordBuffer(record).Whole().size(), 131070u);
}

TEST(RecordBuffer, ReachesTheHeadersEndAndKeepsWhatIsLonger)
{
    EXPECT_EQ(host::RecordBuffer(Bytes(5)).Whole().size(), 72u);
    EXPECT_EQ(host::RecordBuffer(Bytes(5)).Promised().size(), 0u);
    EXPECT_EQ(host::RecordBuffer(Bytes(3000)).Whole().size(), 3000u);
    EXPECT_EQ(host::RecordBuffer().Record(), nullptr);
}

}  // namespace
