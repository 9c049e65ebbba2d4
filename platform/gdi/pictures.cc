#include "platform/gdi/pictures.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <tuple>

#include "platform/gdi/dib.h"
#include "platform/kernel/last_error.h"
#include "platform/kernel/modules.h"

namespace platform::gdi {

namespace {

constexpr std::uintptr_t IconTag = 3;
constexpr int IconSide = 32;
constexpr DWORD DamagedPicture = ERROR_GEN_FAILURE;

struct Icons {
    std::map<std::pair<HMODULE, int>, HICON> known;
    std::map<HICON, Icon> table;
    std::uintptr_t next = 1;
};

Icons& All()
{
    static Icons* icons = new Icons;
    return *icons;
}

}  // namespace

std::optional<Bitmap> LoadPicture(HMODULE module, int number)
{
    const auto bytes = modules::Resource(module, modules::BitmapResource, number);
    if (bytes.empty()) {
        SetError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return std::nullopt;
    }
    auto dib = ParseDib(bytes, nullptr);
    if (!dib) {
        SetError(DamagedPicture);
        return std::nullopt;
    }
    Bitmap bitmap;
    bitmap.id = number;
    bitmap.width = dib->image.width;
    bitmap.height = dib->image.height;
    bitmap.bits = dib->monochrome ? 1 : 32;
    bitmap.pixels = std::move(dib->image.pixels);
    for (std::uint32_t& pixel : bitmap.pixels) pixel &= dib->monochrome ? 1 : 0xFFFFFF;
    return bitmap;
}

std::optional<PixelImage> LoadIconImage(HMODULE module, int number)
{
    const auto group = modules::Resource(module, modules::IconGroupResource, number);
    if (group.empty()) {
        SetError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return std::nullopt;
    }
    auto entries = ParseIconGroup(group, nullptr).value_or(std::vector<IconEntry>{});
    const auto fitness = [](const IconEntry& entry) {
        return std::tuple(std::abs(entry.width - IconSide) + std::abs(entry.height - IconSide), -entry.bitsPerPixel);
    };
    std::ranges::stable_sort(entries, {}, fitness);
    for (const IconEntry& entry : entries) {
        const auto bytes = modules::Resource(module, modules::IconResource, entry.resource);
        if (auto image = ParseIconImage(bytes, nullptr)) return image;
    }
    SetError(DamagedPicture);
    return std::nullopt;
}

HICON LoadSharedIcon(HMODULE module, int number)
{
    auto image = LoadIconImage(module, number);
    if (!image) return nullptr;
    Icons& icons = All();
    auto [known, isNew] = icons.known.try_emplace({module, number});
    if (isNew) known->second = reinterpret_cast<HICON>(icons.next++ << 2 | IconTag);
    // Another module may stand under this handle by now, with another picture.
    icons.table.insert_or_assign(known->second, Icon{number, std::move(*image)});
    return known->second;
}

const Icon* PeekIcon(HICON handle)
{
    const auto found = All().table.find(handle);
    return found != All().table.end() ? &found->second : nullptr;
}

const Icon* FindIcon(HICON handle)
{
    const Icon* icon = PeekIcon(handle);
    if (icon == nullptr) SetError(ERROR_INVALID_HANDLE);
    return icon;
}

}  // namespace platform::gdi
