// The printers' store in one SQLite file, used by any number of processes at once. One object serves both
// seams, since a printer's registry key lives as long as the printer.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/seams/stores.h"

namespace store {

// Lengths in bytes; what is longer is refused with a StoreError.
inline constexpr std::size_t ValueLimit = std::size_t{64} << 20;
inline constexpr std::size_t NameLimit = 32767 * 2;

// Every function may throw StoreError, which names the file and why. A file that may not be written serves
// reading; its printers then say mayChange false, and a call that changes something throws.
class SqliteStore : public platform::PrinterStore, public platform::RegistryStore {
  public:
    // Opens the store, and makes it, with the folders above it and the one printer "Ordana Quillet 4820E" in
    // it, when there is none. A file that is no store, is damaged or comes from a newer program is refused
    // and left as it is. timeoutMs is how long a call waits for another process.
    explicit SqliteStore(const std::filesystem::path& file, int timeoutMs = 10'000);
    ~SqliteStore() override;

    bool ReadOnly() const;

    std::vector<platform::PrinterEntry> Printers() override;
    std::optional<platform::PrinterEntry> Find(std::u16string_view printer) override;
    bool Add(const platform::PrinterEntry& entry) override;
    bool Remove(std::u16string_view printer) override;
    platform::StoredValues Values(std::u16string_view printer) override;
    std::optional<platform::StoredValue> Value(std::u16string_view printer, std::u16string_view name) override;
    bool SetValue(std::u16string_view printer, std::u16string_view name, const platform::StoredValue& value) override;
    bool DeleteValue(std::u16string_view printer, std::u16string_view name) override;
    platform::Bytes DefaultRecord(std::u16string_view printer) override;
    bool SetDefaultRecord(std::u16string_view printer, const platform::Bytes& record) override;

    Access KeyAccess(std::u16string_view path) override;
    platform::StoredValues KeyValues(std::u16string_view path) override;
    std::optional<platform::StoredValue> KeyValue(std::u16string_view path, std::u16string_view name) override;
    bool SetKeyValue(std::u16string_view path, std::u16string_view name, const platform::StoredValue& value) override;
    bool DeleteKeyValue(std::u16string_view path, std::u16string_view name) override;

  private:
    class Connection;
    std::unique_ptr<Connection> connection_;
};

}  // namespace store
