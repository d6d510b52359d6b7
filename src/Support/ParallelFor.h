#pragma once

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <atomic>
#include <cstddef>

namespace kerlune {

// Calls body(first, last) for parts of the range 0…count that cover it without overlap, on all cores. Blocks until
// every call has returned. What the caller wrote before is seen by the calls, and what they wrote by the caller after.
//
// Thread: any.
template <typename Body>
void parallelForRanges(std::size_t count, Body &&body)
{
    // The scheduler orders all this itself, but in a library that the thread sanitizer cannot see into.
    std::atomic<int> begun = 0;
    std::atomic<int> ended = 0;
    begun.store(1, std::memory_order_release);
    tbb::parallel_for(tbb::blocked_range(std::size_t{0}, count), [&](const tbb::blocked_range<std::size_t> &range) {
        begun.load(std::memory_order_acquire);
        body(range.begin(), range.end());
        ended.fetch_add(1, std::memory_order_release);
    });
    ended.load(std::memory_order_acquire);
}

} // namespace kerlune
