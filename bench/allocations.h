// What count_allocations counts.
#pragma once

#include <cstddef>

namespace bench {

struct Allocations
{
    std::size_t count = 0;     // calls of malloc, calloc, realloc and the like
    std::size_t live = 0;      // allocated bytes, as the usable sizes of the blocks
    std::size_t peak = 0;      // the highest `live`; a block that realloc moves counts once
    std::size_t peakMoved = 0; // the same; both blocks count while realloc moves one
};

} // namespace bench
