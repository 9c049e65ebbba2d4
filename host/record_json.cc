#include "host/record_json.h"

#include <driver_dev_mode.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

#include "host/errors.h"
#include "platform/kernel/unicode.h"

namespace host {

namespace {

using Record = std::span<const std::uint8_t>;

bool Reaches(Record record, const RecordField& field) { return record.size() >= field.offset + field.width; }

std::int64_t NumberIn(Record record, const RecordField& field)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < field.width; ++i) number |= std::uint64_t{record[field.offset + i]} << 8 * i;
    const unsigned unused = 64 - 8 * static_cast<unsigned>(field.width);
    if (field.kind == FieldKind::Signed) return static_cast<std::int64_t>(number << unused) >> unused;
    return static_cast<std::int64_t>(number);
}

std::u16string TextIn(Record record, const RecordField& field)
{
    std::u16string text(field.width / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), record.data() + field.offset, field.width);
    return UpToTerminator(text);
}

Json FieldsToJson(Record record, std::span<const RecordField> fields)
{
    Json json = Json::object();
    for (const RecordField& field : fields) {
        const std::string name(field.name);
        if (field.kind == FieldKind::Nested) {
            if (record.size() <= field.offset) continue;
            Json nested = FieldsToJson(record.subspan(field.offset), WatermarkFields);
            if (!nested.empty()) json[name] = std::move(nested);
        } else if (Reaches(record, field)) {
            json[name] =
                field.kind == FieldKind::WideText ? Text(TextIn(record, field)) : Json(NumberIn(record, field));
        }
    }
    return json;
}

// A field by its own name or by that of a nested one, with its place in the record.
std::optional<RecordField> FindField(std::string_view name)
{
    const std::size_t dot = name.find('.');
    for (const RecordField& field : RecordFields) {
        if (field.name != name.substr(0, dot)) continue;
        if (dot == std::string_view::npos) return field;
        if (field.kind != FieldKind::Nested) return std::nullopt;
        for (RecordField nested : WatermarkFields) {
            if (nested.name != name.substr(dot + 1)) continue;
            nested.offset += field.offset;
            return nested;
        }
    }
    return std::nullopt;
}

struct Range {
    std::int64_t least, greatest;
};

Range RangeOf(const RecordField& field)
{
    const std::int64_t count = std::int64_t{1} << 8 * field.width;
    return field.kind == FieldKind::Signed ? Range{-count / 2, count / 2 - 1} : Range{0, count - 1};
}

std::string RangeText(const RecordField& field)
{
    const Range range = RangeOf(field);
    return "a number from " + std::to_string(range.least) + " to " + std::to_string(range.greatest);
}

// The field's bytes; absent when the number is out of its range.
std::optional<std::vector<std::uint8_t>> BytesOf(const RecordField& field, std::int64_t number)
{
    const Range range = RangeOf(field);
    if (number < range.least || number > range.greatest) return std::nullopt;
    std::vector<std::uint8_t> bytes(field.width);
    for (std::size_t i = 0; i < field.width; ++i) {
        bytes[i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(number) >> 8 * i);
    }
    return bytes;
}

std::size_t TextRoom(const RecordField& field) { return field.width / sizeof(char16_t) - 1; }

// Zero-filled behind the text; absent when it is not UTF-8, has a terminator inside or leaves no room for one.
std::optional<std::vector<std::uint8_t>> BytesOf(const RecordField& field, std::string_view text)
{
    const std::u16string wide = platform::ToWide(text);
    if (platform::ToUtf8(wide) != text || wide.find(u'\0') != std::u16string::npos || wide.size() > TextRoom(field)) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> bytes(field.width);
    std::memcpy(bytes.data(), wide.data(), wide.size() * sizeof(char16_t));
    return bytes;
}

std::string TextWanted(const RecordField& field)
{
    return "a text of at most " + std::to_string(TextRoom(field)) + " characters";
}

// Decimal, or hexadecimal behind 0x.
std::optional<std::int64_t> ParseNumber(std::string_view text)
{
    const bool negative = text.starts_with('-');
    std::string_view digits = text.substr(negative ? 1 : 0);
    const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
    if (hexadecimal) digits.remove_prefix(2);
    std::uint32_t number = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return negative ? -std::int64_t{number} : std::int64_t{number};
}

