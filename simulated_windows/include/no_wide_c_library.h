// The C library was built with a wchar_t of four bytes: its wide functions and
// everything of std::wstring that is not a header would read and write past ours.
// Their names do not compile once windows.h is included; Qt's inline
// QString::toWCharArray() and the Windows calls themselves are what to use.
#pragma once

#pragma GCC poison wcslen wcsnlen wcscpy wcsncpy wcscat wcsncat wcscmp wcsncmp wcschr wcsrchr wcsstr
#pragma GCC poison wcstok wcstol wcstoul wcstoll wcstoull wcsdup wcscasecmp wcsncasecmp
#pragma GCC poison wmemcpy wmemmove wmemset wmemcmp wmemchr swprintf vswprintf wprintf fwprintf swscanf
#pragma GCC poison mbstowcs wcstombs mbrtowc wcrtomb mbsrtowcs wcsrtombs
#pragma GCC poison wstring wstring_view toStdWString fromStdWString
