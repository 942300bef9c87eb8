// Included before each C++ source of Qt. It declares what Qt's sources expect from MSVC beyond
// clang-cl/msvc_declarations.h, and __uuidof for mingw-w64's classes, which have no GUID attribute.
#pragma once
#pragma clang system_header

#include "../../clang-cl/msvc_declarations.h"

#undef USE___UUIDOF
#undef __CRT_UUID_DECL
#undef __uuidof
#define USE___UUIDOF 0

struct _GUID;
template <typename Class>
const _GUID &guidOf();

// clang-format off
// mingw-w64's headers use it after each class with a GUID.
#define __CRT_UUID_DECL(type, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8)                           \
    extern "C++" {                                                                                 \
    template <> inline const _GUID &guidOf<type>()                                                 \
    {                                                                                              \
        static constexpr GUID guid = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}};                \
        return guid;                                                                               \
    }                                                                                              \
    template <> inline const _GUID &guidOf<type *>() { return guidOf<type>(); }                    \
    }
#define __uuidof(type) guidOf<__typeof(type)>()
// clang-format on
