#include "platform/seams/memory_stores.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::u16string_view KeyHead = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\";
constexpr std::u16string_view KeyTail = u"\\PrinterDriverData";

std::optional<StoredValue> ValueOf(const StoredValues& values, std::u16string_view name)
{
    const auto found = values.find(std::u16string(name));
    if (found == values.end()) return std::nullopt;
    return found->second;
}

}  // namespace

std::u16string PrinterKeyPath(std::u16string_view printer)
{
    return std::u16string(KeyHead).append(printer).append(KeyTail);
}

std::vector<PrinterEntry> MemoryStore::Printers()
{
    std::vector<PrinterEntry> entries;
    for (const auto& [name, printer] : printers_) entries.push_back(printer.entry);
    return entries;
}

std::optional<PrinterEntry> MemoryStore::Find(std::u16string_view printer)
{
    const auto found = printers_.find(printer);
    if (found == printers_.end()) return std::nullopt;
    return found->second.entry;
}

bool MemoryStore::Add(const PrinterEntry& entry)
{
    return printers_.try_emplace(entry.name, Printer{entry, {}, {}, {}}).second;
}

bool MemoryStore::Remove(std::u16string_view printer)
{
    const auto found = printers_.find(printer);
    if (found == printers_.end()) return false;
    printers_.erase(found);
    return true;
}

StoredValues MemoryStore::Values(std::u16string_view printer)
{
    const auto found = printers_.find(printer);
    return found == printers_.end() ? StoredValues{} : found->second.values;
}

std::optional<StoredValue> MemoryStore::Value(std::u16string_view printer, std::u16string_view name)
{
    const auto found = printers_.find(printer);
    if (found == printers_.end()) return std::nullopt;
    return ValueOf(found->second.values, name);
}

bool MemoryStore::SetValue(std::u16string_view printer, std::u16string_view name, const StoredValue& value)
{
    const auto found = printers_.find(printer);
    if (found == printers_.end()) return false;
    found->second.values[std::u16string(name)] = value;
    return true;
}

bool MemoryStore::DeleteValue(std::u16string_view printer, std::u16string_view name)
{
    const auto found = printers_.find(printer);
    return found != printers_.end() && found->second.values.erase(std::u16string(name)) != 0;
}

Bytes MemoryStore::DefaultRecord(std::u16string_view printer)
{
    const auto found = printers_.find(printer);
    return found == printers_.end() ? Bytes{} : found->second.record;
}

bool MemoryStore::SetDefaultRecord(std::u16string_view printer, const Bytes& record)
{
    const auto found = printers_.find(printer);
    if (found == printers_.end()) return false;
    found->second.record = record;
    return true;
}

MemoryStore::Printer* MemoryStore::PrinterOfKey(std::u16string_view path)
{
    if (!path.starts_with(KeyHead) || !path.ends_with(KeyTail) || path.size() < KeyHead.size() + KeyTail.size())
        return nullptr;
    path.remove_prefix(KeyHead.size());
    path.remove_suffix(KeyTail.size());
    const auto found = printers_.find(path);
    return found == printers_.end() ? nullptr : &found->second;
}

RegistryStore::Access MemoryStore::KeyAccess(std::u16string_view path)
{
    const Printer* printer = PrinterOfKey(path);
    if (printer == nullptr) return Access::None;
    return printer->entry.mayChange ? Access::Full : Access::Read;
}

StoredValues MemoryStore::KeyValues(std::u16string_view path)
{
    const Printer* printer = PrinterOfKey(path);
    return printer == nullptr ? StoredValues{} : printer->keyValues;
}

std::optional<StoredValue> MemoryStore::KeyValue(std::u16string_view path, std::u16string_view name)
{
    const Printer* printer = PrinterOfKey(path);
    if (printer == nullptr) return std::nullopt;
    return ValueOf(printer->keyValues, name);
}

bool MemoryStore::SetKeyValue(std::u16string_view path, std::u16string_view name, const StoredValue& value)
{
    Printer* printer = PrinterOfKey(path);
    if (printer == nullptr) return false;
    printer->keyValues[std::u16string(name)] = value;
    return true;
}

bool MemoryStore::DeleteKeyValue(std::u16string_view path, std::u16string_view name)
{
    Printer* printer = PrinterOfKey(path);
    return printer != nullptr && printer->keyValues.erase(std::u16string(name)) != 0;
}

}  // namespace platform
