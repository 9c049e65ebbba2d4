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
    for (const std::uint32_t dword : {0u, 0x20u, 0xFFFFu, 0xFFFFu, 0u, 0u, 0u, 0u}) Put(file, dword, 4);
    Put(file, dataBytes, 4);
    Put(file, headerBytes, 4);
    for (const std::uint32_t word : {0xFFFFu, 10u, 0xFFFFu, 7u}) Put(file, word, 2);
    for (int i = 0; i < 4; ++i) Put(file, 0, 4);
    file.insert(file.end(), {1, 2, 3});
    return file;
}

Data ModuleFile()
{
    std::ifstream file(ToUtf8(QD_SAMPLE_PATH), std::ios::binary);
    return Data(std::istreambuf_iterator<char>(file), {});
}

TEST(CompiledResources, DamageIsToldWithItsPlace)
{
    struct Row {
        Data file;
        const char* why;
    };
    Data cut = OneResource();
    cut.resize(40);
    Data endlessName = OneResource();
    std::fill(endlessName.begin() + 40, endlessName.end(), std::uint8_t{1});
    const Row rows[] = {
        {{},                                                   "at byte 0: not a compiled resource file" },
        {Data(32,                                              0),                                         "at byte 0: not a compiled resource file"},
        {OneResource(4),                                                    "at byte 32: the data of a resource is cut off"                                                                                },
        {OneResource(0xFFFFFFFF),                                                    "at byte 32: the data of a resource is cut off"},
        {OneResource(3,                                                    0),                                                                                           "at byte 32: the header of a resource does not fit"},
        {OneResource(3, 0xFFFFFFFF),"at byte 32: the header of a resource does not fit"},
        {cut,                                         "at byte 32: the header of a resource does not fit"                                                                               },
        {endlessName,                                                  "at byte 32: the header of a resource does not fit"},
    };
    for (const Row& row : rows) {
        std::string why;
        EXPECT_FALSE(ParseCompiledResources(row.file, &why)) << row.why;
        EXPECT_EQ(why, row.why);
    }
}

TEST(ResourceSection, ForeignAndCutFilesAreRefused)
{
    Data file = ModuleFile();
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
