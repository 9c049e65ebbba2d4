#include "host/record_file.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "host/files.h"

namespace host {

namespace {

std::size_t WordAt(std::span<const std::uint8_t> bytes, std::size_t offset)
{
    return static_cast<std::size_t>(bytes[offset] | bytes[offset + 1] << 8);
}

}  // namespace

std::size_t PromisedSize(std::span<const std::uint8_t> record)
{
    constexpr std::size_t SizeAt = offsetof(DEVMODEW, dmSize), ExtraAt = offsetof(DEVMODEW, dmDriverExtra);
    static_assert(ExtraAt + 2 <= RecordHeaderSize);
    return record.size() < ExtraAt + 2 ? 0 : WordAt(record, SizeAt) + WordAt(record, ExtraAt);
}

RecordBuffer::RecordBuffer(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes))
{
    bytes_.resize(std::max({bytes_.size(), PromisedSize(bytes_), RecordHeaderSize}));
}

RecordBuffer RecordBuffer::Zeroed(std::size_t size) { return RecordBuffer(std::vector<std::uint8_t>(size)); }

RecordBuffer RecordBuffer::Load(const std::string& path)
{
    return path.empty() ? RecordBuffer() : RecordBuffer(ReadFile(path));
}

std::span<const std::uint8_t> RecordBuffer::Promised() const
{
    return std::span(bytes_).first(std::min(bytes_.size(), PromisedSize(bytes_)));
}

}  // namespace host
