#include "platform/gdi/dib.h"

#include <algorithm>
#include <array>

#include "platform/gdi/bitmap.h"

namespace platform::gdi {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t LeastHeader = 40, MostHeader = 124;
constexpr std::uint32_t Transparent = 0, Opaque = 0xFF000000;

std::uint32_t Word(Bytes bytes, std::size_t at) { return bytes[at] | std::uint32_t{bytes[at + 1]} << 8; }
std::uint32_t Double(Bytes bytes, std::size_t at) { return Word(bytes, at) | Word(bytes, at + 2) << 16; }

struct Header {
    int width = 0, height = 0;  // as many rows as the header says
    bool topDown = false;
    int bits = 0;
    std::array<std::uint32_t, 256> table{};  // 0xFFRRGGBB; what the file leaves out is black
    std::size_t colors = 0;
    std::size_t pixels = 0;  // where they begin
};

std::nullopt_t Refuse(std::string* why, std::string reason)
{
    if (why != nullptr) *why = std::move(reason);
    return std::nullopt;
}

std::optional<Header> ReadHeader(Bytes bytes, std::string* why)
{
    if (bytes.size() < LeastHeader) return Refuse(why, "the header is cut off");
    const std::size_t size = Double(bytes, 0);
    if (size < LeastHeader || size > MostHeader || size > bytes.size())
        return Refuse(why, "a header of " + std::to_string(size) + " bytes");
    const auto width = static_cast<std::int32_t>(Double(bytes, 4));
    const std::int64_t height = static_cast<std::int32_t>(Double(bytes, 8));
    const std::int64_t rows = height < 0 ? -height : height;
    if (width < 1 || rows < 1 || std::int64_t{width} * rows > MostPixels)
        return Refuse(why, "a size of " + std::to_string(width) + " by " + std::to_string(height));
    if (Word(bytes, 12) != 1) return Refuse(why, std::to_string(Word(bytes, 12)) + " planes");
    if (Double(bytes, 16) != 0) return Refuse(why, "compression " + std::to_string(Double(bytes, 16)));

    Header header;
    header.width = width;
    header.height = static_cast<int>(rows);
    header.topDown = height < 0;
    header.bits = static_cast<int>(Word(bytes, 14));
    if (header.bits != 1 && header.bits != 4 && header.bits != 8 && header.bits != 24 && header.bits != 32)
        return Refuse(why, std::to_string(header.bits) + " bits a pixel");

    const std::size_t used = Double(bytes, 32);
    const std::size_t most = header.bits <= 8 ? std::size_t{1} << header.bits : 0;
    header.colors = most != 0 && used == 0 ? most : used;
    if (header.colors > (most != 0 ? most : 256))
        return Refuse(why, "a table of " + std::to_string(header.colors) + " colours");
    if (header.colors * 4 > bytes.size() - size) return Refuse(why, "the colour table is cut off");
    header.table.fill(Opaque);
    for (std::size_t i = 0; i < header.colors; ++i) header.table[i] = Opaque | (Double(bytes, size + 4 * i) & 0xFFFFFF);
    header.pixels = size + header.colors * 4;
    return header;
}

std::size_t PaddedRow(int width, int bits)
{
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 31) / 32 * 4;
}

std::uint32_t PixelAt(Bytes row, int x, const Header& header)
{
    const auto column = static_cast<std::size_t>(x);
    switch (header.bits) {
        case 1:
            return header.table[row[column / 8] >> (7 - column % 8) & 1];
        case 4:
            return header.table[row[column / 2] >> (column % 2 == 0 ? 4 : 0) & 15];
        case 8:
            return header.table[row[column]];
        case 24:
            return Opaque | Word(row, 3 * column) | std::uint32_t{row[3 * column + 2]} << 16;
        default:
            return Double(row, 4 * column);  // its alpha is the caller's
    }
}

// The rows of one plane of pixels; absent if they are cut off.
std::optional<PixelImage> ReadRows(Bytes bytes, const Header& header, std::string* why)
{
    const std::size_t stride = PaddedRow(header.width, header.bits);
    const auto rows = static_cast<std::size_t>(header.height);
    if (bytes.size() < header.pixels || (bytes.size() - header.pixels) / stride < rows)
        return Refuse(why, "the pixels are cut off");
    PixelImage image{header.width, header.height, {}};
    image.pixels.reserve(static_cast<std::size_t>(header.width) * rows);
    for (std::size_t y = 0; y < rows; ++y) {
        const Bytes row = bytes.subspan(header.pixels + (header.topDown ? y : rows - 1 - y) * stride, stride);
        for (int x = 0; x < header.width; ++x) image.pixels.push_back(PixelAt(row, x, header));
    }
    return image;
}

}  // namespace

std::optional<Dib> ParseDib(Bytes bytes, std::string* why)
{
    const auto header = ReadHeader(bytes, why);
    if (!header) return std::nullopt;
    auto image = ReadRows(bytes, *header, why);
    if (!image) return std::nullopt;
    for (std::uint32_t& pixel : image->pixels) pixel |= Opaque;

    Dib dib{std::move(*image)};
    if (header->bits == 1) {
        const std::uint32_t first = header->table[0], second = header->table[1];
        dib.monochrome = (first == Opaque && second == 0xFFFFFFFF) || (first == 0xFFFFFFFF && second == Opaque);
    }
    return dib;
}

std::optional<PixelImage> ParseIconImage(Bytes bytes, std::string* why)
{
    auto header = ReadHeader(bytes, why);
    if (!header) return std::nullopt;
    if (header->height % 2 != 0) return Refuse(why, "an icon without room for its mask");
    header->height /= 2;
    auto image = ReadRows(bytes, *header, why);
    if (!image) return std::nullopt;

    const auto alpha = [](std::uint32_t pixel) { return pixel >> 24; };
    if (header->bits == 32 && std::ranges::any_of(image->pixels, alpha)) {
        for (std::uint32_t& pixel : image->pixels) pixel = alpha(pixel) >= 0x80 ? pixel | Opaque : Transparent;
        return image;
    }
    Header maskHeader = *header;
    maskHeader.pixels += PaddedRow(header->width, header->bits) * static_cast<std::size_t>(header->height);
    maskHeader.bits = 1;
    maskHeader.table = {0, 1};
    const auto mask = ReadRows(bytes, maskHeader, why);
    if (!mask) return std::nullopt;
    for (std::size_t i = 0; i < image->pixels.size(); ++i)
        image->pixels[i] = mask->pixels[i] != 0 ? Transparent : image->pixels[i] | Opaque;
    return image;
}

std::optional<std::vector<IconEntry>> ParseIconGroup(Bytes bytes, std::string* why)
{
    constexpr std::size_t Start = 6, EntryBytes = 14, IconType = 1;
    if (bytes.size() < Start || Word(bytes, 0) != 0 || Word(bytes, 2) != IconType) return Refuse(why, "no icon group");
    const std::size_t count = Word(bytes, 4);
    if ((bytes.size() - Start) / EntryBytes < count) return Refuse(why, "the icon group is cut off");
    std::vector<IconEntry> entries;
    for (std::size_t at = Start; entries.size() < count; at += EntryBytes) {
        const auto side = [](std::uint8_t value) { return value == 0 ? 256 : int{value}; };
        entries.push_back({side(bytes[at]), side(bytes[at + 1]), static_cast<int>(Word(bytes, at + 6)),
                           static_cast<int>(Word(bytes, at + 12))});
    }
    return entries;
}

}  // namespace platform::gdi