void FieldsFromJson(const Json& json, const std::string& prefix, std::vector<std::uint8_t>& record)
{
    for (const auto& [key, value] : json.items()) {
        const std::string name = prefix + key;
        const auto field = FindField(name);
        if (!field) throw Failure("there is no field \"" + name + "\" in the record");
        if (field->kind == FieldKind::Nested) {
            if (!value.is_object()) throw Failure("the field " + name + " takes an object");
            FieldsFromJson(value, name + ".", record);
            continue;
        }
        std::optional<std::vector<std::uint8_t>> bytes;
        const bool isText = field->kind == FieldKind::WideText;
        if (isText && value.is_string()) bytes = BytesOf(*field, value.get_ref<const std::string&>());
        // What does not fit 63 bits is out of every range.
        const bool tooLarge = value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX;
        if (!isText && value.is_number_integer() && !tooLarge) bytes = BytesOf(*field, value.get<std::int64_t>());
        if (!bytes) throw Failure("the field " + name + " takes " + (isText ? TextWanted(*field) : RangeText(*field)));
        std::ranges::copy(*bytes, record.begin() + static_cast<std::ptrdiff_t>(field->offset));
    }
}

void AddDifferences(const Json& a, const Json& b, std::span<const RecordField> fields, const std::string& prefix,
                    Json& differences)
{
    const auto valueIn = [](const Json& json, const std::string& name) {
        const auto found = json.find(name);
        return found == json.end() ? Json() : *found;
    };
    for (const RecordField& field : fields) {
        const std::string name(field.name);
        const Json inA = valueIn(a, name), inB = valueIn(b, name);
        if (field.kind == FieldKind::Nested) {
            const Json none = Json::object();
            AddDifferences(inA.is_null() ? none : inA, inB.is_null() ? none : inB, WatermarkFields, prefix + name + ".",
                           differences);
        } else if (inA != inB) {
            differences[prefix + name] = Json::array({inA, inB});
        }
    }
}

}  // namespace

Json RecordToJson(Record record) { return FieldsToJson(record, RecordFields); }

std::vector<std::uint8_t> RecordFromJson(const Json& json)
{
    if (!json.is_object()) throw Failure("a record is wanted as one object of fields");
    std::vector<std::uint8_t> record(RecordSize);
    FieldsFromJson(json, "", record);
    return record;
}

Assignment::Assignment(std::string_view text)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) throw UsageError("\"" + std::string(text) + "\": FIELD=VALUE is wanted");
    name_ = text.substr(0, equals);
    const std::string_view value = text.substr(equals + 1);
    const auto field = FindField(name_);
    if (!field) throw UsageError("there is no field \"" + name_ + "\" in the record");
    if (field->kind == FieldKind::Nested) {
        throw UsageError(name_ + " has fields of its own; name one, as " + name_ + ".wmText");
    }

    std::optional<std::vector<std::uint8_t>> bytes;
    const bool isText = field->kind == FieldKind::WideText;
    if (isText) {
        bytes = BytesOf(*field, value);
    } else if (const auto number = ParseNumber(value)) {
        bytes = BytesOf(*field, *number);
    }
    if (!bytes) {
        throw UsageError(std::string(text) + ": " + name_ + " takes " +
                         (isText ? TextWanted(*field) : RangeText(*field)));
    }
    offset_ = field->offset;
    bytes_ = std::move(*bytes);
}

void Assignment::ApplyTo(std::vector<std::uint8_t>& record) const
{
    if (record.size() < offset_ + bytes_.size()) {
        throw Failure("the record of " + std::to_string(record.size()) + " bytes does not reach the field " + name_);
    }
    std::ranges::copy(bytes_, record.begin() + static_cast<std::ptrdiff_t>(offset_));
}

Json RecordDifferences(Record a, Record b)
{
    Json differences = Json::object();
    AddDifferences(RecordToJson(a), RecordToJson(b), RecordFields, "", differences);
    return differences;
}

}  // namespace host
