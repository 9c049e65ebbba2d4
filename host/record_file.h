// Records as files and as the buffers that the entries take.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/spooler.h"

namespace host {

inline constexpr std::size_t RecordHeaderSize = 72;  // up to dmFields, what every form of the record has

// What the record's own size fields promise, dmSize + dmDriverExtra; 0 when it does not reach so far.
std::size_t PromisedSize(std::span<const std::uint8_t> record);

// A record for an entry: the bytes, and zeros behind them up to what they promise and at least to the
// header's end, so that a record that promises more than it has leads no reader past its end.
class RecordBuffer {
  public:
    RecordBuffer() = default;  // none: Record() is null
    explicit RecordBuffer(std::vector<std::uint8_t> bytes);
    static RecordBuffer Zeroed(std::size_t size);       // for an output
    static RecordBuffer Load(const std::string& path);  // none for an empty path; "-" is standard input

    DEVMODEW* Record() { return bytes_.empty() ? nullptr : reinterpret_cast<DEVMODEW*>(bytes_.data()); }
    // As many bytes as the record's own size fields say, as far as the buffer goes.
    std::span<const std::uint8_t> Promised() const;
    std::span<const std::uint8_t> Whole() const { return bytes_; }

  private:
    std::vector<std::uint8_t> bytes_;
};

}  // namespace host
