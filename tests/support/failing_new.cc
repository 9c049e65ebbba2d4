#include "tests/support/failing_new.h"

#include <atomic>
#include <new>

namespace {

std::atomic<int> UntilFailure = 0;

}  // namespace

void testing_support::FailNew(int allocation) { UntilFailure = allocation; }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    if (UntilFailure > 0 && --UntilFailure == 0) return nullptr;
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
