#include "host/files.h"

#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>

#include "host/errors.h"
#include "host/record_file.h"
#include "tests/store/temporary.h"

using host::ReadFile;
using host::WriteFile;
using testing::ElementsAre;
using testing::ThrowsMessage;
using Bytes = std::vector<std::uint8_t>;

namespace {

// A folder with the file f, in which "old" stands.
class Files : public testing::Test {
  protected:
    Files()
    {
        Put(f, "old");
        std::signal(SIGINT, SIG_DFL);  // ignored in a shell's background jobs
    }
    TemporaryFolder folder;
    const std::string f = folder / "f";
};
using PendingFile = Files;

TEST_F(Files, AreReadUpToALimit)
{
    EXPECT_EQ(ReadFile(f, 3), (Bytes{'o', 'l', 'd'}));
    EXPECT_THAT([&] { ReadFile(f, 2); },
                ThrowsMessage<host::Failure>("cannot read " + f + ": it is longer than 2 bytes"));
    EXPECT_THAT([&] { ReadFile(folder.Path()); },
                ThrowsMessage<host::Failure>("cannot read " + folder.Path().string() + ": Is a directory"));
}

TEST_F(Files, KeepTheirRightsAndTheirLinksAndLeaveNothingBeside)
{
    ::chmod(f.c_str(), 0640);
    std::filesystem::create_symlink("f", folder / "link");
    WriteFile(folder / "link", Bytes{'n'});
    EXPECT_EQ(Contents(f), "n");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(std::filesystem::status(f).permissions(), std::filesystem::perms(0640));
    EXPECT_THAT(folder.Names(), ElementsAre("f", "link"));
}

TEST_F(PendingFile, LeavesNothingWhenItIsDroppedOrTheProgramEnds)
{
    host::PendingFile(f).Write(Bytes{'n'});
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const pid_t child = ::fork();
        if (child == 0) {
            host::PendingFile file(f);
            file.Write(Bytes{'n'});
            ::raise(signal);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
        EXPECT_THAT(folder.Names(), ElementsAre("f")) << signal;
    }
    EXPECT_EQ(Contents(f), "old");
}

TEST_F(PendingFile, EndsNoLaterWork)
{
    host::PendingFile(f).Commit();
    struct sigaction action;
    ASSERT_EQ(::sigaction(SIGINT, nullptr, &action), 0);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
}

TEST(RecordBuffer, HasWhatItPromisesAndTheHeader)
{
    Bytes record(72);
    record[68] = 220, record[70] = 0x5C, record[71] = 0x06;
    EXPECT_EQ(host::RecordBuffer(record).Whole().size(), 1848u);
    EXPECT_EQ(host::RecordBuffer(record).Promised().size(), 1848u);
    record[68] = record[69] = record[70] = record[71] = 0xFF;
    EXPECT_EQ(host::RecordBuffer(record).Whole().size(), 131070u);
    EXPECT_EQ(host::RecordBuffer(Bytes(5)).Whole().size(), 72u);
    EXPECT_EQ(host::RecordBuffer(Bytes(5)).Promised().size(), 0u);
    EXPECT_EQ(host::RecordBuffer(Bytes(3000)).Whole().size(), 3000u);
    EXPECT_EQ(host::RecordBuffer().Record(), nullptr);
}

}  // namespace
