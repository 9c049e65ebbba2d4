// Which files are taken as stores, and that others stay as they are.
#include "store/store_file.h"

#include <sys/wait.h>

#include "platform/registry.h"
#include "store/sqlite_store.h"
#include "tests/store/temporary.h"

using platform::StoreError;
using std::filesystem::permissions;
using std::filesystem::perms;
using store::SqliteStore;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using testing::ThrowsMessage;

namespace {

constexpr char16_t First[] = u"Ordana Quillet 4820E";
const platform::StoredValue Eight{
    REG_DWORD, {8, 0, 0, 0}
};

template <class Why>
void ExpectRefused(const std::string& file, Why why)
{
    const std::string before = Contents(file);
    EXPECT_THAT([&] { SqliteStore store(file); }, ThrowsMessage<StoreError>(why));
    EXPECT_EQ(Contents(file), before);
}

// In a process of its own, as a user whom rights bind.
template <class Work>
void ExpectAsPlainUser(Work work)
{
    const pid_t child = ::fork();
    if (child == 0) ::_exit(::geteuid() == 0 && ::setuid(65534) != 0 ? 99 : work() ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

class StoreFile : public testing::Test {
  protected:
    // The file f as a store with one value.
    void MakeStore() const { SqliteStore(f).SetValue(First, u"V", Eight); }

    TemporaryFolder folder;
    const std::string f = folder / "f";
};

TEST_F(StoreFile, IsMadeWithItsFoldersItsMarksAndItsLog)
{
    const auto file = folder / "a" / "b c" / "s.db";
    EXPECT_EQ(SqliteStore(file).Printers().size(), 1u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file.parent_path()), {}), 1) << "and nothing beside";
    SQLite::Database database(file.string());
    EXPECT_EQ(database.execAndGet("PRAGMA application_id").getInt64(), 0x51443438);
    EXPECT_EQ(database.execAndGet("PRAGMA user_version").getInt(), 1);
    EXPECT_EQ(database.execAndGet("PRAGMA journal_mode").getString(), "wal");
}

TEST_F(StoreFile, OfOthersIsRefusedAndLeftAsItIs)
{
    for (const char* contents : {"", "Dear Sir or Madam,\n", "SQLite format 3"}) {
        Put(f, contents);
        ExpectRefused(f, f + " is no printers' store: it is no SQLite file");
    }
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
    EXPECT_THAT([&] { SqliteStore store(folder.Path()); }, ThrowsMessage<StoreError>(HasSubstr("it is no file")));
    EXPECT_THAT([&] { SqliteStore store(folder / "f" / "printers.db"); },
                ThrowsMessage<StoreError>(HasSubstr("cannot make the folder")));
}

TEST_F(StoreFile, ThatHasBeenChangedIsRefusedAndLeftAsItIs)
{
    MakeStore();
    const std::string made = Contents(f);
    const std::pair<std::string, const char*> rows[] = {
        {"PRAGMA application_id = 7",                               "it is another program's SQLite file"          },
        {"PRAGMA user_version = 2",                                 "its schema version is 2, this program knows 1"},
        {"PRAGMA user_version = 0",                                 "damaged: its schema version is 0"             },
        {"DROP TABLE printers",                                     "the table printers is not as it should be"    },
        {"ALTER TABLE printers ADD COLUMN m TEXT",                  "the table printers is not as it should be"    },
        {"CREATE TRIGGER t DELETE ON printers BEGIN SELECT 1; END", "damaged: it holds \"t\" besides"              },
        {"UPDATE printers SET may_change = 2",                      "damaged: CHECK constraint failed in printers" },
    };
    for (const auto& [statements, why] : rows) {
        Put(f, made);
        SQLite::Database(f, SQLite::OPEN_READWRITE).exec("PRAGMA ignore_check_constraints = 1; " + statements);
        ExpectRefused(f, AllOf(StartsWith(f), HasSubstr(why)));
        EXPECT_THAT(folder.Names(), ElementsAre("f"));
    }
}

// The newer version stands in the log alone.
TEST_F(StoreFile, OfANewerProgramThatHasJustBeenKilledIsLeftAsItIs)
{
    MakeStore();
    SQLite::Database writer(f, SQLite::OPEN_READWRITE);
    writer.exec("PRAGMA user_version = 2");
    for (const char* end : {"", "-wal"}) std::filesystem::copy_file(f + end, folder / std::string("g").append(end));
    const std::string log = Contents(folder / "g-wal");
    ExpectRefused(folder / "g", HasSubstr("newer program"));
    EXPECT_EQ(Contents(folder / "g-wal"), log);
}

TEST_F(StoreFile, CutShortIsRefusedAndLeftAsItIs)
{
    SqliteStore(f).SetValue(First, u"V", {REG_BINARY, platform::Bytes(20'000, 7)});
    const std::string whole = Contents(f);
    for (std::size_t length = 0; length < whole.size(); length += 1021) {
        Put(f, whole.substr(0, length));
        ExpectRefused(f, StartsWith(f));
    }
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
}

TEST_F(StoreFile, ThatNobodyMayWriteServesReading)
{
    MakeStore();
    permissions(f, perms(0444));
    const std::string before = Contents(f);
    SqliteStore store(f);
    EXPECT_TRUE(store.ReadOnly());
    EXPECT_FALSE(store.Find(First)->mayChange);
    EXPECT_FALSE(store.Printers().at(0).mayChange);
    EXPECT_EQ(store.KeyAccess(platform::PrinterKeyPath(First)), platform::RegistryStore::Access::Read);
    EXPECT_EQ(store.Value(First, u"V"), Eight);
    EXPECT_THROW(store.SetValue(First, u"V", Eight), StoreError);
    EXPECT_EQ(Contents(f), before);
    EXPECT_THAT(folder.Names(), ElementsAre("f"));
}

TEST_F(StoreFile, InAFolderThatNobodyMayWriteServesReading)
{
    MakeStore();
    permissions(f, perms(0666));
    permissions(folder.Path(), perms(0555));
    ExpectAsPlainUser([&] {
        SqliteStore store(f);
        return store.ReadOnly() && !store.Find(First)->mayChange && store.Value(First, u"V") == Eight;
    });
    ExpectAsPlainUser([&] {
        ExpectRefused(folder / "other", StartsWith("cannot make " + (folder / "other").string()));
        return !HasFailure();
    });
    permissions(folder.Path(), perms(0755));
}

TEST_F(StoreFile, ReadWithoutRightsShowsWhatOthersWrite)
{
    MakeStore();
    permissions(f, perms(0444));
    SqliteStore reader(f);
    ASSERT_TRUE(reader.ReadOnly());
    permissions(f, perms(0644));
    SqliteStore writer(f);
    writer.SetValue(First, u"W", Eight);
    EXPECT_EQ(reader.Value(First, u"W"), Eight);
}

TEST_F(StoreFile, MayBeReachedThroughALink)
{
    std::filesystem::create_directory(folder / "real");
    SqliteStore(folder / "real" / "s").Printers();
    std::filesystem::create_symlink(folder / "real" / "s", f);
    MakeStore();
    EXPECT_EQ(SqliteStore(folder / "real" / "s").Value(First, u"V"), Eight);
}

}  // namespace
