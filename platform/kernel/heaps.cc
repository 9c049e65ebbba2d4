#include <algorithm>
#include <cstdlib>
#include <unordered_map>

#include "platform/kernel/handles.h"
#include "platform/kernel/last_error.h"
#include "platform/kernel/memory.h"

namespace platform::memory {

namespace {

class Heap {
  public:
    explicit Heap(SIZE_T maximum) : maximum_(maximum) {}
    ~Heap()
    {
        for (const auto& [block, bytes] : blocks_) std::free(block);
    }
    Heap(const Heap&) = delete;
    Heap& operator=(const Heap&) = delete;

    void* Allocate(SIZE_T bytes, bool zeroed)
    {
        const std::lock_guard lock(mutex_);
        const SIZE_T room = std::max<SIZE_T>(bytes, 1);
        if (room > MostBytes || (maximum_ != 0 && (room > maximum_ || used_ > maximum_ - room))) return nullptr;
        void* block = zeroed ? std::calloc(room, 1) : std::malloc(room);
        if (block == nullptr) return nullptr;
        blocks_.emplace(block, room);
        used_ += room;
        return block;
    }

    bool Free(void* block)
    {
        const std::lock_guard lock(mutex_);
        const auto found = blocks_.find(block);
        if (found == blocks_.end()) return false;
        used_ -= found->second;
        blocks_.erase(found);
        std::free(block);
        return true;
    }

    std::size_t Count() const
    {
        const std::lock_guard lock(mutex_);
        return blocks_.size();
    }

  private:
    mutable std::mutex mutex_;
    std::unordered_map<void*, SIZE_T> blocks_;
    SIZE_T maximum_;  // 0: grows as needed
    SIZE_T used_ = 0;
};

HandleTable<Heap>& Heaps()
{
    static auto* heaps = new HandleTable<Heap>(FirstHeapHandle, 4);
    return *heaps;
}

}  // namespace

std::size_t HeapCount() { return Heaps().Count(); }

std::size_t HeapBlockCount()
{
    std::size_t blocks = 0;
    Heaps().ForEach([&blocks](std::uintptr_t, const Heap& heap) { blocks += heap.Count(); });
    return blocks;
}

}  // namespace platform::memory

using namespace platform;

extern "C" {

HANDLE HeapCreate(DWORD, SIZE_T initialBytes, SIZE_T maximumBytes)
{
    if (Fault("HeapCreate", ERROR_NOT_ENOUGH_MEMORY)) return nullptr;
    if (initialBytes > memory::MostBytes || maximumBytes > memory::MostBytes) {
        SetError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    const SIZE_T maximum = maximumBytes == 0 ? 0 : std::max(initialBytes, maximumBytes);
    return reinterpret_cast<HANDLE>(memory::Heaps().Add(std::make_shared<memory::Heap>(maximum)));
}

void* HeapAlloc(HANDLE heap, DWORD flags, SIZE_T bytes)
{
    if (Fault("HeapAlloc", ERROR_NOT_ENOUGH_MEMORY)) return nullptr;
    const auto object = memory::Heaps().Find(heap);
    if (object == nullptr) {
        SetError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    void* block = object->Allocate(bytes, (flags & HEAP_ZERO_MEMORY) != 0);
    if (block == nullptr) SetError(ERROR_NOT_ENOUGH_MEMORY);
    return block;
}

BOOL HeapFree(HANDLE heap, DWORD, void* block)
{
    if (Fault("HeapFree", ERROR_INVALID_PARAMETER)) return FALSE;
    const auto object = memory::Heaps().Find(heap);
    if (object == nullptr) {
        SetError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (block == nullptr || object->Free(block)) return TRUE;
    SetError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

BOOL HeapDestroy(HANDLE heap)
{
    if (Fault("HeapDestroy", ERROR_INVALID_HANDLE)) return FALSE;
    if (memory::Heaps().Take(heap) != nullptr) return TRUE;
    SetError(ERROR_INVALID_HANDLE);
    return FALSE;
}

}  // extern "C"
