#include "platform/kernel/resources.h"

#include <algorithm>
#include <cstring>
#include <tuple>

namespace platform::modules {

namespace {

constexpr std::size_t Align4(std::size_t offset) { return (offset + 3) & ~std::size_t{3}; }

std::nullopt_t Damaged(std::string* why, std::size_t offset, const char* what)
{
    if (why != nullptr) *why = "at byte " + std::to_string(offset) + ": " + what;
    return std::nullopt;
}

// Little-endian reading within bounds. A read past the end gives 0 and leaves failed set.
class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::uint64_t Number(std::size_t width)
    {
        std::uint64_t value = 0;
        if (width > bytes_.size() - at_) {
            failed = true;
            at_ = bytes_.size();
            return 0;
        }
        for (std::size_t i = 0; i < width; ++i) value |= std::uint64_t{bytes_[at_ + i]} << (8 * i);
        at_ += width;
        return value;
    }
    std::uint16_t Word() { return static_cast<std::uint16_t>(Number(2)); }
    std::uint32_t Dword() { return static_cast<std::uint32_t>(Number(4)); }
    void Seek(std::uint64_t offset)
    {
        failed |= offset > bytes_.size();
        at_ = static_cast<std::size_t>(std::min<std::uint64_t>(offset, bytes_.size()));
    }
    std::size_t At() const { return at_; }

    bool failed = false;

  private:
    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
};

// A type or name: 0xFFFF and a number, or a terminated wide text, which has no number.
std::optional<int> ReadIdentity(Reader& reader)
{
    std::uint16_t word = reader.Word();
    if (word == 0xFFFF) return reader.Word();
    while (word != 0 && !reader.failed) word = reader.Word();
    return std::nullopt;
}

struct Section {
    std::uint64_t name, offset, size;
};

struct ElfLayout {
    std::size_t word;           // width of addresses and offsets
    std::size_t sectionsAt;     // field of the file header: where the section headers stand
    std::size_t headerSizeAt;   // field of the file header: size of a section header, then their count
    std::size_t sectionOffset;  // field of a section header: offset, then size
};
constexpr ElfLayout Elf32 = {4, 32, 46, 16};
constexpr ElfLayout Elf64 = {8, 40, 58, 24};

}  // namespace

void ResourceIndex::Add(int type, int number, std::span<const std::uint8_t> bytes)
{
    const auto key = [](const Entry& entry) { return std::tuple(entry.type, entry.number); };
    const auto place = std::ranges::lower_bound(entries_, std::tuple(type, number), {}, key);
    if (place != entries_.end() && key(*place) == std::tuple(type, number)) return;
    entries_.insert(place, {type, number, bytes});
}

std::span<const std::uint8_t> ResourceIndex::Find(int type, int number) const
{
    const auto key = [](const Entry& entry) { return std::tuple(entry.type, entry.number); };
    const auto place = std::ranges::lower_bound(entries_, std::tuple(type, number), {}, key);
    if (place == entries_.end() || key(*place) != std::tuple(type, number)) return {};
    return place->bytes;
}

std::optional<ResourceIndex> ParseCompiledResources(std::span<const std::uint8_t> bytes, std::string* why)
{
    // The file begins with an empty entry, by which it is told from the older, 16-bit form.
    constexpr std::uint8_t Start[] = {0, 0, 0, 0, 0x20, 0, 0, 0, 0xFF, 0xFF, 0, 0, 0xFF, 0xFF, 0, 0};
    constexpr std::size_t StartBytes = 32;
    if (bytes.size() < StartBytes || !std::equal(std::begin(Start), std::end(Start), bytes.begin()))
        return Damaged(why, 0, "not a compiled resource file");

    ResourceIndex index;
    for (std::size_t at = StartBytes; at < bytes.size();) {
        Reader reader(bytes.subspan(at));
        const std::size_t dataBytes = reader.Dword();
        const std::size_t headerBytes = reader.Dword();
        const std::optional<int> type = ReadIdentity(reader);
        const std::optional<int> number = ReadIdentity(reader);
        // Data version, memory flags, language, version, characteristics: nothing that is looked at.
        const std::size_t leastHeader = Align4(reader.At()) + 16;
        if (reader.failed || headerBytes < leastHeader || headerBytes > bytes.size() - at)
            return Damaged(why, at, "the header of a resource does not fit");
        const std::size_t dataAt = at + headerBytes;
        if (dataBytes > bytes.size() - dataAt) return Damaged(why, at, "the data of a resource is cut off");
        if (type && number) index.Add(*type, *number, bytes.subspan(dataAt, dataBytes));
        at = Align4(dataAt + dataBytes);
    }
    return index;
}

