// Which files are taken as stores, and that others stay as they are.
#include "store/store_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <algorithm>

#include "platform/registry.h"
#include "store/sqlite_store.h"
#include "tests/store/temporary.h"

using platform::StoreError;
using store::SqliteStore;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr char16_t First[] = u"Ordana Quillet 4820E";
const platform::StoredValue Eight{
    REG_DWORD, {8, 0, 0, 0}
};

// What opening the file says; empty when it is taken.
std::string Refusal(const std::filesystem::path& file)
{
    try {
        SqliteStore store(file);
        return "";
    } catch (const StoreError& error) {
        return error.what();
    }
}

void Execute(const std::filesystem::path& file, const std::string& statements)
{
    SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec(statements);
}

// In a process of its own, as a user whom rights bind; gives what work gives.
template <class Work>
int AsPlainUser(Work work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        if (::geteuid() == 0 && ::setuid(65534) != 0) ::_exit(99);
        int result = 98;
        try {
            result = work();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
        }
        ::_exit(result);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WEXITSTATUS(status);
}

TEST(StoreFile, IsMadeWithItsFolders)
{
    TemporaryFolder folder;
    const auto file = folder / "a" / "b c" / "printers.db";
    {
        EXPECT_EQ(SqliteStore(file).Printers().size(), 1u);
    }
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
        names.push_back(entry.path().filename());
    }
    EXPECT_THAT(names, ElementsAre("printers.db"));
}

TEST(StoreFile, KeepsItsMarksAndItsLog)
{
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "s.db");
    }
    SQLite::Database database((folder / "s.db").string());
    EXPECT_EQ(database.execAndGet("PRAGMA application_id").getInt64(), 0x51443438);
    EXPECT_EQ(database.execAndGet("PRAGMA user_version").getInt(), 1);
    EXPECT_EQ(database.execAndGet("PRAGMA journal_mode").getString(), "wal");
}

struct Foreign {
    const char *name, *contents, *why;
};
class ForeignFile : public testing::TestWithParam<Foreign> {};

TEST_P(ForeignFile, IsRefusedAndLeftAsItIs)
{
    TemporaryFolder folder;
    const auto file = folder / "f";
    Put(file, GetParam().contents);
    EXPECT_EQ(Refusal(file), file.string() + GetParam().why);
    EXPECT_EQ(Contents(file), GetParam().contents);
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
}

INSTANTIATE_TEST_SUITE_P(
    Files, ForeignFile,
    testing::Values(Foreign{"Empty", "", " is no printers' store: it is no SQLite file"},
                    Foreign{"Text", "Dear Sir or Madam,\n", " is no printers' store: it is no SQLite file"},
                    Foreign{"BareMagic", "SQLite format 3", " is no printers' store: it is no SQLite file"}),
    [](const auto& instance) { return instance.param.name; });

struct Changed {
    const char *name, *statements, *why;
};
class ChangedStore : public testing::TestWithParam<Changed> {};

TEST_P(ChangedStore, IsRefusedAndLeftAsItIs)
{
    TemporaryFolder folder;
    const auto file = folder / "f";
    {
        SqliteStore store(file);
    }
    Execute(file, GetParam().statements);
    const std::string before = Contents(file);
    EXPECT_EQ(Refusal(file), file.string() + GetParam().why);
    EXPECT_EQ(Contents(file), before);
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
}

INSTANTIATE_TEST_SUITE_P(
    Files, ChangedStore,
    testing::Values(Changed{"OtherProgram", "PRAGMA application_id = 7",
                            " is no printers' store: it is another program's SQLite file"},
                    Changed{"Newer", "PRAGMA user_version = 2",
                            " comes from a newer program: its schema version is 2, this program knows 1"},
                    Changed{"NoVersion", "PRAGMA user_version = 0", " is damaged: its schema version is 0"},
                    Changed{"TableGone", "DROP TABLE printers",
                            " is damaged: the table printers is not as it should be"},
                    Changed{"TableChanged", "ALTER TABLE printers ADD COLUMN more TEXT",
                            " is damaged: the table printers is not as it should be"},
                    Changed{"Trigger", "CREATE TRIGGER t AFTER INSERT ON printers BEGIN DELETE FROM printers; END",
                            " is damaged: it holds \"t\" besides"},
                    Changed{"RuleBroken", "PRAGMA ignore_check_constraints = 1; UPDATE printers SET may_change = 2",
                            " is damaged: CHECK constraint failed in printers"}),
    [](const auto& instance) { return instance.param.name; });

