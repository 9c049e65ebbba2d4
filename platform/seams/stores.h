// Where printers, what is stored with them, and registry keys are kept. A store that cannot do its work
// (disk full, file damaged) throws StoreError; the layer turns that into an error code for the module,
// the host shows the message.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/types.h"

namespace platform {

class QD_API StoreError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

using Bytes = std::vector<std::uint8_t>;

struct StoredValue {
    DWORD type = 0;  // REG_DWORD, REG_BINARY, ...
    Bytes bytes;
    bool operator==(const StoredValue&) const = default;
};
using StoredValues = std::map<std::u16string, StoredValue>;

struct PrinterEntry {
    std::u16string name;
    std::u16string driverName;
    bool mayChange = true;  // whether the module may open it, and its registry key, for more than reading
    bool operator==(const PrinterEntry&) const = default;
};

// Every call is one transaction: a reader never sees half a value, the last writer of a value wins.
class QD_API PrinterStore {
  public:
    virtual ~PrinterStore() = default;
    virtual std::vector<PrinterEntry> Printers() = 0;  // by name
    virtual std::optional<PrinterEntry> Find(std::u16string_view printer) = 0;
    virtual bool Add(const PrinterEntry& entry) = 0;       // false: the name is taken
    virtual bool Remove(std::u16string_view printer) = 0;  // false: there is none; its values and key go too

    virtual StoredValues Values(std::u16string_view printer) = 0;
    virtual std::optional<StoredValue> Value(std::u16string_view printer, std::u16string_view name) = 0;
    virtual bool SetValue(std::u16string_view printer, std::u16string_view name, const StoredValue& value) = 0;
    virtual bool DeleteValue(std::u16string_view printer, std::u16string_view name) = 0;

    virtual Bytes DefaultRecord(std::u16string_view printer) = 0;                         // empty: none is stored
    virtual bool SetDefaultRecord(std::u16string_view printer, const Bytes& record) = 0;  // empty clears it
};

// Keys under HKEY_LOCAL_MACHINE by their path. A printer's key, PrinterKeyPath(name), exists exactly as
// long as the printer does.
class QD_API RegistryStore {
  public:
    virtual ~RegistryStore() = default;
    enum class Access { None, Read, Full };
    virtual Access KeyAccess(std::u16string_view path) = 0;  // None: there is no such key
    virtual StoredValues KeyValues(std::u16string_view path) = 0;
    virtual std::optional<StoredValue> KeyValue(std::u16string_view path, std::u16string_view name) = 0;
    virtual bool SetKeyValue(std::u16string_view path, std::u16string_view name, const StoredValue& value) = 0;
    virtual bool DeleteKeyValue(std::u16string_view path, std::u16string_view name) = 0;
};

// "SYSTEM\CurrentControlSet\Control\Print\Printers\NAME\PrinterDriverData"
QD_API std::u16string PrinterKeyPath(std::u16string_view printer);

}  // namespace platform
