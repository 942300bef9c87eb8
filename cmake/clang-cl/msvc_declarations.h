// Included before each unit that clang-cl compiles: what the headers of Qt and mingw-w64
// expect of MSVC and libc++ does not declare.
#pragma once
#pragma clang system_header

#include <cstddef>

// Used by Qt's containers.
namespace stdext {

template <typename Pointer>
Pointer make_unchecked_array_iterator(Pointer pointer)
{
    return pointer;
}

template <typename Pointer>
Pointer make_checked_array_iterator(Pointer pointer, std::size_t, std::size_t = 0)
{
    return pointer;
}

} // namespace stdext

// Mingw-w64's classes do not carry the identifiers that __uuidof returns. Only inline
// functions of its headers use it, and nothing here calls those.
// clang-format off
#define __uuidof(...) GUID{}
// clang-format on
