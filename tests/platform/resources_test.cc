#include "platform/kernel/resources.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/kernel/unicode.h"

namespace platform::modules {
namespace {

using Data = std::vector<std::uint8_t>;

void Put(Data& data, std::uint32_t value, int width)
{
    for (int i = 0; i < width; ++i) data.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

// A resource file with one resource of type 10 and number 7 and the data 1, 2, 3.
Data OneResource(std::uint32_t dataBytes = 3, std::uint32_t headerBytes = 32)
{
    Data file;
    for (const std::uint32_t dword :
         {0u, 0x20u, 0xFFFFu, 0xFFFFu, 0u, 0u, 0u, 0u, dataBytes, headerBytes, 0xAFFFFu, 0x7FFFFu, 0u, 0u, 0u, 0u})
        Put(file, dword, 4);
    file.insert(file.end(), {1, 2, 3});
    return file;
}

TEST(CompiledResources, DamageIsToldWithItsPlace)
{
    constexpr char Foreign[] = "at byte 0: not a compiled resource file";
    constexpr char NoHeader[] = "at byte 32: the header of a resource does not fit";
    constexpr char NoData[] = "at byte 32: the data of a resource is cut off";
    const struct {
        std::uint32_t dataBytes, headerBytes;
        std::size_t length;
        const char* why;
    } rows[] = {
        {3,          32,         0,  Foreign }, //
        {4,          32,         67, NoData  }, //
        {0xFFFFFFFF, 32,         67, NoData  }, //
        {3,          0,          67, NoHeader}, //
        {3,          0xFFFFFFFF, 67, NoHeader}, //
        {3,          32,         40, NoHeader}, //
    };
    std::string why;
    for (const auto& row : rows) {
        Data file = OneResource(row.dataBytes, row.headerBytes);
        file.resize(row.length);
        EXPECT_FALSE(ParseCompiledResources(file, &why));
        EXPECT_EQ(why, row.why) << row.dataBytes << ' ' << row.headerBytes;
    }
    EXPECT_FALSE(ParseCompiledResources(Data(32, 0), &why));
    EXPECT_EQ(why, Foreign);
    Data endlessName = OneResource();
    std::fill(endlessName.begin() + 40, endlessName.end(), std::uint8_t{1});
    EXPECT_FALSE(ParseCompiledResources(endlessName, &why));
    EXPECT_EQ(why, NoHeader);
}

TEST(ResourceSection, ForeignAndCutFilesAreRefused)
{
    std::ifstream sample(ToUtf8(QD_SAMPLE_PATH), std::ios::binary);
    Data file(std::istreambuf_iterator<char>(sample), {});
    std::string why;
    EXPECT_FALSE(FindResourceSection(Data(100, 'x'), &why));
    EXPECT_EQ(why, "at byte 0: not an ELF file");
    EXPECT_FALSE(FindResourceSection(std::span(file).first(30), &why));
    EXPECT_EQ(why, "at byte 0: the ELF header is cut off");
    EXPECT_FALSE(FindResourceSection(std::span(file).first(file.size() / 2), &why));
    EXPECT_THAT(why, ::testing::HasSubstr("the section headers lie outside the file"));
    file[5] = 2;
    EXPECT_FALSE(FindResourceSection(file, &why));
    EXPECT_EQ(why, "at byte 4: an ELF file of another machine");
}

TEST(StringBlock, HoldsSixteenStrings)
{
    Data block;
    for (unsigned i = 0; i < 16; ++i) {
        Put(block, i == 5 || i == 15 ? 2 : 0, 2);
        if (i == 5) block.insert(block.end(), {'a', 0, 'b', 0});
        if (i == 15) block.insert(block.end(), {'y', 0, 'z', 0});
    }
    EXPECT_EQ(StringOfBlock(block, 21), u"ab");
    EXPECT_EQ(StringOfBlock(block, 31), u"yz");
    EXPECT_EQ(StringOfBlock(block, 16), std::nullopt);
    block.pop_back();
    EXPECT_EQ(StringOfBlock(block, 31), std::nullopt);
    EXPECT_EQ(StringOfBlock({}, 0), std::nullopt);
}

}  // namespace
}  // namespace platform::modules
