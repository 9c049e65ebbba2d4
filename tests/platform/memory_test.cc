#include "platform/kernel/memory.h"

#include <cstring>

#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

using memory::BlockCount;
using memory::HeapBlockCount;
using memory::HeapCount;

class Memory : public FreshEnvironment {};

TEST_F(Memory, AFixedBlockIsItsAddress)
{
    const std::size_t before = BlockCount();
    HGLOBAL block = GlobalAlloc(GPTR, 64);
    EXPECT_EQ(GlobalLock(block), block);
    EXPECT_EQ(static_cast<const char*>(block)[63], 0);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_EQ(BlockCount(), before + 1);
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(BlockCount(), before);
    HGLOBAL empty = GlobalAlloc(GMEM_FIXED, 0);
    EXPECT_NE(empty, nullptr);
    EXPECT_EQ(GlobalFree(empty), nullptr);
}

TEST_F(Memory, AMovableBlockIsASmallNumberThatLocks)
{
    HGLOBAL block = GlobalAlloc(GHND, 64);
    EXPECT_LE(reinterpret_cast<std::uintptr_t>(block), 0xFFFFFFFFu);
    void* address = GlobalLock(block);
    ASSERT_NE(address, nullptr);
    EXPECT_NE(address, block);
    std::memset(address, 7, 64);
    EXPECT_EQ(GlobalLock(block), address);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_EQ(Refusal(GlobalUnlock(block)), ERROR_SUCCESS) << "the last lock is gone";
    EXPECT_EQ(Refusal(GlobalUnlock(block)), ERROR_NOT_LOCKED);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST_F(Memory, WhatIsNoBlockIsRefusedAndNotFollowed)
{
    HGLOBAL freed = GlobalAlloc(GMEM_FIXED, 8), freedHandle = GlobalAlloc(GMEM_MOVEABLE, 8);
    GlobalFree(freed);
    GlobalFree(freedHandle);
    int local = 0;
    for (HGLOBAL bad : {freed, freedHandle, static_cast<HGLOBAL>(&local), reinterpret_cast<HGLOBAL>(6000002)}) {
        SetLastError(0);
        EXPECT_EQ(GlobalFree(bad), bad);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        EXPECT_EQ(Refusal(GlobalLock(bad)), ERROR_INVALID_HANDLE);
    }
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
    for (const SIZE_T bytes : {SIZE_T{0x7FFE0001}, SIZE_T{0xFFFFFFFF}, ~SIZE_T{0}})
        EXPECT_EQ(Refusal(GlobalAlloc(GMEM_FIXED, bytes)), ERROR_NOT_ENOUGH_MEMORY);
}

TEST_F(Memory, AHeapTakesItsBlocksWithIt)
{
    const std::size_t before = HeapCount();
    HANDLE heap = HeapCreate(0, 8192, 0);
    auto* zeros = static_cast<char*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, 100000));
    ASSERT_NE(zeros, nullptr);
    EXPECT_EQ(zeros[99999], 0);
    void* block = HeapAlloc(heap, 0, 16);
    EXPECT_TRUE(HeapFree(heap, 0, block));
    EXPECT_FALSE(HeapFree(heap, 0, block));
    EXPECT_EQ(HeapBlockCount(), 1u);
    EXPECT_TRUE(HeapDestroy(heap));
    EXPECT_EQ(HeapCount(), before);
    EXPECT_EQ(HeapBlockCount(), 0u);
    EXPECT_FALSE(HeapDestroy(heap));
    EXPECT_EQ(Refusal(HeapAlloc(heap, 0, 16)), ERROR_INVALID_HANDLE);
}

}  // namespace
}  // namespace platform
