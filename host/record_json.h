// The settings record as JSON and as texts of single fields. Fields stand under their names in the order of
// the record, those of a nested one in an object of their own; reserved bytes are left out. On the command
// line a nested field is named with a dot, as dmWatermark.wmText.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/json.h"

namespace host {

// Every field that the bytes reach whole.
Json RecordToJson(std::span<const std::uint8_t> record);

// A whole record; fields that are absent are 0. Failure names the field that does not exist or fit.
std::vector<std::uint8_t> RecordFromJson(const Json& json);

// One FIELD=VALUE. UsageError when there is no such field or the value does not fit.
class Assignment {
  public:
    explicit Assignment(std::string_view text);
    // Failure when the record does not reach the field.
    void ApplyTo(std::vector<std::uint8_t>& record) const;

  private:
    std::string name_;
    std::size_t offset_;
    std::vector<std::uint8_t> bytes_;
};

// The fields that differ, each with its two values; null for one that a record does not reach.
Json RecordDifferences(std::span<const std::uint8_t> a, std::span<const std::uint8_t> b);

}  // namespace host
