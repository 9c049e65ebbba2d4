// One block with a structure at its front and behind it what the structure points at, as the print
// subsystem hands out its information. Sizes are in bytes.
#pragma once

#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "platform/types.h"

namespace platform::spooler {

class InfoBlock {
  public:
    // target is where the block is going to stand; pointers are made for that place. It may be null.
    InfoBlock(BYTE* target, std::size_t structureBytes) : target_(target), bytes_(structureBytes) {}

    WCHAR* Add(std::u16string_view text)
    {
        BYTE* at = Append(text.data(), text.size() * sizeof(WCHAR), sizeof(WCHAR));
        bytes_.resize(bytes_.size() + sizeof(WCHAR));
        return reinterpret_cast<WCHAR*>(at);
    }

    BYTE* Append(const void* data, std::size_t bytes, std::size_t alignment)
    {
        const std::size_t at = (bytes_.size() + alignment - 1) / alignment * alignment;
        bytes_.resize(at + bytes);
        if (bytes != 0) std::memcpy(bytes_.data() + at, data, bytes);
        return reinterpret_cast<BYTE*>(reinterpret_cast<std::uintptr_t>(target_) + at);
    }

    // Writes the whole block if there is room for it; *needed says how much it needs in any case.
    template <class Structure>
    DWORD Deliver(const Structure& structure, DWORD room, DWORD* needed)
    {
        *needed = static_cast<DWORD>(bytes_.size());
        if (room < bytes_.size() || target_ == nullptr) return ERROR_INSUFFICIENT_BUFFER;
        std::memcpy(bytes_.data(), &structure, sizeof structure);
        std::memcpy(target_, bytes_.data(), bytes_.size());
        return ERROR_SUCCESS;
    }

  private:
    BYTE* target_;
    std::vector<BYTE> bytes_;
};

}  // namespace platform::spooler
