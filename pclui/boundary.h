// The edge of the module: no exception leaves it. What an entry does runs inside; if that throws, the
// entry gives its failing result.
#pragma once

template <class Result, class Work>
Result AtBoundary(Result failure, Work&& work) noexcept
{
    try {
        return work();
    } catch (...) {
        return failure;
    }
}
