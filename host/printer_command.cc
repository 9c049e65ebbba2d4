// qd480 printer: the printers of the store and what is stored with them.
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "host/arguments.h"
#include "host/commands.h"
#include "host/context.h"
#include "host/files.h"
#include "platform/kernel/unicode.h"
#include "platform/registry.h"
#include "store/sqlite_store.h"

namespace host {

namespace {

using platform::Bytes;
using platform::PrinterEntry;
using platform::PrinterKeyPath;
using platform::StoredValue;
using platform::StoredValues;

struct PrinterOptions {
    std::string name;
    std::optional<std::string> driverName, value, dword, hex, recordFile, output;
    bool readOnly = false, remove = false, clear = false;
};

std::string TypeName(DWORD type)
{
    switch (type) {
        case REG_NONE:
            return "REG_NONE";
        case REG_SZ:
            return "REG_SZ";
        case REG_BINARY:
            return "REG_BINARY";
        case REG_DWORD:
            return "REG_DWORD";
        case REG_MULTI_SZ:
            return "REG_MULTI_SZ";
        default:
            return std::to_string(type);
    }
}

Json ValueToJson(const StoredValue& value)
{
    Json json = {
        {"type", TypeName(value.type)}
    };
    if (value.type == REG_DWORD && value.bytes.size() == 4) {
        std::uint32_t number = 0;
        for (int i = 3; i >= 0; --i) number = number << 8 | value.bytes[static_cast<std::size_t>(i)];
        json["value"] = number;
    } else {
        json["hex"] = Hex(value.bytes);
    }
    return json;
}

Json PrinterToJson(Context& context, const PrinterEntry& entry)
{
    Json values = Json::object();
    for (const auto& [name, value] : context.Store().Values(entry.name)) {
        values[platform::ToUtf8(name)] = {
            {"type",   TypeName(value.type)},
            {"length", value.bytes.size()  }
        };
    }
    return {
        {"name",         Text(entry.name)                                },
        {"driverName",   Text(entry.driverName)                          },
        {"mayChange",    entry.mayChange                                 },
        {"values",       std::move(values)                               },
        {"recordLength", context.Store().DefaultRecord(entry.name).size()}
    };
}

void List(Context& context)
{
    Json list = Json::array();
    for (const PrinterEntry& entry : context.Store().Printers()) list.push_back(PrinterToJson(context, entry));
    Print(list);
}

void Add(Context& context, const PrinterOptions& options)
{
    const std::u16string name = WideArgument("the printer's name", options.name);
    if (name.empty()) throw UsageError("a printer's name is not empty");
    const std::u16string driver = WideArgument("the driver's name", options.driverName.value_or(options.name));
    if (!context.Store().Add({name, driver, !options.readOnly})) {
        throw Failure("there is a printer \"" + options.name + "\" already");
    }
}

std::optional<StoredValue> ValueToSet(const PrinterOptions& options)
{
    if (options.hex) {
        auto bytes = FromHex(*options.hex);
        if (!bytes) throw UsageError("--hex " + *options.hex + ": pairs of hexadecimal digits are wanted");
        return StoredValue{REG_BINARY, std::move(*bytes)};
    }
    if (!options.dword) return std::nullopt;
    const std::string& text = *options.dword;
    const auto number = NumberOf(text);
    if (!number || *number < 0) throw UsageError("--dword " + text + ": a number from 0 to 4294967295 is wanted");
    Bytes bytes;
    for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<std::uint8_t>(*number >> shift));
    return StoredValue{REG_DWORD, std::move(bytes)};
}

// The values that are stored with a printer itself, or those under its registry key.
struct ValueAccess {
    StoredValues (*all)(store::SqliteStore& store, const std::u16string& printer);
    bool (*set)(store::SqliteStore& store, const std::u16string& printer, const std::u16string& name,
                const StoredValue& value);
    bool (*remove)(store::SqliteStore& store, const std::u16string& printer, const std::u16string& name);
};

constexpr ValueAccess StoredData = {
    [](auto& store, auto& printer) { return store.Values(printer); },
    [](auto& store, auto& printer, auto& name, auto& value) { return store.SetValue(printer, name, value); },
    [](auto& store, auto& printer, auto& name) { return store.DeleteValue(printer, name); },
};

constexpr ValueAccess RegistryKey = {
    [](auto& store, auto& printer) { return store.KeyValues(PrinterKeyPath(printer)); },
    [](auto& store, auto& printer, auto& name, auto& value) {
        return store.SetKeyValue(PrinterKeyPath(printer), name, value);
    },
    [](auto& store, auto& printer, auto& name) { return store.DeleteKeyValue(PrinterKeyPath(printer), name); },
};

void UseValues(Context& context, const PrinterOptions& options, const ValueAccess& access)
{
    const auto newValue = ValueToSet(options);
    const std::u16string printer = context.Printer(options.name).name;
    store::SqliteStore& store = context.Store();
    const auto fail = [&] {
        throw Failure("the printer \"" + options.name + "\" has no value \"" + options.value.value_or("") + "\"");
    };
    Json json = Json::object();
    if (!options.value) {
        for (const auto& [name, value] : access.all(store, printer)) json[platform::ToUtf8(name)] = ValueToJson(value);
        return Print(json);
    }
    const std::u16string name = WideArgument("the value's name", *options.value);
    if (newValue) {
        // The printer may have gone since it was looked up.
        if (!access.set(store, printer, name, *newValue)) context.Printer(options.name);
    } else if (options.remove) {
        if (!access.remove(store, printer, name)) fail();
    } else {
        const StoredValues values = access.all(store, printer);
        const auto found = values.find(name);
        if (found == values.end()) fail();
        json[*options.value] = ValueToJson(found->second);
        Print(json);
    }
}

void UseRecord(Context& context, const PrinterOptions& options)
{
    const std::u16string printer = context.Printer(options.name).name;
    if (options.recordFile || options.clear) {
        const Bytes record = options.recordFile ? ReadFile(*options.recordFile) : Bytes{};
        if (!context.Store().SetDefaultRecord(printer, record)) context.Printer(options.name);
    } else {
        context.KeepStoreFrom("-o", options.output.value_or("-"));
        WriteFile(options.output.value_or("-"), context.Store().DefaultRecord(printer));
    }
}

// data and registry differ in what can be set only.
void AddValueOptions(CLI::App* command, PrinterOptions& options, bool withDword)
{
    auto* value = command->add_option("VALUE", options.value, "One value; without it all are shown")->type_name("");
    auto* hex = command->add_option("--hex", options.hex, "Set the value to these bytes, as REG_BINARY; \"\" is none")
                    ->type_name("HEX")
                    ->needs(value);
    auto* remove = command->add_flag("--delete", options.remove, "Delete the value")->needs(value)->excludes(hex);
    if (withDword) {
        command->add_option("--dword", options.dword, "Set the value to this number, as REG_DWORD")
            ->type_name("N")
            ->needs(value)
            ->excludes(hex)
            ->excludes(remove);
    }
}

}  // namespace

