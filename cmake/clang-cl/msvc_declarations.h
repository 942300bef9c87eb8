// clang-cl includes this file before each source. It declares what the headers of Qt, libc++ and
// mingw-w64 expect from MSVC and none of them declares.
#pragma once
#pragma clang system_header

#include <corecrt.h>
#include <cstddef>
#include <stdlib.h>

// Functions of the C library that mingw-w64's headers do not declare. libc++'s <locale> calls them.
extern "C" float __cdecl _strtof_l(const char *, char **, _locale_t);
extern "C" long double __cdecl _strtold_l(const char *, char **, _locale_t);

// Used by libc++'s <locale>.
extern "C" float _strtof_l(const char *text, char **end, _locale_t locale);
extern "C" long double _strtold_l(const char *text, char **end, _locale_t locale);

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

// mingw-w64's classes have no GUIDs for __uuidof. Only inline functions of its headers use
// __uuidof, and this project does not call them.
// clang-format off
#define __uuidof(...) GUID{}
// clang-format on
