// qd480 record: record files, shown, changed, made and compared.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/arguments.h"
#include "host/commands.h"
#include "host/context.h"
#include "host/files.h"
#include "host/record_json.h"

namespace host {

namespace {

struct RecordOptions {
    std::string file, other, output = "-";
    std::vector<std::string> assignments;
};

void Show(const RecordOptions& options) { Print(RecordToJson(ReadFile(options.file))); }

void Set(const RecordOptions& options)
{
    std::vector<Assignment> assignments;
    for (const std::string& text : options.assignments) assignments.emplace_back(text);
    auto record = ReadFile(options.file);
    try {
        for (const Assignment& assignment : assignments) assignment.ApplyTo(record);
    } catch (const Failure& error) {
        throw Failure(InputName(options.file) + ": " + error.what());
    }
    WriteFile(options.output, record);
}

// The library takes the last one of two fields of one name.
Json ParseNamesOnce(const std::string& text)
{
    std::vector<std::set<std::string>> names;
    return Json::parse(text, [&](int, Json::parse_event_t event, const Json& parsed) {
        if (event == Json::parse_event_t::object_start) names.emplace_back();
        if (event == Json::parse_event_t::object_end) names.pop_back();
        if (event == Json::parse_event_t::key && !names.back().insert(parsed.get<std::string>()).second)
            throw Failure("the field " + parsed.get<std::string>() + " is given twice");
        return true;
    });
}

void Make(const RecordOptions& options)
{
    const std::string text = ReadTextFile(options.file);
    std::vector<std::uint8_t> record;
    try {
        record = RecordFromJson(ParseNamesOnce(text));
    } catch (const Json::parse_error& error) {
        // The library's own mark stands before what is of use.
        const std::string_view what = error.what();
        throw Failure(InputName(options.file) + " is no JSON: " + std::string(what.substr(what.find("] ") + 2)));
    } catch (const Failure& error) {
        throw Failure(InputName(options.file) + ": " + error.what());
    }
    WriteFile(options.output, record);
}

void Diff(const RecordOptions& options, Context& context)
{
    if (options.file == "-" && options.other == "-") throw UsageError("only one of the records can be standard input");
    const auto a = ReadFile(options.file), b = ReadFile(options.other);
    const Json differences = RecordDifferences(a, b);
    Print(differences);
    if (a == b) return;
    context.status = Cancelled;
    if (differences.empty()) {
        const auto place = std::ranges::mismatch(a, b).in1 - a.begin();
        std::fprintf(stderr, "qd480: the records differ from byte %td on, where no field shows it\n", place);
    }
}

}  // namespace

void AddRecordCommand(CLI::App& program, Context& context)
{
    CLI::App* record = program.add_subcommand("record", "Show, change, make and compare settings records in files");
    record->require_subcommand(1);
    record->footer(
        "A record file is the raw bytes, 1848 of them in a whole record. FILE may be -, for standard input.\n"
        "Fields are named as record show tells them, nested ones with a dot: dmWatermark.wmText.");
    const auto options = std::make_shared<RecordOptions>();
    const auto add = [&](const char* name, const char* about) { return record->add_subcommand(name, about); };
    const auto addOutput = [&](CLI::App* command) {
        command->add_option("-o,--output", options->output, "Where the record goes; default: standard output")
            ->check(FileName())
            ->type_name("OUT");
    };

    CLI::App* show = add("show", "Print a record as JSON, as far as it reaches");
    show->add_option("FILE", options->file, "The record")->required()->check(FileName())->type_name("");
    show->callback([options] { Show(*options); });

    CLI::App* set = add("set", "Change fields of a record");
    set->add_option("FILE", options->file, "The record")->required()->check(FileName())->type_name("");
    set->add_option("FIELD=VALUE", options->assignments,
                    "Fields and their values: numbers decimal or behind 0x, texts as they are")
        ->required()
        ->type_name("");
    addOutput(set);
    set->callback([options] { Set(*options); });

    CLI::App* make = add("make", "Make a record from JSON; fields that are absent are 0");
    make->add_option("FILE", options->file, "The JSON, as record show prints it")
        ->required()
        ->check(FileName())
        ->type_name("");
    addOutput(make);
    make->callback([options] { Make(*options); });

    CLI::App* diff =
        add("diff", "Print the fields that differ, each with its two values; status 1 when the records differ");
    diff->add_option("A", options->file, "The one record")->required()->check(FileName())->type_name("");
    diff->add_option("B", options->other, "The other record")->required()->check(FileName())->type_name("");
    diff->callback([options, &context] { Diff(*options, context); });
}

}  // namespace host
