#include <cstdint>
#include <cstring>

#include "gdi_fixture.h"
#include "platform/gdi/dib.h"
#include "platform/gdi/paint.h"
#include "platform/kernel/modules.h"

namespace gdi_test {
namespace {

using platform::gdi::ParseDib;
using platform::gdi::ParseIconImage;
using testing::ElementsAre;
using testing::HasSubstr;

using Data = std::vector<std::uint8_t>;

// A header of 40 bytes and whatever follows it.
struct DibParts {
    std::uint32_t headerBytes = 40;
    std::int32_t width = 2, height = 1;
    std::uint16_t planes = 1, bits = 8;
    std::uint32_t compression = 0, used = 2;
    std::vector<std::uint32_t> table = {0x00FF0000, 0x000000FF};  // red, blue
    Data pixels = {0, 1, 0, 0};

    Data Bytes() const
    {
        std::vector<std::uint32_t> words = {headerBytes,
                                            static_cast<std::uint32_t>(width),
                                            static_cast<std::uint32_t>(height),
                                            planes | std::uint32_t{bits} << 16,
                                            compression,
                                            0,
                                            0,
                                            0,
                                            used,
                                            0};
        words.insert(words.end(), table.begin(), table.end());
        Data data(4 * words.size());
        std::memcpy(data.data(), words.data(), data.size());
        data.insert(data.end(), pixels.begin(), pixels.end());
        return data;
    }
};

std::string Pixels(const platform::PixelImage& image)
{
    std::string text;
    for (const std::uint32_t pixel : image.pixels) text += (pixel >> 24 ? Hex(pixel) : "-") + " ";
    return text;
}

struct DibRow {
    DibParts parts;
    const char* told;  // the pixels, or why there are none
};
const DibRow DibRows[] = {
    {{},                                                                  "ff0000 0000ff "},
    {{40, 2, 1, 1, 1, 0, 2, {0xFF0000, 0xFF}, {0x40, 0, 0, 0}},           "ff0000 0000ff "},
    {{40, 2, 1, 1, 4, 0, 2, {0xFF0000, 0xFF}, {0x10, 0, 0, 0}},           "0000ff ff0000 "},
    {{40, 1, 1, 1, 24, 0, 0, {}, {0x33, 0x22, 0x11, 0}},                  "112233 "       },
    {{40, 1, 1, 1, 32, 0, 0, {}, {0x33, 0x22, 0x11, 0}},                  "112233 "       },
    {{40, 1, 2, 1, 8, 0, 2, {0xFF0000, 0xFF}, {0, 0, 0, 0, 1, 0, 0, 0}},  "0000ff ff0000 "},
    {{40, 1, -2, 1, 8, 0, 2, {0xFF0000, 0xFF}, {0, 0, 0, 0, 1, 0, 0, 0}}, "ff0000 0000ff "},
    {{40, 1, 1, 1, 8, 0, 1, {0xFF0000}, {200, 0, 0, 0}},                  "000000 "       },
    {{40, 1, 1, 1, 24, 0, 2, {1, 2}, {0x33, 0x22, 0x11, 0}},              "112233 "       },
};

TEST(Dibs, GiveTheirPixelsFromTheTop)
{
    for (const DibRow& row : DibRows) {
        std::string why;
        const auto dib = ParseDib(row.parts.Bytes(), &why);
        ASSERT_TRUE(dib) << row.told << ": " << why;
        EXPECT_EQ(Pixels(dib->image), row.told);
    }
}

const DibRow DamagedRows[] = {
    {{12, 2, 1, 1, 8, 0, 2, {1, 2}, {0, 0, 0, 0}},               "a header of 12 bytes"       },
    {{40, 0, 1, 1, 8, 0, 2, {1, 2}, {0, 0, 0, 0}},               "a size of 0 by 1"           },
    {{40, 1, -2147483647 - 1, 1, 8, 0, 2, {1, 2}, {0, 0, 0, 0}}, "a size of 1 by -2147483648" },
    {{40, 2147483647, 2147483647, 1, 8, 0, 2, {1, 2}, {0}},      "a size of 2147483647"       },
    {{40, 2, 1, 2, 8, 0, 2, {1, 2}, {0, 0, 0, 0}},               "2 planes"                   },
    {{40, 2, 1, 1, 16, 0, 0, {}, {0, 0, 0, 0}},                  "16 bits a pixel"            },
    {{40, 2, 1, 1, 8, 1, 2, {1, 2}, {0, 0, 0, 0}},               "compression 1"              },
    {{40, 2, 1, 1, 4, 0, 17, {1, 2}, {0, 0, 0, 0}},              "a table of 17 colours"      },
    {{40, 2, 1, 1, 8, 0, 0, {1, 2}, {0, 0, 0, 0}},               "the colour table is cut off"},
    {{40, 2, 2, 1, 8, 0, 2, {1, 2}, {0, 0, 0, 0, 0, 0, 0}},      "the pixels are cut off"     },
};

TEST(Dibs, ThatAreDamagedAreRefusedWithTheReason)
{
    for (const DibRow& row : DamagedRows) {
        std::string why;
        EXPECT_FALSE(ParseDib(row.parts.Bytes(), &why)) << row.told;
        EXPECT_THAT(why, HasSubstr(row.told));
    }
}

TEST(IconImages, AreTransparentByTheAlphaChannelOrElseTheMask)
{
    const DibRow rows[] = {
        {{40, 2, 2, 1, 8, 0, 2, {0xFF0000, 0xFF}, {0, 1, 0, 0, 0x40, 0, 0, 0}}, "ff0000 - "},
        {{40, 2, 2, 1, 32, 0, 0, {}, {1, 2, 3, 0xFF, 4, 5, 6, 0x10}},           "030201 - "},
    };
    for (const DibRow& row : rows) EXPECT_EQ(Pixels(ParseIconImage(row.parts.Bytes(), nullptr).value()), row.told);
}

// With the module of pictures loaded; its numbers stand in modules/pictures.rc.
class Pictures : public Drawing {
  protected:
    Pictures() : module(platform::modules::Load(TEST_PICTURES_PATH, &why))
    {
        EXPECT_NE(module, nullptr) << why;
        platform::user::Get(dialog)->As<platform::user::DialogState>()->module = module;
    }
    ~Pictures() override { platform::modules::Unload(module); }

