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

template <class Parse>
std::string Reason(Parse parse, std::span<const std::uint8_t> file)
{
    std::string why;
    EXPECT_FALSE(parse(file, &why));
    return why;
}

TEST(CompiledResources, DamageIsToldWithItsPlace)
{
    const auto reason = [](const Data& file) { return Reason(ParseCompiledResources, file); };
    EXPECT_EQ(reason({}), "at byte 0: not a compiled resource file");
    EXPECT_EQ(reason(Data(32, 0)), "at byte 0: not a compiled resource file");
    for (const std::uint32_t bytes : {4u, 0xFFFFFFFFu})
        EXPECT_EQ(reason(OneResource(bytes)), "at byte 32: the data of a resource is cut off");
    Data cut = OneResource(), endlessName = OneResource();
    cut.resize(40);
    std::fill(endlessName.begin() + 40, endlessName.end(), std::uint8_t{1});
    for (const Data& file : {cut, endlessName, OneResource(3, 0), OneResource(3, 0xFFFFFFFF)})
        EXPECT_EQ(reason(file), "at byte 32: the header of a resource does not fit");
}

TEST(ResourceSection, ForeignAndCutFilesAreRefused)
{
    std::ifstream sample(ToUtf8(QD_SAMPLE_PATH), std::ios::binary);
    Data file(std::istreambuf_iterator<char>(sample), {});
    const auto reason = [](std::span<const std::uint8_t> bytes) { return Reason(FindResourceSection, bytes); };
    EXPECT_EQ(reason(Data(100, 'x')), "at byte 0: not an ELF file");
    EXPECT_EQ(reason(std::span(file).first(30)), "at byte 0: the ELF header is cut off");
    EXPECT_THAT(reason(std::span(file).first(file.size() / 2)),
                ::testing::HasSubstr("the section headers lie outside the file"));
    file[5] = 2;
    EXPECT_EQ(reason(file), "at byte 4: an ELF file of another machine");
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
