// What a module's file may hold: the section of resources, its entries, and what they are parsed to. The first
// byte says which parser gets the rest.
#include <cstdlib>
#include <string>

#include "platform/gdi/dib.h"
#include "platform/kernel/resources.h"
#include "platform/user/dialog_template.h"

namespace {

using Bytes = std::span<const std::uint8_t>;

// A parser tells what is wrong exactly when it gives nothing.
template <class Result>
void Require(const Result& result, const std::string& why)
{
    if (result.has_value() == !why.empty()) std::abort();
}

void ParsePicture(Bytes bytes, bool icon)
{
    std::string why;
    if (icon) {
        const auto image = platform::gdi::ParseIconImage(bytes, &why);
        Require(image, why);
        if (image && image->pixels.size() != static_cast<std::size_t>(image->width) * image->height) std::abort();
    } else {
        const auto dib = platform::gdi::ParseDib(bytes, &why);
        Require(dib, why);
        if (dib && dib->image.pixels.size() != static_cast<std::size_t>(dib->image.width) * dib->image.height)
            std::abort();
    }
}

void ParseGroup(Bytes bytes)
{
    std::string why;
    Require(platform::gdi::ParseIconGroup(bytes, &why), why);
}

void ParseTemplate(Bytes bytes)
{
    std::string why;
    Require(platform::user::ParseDialogTemplate(bytes, &why), why);
}

void ParseStrings(Bytes bytes)
{
    for (unsigned number = 0; number < 16; ++number) platform::modules::StringOfBlock(bytes, number);
}

void ParseFile(Bytes bytes)
{
    std::string why;
    const auto index = platform::modules::ParseCompiledResources(bytes, &why);
    Require(index, why);
    for (int number = 0; index && number < 8; ++number) {
        ParsePicture(index->Find(2, number), false);
        ParsePicture(index->Find(3, number), true);
        ParseTemplate(index->Find(5, number));
        ParseStrings(index->Find(6, number));
        ParseGroup(index->Find(14, number));
    }
}

void ParseModule(Bytes bytes)
{
    std::string why;
    const auto section = platform::modules::FindResourceSection(bytes, &why);
    Require(section, why);
    if (section && !section->empty()) ParseFile(*section);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) return 0;
    const Bytes bytes(data + 1, size - 1);
    switch (data[0] % 7) {
        case 0:
            ParseFile(bytes);
            break;
        case 1:
            ParseTemplate(bytes);
            break;
        case 2:
            ParsePicture(bytes, false);
            break;
        case 3:
            ParsePicture(bytes, true);
            break;
        case 4:
            ParseGroup(bytes);
            break;
        case 5:
            ParseStrings(bytes);
            break;
        default:
            ParseModule(bytes);
            break;
    }
    return 0;
}