void AddPrinterCommand(CLI::App& program, Context& context)
{
    CLI::App* printer = program.add_subcommand("printer", "The printers of the store and what is stored with them");
    printer->require_subcommand(1);
    const auto options = std::make_shared<PrinterOptions>();
    const auto add = [&](const char* name, const char* about) { return printer->add_subcommand(name, about); };
    const auto addNamed = [&](const char* name, const char* about) {
        CLI::App* command = add(name, about);
        command->add_option("NAME", options->name, "The printer")->required()->type_name("");
        return command;
    };

    add("list", "Print all printers as JSON")->callback([&context] { List(context); });
    addNamed("show", "Print one printer as JSON")->callback([options, &context] {
        Print(PrinterToJson(context, context.Printer(options->name)));
    });
    addNamed("remove", "Remove a printer with all that is stored with it")->callback([options, &context] {
        const std::u16string name = context.Printer(options->name).name;
        if (!context.Store().Remove(name)) context.Printer(options->name);
    });

    CLI::App* addPrinter = addNamed("add", "Add a printer");
    addPrinter->add_option("--driver-name", options->driverName, "The driver's name; default: the printer's")
        ->type_name("TEXT");
    addPrinter->add_flag("--read-only", options->readOnly,
                         "The module may open the printer, and its registry key, for reading only");
    addPrinter->callback([options, &context] { Add(context, *options); });

    CLI::App* data = addNamed("data", "Print, set or delete the values stored with a printer");
    AddValueOptions(data, *options, true);
    data->callback([options, &context] { UseValues(context, *options, StoredData); });

    CLI::App* record = addNamed("record", "Set, clear or write out a printer's default record, as raw bytes");
    auto* set = record->add_option("--set", options->recordFile, "Store this file; - is standard input")
                    ->type_name("FILE")
                    ->check(FileName());
    auto* clear = record->add_flag("--clear", options->clear, "Store none")->excludes(set);
    record->add_option("-o,--output", options->output, "Where the record goes; default: standard output")
        ->type_name("FILE")
        ->check(FileName())
        ->excludes(set)
        ->excludes(clear);
    record->callback([options, &context] { UseRecord(context, *options); });

    CLI::App* registry = addNamed("registry", "Print, set or delete the values under a printer's registry key");
    AddValueOptions(registry, *options, false);
    registry->callback([options, &context] { UseValues(context, *options, RegistryKey); });
}

}  // namespace host
