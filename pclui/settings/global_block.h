// Blocks of the platform's memory, owned by type and given back with GlobalFree.
#pragma once

#include <memory>
#include <new>
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

// For containers whose memory is the platform's.
template <class T>
struct GlobalAllocator {
    using value_type = T;
    GlobalAllocator() = default;
    template <class Other>
    GlobalAllocator(const GlobalAllocator<Other>&)
    {
    }
    T* allocate(std::size_t count)
    {
        void* block = GlobalAlloc(GPTR, count * sizeof(T));
        if (!block) throw std::bad_alloc();
        return static_cast<T*>(block);
    }
    void deallocate(T* block, std::size_t) { GlobalFree(block); }
    bool operator==(const GlobalAllocator&) const = default;
};