std::optional<std::span<const std::uint8_t>> FindResourceSection(std::span<const std::uint8_t> file, std::string* why)
{
    constexpr std::uint8_t Magic[] = {0x7F, 'E', 'L', 'F'};
    if (file.size() < 16 || !std::equal(std::begin(Magic), std::end(Magic), file.begin()))
        return Damaged(why, 0, "not an ELF file");
    const bool littleEndian = file[5] == 1;
    if ((file[4] != 1 && file[4] != 2) || !littleEndian) return Damaged(why, 4, "an ELF file of another machine");
    const ElfLayout& layout = file[4] == 1 ? Elf32 : Elf64;

    Reader reader(file);
    reader.Seek(layout.sectionsAt);
    const std::uint64_t sectionsAt = reader.Number(layout.word);
    reader.Seek(layout.headerSizeAt);
    const std::uint64_t headerSize = reader.Word();
    const std::uint64_t count = reader.Word();
    const std::uint64_t namesIndex = reader.Word();
    if (reader.failed) return Damaged(why, 0, "the ELF header is cut off");
    if (count == 0) return std::span<const std::uint8_t>();
    if (sectionsAt > file.size() || headerSize * count > file.size() - sectionsAt || namesIndex >= count)
        return Damaged(why, layout.sectionsAt, "the section headers lie outside the file");

    auto section = [&](std::uint64_t number) {
        const std::uint64_t at = sectionsAt + number * headerSize;
        reader.Seek(at);
        Section found{};
        found.name = reader.Dword();
        reader.Seek(at + layout.sectionOffset);
        found.offset = reader.Number(layout.word);
        found.size = reader.Number(layout.word);
        return found;
    };
    auto contents = [&](const Section& s) -> std::optional<std::span<const std::uint8_t>> {
        if (s.offset > file.size() || s.size > file.size() - s.offset) return std::nullopt;
        return file.subspan(static_cast<std::size_t>(s.offset), static_cast<std::size_t>(s.size));
    };

    const auto names = contents(section(namesIndex));
    if (reader.failed || !names) return Damaged(why, layout.sectionsAt, "the section names lie outside the file");
    constexpr char Wanted[] = ".rsrc";
    for (std::uint64_t number = 0; number < count; ++number) {
        const Section candidate = section(number);
        if (reader.failed) return Damaged(why, layout.sectionsAt, "a section header is cut off");
        if (candidate.name > names->size() || names->size() - candidate.name < sizeof(Wanted)) continue;
        if (std::memcmp(names->data() + candidate.name, Wanted, sizeof(Wanted)) != 0) continue;
        const auto found = contents(candidate);
        if (!found) return Damaged(why, candidate.offset, "the section .rsrc lies outside the file");
        return found;
    }
    return std::span<const std::uint8_t>();
}

std::optional<std::u16string> StringOfBlock(std::span<const std::uint8_t> block, unsigned number)
{
    Reader reader(block);
    for (unsigned before = number % 16; before > 0; --before) reader.Seek(reader.Word() * 2u + reader.At());
    const std::size_t length = reader.Word();
    if (reader.failed || length == 0 || length * 2 > block.size() - reader.At()) return std::nullopt;
    std::u16string text(length, u'\0');
    for (char16_t& c : text) c = reader.Word();
    return text;
}

}  // namespace platform::modules
