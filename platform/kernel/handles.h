// Tables of what the layer gives out as handles. A handle is a small number that is never an address and
// is not given out again, so a stale one is found out. Each kind of object starts at a number of its own:
// a handle of one kind is unknown to every other table.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

namespace platform {

inline constexpr std::uintptr_t FirstModuleHandle = 0x00010000;
inline constexpr std::uintptr_t FirstHeapHandle = 0x01000000;
inline constexpr std::uintptr_t FirstPrinterHandle = 0x02000000;
inline constexpr std::uintptr_t FirstKeyHandle = 0x03000000;
inline constexpr std::uintptr_t FirstTokenHandle = 0x04000000;

template <class Object>
class HandleTable {
  public:
    HandleTable(std::uintptr_t first, std::uintptr_t step) : next_(first), step_(step) {}

    std::uintptr_t Add(std::shared_ptr<Object> object)
    {
        const std::lock_guard lock(mutex_);
        const std::uintptr_t handle = next_;
        objects_.emplace(handle, std::move(object));
        next_ += step_;
        return handle;
    }

    // Null for what is no handle of this table.
    std::shared_ptr<Object> Find(const void* handle) const
    {
        const std::lock_guard lock(mutex_);
        const auto found = objects_.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == objects_.end() ? nullptr : found->second;
    }

    // Takes the object out; null for what is no handle of this table.
    std::shared_ptr<Object> Take(const void* handle)
    {
        const std::lock_guard lock(mutex_);
        auto node = objects_.extract(reinterpret_cast<std::uintptr_t>(handle));
        return node.empty() ? nullptr : std::move(node.mapped());
    }

    template <class Visit>
    void ForEach(Visit visit) const
    {
        const std::lock_guard lock(mutex_);
        for (const auto& [handle, object] : objects_) visit(handle, *object);
    }

    std::size_t Count() const
    {
        const std::lock_guard lock(mutex_);
        return objects_.size();
    }

  private:
    mutable std::mutex mutex_;
    std::map<std::uintptr_t, std::shared_ptr<Object>> objects_;
    std::uintptr_t next_, step_;
};

}  // namespace platform
