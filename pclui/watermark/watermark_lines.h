// Lines of the stored watermarks: cutting them, and the attribute line of a row.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "driver_dev_mode.h"

inline constexpr std::size_t WatermarkValueChars = 1500;  // 3000 bytes, the terminator among them

// A stored value, or one that is being written: text up to a zero character.
using WatermarkValue = std::array<WCHAR, WatermarkValueChars>;

// Hands out the lines of a value one by one, and ends with the value at the latest.
class LineReader {
  public:
    explicit LineReader(const WatermarkValue& value);
    std::optional<std::u16string_view> Next();  // nothing behind the last line

  private:
    std::u16string_view rest_;
};

// Appends to a value; the caller has seen that the pieces and the terminator fit.
class LineWriter {
  public:
    explicit LineWriter(WatermarkValue& value) : value_(value) {}
    void Append(std::u16string_view piece);

  private:
    WatermarkValue& value_;
    std::size_t used_ = 0;
};

// A decimal number with an optional '-', nothing else; absent for any other text.
std::optional<int> WholeNumber(std::u16string_view text);

// Takes the ten fields of an attribute line; a field outside its range takes its substitute.
void ReadAttributes(std::u16string_view line, WatermarkRecord& row);

// The attribute line of a row, with its line end.
std::u16string AttributeLine(const WatermarkRecord& row);