TEST(StoreFile, OfANewerProgramThatHasJustBeenKilledIsLeftAsItIs)
{
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "made");
    }
    // The newer version stands in the log alone.
    SQLite::Database writer((folder / "made").string(), SQLite::OPEN_READWRITE);
    writer.exec("PRAGMA user_version = 2");
    for (const char* end : {"", "-wal"}) {
        std::filesystem::copy_file((folder / "made").string() + end, (folder / "f").string() + end);
    }
    const std::string file = Contents(folder / "f"), log = Contents(folder / "f-wal");
    EXPECT_THAT(Refusal(folder / "f"), HasSubstr("newer program"));
    EXPECT_EQ(Contents(folder / "f"), file);
    EXPECT_EQ(Contents(folder / "f-wal"), log);
}

TEST(StoreFile, OfAnotherKindIsRefused)
{
    TemporaryFolder folder;
    std::filesystem::create_directory(folder / "d");
    EXPECT_THAT(Refusal(folder / "d"), HasSubstr("it is no file"));
    Put(folder / "f", "text");
    EXPECT_THAT(Refusal(folder / "f" / "printers.db"), HasSubstr("cannot make the folder"));
}

TEST(StoreFile, CutShortIsRefusedAndLeftAsItIs)
{
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "made");
        store.SetValue(First, u"V", {REG_BINARY, platform::Bytes(20'000, 7)});
    }
    const std::string whole = Contents(folder / "made");
    for (std::size_t length = 0; length < whole.size(); length += 1021) {
        const std::string cut = whole.substr(0, length);
        Put(folder / "f", cut);
        EXPECT_NE(Refusal(folder / "f"), "") << length;
        EXPECT_EQ(Contents(folder / "f"), cut) << length;
    }
    EXPECT_THAT(folder.Names(), ElementsAre("f", "made"));
}

TEST(StoreFile, ThatNobodyMayWriteServesReading)
{
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "f");
        store.SetValue(First, u"V", Eight);
    }
    std::filesystem::permissions(folder / "f", std::filesystem::perms(0444));
    const std::string before = Contents(folder / "f");
    SqliteStore store(folder / "f");
    EXPECT_TRUE(store.ReadOnly());
    EXPECT_FALSE(store.Find(First)->mayChange);
    EXPECT_FALSE(store.Printers().at(0).mayChange);
    EXPECT_EQ(store.KeyAccess(platform::PrinterKeyPath(First)), platform::RegistryStore::Access::Read);
    EXPECT_EQ(store.Value(First, u"V"), Eight);
    EXPECT_THROW(store.SetValue(First, u"V", Eight), StoreError);
    EXPECT_EQ(Contents(folder / "f"), before);
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
}

TEST(StoreFile, InAFolderThatNobodyMayWriteServesReading)
{
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "f");
        store.SetValue(First, u"V", Eight);
    }
    std::filesystem::permissions(folder / "f", std::filesystem::perms(0666));
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0555));
    EXPECT_EQ(AsPlainUser([&] {
                  SqliteStore store(folder / "f");
                  return store.ReadOnly() && !store.Find(First)->mayChange && store.Value(First, u"V") == Eight ? 0 : 1;
              }),
              0);
    EXPECT_EQ(AsPlainUser([&] {
                  return Refusal(folder / "other").starts_with("cannot make " + (folder / "other").string()) ? 0 : 1;
              }),
              0);
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
}

TEST(StoreFile, ReadWithoutRightsShowsWhatOthersWrite)
{
    TemporaryFolder folder;
    {
        SqliteStore store(folder / "f");
    }
    std::filesystem::permissions(folder / "f", std::filesystem::perms(0444));
    SqliteStore reader(folder / "f");
    std::filesystem::permissions(folder / "f", std::filesystem::perms(0644));
    SqliteStore writer(folder / "f");
    ASSERT_TRUE(reader.ReadOnly());
    writer.SetValue(First, u"V", Eight);
    EXPECT_EQ(reader.Value(First, u"V"), Eight);
}

TEST(StoreFile, MayBeReachedThroughALink)
{
    TemporaryFolder folder;
    std::filesystem::create_directory(folder / "real");
    {
        SqliteStore store(folder / "real" / "f");
    }
    std::filesystem::create_symlink(folder / "real" / "f", folder / "link");
    {
        SqliteStore store(folder / "link");
        store.SetValue(First, u"V", Eight);
    }
    EXPECT_EQ(SqliteStore(folder / "real" / "f").Value(First, u"V"), Eight);
}

}  // namespace
