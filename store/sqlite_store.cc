#include "store/sqlite_store.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <map>
#include <mutex>

#include "platform/kernel/unicode.h"
#include "store/store_file.h"

namespace store {

using platform::Bytes;
using platform::PrinterEntry;
using platform::StoredValue;
using platform::StoredValues;
using platform::StoreError;
using platform::ToUtf8;
using platform::ToWide;

namespace {

// Where a printer's values stand; the numbers of the column "place".
enum Place { StoredData = 0, RegistryKey = 1 };

void CheckLength(std::size_t length, std::size_t limit, const char* what)
{
    if (length > limit) {
        throw StoreError(std::string(what) + " of " + std::to_string(length) + " bytes is too long; the limit is " +
                         std::to_string(limit));
    }
}

void BindName(SQLite::Statement& statement, int index, std::u16string_view name)
{
    CheckLength(name.size() * sizeof(char16_t), NameLimit, "a name");
    statement.bind(index, ToUtf8(name));
}

void BindBytes(SQLite::Statement& statement, int index, const Bytes& bytes)
{
    CheckLength(bytes.size(), ValueLimit, "a value");
    // Without an address it would be null and not empty.
    statement.bind(index, bytes.empty() ? "" : static_cast<const void*>(bytes.data()), static_cast<int>(bytes.size()));
}

std::u16string WideColumn(SQLite::Statement& statement, int index)
{
    return ToWide(statement.getColumn(index).getString());
}

Bytes BytesColumn(SQLite::Statement& statement, int index)
{
    const SQLite::Column column = statement.getColumn(index);
    const auto* first = static_cast<const std::uint8_t*>(column.getBlob());
    return first ? Bytes(first, first + column.getBytes()) : Bytes{};
}

// From the columns type and bytes, the first of them at index.
StoredValue ValueColumns(SQLite::Statement& statement, int index)
{
    return {static_cast<DWORD>(statement.getColumn(index).getInt64()), BytesColumn(statement, index + 1)};
}

// The printer whose key the path names; absent when it names no printer's key.
std::optional<std::u16string> PrinterOfKey(std::u16string_view path)
{
    constexpr std::u16string_view Mark = u"*";
    const std::u16string pattern = platform::PrinterKeyPath(Mark);
    const std::size_t mark = pattern.find(Mark);
    const std::u16string head = pattern.substr(0, mark), tail = pattern.substr(mark + Mark.size());
    // No printer has the empty name.
    if (path.size() <= head.size() + tail.size() || !path.starts_with(head) || !path.ends_with(tail)) {
        return std::nullopt;
    }
    return std::u16string(path.substr(head.size(), path.size() - head.size() - tail.size()));
}

}  // namespace

class SqliteStore::Connection : public StoreFile {
  public:
    using StoreFile::StoreFile;

    // A statement in use by one thread. It is kept for the next use, since compiling takes longer than running,
    // and is reset in the end, so that it holds no lock on the file. Its text is a constant.
    class Use {
      public:
        Use(Connection& connection, const SQLite::Database& database, const char* sql)
            : lock_(connection.mutex_), statement_(Find(connection, database, sql))
        {
        }
        ~Use()
        {
            statement_.tryReset();
            statement_.clearBindings();
        }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        SQLite::Statement& operator*() { return statement_; }

      private:
        SQLite::Statement& Find(Connection& connection, const SQLite::Database& database, const char* sql)
        {
            // A file that may only be read is opened anew for each call.
            if (connection.ReadOnly()) return passing_.emplace(database, sql);
            return connection.kept_.try_emplace(sql, database, sql).first->second;
        }

        std::unique_lock<std::mutex> lock_;
        std::optional<SQLite::Statement> passing_;
        SQLite::Statement& statement_;
    };

    StoredValues Values(std::u16string_view printer, Place place)
    {
        return Read([&](SQLite::Database& database) {
            Use use(*this, database,
                    "SELECT v.name, v.type, v.bytes FROM printer_values v JOIN printers p ON "
                    "p.id = v.printer WHERE p.name = ? AND v.place = ?");
            SQLite::Statement& select = *use;
            BindName(select, 1, printer);
            select.bind(2, place);
            StoredValues values;
            while (select.executeStep()) values.emplace(WideColumn(select, 0), ValueColumns(select, 1));
            return values;
        });
    }

    std::optional<StoredValue> Value(std::u16string_view printer, Place place, std::u16string_view name)
    {
        return Read([&](SQLite::Database& database) -> std::optional<StoredValue> {
            Use use(*this, database,
                    "SELECT v.type, v.bytes FROM printer_values v JOIN printers p ON "
                    "p.id = v.printer WHERE p.name = ? AND v.place = ? AND v.name = ?");
            SQLite::Statement& select = *use;
            BindName(select, 1, printer);
            select.bind(2, place);
            BindName(select, 3, name);
            if (!select.executeStep()) return std::nullopt;
            return ValueColumns(select, 0);
        });
    }

    bool SetValue(std::u16string_view printer, Place place, std::u16string_view name, const StoredValue& value)
    {
        return Write([&](SQLite::Database& database) {
            Use use(*this, database,
                    "INSERT INTO printer_values (printer, place, name, type, bytes) "
                    "SELECT id, ?2, ?3, ?4, ?5 FROM printers WHERE name = ?1 "
                    "ON CONFLICT (printer, place, name) DO UPDATE "
                    "SET type = excluded.type, bytes = excluded.bytes");
            SQLite::Statement& insert = *use;
            BindName(insert, 1, printer);
            insert.bind(2, place);
            BindName(insert, 3, name);
            insert.bind(4, value.type);
            BindBytes(insert, 5, value.bytes);
            return insert.exec() != 0;
        });
    }

