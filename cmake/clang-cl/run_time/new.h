// Declares what libc++'s <new> expects of MSVC's run time.
#pragma once

#include <vcruntime_exception.h>

namespace std {

struct nothrow_t
{
    explicit nothrow_t() = default;
};
extern const nothrow_t nothrow;

enum class align_val_t : size_t {};

typedef void (*new_handler)();
new_handler set_new_handler(new_handler) noexcept;
new_handler get_new_handler() noexcept;

} // namespace std

void *operator new(size_t size);
void *operator new(size_t size, const std::nothrow_t &) noexcept;
void *operator new(size_t size, std::align_val_t);
void *operator new(size_t size, std::align_val_t, const std::nothrow_t &) noexcept;
void *operator new[](size_t size);
void *operator new[](size_t size, const std::nothrow_t &) noexcept;
void *operator new[](size_t size, std::align_val_t);
void *operator new[](size_t size, std::align_val_t, const std::nothrow_t &) noexcept;
void operator delete(void *memory) noexcept;
void operator delete(void *memory, size_t) noexcept;
void operator delete(void *memory, std::align_val_t) noexcept;
void operator delete(void *memory, size_t, std::align_val_t) noexcept;
void operator delete[](void *memory) noexcept;
void operator delete[](void *memory, size_t) noexcept;
void operator delete[](void *memory, std::align_val_t) noexcept;
void operator delete[](void *memory, size_t, std::align_val_t) noexcept;

inline void *operator new(size_t, void *place) noexcept
{
    return place;
}
inline void *operator new[](size_t, void *place) noexcept
{
    return place;
}
inline void operator delete(void *, void *) noexcept { }
inline void operator delete[](void *, void *) noexcept { }
