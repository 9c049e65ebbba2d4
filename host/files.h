// Files of the command line. Every failure names the file and why.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace host {

inline constexpr std::size_t FileLimit = std::size_t{64} << 20;  // bytes; more is no record, value or script

// How messages name an input.
std::string InputName(const std::string& path);

// The whole file, or all of standard input for "-". Failure when it can't be read or is longer than limit.
std::vector<std::uint8_t> ReadFile(const std::string& path, std::size_t limit = FileLimit);
std::string ReadTextFile(const std::string& path, std::size_t limit = FileLimit);

// The file whole or not at all: written beside its place and then moved there. "-" is standard output, and
// what is no regular file (a pipe, a device) is written straight away.
void WriteFile(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace host
