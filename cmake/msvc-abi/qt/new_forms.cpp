// The forms of operator new and delete that Qt needs in addition to those of run_time.cpp.
#include <malloc.h>
#include <new.h>
#include <stdlib.h>

const std::nothrow_t std::nothrow {};

void *operator new(size_t size, const std::nothrow_t &) noexcept
{
    return malloc(size ? size : 1);
}
void *operator new[](size_t size, const std::nothrow_t &) noexcept
{
    return malloc(size ? size : 1);
}
void *operator new(size_t size, std::align_val_t alignment)
{
    if (void *memory = _aligned_malloc(size ? size : 1, static_cast<size_t>(alignment)))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void *memory, std::align_val_t) noexcept
{
    _aligned_free(memory);
}
void operator delete(void *memory, size_t, std::align_val_t) noexcept
{
    _aligned_free(memory);
}