    bool DeleteValue(std::u16string_view printer, Place place, std::u16string_view name)
    {
        return Write([&](SQLite::Database& database) {
            Use use(*this, database,
                    "DELETE FROM printer_values WHERE name = ?3 AND place = ?2 AND "
                    "printer = (SELECT id FROM printers WHERE name = ?1)");
            SQLite::Statement& remove = *use;
            BindName(remove, 1, printer);
            remove.bind(2, place);
            BindName(remove, 3, name);
            return remove.exec() != 0;
        });
    }

  private:
    std::mutex mutex_;
    std::map<const char*, SQLite::Statement> kept_;
};

SqliteStore::SqliteStore(const std::filesystem::path& file, int timeoutMs)
    : connection_(std::make_unique<Connection>(file, timeoutMs))
{
}

SqliteStore::~SqliteStore() = default;

bool SqliteStore::ReadOnly() const { return connection_->ReadOnly(); }

std::vector<PrinterEntry> SqliteStore::Printers()
{
    return connection_->Read([this](SQLite::Database& database) {
        Connection::Use use(*connection_, database, "SELECT name, driver_name, may_change FROM printers");
        SQLite::Statement& select = *use;
        std::vector<PrinterEntry> entries;
        while (select.executeStep()) {
            entries.push_back(
                {WideColumn(select, 0), WideColumn(select, 1), select.getColumn(2).getInt() != 0 && !ReadOnly()});
        }
        // The database orders by code points, a printer's name by code units.
        std::ranges::sort(entries, {}, &PrinterEntry::name);
        return entries;
    });
}

std::optional<PrinterEntry> SqliteStore::Find(std::u16string_view printer)
{
    return connection_->Read([&](SQLite::Database& database) -> std::optional<PrinterEntry> {
        Connection::Use use(*connection_, database, "SELECT driver_name, may_change FROM printers WHERE name = ?");
        SQLite::Statement& select = *use;
        BindName(select, 1, printer);
        if (!select.executeStep()) return std::nullopt;
        return PrinterEntry{std::u16string(printer), WideColumn(select, 0),
                            select.getColumn(1).getInt() != 0 && !ReadOnly()};
    });
}

bool SqliteStore::Add(const PrinterEntry& entry)
{
    return connection_->Write([&](SQLite::Database& database) {
        Connection::Use use(*connection_, database,
                            "INSERT INTO printers (name, driver_name, may_change, record) "
                            "VALUES (?, ?, ?, x'') ON CONFLICT (name) DO NOTHING");
        SQLite::Statement& insert = *use;
        BindName(insert, 1, entry.name);
        BindName(insert, 2, entry.driverName);
        insert.bind(3, entry.mayChange ? 1 : 0);
        return insert.exec() != 0;
    });
}

bool SqliteStore::Remove(std::u16string_view printer)
{
    return connection_->Write([&](SQLite::Database& database) {
        Connection::Use use(*connection_, database, "DELETE FROM printers WHERE name = ?");
        SQLite::Statement& remove = *use;
        BindName(remove, 1, printer);
        return remove.exec() != 0;
    });
}

Bytes SqliteStore::DefaultRecord(std::u16string_view printer)
{
    return connection_->Read([&](SQLite::Database& database) {
        Connection::Use use(*connection_, database, "SELECT record FROM printers WHERE name = ?");
        SQLite::Statement& select = *use;
        BindName(select, 1, printer);
        return select.executeStep() ? BytesColumn(select, 0) : Bytes{};
    });
}

bool SqliteStore::SetDefaultRecord(std::u16string_view printer, const Bytes& record)
{
    return connection_->Write([&](SQLite::Database& database) {
        Connection::Use use(*connection_, database, "UPDATE printers SET record = ?2 WHERE name = ?1");
        SQLite::Statement& update = *use;
        BindName(update, 1, printer);
        BindBytes(update, 2, record);
        return update.exec() != 0;
    });
}

StoredValues SqliteStore::Values(std::u16string_view printer) { return connection_->Values(printer, StoredData); }

std::optional<StoredValue> SqliteStore::Value(std::u16string_view printer, std::u16string_view name)
{
    return connection_->Value(printer, StoredData, name);
}

bool SqliteStore::SetValue(std::u16string_view printer, std::u16string_view name, const StoredValue& value)
{
    return connection_->SetValue(printer, StoredData, name, value);
}

bool SqliteStore::DeleteValue(std::u16string_view printer, std::u16string_view name)
{
    return connection_->DeleteValue(printer, StoredData, name);
}

platform::RegistryStore::Access SqliteStore::KeyAccess(std::u16string_view path)
{
    const auto printer = PrinterOfKey(path);
    const auto entry = printer ? Find(*printer) : std::nullopt;
    if (!entry) return Access::None;
    return entry->mayChange ? Access::Full : Access::Read;
}

StoredValues SqliteStore::KeyValues(std::u16string_view path)
{
    const auto printer = PrinterOfKey(path);
    return printer ? connection_->Values(*printer, RegistryKey) : StoredValues{};
}

std::optional<StoredValue> SqliteStore::KeyValue(std::u16string_view path, std::u16string_view name)
{
    const auto printer = PrinterOfKey(path);
    return printer ? connection_->Value(*printer, RegistryKey, name) : std::nullopt;
}

bool SqliteStore::SetKeyValue(std::u16string_view path, std::u16string_view name, const StoredValue& value)
{
    const auto printer = PrinterOfKey(path);
    return printer && connection_->SetValue(*printer, RegistryKey, name, value);
}

bool SqliteStore::DeleteKeyValue(std::u16string_view path, std::u16string_view name)
{
    const auto printer = PrinterOfKey(path);
    return printer && connection_->DeleteValue(*printer, RegistryKey, name);
}

}  // namespace store