    // What the static paints when it is of this style and shows this resource.
    Lines Painted(DWORD style, int resource)
    {
        platform::user::Window* window = platform::user::Get(control);
        window->style = WS_CHILD | WS_VISIBLE | style;
        window->As<platform::user::StaticState>()->resource = resource;
        platform::gdi::PaintStatic(control);
        return picture->Take();
    }

    std::string why;
    HMODULE module;
};

TEST_F(Pictures, ABitmapIsLoadedAndTransferred)
{
    platform::CurrentEnvironment().trace = trace;
    const HGDIOBJ bitmap = Own(LoadBitmapW(module, ResourceName(1)));
    Own(LoadBitmapW(module, ResourceName(2)));
    EXPECT_THAT(trace->Take(), ElementsAre("- LoadBitmapW [1] = {bitmap:{id:1,width:2,height:2,bits:32}}",
                                           "- LoadBitmapW [2] = {bitmap:{id:2,width:3,height:1,bits:1}}"));
    platform::CurrentEnvironment().trace = nullptr;
    const HDC memory = Memory(1, 1, 32), context = Context(control);
    SelectObject(memory, bitmap);
    EXPECT_TRUE(StretchBlt(context, 0, 0, 50, 30, memory, 0, 0, 2, 2, SRCCOPY));
    EXPECT_THAT(picture->Take(),
                ElementsAre("clip 10,20,60,50", "image 10,20,60,50 of 2x2 ff0000 00ff00 0000ff ffffff", "clip none"));
}

TEST_F(Pictures, WhatIsMissingOrDamagedIsNotLoaded)
{
    EXPECT_EQ(LoadBitmapW(nullptr, ResourceName(1)), nullptr);
    EXPECT_EQ(LoadBitmapW(module, u"by name"), nullptr);
    EXPECT_EQ(Refusal(LoadBitmapW(module, ResourceName(3))), ERROR_GEN_FAILURE);
    EXPECT_EQ(Refusal(LoadBitmapW(module, ResourceName(99))), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(Refusal(LoadIconW(module, ResourceName(99))), ERROR_RESOURCE_NAME_NOT_FOUND);
    for (const int damaged : {22, 23}) EXPECT_EQ(Refusal(LoadIconW(module, ResourceName(damaged))), ERROR_GEN_FAILURE);
}

TEST_F(Pictures, AnIconIsTheBestImageThatIsWhole)
{
    const HICON icon = LoadIconW(module, ResourceName(21));
    EXPECT_EQ(LoadIconW(module, ResourceName(21)), icon);
    const HDC context = Context(control);
    platform::CurrentEnvironment().trace = trace;
    EXPECT_TRUE(DrawIcon(context, 3, 4, icon));
    EXPECT_THAT(trace->Take(), ElementsAre("7 DrawIcon [3,4,{icon:21}] = 1"));
    EXPECT_THAT(picture->Take(), ElementsAre("clip 10,20,60,50", "image 13,24,15,25 of 2x1 ff0000 -", "clip none"));
}

TEST_F(Pictures, AnIconOnABitmapLeavesWhatItsMaskHides)
{
    const HDC memory = Memory(2, 1, 32);
    SetViewportOrgEx(memory, -1, 0, nullptr);
    EXPECT_TRUE(DrawIcon(memory, 1, 0, LoadIconW(module, ResourceName(21))));
    EXPECT_EQ(GetPixel(memory, 1, 0), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(memory, 2, 0), RGB(0, 0, 0));
}

TEST_F(Pictures, StaticsPaintTheirPictureOrFrame)
{
    EXPECT_THAT(Painted(SS_BITMAP, 1), ElementsAre("image 10,20,12,22 of 2x2 ff0000 00ff00 0000ff ffffff"));
    EXPECT_THAT(Painted(SS_BITMAP, 2), ElementsAre("image 10,20,13,21 of 3x1 000000 ffffff 000000"));
    EXPECT_THAT(Painted(SS_ICON, 21), ElementsAre("image 10,20,12,21 of 2x1 ff0000 -"));
    EXPECT_THAT(Painted(SS_ICON, 99), testing::IsEmpty());
    EXPECT_THAT(Painted(SS_LEFT, 1), testing::IsEmpty());
    EXPECT_THAT(Painted(SS_WHITEFRAME, 0), ElementsAre("rectangle 10,20,60,50 pen 0/1/ffffff brush none"));
    EXPECT_THAT(Painted(SS_GRAYFRAME, 0), ElementsAre("rectangle 10,20,60,50 pen 0/1/808080 brush none"));
    EXPECT_THAT(Painted(SS_BLACKRECT, 0), ElementsAre("fill 10,20,60,50 000000"));
}

}  // namespace
}  // namespace gdi_test
