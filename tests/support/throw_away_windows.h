// Whether a program may change the Windows it runs on beyond keys and files of its own.
#pragma once

#include <windows.h>

#include <cstdio>

/// True only under Wine, in a prefix that scripts/lib/common.sh has marked as made by this
/// project and that holds nothing of the user's. False on every other Windows.
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

/// isThrowAwayWindows(). When it is false, writes to standard error that \a program refuses.
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
