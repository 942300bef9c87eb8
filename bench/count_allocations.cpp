// Counts the allocations of a process that LD_PRELOAD loads it into. The counters are not
// synchronised: allocations of several threads at the same time may be lost.

#include "allocations.h"

#include <algorithm>
#include <cerrno>
#include <malloc.h>

extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *memory);
}

namespace {

bench::Allocations counted;

void *added(void *memory)
{
    ++counted.count;
    counted.live += malloc_usable_size(memory);
    counted.peak = std::max(counted.peak, counted.live);
    counted.peakMoved = std::max(counted.peakMoved, counted.live);
    return memory;
}

} // namespace

extern "C" {

bench::Allocations *bench_allocations()
{
    return &counted;
}

void *malloc(std::size_t size)
{
    return added(__libc_malloc(size));
}

void *calloc(std::size_t count, std::size_t size)
{
    return added(__libc_calloc(count, size));
}

void *realloc(void *memory, std::size_t size)
{
    const std::size_t before = malloc_usable_size(memory);
    void *result = __libc_realloc(memory, size);
    if (!result && size != 0)
        return result;
    if (result != memory)
        counted.peakMoved = std::max(counted.peakMoved, counted.live + malloc_usable_size(result));
    counted.live -= before;
    return added(result);
}

void *memalign(std::size_t alignment, std::size_t size)
{
    return added(__libc_memalign(alignment, size));
}

void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    return memalign(alignment, size);
}

int posix_memalign(void **result, std::size_t alignment, std::size_t size)
{
    *result = memalign(alignment, size);
    return *result ? 0 : ENOMEM;
}

void free(void *memory)
{
    counted.live -= malloc_usable_size(memory);
    __libc_free(memory);
}

} // extern "C"
