// Blocks of the platform's memory, owned by type and given back with GlobalFree.
#pragma once

#include <memory>
#include <type_traits>

#include "platform/kernel.h"

struct GlobalFreer {
    void operator()(void* block) const { GlobalFree(block); }
};

template <class T>
using GlobalBlock = std::unique_ptr<T, GlobalFreer>;

// A block of that many bytes, zeroed unless the flags say otherwise, or null.
template <class T>
GlobalBlock<T> AllocateBlock(SIZE_T bytes, UINT flags = GPTR)
{
    using Element = std::remove_extent_t<T>;
    static_assert(std::is_trivial_v<Element>);
    return GlobalBlock<T>(static_cast<Element*>(GlobalAlloc(flags, bytes)));
}
