// The compiled resources of a module: where they stand in its file and how they are found by type and
// number. A file is hostile until it is read: every length and offset in it is checked.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/types.h"

namespace platform::modules {

// Resources by type and number. Entries refer into the bytes that were parsed. Those that are known by a
// name alone are left out; of one in several languages the first counts.
class QD_API ResourceIndex {
  public:
    void Add(int type, int number, std::span<const std::uint8_t> bytes);
    std::span<const std::uint8_t> Find(int type, int number) const;  // empty: there is none
    std::size_t Count() const { return entries_.size(); }

  private:
    struct Entry {
        int type, number;
        std::span<const std::uint8_t> bytes;
    };
    std::vector<Entry> entries_;  // by type, then number
};

// Parses a compiled resource file. Absent when it is damaged; *why then says what is wrong and where.
QD_API std::optional<ResourceIndex> ParseCompiledResources(std::span<const std::uint8_t> bytes, std::string* why);

// The section ".rsrc" of an ELF file of either word size; empty when the file has none. Absent when the
// file is damaged, with *why as above.
QD_API std::optional<std::span<const std::uint8_t>> FindResourceSection(std::span<const std::uint8_t> file,
                                                                        std::string* why);

// The string of this number within its block of 16; absent when the block is damaged or has none there.
QD_API std::optional<std::u16string> StringOfBlock(std::span<const std::uint8_t> block, unsigned number);

}  // namespace platform::modules
