// The C library was built with a wchar_t of four bytes. Its wide functions, and the compiled
// parts of std::wstring, would read and write beyond a buffer of 2-byte units. Their names do
// not compile after this header. Use Windows calls or the inline QString::toWCharArray().
#pragma once

#pragma GCC poison wcslen wcsnlen wcscpy wcsncpy wcscat wcsncat wcscmp wcsncmp wcschr wcsrchr wcsstr
#pragma GCC poison wcstok wcstol wcstoul wcstoll wcstoull wcsdup wcscasecmp wcsncasecmp
#pragma GCC poison wmemcpy wmemmove wmemset wmemcmp wmemchr swprintf vswprintf wprintf fwprintf swscanf
#pragma GCC poison mbstowcs wcstombs mbrtowc wcrtomb mbsrtowcs wcsrtombs
#pragma GCC poison wstring wstring_view toStdWString fromStdWString
