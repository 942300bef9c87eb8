// Functions of the C library that are inline in mingw-w64's headers. Unoptimised code calls them.
#include <string.h>

extern "C" wchar_t *__cdecl setWide(wchar_t *to, wchar_t character, size_t size) asm("wmemset");
extern "C" wchar_t *__cdecl copyWide(wchar_t *to, const wchar_t *from, size_t size) asm("wmemcpy");

wchar_t *__cdecl setWide(wchar_t *to, wchar_t character, size_t size)
{
    for (size_t i = 0; i < size; ++i)
        to[i] = character;
    return to;
}

wchar_t *__cdecl copyWide(wchar_t *to, const wchar_t *from, size_t size)
{
    return static_cast<wchar_t *>(memcpy(to, from, size * sizeof(wchar_t)));
}
