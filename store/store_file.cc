#include "store/store_file.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <system_error>

#include "store/schema.h"

namespace store {

namespace {

using platform::StoreError;

std::string Why(int error) { return std::generic_category().message(error); }

// The first bytes of an SQLite file.
constexpr char Magic[16] = "SQLite format 3";
constexpr std::size_t PageSizeAt = 16, VersionAt = 60, ApplicationAt = 68, HeaderSize = 100;
using Header = std::array<unsigned char, HeaderSize>;

std::uint32_t BigEndianAt(const Header& header, std::size_t offset)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) number = number << 8 | header[offset + i];
    return number;
}

// A file in the making; what is not put in its place goes.
class Draft {
  public:
    explicit Draft(const std::filesystem::path& target) : name_(target.string() + ".XXXXXX")
    {
        const int file = ::mkostemp(name_.data(), O_CLOEXEC);
        if (file < 0) throw StoreError("cannot make " + target.string() + ": " + Why(errno));
        const mode_t mask = ::umask(0);
        ::umask(mask);
        const int error = ::fchmod(file, 0666 & ~mask) == 0 ? 0 : errno;
        ::close(file);
        if (error) throw StoreError("cannot make " + target.string() + ": " + Why(error));
    }
    ~Draft()
    {
        for (const char* end : {"", "-wal", "-shm", "-journal"}) ::unlink((name_ + end).c_str());
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    const std::string& Name() const { return name_; }

    // Puts it in its place unless someone else has been faster, whose file then stands.
    void Place(const std::filesystem::path& target) const
    {
        if (::renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return;
        // Not every file system knows the call.
        if (errno == EINVAL && ::link(name_.c_str(), target.c_str()) == 0) return;
        if (errno != EEXIST) throw StoreError("cannot make " + target.string() + ": " + Why(errno));
    }

  private:
    std::string name_;
};

void Make(const std::filesystem::path& path)
{
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error) throw StoreError("cannot make the folder " + path.parent_path().string() + ": " + error.message());
    const Draft draft(path);
    {
        SQLite::Database database(draft.Name(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA journal_mode = MEMORY");
        SQLite::Transaction transaction(database);
        database.exec("PRAGMA application_id = " + std::to_string(ApplicationId));
        database.exec("PRAGMA user_version = " + std::to_string(SchemaVersion));
        for (const Table& table : Tables) database.exec(table.sql);
        database.exec(FirstPrinter);
        transaction.commit();
        database.exec("PRAGMA journal_mode = WAL");
    }
    draft.Place(path);
}

// The user may write the file and the log beside it. A file that nobody may write stays as it is for the
// superuser too, whom no right binds.
bool MayWrite(const std::filesystem::path& path)
{
    struct stat status;
    return ::stat(path.c_str(), &status) == 0 && (status.st_mode & 0222) != 0 && ::access(path.c_str(), W_OK) == 0 &&
           ::access(path.parent_path().c_str(), W_OK | X_OK) == 0;
}

std::string Uri(const std::filesystem::path& path)
{
    constexpr char Digits[] = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : path.string()) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) || c == '/' || c == '.' || c == '-' || c == '_') {
            uri += c;
        } else {
            uri += {'%', Digits[byte >> 4], Digits[byte & 15]};
        }
    }
    return uri;
}

// A file's contents may be anything: nothing in its schema is to run.
void SetUp(SQLite::Database& database)
{
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
    database.exec("PRAGMA cell_size_check = ON");
    // The log goes to the disk when it is moved into the file, as the last one to leave does; a crash before
    // that may cost the latest values but breaks nothing.
    database.exec("PRAGMA synchronous = NORMAL");
}

// What is wrong with a schema version, to follow the file's name; empty when nothing is.
std::string VersionProblem(std::int32_t version)
{
    const std::string number = std::to_string(version);
    if (version > SchemaVersion) {
        return " comes from a newer program: its schema version is " + number + ", this program knows " +
               std::to_string(SchemaVersion);
    }
    return version == SchemaVersion ? "" : " is damaged: its schema version is " + number;
}

// The same for the tables and all that they hold.
std::string ContentProblem(SQLite::Database& database)
{
    // The log may hold a later header than the file.
    const std::string version = VersionProblem(database.execAndGet("PRAGMA user_version").getInt());
    if (!version.empty()) return version;

    SQLite::Statement schema(database,
                             "SELECT name, sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite#_%' ESCAPE '#' "
                             "ORDER BY name");
    for (const Table& table : Tables) {
        if (!schema.executeStep() || schema.getColumn(0).getString() != table.name ||
            schema.getColumn(1).getString() != table.sql) {
            return std::string(" is damaged: the table ") + table.name + " is not as it should be";
        }
    }
    if (schema.executeStep()) return " is damaged: it holds \"" + schema.getColumn(0).getString() + "\" besides";

    SQLite::Statement check(database, "PRAGMA integrity_check(1)");
    const std::string answer = check.executeStep() ? check.getColumn(0).getString() : "the check gives no answer";
    return answer == "ok" ? "" : " is damaged: " + answer;
}

}  // namespace

