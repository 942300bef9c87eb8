// What was allocated, where count_allocations is loaded before the C library.
#pragma once

#include <cstddef>

namespace bench {

struct Allocations
{
    std::size_t count;     // calls of malloc, calloc, realloc and the like
    std::size_t live;      // bytes that are allocated, as the blocks' usable sizes
    std::size_t peak;      // the most of these since startPeak(); a block that grows counts once
    std::size_t peakMoved; // the same where a block that moves as it grows counts twice at that moment
};

/// Null where nobody counts.
Allocations *allocations();

/// The peaks start from what is live.
void startPeak();

} // namespace bench
