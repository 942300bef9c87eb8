// Tells whether a test program may write outside its own keys and files.
#pragma once

#include <windows.h>

#include <cstdio>

/// True only under Wine, in a prefix that this project created: scripts/lib/common.sh marks such a
/// prefix with a file. It contains no data of the user.
inline bool isThrowAwayWindows()
{
    if (!GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version"))
        return false;
    wchar_t directory[MAX_PATH] = {};
    if (GetSystemWindowsDirectoryW(directory, MAX_PATH) == 0)
        return false;
    wchar_t mark[] = L"?:\\vksysteminfo-throw-away";
    mark[0] = directory[0];
    return GetFileAttributesW(mark) != INVALID_FILE_ATTRIBUTES;
}

/// isThrowAwayWindows(). If it is false, an error message says that \a program refuses to run.
inline bool mayChangeWindows(const char *program)
{
    if (isThrowAwayWindows())
        return true;
    std::fprintf(stderr,
                 "%s: writes into the registry of the whole Windows, and refuses to do so outside of a Wine prefix that\n"
                 "this project made for its tests. VKSYSTEMINFO_WINEPREFIX names a folder for one; it must be empty or not\n"
                 "exist yet.\n",
                 program);
    return false;
}
