// Blocks and private heaps. Every block is tracked: what was never given out, or was given back, is refused
// and not followed. Sizes are in bytes.
#pragma once

#include "platform/kernel.h"

namespace platform::memory {

// What a process of the platform can have at most; larger requests fail in every build.
inline constexpr SIZE_T MostBytes = 0x7FFE0000;

// As GlobalAlloc and its companions, but outside the fault plan.
QD_API HGLOBAL Allocate(UINT flags, SIZE_T bytes);
QD_API HGLOBAL Free(HGLOBAL block);
QD_API void* Lock(HGLOBAL block);
QD_API BOOL Unlock(HGLOBAL block);

// For leak tests: blocks, private heaps, and blocks in private heaps that are not given back.
QD_API std::size_t BlockCount();
QD_API std::size_t HeapCount();
QD_API std::size_t HeapBlockCount();

}  // namespace platform::memory
