// The stores in memory, for tests and dry runs. One object serves both seams, since a printer's registry
// key lives as long as the printer.
#pragma once

#include <map>

#include "platform/seams/stores.h"

namespace platform {

class QD_API MemoryStore : public PrinterStore, public RegistryStore {
  public:
    std::vector<PrinterEntry> Printers() override;
    std::optional<PrinterEntry> Find(std::u16string_view printer) override;
    bool Add(const PrinterEntry& entry) override;
    bool Remove(std::u16string_view printer) override;
    StoredValues Values(std::u16string_view printer) override;
    std::optional<StoredValue> Value(std::u16string_view printer, std::u16string_view name) override;
    bool SetValue(std::u16string_view printer, std::u16string_view name, const StoredValue& value) override;
    bool DeleteValue(std::u16string_view printer, std::u16string_view name) override;
    Bytes DefaultRecord(std::u16string_view printer) override;
    bool SetDefaultRecord(std::u16string_view printer, const Bytes& record) override;

    Access KeyAccess(std::u16string_view path) override;
    StoredValues KeyValues(std::u16string_view path) override;
    std::optional<StoredValue> KeyValue(std::u16string_view path, std::u16string_view name) override;
    bool SetKeyValue(std::u16string_view path, std::u16string_view name, const StoredValue& value) override;
    bool DeleteKeyValue(std::u16string_view path, std::u16string_view name) override;

  private:
    struct Printer {
        PrinterEntry entry;
        StoredValues values, keyValues;
        Bytes record;
    };
    Printer* PrinterOfKey(std::u16string_view path);
    std::map<std::u16string, Printer, std::less<>> printers_;
};

}  // namespace platform
