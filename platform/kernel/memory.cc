#include "platform/kernel/memory.h"

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <unordered_map>

#include "platform/kernel/last_error.h"

namespace platform::memory {

namespace {

struct Movable {
    void* bytes;
    unsigned locks;
};

struct Tracker {
    std::mutex mutex;
    std::unordered_map<void*, SIZE_T> fixed;
    std::unordered_map<std::uintptr_t, Movable> movable;
    std::uint32_t lastHandle = 2;
};

// Never destroyed: a module may give blocks back while the process ends.
Tracker& Blocks()
{
    static Tracker* tracker = new Tracker;
    return *tracker;
}

// Handles are 2 modulo 4, addresses of blocks 0 modulo 8: one is never taken for the other. They fit
// 32 bits in every build, since stored records have fields of that width for them.
std::uint32_t NextHandle(Tracker& tracker)
{
    do tracker.lastHandle += 4;
    while (tracker.lastHandle < 4 || tracker.movable.contains(tracker.lastHandle));
    return tracker.lastHandle;
}

}  // namespace

HGLOBAL Allocate(UINT flags, SIZE_T bytes)
{
    const SIZE_T room = std::max<SIZE_T>(bytes, 1);
    void* block = nullptr;
    if (room <= MostBytes) block = (flags & GMEM_ZEROINIT) != 0 ? std::calloc(room, 1) : std::malloc(room);
    if (block == nullptr) {
        SetError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    Tracker& tracker = Blocks();
    const std::lock_guard lock(tracker.mutex);
    if ((flags & GMEM_MOVEABLE) == 0) {
        tracker.fixed.emplace(block, bytes);
        return block;
    }
    const std::uint32_t handle = NextHandle(tracker);
    tracker.movable.emplace(handle, Movable{block, 0});
    return reinterpret_cast<HGLOBAL>(static_cast<std::uintptr_t>(handle));
}

HGLOBAL Free(HGLOBAL block)
{
    if (block == nullptr) return nullptr;
    Tracker& tracker = Blocks();
    const std::lock_guard lock(tracker.mutex);
    if (tracker.fixed.erase(block) != 0) {
        std::free(block);
        return nullptr;
    }
    const auto node = tracker.movable.extract(reinterpret_cast<std::uintptr_t>(block));
    if (node.empty()) {
        SetError(ERROR_INVALID_HANDLE);
        return block;
    }
    std::free(node.mapped().bytes);
    return nullptr;
}

void* Lock(HGLOBAL block)
{
    Tracker& tracker = Blocks();
    const std::lock_guard lock(tracker.mutex);
    if (tracker.fixed.contains(block)) return block;
    const auto found = tracker.movable.find(reinterpret_cast<std::uintptr_t>(block));
    if (found == tracker.movable.end()) {
        SetError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    ++found->second.locks;
    return found->second.bytes;
}

BOOL Unlock(HGLOBAL block)
{
    Tracker& tracker = Blocks();
    const std::lock_guard lock(tracker.mutex);
    if (tracker.fixed.contains(block)) return TRUE;
    const auto found = tracker.movable.find(reinterpret_cast<std::uintptr_t>(block));
    if (found == tracker.movable.end()) {
        SetError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    unsigned& locks = found->second.locks;
    if (locks == 0) {
        SetError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    if (--locks != 0) return TRUE;
    SetError(ERROR_SUCCESS);  // tells the last unlock from a failure
    return FALSE;
}

std::size_t BlockCount()
{
    Tracker& tracker = Blocks();
    const std::lock_guard lock(tracker.mutex);
    return tracker.fixed.size() + tracker.movable.size();
}

}  // namespace platform::memory

extern "C" {

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes)
{
    if (platform::Fault("GlobalAlloc", ERROR_NOT_ENOUGH_MEMORY)) return nullptr;
    return platform::memory::Allocate(flags, bytes);
}

HGLOBAL GlobalFree(HGLOBAL block)
{
    if (platform::Fault("GlobalFree", ERROR_INVALID_HANDLE)) return block;
    return platform::memory::Free(block);
}

void* GlobalLock(HGLOBAL block)
{
    if (platform::Fault("GlobalLock", ERROR_INVALID_HANDLE)) return nullptr;
    return platform::memory::Lock(block);
}

BOOL GlobalUnlock(HGLOBAL block)
{
    if (platform::Fault("GlobalUnlock", ERROR_INVALID_HANDLE)) return FALSE;
    return platform::memory::Unlock(block);
}

}  // extern "C"