StoreFile::StoreFile(const std::filesystem::path& path, int timeoutMs)
    : name_(path.string()), path_(std::filesystem::absolute(path)), timeoutMs_(timeoutMs)
{
    struct stat status;
    if (::stat(path_.c_str(), &status) != 0) {
        if (errno != ENOENT && errno != ENOTDIR) throw StoreError("cannot open " + name_ + ": " + Why(errno));
        Named([&] { Make(path_); });
    }
    std::error_code error;
    path_ = std::filesystem::canonical(path_, error);  // the log stands beside the file that a link names
    if (error) throw StoreError("cannot open " + name_ + ": " + error.message());
    RefuseForeign();
    if (MayWrite(path_)) {
        Named([&] {
            database_ = std::make_unique<SQLite::Database>(path_.string(), SQLite::OPEN_READWRITE, timeoutMs_);
            SetUp(*database_);
        });
    }
    Check();
}

void StoreFile::RefuseForeign() const
{
    struct stat status;
    if (::stat(path_.c_str(), &status) != 0) throw StoreError("cannot open " + name_ + ": " + Why(errno));
    if (!S_ISREG(status.st_mode)) throw StoreError(name_ + " is no printers' store: it is no file");
    std::FILE* file = std::fopen(path_.c_str(), "rbe");
    if (!file) throw StoreError("cannot open " + name_ + ": " + Why(errno));
    Header header{};
    const std::size_t length = std::fread(header.data(), 1, header.size(), file);
    std::fclose(file);

    if (length != header.size() || !std::equal(std::begin(Magic), std::end(Magic), header.begin())) {
        throw StoreError(name_ + " is no printers' store: it is no SQLite file");
    }
    if (BigEndianAt(header, ApplicationAt) != ApplicationId) {
        throw StoreError(name_ + " is no printers' store: it is another program's SQLite file");
    }
    const std::string problem = VersionProblem(static_cast<std::int32_t>(BigEndianAt(header, VersionAt)));
    if (!problem.empty()) throw StoreError(name_ + problem);

    // A file ends with a whole page, unless a checkpoint is going on or has been cut off. SQLite itself would
    // take the rest of a page as zeros.
    const State before = CurrentState();
    const int pageSize = header[PageSizeAt] << 8 | header[PageSizeAt + 1];
    const int step = pageSize == 1 ? 65536 : pageSize;
    if (!before.hasLog && step != 0 && before.file.st_size % step != 0 && before == CurrentState()) {
        throw StoreError(name_ + " is damaged: it has been cut off");
    }
}

void StoreFile::Check()
{
    try {
        Read([this](SQLite::Database& database) {
            const std::string problem = ContentProblem(database);
            if (!problem.empty()) throw StoreError(name_ + problem);
            return true;
        });
    } catch (const StoreError&) {
        // Closing would move what the log holds into the file.
        if (database_ && CurrentState().hasLog) {
            sqlite3_db_config(database_->getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        }
        throw;
    }
}

StoreFile::State StoreFile::CurrentState() const
{
    State state;
    if (::stat(path_.c_str(), &state.file) != 0) throw StoreError("cannot open " + name_ + ": " + Why(errno));
    struct stat log;
    state.hasLog = ::stat((path_.string() + "-wal").c_str(), &log) == 0 && log.st_size != 0;
    return state;
}

bool StoreFile::State::operator==(const State& other) const
{
    const auto same = [](const timespec& a, const timespec& b) {
        return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
    };
    return file.st_ino == other.file.st_ino && file.st_size == other.file.st_size &&
           same(file.st_mtim, other.file.st_mtim) && same(file.st_ctim, other.file.st_ctim) && hasLog == other.hasLog;
}

// With a log the file is read as everybody reads it. Without one it is read as it stands, for a reader would
// otherwise leave an empty log behind, or could not read at all where it may not make one.
std::unique_ptr<SQLite::Database> StoreFile::OpenForReading(const State& state) const
{
    const std::string uri = Uri(path_) + (state.hasLog ? "?mode=ro" : "?immutable=1");
    auto database = std::make_unique<SQLite::Database>(uri, SQLite::OPEN_READONLY | SQLite::OPEN_URI, timeoutMs_);
    SetUp(*database);
    return database;
}

void StoreFile::Rethrow(const SQLite::Exception& error) const
{
    switch (error.getErrorCode() & 0xFF) {
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            throw StoreError(name_ + " is damaged: " + error.getErrorStr());
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            throw StoreError(name_ + " is in use by another process: " + error.getErrorStr());
        default:
            throw StoreError("cannot use " + name_ + ": " + error.what());
    }
}

}  // namespace store
