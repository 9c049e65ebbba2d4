// Memory that the module asks of the language and not of the platform: allocations that may fail (std::nothrow) do
// so here on demand. One source a program holds the operator: failing_new.cc.
#pragma once

namespace testing_support {

// The allocation of that number from now on, from 1, fails; 0: none.
void FailNew(int allocation);

}  // namespace testing_support
